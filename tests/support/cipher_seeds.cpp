#include "support/cipher_seeds.h"

#include <algorithm>
#include <span>

#include "makernote/nikon_cipher.h"
#include "support/note_file.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;

std::uint32_t SizeOf(const Bytes& bytes) { return static_cast<std::uint32_t>(bytes.size()); }

Bytes Preview() { return JpegStream(Segment(0xDB, Bytes(240)), 64, 48); }

void Put(Bytes& block, std::size_t at, const Bytes& bytes) {
    std::copy(bytes.begin(), bytes.end(), block.begin() + static_cast<std::ptrdiff_t>(at));
}

Bytes Photo(const char* make, const char* model, const Bytes& note) {
    TiffBuilder tiff;
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    ifd.Ascii(0x010F, make).Ascii(0x0110, model).Link(0x8769, {&exif});
    exif.Undefined(0x927C, note);
    return ExifJpeg(tiff.Build());
}

// ---- Nikon.

struct NikonLens {
    const char* version;
    std::size_t bytes;
    std::size_t lensAt, nameAt, zNumberAt;  // 0: none
    const char* model;
    const char* serial = "2188172";
};

constexpr NikonLens kNikonLenses[] = {
    {"0100", 20, 6, 0, 0, "NIKON D100"},        {"0101", 31, 11, 0, 0, "NIKON D70"},
    {"0201", 31, 11, 0, 0, "NIKON D50", "D50"}, {"0201", 31, 11, 0, 0, "NIKON D200", "       "},
    {"0202", 32, 11, 0, 0, "NIKON D80"},        {"0203", 32, 11, 0, 0, "NIKON D300"},
    {"0204", 33, 12, 0, 0, "NIKON D90"},        {"0400", 459, 0, 394, 0, "NIKON 1 V1"},
    {"0401", 459, 0, 394, 0, "NIKON 1 J2"},     {"0402", 460, 0, 395, 0, "NIKON 1 S1"},
    {"0403", 879, 0, 684, 0, "NIKON 1 J5"},     {"0800", 108, 13, 0, 48, "NIKON Z 6"},
    {"0801", 108, 13, 0, 48, "NIKON Z 50"},     {"0802", 108, 0, 0, 48, "NIKON Z 9"},
};

constexpr std::uint32_t kNikonReleases = 4044;

// As the camera stores it.
Bytes NikonLensData(const NikonLens& lens) {
    Bytes block(lens.bytes);
    Put(block, 0, FromText(lens.version));
    if (lens.lensAt != 0) Put(block, lens.lensAt, {0xA5, 0x40, 0x3C, 0x8E, 0x2C, 0x3C, 0xA7});
    if (lens.nameAt != 0) Put(block, lens.nameAt, FromText("1 NIKKOR VR 10-30mm f/3.5-5.6"));
    if (lens.zNumberAt != 0) Put(block, lens.zNumberAt, {9, 0});
    const std::uint32_t serial = lens.serial[0] == 'D'   ? 0x22
                                 : lens.serial[0] == ' ' ? 0x60
                                                         : 2188172;
    if (lens.version[1] >= '2') DecipherNikon(std::span(block).subspan(4), serial, kNikonReleases);
    return block;
}

Bytes NikonNote(const NikonLens& lens, Order order, std::string_view header) {
    TiffBuilder inner(order);
    IfdBuilder& note = inner.Ifd();
    IfdBuilder& preview = inner.SubIfd();
    const std::string_view control = lens.version[1] < '2'   ? "0100"
                                     : lens.version[1] < '8' ? "0200"
                                                             : "0300";
    Bytes settings(control == "0300" ? 108 : 68, 0x81);
    Put(settings, 0, FromText(control));
    Put(settings, control == "0300" ? 8 : 4, FromText("VIVID\0"sv));
    note.Undefined(0x0001, FromText("0210"))
        .Short(0x0002, {0, 200})
        .Ascii(0x0005, "PRESET0     ")
        .Undefined(0x0012, {0xFB, 1, 3, 0})
        .Link(0x0011, {&preview})
        .Ascii(0x001D, lens.serial)
        .Undefined(0x0023, settings)
        .Undefined(0x0035, FromText("0100\1\2\3\0"sv))
        .Byte(0x0083, {14})
        .Rational(0x0084, {{28}, {300}, {35, 10}, {56, 10}})
        .Undefined(0x0088, {1, 3, 4, 8})
        .Undefined(0x0098, NikonLensData(lens))
        .Short(0x009E, {3, 7, 0, 0, 5})
        .Long(0x00A7, {kNikonReleases})
        .Undefined(0x00B7, FromText("0101\0\10\1\27"sv))
        .Undefined(0x00B8, {48, 49, 48, 48, 0, 0, 0, 101, 0x12, 0x34});
    preview.Short(0x0103, {6}).Data(0x0201, Preview()).Long(0x0202, {SizeOf(Preview())});
    return FromText(header) + inner.Build();
}

// The numbering of the cameras before the inner header, and of those that had no header at all.
Bytes OldNikonDirectory(bool hasHeader) {
    ByteWriter note(Order::kLittle);
    if (hasHeader) note.Raw(FromText("Nikon\0\1\0"sv));
    note.U16(2).U16(3).U16(3).U32(1).U32(12).U16(7).U16(3).U32(1).U32(2).U32(0);
    return note.bytes;
}

void AddNikon(std::vector<SeedFile>& seeds) {
    for (const NikonLens& lens : kNikonLenses) {
        const bool odd = seeds.size() % 2 != 0;
        const Bytes note = NikonNote(lens, odd ? Order::kLittle : Order::kBig,
                                     odd ? "Nikon\0\2\x10\0\0"sv : "Nikon\0\2\0\0\0"sv);
        seeds.push_back(
            {std::string("nikon-") + lens.version + "-" + std::to_string(seeds.size()) + ".jpg",
             Photo("NIKON CORPORATION", lens.model, note)});
    }
    seeds.push_back({"nikon-first.jpg", Photo("NIKON", "E950", OldNikonDirectory(true))});
    seeds.push_back({"nikon-bare.jpg", Photo("NIKON", "E775", OldNikonDirectory(false))});
}

// ---- Sony.

std::uint8_t SonyStoredByte(std::uint32_t plain) {
    return static_cast<std::uint8_t>(plain < 249 ? plain * plain * plain % 249 : plain);
}

struct SonyBlock {
    const char* model;
    std::uint16_t tag;
    std::size_t bytes;
    std::uint8_t first;  // of 0x9405, as stored
    std::size_t at;
    Bytes plain;
};

std::vector<SonyBlock> SonyBlocks() {
    return {
        {"ILCE-6000", 0x9405, 0x700, 0x1B, 0x604, {2, 0x10, 0x80, 0, 0, 0}},
        {"SLT-A58", 0x9405, 0x700, 0x7D, 0x604, {1, 0, 0, 0, 0x31, 0}},
        {"ILCE-7M3", 0x9405, 0x100, 0x3A, 0x5E, {2, 0, 0x19, 0x80, 0, 0}},
        {"NEX-6", 0x940C, 64, 0, 0x08, {4, 0x10, 0x80}},
        {"NEX-6", 0x9050, 944, 0, 0x105, {2, 0, 0x11, 0x80, 0, 0}},
        {"ILCE-7RM3", 0x9050, 3072, 0, 0x105, {1, 0, 0, 0, 0x31, 0}},
        {"ILCE-7M4", 0x9416, 0x100, 0, 0x4A, {2, 0x22, 0x80, 0, 0}},
    };
}

void FillSony(IfdBuilder& note, TiffBuilder& tiff, const char* model) {
    note.Long(0x0102, {2})
        .SRational(0x0104, {{-3, 10}})
        .Undefined(0x2001, Bytes(32) + Preview())
        .Value(0x2004, 9, 1, {0xFE, 0xFF, 0xFF, 0xFF})
        .Long(0x200A, {0x00010011})
        .Byte(0x201C, {4})
        .Ascii(0xB020, "Vivid")
        .Byte(0xB02A, {0xC3, 0, 0x16, 0, 0x50, 0x35, 0x56, 0})
        .Short(0xB054, {5});
    if (model != "DSLR-A100"sv) {
        note.Long(0xB027, {65535});
        return;
    }
    IfdBuilder& part = tiff.SubIfd();
    note.Link(0xB028, {&part});
    part.Long(0x010C, {24}).Undefined(0x0114, Bytes(260, 1)).Long(0x0115, {1});
}

// With one block of its own.
Bytes SonyPhoto(const char* model, std::string_view header, std::uint16_t tag, const Bytes& block) {
    constexpr std::uint32_t kFirst = 8;  // where the first directory stands
    const auto bytes = static_cast<std::uint32_t>(header.size()) + SizeOf(block) + 300;
    TiffBuilder tiff;
    IfdBuilder* const first = header.empty() ? &tiff.SubIfd() : nullptr;
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    IfdBuilder& note = first != nullptr ? *first : tiff.SubIfd();
    ifd.Ascii(0x010F, "SONY").Ascii(0x0110, model).Link(0x8769, {&exif});
    if (header.empty()) {
        exif.Raw(0x927C, 7, bytes, kFirst);
    } else {
        exif.Value(0x927C, 7, bytes, FromText(header));  // the directory stands right behind it
    }
    note.Undefined(tag, block);
    FillSony(note, tiff, model);
    return tiff.Build();
}

void AddSony(std::vector<SeedFile>& seeds) {
    constexpr std::string_view kHeader = "SONY DSC \0\0\0"sv;
    const auto add = [&seeds](std::string name, const Bytes& tiff) {
        seeds.push_back({"sony-" + name, tiff});
    };
    for (const SonyBlock& block : SonyBlocks()) {
        Bytes stored(block.bytes);
        stored[0] = block.first;
        std::transform(block.plain.begin(), block.plain.end(),
                       stored.begin() + static_cast<std::ptrdiff_t>(block.at), SonyStoredByte);
        const std::string name = std::to_string(block.tag) + "-" + std::to_string(block.bytes) +
                                 "-" + std::to_string(block.first);
        add(name + ".jpg", ExifJpeg(SonyPhoto(block.model, kHeader, block.tag, stored)));
    }
    for (const auto& [model, bytes] : {std::pair{"DSLR-A200", 280},
                                       {"DSLR-A900", 364},
                                       {"DSLR-A330", 332},
                                       {"NEX-5", 1536},
                                       {"SLT-A35", 2048},
                                       {"DSLR-A100", 260}}) {
        Bytes settings(static_cast<std::size_t>(bytes));
        for (std::size_t i = 0; i < settings.size(); ++i)
            settings[i] = static_cast<std::uint8_t>(bytes < 1000 && i % 2 == 0 ? 0 : i);
        const Bytes tiff = SonyPhoto(model, kHeader, 0x0114, settings);
        add(std::to_string(bytes) + ".jpg", ExifJpeg(tiff));
    }
    add("bare.tif", SonyPhoto("ILCE-7M3", "", 0x940C, Bytes(64, 8)));
    add("cam.jpg", ExifJpeg(SonyPhoto("DCR-PC120E", "SONY CAM \0\0\0"sv, 0x0114, Bytes(280))));
}

}  // namespace

std::vector<SeedFile> CipherSeeds() {
    std::vector<SeedFile> seeds;
    AddNikon(seeds);
    AddSony(seeds);
    return seeds;
}

}  // namespace qmx::test
