#include "rawdev/block_groups.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "rawdev/portable_kernels.h"

namespace qmx {
namespace {

std::uint64_t LoadWord(const std::uint8_t* p) {
    std::uint64_t word = 0;
    std::memcpy(&word, p, sizeof word);  // x64 is little-endian
    return word;
}

// The bits of a group from the top.
class GroupBits {
public:
    explicit GroupBits(const std::uint8_t* group)
        : high_(LoadWord(group + 8)), low_(LoadWord(group)) {}

    std::int32_t Take(int count) {
        const auto value = static_cast<std::int32_t>(high_ >> (64 - count));
        high_ = high_ << count | low_ >> (64 - count);
        low_ <<= count;
        return value;
    }

private:
    std::uint64_t high_;
    std::uint64_t low_;
};

void DecodeAnyGroup(const std::uint8_t* group, std::uint16_t* dst) {
    constexpr int kShifts[] = {0, 1, 2, 4};
    GroupBits bits(group);
    std::int32_t predictors[2] = {};
    bool started[2] = {};
    int shift = 0;
    for (std::uint32_t p = 0; p < kGroupSamples; ++p) {
        if (p % 3 == 2) shift = kShifts[bits.Take(2)];
        std::int32_t& predictor = predictors[p & 1];
        if (!started[p & 1]) {
            const std::int32_t high = bits.Take(8);
            started[p & 1] = high != 0;
            if (high != 0 || p >= 12) predictor = high << 4 | bits.Take(4);
        } else if (const std::int32_t delta = bits.Take(8); delta != 0) {
            std::int32_t base = predictor - (128 << shift);
            if (base < 0 || shift == 4) base &= (1 << shift) - 1;
            predictor = base + (delta << shift);
        }
        // Deltas may reach a little beyond 12 bits.
        dst[p] = static_cast<std::uint16_t>(std::min(predictor, 0xFFF) << kLevelShift);
    }
}

// Nearly every group starts both predictors at once, which puts all its fields in fixed places.
class FixedGroup {
public:
    explicit FixedGroup(const std::uint8_t* group)
        : high_(LoadWord(group + 8)), low_(LoadWord(group)) {}

    bool Applies() const { return (high_ >> 56) != 0 && (high_ >> 44 & 0xFF) != 0; }

    void Decode(std::uint16_t* dst) const {
        std::int32_t even = static_cast<std::int32_t>(high_ >> 52);
        std::int32_t odd = static_cast<std::int32_t>(high_ >> 40 & 0xFFF);
        Put(dst[0], even);
        Put(dst[1], odd);
        DecodeTriplet<102>(even, odd, even, dst + 2);
        DecodeTriplet<76>(odd, even, odd, dst + 5);
        DecodeTriplet<50>(even, odd, even, dst + 8);
        DecodeTriplet<24>(odd, even, odd, dst + 11);
    }

private:
    // The field whose lowest bit is `Bit` of the 128.
    template <int Bit, int Count>
    std::uint32_t Field() const {
        constexpr std::uint32_t kMask = (1u << Count) - 1;
        if constexpr (Bit >= 64) {
            return static_cast<std::uint32_t>(high_ >> (Bit - 64)) & kMask;
        } else if constexpr (Bit + Count <= 64) {
            return static_cast<std::uint32_t>(low_ >> Bit) & kMask;
        } else {
            return static_cast<std::uint32_t>(high_ << (64 - Bit) | low_ >> Bit) & kMask;
        }
    }

    // A shift and three deltas of 8 bits behind it.
    template <int ShiftBit>
    void DecodeTriplet(std::int32_t& first, std::int32_t& second, std::int32_t& third,
                       std::uint16_t* dst) const {
        const std::uint32_t code = Field<ShiftBit, 2>();
        const int shift = static_cast<int>(code + code / 3);
        Step(first, Field<ShiftBit - 8, 8>(), shift);
        Put(dst[0], first);
        Step(second, Field<ShiftBit - 16, 8>(), shift);
        Put(dst[1], second);
        Step(third, Field<ShiftBit - 24, 8>(), shift);
        Put(dst[2], third);
    }

    static void Step(std::int32_t& predictor, std::uint32_t delta, int shift) {
        if (delta == 0) return;
        const std::int32_t base = predictor - (128 << shift);
        // No branch, which nothing could predict: all ones where only the low bits stay.
        const std::int32_t cut = -static_cast<std::int32_t>((base < 0) | (shift == 4));
        const std::int32_t lowBits = (1 << shift) - 1;
        predictor = (base & (lowBits | ~cut)) + (static_cast<std::int32_t>(delta) << shift);
    }

    static void Put(std::uint16_t& sample, std::int32_t predictor) {
        sample = static_cast<std::uint16_t>(std::min(predictor, 0xFFF) << kLevelShift);
    }

    std::uint64_t high_;
    std::uint64_t low_;
};

}  // namespace

void DecodeGroup(const std::uint8_t* group, std::uint16_t* dst) {
    const FixedGroup fixed(group);
    if (fixed.Applies()) {
        fixed.Decode(dst);
    } else {
        DecodeAnyGroup(group, dst);
    }
}

void UnpackGroups(const std::uint8_t* src, std::uint32_t groups, std::uint16_t* dst) {
    for (std::size_t i = 0; i < groups; ++i)
        DecodeGroup(src + kGroupBytes * i, dst + kGroupSamples * i);
}

}  // namespace qmx
