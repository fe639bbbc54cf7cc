#include "folder.h"

#include <shlwapi.h>

#include <algorithm>
#include <memory>

namespace browser {
namespace {

constexpr const wchar_t* kPlainExtensions[] = {L".jpg", L".jpeg", L".jpe", L".tif", L".tiff"};

constexpr const wchar_t* kRawExtensions[] = {
    L".3fr", L".arw", L".cr2", L".crw", L".dcr", L".dng", L".erf", L".fff", L".iiq",
    L".kdc", L".mef", L".mos", L".mrw", L".nef", L".nrw", L".orf", L".pef", L".raf",
    L".raw", L".rw2", L".rwl", L".sr2", L".srf", L".srw", L".x3f",
};

template <std::size_t N>
bool HasExtension(std::wstring_view path, const wchar_t* const (&extensions)[N]) {
    const std::size_t dot = path.rfind(L'.');
    if (dot == std::wstring_view::npos) return false;
    const std::wstring extension(path.substr(dot));
    return std::any_of(std::begin(extensions), std::end(extensions), [&](const wchar_t* known) {
        return CompareStringOrdinal(extension.c_str(), -1, known, -1, TRUE) == CSTR_EQUAL;
    });
}

struct FindCloser {
    void operator()(void* search) const { FindClose(search); }
};

// Names of what `isWanted` lets pass.
template <class Filter>
Listing List(const std::wstring& folder, FINDEX_SEARCH_OPS kind, Filter isWanted) {
    Listing listing;
    WIN32_FIND_DATAW data;
    const HANDLE search =
        FindFirstFileExW(LongPath(JoinPath(folder, L"*")).c_str(), FindExInfoBasic, &data, kind,
                         nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) {
        // The root of an empty drive has not even "." and "..".
        if (GetLastError() != ERROR_FILE_NOT_FOUND) listing.error = GetLastError();
        return listing;
    }
    const std::unique_ptr<void, FindCloser> closer(search);
    do {
        if (isWanted(data)) listing.names.emplace_back(data.cFileName);
    } while (FindNextFileW(search, &data));
    std::sort(listing.names.begin(), listing.names.end(),
              [](const std::wstring& left, const std::wstring& right) {
                  const int order = StrCmpLogicalW(left.c_str(), right.c_str());
                  return order != 0 ? order < 0 : left < right;
              });
    return listing;
}

bool StartsWith(const std::wstring& text, std::wstring_view start) {
    return text.compare(0, start.size(), start) == 0;
}

}  // namespace

std::wstring FullPath(const std::wstring& path) {
    const DWORD capacity = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(capacity, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), capacity, full.data(), nullptr);
    if (length == 0 || length >= capacity) return path;
    full.resize(length);
    // "C:\photos\" and "C:\photos" are one folder; "C:\" stays.
    if (length > 3 && full.back() == L'\\') full.pop_back();
    return full;
}

std::wstring LongPath(const std::wstring& path) {
    if (StartsWith(path, L"\\\\?\\") || StartsWith(path, L"\\\\.\\")) return path;
    const std::wstring full = FullPath(path);
    if (StartsWith(full, L"\\\\")) return L"\\\\?\\UNC\\" + full.substr(2);
    return L"\\\\?\\" + full;
}

std::wstring JoinPath(std::wstring_view folder, std::wstring_view name) {
    std::wstring path(folder);
    if (!path.empty() && path.back() != L'\\') path += L'\\';
    return path.append(name);
}

std::wstring ParentOf(const std::wstring& path) {
    const std::size_t end = path.rfind(L'\\');
    if (end == std::wstring::npos || end + 1 == path.size() || end < 2) return {};
    // Of a drive the backslash belongs to the root; of a share the root is \\server\share.
    if (end == 2 && path[1] == L':') return path.substr(0, 3);
    if (StartsWith(path, L"\\\\") && path.find(L'\\', 2) == end) return {};
    return path.substr(0, end);
}

std::wstring_view FileName(std::wstring_view path) {
    return path.substr(path.rfind(L'\\') + 1);  // npos + 1 = 0
}

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(LongPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsPlainPicture(std::wstring_view path) { return HasExtension(path, kPlainExtensions); }

Listing ListPhotos(const std::wstring& folder) {
    return List(folder, FindExSearchNameMatch, [](const WIN32_FIND_DATAW& data) {
        return (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 &&
               (HasExtension(data.cFileName, kPlainExtensions) ||
                HasExtension(data.cFileName, kRawExtensions));
    });
}

Listing ListFolders(const std::wstring& folder) {
    return List(folder, FindExSearchLimitToDirectories, [](const WIN32_FIND_DATAW& data) {
        const std::wstring_view name = data.cFileName;
        return (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
               (data.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) == 0 && name != L"." &&
               name != L"..";
    });
}

}  // namespace browser
