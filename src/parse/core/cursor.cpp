#include "parse/core/cursor.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace qmx {
namespace {

template <class Float>
double ReadHostOrder(ParseContext& ctx) {
    static_assert(std::endian::native == std::endian::little);
    Float value = 0;  // stays partly zero when the file ends inside it
    ReadBytes(ctx, &value, sizeof value);
    return value;
}

std::uint8_t ReadU8(ParseContext& ctx) {
    std::uint8_t value = 0xFF;
    ReadBytes(ctx, &value, 1);
    return value;
}

}  // namespace

std::size_t ReadBytes(ParseContext& ctx, void* dst, std::size_t wanted) {
    const std::size_t count = std::min(wanted, BytesLeft(ctx));
    if (count == 0) return 0;
    std::memcpy(dst, ctx.cursor, count);
    ctx.cursor += count;
    return count;
}

void ReadString(ParseContext& ctx, std::span<char> dst, std::uint32_t count) {
    if (dst.empty()) return;
    const std::size_t wanted = std::min<std::size_t>(count, dst.size() - 1);
    std::memset(dst.data(), 0, wanted + 1);
    ReadBytes(ctx, dst.data(), wanted);
    const std::string_view text(dst.data());
    if (text.find_first_not_of(' ') == std::string_view::npos) dst[0] = 0;
}

double ReadValue(ParseContext& ctx, std::uint16_t type) {
    switch (type) {
        case kTypeByte: return ReadU8(ctx);
        case kTypeSByte: return static_cast<std::int8_t>(ReadU8(ctx));
        case kTypeShort: return ReadU16(ctx);
        case kTypeSShort: return static_cast<std::int16_t>(ReadU16(ctx));
        case kTypeLong: return ReadU32(ctx);
        case kTypeSLong: return static_cast<std::int32_t>(ReadU32(ctx));
        case kTypeRational: {
            const std::uint32_t numerator = ReadU32(ctx);
            const std::uint32_t denominator = ReadU32(ctx);
            if (numerator == 0 || denominator == 0) return 0.0;
            return static_cast<double>(numerator) / denominator;
        }
        case kTypeSRational: {
            const auto numerator = static_cast<std::int32_t>(ReadU32(ctx));
            const auto denominator = static_cast<std::int32_t>(ReadU32(ctx));
            if (numerator == 0 || denominator == 0) return 0.0;
            return static_cast<double>(numerator) / denominator;
        }
        case kTypeFloat: return ReadHostOrder<float>(ctx);
        case kTypeDouble: return ReadHostOrder<double>(ctx);
        default: return 0.0;
    }
}

bool ReadMagic(ParseContext& ctx, std::string_view magic) {
    if (BytesLeft(ctx) < magic.size()) return false;
    const bool same = std::memcmp(ctx.cursor, magic.data(), magic.size()) == 0;
    ctx.cursor += magic.size();
    return same;
}

}  // namespace qmx
