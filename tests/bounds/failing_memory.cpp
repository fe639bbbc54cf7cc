#include "bounds/failing_memory.h"

#include <cstdlib>
#include <new>

// The linker gives calls of the C functions in our own objects these names (--wrap).
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);
}

namespace {

constexpr long kNever = -1;

thread_local long liveBlocks = 0;
thread_local long countdown = kNever;  // allocations until the one that fails
thread_local bool hasFailed = false;

bool MustFail() {
    if (countdown == kNever || countdown-- != 0) return false;
    hasFailed = true;
    return true;
}

void* Count(void* block) {
    if (block != nullptr) ++liveBlocks;
    return block;
}

void* Allocate(std::size_t size) { return MustFail() ? nullptr : Count(__real_malloc(size)); }

void Release(void* block) {
    if (block != nullptr) --liveBlocks;
    __real_free(block);
}

}  // namespace

extern "C" {

void* __wrap_malloc(std::size_t size) { return Allocate(size); }

void* __wrap_calloc(std::size_t count, std::size_t size) {
    return MustFail() ? nullptr : Count(__real_calloc(count, size));
}

void* __wrap_realloc(void* block, std::size_t size) {
    if (MustFail()) return nullptr;
    void* grown = __real_realloc(block, size);
    return block == nullptr ? Count(grown) : grown;
}

void __wrap_free(void* block) { Release(block); }

}  // extern "C"

void* operator new(std::size_t size) {
    void* block = Allocate(size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* block) noexcept { Release(block); }
void operator delete[](void* block) noexcept { Release(block); }
void operator delete(void* block, std::size_t) noexcept { Release(block); }
void operator delete[](void* block, std::size_t) noexcept { Release(block); }

namespace qmx::test {

long LiveBlocks() { return liveBlocks; }

FailingMemory::FailingMemory(long index) {
    hasFailed = false;
    countdown = index;
}

FailingMemory::~FailingMemory() { countdown = kNever; }

bool FailingMemory::HasFailed() const { return hasFailed; }

}  // namespace qmx::test
