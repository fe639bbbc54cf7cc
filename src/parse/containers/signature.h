#pragma once
// Kinds of files by their first bytes.

#include <cstdint>
#include <span>

namespace qmx {

enum class Container {
    kUnknown,
    kTiff,
    kCiff,  // Canon's heap format
    kMrw,
    kRaf,
    kX3f,
    kJpeg,
};

// What a file with these bytes is; only the first few are looked at.
Container RecogniseContainer(std::span<const std::uint8_t> bytes);

}  // namespace qmx
