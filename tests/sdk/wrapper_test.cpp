// The C++ wrapper, linked against the library as a client's program is.

#include <gtest/gtest.h>
#include <qmxexif.hpp>

#include <cstdlib>
#include <type_traits>

#include "support/api.h"
#include "support/memory_stream.h"
#include "support/seed_files.h"

namespace qmx::test {
namespace {

using namespace qmxexif;
using CountingStream = test::MemoryStream;
using qmxexif::MemoryStream;

#ifdef _WIN32
#define TEXT_OF(literal) L##literal
#else
#define TEXT_OF(literal) u##literal
#endif

static_assert(!std::is_copy_constructible_v<MemoryStream>);
static_assert(std::is_nothrow_move_constructible_v<MemoryStream>);
static_assert(!std::is_convertible_v<std::string, Path>, "bytes are no path");

TEST(Wrapper, ReadsAPhotoWithItsPreview) {
    const TestFile file(FullPhoto(Order::kLittle), "写真.jpg");
    const auto photo = ReadPhoto(file.path());
    ASSERT_TRUE(photo && photo->preview);
    const Answer answer = AskFor(file.path());
    EXPECT_EQ(ToUtf8(photo->info.longText), answer.longText);
    EXPECT_EQ(ToUtf8(photo->info.shortText), answer.shortText);
    EXPECT_FALSE(answer.longText.empty());
    EXPECT_EQ(photo->info.exposureTime, +answer.record.exposureTime);
    EXPECT_EQ(photo->info.width.value_or(QMXEXIF_INT_UNSET), +answer.record.imageWidth);
    ASSERT_TRUE(photo->info.captureTime);
    EXPECT_EQ(photo->info.captureTime->wYear, answer.record.captureTime.wYear);
    EXPECT_EQ(ToTm(*photo->info.captureTime).tm_mon, answer.record.captureTime.wMonth - 1);
    const auto largest = ReadPreview(file.path(), PreviewSize::kLargest);
    ASSERT_TRUE(largest);
    EXPECT_STREQ(photo->preview->Extension(), ".bmp");
    EXPECT_STREQ(largest->Extension(), ".jpg");
    CountingStream stream;
    ASSERT_EQ(Library().getPrimaryImage(file.path(), &stream), 1u);
    EXPECT_EQ(largest->bytes, stream.bytes);

    const auto texts = ReadTexts(file.path());
    ASSERT_TRUE(texts);
    EXPECT_EQ(texts->shortText, photo->info.shortText);
    EXPECT_EQ(texts->longText, photo->info.longText);
    EXPECT_TRUE(IsCameraFile(file.path()));
    EXPECT_EQ(ReadDateTime(file.path()).value_or(Text()).size(), 19u);

    const auto list = ReadList(file.path());
    ASSERT_TRUE(list);
    Listing rows;
    for (const Item& item : *list) {
        const bool isHeading = item.kind == Item::Kind::kHeading;
        const std::string value = item.value ? " = " + ToUtf8(*item.value) : " (group)";
        rows.push_back(isHeading ? "# " + ToUtf8(item.label) : ToUtf8(item.label) + value);
    }
    EXPECT_EQ(rows, ListOf(file.path()));
    const Item* make = list->Find(TEXT_OF("Exif情報"), TEXT_OF("メーカー名"));
    ASSERT_NE(make, nullptr);
    EXPECT_EQ(make->value, photo->info.make);
    EXPECT_EQ(list->Find(TEXT_OF("GPS位置"), TEXT_OF("メーカー名")), nullptr);
}

// Sentinels, absent texts and dates that no calendar has become empty.
TEST(Wrapper, LeavesOutWhatTheFileDoesNotGive) {
    const auto infoOf = [](const char* date) {
        TiffBuilder tiff;
        IfdBuilder& exif = tiff.SubIfd();
        if (date) exif.Ascii(0x9003, date);
        tiff.Ifd().Camera().Link(0x8769, {&exif});
        const TestFile file(tiff.Build(), ".tif");
        return ReadPhoto(file.path());
    };
    const auto bare = infoOf(nullptr);
    ASSERT_TRUE(bare);
    EXPECT_FALSE(bare->preview);
    EXPECT_EQ(bare->info.model, TEXT_OF("One"));
    EXPECT_EQ(bare->info.lens, Text());
    EXPECT_FALSE(bare->info.isoSpeed || bare->info.width || bare->info.exposureProgram);
    EXPECT_FALSE(bare->info.fNumber || bare->info.exposureTime || bare->info.maxAperture);
    EXPECT_FALSE(bare->info.captureTime);
    EXPECT_EQ(bare->info.orientation, 1u);
    EXPECT_TRUE(infoOf("2008:02:29 12:34:56")->info.captureTime);
    for (const char* date : {"2007:02:29 12:34:56", "0000:00:00 00:00:00", "2008:13:01 00:00:00",
                             "2008:12:31 24:00:00", "1900:02:29 00:00:00"})
        EXPECT_FALSE(infoOf(date)->info.captureTime) << date;
}

TEST(Wrapper, AnswersNothingForWhatCannotBeRead) {
    const TestFile text({'t', 'e', 'x', 't'}, ".jpg");
    const Text missing = TEXT_OF("no such file");
    const WCHAR* none = nullptr;
    for (const Path& path : {Path(text.path()), Path(missing), Path(none)}) {
        EXPECT_FALSE(ReadPhoto(path) || ReadInfo(path) || ReadPreview(path) || ReadTexts(path));
        EXPECT_FALSE(ReadList(path) || ReadDateTime(path) || IsCameraFile(path));
    }
}

TEST(Wrapper, ConvertsTextsToUtf8) {
    EXPECT_EQ(ToUtf8(TEXT_OF("aé写\U0001F4F7")), "aé写\U0001F4F7");
    const Char halves[] = {0xD83D, 'x', 0xDCF7, 0xD83D};
    EXPECT_EQ(ToUtf8(TextView(halves, 4)), "\uFFFDx\uFFFD\uFFFD");
}

LARGE_INTEGER Move(std::int64_t distance) {
    LARGE_INTEGER move;
    move.QuadPart = distance;
    return move;
}

// What decoders of pictures ask of a stream.
TEST(Wrapper, StreamBehavesAsStreamsDo) {
    MemoryStream owner(Bytes{1, 2, 3});
    IStream* stream = owner.Get();
    std::uint8_t data[8] = {};
    ULONG count = 9;
    EXPECT_EQ(stream->Read(data, 8, &count), S_FALSE);
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(data[2], 3);

    // Writing behind the end leaves zeros between; before the start there is nothing.
    ULARGE_INTEGER position{};
    EXPECT_EQ(stream->Seek(Move(2), STREAM_SEEK_END, &position), S_OK);
    EXPECT_EQ(position.QuadPart, 5u);
    EXPECT_EQ(stream->Write(data, 1, &count), S_OK);
    EXPECT_EQ(owner.Contents(), (Bytes{1, 2, 3, 0, 0, 1}));
    EXPECT_TRUE(FAILED(stream->Seek(Move(-7), STREAM_SEEK_CUR, nullptr)));
    EXPECT_TRUE(FAILED(stream->Seek(Move(0), 3, nullptr)));
    EXPECT_EQ(stream->Seek(Move(INT64_MAX), STREAM_SEEK_SET, nullptr), S_OK);
    EXPECT_EQ(stream->Read(data, 1, &count), S_FALSE);
    EXPECT_EQ(stream->Write(data, 1, nullptr), STG_E_MEDIUMFULL);

    // A clone shares the bytes and outlives the owner.
    EXPECT_EQ(stream->Seek(Move(1), STREAM_SEEK_SET, nullptr), S_OK);
    IStream* clone = nullptr;
    ASSERT_EQ(stream->Clone(&clone), S_OK);
    STATSTG facts{};
    EXPECT_EQ(clone->Stat(&facts, STATFLAG_NONAME), S_OK);
    EXPECT_EQ(facts.cbSize.QuadPart, 6u);
    MemoryStream target;
    ULARGE_INTEGER all;
    all.QuadPart = UINT64_MAX;
    EXPECT_EQ(clone->CopyTo(target.Get(), all, &position, nullptr), S_OK);
    EXPECT_EQ(position.QuadPart, 5u);
    EXPECT_EQ(target.Contents(), (Bytes{2, 3, 0, 0, 1}));
    owner = MemoryStream();
    EXPECT_EQ(clone->Seek(Move(0), STREAM_SEEK_SET, nullptr), S_OK);
    EXPECT_EQ(clone->Read(data, 1, &count), S_OK);
    EXPECT_EQ(data[0], 1);
    EXPECT_EQ(clone->Release(), 0u);

    // Taking the contents leaves an empty stream, at its start.
    EXPECT_EQ(target.TakeContents().size(), 5u);
    EXPECT_EQ(target.Get()->Write(data, 1, nullptr), S_OK);
    EXPECT_EQ(target.Contents().size(), 1u);

    void* same = nullptr;
    const IID unknown = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    const IID dispatch = {0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    EXPECT_EQ(target.Get()->QueryInterface(unknown, &same), S_OK);
    EXPECT_EQ(same, target.Get());
    EXPECT_EQ(target.Get()->Release(), 1u);
    EXPECT_EQ(target.Get()->QueryInterface(dispatch, &same), E_NOINTERFACE);
    EXPECT_EQ(same, nullptr);
}

}  // namespace
}  // namespace qmx::test
