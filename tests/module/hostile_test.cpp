// Damaged files: every cut and every changed byte of a real structure must be survived, by every
// request.  Under the sanitizers the view ends exactly with the file.

#include <gtest/gtest.h>

#include <fstream>
#include <thread>

#include "support/api.h"
#include "support/memory_stream.h"
#include "support/seed_files.h"

namespace qmx::test {
namespace {

INT_PTR CALLBACK Ignore(UINT32, const WCHAR* label, const WCHAR* value, INT_PTR user) {
    *reinterpret_cast<int*>(user) += lstrlenW(label) + (value != nullptr ? lstrlenW(value) : 0);
    return 0;
}

// Every request on one file; the number of them that succeeded.
UINT32 AskEverything(const wchar_t* path) {
    const Api& api = Library();
    wchar_t text[QMXEXIF_TEXT_BUFFER_LENGTH];
    UINT32 succeeded = api.isExifFile(path) + api.getDateTimeString(path, text, 20);
    int units = 0;
    succeeded += api.enumInfo(path, Ignore, reinterpret_cast<INT_PTR>(&units)) == 1;
    succeeded += api.getInfoTip(path, text, 1282);
    for (const UINT32 flag : {0u, 1u}) {
        MemoryStream stream;
        UINT32 orientation = 0;
        succeeded += api.getThumbnailImage(path, &stream, &orientation, flag, text, 1282);
    }
    return succeeded;
}

// Rewrites one file in place, which is quicker than making one each time.
class ChangingFile {
public:
    ChangingFile() : file_({1}, ".jpg") {
        for (const wchar_t* unit = file_.path(); *unit != 0; ++unit)
            path_ += static_cast<char16_t>(*unit);
    }
    UINT32 Ask(const Bytes& bytes) {
        std::ofstream(path_, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
        return AskEverything(file_.path());
    }

private:
    TestFile file_;
    std::filesystem::path path_;
};

// Natively every case runs, under Wine, where opening a file is slow, a sample.
#ifdef _WIN32
constexpr std::size_t kStep = 7;
#else
constexpr std::size_t kStep = 1;
#endif

TEST(Damage, EveryTruncationIsSurvived) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        const Bytes photo = FullPhoto(order);
        ChangingFile file;
        ASSERT_EQ(file.Ask(photo), 6u);
        for (std::size_t length = 0; length < photo.size(); length += kStep)
            file.Ask({photo.begin(), photo.begin() + static_cast<std::ptrdiff_t>(length)});
    }
}

TEST(Damage, EveryChangedByteIsSurvived) {
    const Bytes photo = FullPhoto(Order::kLittle);
    ChangingFile file;
    for (std::size_t i = 0; i < photo.size(); i += kStep) {
        for (const unsigned change : {0x01u, 0x80u, 0xFFu}) {
            Bytes changed = photo;
            changed[i] = static_cast<std::uint8_t>(changed[i] ^ change);
            file.Ask(changed);
        }
    }
    EXPECT_EQ(file.Ask(photo), 6u);
}

TEST(Threads, WorkSideBySide) {
    const TestFile file(FullPhoto(Order::kBig), ".jpg");
    std::vector<std::thread> threads;
    std::vector<UINT32> succeeded(4);
    for (UINT32& sum : succeeded)
        threads.emplace_back([&file, &sum] {
            for (int i = 0; i < 100; ++i) sum += AskEverything(file.path());
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(succeeded, std::vector<UINT32>(4, 600));
}

}  // namespace
}  // namespace qmx::test
