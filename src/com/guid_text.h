#pragma once
// GUIDs as texts.

#include <array>

#include "parse/core/win32.h"

namespace qmx {

// "{", 36 characters, "}" and a terminator.
using GuidText = std::array<wchar_t, 39>;

inline GuidText FormatGuid(const GUID& guid) {
    GuidText text;
    const BYTE* d = guid.Data4;
    wsprintfW(text.data(), L"{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", guid.Data1,
              guid.Data2, guid.Data3, d[0], d[1], d[2], d[3], d[4], d[5], d[6], d[7]);
    return text;
}

}  // namespace qmx
