// Every allocation of every request fails once: nothing leaks, no exception gets out, and the
// answer is "no" or a whole picture of the file.

#include <gtest/gtest.h>

#include "bounds/failing_memory.h"
#include "shim.h"
#include "support/api.h"
#include "support/memory_stream.h"
#include "support/raw_seeds.h"
#include "support/utf8.h"

namespace qmx::test {
namespace {

constexpr std::size_t kMostBytes = 1u << 20;  // of any picture of the seeds
constexpr UINT32 kListFailed = 0xFFFFFFFF;

// What a request gave: its result, its picture, its texts.
struct Given {
    UINT32 result = 0;
    Bytes picture;
    std::string text;
};

// Nothing of the caller's own may allocate while the library runs.
struct Caller {
    MemoryStream stream;
    wchar_t text[QMXEXIF_TEXT_BUFFER_LENGTH] = {};
    InfoRequest record = {};
    UINT32 orientation = 0;
    UINT32 items = 0;

    Caller() { stream.bytes.reserve(kMostBytes); }
};

INT_PTR CALLBACK CountItem(UINT32, const WCHAR*, const WCHAR*, INT_PTR user) {
    ++*reinterpret_cast<UINT32*>(user);
    return 0;
}

using Path = const wchar_t*;

struct Export {
    const char* name;
    UINT32 (*call)(Path path, Caller& caller);
    UINT32 failure = 0;
};

const Export kExports[] = {
    {"ExifIsExifFile", [](Path path, Caller&) { return ExifIsExifFile(path); }},
    {"ExifGetThumbsnail",
     [](Path path, Caller& c) { return ExifGetThumbsnail(path, &c.stream, c.text, 1); }},
    {"ExifGetPrimaryImage",
     [](Path path, Caller& c) { return ExifGetPrimaryImage(path, &c.stream); }},
    {"ExifGetPrimaryImageEx",
     [](Path path, Caller& c) { return ExifGetPrimaryImageEx(path, &c.stream, &c.orientation); }},
    {"ExifGetThumbnailImage",
     [](Path path, Caller& c) {
         return ExifGetThumbnailImage(path, &c.stream, &c.orientation, 1, c.text, 1);
     }},
    {"ExifGetInfoTip", [](Path path, Caller& c) { return ExifGetInfoTip(path, c.text, 1); }},
    {"ExifEnumInfo",
     [](Path path, Caller& c) {
         return ExifEnumInfo(path, CountItem, reinterpret_cast<INT_PTR>(&c.items));
     },
     kListFailed},
    {"ExifGetDateTimeString",
     [](Path path, Caller& c) { return ExifGetDateTimeString(path, c.text, 20); }},
    {"ExifGetExifInfo",
     [](Path path, Caller& c) { return ExifGetExifInfo(path, &c.stream, &c.record); }},
    {"ExifGetExifInfoEx",
     [](Path path, Caller& c) {
         return ExifGetExifInfoEx(path, &c.stream, &c.orientation, 0, &c.record);
     }},
};

Given Ask(const Export& request, Path path, Caller& caller) {
    Given given;
    given.result = request.call(path, caller);
    return given;
}

void Complete(Given& given, Caller& caller) {
    given.picture = caller.stream.bytes;
    given.text = Utf8(caller.text) + "|" + std::to_string(caller.items);
    EXPECT_EQ(caller.stream.references, 1);
}

// Where a preview's record has no room, another preview of the file may take its place.
bool IsWholePicture(const Bytes& picture) {
    if (picture.size() < 6 || picture[0] != 'B') return true;  // a JPEG, delivered by one write
    std::uint32_t stated = 0;
    for (std::size_t i = 4; i > 0; --i) stated = stated << 8 | picture[1 + i];
    return picture.size() == stated;
}

// How many allocations the request made.
long FailEach(const Export& request, Path path) {
    Caller soundCaller;
    Given sound = Ask(request, path, soundCaller);
    Complete(sound, soundCaller);
    for (long index = 0;; ++index) {
        Caller caller;
        Given given;
        bool hasFailed = false;
        const long before = LiveBlocks();
        {
            const FailingMemory failing(index);
            given = Ask(request, path, caller);
            hasFailed = failing.HasFailed();
        }
        EXPECT_EQ(LiveBlocks(), before) << request.name << ", allocation " << index;
        Complete(given, caller);
        if (!hasFailed) {
            EXPECT_EQ(given.text, sound.text) << request.name;
            EXPECT_EQ(given.picture, sound.picture) << request.name;
            return index;
        }
        // A picture that was delivered before memory ran short stays in the stream.
        EXPECT_TRUE(IsWholePicture(given.picture)) << request.name << ", allocation " << index;
        if (given.result == request.failure) continue;
        EXPECT_EQ(given.result, sound.result) << request.name << ", allocation " << index;
        EXPECT_EQ(given.picture.empty(), sound.picture.empty()) << request.name;
    }
}

long FailEachOf(const SeedFile& seed) {
    const std::string extension = seed.name.substr(seed.name.find('.'));
    std::vector<wchar_t> suffix(extension.begin(), extension.end());
    suffix.push_back(0);
    const qmxshim::MemoryFile file(seed.bytes.data(), seed.bytes.size(), suffix.data());
    long allocations = 0;
    for (const Export& request : kExports) allocations += FailEach(request, file.Path());
    return allocations;
}

TEST(Allocation, FailuresOfParsesAreSurvived) {
    for (const SeedFile& seed : SeedFiles()) {
        SCOPED_TRACE(seed.name);
        EXPECT_GT(FailEachOf(seed), 0);
    }
}

TEST(Allocation, FailuresOfDevelopmentsAreSurvived) {
    for (const SeedFile& seed : RawSeeds()) {
        SCOPED_TRACE(seed.name);
        EXPECT_GT(FailEachOf(seed), 40);
    }
}

// A path that is too long for the plain form needs room for the other.
TEST(Allocation, FailuresOfLongPathsAreSurvived) {
    const TestFile file(FullPhoto(Order::kLittle), std::string(240, 'x') + ".jpg");
    for (const Export& request : kExports) EXPECT_GT(FailEach(request, file.path()), 0);
}

}  // namespace
}  // namespace qmx::test
