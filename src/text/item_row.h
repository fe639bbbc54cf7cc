#pragma once
// Sections whose rows depend on the whole record (the model, what another field says): one row per
// item or detail, and the formatters that most rows need.  Each returns false, having written
// nothing, when there is nothing to show.

#include <cstddef>
#include <cstdint>

#include "makernote/maker_record.h"
#include "text/text_row.h"

namespace qmx {

using ItemFormat = bool (*)(const ImageInfo& info, TextBuffer& dst);

// Where a row stands: by itself, as a detail of the item before it, or as such a detail where that
// item is shown and by itself where it is not.
enum class Place { kItem, kDetail, kDetailOrItem };

struct ItemRow {
    const wchar_t* label;
    ItemFormat format;
    Place place = Place::kItem;
};

// Emits the rows that have a value, in table order; plain details only below their item.
template <std::size_t Count>
void EmitItemRows(const ImageInfo& info, const ItemRow (&rows)[Count], const EnumContext& context) {
    wchar_t storage[kValueCapacity];
    bool hasItem = false;
    for (const ItemRow& row : rows) {
        TextBuffer value(storage);
        const bool shown = (row.place != Place::kDetail || hasItem) && row.format(info, value);
        if (row.place == Place::kItem) hasItem = shown;
        if (!shown) continue;
        if (row.place != Place::kItem && hasItem) {
            EmitSubItem(context, row.label, value.Text());
        } else {
            EmitItem(context, row.label, value.Text());
        }
    }
}

// A code; the values left out are the camera's ways of saying nothing.
template <auto Field, const auto& Table, std::int32_t... LeftOut>
bool ItemCode(const ImageInfo& info, TextBuffer& dst) {
    const auto& record = MakerRecord<RecordOf<Field>>(info);
    if (((record.*Field == LeftOut) || ...)) return false;
    return Named<Field, Table>(record, dst);
}

// A number through a formatter.
template <auto Field, auto Format, std::int32_t... LeftOut>
bool ItemNumber(const ImageInfo& info, TextBuffer& dst) {
    const auto& record = MakerRecord<RecordOf<Field>>(info);
    if (((record.*Field == LeftOut) || ...) || !IsSet(record.*Field)) return false;
    Format(dst, record.*Field);
    return true;
}

// The first of several sources that has something to show.
template <ItemFormat... Formats>
bool FirstItem(const ImageInfo& info, TextBuffer& dst) {
    return (Formats(info, dst) || ...);
}

inline void FormatCount(TextBuffer& dst, std::int32_t value) { dst.AppendInteger(value); }
inline void FormatStep(TextBuffer& dst, std::int32_t value) { FormatSignedInteger(dst, value); }
inline void FormatKelvin(TextBuffer& dst, std::int32_t value) { FormatInteger(dst, value, L"K"); }

}  // namespace qmx
