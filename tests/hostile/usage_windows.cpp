#ifdef _WIN32

#include <qmxexif.h>

#include <malloc.h>
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "hostile/usage.h"
#include "support/api.h"
#include "support/handle_count.h"
#include "support/imports.h"

namespace qmx::hostile {
namespace {

thread_local std::int64_t live = 0;
thread_local std::int64_t peak = 0;

void* CountAllocated(void* block) {
    if (block != nullptr) live += static_cast<std::int64_t>(_msize(block));
    peak = std::max(peak, live);
    return block;
}
void CountFreed(void* block) {
    if (block != nullptr) live -= static_cast<std::int64_t>(_msize(block));
}

void* Allocate(std::size_t size) { return CountAllocated(std::malloc(size)); }
void* AllocateZeroed(std::size_t count, std::size_t size) {
    return CountAllocated(std::calloc(count, size));
}
void* Resize(void* block, std::size_t size) {
    CountFreed(block);
    void* moved = std::realloc(block, size);
    CountAllocated(moved == nullptr && size != 0 ? block : moved);
    return moved;
}
void Free(void* block) {
    CountFreed(block);
    std::free(block);
}

// What an import of this name is to call instead; null for all others.
void* CounterOf(std::string_view name) {
    if (name == "malloc") return reinterpret_cast<void*>(Allocate);
    if (name == "calloc") return reinterpret_cast<void*>(AllocateZeroed);
    if (name == "realloc") return reinterpret_cast<void*>(Resize);
    if (name == "free") return reinterpret_cast<void*>(Free);
    return nullptr;
}

// Puts the counters into the import table of a module, whose C library is the one of this program.
void CountImports(HMODULE module) {
    test::ForEachImport(module, [](std::string_view name, ULONG_PTR& target) {
        if (void* counter = CounterOf(name)) target = reinterpret_cast<ULONG_PTR>(counter);
    });
}

// An entry of the table of GDI handles that every process sees.
struct GdiEntry {
    std::uint64_t object;
    std::uint16_t owner;  // the process
    std::uint16_t unused;
    std::uint16_t unique;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t user;
};
constexpr std::size_t kGdiEntries = 65536;

const GdiEntry* GdiTable() {
    constexpr std::size_t kTableInPeb = 0xF8;
    const auto* peb = reinterpret_cast<const std::uint8_t*>(__readgsqword(0x60));
    const GdiEntry* table = nullptr;
    std::memcpy(&table, peb + kTableInPeb, sizeof table);
    return table;
}

}  // namespace

std::int64_t CountHandles() { return test::CountHandles(); }

// Wine answers GetGuiResources with 0.
std::int64_t CountGdiObjects() {
    const GdiEntry* table = GdiTable();
    if (table == nullptr) return GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    return std::count_if(table, table + kGdiEntries,
                         [](const GdiEntry& entry) { return entry.type != 0; });
}

std::int64_t CountHeapBytes() {
    HANDLE heaps[64];
    const DWORD count = std::min<DWORD>(GetProcessHeaps(64, heaps), 64);
    std::int64_t bytes = 0;
    for (DWORD i = 0; i < count; ++i) {
        PROCESS_HEAP_ENTRY entry = {};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry))
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
                bytes += static_cast<std::int64_t>(entry.cbData);
        HeapUnlock(heaps[i]);
    }
    return bytes;
}

void StartCountingAllocations() {
    HMODULE module = nullptr;
    const auto* inside = reinterpret_cast<const wchar_t*>(test::Library().isExifFile);
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        inside, &module);
    if (module != nullptr) CountImports(module);
}

void ResetAllocations() {
    live = 0;
    peak = 0;
}

Allocations CurrentAllocations() { return {live, peak}; }

}  // namespace qmx::hostile

#endif
