// Every allocation of every request fails once: nothing leaks, no exception gets out, and the
// answer is "no" or a whole picture of the file.

#include <gtest/gtest.h>

#include "bounds/failing_memory.h"
#include "rawdev/pipeline.h"
#include "shim.h"
#include "support/exports.h"
#include "support/memory_stream.h"
#include "support/raw_seeds.h"

namespace qmx::test {
namespace {

constexpr std::size_t kMostBytes = 1u << 20;  // of any picture of the seeds

// Where a preview's record has no room, another preview of the file may take its place.
bool IsWholePicture(const Bytes& picture) {
    if (picture.size() < 6 || picture[0] != 'B') return true;  // a JPEG, delivered by one write
    std::uint32_t stated = 0;
    for (std::size_t i = 4; i > 0; --i) stated = stated << 8 | picture[1 + i];
    return picture.size() == stated;
}

// How many allocations the request made.
long FailEach(const Export& request, const wchar_t* path) {
    SCOPED_TRACE(request.name);
    MemoryStream whole;
    Caller sound(&whole);
    const UINT32 expected = request.call(path, sound);
    for (long index = 0;; ++index) {
        MemoryStream stream;
        stream.bytes.reserve(kMostBytes);
        Caller caller(&stream);
        UINT32 result = 0;
        bool hasFailed = false;
        const long before = LiveBlocks();
        {
            const FailingMemory failing(index);
            result = request.call(path, caller);
            hasFailed = failing.HasFailed();
        }
        EXPECT_EQ(LiveBlocks(), before) << "allocation " << index;
        EXPECT_EQ(stream.references, 1);
        if (!hasFailed) {
            EXPECT_EQ(caller.Written(), sound.Written());
            EXPECT_EQ(stream.bytes, whole.bytes);
            return index;
        }
        // A picture that was delivered before memory ran short stays in the stream.
        EXPECT_TRUE(IsWholePicture(stream.bytes)) << "allocation " << index;
        if (result == request.Failure()) continue;
        EXPECT_EQ(result, expected) << "allocation " << index;
        EXPECT_EQ(stream.bytes.empty(), whole.bytes.empty());
    }
}

void FailEachOf(const std::vector<SeedFile>& seeds, long least) {
    for (const SeedFile& seed : seeds) {
        SCOPED_TRACE(seed.name);
        const auto suffix = WidePath(seed.name.substr(seed.name.find('.')));
        const qmxshim::MemoryFile file(seed.bytes.data(), seed.bytes.size(), suffix.data());
        long allocations = 0;
        for (const Export& request : Exports()) allocations += FailEach(request, file.Path());
        EXPECT_GE(allocations, least);
    }
}

TEST(Allocation, FailuresOfParsesAreSurvived) { FailEachOf(SeedFiles(), 1); }

TEST(Allocation, FailuresOfDevelopmentsAreSurvived) { FailEachOf(RawSeeds(), 41); }

// A path that is too long for the plain form needs room for the other.
TEST(Allocation, FailuresOfLongPathsAreSurvived) {
    const TestFile file(FullPhoto(Order::kLittle), std::string(240, 'x') + ".jpg");
    for (const Export& request : Exports()) EXPECT_GT(FailEach(request, file.path()), 0);
}

// Takes everything and keeps nothing, so that it needs no memory.
class SinkStream : public WrittenStream {
public:
    int calls = 0;
    HRESULT STDMETHODCALLTYPE Write(const void*, ULONG, ULONG*) override { return Count(); }
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER) override { return Count(); }
    HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) override {
        return Count();
    }

private:
    HRESULT Count() {
        ++calls;
        return S_OK;
    }
};

// Whether the development came to its allocation number `index`.  Then it says so, and the stream
// has not been touched.
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
    EXPECT_EQ(stream.calls, hasFailed ? 0 : 6);
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
