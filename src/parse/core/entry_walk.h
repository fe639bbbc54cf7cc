#pragma once
// The one walk over 12-byte directory entries, shared by IFDs, Exif, GPS and every MakerNote, and
// the rows that say what a directory's tags mean.  Entry layout: TIFF 6, section 2.

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "parse/core/cursor.h"
#include "parse/core/record_of.h"

namespace qmx {

inline constexpr std::uint32_t kEntryBytes = 12;

struct DirEntry {
    std::uint16_t tag;
    std::uint16_t type;
    std::uint32_t count;  // never above 0x7FFFFFFF when a visitor sees it
};

// An entry up to its value field; all ones from where the file ends.
inline DirEntry ReadEntry(ParseContext& ctx) {
    constexpr std::size_t kHeadBytes = 8;
    if (BytesLeft(ctx) < kHeadBytes) {
        const std::uint16_t tag = ReadU16(ctx);
        const std::uint16_t type = ReadU16(ctx);
        return {tag, type, ReadU32(ctx)};
    }
    const std::uint8_t* p = ctx.cursor;
    ctx.cursor += kHeadBytes;
    if (ctx.byteOrder == kLittleEndian) return {LoadU16LE(p), LoadU16LE(p + 2), LoadU32LE(p + 4)};
    return {LoadU16BE(p), LoadU16BE(p + 2), LoadU32BE(p + 4)};
}

struct NeverEnds {
    constexpr bool operator()(const DirEntry&) const { return false; }
};

// Calls visit(entry) with the cursor on the entry's value, for each of `count` entries at the
// cursor.  Entries with a negative count or a value outside the file are skipped; one for which
// endsAt(entry) holds ends the walk.  Otherwise the cursor ends behind the last entry walked.
template <class Visit, class EndsAt = NeverEnds>
void WalkEntries(ParseContext& ctx, std::uint32_t count, Visit&& visit, EndsAt&& endsAt = {}) {
    for (std::uint32_t i = 0; i < count && !AtEnd(ctx); ++i) {
        const std::int32_t next = WrappingAdd(Position(ctx), kEntryBytes);
        SpendWork(ctx, kEntryBytes);
        const DirEntry entry = ReadEntry(ctx);
        if (endsAt(entry)) return;
        if (static_cast<std::int32_t>(entry.count) >= 0 &&
            SeekToValue(ctx, entry.type, entry.count))
            visit(entry);
        SeekTo(ctx, next);
    }
}

// What to do with one tag's value, at which the cursor stands, for a record being filled.
template <class Record>
struct TagRow {
    std::uint16_t tag;
    void (*store)(ParseContext& ctx, const DirEntry& entry, Record& record);
};

// The search below relies on it.
template <class Record, std::size_t Size>
constexpr bool TagsAscend(const TagRow<Record> (&rows)[Size]) {
    for (std::size_t i = 1; i < Size; ++i)
        if (rows[i - 1].tag >= rows[i].tag) return false;
    return true;
}

// Walks `count` entries at the cursor and hands each one that has a row to it.  Directories list
// their tags in ascending order too, so one pass over the rows serves all entries; a file that does
// not begins anew.
template <class Record, std::size_t Size, class EndsAt = NeverEnds>
void WalkTable(ParseContext& ctx, std::uint32_t count, Record& record,
               const TagRow<Record> (&rows)[Size], EndsAt&& endsAt = {}) {
    const TagRow<Record>* row = rows;
    const auto visit = [&](const DirEntry& entry) {
        if (row != rows && entry.tag <= row[-1].tag) row = rows;
        while (row != rows + Size && row->tag < entry.tag) ++row;
        if (row != rows + Size && row->tag == entry.tag) row->store(ctx, entry, record);
    };
    WalkEntries(ctx, count, visit, endsAt);
}

inline std::int32_t ReadInteger(ParseContext& ctx, const DirEntry& entry) {
    return TruncateToI32(ReadValue(ctx, entry.type));
}

inline std::uint32_t ReadUnsigned(ParseContext& ctx, const DirEntry& entry) {
    return TruncateToU32(ReadValue(ctx, entry.type));
}

inline float ReadFloat(ParseContext& ctx, const DirEntry& entry) {
    return ToField(ReadValue(ctx, entry.type));
}

// The ordinary rows: one number or text into one member.
template <auto Field>
void StoreInteger(ParseContext& ctx, const DirEntry& entry, RecordOf<Field>& record) {
    record.*Field = ReadInteger(ctx, entry);
}

template <auto Field>
void StoreFloat(ParseContext& ctx, const DirEntry& entry, RecordOf<Field>& record) {
    record.*Field = ReadFloat(ctx, entry);
}

template <auto Field>
void StoreText(ParseContext& ctx, const DirEntry& entry, RecordOf<Field>& record) {
    ReadString(ctx, record.*Field, entry.count);
}

// Bytes as they stand, always terminated within the member.
template <auto Field>
void StoreTerminatedBytes(ParseContext& ctx, const DirEntry& entry, RecordOf<Field>& record) {
    auto& field = record.*Field;
    std::fill(std::begin(field), std::end(field), 0);
    ReadBytes(ctx, field, std::min<std::size_t>(entry.count, std::size(field) - 1));
}

}  // namespace qmx
