#pragma once
// Black, white and linearity of the samples (DNG 1.4, chapter 5 "Mapping Raw Values to Linear
// Reference Values").

#include <cstdint>

#include "rawdev/raw_decode_state.h"

namespace qmx {

// Sets `black` and `maximum` from the depth of the samples and the file's level tags.  What camera
// rules have set is kept unless the file is a DNG.
void TakeLevels(RawDecodeState& state);

// How the samples of a row become linear and share one black level.
class RowLevels {
public:
    // Reads the tables of a DNG.  False when memory is short.
    bool Prepare(RawDecodeState& state);

    // Works on the visible part of the stored row `rawRow`.
    void Apply(std::uint32_t rawRow, std::uint16_t* row) const;

private:
    bool PrepareBlack(RawDecodeState& state);
    void FillOffsets(const RawDecodeState& state, std::uint32_t phase, std::int32_t* offsets) const;

    const RawDecodeState* state_ = nullptr;
    const std::uint16_t* curve_ = nullptr;   // null: the samples are linear
    const std::int32_t* offsets_ = nullptr;  // per phase and visible sample; null: none
    std::uint32_t phases_ = 1;               // rows after which the black pattern repeats
};

}  // namespace qmx
