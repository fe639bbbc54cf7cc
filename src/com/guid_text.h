#pragma once
// GUIDs as texts.

#include <array>

#include "text/text_buffer.h"

namespace qmx {

// "{", 36 characters, "}" and a terminator.
using GuidText = std::array<wchar_t, 39>;

inline GuidText FormatGuid(const GUID& guid) {
    GuidText storage;
    TextBuffer text(storage);
    text.Append(L'{').AppendHex(guid.Data1, 8);
    text.Append(L'-').AppendHex(guid.Data2, 4);
    text.Append(L'-').AppendHex(guid.Data3, 4);
    for (std::size_t i = 0; i < std::size(guid.Data4); ++i) {
        if (i == 0 || i == 2) text.Append(L'-');
        text.AppendHex(guid.Data4[i], 2);
    }
    text.Append(L'}');
    return storage;
}

}  // namespace qmx
