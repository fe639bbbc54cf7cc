// The platform's own calls that the benchmark needs, without anything of the library in between:
// the floor that requests are compared with, loading a library, and paths as text.
#pragma once

#include <qmxexif.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#ifdef _WIN32
#include <shellapi.h>
#else
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace qmx::bench {

constexpr std::size_t kTouchedBytes = 64 * 1024;
constexpr std::size_t kPageBytes = 4096;

// NUL-terminated UTF-16.  A vector, because the C library behind std::wstring takes 4-byte
// characters where wchar_t is made short.
using WideText = std::vector<wchar_t>;

// Reads one byte of each of the first pages; the volatile access cannot be optimised away.
inline void TouchPages(const void* view, std::uint64_t size) {
    const auto* bytes = static_cast<const volatile std::uint8_t*>(view);
    const std::size_t end = size < kTouchedBytes ? static_cast<std::size_t>(size) : kTouchedBytes;
    for (std::size_t at = 0; at < end; at += kPageBytes) static_cast<void>(bytes[at]);
}

#ifdef _WIN32

constexpr const char* kLibraryName = "qmxexif.dll";

// The floor: open, get the size, map, touch the first 64 KiB, unmap, close.
inline bool RunFloor(const std::filesystem::path& file) {
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return false;
    LARGE_INTEGER size = {};
    GetFileSizeEx(handle, &size);
    const HANDLE mapping = CreateFileMappingW(handle, nullptr, PAGE_READONLY, 0, 0, nullptr);
    const void* view =
        mapping != nullptr ? MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0) : nullptr;
    if (view != nullptr) {
        TouchPages(view, static_cast<std::uint64_t>(size.QuadPart));
        UnmapViewOfFile(view);
    }
    if (mapping != nullptr) CloseHandle(mapping);
    CloseHandle(handle);
    return view != nullptr;
}

// The form of an absolute path that the system opens whatever its length.
inline std::filesystem::path ToOpenablePath(const std::filesystem::path& absolute) {
    if (absolute.native().size() < MAX_PATH) return absolute;
    const std::wstring& text = absolute.native();
    const bool network = text.compare(0, 2, L"\\\\") == 0;
    return network ? L"\\\\?\\UNC\\" + text.substr(2) : L"\\\\?\\" + text;
}

inline WideText ToWide(const std::filesystem::path& path) {
    return WideText(path.c_str(), path.c_str() + path.native().size() + 1);
}

inline std::string ToUtf8(const std::filesystem::path& path) {
    const std::wstring& wide = path.native();
    const int units = static_cast<int>(wide.size());
    const int room =
        WideCharToMultiByte(CP_UTF8, 0, wide.c_str(), units, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(room), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.c_str(), units, text.data(), room, nullptr, nullptr);
    return text;
}

// The arguments without the program's name.  Those of main have lost what the code page lacks.
inline std::vector<std::filesystem::path> ReadArguments(int, char**) {
    int count = 0;
    wchar_t** texts = CommandLineToArgvW(GetCommandLineW(), &count);
    if (texts == nullptr) return {};
    std::vector<std::filesystem::path> arguments(texts + 1, texts + count);
    LocalFree(texts);
    return arguments;
}

inline std::filesystem::path FindProgramFolder() {
    std::vector<wchar_t> name(32768);
    GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    return std::filesystem::path(name.data()).parent_path();
}

inline void* LoadModule(const std::filesystem::path& file) {
    return static_cast<void*>(LoadLibraryW(file.c_str()));
}

template <class Function>
bool FindFunction(void* module, const char* name, Function& function) {
    const FARPROC found = GetProcAddress(static_cast<HMODULE>(module), name);
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(found));
    return function != nullptr;
}

#else

constexpr const char* kLibraryName = "libqmxexif.so";

// The floor: open, get the size, map, touch the first 64 KiB, unmap, close.
inline bool RunFloor(const std::filesystem::path& file) {
    const int handle = open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (handle < 0) return false;
    struct stat status = {};
    const bool sized = fstat(handle, &status) == 0 && status.st_size > 0;
    const auto size = static_cast<std::size_t>(status.st_size);
    void* view = sized ? mmap(nullptr, size, PROT_READ, MAP_PRIVATE, handle, 0) : MAP_FAILED;
    if (view != MAP_FAILED) {
        TouchPages(view, size);
        munmap(view, size);
    }
    close(handle);
    return view != MAP_FAILED;
}

inline std::filesystem::path ToOpenablePath(const std::filesystem::path& absolute) {
    return absolute;
}

// Takes the code point at `at` from UTF-8; a byte that starts no whole sequence gives U+FFFD.
inline std::uint32_t TakeCodePoint(const std::string& text, std::size_t& at) {
    const auto lead = static_cast<std::uint8_t>(text[at++]);
    if (lead < 0x80) return lead;
    const std::size_t following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - at < following) return 0xFFFD;
    std::uint32_t code = lead & (0x3Fu >> following);
    for (std::size_t i = 0; i < following; ++i) {
        const auto next = static_cast<std::uint8_t>(text[at]);
        if ((next & 0xC0) != 0x80) return 0xFFFD;
        code = code << 6 | (next & 0x3Fu);
        ++at;
    }
    return code;
}

inline WideText ToWide(const std::filesystem::path& path) {
    const std::string& text = path.native();
    WideText wide;
    for (std::size_t at = 0; at < text.size();) {
        std::uint32_t code = TakeCodePoint(text, at);
        if (code >= 0x10000) {
            wide.push_back(static_cast<wchar_t>(0xD7C0 + (code >> 10)));
            code = 0xDC00 | (code & 0x3FF);
        }
        wide.push_back(static_cast<wchar_t>(code));
    }
    wide.push_back(0);
    return wide;
}

inline std::string ToUtf8(const std::filesystem::path& path) { return path.native(); }

// The arguments without the program's name.
inline std::vector<std::filesystem::path> ReadArguments(int argc, char** argv) {
    return std::vector<std::filesystem::path>(argv + 1, argv + argc);
}

inline std::filesystem::path FindProgramFolder() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

inline void* LoadModule(const std::filesystem::path& file) {
    return dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
}

template <class Function>
bool FindFunction(void* module, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(module, name));
    return function != nullptr;
}

#endif

}  // namespace qmx::bench
