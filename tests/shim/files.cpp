// Files, mappings and views.  One cycle of open, map, unmap, close makes the system calls open,
// fstat, mmap, munmap and close and no others: this build is measured against them.

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <unordered_map>

#include "shim.h"
#include "utf.h"

namespace {

thread_local DWORD lastError = 0;

template <class Result>
Result Fail(DWORD error, Result result) {
    lastError = error;
    return result;
}

struct MemoryBytes {
    const void* bytes;
    std::size_t size;
};

struct MemoryRegistry {
    std::mutex mutex;
    std::unordered_map<std::uint32_t, MemoryBytes> files;
    std::uint32_t lastId = 0;
};

MemoryRegistry& Registry() {
    static MemoryRegistry registry;
    return registry;
}

// What a handle points to: a file or, held once more, its mapping.
struct File {
    int descriptor;     // -1: a buffer in memory
    const void* bytes;  // the buffer
    std::size_t size;
    std::atomic<int> handles;
};

File* FromHandle(HANDLE handle) {
    return handle == nullptr || handle == INVALID_HANDLE_VALUE ? nullptr
                                                               : static_cast<File*>(handle);
}

DWORD ErrorOf(int systemError) {
    switch (systemError) {
        case ENOENT: return ERROR_FILE_NOT_FOUND;
        case ENOTDIR: return ERROR_PATH_NOT_FOUND;
        case ENAMETOOLONG: return ERROR_FILENAME_EXCED_RANGE;
        default: return ERROR_ACCESS_DENIED;
    }
}

bool StartsWith(const wchar_t* text, const wchar_t* prefix) {
    while (*prefix != 0 && *text == *prefix) ++text, ++prefix;
    return *prefix == 0;
}

HANDLE OpenMemory(const wchar_t* digits) {
    std::uint32_t id = 0;
    for (; *digits >= L'0' && *digits <= L'9'; ++digits)
        id = id * 10 + static_cast<std::uint32_t>(*digits - L'0');
    MemoryRegistry& registry = Registry();
    const std::lock_guard lock(registry.mutex);
    const auto found = registry.files.find(id);
    if (found == registry.files.end()) return Fail(ERROR_FILE_NOT_FOUND, INVALID_HANDLE_VALUE);
    return new File{-1, found->second.bytes, found->second.size, 1};
}

#ifdef QMX_SHIM_HEAP_VIEW

// A copy of exactly the file's size, so that the address sanitizer sees one byte past the end.
void* MakeView(const File& file) {
    auto* view = static_cast<char*>(std::malloc(file.size));
    if (view == nullptr) return nullptr;
    if (file.descriptor < 0) return std::memcpy(view, file.bytes, file.size);
    for (std::size_t done = 0; done < file.size;) {
        const ssize_t count =
            pread(file.descriptor, view + done, file.size - done, static_cast<off_t>(done));
        if (count <= 0) {
            std::free(view);
            return nullptr;
        }
        done += static_cast<std::size_t>(count);
    }
    return view;
}

bool ReleaseView(const void* view) {
    std::free(const_cast<void*>(view));
    return true;
}

#else

// Sizes of the views that exist, found by their address.  Several threads may view one buffer, so
// that a slot belongs to whoever has set its address to `kTaken`.
struct View {
    std::atomic<const void*> base;
    std::size_t size;  // 0: a buffer in memory, not mapped
};

constexpr std::size_t kViewCount = 1024;
View views[kViewCount];
const void* const kTaken = &views;

std::size_t FirstSlot(const void* base) {
    return (reinterpret_cast<std::uintptr_t>(base) >> 12) % kViewCount;
}

bool RememberView(const void* base, std::size_t size) {
    for (std::size_t i = 0; i < kViewCount; ++i) {
        View& view = views[(FirstSlot(base) + i) % kViewCount];
        const void* none = nullptr;
        if (!view.base.compare_exchange_strong(none, kTaken, std::memory_order_acquire)) continue;
        view.size = size;
        view.base.store(base, std::memory_order_release);
        return true;
    }
    return false;
}

void* MakeView(const File& file) {
    if (file.descriptor < 0) {
        void* bytes = const_cast<void*>(file.bytes);
        return RememberView(bytes, 0) ? bytes : nullptr;
    }
    void* base = mmap(nullptr, file.size, PROT_READ, MAP_SHARED, file.descriptor, 0);
    if (base == MAP_FAILED) return nullptr;
    if (RememberView(base, file.size)) return base;
    munmap(base, file.size);
    return nullptr;
}

bool ReleaseView(const void* base) {
    for (std::size_t i = 0; i < kViewCount; ++i) {
        View& view = views[(FirstSlot(base) + i) % kViewCount];
        const void* found = base;
        if (!view.base.compare_exchange_strong(found, kTaken, std::memory_order_acquire)) continue;
        const std::size_t size = view.size;
        view.base.store(nullptr, std::memory_order_release);  // the address may be used again
        return size == 0 || munmap(const_cast<void*>(base), size) == 0;
    }
    return false;
}

#endif

}  // namespace

DWORD GetLastError() { return lastError; }
void SetLastError(DWORD error) { lastError = error; }

HANDLE CreateFileW(LPCWSTR path, DWORD, DWORD, void*, DWORD disposition, DWORD, HANDLE) {
    if (path == nullptr || disposition != OPEN_EXISTING)
        return Fail(ERROR_INVALID_PARAMETER, INVALID_HANDLE_VALUE);
    if (StartsWith(path, L"mem:")) return OpenMemory(path + 4);
    if (StartsWith(path, L"\\\\?\\"))
        path += 4;
    else if (lstrlenW(path) >= MAX_PATH)
        return Fail(ERROR_PATH_NOT_FOUND, INVALID_HANDLE_VALUE);

    char name[PATH_MAX];
    if (!qmxshim::PathToUtf8(path, name, sizeof name))
        return Fail(ERROR_FILENAME_EXCED_RANGE, INVALID_HANDLE_VALUE);
    const int descriptor = open(name, O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (descriptor < 0) return Fail(ErrorOf(errno), INVALID_HANDLE_VALUE);
    struct stat state;
    if (fstat(descriptor, &state) == 0 && !S_ISDIR(state.st_mode))
        return new File{descriptor, nullptr, static_cast<std::size_t>(state.st_size), 1};
    close(descriptor);
    return Fail(ERROR_ACCESS_DENIED, INVALID_HANDLE_VALUE);
}

BOOL GetFileSizeEx(HANDLE handle, LARGE_INTEGER* size) {
    const File* file = FromHandle(handle);
    if (file == nullptr) return Fail(ERROR_INVALID_HANDLE, FALSE);
    size->QuadPart = static_cast<LONGLONG>(file->size);
    return TRUE;
}

HANDLE CreateFileMappingW(HANDLE handle, void*, DWORD protection, DWORD, DWORD, LPCWSTR) {
    File* file = FromHandle(handle);
    if (file == nullptr) return Fail<HANDLE>(ERROR_INVALID_HANDLE, nullptr);
    if (file->size == 0) return Fail<HANDLE>(ERROR_FILE_INVALID, nullptr);
    if (protection != PAGE_READONLY) return Fail<HANDLE>(ERROR_INVALID_PARAMETER, nullptr);
    file->handles.fetch_add(1, std::memory_order_relaxed);
    return file;
}

LPVOID MapViewOfFile(HANDLE handle, DWORD, DWORD offsetHigh, DWORD offsetLow, SIZE_T length) {
    const File* file = FromHandle(handle);
    if (file == nullptr) return Fail<LPVOID>(ERROR_INVALID_HANDLE, nullptr);
    const bool whole = offsetHigh == 0 && offsetLow == 0 && (length == 0 || length == file->size);
    if (!whole) return Fail<LPVOID>(ERROR_INVALID_PARAMETER, nullptr);
    void* view = MakeView(*file);
    return view != nullptr ? view : Fail<LPVOID>(ERROR_NOT_ENOUGH_MEMORY, nullptr);
}

BOOL UnmapViewOfFile(LPCVOID view) {
    return view != nullptr && ReleaseView(view) ? TRUE : Fail(ERROR_INVALID_PARAMETER, FALSE);
}

BOOL CloseHandle(HANDLE handle) {
    File* file = FromHandle(handle);
    if (file == nullptr) return Fail(ERROR_INVALID_HANDLE, FALSE);
    if (file->handles.fetch_sub(1, std::memory_order_acq_rel) > 1) return TRUE;
    if (file->descriptor >= 0) close(file->descriptor);
    delete file;
    return TRUE;
}

DWORD GetFullPathNameW(LPCWSTR path, DWORD capacity, LPWSTR full, LPWSTR*) {
    std::u16string directory;
    if (path[0] != L'/' && !StartsWith(path, L"\\\\"))
        directory = std::filesystem::current_path().u16string() + u'/';
    const int pathLength = lstrlenW(path);
    const auto length = static_cast<DWORD>(directory.size()) + static_cast<DWORD>(pathLength);
    if (length >= capacity) return length + 1;
    std::copy_n(path, pathLength + 1, std::copy(directory.begin(), directory.end(), full));
    return length;
}

namespace qmxshim {

std::uint32_t RegisterMemoryFile(const void* bytes, std::size_t size) {
    MemoryRegistry& registry = Registry();
    const std::lock_guard lock(registry.mutex);
    registry.files[++registry.lastId] = {bytes, size};
    return registry.lastId;
}

void UnregisterMemoryFile(std::uint32_t id) {
    MemoryRegistry& registry = Registry();
    const std::lock_guard lock(registry.mutex);
    registry.files.erase(id);
}

MemoryFile::MemoryFile(const void* bytes, std::size_t size, const wchar_t* suffix)
    : id_(RegisterMemoryFile(bytes, size)) {
    constexpr int kDigits = 10;
    lstrcpynW(path_, L"mem:", 5);
    wchar_t* digit = path_ + 4 + kDigits;
    *digit = 0;
    for (std::uint32_t rest = id_; digit != path_ + 4; rest /= 10)
        *--digit = static_cast<wchar_t>(L'0' + rest % 10);
    lstrcpynW(path_ + 4 + kDigits, suffix, static_cast<int>(std::size(path_)) - 4 - kDigits);
}

}  // namespace qmxshim
