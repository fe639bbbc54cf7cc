// The previews of X3F files.

#include <gtest/gtest.h>

#include <numeric>

#include "parse/containers/container.h"
#include "support/memory_stream.h"
#include "support/parse.h"
#include "support/x3f_builder.h"

namespace qmx::test {
namespace {

constexpr std::uint32_t kPlain = 3;
constexpr std::uint32_t kCoded = 11;
constexpr std::uint32_t kJpeg = 18;
constexpr std::size_t kTableBytes = 1024;

struct Delivered {
    int result;
    Bytes bytes;
    int writes;
};

Delivered Deliver(const Bytes& file, bool wantPrimary = false) {
    BytesContext context(file);
    MemoryStream stream;
    context.ctx.outStream = &stream;
    const int result = ParseContainer(context.ctx, wantPrimary);
    EXPECT_EQ(context.ctx.thumbDone, stream.writes);
    return {result, stream.bytes, stream.writes};
}

Bytes WithPicture(const X3fPicture& picture) {
    return X3fBuilder().Section("IMA2", ImageSection(picture)).Build();
}

// 2 x 2 pixels whose differences of neighbours wrap both ways.
const Bytes kPixels = {255, 1, 2, 3, 254, 2, 7, 8, 9, 7, 8, 200};
const Bytes kRows = {9, 8, 7, 200, 8, 7, 0, 0, 2, 1, 255, 2, 254, 3, 0, 0};  // of the BMP

Bytes Bmp(std::uint32_t width, std::uint32_t height, const Bytes& rows) {
    const auto size = static_cast<std::uint32_t>(rows.size());
    return ByteWriter(Order::kLittle)
        .Raw(FromText("BM"))
        .U32(size + 54)
        .U32(0)
        .U32(54)
        .U32(40)
        .U32(width)
        .U32(height)
        .U16(1)
        .U16(24)
        .U32(0)
        .U32(size)
        .Pad(54)
        .Raw(rows)
        .bytes;
}

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
    for (const Case& c : cases) {
        const Delivered delivered = Deliver(WithPicture(c.picture));
        EXPECT_EQ(delivered.result, 1) << c.what;
        EXPECT_EQ(delivered.bytes, c.expected) << c.what;
    }
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
    const auto section = [](std::uint32_t type, std::uint32_t columns, std::uint32_t rows,
                            const Bytes& data) {
        return ImageSection({type, kJpeg, columns, rows, 0, data});
    };
    X3fBuilder builder;
    builder.Section("IMAG", section(2, 30, 30, large))
        .Section("IMA2", section(2, 10, 9, small))
        .Section("IMA2", section(2, 9, 10, twin))
        .Section("IMA2", section(2, 0, 5, twin))
        .Section("IMA2", section(3, 1, 1, twin))
        .Section("IMA2", section(1, 900, 900, twin))
        .Section("RAW2", section(2, 1, 1, twin))
        .Section("IMA2", ImageSection({2, 30, 1, 1, 0, twin}));
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

Bytes SmallFile() {
    X3fBuilder builder;
    builder.version = 0x20002;
    builder.extended = ExtendedHeader({"Sunlight"}, {1, 7, 8, 9}, {0.5f, 0, 0, 0});
    return builder.Section("IMA2", ImageSection({2, kCoded, 2, 2, 0, CodedPixels(2, 2, kPixels)}))
        .Section("IMA2", ImageSection({2, kJpeg, 9, 9, 0, JpegStream({}, 9, 9)}))
        .Section("PROP", PropertyList({{"CAMMANUF", "SIGMA"}, {"TIME", "978309395"}}))
        .Build();
}

TEST(X3fImage, SurvivesBeingCutAnywhere) {
    const Bytes whole = SmallFile();
    EXPECT_EQ(Deliver(whole).bytes, Bmp(2, 2, kRows));
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(Deliver(cut).result, 0) << size;
        // The directory's position still ends the file.
        const Bytes joined = cut + Bytes(whole.end() - 4, whole.end());
        EXPECT_LE(Deliver(joined).writes, 1);
    }
}

TEST(X3fImage, SurvivesEveryChangedByte) {
    const Bytes whole = SmallFile();
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (const int flip : {0x01, 0x80, 0xFF}) {
            Bytes changed = whole;
            changed[i] = static_cast<std::uint8_t>(changed[i] ^ flip);
            const Delivered delivered = Deliver(changed);
            EXPECT_EQ(delivered.writes != 0, !delivered.bytes.empty());
            EXPECT_LE(delivered.bytes.size(), whole.size());
        }
    }
}

}  // namespace
}  // namespace qmx::test
