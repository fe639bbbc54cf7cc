// Raw development when memory is short: every allocation fails once, the development says so, and
// the stream has not been touched.

#include <gtest/gtest.h>

#include "bounds/failing_memory.h"
#include "rawdev/pipeline.h"
#include "support/memory_stream.h"
#include "support/raw_seeds.h"

namespace qmx::test {
namespace {

// Takes everything and keeps nothing, so that it needs no memory.
class SinkStream : public MemoryStream {
public:
    HRESULT STDMETHODCALLTYPE Write(const void*, ULONG, ULONG*) override {
        ++writes;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER) override {
        ++resizes;
        return S_OK;
    }

    int resizes = 0;
};

// Whether the development came to its allocation number `index`.
bool DevelopsWithout(long index, const SeedFile& seed, std::uint32_t shrinkLevel) {
    SinkStream stream;
    std::uint32_t written = 0;
    HRESULT error = S_OK;
    bool hasFailed = false;
    const long before = LiveBlocks();
    {
        const FailingMemory failing(index);
        RawDecodeState state;
        state.file.data = seed.bytes.data();
        state.file.size = seed.bytes.size();
        state.highlightMode = shrinkLevel == 1 ? 3 : 0;
        written = DevelopView(state, &stream, shrinkLevel);
        error = state.error;
        hasFailed = failing.HasFailed();
    }
    EXPECT_EQ(LiveBlocks(), before);
    EXPECT_EQ(written, hasFailed ? 0u : 1u);
    EXPECT_EQ(error, hasFailed ? E_OUTOFMEMORY : S_OK);
    EXPECT_EQ(stream.seeks + stream.resizes + stream.writes, hasFailed ? 0 : 6);
    return hasFailed;
}

TEST(Allocation, FailuresInDevelopmentAreNamed) {
    for (const SeedFile& seed : RawSeeds())
        for (const std::uint32_t shrinkLevel : {0u, 1u, 3u}) {
            SCOPED_TRACE(seed.name + " at level " + std::to_string(shrinkLevel));
            long index = 0;
            while (DevelopsWithout(index, seed, shrinkLevel)) ++index;
            EXPECT_GE(index, 7);  // curve, histogram, cells, ring, sums, tone, rows
        }
}

}  // namespace
}  // namespace qmx::test
