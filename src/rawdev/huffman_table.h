#pragma once
// Huffman tables of lossless JPEG (ITU-T T.81, Annex C and H): a code names a category, the number
// of bits that hold the difference.

#include <cstdint>
#include <span>

namespace qmx {

inline constexpr std::uint32_t kFastBits = 12;  // codes, differences included, that one look finds
inline constexpr std::uint32_t kLongestCode = 16;
inline constexpr std::uint32_t kMostCategories = 17;  // 0 to 16

// The difference that `bits` bits of the value `raw` stand for.
constexpr std::int32_t ExtendDifference(std::uint32_t raw, std::uint32_t bits) {
    const std::uint32_t half = (std::uint32_t{1} << bits) >> 1;
    const auto value = static_cast<std::int32_t>(raw);
    return raw >= half ? value : value - static_cast<std::int32_t>((half << 1) - 1);
}

class HuffmanTable {
public:
    struct Entry {
        std::int16_t difference;
        std::uint8_t used;  // bits of code and difference; 0: they do not fit
        std::uint8_t code;  // length of the code; 0: it does not fit
        std::uint8_t category;
    };

    Entry fast[1u << kFastBits];
    std::uint32_t codeEnd[kLongestCode + 1];    // first code beyond those of a length, 16 bits
    std::int32_t firstIndex[kLongestCode + 1];  // index of a length's code 0 in `categories`
    std::uint8_t categories[kMostCategories];
    bool isValid;

    // Builds the table from the numbers of codes of 1 to 16 bits and their categories in order.
    // With `longCategory16` 16 bits that say nothing follow the codes of category 16.
    void Build(std::span<const std::uint8_t, kLongestCode> counts,
               std::span<const std::uint8_t> values, bool longCategory16);

    // Length and category of the code at the top of 16 bits; a length of 0 when there is none.
    struct Code {
        std::uint32_t length;
        std::uint32_t category;
    };
    Code Find(std::uint32_t top16) const;

private:
    void FillFast(std::span<const std::uint8_t, kLongestCode> counts, bool longCategory16);
};

}  // namespace qmx
