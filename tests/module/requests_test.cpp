// The exported functions: what each writes, and what it must leave alone.

#include <gtest/gtest.h>

#include <cstring>

#include "support/api.h"
#include "support/memory_stream.h"
#include "support/utf8.h"

namespace qmx::test {
namespace {

const Bytes kThumbnail = JpegStream({}, 160, 120);

// A photo with a date, an exposure and a thumbnail.
Bytes Photo() {
    TiffBuilder tiff(Order::kBig);
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    ifd.Camera().Short(0x0112, {6}).Link(0x8769, {&exif});
    exif.Rational(0x829A, {{1, 250}}).Rational(0x829D, {{28, 5}}).Short(0x8822, {2});
    exif.Short(0x8827, {200}).Ascii(0x9003, "2008:07:31 12:34:56").SRational(0x9204, {{1, 3}});
    exif.Short(0x9209, {1}).Long(0xA002, {640}).Long(0xA003, {480});
    tiff.Ifd().Short(0x0103, {6}).Preview(kThumbnail);
    return ExifJpeg(tiff.Build());
}

Bytes PhotoWithoutThumbnail() {
    TiffBuilder tiff;
    tiff.Ifd().Camera();
    return ExifJpeg(tiff.Build());
}

constexpr wchar_t kMark = 0x2603;

// A text buffer of the size that clients provide, filled with marks.
struct Text {
    std::vector<wchar_t> units = std::vector<wchar_t>(QMXEXIF_TEXT_BUFFER_LENGTH + 8, kMark);
    wchar_t* data() { return units.data(); }
    bool Untouched() const {
        for (const wchar_t unit : units)
            if (unit != kMark) return false;
        return true;
    }
    std::string Short() { return Utf8(data()); }
    std::string Long() { return Utf8(data() + lstrlenW(data()) + 1); }
};

TEST(InfoTip, WritesBothTextsWhateverTheLength) {
    const TestFile file(Photo(), ".jpg");
    for (const INT32 length : {1, 5, 5000}) {
        Text text;
        ASSERT_EQ(Library().getInfoTip(file.path(), text.data(), length), 1u);
        EXPECT_EQ(text.Short(), " 250 F5.6 +0.3 200* ");
        EXPECT_NE(text.Long().find("撮影情報: P 1/250秒 F5.6 +0.3EV ISO200"), std::string::npos);
        EXPECT_TRUE(text.Long().starts_with("モデル名: One\n大きさ: 640 x 480\n撮影日時: "));
    }
    for (const INT32 length : {0, -1}) {
        Text text;
        EXPECT_EQ(Library().getInfoTip(file.path(), text.data(), length), 1u);
        EXPECT_TRUE(text.Untouched());
    }
    EXPECT_EQ(Library().getInfoTip(file.path(), nullptr, 100), 1u);
}

TEST(Thumbnail, ReachesTheStreamWithAndWithoutTexts) {
    const TestFile file(Photo(), ".jpg");
    MemoryStream stream;
    Text text;
    EXPECT_EQ(Library().getThumbsnail(file.path(), &stream, text.data(), 1282), 1u);
    EXPECT_EQ(stream.bytes, kThumbnail);
    EXPECT_EQ(stream.position, 0u);
    EXPECT_EQ(stream.writes, 1);
    EXPECT_EQ(stream.references, 1);
    EXPECT_EQ(text.Short(), " 250 F5.6 +0.3 200* ");

    MemoryStream second;
    UINT32 orientation = 99;
    EXPECT_EQ(Library().getThumbnailImage(file.path(), &second, &orientation, 0, nullptr, 0), 1u);
    EXPECT_EQ(second.bytes, kThumbnail);
    EXPECT_EQ(orientation, 6u);

    MemoryStream third;
    EXPECT_EQ(Library().getPrimaryImage(file.path(), &third), 1u);
    EXPECT_EQ(third.bytes, kThumbnail);
}

TEST(Thumbnail, MissingFailsTheRequestAndTouchesNothing) {
    const TestFile file(PhotoWithoutThumbnail(), ".jpg");
    MemoryStream stream;
    Text text;
    UINT32 orientation = 99;
    InfoRequest record;
    std::memset(&record, 0x55, sizeof record);
    record.longText = nullptr;
    record.shortText = nullptr;
    const InfoRequest before = record;
    EXPECT_EQ(Library().getThumbnailImage(file.path(), &stream, &orientation, 0, text.data(), 9),
              0u);
    EXPECT_EQ(Library().getExifInfoEx(file.path(), &stream, &orientation, 0, &record), 0u);
    EXPECT_TRUE(text.Untouched());
    EXPECT_EQ(orientation, 99u);
    EXPECT_EQ(std::memcmp(&record, &before, sizeof record), 0);
    EXPECT_TRUE(stream.bytes.empty());
    EXPECT_EQ(Library().getPrimaryImageEx(file.path(), nullptr, &orientation), 1u);
    EXPECT_EQ(orientation, 2147483647u);  // as found: the file gives none
    EXPECT_EQ(AskFor(file.path()).record.orientation, 1u);
}

TEST(BasicRecord, ExchangesItsFirst164BytesOnly) {
    const TestFile file(Photo(), ".jpg");
    UINT8 memory[QMXEXIF_FULL_INFO_SIZE];
    std::memset(memory, 0x55, sizeof memory);
    wchar_t shortText[16] = {};
    const wchar_t* pointer = shortText;
    const INT32 capacity = 6;
    std::memset(memory + 120, 0, 8);
    std::memcpy(memory + 132, &pointer, sizeof pointer);
    std::memcpy(memory + 140, &capacity, sizeof capacity);
    auto* record = reinterpret_cast<InfoRequest*>(memory);
    EXPECT_EQ(Library().getExifInfo(file.path(), nullptr, record), 1u);
    EXPECT_EQ(Utf8(shortText), " 250 F");  // the added blank does not count against the capacity
    EXPECT_EQ(record->imageWidth, 640);
    for (std::size_t i = 148; i < sizeof memory; ++i) ASSERT_EQ(memory[i], 0x55) << i;

    UINT8 before[QMXEXIF_FULL_INFO_SIZE];
    std::memcpy(before, memory, sizeof memory);
    EXPECT_EQ(Library().getExifInfo(L"no such file", nullptr, record), 0u);
    EXPECT_EQ(std::memcmp(before, memory, sizeof memory), 0);
    EXPECT_EQ(Library().getExifInfo(file.path(), nullptr, nullptr), 1u);
}

TEST(DateTimeString, IsCutToTheCapacity) {
    const TestFile dated(Photo(), ".jpg");
    const TestFile undated(PhotoWithoutThumbnail(), ".jpg");
    struct Case {
        const char* name;
        const wchar_t* path;
        INT32 length;
        UINT32 result;
        const char* text;
    };
    const Case cases[] = {
        {"whole", dated.path(), 40, 1, "2008:07:31 12:34:56"},
        {"cut", dated.path(), 5, 1, "2008"},
        {"one unit", dated.path(), 1, 1, ""},
        {"no date", undated.path(), 40, 1, ""},
        {"no file", L"no such file", 40, 0, ""},
    };
    for (const Case& c : cases) {
        wchar_t text[40] = {L'x', 0};
        EXPECT_EQ(Library().getDateTimeString(c.path, text, c.length), c.result) << c.name;
        EXPECT_EQ(Utf8(text), c.text) << c.name;
    }
    wchar_t text[2] = {L'x', 0};
    EXPECT_EQ(Library().getDateTimeString(dated.path(), text, 0), 0u);
    EXPECT_EQ(Library().getDateTimeString(dated.path(), nullptr, 40), 0u);
    EXPECT_EQ(Utf8(text), "x");
}

TEST(Files, ThatCannotBeReadFailEverywhere) {
    const TestFile empty({}, ".jpg");
    const TestFile junk(Bytes(100, 'x'), ".jpg");
    for (const wchar_t* path : {empty.path(), junk.path(), L"no such file", L"", L"."}) {
        MemoryStream stream;
        Text text;
        UINT32 orientation = 99;
        EXPECT_EQ(Library().getThumbsnail(path, &stream, text.data(), 1282), 0u);
        EXPECT_EQ(Library().getPrimaryImageEx(path, &stream, &orientation), 0u);
        EXPECT_EQ(Library().getPrimaryImage(path, &stream), 0u);
        EXPECT_EQ(Library().getInfoTip(path, text.data(), 1282), 0u);
        EXPECT_EQ(ListOf(path), Listing{"failed"});
        EXPECT_EQ(Library().isExifFile(path), 0u);
        EXPECT_TRUE(text.Untouched());
        EXPECT_TRUE(stream.bytes.empty());
        EXPECT_EQ(orientation, 99u);
    }
    EXPECT_EQ(Library().isExifFile(nullptr), 0u);
    EXPECT_EQ(Library().getPrimaryImage(nullptr, nullptr), 0u);
    EXPECT_EQ(Library().drawDigiText(), 0u);
}

// A JPEG holds no raw data, so that a refusal shows that the raw path was taken.
TEST(RawFiles, AreChosenByExtensionFlagAndStream) {
    struct Case {
        const char* name;
        UINT32 flag;
        bool stream;
        UINT32 result;
    };
    const Case cases[] = {
        {"a.jpg", 1, true, 1},   {"a.raw", 0, true, 0}, {"a.RAW", 1, true, 0},
        {"a.raw", 0, false, 1},  {"a.erf", 0, true, 1}, {"a.ERF", 1, true, 0},
        {"a.3fr", 1, true, 0},   {"a.3FR", 0, true, 1}, {"a.raw.x", 1, true, 1},
        {"a.raw x", 1, true, 1}, {"raw", 1, true, 1},   {"a.erfx", 1, true, 1},
    };
    for (const Case& c : cases) {
        const TestFile file(Photo(), c.name);
        MemoryStream stream;
        EXPECT_EQ(Library().getThumbnailImage(file.path(), c.stream ? &stream : nullptr, nullptr,
                                              c.flag, nullptr, 0),
                  c.result)
            << c.name << ' ' << c.flag;
    }
}

TEST(IsExifFile, LooksAtTheStartOnly) {
    TiffBuilder withExif(Order::kBig);
    IfdBuilder& exif = withExif.SubIfd();
    withExif.Ifd().Short(0x0100, {1}).Link(0x8769, {&exif});
    TiffBuilder without;
    without.Ifd().Short(0x0100, {1});
    const Bytes heap = FromText("II\x1A") + Bytes(3) + FromText("HEAPCCDR") + Bytes(30);
    const Bytes exifJpeg = ExifJpeg(without.Build());
    const Bytes xmpJpeg = JpegStream(Segment(0xE1, FromText("http://")), 8, 8);
    struct Case {
        const char* name;
        Bytes bytes;
        UINT32 answer;
    };
    // clang-format off
    const Case cases[] = {
        {"a.tif", withExif.Build(), 1}, {"b.nef", without.Build(), 0},
        {"c.crw", heap, 1}, {"d.CRW", heap, 1}, {"e.tif", heap, 0},
        {"f.jpg", exifJpeg, 1}, {"g.txt", exifJpeg, 1}, {"h.jpg", xmpJpeg, 0},
        {"i.jpg", {0xFF, 0xD8, 0xFF, 0xD9}, 0},
        {"j.mrw", FromText({"\0MRM", 4}), 1}, {"k.jpg", FromText({"\0MRM", 4}), 0},
        {"l.RAF", FromText("FUJIFILM"), 1}, {"m.raw", FromText("FUJIFILM"), 0},
        {"n.x3f", FromText("FOVb"), 1}, {"o.x3f", FromText("FOVc"), 0},
        {"p.tif", {'I', 'I', 42, 0, 0, 0, 0, 0}, 0}, {"q.tif", {'M', 'M'}, 0},
    };
    // clang-format on
    for (const Case& c : cases) {
        const TestFile file(c.bytes, c.name);
        EXPECT_EQ(Library().isExifFile(file.path()), c.answer) << c.name;
    }
}

TEST(Paths, OfAnyLanguageAndLengthOpen) {
    const TestFile japanese(Photo(), "写真 一枚目 ①.jpg");
    EXPECT_EQ(AskFor(japanese.path()).result, 1u);

    const TestFile anchor(Photo(), "x.jpg");
    std::filesystem::path deep = anchor.folder();
    for (int i = 0; i < 4; ++i) deep /= std::string(90, static_cast<char>('a' + i));
    // The long path is made by the system's own means, below the anchor's folder.
    std::filesystem::path creatable = deep;
#ifdef _WIN32
    creatable = std::filesystem::path(u"\\\\?\\" + deep.u16string());
#endif
    std::filesystem::create_directories(creatable);
    MemoryStream stream;
    for (const char* name : {"long.jpg", "long.raw"}) {
        std::filesystem::copy_file(anchor.folder() / "x.jpg", creatable / name);
        const auto path = WidePath(deep / name);
        ASSERT_GT(path.size(), 261u);
        EXPECT_EQ(AskFor(path.data()).result, 1u);
        EXPECT_EQ(Library().getPrimaryImage(path.data(), &stream), name[5] == 'j');
    }

    // One by one: removing whole trees does not reach below 260 characters everywhere.
    for (const char* name : {"long.jpg", "long.raw"}) std::filesystem::remove(creatable / name);
    for (int i = 0; i < 4; ++i, creatable = creatable.parent_path())
        std::filesystem::remove(creatable);
}

class ThrowingStream : public MemoryStream {
public:
    HRESULT STDMETHODCALLTYPE Write(const void*, ULONG, ULONG*) override { throw 1; }
};

TEST(Exceptions, OfTheCallersCodeEndInFailure) {
    const TestFile file(Photo(), ".jpg");
    ThrowingStream stream;
    EXPECT_EQ(Library().getPrimaryImage(file.path(), &stream), 0u);
    const ExifEnumCallback thrower = [](UINT32, const WCHAR*, const WCHAR*, INT_PTR) -> INT_PTR {
        throw 1;
    };
    EXPECT_EQ(Library().enumInfo(file.path(), thrower, 0), 0xFFFFFFFFu);
    EXPECT_EQ(Library().enumInfo(file.path(), nullptr, 0), 1u);
}

}  // namespace
}  // namespace qmx::test
