// The previews of X3F files.

#include "support/deliver.h"
#include "support/seed_files.h"
#include "support/x3f_builder.h"

namespace qmx::test {
namespace {

constexpr std::uint32_t kPlain = 3;
constexpr std::uint32_t kCoded = 11;
constexpr std::uint32_t kJpeg = 18;
constexpr std::size_t kTableBytes = 1024;

Bytes WithPicture(const X3fPicture& picture) {
    return X3fBuilder().Section("IMA2", ImageSection(picture)).Build();
}

// 2 x 2 pixels whose differences of neighbours wrap both ways.
const Bytes kPixels = {255, 1, 2, 3, 254, 2, 7, 8, 9, 7, 8, 200};
const Bytes kRows = {9, 8, 7, 200, 8, 7, 0, 0, 2, 1, 255, 2, 254, 3, 0, 0};  // of the BMP

TEST(X3fImage, EveryFormatIsDelivered) {
    const Bytes jpeg = JpegStream({}, 4, 4);
    const Bytes first(kPixels.begin(), kPixels.begin() + 6);
    const Bytes second(kPixels.begin() + 6, kPixels.end());
    struct Case {
        const char* what;
        X3fPicture picture;
        Bytes expected;
    };
    const Case cases[] = {
        {"JPEG", {2, kJpeg, 4, 4, 0, jpeg}, jpeg},
        {"packed rows", {2, kPlain, 2, 2, 0, kPixels}, Bmp(2, 2, kRows)},
        {"padded rows", {2, kPlain, 2, 2, 8, first + Bytes{7, 7} + second}, Bmp(2, 2, kRows)},
        {"coded rows", {2, kCoded, 2, 2, 0, CodedPixels(2, 2, kPixels)}, Bmp(2, 2, kRows)},
        {"plain, said to be coded", {2, kCoded, 2, 2, 6, kPixels}, Bmp(2, 2, kRows)},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Deliver(WithPicture(c.picture)).bytes, c.expected) << c.what;
}

TEST(X3fImage, LargerPictureComesThroughTheCode) {
    constexpr std::uint32_t kColumns = 61;
    constexpr std::uint32_t kRowCount = 17;
    Bytes pixels(kColumns * kRowCount * 3);
    std::uint32_t state = 1;
    for (std::uint8_t& sample : pixels) {
        state = state * 1664525 + 1013904223;
        sample = static_cast<std::uint8_t>(state >> 30 == 0 ? 128 : state >> 24);
    }
    const Delivered plain = Deliver(WithPicture({2, kPlain, kColumns, kRowCount, 0, pixels}));
    const Delivered coded = Deliver(
        WithPicture({2, kCoded, kColumns, kRowCount, 0, CodedPixels(kColumns, kRowCount, pixels)}));
    EXPECT_EQ(plain.result, 1);
    EXPECT_EQ(coded.bytes, plain.bytes);
}

TEST(X3fImage, TheSmallestOrTheLargestPreviewIsChosen) {
    const Bytes small = JpegStream({}, 1, 1);
    const Bytes twin = JpegStream({}, 2, 1);
    const Bytes large = JpegStream({}, 3, 3);
    X3fBuilder builder;
    builder.Section("IMAG", ImageSection({2, kJpeg, 30, 30, 0, large}));
    builder.Section("IMA2", ImageSection({2, kJpeg, 10, 9, 0, small}));
    builder.Section("RAW2", ImageSection({2, kJpeg, 1, 1, 0, twin}));
    for (const X3fPicture& other : {X3fPicture{2, kJpeg, 9, 10, 0, twin},
                                    {2, kJpeg, 0, 5, 0, twin},
                                    {3, kJpeg, 1, 1, 0, twin},
                                    {1, kJpeg, 900, 900, 0, twin},
                                    {2, 30, 1, 1, 0, twin}})
        builder.Section("IMA2", ImageSection(other));
    EXPECT_EQ(Deliver(builder.Build(), false).bytes, small);
    EXPECT_EQ(Deliver(builder.Build(), true).bytes, large);
}

TEST(X3fImage, WithoutAPreviewTheFileIsStillSound) {
    const Delivered raw = Deliver(WithPicture({3, 30, 2, 2, 0, kPixels}));
    EXPECT_EQ(raw.result, 1);
    EXPECT_EQ(raw.writes, 0);
    EXPECT_EQ(Deliver(X3fBuilder().Section("IMA2", FromText("SECi")).Build()).result, 1);
}

TEST(X3fImage, DataThatMakeNoPictureLeaveTheStreamAlone) {
    const Bytes coded = CodedPixels(2, 2, kPixels);
    const auto changed = [&](std::size_t position, std::uint8_t value) {
        Bytes copy = coded;
        copy[position] = value;
        return copy;
    };
    Bytes withoutZero = coded;  // the code of difference 0 is gone, and no pixel can go on
    std::fill_n(withoutZero.begin(), 4, std::uint8_t{0});
    const std::uint32_t huge = 0x7FFFFFFF;
    struct Case {
        const char* what;
        X3fPicture picture;
    };
    const Case cases[] = {
        {"no JPEG", {2, kJpeg, 2, 2, 0, kPixels}},
        {"no data", {2, kJpeg, 2, 2, 0, {}}},
        {"a byte short", {2, kPlain, 2, 2, 0, Bytes(11)}},
        {"row size below the pixels", {2, kPlain, 2, 2, 5, Bytes(100)}},
        {"row size past the data", {2, kPlain, 2, 2, 0xFFFFFFFF, Bytes(100)}},
        {"too many rows", {2, kPlain, 2, huge, 0, Bytes(100)}},
        {"too many columns", {2, kPlain, huge, 1, 0, Bytes(100)}},
        {"negative size", {2, kPlain, 0xFFFFFFFF, 0xFFFFFFFF, 0, Bytes(100)}},
        {"table alone", {2, kCoded, 2, 2, 0, Bytes(kTableBytes)}},
        {"empty table", {2, kCoded, 2, 2, 0, Bytes(kTableBytes + 20)}},
        {"more pixels than bits", {2, kCoded, 60, 2, 0, coded}},
        {"more rows than offsets", {2, kCoded, 1, 0x10000000, 0, coded}},
        {"a code that does not exist", {2, kCoded, 2, 2, 0, withoutZero}},
        {"a code of 28 bits", {2, kCoded, 2, 2, 0, changed(3, 28 << 3)}},
        {"a code of no bits", {2, kCoded, 2, 2, 0, changed(3, 1)}},
        {"a code longer than stated", {2, kCoded, 2, 2, 0, changed(1, 1)}},
        {"a code twice", {2, kCoded, 2, 2, 0, changed(4, 2)}},
        {"a code that begins another", {2, kCoded, 2, 2, 0, changed(0, 1)}},
        {"row offset past the data", {2, kCoded, 2, 2, 0, changed(coded.size() - 3, 0x10)}},
        {"row offset at the last bits", {2, kCoded, 2, 2, 0, changed(coded.size() - 4, 13)}},
    };
    for (const Case& c : cases) {
        const Delivered delivered = Deliver(WithPicture(c.picture));
        EXPECT_EQ(delivered.result, 0) << c.what;
        EXPECT_EQ(delivered.writes, 0) << c.what;
    }
    // Information is read all the same.
    EXPECT_TRUE(Parse(WithPicture(cases[0].picture)).parsed);
}

// The directory's position still ends the file.
TEST(X3fImage, SurvivesBeingCutBeforeTheEnd) {
    for (const SeedFile& seed : SeedFiles()) {
        if (!seed.name.ends_with(".x3f")) continue;
        const Bytes end(seed.bytes.end() - 4, seed.bytes.end());
        EXPECT_EQ(Deliver(seed.bytes).writes, 1);
        for (auto cut = seed.bytes.begin(); cut != seed.bytes.end(); ++cut)
            Deliver(Bytes(seed.bytes.begin(), cut) + end);
    }
}

}  // namespace
}  // namespace qmx::test
