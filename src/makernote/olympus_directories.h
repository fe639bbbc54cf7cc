#pragma once
// The directories within Olympus' MakerNote.  Each decoder is called with the cursor on the
// directory's entry count, byte order and offset base as the note has them.  None of them leads to
// a directory in turn.

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "makernote/olympus_fields.h"
#include "parse/core/entry_walk.h"

namespace qmx {

// A JPEG stream that three tags describe.
struct OlympusPreview {
    std::uint32_t isValid = 1;  // some cameras leave a stale offset
    std::uint32_t offset = 0;   // from the note's base
    std::uint32_t length = 0;   // 0: none
};

struct OlympusSize {
    std::int32_t width = INT_UNSET;
    std::int32_t height = INT_UNSET;
};

// One note being read: what several entries tell together waits here for the end of the walk.
struct OlympusNote {
    OlympusMakerFields& fields;
    OlympusPreview minoltaPreview = {};  // of the bodies that Minolta built
    OlympusPreview zoomedPreview = {};
    OlympusPreview mainPreview = {};
    OlympusPreview settingsPreview = {};
    OlympusSize size = {};
    OlympusSize crop = {};
};

void DecodeOlympusEquipment(ParseContext& ctx, OlympusNote& note);
void DecodeOlympusSettings(ParseContext& ctx, OlympusNote& note);
void DecodeOlympusProcessing(ParseContext& ctx, OlympusNote& note);
void DecodeOlympusRawInfo(ParseContext& ctx, OlympusNote& note);

// Rows of the note's tables that concern the record alone.
template <void (*Store)(ParseContext&, const DirEntry&, OlympusMakerFields&)>
void InOlympusFields(ParseContext& ctx, const DirEntry& entry, OlympusNote& note) {
    Store(ctx, entry, note.fields);
}

// The first numbers of an array, as many as there are.
template <auto... Members>
void StoreOlympusNumbers(ParseContext& ctx, const DirEntry& entry, OlympusNote& note) {
    std::uint32_t left = entry.count;
    const auto store = [&](std::int32_t& member) {
        if (left == 0) return;
        member = ReadInteger(ctx, entry);
        --left;
    };
    (store(note.fields.*Members), ...);
}

// One of the numbers that describe a preview or a size.
template <auto Part, auto Member>
void StoreOlympusPart(ParseContext& ctx, const DirEntry& entry, OlympusNote& note) {
    auto& member = note.*Part.*Member;
    if constexpr (std::is_signed_v<std::remove_reference_t<decltype(member)>>) {
        member = ReadInteger(ctx, entry);
    } else {
        member = ReadUnsigned(ctx, entry);
    }
}

// A text that the camera fills up with blanks.
template <auto Field>
void StoreOlympusText(ParseContext& ctx, const DirEntry& entry, OlympusNote& note) {
    auto& field = note.fields.*Field;
    ReadString(ctx, field, entry.count);
    for (std::size_t i = FieldText(field).size(); i > 0 && field[i - 1] == ' '; --i)
        field[i - 1] = 0;
}

}  // namespace qmx
