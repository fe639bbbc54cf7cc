#include "request_counts.h"

#ifdef QMX_BENCH_COUNTS

#include <signal.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>

namespace {

constexpr std::size_t kPageBytes = 4096;

bool counting = false;
qmx::bench::RequestCounts counts;
// The one view that a request has at a time.
std::uintptr_t viewBegin = 0;
std::uintptr_t viewEnd = 0;

// The first read of a page comes here, and is repeated with the page readable.
void AllowPage(int signal, siginfo_t* info, void*) {
    const auto address = reinterpret_cast<std::uintptr_t>(info->si_addr);
    if (address < viewBegin || address >= viewEnd) {
        ::signal(signal, SIG_DFL);
        return;
    }
    ++counts.pages;
    mprotect(reinterpret_cast<void*>(address / kPageBytes * kPageBytes), kPageBytes, PROT_READ);
}

void* CountBlock(void* block) {
    counts.blocks += counting;
    return block;
}

}  // namespace

extern "C" {

void* __libc_malloc(std::size_t bytes);
void* __libc_calloc(std::size_t count, std::size_t bytes);
void* __libc_realloc(void* block, std::size_t bytes);

__attribute__((visibility("default"))) void* malloc(std::size_t bytes) {
    return CountBlock(__libc_malloc(bytes));
}

__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t bytes) {
    return CountBlock(__libc_calloc(count, bytes));
}

__attribute__((visibility("default"))) void* realloc(void* block, std::size_t bytes) {
    return CountBlock(__libc_realloc(block, bytes));
}

__attribute__((visibility("default"))) void* mmap(void* at, std::size_t bytes, int protection,
                                                  int flags, int file, off_t offset) {
    const bool view = counting && file >= 0 && protection == PROT_READ;
    const long result =
        syscall(SYS_mmap, at, bytes, view ? PROT_NONE : protection, flags, file, offset);
    if (view && result != -1) {
        viewBegin = static_cast<std::uintptr_t>(result);
        viewEnd = viewBegin + bytes;
    }
    return reinterpret_cast<void*>(result);
}

}  // extern "C"

namespace qmx::bench {

void StartCounting() {
    struct sigaction action = {};
    action.sa_sigaction = AllowPage;
    action.sa_flags = SA_SIGINFO;
    sigaction(SIGSEGV, &action, nullptr);
    counts = {};
    counting = true;
}

std::optional<RequestCounts> StopCounting() {
    counting = false;
    signal(SIGSEGV, SIG_DFL);
    return counts;
}

}  // namespace qmx::bench

#else

namespace qmx::bench {

void StartCounting() {}
std::optional<RequestCounts> StopCounting() { return std::nullopt; }

}  // namespace qmx::bench

#endif
