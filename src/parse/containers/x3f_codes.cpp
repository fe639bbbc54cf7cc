#include "parse/containers/x3f_codes.h"

namespace qmx {

bool X3fCodes::Read(std::span<const std::uint8_t, kX3fCodeTableBytes> table) {
    for (int difference = 0; difference < 256; ++difference) {
        const std::uint32_t word =
            LoadU32(table.data() + std::size_t{4} * static_cast<unsigned>(difference));
        const auto length = static_cast<int>(word >> kMaxCodeBits);
        const std::uint32_t code = word & ((1u << kMaxCodeBits) - 1);
        if (word != 0 && !Add(code, length, difference)) return false;
    }
    return true;
}

bool X3fCodes::Add(std::uint32_t code, int length, int difference) {
    if (length == 0 || length > kMaxCodeBits || code >> length != 0) return false;
    int node = 0;
    for (int i = length - 1; i > 0; --i) {
        std::int16_t& child = children_[node][code >> i & 1];
        if (child == kNone) child = nodeCount_++;
        if (child < 0) return false;
        node = child;
    }
    std::int16_t& leaf = children_[node][code & 1];
    if (leaf != kNone) return false;
    leaf = static_cast<std::int16_t>(-1 - difference);
    return true;
}

}  // namespace qmx
