#include "support/seed_files.h"

#include "support/ciff_builder.h"
#include "support/note_file.h"
#include "support/x3f_builder.h"

namespace qmx::test {
namespace {

// An entry count and one SHORT entry, as most MakerNotes begin.
Bytes NoteDirectory(Order order) {
    return ByteWriter(order).U16(1).U16(1).U16(3).U32(1).U32(7).U32(0).bytes;
}

Bytes WithNote(Order order, const char* make, const char* model, const Bytes& note) {
    TiffBuilder tiff(order);
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    ifd.Camera(make, model).Link(0x8769, {&exif});
    exif.Undefined(0x927C, note).Long(0xA002, {4000}).Long(0xA003, {3000});
    return ExifJpeg(tiff.Build());
}

Bytes Uncompressed(Order order, const char* make, std::uint32_t photometric) {
    TiffBuilder tiff(order);
    tiff.Ifd().Camera(make, "ZD").Short(0x0112, {3});
    IfdBuilder& ifd = tiff.Ifd();
    ifd.Long(0x0100, {3}).Long(0x0101, {2}).Short(0x0102, {8, 8, 8}).Short(0x0103, {1});
    ifd.Short(0x0106, {photometric}).Data(0x0111, Bytes(18, 99)).Long(0x0117, {9, 9});
    ifd.Short(0x011C, {1}).Rational(0x0211, {{299, 1000}, {587, 1000}, {114, 1000}});
    ifd.Short(0x0212, {2, 1});
    return tiff.Build();
}

Bytes Raf() {
    const Bytes jpeg = FullPhoto(Order::kLittle);
    ByteWriter raf(Order::kBig);
    raf.Raw(FromText("FUJIFILMCCD-RAW ")).Pad(84).U32(100);
    return raf.U32(static_cast<std::uint32_t>(jpeg.size())).Pad(100).Raw(jpeg).bytes;
}

Bytes PanasonicRaw() {
    TiffBuilder tiff;
    tiff.Ifd()
        .Short(0x0017, {100})
        .Undefined(0x002E, JpegStream({}, 1920, 1440))
        .Camera("Panasonic", "DMC-LX3");
    return tiff.Build();
}

Bytes SigmaPhoto() {
    using namespace std::string_view_literals;
    const Bytes preview = JpegStream({}, 64, 48);
    NoteFile file(Order::kLittle, "SIGMA", "SIGMA\0\0\0\1\0"sv);
    file.Note().Ascii(0x0003, "SINGLE").Ascii(0x0007, "Sunlight").Data(0x001A, preview);
    file.Note().Long(0x001B, {static_cast<std::uint32_t>(preview.size())});
    file.Note().Short(0x001C, {64, 48}).Rational(0x0032, {{4, 10}}).Ascii(0x003C, "Sunlight+");
    file.Tiff().Trailer(JpegStream({}, 160, 120));
    return ExifJpeg(file.Build());
}

Bytes CasioPhoto() {
    using namespace std::string_view_literals;
    const Bytes preview = JpegStream({}, 320, 240);
    NoteFile file(Order::kBig, "CASIO", "QVC\0\0\0"sv);
    file.Note().Long(0x0003, {static_cast<std::uint32_t>(preview.size())}).Data(0x0004, preview);
    file.Note().Short(0x2011, {87, 93}).Ascii(0x3006, "New York");
    file.Note().Undefined(0x3011, {0xFF, 0xFC}).Short(0x3014, {50});
    return ExifJpeg(file.Build());
}

Bytes Mrw() {
    TiffBuilder tiff(Order::kLittle);
    tiff.Ifd().Camera("KONICA MINOLTA", "DiMAGE A2").Preview(JpegStream({}, 64, 48));
    ByteWriter blocks(Order::kBig);
    blocks.U32(0x00505244).Sized(Bytes(24));     // PRD
    blocks.U32(0x00545457).Sized(tiff.Build());  // TTW
    return ByteWriter(Order::kBig).U8(0).Raw(FromText("MRM")).Sized(blocks.bytes).bytes;
}

// Previews of every kind; the smallest is the coded one or the plain one.
Bytes X3f(bool coded) {
    const Bytes pixels = {255, 1, 2, 3, 254, 2, 7, 8, 9, 7, 8, 200};
    X3fBuilder file;
    file.version = 0x20003;
    file.extended = ExtendedHeader({"Auto", "Standard"}, {1, 7, 8, 9, 10}, {0.5f, 0, 0, 0, -1.5f});
    const X3fPicture small = coded ? X3fPicture{2, 11, 2, 2, 0, CodedPixels(2, 2, pixels)}
                                   : X3fPicture{2, 3, 2, 1, 8, pixels};
    const Properties properties = {{"CAMMANUF", "SIGMA"},
                                   {"SH_DESC", "1/180"},
                                   {"PMODE", "P"},
                                   {"TIME", "978309395"},
                                   {"FLENGTH", "24.2"}};
    return file.Section("IMAG", ImageSection(small))
        .Section("IMA2", ImageSection({2, 18, 9, 9, 0, JpegStream({}, 9, 9)}))
        .Section("PROP", PropertyList(properties))
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
    ifd.Camera("Panasonic", "DMC-FZ30").Short(0x0112, {6}).Ascii(0x0131, "Ver.1.0");
    ifd.Link(0x014A, {&sub, &sub}).Link(0x8769, {&exif}).Link(0x8825, {&gps});
    exif.Rational(0x829A, {{1, 250}}).Rational(0x829D, {{28, 10}});
    exif.Short(0x8822, {2}).Short(0x8827, {200}).Ascii(0x9003, "2008:07:31 12:34:56");
    exif.SRational(0x9201, {{8, 1}}).SRational(0x9204, {{1, 3}});
    exif.Short(0x9209, {25}).Rational(0x920A, {{74, 10}});
    exif.Undefined(0x927C, FromText("Panasonic") + Bytes(3) + NoteDirectory(order));
    exif.Short(0xA001, {1}).Short(0xA402, {0}).Short(0xA403, {1}).Rational(0xA404, {{2, 1}});
    gps.Ascii(1, "N").Rational(2, {{35, 1}, {39, 1}, {2915, 100}});
    gps.Rational(7, {{3, 1}, {4, 1}, {11, 2}}).Ascii(29, "2008:07:31");
    sub.Long(0x0100, {2}).Long(0x0101, {2}).Short(0x0102, {8, 8, 8}).Short(0x0103, {1});
    sub.Short(0x0106, {2}).Data(0x0111, Bytes(12, 9)).Long(0x0117, {6, 6});
    tiff.Ifd().Preview(thumbnail);
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
    const Bytes nikon = note("Nikon\0\2\0\0\0MM\0*\0\0\0\10"sv, big);
    return {
        {"photo-little.jpg", FullPhoto(kLittle)},
        {"photo-big.jpg", FullPhoto(kBig)},
        {"rgb.tif", Uncompressed(kBig, "ACME", 2)},
        {"rgb-mamiya.tif", Uncompressed(kLittle, "Mamiya", 2)},
        {"ycbcr.tif", Uncompressed(kLittle, "ACME", 6)},
        {"fujifilm.raf", Raf()},
        {"panasonic.rw2", PanasonicRaw()},
        {"canon.jpg", WithNote(kLittle, "Canon", "Canon EOS 5D", little)},
        {"nikon.jpg", WithNote(kLittle, "NIKON", "NIKON D70", nikon)},
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
