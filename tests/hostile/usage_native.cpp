#ifndef _WIN32

#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "hostile/usage.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define QMX_SANITIZED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define QMX_SANITIZED
#endif
#endif
#ifdef QMX_SANITIZED
#include <sanitizer/allocator_interface.h>
#endif

namespace {

// Plain data: these run before anything else in the process does.
thread_local std::int64_t live = 0;
thread_local std::int64_t peak = 0;

void CountAllocated(std::size_t size) {
    live += static_cast<std::int64_t>(size);
    peak = std::max(peak, live);
}

}  // namespace

#ifdef QMX_SANITIZED

namespace qmx::hostile {

void StartCountingAllocations() {
    __sanitizer_install_malloc_and_free_hooks(
        [](const volatile void*, std::size_t size) { CountAllocated(size); },
        [](const volatile void* block) {
            if (block != nullptr)
                live -= static_cast<std::int64_t>(
                    __sanitizer_get_allocated_size(const_cast<const void*>(block)));
        });
}

std::int64_t CountHeapBytes() {
    return static_cast<std::int64_t>(__sanitizer_get_current_allocated_bytes());
}

}  // namespace qmx::hostile

#else

// The C library's own functions stay reachable by these names for a program that replaces them.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);

__attribute__((visibility("default"))) void* malloc(std::size_t size) {
    void* block = __libc_malloc(size);
    CountAllocated(malloc_usable_size(block));
    return block;
}
__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size) {
    void* block = __libc_calloc(count, size);
    CountAllocated(malloc_usable_size(block));
    return block;
}
__attribute__((visibility("default"))) void* realloc(void* block, std::size_t size) {
    live -= static_cast<std::int64_t>(malloc_usable_size(block));
    void* moved = __libc_realloc(block, size);
    CountAllocated(malloc_usable_size(moved != nullptr || size == 0 ? moved : block));
    return moved;
}
__attribute__((visibility("default"))) void free(void* block) {
    live -= static_cast<std::int64_t>(malloc_usable_size(block));
    __libc_free(block);
}
}

namespace qmx::hostile {

void StartCountingAllocations() {}

std::int64_t CountHeapBytes() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<std::int64_t>(heap.uordblks + heap.hblkhd);
}

}  // namespace qmx::hostile

#endif

namespace qmx::hostile {

// A new descriptor is the lowest number that is free.
std::int64_t CountHandles() {
    const int next = open("/dev/null", O_RDONLY | O_CLOEXEC);
    close(next);
    return next;
}

std::int64_t CountGdiObjects() { return 0; }

void ResetAllocations() {
    live = 0;
    peak = 0;
}

Allocations CurrentAllocations() { return {live, peak}; }

}  // namespace qmx::hostile

#endif
