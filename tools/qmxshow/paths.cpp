#include "paths.h"

#include "handle.h"
#include "utf8.h"
#include "writer.h"

namespace qmx {
namespace {

constexpr std::wstring_view kSeparators = L"\\/";

bool StartsWith(std::wstring_view text, std::wstring_view start) {
    return text.substr(0, start.size()) == start;
}

struct FileIdentity {
    DWORD volume, indexHigh, indexLow;
    bool operator==(const FileIdentity&) const = default;
};

bool ReadIdentity(const std::wstring& path, FileIdentity& identity) {
    const FileHandle file(CreateFileW(LongPath(path).c_str(), 0,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION facts;
    if (!IsOpen(file) || !GetFileInformationByHandle(file.get(), &facts)) return false;
    identity = {facts.dwVolumeSerialNumber, facts.nFileIndexHigh, facts.nFileIndexLow};
    return true;
}

}  // namespace

std::wstring FullPath(const std::wstring& path) {
    std::wstring full(path.size() + MAX_PATH, L'\0');
    DWORD length = 0;
    for (;;) {
        length =
            GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        if (length == 0) return path;
        if (length < full.size()) break;
        full.resize(length);
    }
    full.resize(length);
    return full;
}

std::wstring LongPath(const std::wstring& path) {
    if (StartsWith(path, L"\\\\?\\") || StartsWith(path, L"\\\\.\\")) return path;
    const std::wstring full = FullPath(path);
    if (StartsWith(full, L"\\\\.\\")) return full;  // a device such as NUL
    if (StartsWith(full, L"\\\\")) return L"\\\\?\\UNC\\" + full.substr(2);
    return L"\\\\?\\" + full;
}

std::wstring JoinPath(std::wstring_view folder, std::wstring_view name) {
    std::wstring path(folder);
    // "C:" alone means the drive's current folder and takes no separator.
    const bool bareDrive = path.size() == 2 && path[1] == L':';
    if (!path.empty() && !bareDrive && !EndsWithSeparator(path)) path += L'\\';
    return path.append(name);
}

std::wstring_view FileName(std::wstring_view path) {
    const std::size_t end = path.find_last_of(L"\\/:");
    return end == std::wstring_view::npos ? path : path.substr(end + 1);
}

std::wstring_view FolderOf(std::wstring_view path) {
    return path.substr(0, path.size() - FileName(path).size());
}

std::wstring LowerExtension(std::wstring_view path) {
    const std::wstring_view name = FileName(path);
    const std::size_t dot = name.rfind(L'.');
    return dot == std::wstring_view::npos ? std::wstring() : LowerCase(name.substr(dot));
}

std::wstring LowerCase(std::wstring_view text) {
    if (text.empty()) return {};
    std::wstring lower(text.size(), L'\0');
    const int length = static_cast<int>(text.size());
    if (LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_LOWERCASE, text.data(), length, lower.data(),
                      length, nullptr, nullptr, 0) == 0) {
        return std::wstring(text);
    }
    return lower;
}

bool EndsWithSeparator(std::wstring_view path) {
    return !path.empty() && kSeparators.find(path.back()) != std::wstring_view::npos;
}

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(LongPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsSameFile(const std::wstring& first, const std::wstring& second) {
    FileIdentity one, two;
    return ReadIdentity(first, one) && ReadIdentity(second, two) && one == two;
}

DWORD CreateFolders(const std::wstring& folder) {
    const std::wstring path = LongPath(folder);
    if (IsFolder(path)) return ERROR_SUCCESS;
    // From the drive downwards; what exists already, or is a drive, fails harmlessly.
    for (std::size_t end = path.find(L'\\', 4); end != std::wstring::npos;
         end = path.find(L'\\', end + 1)) {
        CreateDirectoryW(path.substr(0, end).c_str(), nullptr);
    }
    if (CreateDirectoryW(path.c_str(), nullptr) || IsFolder(path)) return ERROR_SUCCESS;
    return GetLastError() ? GetLastError() : DWORD{ERROR_PATH_NOT_FOUND};
}

DWORD WriteWholeFile(const std::wstring& path, std::string_view bytes) {
    const std::wstring longPath = LongPath(path);
    FileHandle file(CreateFileW(longPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!IsOpen(file)) return GetLastError();
    Writer writer(file.get());
    writer.Put(bytes).Flush();
    if (!writer.HasFailed()) return ERROR_SUCCESS;
    file.reset();
    DeleteFileW(longPath.c_str());
    return writer.LastError();
}

std::wstring ErrorText(DWORD code) {
    wchar_t text[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, code, 0, text, ARRAYSIZE(text), nullptr);
    std::wstring_view words = Trim({text, length});
    if (!words.empty() && (words.back() == L'.' || words.back() == L'。')) words.remove_suffix(1);
    return words.empty() ? L"error " + std::to_wstring(code) : std::wstring(words);
}

}  // namespace qmx
