#include "com/page_faults.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "support/imports.h"

namespace qmx::test {
namespace {

constexpr std::size_t kPage = 4096;

thread_local std::size_t readable = kWhole;
thread_local Fault faultKind = Fault::kInPage;
thread_local Traffic traffic = {};
thread_local bool readsBrokenPage = false;
std::atomic<int> mendedPages = 0;

std::size_t WholePages(std::size_t bytes) { return (bytes + kPage - 1) / kPage * kPage; }

// A copy of a view whose bytes from `readable` on lie in pages without access.
void* CopyView(void* view) {
    MEMORY_BASIC_INFORMATION region = {};
    VirtualQuery(view, &region, sizeof region);
    const std::size_t sound = std::min(readable, region.RegionSize);
    const std::size_t before = WholePages(sound);
    const std::size_t all = before + WholePages(region.RegionSize - sound) + kPage;
    auto* copy =
        static_cast<char*>(VirtualAlloc(nullptr, all, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    std::memcpy(copy + before - sound, view, region.RegionSize);
    DWORD protection = 0;
    VirtualProtect(copy + before, all - before, PAGE_NOACCESS, &protection);
    UnmapViewOfFile(view);
    return copy + before - sound;
}

void* WINAPI PatchedMapView(HANDLE mapping, DWORD access, DWORD high, DWORD low, SIZE_T bytes) {
    void* const view = MapViewOfFile(mapping, access, high, low, bytes);
    if (view == nullptr) return nullptr;
    ++traffic.views;
    return readable == kWhole ? view : CopyView(view);
}

BOOL WINAPI PatchedUnmapView(const void* view) {
    --traffic.views;
    MEMORY_BASIC_INFORMATION region = {};
    VirtualQuery(view, &region, sizeof region);
    if (region.Type == MEM_MAPPED) return UnmapViewOfFile(view);
    return VirtualFree(region.AllocationBase, 0, MEM_RELEASE);
}

HANDLE WINAPI PatchedCreateFile(const wchar_t* path, DWORD access, DWORD share,
                                SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD flags,
                                HANDLE like) {
    const HANDLE file = CreateFileW(path, access, share, security, disposition, flags, like);
    traffic.handles += file != INVALID_HANDLE_VALUE;
    return file;
}

HANDLE WINAPI PatchedCreateMapping(HANDLE file, SECURITY_ATTRIBUTES* security, DWORD protection,
                                   DWORD high, DWORD low, const wchar_t* name) {
    const HANDLE mapping = CreateFileMappingW(file, security, protection, high, low, name);
    traffic.handles += mapping != nullptr;
    return mapping;
}

BOOL WINAPI PatchedCloseHandle(HANDLE handle) {
    --traffic.handles;
    return CloseHandle(handle);
}

void* PatchedMalloc(std::size_t bytes) {
    ++traffic.blocks;
    if (readsBrokenPage) static_cast<void>(*BrokenPage());
    return std::malloc(bytes);
}

void* PatchedCalloc(std::size_t count, std::size_t bytes) {
    ++traffic.blocks;
    return std::calloc(count, bytes);
}

void PatchedFree(void* block) {
    traffic.blocks -= block != nullptr;
    std::free(block);
}

struct Patch {
    const char* name;
    ULONG_PTR other;  // what the import becomes: ours, and what it was after that
};

template <class Function>
Patch To(const char* name, Function* function) {
    return {name, reinterpret_cast<ULONG_PTR>(function)};
}

Patch patches[] = {
    To("MapViewOfFile", PatchedMapView),   To("UnmapViewOfFile", PatchedUnmapView),
    To("CreateFileW", PatchedCreateFile),  To("CreateFileMappingW", PatchedCreateMapping),
    To("CloseHandle", PatchedCloseHandle), To("malloc", PatchedMalloc),
    To("calloc", PatchedCalloc),           To("free", PatchedFree),
};

// First in line, as a debugger is: gives the exception the code that it would have.
LONG CALLBACK NameFault(EXCEPTION_POINTERS* exception) {
    EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    if (record.ExceptionCode != EXCEPTION_ACCESS_VIOLATION) return EXCEPTION_CONTINUE_SEARCH;
    MEMORY_BASIC_INFORMATION region = {};
    VirtualQuery(reinterpret_cast<void*>(record.ExceptionInformation[1]), &region, sizeof region);
    if (region.Protect != PAGE_NOACCESS) return EXCEPTION_CONTINUE_SEARCH;
    ++traffic.faults;
    if (faultKind == Fault::kInPage) record.ExceptionCode = EXCEPTION_IN_PAGE_ERROR;
    return EXCEPTION_CONTINUE_SEARCH;
}

LONG WINAPI Mend(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    if (record.ExceptionCode != EXCEPTION_ACCESS_VIOLATION &&
        record.ExceptionCode != EXCEPTION_IN_PAGE_ERROR)
        return EXCEPTION_CONTINUE_SEARCH;
    DWORD protection = 0;
    void* const address = reinterpret_cast<void*>(record.ExceptionInformation[1]);
    if (!VirtualProtect(address, 1, PAGE_READONLY, &protection)) return EXCEPTION_CONTINUE_SEARCH;
    ++mendedPages;
    return EXCEPTION_CONTINUE_EXECUTION;
}

}  // namespace

void ReadableUpTo(std::size_t bytes, Fault fault) {
    readable = bytes;
    faultKind = fault;
}

Traffic& ThreadTraffic() { return traffic; }

const volatile char* BrokenPage() {
    static void* const page = VirtualAlloc(nullptr, kPage, MEM_RESERVE | MEM_COMMIT, PAGE_NOACCESS);
    DWORD protection = 0;
    VirtualProtect(page, kPage, PAGE_NOACCESS, &protection);
    return static_cast<const volatile char*>(page);
}

void ReadBrokenPageInAllocations(bool read) { readsBrokenPage = read; }

MendingFilter::MendingFilter() : before_(SetUnhandledExceptionFilter(Mend)) { mendedPages = 0; }

MendingFilter::~MendingFilter() { SetUnhandledExceptionFilter(before_); }

int MendingFilter::mended() const { return mendedPages; }

PatchedModule::PatchedModule(HMODULE module)
    : module_(module), handler_(AddVectoredExceptionHandler(1, NameFault)) {
    Swap();
}

PatchedModule::~PatchedModule() {
    Swap();
    RemoveVectoredExceptionHandler(handler_);
}

void PatchedModule::Swap() {
    std::size_t found = 0;
    ForEachImport(module_, [&](std::string_view name, ULONG_PTR& target) {
        for (Patch& patch : patches) {
            if (name != patch.name) continue;
            std::swap(target, patch.other);
            ++found;
        }
    });
    EXPECT_EQ(found, std::size(patches));
}

}  // namespace qmx::test
