#pragma once
// Rows of bytes in the file; where the file ends early the rest of a row is zero.

#include <cstdint>
#include <cstring>

#include "rawdev/raw_decode_state.h"

namespace qmx {

class StoredRows {
public:
    // False when memory is short.
    bool Start(RawDecodeState& state, std::uint64_t rowBytes) {
        file_ = state.file;
        rowBytes_ = static_cast<std::size_t>(rowBytes);
        partial_ = state.scratch.Take<std::uint8_t>(rowBytes);
        return partial_ != nullptr;
    }

    // The bytes at a position, as many as a row has.  Valid until the next call.
    const std::uint8_t* At(std::uint64_t position) {
        const std::uint64_t there = file_.BytesFrom(position);
        if (there >= rowBytes_) return file_.data + position;
        std::memset(partial_, 0, rowBytes_);
        if (there != 0)
            std::memcpy(partial_, file_.data + position, static_cast<std::size_t>(there));
        return partial_;
    }

private:
    FileView file_;
    std::size_t rowBytes_ = 0;
    std::uint8_t* partial_ = nullptr;
};

}  // namespace qmx
