// Paths of any length: parts, the \\?\ form, folders, and the system's words for errors.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace qmx {

std::wstring FullPath(const std::wstring& path);

// The full path in \\?\ form, which has no limit of 260 characters.
std::wstring LongPath(const std::wstring& path);

std::wstring JoinPath(std::wstring_view folder, std::wstring_view name);
std::wstring_view FileName(std::wstring_view path);
std::wstring_view FolderOf(std::wstring_view path);  // empty when the path is a bare name

// The extension with its dot, in lower case; empty when there is none.
std::wstring LowerExtension(std::wstring_view path);

std::wstring LowerCase(std::wstring_view text);
bool EndsWithSeparator(std::wstring_view path);
bool IsFolder(const std::wstring& path);
bool IsSameFile(const std::wstring& first, const std::wstring& second);

// Makes the folder and its parents; 0 or the system's error code.
DWORD CreateFolders(const std::wstring& folder);

// Writes the whole file, replacing an older one; 0 or the system's error code.
DWORD WriteWholeFile(const std::wstring& path, std::string_view bytes);

// The system's text for an error code, without its final full stop.
std::wstring ErrorText(DWORD code);

}  // namespace qmx
