#pragma once
// Exposure values as Canon stores them: signed words in 1/32 EV, thirds rounded to whole words.

#include <cstdint>

namespace qmx {

// In EV; thirds read as photographers write them, 12 as 0.33 and 20 as 0.67.
constexpr float CanonEv(std::int32_t word) {
    const float steps = static_cast<float>(word);
    const float magnitude = steps < 0.0f ? -steps : steps;
    float ev = magnitude * 0.03125f;
    if (magnitude == 12.0f) ev = 0.33f;
    if (magnitude == 20.0f) ev = 0.67f;
    if (magnitude == 44.0f) ev = 1.33f;
    if (magnitude == 52.0f) ev = 1.67f;
    return steps < 0.0f ? -ev : ev;
}

}  // namespace qmx
