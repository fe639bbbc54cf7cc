#include "rawdev/huffman_table.h"

#include <algorithm>
#include <iterator>

namespace qmx {
namespace {

HuffmanTable::Entry MakeEntry(std::uint32_t bits, std::uint32_t length, std::uint8_t category,
                              bool longCategory16) {
    HuffmanTable::Entry entry = {};
    const std::uint32_t used = length + category;
    entry.code = static_cast<std::uint8_t>(length);
    entry.category = category;
    if (category == 16) {
        entry.used = longCategory16 ? 0 : entry.code;
        entry.difference = -32768;
    } else if (used <= kFastBits) {
        const std::uint32_t raw = bits >> (kFastBits - used) & ((1u << category) - 1);
        entry.used = static_cast<std::uint8_t>(used);
        entry.difference = static_cast<std::int16_t>(ExtendDifference(raw, category));
    }
    return entry;
}

}  // namespace

void HuffmanTable::Build(std::span<const std::uint8_t, kLongestCode> counts,
                         std::span<const std::uint8_t> values, bool longCategory16) {
    isValid = false;
    if (values.size() > kMostCategories) return;
    for (const std::uint8_t category : values)
        if (category >= kMostCategories) return;
    std::copy(values.begin(), values.end(), categories);

    // Codes of a length are consecutive; the next length goes on behind them with a 0 appended.
    std::uint32_t code = 0;
    std::uint32_t index = 0;
    for (std::uint32_t length = 1; length <= kLongestCode; ++length) {
        code <<= 1;
        firstIndex[length] = static_cast<std::int32_t>(index) - static_cast<std::int32_t>(code);
        code += counts[length - 1];
        index += counts[length - 1];
        if (code > 1u << length || index > values.size()) return;  // more codes than there are
        codeEnd[length] = code << (kLongestCode - length);
    }
    isValid = true;

    FillFast(counts, longCategory16);
}

void HuffmanTable::FillFast(std::span<const std::uint8_t, kLongestCode> counts,
                            bool longCategory16) {
    std::uint32_t bits = 0;  // the next code, differences from zero up, on top of kFastBits
    std::uint32_t index = 0;
    for (std::uint32_t length = 1; length <= kFastBits; ++length) {
        for (std::uint32_t i = 0; i < counts[length - 1]; ++i) {
            const std::uint32_t end = bits + (1u << (kFastBits - length));
            const std::uint8_t category = categories[index++];
            for (; bits < end; ++bits)
                fast[bits] = MakeEntry(bits, length, category, longCategory16);
        }
    }
    std::fill(fast + bits, std::end(fast), Entry{});
}

HuffmanTable::Code HuffmanTable::Find(std::uint32_t top16) const {
    for (std::uint32_t length = 1; length <= kLongestCode; ++length) {
        if (top16 >= codeEnd[length]) continue;
        const auto code = static_cast<std::int32_t>(top16 >> (kLongestCode - length));
        return {length, categories[firstIndex[length] + code]};
    }
    return {0, 0};
}

}  // namespace qmx
