// Sigma's MakerNote, as whole files.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "makernote/maker_record.h"
#include "makernote/sigma_fields.h"
#include "parse/containers/container.h"
#include "support/memory_stream.h"
#include "support/note_file.h"
#include "support/parse.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = SigmaMakerFields;

constexpr std::string_view kHeader = "SIGMA\0\0\0\1\0"sv;

class SigmaFile : public NoteFile {
public:
    explicit SigmaFile(Order order = Order::kLittle) : NoteFile(order, "SIGMA", kHeader) {}
};

struct TextField {
    std::uint16_t tag;
    std::size_t offset, size;
};

#define TEXT_FIELD(tag) \
    { 0x##tag, offsetof(Fields, sigmaTag##tag), sizeof Fields::sigmaTag##tag }
constexpr TextField kTexts[] = {
    TEXT_FIELD(02), TEXT_FIELD(03), TEXT_FIELD(04), TEXT_FIELD(05), TEXT_FIELD(06), TEXT_FIELD(07),
    TEXT_FIELD(08), TEXT_FIELD(09), TEXT_FIELD(0A), TEXT_FIELD(0B), TEXT_FIELD(0C), TEXT_FIELD(0D),
    TEXT_FIELD(0E), TEXT_FIELD(0F), TEXT_FIELD(10), TEXT_FIELD(11), TEXT_FIELD(12), TEXT_FIELD(14),
    TEXT_FIELD(15), TEXT_FIELD(16), TEXT_FIELD(17), TEXT_FIELD(18), TEXT_FIELD(19), TEXT_FIELD(1D),
    TEXT_FIELD(22), TEXT_FIELD(30), TEXT_FIELD(3B), TEXT_FIELD(3C)};
#undef TEXT_FIELD

std::string TextAt(const Fields& fields, const TextField& field) {
    char text[64] = {};
    std::memcpy(text, reinterpret_cast<const char*>(&fields) + field.offset, field.size);
    return text;
}

TEST(SigmaNote, EveryTextHasItsField) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        SigmaFile file(order);
        char letter = '0';
        for (const TextField& field : kTexts) {
            // One shorter than its field, filling it, and one longer, in turn.
            const std::size_t length = field.size - 2 + static_cast<std::size_t>(letter % 3);
            file.Note().Ascii(field.tag, std::string(length, letter++));
        }
        const ImageInfo info = Parse(file.Build()).info;
        letter = '0';
        for (const TextField& field : kTexts) {
            const std::size_t length = std::min<std::size_t>(
                field.size - 2 + static_cast<std::size_t>(letter % 3), field.size - 1);
            EXPECT_EQ(TextAt(MakerRecord<Fields>(info), field), std::string(length, letter++))
                << std::hex << field.tag;
        }
        EXPECT_EQ(info.pixelYDimension, static_cast<std::int32_t>(NoteFile::kHeight));
    }
}

TEST(SigmaNote, NumbersAndTagsThatMeanNothing) {
    SigmaFile file;
    file.Note()
        .Ascii(0x0001, "below")
        .Ascii(0x0013, "nothing")
        .Ascii(0x001E, "nothing")
        .Ascii(0x0021, "nothing")
        .Rational(0x0031, {{110, 10}})
        .Rational(0x0032, {{4, 10}})
        .SRational(0x0035, {{-3, 10}})
        .SRational(0x003A, {{7, 10}})
        .Ascii(0x003D, "above");
    const ImageInfo info = Parse(file.Build()).info;
    Fields expected;
    expected.sigmaTag31 = 11.0f;
    expected.sigmaTag32 = 0.4f;
    expected.sigmaTag35 = -0.3f;
    expected.sigmaTag3A = 0.7f;
    EXPECT_EQ(std::memcmp(&MakerRecord<Fields>(info), &expected, sizeof expected), 0);
    EXPECT_EQ(info.hasMakerNote, 1);
}

TEST(SigmaNote, UnknownHeaderIsLeftAlone) {
    NoteFile file(Order::kLittle, "SIGMA", "SIGMU\0\0\0\1\0"sv);
    file.Note().Ascii(0x0002, "serial");
    const ImageInfo info = Parse(file.Build()).info;
    EXPECT_EQ(info.hasMakerNote, 0);
    EXPECT_EQ(info.pixelXDimension, static_cast<std::int32_t>(NoteFile::kWidth));
}

// What a request for the smallest or the largest picture delivers.
Bytes Deliver(const Bytes& file, bool wantPrimary) {
    BytesContext context(file);
    MemoryStream stream;
    context.ctx.outStream = &stream;
    ParseContainer(context.ctx, wantPrimary);
    return stream.bytes;
}

// Both pictures within a JPEG file, so that the base of the offsets counts.
TEST(SigmaNote, PreviewsOfTagsAndBehindTheLastValue) {
    const Bytes tagged = JpegStream(Segment(0xDB, Bytes(8)), 64, 48);
    const Bytes trailing = JpegStream({}, 160, 120);
    for (const bool hasTrailing : {false, true}) {
        SigmaFile file;
        file.Note()
            .Data(0x001A, tagged)
            .Long(0x001B, {static_cast<std::uint32_t>(tagged.size())})
            .Short(0x001C, {64, 48})
            .Ascii(0x003C, "Sunlight+");  // of an even size: nothing pads it
        if (hasTrailing) file.Tiff().Trailer(trailing);
        const Bytes photo = ExifJpeg(file.Build());
        EXPECT_EQ(Deliver(photo, false), tagged);
        EXPECT_EQ(Deliver(photo, true), hasTrailing ? trailing : tagged);
    }
}

TEST(SigmaNote, PreviewBehindAnEntryThatIsIgnored) {
    const Bytes jpeg = JpegStream({}, 160, 120);
    SigmaFile file;
    file.Note().Undefined(0x003D, jpeg);
    EXPECT_EQ(Deliver(file.Build(), false), jpeg);
}

TEST(SigmaNote, HostileEntriesHarmNothing) {
    constexpr std::uint32_t kAuto = 0x6F747541;  // "Auto"
    struct Case {
        const char* what;
        void (*fill)(IfdBuilder&);
        const char* text;  // of tag 0x0007
    };
    const Case cases[] = {
        {"no entries", [](IfdBuilder& n) { n.Ascii(7, "Auto").EntryCount(0); }, ""},
        {"one entry too many", [](IfdBuilder& n) { n.Ascii(7, "Auto").EntryCount(2); }, "Auto"},
        {"most entries", [](IfdBuilder& n) { n.Ascii(7, "Auto").EntryCount(65535); }, "Auto"},
        {"count 0", [](IfdBuilder& n) { n.Raw(7, 2, 0, kAuto); }, ""},
        {"inline without end", [](IfdBuilder& n) { n.Raw(7, 2, 4, kAuto); }, "Auto"},
        {"negative count", [](IfdBuilder& n) { n.Raw(7, 2, 0xFFFFFFFF, 8); }, ""},
        {"size wraps to 0", [](IfdBuilder& n) { n.Raw(7, 5, 0x20000000, kAuto); }, "Auto"},
        {"offset past the end", [](IfdBuilder& n) { n.Raw(7, 2, 100, 0x7FFFFFFF); }, ""},
        {"offset before the file", [](IfdBuilder& n) { n.Raw(7, 2, 5, 0xFFFFFF00); }, "II*"},
        {"blank", [](IfdBuilder& n) { n.Ascii(7, "      "); }, ""},
        {"a number",
         [](IfdBuilder& n) {
             n.SRational(7, {{0, 10}});
         },
         ""},
        {"preview of no size", [](IfdBuilder& n) { n.Raw(0x1C, 3, 0, 0).Raw(0x1A, 4, 1, 8); }, ""},
    };
    for (const Case& c : cases) {
        SigmaFile file;
        c.fill(file.Note());
        const ImageInfo info = Parse(file.Build()).info;
        EXPECT_EQ(FieldText(MakerRecord<Fields>(info).sigmaTag07), c.text) << c.what;
        EXPECT_EQ(info.pixelXDimension, static_cast<std::int32_t>(NoteFile::kWidth)) << c.what;
        EXPECT_EQ(info.pixelYDimension, static_cast<std::int32_t>(NoteFile::kHeight)) << c.what;
    }
}

TEST(SigmaNote, SurvivesBeingCutAnywhere) {
    SigmaFile file;
    file.Note().Ascii(0x0002, "02000019").Rational(0x0032, {{4, 10}}).Ascii(0x003C, "Sunlight+");
    file.Tiff().Trailer(JpegStream({}, 160, 120));
    const Bytes whole = file.Build();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_LE(Deliver(cut, false).size(), size);
    }
}

}  // namespace
}  // namespace qmx::test
