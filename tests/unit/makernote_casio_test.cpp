// Casio's MakerNote of the "QVC" form, as whole files.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "makernote/casio_fields.h"
#include "makernote/maker_record.h"
#include "parse/containers/container.h"
#include "support/memory_stream.h"
#include "support/note_file.h"
#include "support/parse.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = CasioMakerFields;

class CasioFile : public NoteFile {
public:
    CasioFile() : NoteFile(Order::kBig, "CASIO COMPUTER CO.,LTD.", "QVC\0\0\0"sv) {}
    ImageInfo Info() { return Parse(Build()).info; }
};

const Fields& FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

TEST(CasioNote, EveryTagHasItsField) {
    CasioFile file;
    file.Note()
        .Short(0x2011, {87, 93})
        .Short(0x2012, {12})
        .Long(0x2022, {536870912})
        .Short(0x2034, {806})
        .Short(0x3000, {2})
        .Short(0x3001, {19})
        .Short(0x3002, {3})
        .Short(0x3003, {6})
        .Ascii(0x3006, "New York")
        .Short(0x3007, {5})
        .Undefined(0x3011, {0xFF, 0xFC})
        .Undefined(0x3012, {0x00, 0x02})
        .Undefined(0x3013, {0xFF, 0xFE})
        .Short(0x3014, {50})
        .Short(0x3015, {1})
        .Short(0x3016, {9})
        .Short(0x3017, {7});
    const ImageInfo info = file.Info();
    const Fields expected = {.casioTag2011a = 87,
                             .casioTag2011b = 93,
                             .casioTag2012 = 12,
                             .casioTag2022 = 536870912,
                             .casioTag2034 = 806,
                             .casioTag3000 = 2,
                             .casioTag3001 = 19,
                             .casioTag3002 = 3,
                             .casioTag3003 = 6,
                             .casioTag3006 = "New York",
                             .casioTag3007 = 5,
                             .casioTag3011 = 0xFFFC,
                             .casioTag3013 = 0xFFFE,
                             .casioTag3012 = 2,
                             .casioTag3014 = 50,
                             .casioTag3015 = 1,
                             .casioTag3016 = 9,
                             .casioTag3017 = 7};
    EXPECT_EQ(std::memcmp(&FieldsOf(info), &expected, sizeof expected), 0);
    EXPECT_EQ(info.isoSpeed, 50);
    EXPECT_EQ(info.pixelYDimension, static_cast<std::int32_t>(NoteFile::kHeight));
}

TEST(CasioNote, StartValuesAndRulesOfSingleTags) {
    const Fields reset;
    EXPECT_EQ(reset.casioTag2011a, INT_UNSET);
    EXPECT_EQ(reset.casioTag2011b, 0);

    struct Case {
        const char* what;
        void (*fill)(CasioFile&);
        std::int32_t flashDistance, quality, isoSpeed;
    };
    const Case cases[] = {
        {"flash distance 0", [](CasioFile& f) { f.Note().Short(0x2034, {0}).Short(0x3002, {1}); },
         INT_UNSET, 1, INT_UNSET},
        {"tag 0 ends",
         [](CasioFile& f) { f.Note().Short(0x2034, {9}).Short(0, {1}).Short(0x3002, {1}); }, 9,
         INT_UNSET, INT_UNSET},
        {"type 0 ends",
         [](CasioFile& f) { f.Note().Short(0x2034, {9}).Raw(0x2040, 0, 1, 0).Short(0x3002, {1}); },
         9, INT_UNSET, INT_UNSET},
        {"type 13 ends",
         [](CasioFile& f) { f.Note().Short(0x2034, {9}).Raw(0x2040, 13, 1, 0).Short(0x3002, {1}); },
         9, INT_UNSET, INT_UNSET},
        {"count 0 ends",
         [](CasioFile& f) { f.Note().Short(0x2034, {9}).Raw(0x2040, 3, 0, 0).Short(0x3002, {1}); },
         9, INT_UNSET, INT_UNSET},
        {"negative count is skipped",
         [](CasioFile& f) {
             f.Note().Short(0x2034, {9}).Raw(0x2040, 3, 0x80000000, 0).Short(0x3002, {1});
         },
         9, 1, INT_UNSET},
        {"no entries", [](CasioFile& f) { f.Note().Short(0x3002, {1}).EntryCount(0); }, INT_UNSET,
         INT_UNSET, INT_UNSET},
        {"most entries", [](CasioFile& f) { f.Note().Short(0x3002, {1}).EntryCount(65535); },
         INT_UNSET, 1, INT_UNSET},
        {"value past the end", [](CasioFile& f) { f.Note().Raw(0x3002, 4, 2, 0x7FFFFFF0); },
         INT_UNSET, INT_UNSET, INT_UNSET},
    };
    for (const Case& c : cases) {
        CasioFile file;
        c.fill(file);
        const ImageInfo info = file.Info();
        EXPECT_EQ(FieldsOf(info).casioTag2034, c.flashDistance) << c.what;
        EXPECT_EQ(FieldsOf(info).casioTag3002, c.quality) << c.what;
        EXPECT_EQ(info.isoSpeed, c.isoSpeed) << c.what;
        EXPECT_EQ(info.pixelYDimension, static_cast<std::int32_t>(NoteFile::kHeight)) << c.what;
    }
}

TEST(CasioNote, IsoOfTheExifDirectoryStands) {
    TiffBuilder tiff(Order::kBig);
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    IfdBuilder& note = tiff.SubIfd();
    ifd.Ascii(0x010F, "CASIO").Link(0x8769, {&exif});
    exif.Short(0x8827, {200}).Undefined(0x927C, FromText("QVC\0\0\0"sv));
    note.Short(0x3014, {50});
    const ImageInfo info = Parse(tiff.Build()).info;
    EXPECT_EQ(info.isoSpeed, 200);
    EXPECT_EQ(FieldsOf(info).casioTag3014, 50);
}

TEST(CasioNote, HomeTownIsBoundedByItsField) {
    for (const std::size_t length : {24u, 31u, 32u, 33u, 4000u}) {
        CasioFile file;
        file.Note().Undefined(0x3006, Bytes(length, 'T')).Short(0x3007, {4});
        const ImageInfo info = file.Info();
        EXPECT_EQ(FieldText(FieldsOf(info).casioTag3006),
                  std::string(std::min<std::size_t>(length, 32), 'T'));
        EXPECT_EQ(FieldsOf(info).casioTag3007, 4);
    }
}

// A little-endian file: the count alone is little-endian.
TEST(CasioNote, EntriesAreBigEndianInEveryFile) {
    const Bytes note = ByteWriter(Order::kBig)
                           .Raw(FromText("QVC\0\0\0"sv))
                           .U8(1)
                           .U8(0)
                           .U16(0x3002)
                           .U16(3)
                           .U32(1)
                           .U16(2)
                           .U16(0)
                           .bytes;
    TiffBuilder tiff(Order::kLittle);
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    ifd.Ascii(0x010F, "CASIO").Link(0x8769, {&exif});
    exif.Undefined(0x927C, note).Long(0xA002, {4000});
    const ImageInfo info = Parse(tiff.Build()).info;
    EXPECT_EQ(FieldsOf(info).casioTag3002, 2);
    EXPECT_EQ(info.pixelXDimension, 4000);
}

Bytes Deliver(const Bytes& file) {
    BytesContext context(file);
    MemoryStream stream;
    context.ctx.outStream = &stream;
    ParseContainer(context.ctx, false);
    return stream.bytes;
}

// In a JPEG file the TIFF header stands at 12: the offset counts from it, or from the file's start.
TEST(CasioNote, PreviewIsWhereAFrameHeaderAnswers) {
    constexpr std::uint32_t kTiffHeader = 12;
    const Bytes jpeg = JpegStream(Segment(0xDB, Bytes(6)), 320, 240);
    const auto photo = [&](std::uint32_t offset) {
        CasioFile file;
        file.Note()
            .Short(0x0002, {320, 240})
            .Long(0x0003, {static_cast<std::uint32_t>(jpeg.size())})
            .Long(0x0004, {offset});
        file.Tiff().Trailer(jpeg);
        return file.Build();
    };
    const auto position = static_cast<std::uint32_t>(photo(0).size() - jpeg.size());
    EXPECT_EQ(Deliver(ExifJpeg(photo(position))), jpeg);
    EXPECT_EQ(Deliver(ExifJpeg(photo(position + kTiffHeader))), jpeg);
    EXPECT_EQ(Deliver(photo(position)), jpeg);
    for (const std::uint32_t nowhere : {0u, position - 7, position + 400, 0x7FFFFFFFu, 0xFFFFFFF4u})
        EXPECT_EQ(Deliver(ExifJpeg(photo(nowhere))), Bytes()) << nowhere;
}

TEST(CasioNote, SurvivesBeingCutAnywhere) {
    CasioFile file;
    file.Note()
        .Long(0x0003, {30})
        .Long(0x0004, {40})
        .Short(0x2011, {87, 93})
        .Ascii(0x3006, "New York")
        .Short(0x3014, {50});
    const Bytes whole = file.Build();
    for (std::size_t size = 0; size < whole.size(); ++size)
        Deliver({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
}

}  // namespace
}  // namespace qmx::test
