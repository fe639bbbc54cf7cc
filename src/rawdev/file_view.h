#pragma once
// The mapped file as the raw readers see it: numbers at positions, checked against the file's end.
// What lies beyond the end reads as zero, so readers need no error paths.

#include <cstdint>

namespace qmx {

struct FileView {
    const std::uint8_t* data = nullptr;
    std::uint64_t size = 0;
    bool bigEndian = false;  // of the numbers that U16 and U32 read

    std::uint64_t BytesFrom(std::uint64_t position) const {
        return position < size ? size - position : 0;
    }
    std::uint8_t U8(std::uint64_t position) const { return position < size ? data[position] : 0; }
    std::uint32_t U16(std::uint64_t position) const {
        if (BytesFrom(position) < 2) return 0;
        const std::uint8_t* p = data + position;
        return bigEndian ? std::uint32_t{p[0]} << 8 | p[1] : std::uint32_t{p[1]} << 8 | p[0];
    }
    std::uint32_t U32(std::uint64_t position) const {
        if (BytesFrom(position) < 4) return 0;
        return bigEndian ? U16(position) << 16 | U16(position + 2)
                         : U16(position + 2) << 16 | U16(position);
    }
};

}  // namespace qmx
