#include "support/seed_files.h"

#include "support/ciff_builder.h"
#include "support/note_file.h"
#include "support/x3f_builder.h"

namespace qmx::test {
namespace {

std::uint32_t SizeOf(const Bytes& bytes) { return static_cast<std::uint32_t>(bytes.size()); }

// An entry count and one SHORT entry, as most MakerNotes begin.
Bytes NoteDirectory(Order order) {
    return ByteWriter(order).U16(1).U16(1).U16(3).U32(1).U32(7).U32(0).bytes;
}

Bytes WithNote(Order order, const char* make, const char* model, const Bytes& note) {
    TiffBuilder tiff(order);
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    ifd.Ascii(0x010F, make).Ascii(0x0110, model).Link(0x8769, {&exif});
    exif.Undefined(0x927C, note).Long(0xA002, {4000}).Long(0xA003, {3000});
    return ExifJpeg(tiff.Build());
}

Bytes Uncompressed(Order order, const char* make, std::uint32_t photometric) {
    TiffBuilder tiff(order);
    tiff.Ifd().Ascii(0x010F, make).Ascii(0x0110, "ZD").Short(0x0112, {3});
    tiff.Ifd()
        .Long(0x0100, {3})
        .Long(0x0101, {2})
        .Short(0x0102, {8, 8, 8})
        .Short(0x0103, {1})
        .Short(0x0106, {photometric})
        .Data(0x0111, Bytes(18, 99))
        .Long(0x0117, {9, 9})
        .Short(0x011C, {1})
        .Rational(0x0211, {{299, 1000}, {587, 1000}, {114, 1000}})
        .Short(0x0212, {2, 1});
    return tiff.Build();
}

Bytes Raf() {
    const Bytes jpeg = FullPhoto(Order::kLittle);
    return ByteWriter(Order::kBig)
        .Raw(FromText("FUJIFILMCCD-RAW "))
        .Pad(84)
        .U32(100)
        .U32(SizeOf(jpeg))
        .Pad(100)
        .Raw(jpeg)
        .bytes;
}

Bytes PanasonicRaw() {
    TiffBuilder tiff;
    tiff.Ifd()
        .Short(0x0017, {100})
        .Undefined(0x002E, JpegStream({}, 1920, 1440))
        .Ascii(0x010F, "Panasonic")
        .Ascii(0x0110, "DMC-LX3");
    return tiff.Build();
}

Bytes SigmaPhoto() {
    using namespace std::string_view_literals;
    const Bytes preview = JpegStream({}, 64, 48);
    NoteFile file(Order::kLittle, "SIGMA", "SIGMA\0\0\0\1\0"sv);
    file.Note()
        .Ascii(0x0003, "SINGLE")
        .Ascii(0x0007, "Sunlight")
        .Data(0x001A, preview)
        .Long(0x001B, {SizeOf(preview)})
        .Short(0x001C, {64, 48})
        .Rational(0x0032, {{4, 10}})
        .Ascii(0x003C, "Sunlight+");
    file.Tiff().Trailer(JpegStream({}, 160, 120));
    return ExifJpeg(file.Build());
}

Bytes CasioPhoto() {
    using namespace std::string_view_literals;
    const Bytes preview = JpegStream({}, 320, 240);
    NoteFile file(Order::kBig, "CASIO", "QVC\0\0\0"sv);
    file.Note()
        .Long(0x0003, {SizeOf(preview)})
        .Data(0x0004, preview)
        .Short(0x2011, {87, 93})
        .Ascii(0x3006, "New York")
        .Undefined(0x3011, {0xFF, 0xFC})
        .Short(0x3014, {50});
    return ExifJpeg(file.Build());
}

Bytes Mrw() {
    TiffBuilder tiff(Order::kLittle);
    const Bytes preview = JpegStream({}, 64, 48);
    tiff.Ifd()
        .Ascii(0x010F, "KONICA MINOLTA")
        .Ascii(0x0110, "DiMAGE A2")
        .Data(0x0201, preview)
        .Long(0x0202, {SizeOf(preview)});
    const Bytes structure = tiff.Build();
    const Bytes blocks = ByteWriter(Order::kBig)
                             .U32(0x00505244)  // PRD
                             .U32(24)
                             .Pad(32)
                             .U32(0x00545457)  // TTW
                             .U32(SizeOf(structure))
                             .Raw(structure)
                             .bytes;
    return ByteWriter(Order::kBig).U8(0).Raw(FromText("MRM")).U32(SizeOf(blocks)).Raw(blocks).bytes;
}

// Previews of every kind; the smallest is the coded one or the plain one.
Bytes X3f(bool coded) {
    const Bytes pixels = {255, 1, 2, 3, 254, 2, 7, 8, 9, 7, 8, 200};
    X3fBuilder file;
    file.version = 0x20003;
    file.extended = ExtendedHeader({"Auto", "Standard"}, {1, 7, 8, 9, 10}, {0.5f, 0, 0, 0, -1.5f});
    const X3fPicture small = coded ? X3fPicture{2, 11, 2, 2, 0, CodedPixels(2, 2, pixels)}
                                   : X3fPicture{2, 3, 2, 1, 8, pixels};
    return file.Section("IMAG", ImageSection(small))
        .Section("IMA2", ImageSection({2, 18, 9, 9, 0, JpegStream({}, 9, 9)}))
        .Section("PROP", PropertyList({{"CAMMANUF", "SIGMA"},
                                       {"SH_DESC", "1/180"},
                                       {"PMODE", "P"},
                                       {"TIME", "978309395"},
                                       {"FLENGTH", "24.2"}}))
        .Build();
}

}  // namespace

Bytes FullPhoto(Order order) {
    const Bytes thumbnail = JpegStream(Segment(0xDB, Bytes(5)), 16, 12);
    TiffBuilder tiff(order);
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    IfdBuilder& gps = tiff.SubIfd();
    IfdBuilder& sub = tiff.SubIfd();
    ifd.Ascii(0x010F, "Panasonic")
        .Ascii(0x0110, "DMC-FZ30")
        .Short(0x0112, {6})
        .Ascii(0x0131, "Ver.1.0")
        .Link(0x014A, {&sub, &sub})
        .Link(0x8769, {&exif})
        .Link(0x8825, {&gps});
    exif.Rational(0x829A, {{1, 250}})
        .Rational(0x829D, {{28, 10}})
        .Short(0x8822, {2})
        .Short(0x8827, {200})
        .Ascii(0x9003, "2008:07:31 12:34:56")
        .SRational(0x9201, {{8, 1}})
        .SRational(0x9204, {{1, 3}})
        .Short(0x9209, {25})
        .Rational(0x920A, {{74, 10}})
        .Undefined(0x927C, FromText("Panasonic") + Bytes(3) + NoteDirectory(order))
        .Short(0xA001, {1})
        .Short(0xA402, {0})
        .Short(0xA403, {1})
        .Rational(0xA404, {{2, 1}});
    gps.Ascii(1, "N")
        .Rational(2, {{35, 1}, {39, 1}, {2915, 100}})
        .Rational(7, {{3, 1}, {4, 1}, {11, 2}})
        .Ascii(29, "2008:07:31");
    sub.Long(0x0100, {2})
        .Long(0x0101, {2})
        .Short(0x0102, {8, 8, 8})
        .Short(0x0103, {1})
        .Short(0x0106, {2})
        .Data(0x0111, Bytes(12, 9))
        .Long(0x0117, {6, 6});
    tiff.Ifd().Data(0x0201, thumbnail).Long(0x0202, {SizeOf(thumbnail)});
    return ExifJpeg(tiff.Build());
}

std::vector<SeedFile> SeedFiles() {
    using namespace std::string_view_literals;
    constexpr Order kLittle = Order::kLittle;
    constexpr Order kBig = Order::kBig;
    const Bytes little = NoteDirectory(kLittle);
    const Bytes big = NoteDirectory(kBig);
    const auto note = [](std::string_view header, const Bytes& directory) {
        return FromText(header) + directory;
    };
    return {
        {"photo-little.jpg", FullPhoto(kLittle)},
        {"photo-big.jpg", FullPhoto(kBig)},
        {"rgb.tif", Uncompressed(kBig, "ACME", 2)},
        {"rgb-mamiya.tif", Uncompressed(kLittle, "Mamiya", 2)},
        {"ycbcr.tif", Uncompressed(kLittle, "ACME", 6)},
        {"fujifilm.raf", Raf()},
        {"panasonic.rw2", PanasonicRaw()},
        {"canon.jpg", WithNote(kLittle, "Canon", "Canon EOS 5D", little)},
        {"nikon.jpg",
         WithNote(kLittle, "NIKON", "NIKON D70", note("Nikon\0\2\0\0\0MM\0*\0\0\0\10"sv, big))},
        {"fujifilm.jpg", WithNote(kBig, "FUJIFILM", "X100", note("FUJIFILM\14\0\0\0"sv, little))},
        {"sony.jpg", WithNote(kLittle, "SONY", "DSLR-A100", note("SONY DSC \0\0\0"sv, little))},
        {"canon.crw", FullCiff(kLittle, JpegStream({}, 64, 48))},
        {"canon-big.crw", FullCiff(kBig, Bytes(9))},
        {"sigma.jpg", SigmaPhoto()},
        {"casio.jpg", CasioPhoto()},
        {"sigma.x3f", X3f(true)},
        {"sigma-plain.x3f", X3f(false)},
        {"minolta.mrw", Mrw()},
    };
}

}  // namespace qmx::test
