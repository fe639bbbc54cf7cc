// Folders and files: which of them are photos, and in which order they are shown.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace browser {

// Absolute; a name that cannot be resolved comes back as it is.
std::wstring FullPath(const std::wstring& path);

// The full path in the form that has no limit of 260 characters.
std::wstring LongPath(const std::wstring& path);

std::wstring JoinPath(std::wstring_view folder, std::wstring_view name);
std::wstring ParentOf(const std::wstring& path);  // empty for a root
std::wstring_view FileName(std::wstring_view path);
bool IsFolder(const std::wstring& path);

// A kind of file that Windows' own decoders show: worth a try when there is no preview.
bool IsPlainPicture(std::wstring_view path);

struct Listing {
    std::vector<std::wstring> names;
    DWORD error = ERROR_SUCCESS;
};

// The photos of a folder by their extensions, in the order in which Explorer shows names.
Listing ListPhotos(const std::wstring& folder);

// Its subfolders, without hidden ones.
Listing ListFolders(const std::wstring& folder);

}  // namespace browser
