// Files that vanish while they are read: requests fail as for a file that is not there, give back
// everything, and leave the faults of others to the handlers of others.

#include <qmxexif.h>

#include <gtest/gtest.h>
#include <thumbcache.h>

#include <functional>
#include <random>
#include <thread>

#include "com/com_support.h"
#include "com/fake_shell_item.h"
#include "com/page_faults.h"
#include "support/exports.h"
#include "support/memory_stream.h"
#include "support/raw_seeds.h"
#include "support/seed_files.h"

namespace qmx::test {
namespace {

constexpr wchar_t kMissing[] = L"Z:\\no such file.jpg";

// Everything that a call leaves behind.
template <class Call>
std::string Outcome(Call call, const wchar_t* path) {
    MemoryStream stream;
    Caller caller(&stream);
    const auto result = static_cast<UINT32>(call(path, caller));
    return std::to_string(result) + ' ' + std::to_string(caller.Written()) +
           std::string(stream.bytes.begin(), stream.bytes.end());
}

class PageFaults : public testing::Test {
protected:
    // The request and what it leaves open.
    template <class Run>
    std::string Measured(Run run, const wchar_t* path) {
        ThreadTraffic() = {};
        const std::string outcome = run(path);
        const Traffic after = ThreadTraffic();
        EXPECT_EQ(after.views, 0);
        EXPECT_EQ(after.handles, 0);
        EXPECT_EQ(after.blocks, 0);
        return outcome;
    }

    // Runs a request over a file that can be read to `steps` places, a little further each time.
    template <class Run>
    void Sweep(const SeedFile& seed, Run run, std::size_t steps) {
        const TestFile file(seed.bytes, seed.name);
        ReadableUpTo(kWhole);
        run(file.path());  // what is made once
        const std::string sound = Measured(run, file.path());
        const std::string failed = Measured(run, kMissing);
        int failures = 0;
        for (std::size_t step = 0; step < steps; ++step) {
            const std::size_t end = seed.bytes.size() * step / steps;
            ReadableUpTo(end);
            const std::string outcome = Measured(run, file.path());
            const bool faulted = ThreadTraffic().faults != 0;
            failures += faulted;
            EXPECT_EQ(outcome == (faulted ? failed : sound), true) << "readable up to " << end;
        }
        ReadableUpTo(kWhole);
        EXPECT_GT(failures, 0);
        EXPECT_EQ(Measured(run, file.path()) == sound, true);
        EXPECT_TRUE(DeleteFileW(file.path()));
    }

    void TearDown() override { EXPECT_TRUE(module.isUnlocked()); }

    const Apartment apartment;
    const ComModule module;
    const PatchedModule patched{module.handle()};
};

std::vector<SeedFile> AllSeeds() {
    std::vector<SeedFile> seeds = SeedFiles();
    for (SeedFile& seed : RawSeeds()) seeds.push_back(std::move(seed));
    return seeds;
}

TEST_F(PageFaults, MakeExportsFailAndReleaseEverything) {
    for (const SeedFile& seed : AllSeeds())
        for (const Export& request : Exports()) {
            SCOPED_TRACE(seed.name + ", " + request.name);
            Sweep(
                seed, [&](const wchar_t* path) { return Outcome(request.call, path); }, 8);
        }
}

TEST_F(PageFaults, MakeTheAutomationObjectFail) {
    const auto parser = module.Create<IExifParser>(CLSID_ExifParser);
    const auto ask = [&](const wchar_t* text) {
        const auto call = [&](const wchar_t* path, Caller& c) {
            const BSTR name = SysAllocString(path);
            auto* const orientation = reinterpret_cast<LONG*>(&c.orientation);
            const HRESULT result = parser->ExifGetExifInfoEx(name, c.stream, orientation, 1,
                                                             reinterpret_cast<LONG_PTR>(&c.record));
            SysFreeString(name);
            return result;
        };
        return Outcome(call, text);
    };
    EXPECT_EQ(ask(kMissing).substr(0, 10), std::to_string(static_cast<UINT32>(E_FAIL)));
    for (const SeedFile& seed : AllSeeds()) {
        SCOPED_TRACE(seed.name);
        Sweep(seed, ask, 3);
    }
}

TEST_F(PageFaults, LeaveTheShellWithoutAThumbnail) {
    const auto ask = [&](const wchar_t* path) {
        FakeData data;
        data.path = path;
        FakeItem item(data);
        HBITMAP bitmap = nullptr;
        auto alpha = WTSAT_ARGB;
        {
            const auto provider = module.Create<IThumbnailProvider>(CLSID_RawThmubnail);
            Query<IInitializeWithItem>(provider)->Initialize(&item, STGM_READ);
            EXPECT_EQ(provider->GetThumbnail(32, &bitmap, &alpha), E_FAIL);
        }
        EXPECT_EQ(item.references, 1);
        EXPECT_EQ(data.mediums, 0);
        const bool drawn = bitmap != nullptr;
        if (drawn) DeleteObject(bitmap);
        return std::to_string(alpha) + (drawn ? " drawn" : " none");
    };
    for (const SeedFile& seed : SeedFiles()) {
        if (!seed.name.starts_with("rgb") && !seed.name.starts_with("photo")) continue;
        SCOPED_TRACE(seed.name);
        Sweep(seed, ask, 8);
    }
}

// Half of the threads meet faults; the others must not notice.
TEST_F(PageFaults, ConcernTheirOwnThreadOnly) {
    struct File {
        const TestFile file;
        std::size_t size;
        std::vector<std::string> sound = {};
    };
    std::vector<std::unique_ptr<File>> files;
    ReadableUpTo(kWhole);
    for (const SeedFile& seed : AllSeeds()) {
        if (seed.bytes.size() > 20000) continue;
        files.emplace_back(new File{TestFile(seed.bytes, seed.name), seed.bytes.size()});
        for (const Export& request : Exports())
            files.back()->sound.push_back(Outcome(request.call, files.back()->file.path()));
    }
    std::vector<std::string> failed;
    for (const Export& request : Exports()) failed.push_back(Outcome(request.call, kMissing));

    std::atomic<int> faults = 0;
    std::atomic<int> wrong = 0;
    const auto work = [&](unsigned number) {
        std::mt19937 random(number);
        for (int i = 0; i < 120; ++i) {
            const File& file = *files[random() % files.size()];
            const std::size_t request = random() % failed.size();
            ReadableUpTo(number % 2 != 0 ? random() % file.size : kWhole);
            ThreadTraffic() = {};
            const std::string outcome = Outcome(Exports()[request].call, file.file.path());
            const Traffic after = ThreadTraffic();
            const bool faulted = after.faults != 0;
            faults += faulted;
            wrong += outcome != (faulted ? failed[request] : file.sound[request]);
            wrong += after.views != 0 || after.handles != 0 || after.blocks != 0;
        }
    };
    std::vector<std::thread> threads;
    for (unsigned number = 0; number < 8; ++number) threads.emplace_back(work, number);
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(faults, 50);
}

// A stream that does something with what it is given before it takes it.
class ActingStream : public MemoryStream {
public:
    std::function<void(const void* data)> act;
    HRESULT STDMETHODCALLTYPE Write(const void* data, ULONG size, ULONG* written) override {
        act(data);
        return MemoryStream::Write(data, size, written);
    }
};

TEST_F(PageFaults, OfOthersGoToTheHandlersOfOthers) {
    const TestFile file(FullPhoto(Order::kLittle), ".jpg");
    const MendingFilter filter;
    ReadableUpTo(kWhole);

    // In the caller's memory, in its code.
    ActingStream stream;
    stream.act = [](const void*) { EXPECT_EQ(*BrokenPage(), 0); };
    EXPECT_EQ(Library().getPrimaryImage(file.path(), &stream), 1u);
    EXPECT_EQ(filter.mended(), 1);
    // In the view, but still in its code.
    stream.act = [](const void* data) {
        DWORD protection = 0;
        EXPECT_TRUE(VirtualProtect(const_cast<void*>(data), 1, PAGE_NOACCESS, &protection));
    };
    EXPECT_EQ(Library().getPrimaryImage(file.path(), &stream), 1u);
    EXPECT_EQ(filter.mended(), 2);
    // In a callback.
    const ExifEnumCallback callback = [](UINT32, const WCHAR*, const WCHAR*, INT_PTR) -> INT_PTR {
        return *BrokenPage();
    };
    EXPECT_EQ(Library().enumInfo(file.path(), callback, 0), 1u);
    EXPECT_GT(filter.mended(), 2);
    // Elsewhere, under the guard.
    TiffBuilder tiff;
    tiff.Ifd().Camera();
    tiff.Ifd().Picture(1, 1, 2, Bytes(3));
    const TestFile bitmapFile(tiff.Build(), ".tif");
    int before = filter.mended();
    ReadBrokenPageInAllocations(true);
    MemoryStream plain;
    EXPECT_EQ(Library().getThumbsnail(bitmapFile.path(), &plain, nullptr, 0), 1u);
    ReadBrokenPageInAllocations(false);
    EXPECT_EQ(filter.mended(), before + 1);
    // Of another kind, in the view and in the library's code.
    before = filter.mended();
    ReadableUpTo(40, Fault::kAccess);
    EXPECT_EQ(Library().isExifFile(file.path()), 1u);
    EXPECT_EQ(AskFor(file.path()).result, 1u);
    EXPECT_GT(filter.mended(), before);
    ReadableUpTo(kWhole);
}

TEST_F(PageFaults, DoNotStandInTheWayOfExceptions) {
    const TestFile file(FullPhoto(Order::kLittle), ".jpg");
    ReadableUpTo(kWhole);
    ActingStream stream;
    stream.act = [](const void*) { throw 1; };
    const auto ask = [&](const wchar_t* path) {
        return std::to_string(Library().getPrimaryImage(path, &stream));
    };
    ask(file.path());  // what is made once
    EXPECT_EQ(Measured(ask, file.path()), "0");
    EXPECT_TRUE(DeleteFileW(file.path()));
}

}  // namespace
}  // namespace qmx::test
