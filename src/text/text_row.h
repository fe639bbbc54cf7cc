#pragma once
// Sections of the labelled list as tables: one row per item, and the formatters that most rows
// need.  A formatter returns false, having written nothing, when its field is not set.

#include <cstddef>
#include <cstdint>

#include "parse/core/image_info.h"
#include "parse/core/record_of.h"
#include "text/enum_context.h"
#include "text/text_buffer.h"
#include "text/value_format.h"
#include "text/value_names.h"

namespace qmx {

template <class Record>
struct TextRow {
    const wchar_t* label;
    bool (*format)(const Record& record, TextBuffer& dst);
};

// Emits the rows that have a value, in table order.
template <class Record, std::size_t Count>
void EmitRows(const Record& record, const TextRow<Record> (&rows)[Count],
              const EnumContext& context) {
    wchar_t storage[kValueCapacity];
    for (const TextRow<Record>& row : rows) {
        TextBuffer value(storage);
        if (row.format(record, value)) EmitItem(context, row.label, value.Text());
    }
}

// A text of the file.
template <auto Field, std::size_t Capacity = kValueCapacity>
bool Widened(const RecordOf<Field>& record, TextBuffer& dst) {
    const std::string_view text = FieldText(record.*Field);
    if (text.empty()) return false;
    WidenMakerString(dst, text, Capacity);
    return true;
}

// A number through one of the formatters of text/value_format.h.
template <auto Field, auto Format>
bool Formatted(const RecordOf<Field>& record, TextBuffer& dst) {
    if (!IsSet(record.*Field)) return false;
    Format(dst, record.*Field);
    return true;
}

template <auto Field, auto Format, const auto& Suffix>
bool Formatted(const RecordOf<Field>& record, TextBuffer& dst) {
    if (!IsSet(record.*Field)) return false;
    Format(dst, record.*Field, Suffix);
    return true;
}

// Two numbers, both set.
template <auto First, auto Second>
bool Pair(const RecordOf<First>& record, TextBuffer& dst) {
    if (!IsSet(record.*First) || !IsSet(record.*Second)) return false;
    FormatIntegerPair(dst, record.*First, record.*Second);
    return true;
}

// A code through an array of ValueName.
template <auto Field, const auto& Table>
bool Named(const RecordOf<Field>& record, TextBuffer& dst) {
    if (!IsSet(record.*Field)) return false;
    LookupValueName(dst, record.*Field, Table);
    return true;
}

template <auto Field, const auto& Table, const auto& Prefix>
bool Named(const RecordOf<Field>& record, TextBuffer& dst) {
    if (!IsSet(record.*Field)) return false;
    LookupValueName(dst, record.*Field, Table, Prefix);
    return true;
}

// A code through an array of names that it is the index of.
template <auto Field, const auto& Names>
bool Indexed(const RecordOf<Field>& record, TextBuffer& dst) {
    if (!IsSet(record.*Field)) return false;
    LookupIndexedName(dst, record.*Field, Names);
    return true;
}

}  // namespace qmx
