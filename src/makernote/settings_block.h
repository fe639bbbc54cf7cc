#pragma once
// A camera's settings kept as one array of big-endian words or bytes: rows that say which word is
// what, and the usual ways to keep one.  A field that a tag of its own has set already stays.

#include <cstddef>
#include <cstdint>

#include "parse/core/cursor.h"
#include "parse/core/record_of.h"

namespace qmx {

// Where a block lies in the file.
struct SettingsBlock {
    std::int32_t position = 0;
    std::uint32_t bytes = 0;  // 0: there is none
};

inline SettingsBlock SettingsBlockHere(const ParseContext& ctx, std::uint32_t bytes) {
    return {Position(ctx), bytes};
}

template <class Record>
struct SettingRow {
    std::uint16_t index;
    void (*store)(ImageInfo& info, Record& record, std::int32_t word);
};

inline std::int32_t ReadSetting(ParseContext& ctx, std::uint32_t elementBytes) {
    switch (elementBytes) {
        case 4: return static_cast<std::int32_t>(ReadU32BE(ctx));
        case 2: return ReadU16BE(ctx);
        default: return AtEnd(ctx) ? 0xFF : *ctx.cursor;
    }
}

// Hands each element that a row names and the block holds to that row.
template <class Record, std::size_t Size>
void ReadSettings(ParseContext& ctx, const SettingsBlock& block, std::uint32_t elementBytes,
                  Record& record, const SettingRow<Record> (&rows)[Size]) {
    const CursorScope restoreCursor(ctx);
    for (const SettingRow<Record>& row : rows) {
        const std::uint32_t at = row.index * elementBytes;
        if (at + elementBytes > block.bytes) continue;
        SeekTo(ctx, WrappingAdd(block.position, at));
        if (BytesLeft(ctx) < elementBytes) continue;
        row.store(ctx.info, record, ReadSetting(ctx, elementBytes));
    }
}

constexpr std::int32_t StepFrom(std::int32_t centre, std::int32_t word) {
    return WrappingAdd(word, static_cast<std::uint32_t>(-centre));
}

// The word as it stands.
template <auto Field>
void KeepWord(ImageInfo&, RecordOf<Field>& record, std::int32_t word) {
    if (!IsSet(record.*Field)) record.*Field = word;
}

// A step around the word that means none.
template <auto Field, std::int32_t Centre>
void KeepStep(ImageInfo&, RecordOf<Field>& record, std::int32_t word) {
    if (!IsSet(record.*Field)) record.*Field = StepFrom(Centre, word);
}

// What a conversion makes of the word.
template <auto Field, auto Convert>
void KeepConverted(ImageInfo&, RecordOf<Field>& record, std::int32_t word) {
    if (!IsSet(record.*Field)) record.*Field = Convert(word);
}

// A value that belongs to the Exif fields; 0 and less say nothing.
template <class Record, auto Field, auto Convert>
void FillExif(ImageInfo& info, Record&, std::int32_t word) {
    const auto value = Convert(word);
    if (!IsSet(info.*Field) && value > 0) info.*Field = value;
}

}  // namespace qmx
