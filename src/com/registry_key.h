#pragma once
// Owns an open registry key.

#include <memory>
#include <string>
#include <type_traits>

#include "parse/core/win32.h"

namespace qmx {

struct RegistryKeyCloser {
    void operator()(HKEY key) const;
};
using RegistryKey = std::unique_ptr<std::remove_pointer_t<HKEY>, RegistryKeyCloser>;

// Opens a key below `parent`, or makes it.  The functions return codes of Windows.
LSTATUS CreateKey(HKEY parent, const wchar_t* path, REGSAM access, RegistryKey& key);
LSTATUS OpenKey(HKEY parent, const wchar_t* path, REGSAM access, RegistryKey& key);

// Stores a value; a null name stands for the key's default value.
LSTATUS SetText(HKEY key, const wchar_t* name, const std::wstring& text);
LSTATUS SetNumber(HKEY key, const wchar_t* name, DWORD number);

// Deletes a key with all below it; it may be missing.
LSTATUS DeleteKeyTree(HKEY parent, const wchar_t* path);
// Deletes a value of a key below `parent`, or of `parent` when the path is null; both may be
// missing.
LSTATUS DeleteKeyValue(HKEY parent, const wchar_t* path, const wchar_t* name);

}  // namespace qmx
