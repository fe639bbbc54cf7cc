#include "walk.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "interrupt.h"
#include "paths.h"

namespace qmx {
namespace {

// Extensions of the formats the library reads; any other file is asked about by its content.
constexpr std::wstring_view kPhotoExtensions[] = {
    L".3fr",  L".arw", L".cr2", L".crw", L".dcr", L".dng", L".erf", L".fff", L".iiq",  L".jpe",
    L".jpeg", L".jpg", L".kdc", L".mef", L".mos", L".mrw", L".nef", L".nrw", L".orf",  L".pef",
    L".raf",  L".raw", L".rw2", L".rwl", L".sr2", L".srf", L".srw", L".tif", L".tiff", L".x3f",
};

struct FindCloser {
    using pointer = HANDLE;
    void operator()(HANDLE search) const { FindClose(search); }
};
using FindHandle = std::unique_ptr<void, FindCloser>;

struct Entry {
    std::wstring name;
    bool isFolder;
};

int CompareNames(const std::wstring& left, const std::wstring& right) {
    const int result = CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE);
    return result != CSTR_EQUAL ? result - CSTR_EQUAL : left.compare(right);
}

// Symbolic links and junctions.  Placeholders of cloud storage are real files and stay; a reparse
// point without a tag is a link on a file system foreign to Windows.
bool IsLink(const WIN32_FIND_DATAW& data) {
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
    return data.dwReserved0 == 0 || IsReparseTagNameSurrogate(data.dwReserved0);
}

// What the pattern matches, sorted.  Links are left out.  0 or the system's error code.
DWORD ListEntries(const std::wstring& pattern, std::vector<Entry>& entries) {
    WIN32_FIND_DATAW data;
    const HANDLE search =
        FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr,
                         FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) return GetLastError();
    const FindHandle closer(search);
    do {
        const std::wstring_view name = data.cFileName;
        if (name == L"." || name == L".." || IsLink(data)) continue;
        const bool isFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        entries.push_back({std::wstring(name), isFolder});
    } while (FindNextFileW(search, &data));
    const DWORD error = GetLastError();
    std::sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
        return CompareNames(left.name, right.name) < 0;
    });
    return error == ERROR_NO_MORE_FILES ? DWORD{ERROR_SUCCESS} : error;
}

class Walker {
public:
    Walker(const Library& lib, Progress& bar) : library(lib), progress(bar) {}

    void AddInput(const std::wstring& input) {
        if (FileName(input).find_first_of(L"*?") != std::wstring_view::npos) {
            AddMatches(input);
        } else if (IsFolder(input)) {
            AddFolder(input);
        } else {
            AddFile({input, std::wstring(FileName(input))});
        }
    }

    FoundFiles found;

private:
    void AddFile(FoundFile file) {
        found.files.push_back(std::move(file));
        progress.ShowSearch(found.files.size());
    }

    void AddMatches(const std::wstring& pattern) {
        std::vector<Entry> entries;
        const std::wstring folder(FolderOf(pattern));
        const DWORD error = ListEntries(
            JoinPath(LongPath(folder.empty() ? L"." : folder), FileName(pattern)), entries);
        std::size_t matches = 0;
        for (const Entry& entry : entries) {
            if (entry.isFolder) continue;
            AddFile({JoinPath(folder, entry.name), entry.name});
            ++matches;
        }
        if (matches != 0) return;
        const bool noMatch = error == ERROR_SUCCESS || error == ERROR_FILE_NOT_FOUND;
        found.failures.push_back({pattern, noMatch ? L"no file matches" : ErrorText(error)});
    }

    // Keeps the folders still to visit on a list of its own: paths may nest thousands deep.
    void AddFolder(const std::wstring& root) {
        found.hadFolder = true;
        std::vector<Entry> pending = {{L"", true}};
        while (!pending.empty() && !WasInterrupted()) {
            const Entry entry = std::move(pending.back());
            pending.pop_back();
            std::wstring path = entry.name.empty() ? root : JoinPath(root, entry.name);
            if (entry.isFolder) {
                PushContents(path, entry.name, pending);
            } else if (IsWanted(path)) {
                AddFile({std::move(path), entry.name});
            }
        }
    }

    void PushContents(const std::wstring& folder, const std::wstring& name,
                      std::vector<Entry>& pending) {
        std::vector<Entry> entries;
        const DWORD error = ListEntries(JoinPath(LongPath(folder), L"*"), entries);
        // The root of an empty drive has not even "." and "..".
        if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND) {
            found.failures.push_back({folder, ErrorText(error)});
        }
        for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
            pending.push_back({JoinPath(name, entry->name), entry->isFolder});
        }
    }

    bool IsWanted(const std::wstring& path) const {
        const std::wstring extension = LowerExtension(path);
        const auto end = std::end(kPhotoExtensions);
        return std::find(std::begin(kPhotoExtensions), end, extension) != end ||
               library.isExifFile(path.c_str()) != 0;
    }

    const Library& library;
    Progress& progress;
};

}  // namespace

FoundFiles FindFiles(const Library& library, const std::vector<std::wstring>& inputs,
                     Progress& progress) {
    Walker walker(library, progress);
    for (const std::wstring& input : inputs) walker.AddInput(input);
    return std::move(walker.found);
}

}  // namespace qmx
