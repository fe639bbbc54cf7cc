#pragma once
// Rows out of blocks of 0x4000 bytes whose two parts stand in the file the other way round, as
// Panasonic's files with a tag of their own for the data's place have them.

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "rawdev/raw_decode_state.h"

namespace qmx {

class SplitRows {
public:
    static constexpr std::uint64_t kBlock = 0x4000;

    // False when memory is short.
    bool Start(RawDecodeState& state, std::uint64_t rowBytes) {
        file_ = state.file;
        first_ = state.dataOffset;
        rowBytes_ = static_cast<std::size_t>(rowBytes);
        row_ = state.scratch.Take<std::uint8_t>(rowBytes);
        return row_ != nullptr;
    }

    // The bytes at a position of the joined stream, as many as a row has.  Valid until the next
    // call; zero where the file ends early.
    const std::uint8_t* At(std::uint64_t position) {
        for (std::size_t done = 0; done < rowBytes_;) {
            const std::uint64_t block = (position + done) / kBlock * kBlock;
            const std::uint64_t inBlock = (position + done) % kBlock;
            const bool inHead = inBlock < kHead;
            const std::uint64_t stored =
                first_ + block + (inHead ? inBlock + kTail : inBlock - kHead);
            const std::uint64_t left = (inHead ? kHead : kBlock) - inBlock;
            const auto run =
                static_cast<std::size_t>(std::min<std::uint64_t>(left, rowBytes_ - done));
            CopyStored(stored, row_ + done, run);
            done += run;
        }
        return row_;
    }

private:
    static constexpr std::uint64_t kTail = 0x1FF8;  // first in the file, last of the block
    static constexpr std::uint64_t kHead = kBlock - kTail;

    void CopyStored(std::uint64_t position, std::uint8_t* dst, std::size_t count) const {
        const auto there =
            static_cast<std::size_t>(std::min<std::uint64_t>(file_.BytesFrom(position), count));
        if (there != 0) std::memcpy(dst, file_.data + position, there);
        std::memset(dst + there, 0, count - there);
    }

    FileView file_;
    std::uint64_t first_ = 0;
    std::size_t rowBytes_ = 0;
    std::uint8_t* row_ = nullptr;
};

}  // namespace qmx
