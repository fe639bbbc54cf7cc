#include "support/note_seeds.h"

#include "support/note_file.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;

std::uint32_t SizeOf(const Bytes& bytes) { return static_cast<std::uint32_t>(bytes.size()); }

Bytes Preview() { return JpegStream(Segment(0xDB, Bytes(240)), 64, 48); }

// A photo whose note is `value`.
Bytes Photo(const char* make, const char* model, const Bytes& value) {
    TiffBuilder tiff(Order::kBig);
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    ifd.Ascii(0x010F, make).Ascii(0x0110, model).Link(0x8769, {&exif});
    exif.Undefined(0x927C, value);
    return ExifJpeg(tiff.Build());
}

// A DNG with the value as its private data.
Bytes Dng(const char* make, const char* model, const Bytes& value) {
    TiffBuilder tiff;
    tiff.Ifd().Ascii(0x010F, make).Ascii(0x0110, model).Byte(0xC634, {value.begin(), value.end()});
    return tiff.Build();
}

// Words that count up from 1, big-endian in every file.
Bytes MinoltaSettings(std::uint32_t wordBytes, std::uint32_t bytes) {
    ByteWriter block(Order::kBig);
    for (std::uint32_t i = 1; i <= bytes / wordBytes; ++i)
        wordBytes == 4 ? block.U32(i) : block.U16(i);
    return block.bytes;
}

Bytes Minolta(Order order, const char* model, std::uint16_t settingsTag, const Bytes& settings) {
    constexpr std::uint32_t kFirst = 8;  // where the first directory stands: the note, unheaded
    TiffBuilder tiff(order);
    IfdBuilder& note = tiff.SubIfd();
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    ifd.Ascii(0x010F, "Minolta Co., Ltd.").Ascii(0x0110, model).Link(0x8769, {&exif});
    exif.Raw(0x927C, 7, 1000, kFirst);
    note.Undefined(settingsTag, settings)
        .Undefined(0x0018, Bytes(8))
        .Undefined(0x0081, Preview())
        .Data(0x0088, Preview())
        .Long(0x0089, {SizeOf(Preview())})
        .Long(0x0102, {2})
        .SRational(0x0104, {{-1, 3}})
        .Long(0x010C, {25500})
        .Long(0x0115, {1});
    return ExifJpeg(tiff.Build());
}

// What `build` makes when it is told where the preview stands that it puts behind everything else.
Bytes PreviewLast(const auto& build) { return build(SizeOf(build(0u)) - SizeOf(Preview())); }

// The directories and values of Olympus' notes, the new one's or the old one's.
void FillOlympus(TiffBuilder& tiff, IfdBuilder& note) {
    IfdBuilder& equipment = tiff.SubIfd();
    IfdBuilder& settings = tiff.SubIfd();
    IfdBuilder& processing = tiff.SubIfd();
    IfdBuilder& raw = tiff.SubIfd();
    note.Undefined(0x0100, JpegStream({}, 16, 12))
        .Long(0x0200, {0, 0, 0})
        .Ascii(0x0207, "D4040")
        .SRational(0x1001, {{6, 1}})
        .Short(0x1015, {1, 0})
        .Long(0x1035, {1})
        .Data(0x1036, Preview())
        .Long(0x1037, {SizeOf(Preview())})
        .Link(0x2010, {&equipment})
        .Link(0x2020, {&settings})
        .Link(0x2040, {&processing})
        .Link(0x3000, {&raw});
    equipment.Ascii(0x0101, "143008611 ")
        .Byte(0x0201, {0, 0, 5, 0, 0, 0})
        .Short(0x0205, {760})
        .Short(0x0206, {925})
        .Short(0x0207, {14})
        .Short(0x0208, {54})
        .Byte(0x0301, {0, 0, 4, 0, 0, 0});
    settings.Long(0x0100, {1})
        .Data(0x0101, Preview())
        .Long(0x0102, {SizeOf(Preview())})
        .Short(0x0301, {1, 64})
        .Long(0x0304, {0, 0x79798585})
        .Short(0x0400, {9})
        .Short(0x0500, {18})
        .Short(0x0503, {2, 0, 5})
        .Short(0x050A, {8})
        .Short(0x0600, {5, 2, 1});
    processing.Long(0x0614, {2560}).Long(0x0615, {1920});
    raw.Long(0x0614, {2560}).Short(0x1000, {20});
}

Bytes OlympusOld() {
    NoteFile file(Order::kBig, "OLYMPUS CORPORATION", "OLYMP\0\1\0"sv);
    FillOlympus(file.Tiff(), file.Note());
    // Bodies of that time keep a directory in the value itself.
    file.Note().Undefined(
        0x2010,
        ByteWriter(Order::kBig).U16(1).U16(0x1000).U16(3).U32(1).U16(2).U16(0).U32(0).bytes);
    return ExifJpeg(file.Build());
}

Bytes OlympusNew() {
    TiffBuilder note(Order::kLittle);
    IfdBuilder& directory = note.Header("OLYMPUS\0II\3\0"sv).Ifd();
    FillOlympus(note, directory);
    return note.Build();
}

void FillPentax(IfdBuilder& note, std::uint32_t previewAt) {
    note.Short(0x0002, {64, 48})
        .Long(0x0003, {SizeOf(Preview())})
        .Long(0x0004, {previewAt})
        .Undefined(0x0006, {7, 216, 3, 2})
        .Undefined(0x0007, {12, 1, 23})
        .Short(0x000C, {2, 63})
        .Short(0x0014, {9})
        .Long(0x001D, {5000})
        .Short(0x001F, {1, 0})
        .Undefined(0x0028, {0xFE, 0xE1, 0xFF, 0xED})
        .Undefined(0x0032, {0, 0, 0, 4})
        .Byte(0x0033, {2, 7, 1})
        .Byte(0x0034, {0, 0, 0, 1})
        .Byte(0x003F, {8, 234, 0, 0, 0})
        .Value(0x004D, 6, 2, {0xFD, 0})
        .Byte(0x005C, {1, 7, 0, 0})
        .Undefined(0x005D, {0xF4, 0x26, 0xED, 0x8D})
        .Byte(0x0071, {3, 0, 0, 0, 0});
}

Bytes PentaxAoc(std::uint32_t previewAt) {
    NoteFile file(Order::kLittle, "PENTAX Corporation", "AOC\0II"sv);
    FillPentax(file.Note(), previewAt);
    return file.Tiff().Trailer(Preview()).Build();
}

// The form whose offsets count from its own start.
Bytes PentaxBlock(std::string_view header) {
    return PreviewLast([&](std::uint32_t previewAt) {
        TiffBuilder note(Order::kBig);
        FillPentax(note.Header(header).Ifd(), previewAt);
        return note.Trailer(Preview()).Build();
    });
}

Bytes Ricoh(std::uint32_t previewAt) {
    NoteFile file(Order::kBig, "RICOH", "Ricoh\0\0\0"sv);
    ByteWriter block(Order::kBig);
    block.U16(3264).U16(2448).Pad(28).U16(previewAt).U16(SizeOf(Preview()));
    block.U8(2).U8(1).U8(0).Pad(38).U8(3).U8(7).U8(6).U8(4);
    file.Note().Undefined(0x1001, block.bytes).Long(0x1003, {1});
    return file.Tiff().Trailer(Preview()).Build();
}

Bytes Photoshop() {
    const Bytes thumbnail = ByteWriter(Order::kBig).U32(1).Pad(28).Raw(Preview()).bytes;
    ByteWriter resources(Order::kBig);
    resources.Raw(FromText("8BIM")).U16(1005).U8(2).Raw(FromText("ab")).U8(0).U32(3).Pad(18);
    resources.Raw(FromText("8BIM")).U16(1036).U16(0).U32(SizeOf(thumbnail)).Raw(thumbnail);
    TiffBuilder tiff;
    tiff.Ifd().Ascii(0x010F, "ACME").Ascii(0x0110, "One").Undefined(0x8649, resources.bytes);
    return tiff.Build();
}

}  // namespace

std::vector<SeedFile> NoteSeeds() {
    return {
        {"minolta-7hi.jpg", Minolta(Order::kBig, "DiMAGE 7Hi", 0x0003, MinoltaSettings(4, 256))},
        {"minolta-7d.jpg", Minolta(Order::kLittle, "DYNAX 7D", 0x0004, MinoltaSettings(2, 294))},
        {"minolta-5d.jpg", Minolta(Order::kLittle, "DYNAX 5D", 0x0114, MinoltaSettings(2, 448))},
        {"olympus-old.jpg", OlympusOld()},
        {"olympus-new.jpg", Photo("OLYMPUS IMAGING CORP.", "E-P3", OlympusNew())},
        {"pentax-aoc.jpg", ExifJpeg(PreviewLast(PentaxAoc))},
        {"pentax-ricoh.jpg",
         Photo("RICOH IMAGING COMPANY, LTD.", "PENTAX K-3", PentaxBlock("PENTAX \0MM"sv))},
        {"pentax.dng", Dng("PENTAX", "PENTAX K-7", PentaxBlock("PENTAX \0MM"sv))},
        {"samsung.dng", Dng("SAMSUNG", "SAMSUNG GX20", PentaxBlock("SAMSUNG\0MM"sv))},
        {"ricoh.jpg", ExifJpeg(PreviewLast(Ricoh))},
        {"photoshop.tif", Photoshop()},
    };
}

}  // namespace qmx::test
