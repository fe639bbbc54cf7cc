#pragma once
// CIELab on a scale of 64, in which the demosaic compares neighbours.

#include <cstdint>

#include "rawdev/raw_decode_state.h"

namespace qmx {

struct Lab {
    std::int16_t l, a, b;
};

class LabConverter {
public:
    // Takes its table from the run's scratch memory.  False when memory is short.
    bool Start(RawDecodeState& state);
    Lab Convert(const std::uint16_t (&rgb)[3]) const;

private:
    const float* roots_ = nullptr;
    float toXyz_[3][3] = {};  // of the camera's colours, white = 1
};

}  // namespace qmx
