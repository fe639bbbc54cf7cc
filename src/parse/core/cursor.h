#pragma once
// The bounds-checked cursor.  No reader fails loudly: a read past the end gives all ones and
// leaves the cursor, and every seek is clamped into the file, so parsers need no error paths.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "parse/core/numeric.h"
#include "parse/core/parse_context.h"

namespace qmx {

// TIFF 6 field types; 0 and everything from 13 up count as one byte.
enum FieldType : std::uint16_t {
    kTypeByte = 1,
    kTypeAscii = 2,
    kTypeShort = 3,
    kTypeLong = 4,
    kTypeRational = 5,
    kTypeSByte = 6,
    kTypeUndefined = 7,
    kTypeSShort = 8,
    kTypeSLong = 9,
    kTypeSRational = 10,
    kTypeFloat = 11,
    kTypeDouble = 12,
};

constexpr std::uint32_t FieldTypeSize(std::uint16_t type) {
    constexpr std::uint8_t kSizes[] = {1, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8};
    return kSizes[type < std::size(kSizes) ? type : 0];
}

inline std::size_t BytesLeft(const ParseContext& ctx) {
    return ctx.cursor < ctx.readEnd ? static_cast<std::size_t>(ctx.readEnd - ctx.cursor) : 0;
}

inline bool AtEnd(const ParseContext& ctx) { return ctx.cursor >= ctx.readEnd; }

// The cursor's place in the file.  Positions are signed 32-bit wherever they are computed with.
inline std::int32_t Position(const ParseContext& ctx) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(ctx.cursor - ctx.viewBase));
}

// Goes to a position, clamped to [0, fileSize].
inline void SeekTo(ParseContext& ctx, std::int32_t position) {
    const std::int64_t clamped = position < 0 ? 0 : position;
    ctx.cursor = ctx.viewBase + (clamped < ctx.fileSize ? clamped : ctx.fileSize);
}

inline void SeekToOffset(ParseContext& ctx, std::uint32_t offset) {
    SeekTo(ctx, WrappingAdd(static_cast<std::int32_t>(ctx.tiffBase), offset));
}

// Spends `bytes` of the work budget.  Once it is gone the rest of the file reads as its end, which
// ends every walk: a file of N bytes costs at most what N bytes of honest directories cost,
// however often its offsets point at the same place.
inline void SpendWork(ParseContext& ctx, std::uint32_t bytes) {
    ctx.workLeft -= bytes;
    if (ctx.workLeft < 0) ctx.readEnd = ctx.viewBase;
}

// Numbers at any address.
constexpr std::uint16_t LoadU16BE(const std::uint8_t* p) {
    return static_cast<std::uint16_t>(p[0] << 8 | p[1]);
}
constexpr std::uint16_t LoadU16LE(const std::uint8_t* p) {
    return static_cast<std::uint16_t>(p[0] | p[1] << 8);
}
constexpr std::uint32_t LoadU32BE(const std::uint8_t* p) {
    return std::uint32_t{p[0]} << 24 | std::uint32_t{p[1]} << 16 | std::uint32_t{p[2]} << 8 | p[3];
}
constexpr std::uint32_t LoadU32LE(const std::uint8_t* p) {
    return std::uint32_t{p[3]} << 24 | std::uint32_t{p[2]} << 16 | std::uint32_t{p[1]} << 8 | p[0];
}

// Big-endian, whatever the file's order.
inline std::uint16_t ReadU16BE(ParseContext& ctx) {
    if (BytesLeft(ctx) < 2) return 0xFFFF;
    const std::uint8_t* p = ctx.cursor;
    ctx.cursor += 2;
    return LoadU16BE(p);
}

inline std::uint32_t ReadU32BE(ParseContext& ctx) {
    if (BytesLeft(ctx) < 4) return 0xFFFFFFFF;
    const std::uint8_t* p = ctx.cursor;
    ctx.cursor += 4;
    return LoadU32BE(p);
}

// In the byte order in force.
inline std::uint16_t ReadU16(ParseContext& ctx) {
    if (BytesLeft(ctx) < 2) return 0xFFFF;
    const std::uint8_t* p = ctx.cursor;
    ctx.cursor += 2;
    return ctx.byteOrder == kLittleEndian ? LoadU16LE(p) : LoadU16BE(p);
}

inline std::uint32_t ReadU32(ParseContext& ctx) {
    if (BytesLeft(ctx) < 4) return 0xFFFFFFFF;
    const std::uint8_t* p = ctx.cursor;
    ctx.cursor += 4;
    return ctx.byteOrder == kLittleEndian ? LoadU32LE(p) : LoadU32BE(p);
}

// Copies what is there of `wanted` bytes; the count copied.
std::size_t ReadBytes(ParseContext& ctx, void* dst, std::size_t wanted);

// Copies at most `count` characters into `dst` and terminates it.  A text of spaces only counts
// as absent and becomes empty.
void ReadString(ParseContext& ctx, std::span<char> dst, std::uint32_t count);

// One value of a TIFF type as a number.  Types without a numeric form give 0 and consume nothing;
// a rational with a zero in it gives 0.  FLOAT and DOUBLE are taken in little-endian order
// whatever the file says.  Deliberate: old writers store them so in big-endian files too.
double ReadValue(ParseContext& ctx, std::uint16_t type);

// At the value field of a directory entry: goes to the value, which stands in the field itself
// when it fits 4 bytes.  False when that is the end of the file.
inline bool SeekToValue(ParseContext& ctx, std::uint16_t type, std::uint32_t count) {
    // A product that wraps below zero counts as fitting.
    if (static_cast<std::int32_t>(FieldTypeSize(type) * count) > 4) SeekToOffset(ctx, ReadU32(ctx));
    return !AtEnd(ctx);
}

// Reads as many bytes as `magic` has; true when they are those.
bool ReadMagic(ParseContext& ctx, std::string_view magic);

}  // namespace qmx
