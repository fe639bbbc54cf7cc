#include "rawdev/raw_ifd.h"

#include <bit>
#include <limits>

namespace qmx {
namespace {

// Field types of TIFF 6 and its supplement.
enum : std::uint16_t {
    kByte = 1,
    kAscii = 2,
    kShort = 3,
    kLong = 4,
    kRational = 5,
    kSByte = 6,
    kUndefined = 7,
    kSShort = 8,
    kSLong = 9,
    kSRational = 10,
    kFloat = 11,
    kDouble = 12,
    kIfd = 13,  // a LONG that points to a directory (TIFF Technical Note 1)
};

double Quotient(double numerator, double denominator) {
    return denominator == 0 ? std::numeric_limits<double>::quiet_NaN() : numerator / denominator;
}

double Signed32(const FileView& file, std::uint64_t position) {
    return static_cast<std::int32_t>(file.U32(position));
}

double ReadDouble(const FileView& file, std::uint64_t position) {
    const std::uint64_t first = file.U32(position);
    const std::uint64_t second = file.U32(position + 4);
    return std::bit_cast<double>(file.bigEndian ? first << 32 | second : second << 32 | first);
}

}  // namespace

std::uint32_t RawTypeSize(std::uint16_t type) {
    constexpr std::uint8_t kSizes[] = {1, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
    return type < sizeof kSizes ? kSizes[type] : 1;
}

double ReadNumber(const FileView& file, const TagValues& values, std::uint32_t index) {
    if (index >= values.count) return 0;
    const std::uint64_t at = values.position + std::uint64_t{RawTypeSize(values.type)} * index;
    switch (values.type) {
        case kByte:
        case kAscii:
        case kUndefined: return file.U8(at);
        case kSByte: return static_cast<std::int8_t>(file.U8(at));
        case kShort: return file.U16(at);
        case kSShort: return static_cast<std::int16_t>(file.U16(at));
        case kLong:
        case kIfd: return file.U32(at);
        case kSLong: return Signed32(file, at);
        case kRational: return Quotient(file.U32(at), file.U32(at + 4));
        case kSRational: return Quotient(Signed32(file, at), Signed32(file, at + 4));
        case kFloat: return std::bit_cast<float>(file.U32(at));
        case kDouble: return ReadDouble(file, at);
        default: return 0;
    }
}

std::uint32_t ReadUnsigned(const FileView& file, const TagValues& values, std::uint32_t index) {
    const double value = ReadNumber(file, values, index);
    return value >= 0 && value < 4294967296.0 ? static_cast<std::uint32_t>(value) : 0;
}

}  // namespace qmx
