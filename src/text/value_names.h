#pragma once
// Names of coded values.  Tables are searched in row order and the first match wins, so their order
// is behaviour: never sort them.  Lookups append to `dst`.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/text_buffer.h"

namespace qmx {

struct ValueName {
    std::int32_t key;
    const wchar_t* text;  // null: a known code without a name
};

// A key names every text that begins with it: longer keys stand before their own beginnings.
struct PrefixName {
    const char* key;  // null ends the table
    const wchar_t* text;
};

struct ValuePair {
    std::int32_t key;  // INT_UNSET ends the table
    std::int32_t value;
};

// Appends names[index] and returns true; else "name(7)" and false.  A null name is "不明".
bool LookupIndexedName(TextBuffer& dst, std::int32_t index, const wchar_t* const* names,
                       std::int32_t count, const wchar_t* name);

// Appends the value's name and returns true; else "prefix(7)" and false.  With a negative count
// the table ends at the key INT_UNSET.
bool LookupValueName(TextBuffer& dst, std::int32_t value, const ValueName* table,
                     std::int32_t count, const wchar_t* prefix);

// Appends the text's name and returns true; else "(text)" and false.
bool LookupPrefixName(TextBuffer& dst, std::string_view value, const PrefixName* table);

// Appends the names of bits 0 to 11 joined by "+", up to the first bit without a name.
TextBuffer& FormatFlagNames(TextBuffer& dst, std::uint32_t flags, const ValueName* table,
                            std::int32_t count);

// The value of the first row with that key, or INT_UNSET.
std::int32_t LookupPairValue(std::int32_t key, const ValuePair* table);

// Whole arrays, closed by their own length.
template <std::size_t Count>
bool LookupIndexedName(TextBuffer& dst, std::int32_t index, const wchar_t* const (&names)[Count],
                       const wchar_t* name = nullptr) {
    return LookupIndexedName(dst, index, names, static_cast<std::int32_t>(Count), name);
}

template <std::size_t Count>
bool LookupValueName(TextBuffer& dst, std::int32_t value, const ValueName (&table)[Count],
                     const wchar_t* prefix = nullptr) {
    return LookupValueName(dst, value, table, static_cast<std::int32_t>(Count), prefix);
}

template <std::size_t Count>
TextBuffer& FormatFlagNames(TextBuffer& dst, std::uint32_t flags, const ValueName (&table)[Count]) {
    return FormatFlagNames(dst, flags, table, static_cast<std::int32_t>(Count));
}

}  // namespace qmx
