#pragma once
// The prefix code of X3F previews.  Its table has a 32-bit word for each of the 256 differences:
// the code's length in the upper 5 bits, the code in the lower 27; zero is a difference that does
// not occur.

#include <cstddef>
#include <cstdint>
#include <span>

namespace qmx {

inline constexpr std::size_t kX3fCodeTableBytes = 1024;  // 256 words

// Little-endian.
inline std::uint32_t LoadU32(const std::uint8_t* p) {
    return std::uint32_t{p[3]} << 24 | std::uint32_t{p[2]} << 16 | std::uint32_t{p[1]} << 8 | p[0];
}

// Bits of a run of bytes, the highest of each byte first.
class X3fBits {
public:
    explicit X3fBits(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    // -1 behind the last bit.
    int Next() {
        if (position_ == bytes_.size()) return -1;
        const int bit = bytes_[position_] >> shift_ & 1;
        if (shift_-- == 0) {
            shift_ = 7;
            ++position_;
        }
        return bit;
    }

    std::uint64_t BitsRead() const {
        return std::uint64_t{position_} * 8 + static_cast<unsigned>(7 - shift_);
    }

private:
    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
    int shift_ = 7;
};

class X3fCodes {
public:
    // False when codes are longer than they can be or one begins with another.
    bool Read(std::span<const std::uint8_t, kX3fCodeTableBytes> table);

    // The next difference, 0..255; -1 at the end of the bits and for a code that is not in the
    // table.
    int Next(X3fBits& bits) const {
        int node = 0;
        do {
            const int bit = bits.Next();
            if (bit < 0) return -1;
            node = children_[node][bit];
        } while (node > 0);
        return node == kNone ? -1 : -1 - node;
    }

private:
    static constexpr int kMaxCodeBits = 27;
    static constexpr int kMaxNodes = 256 * kMaxCodeBits;
    static constexpr std::int16_t kNone = 0;

    bool Add(std::uint32_t code, int length, int difference);

    // A tree: the index of another node, kNone, or -1 - difference at a code's end.
    std::int16_t children_[kMaxNodes][2] = {};
    std::int16_t nodeCount_ = 1;
};

}  // namespace qmx
