// Raw development when memory is short: every allocation fails once.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <set>

#include "rawdev/pipeline.h"
#include "support/api.h"
#include "support/memory_stream.h"
#include "support/raw_seeds.h"

#ifndef _MSC_VER  // whose linker cannot wrap functions

namespace {

// Where the allocators are watched.
struct {
    int untilFailure = -1;  // allocations that still succeed; below 0: all do
    bool failed = false;
    bool isCounting = false;
    std::set<void*> alive;
} g_watch;

bool MayAllocate() {
    if (!g_watch.isCounting || g_watch.untilFailure-- != 0) return true;
    g_watch.failed = true;
    return false;
}

// The set of blocks allocates as well.
template <class Change>
void* Watched(void* block, Change&& change) {
    if (!g_watch.isCounting) return block;
    g_watch.isCounting = false;
    change(block);
    g_watch.isCounting = true;
    return block;
}

void* Born(void* block) {
    return Watched(block, [](void* b) { g_watch.alive.insert(b); });
}
void* Dead(void* block) {
    return Watched(block, [](void* b) { g_watch.alive.erase(b); });
}

}  // namespace

// The linker sends the calls of the whole program here.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void __real_free(void* block);

void* __wrap_malloc(std::size_t size) {
    return MayAllocate() ? Born(__real_malloc(size)) : nullptr;
}
void* __wrap_calloc(std::size_t count, std::size_t size) {
    return MayAllocate() ? Born(__real_calloc(count, size)) : nullptr;
}
void __wrap_free(void* block) { __real_free(Dead(block)); }
}
// NOLINTEND(bugprone-reserved-identifier)

namespace qmx::test {
namespace {

// Takes everything and keeps nothing, so that it needs no memory.
class SinkStream : public MemoryStream {
public:
    int resizes = 0;

    HRESULT STDMETHODCALLTYPE Write(const void*, ULONG, ULONG*) override {
        ++writes;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER) override {
        ++resizes;
        return S_OK;
    }
};

// Runs `develop` with its n-th allocation failing, for every n that it reaches.
template <class Develop>
int FailEach(Develop&& develop) {
    int runs = 0;
    do {
        g_watch.untilFailure = runs++;
        g_watch.failed = false;
        SinkStream stream;
        g_watch.isCounting = true;
        const std::uint32_t written = develop(&stream);
        g_watch.isCounting = false;
        EXPECT_EQ(written, g_watch.failed ? 0u : 1u);
        EXPECT_EQ(stream.seeks + stream.resizes + stream.writes, g_watch.failed ? 0 : 6);
        EXPECT_TRUE(g_watch.alive.empty());
    } while (g_watch.failed);
    return runs;
}

TEST(RawMemory, EveryAllocationMayFail) {
    for (const SeedFile& seed : RawSeeds()) {
        for (const std::uint32_t level : {0u, 1u, 3u}) {
            const int runs = FailEach([&](IStream* stream) {
                RawDecodeState state;
                state.file.data = seed.bytes.data();
                state.file.size = seed.bytes.size();
                state.highlightMode = level == 1 ? 3 : 0;
                const std::uint32_t written = DevelopView(state, stream, level);
                EXPECT_EQ(state.error, g_watch.failed ? E_OUTOFMEMORY : S_OK) << seed.name;
                return written;
            });
            EXPECT_GE(runs, 8) << seed.name;  // curve, histogram, cells, ring, sums, tone, rows
        }
    }
}

TEST(RawMemory, ExportsAnswerZero) {
    for (const SeedFile& seed : RawSeeds()) {
        const TestFile file(seed.bytes, ".raw");
        FailEach([&](IStream* stream) {
            InfoRequest record = {};
            UINT32 orientation = 77;
            const UINT32 written = ExifGetExifInfoEx(file.path(), stream, &orientation, 1, &record);
            EXPECT_EQ(orientation, written != 0 ? 1u : 77u);
            EXPECT_EQ(record.imageWidth == 0, written == 0);
            return written;
        });
    }
}

}  // namespace
}  // namespace qmx::test

#endif
