#include "support/note_seeds.h"

#include <algorithm>
#include <span>

#include "makernote/nikon_cipher.h"
#include "support/note_file.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;

std::uint32_t SizeOf(const Bytes& bytes) { return static_cast<std::uint32_t>(bytes.size()); }

Bytes Preview() { return JpegStream(Segment(0xDB, Bytes(240)), 64, 48); }

Bytes Photo(const char* make, const char* model, const Bytes& note) {
    return ExifJpeg(NoteFile::Build(Order::kBig, make, model, note));
}

// With the value as private data.
Bytes Dng(const char* make, const char* model, const Bytes& value) {
    TiffBuilder tiff;
    tiff.Ifd().Ascii(0x010F, make).Ascii(0x0110, model).Byte(0xC634, {value.begin(), value.end()});
    return tiff.Build();
}

// What `build` makes when it is told where the preview stands that it puts behind everything else.
Bytes PreviewLast(const auto& build) { return build(SizeOf(build(0u)) - SizeOf(Preview())); }

void Put(Bytes& block, std::size_t at, const Bytes& bytes) {
    std::copy(bytes.begin(), bytes.end(), block.begin() + static_cast<std::ptrdiff_t>(at));
}

// clang-format off

// Settings are words that count up from 1, big-endian in every file.
Bytes Minolta(Order order, const char* model, std::uint16_t settingsTag, std::uint32_t wordBytes,
              std::uint32_t bytes) {
    ByteWriter settings(Order::kBig);
    for (std::uint32_t i = 1; i <= bytes / wordBytes; ++i)
        wordBytes == 4 ? settings.U32(i) : settings.U16(i);
    NoteFile file(order, "Minolta Co., Ltd.", "", model);
    file.Note().Undefined(settingsTag, settings.bytes).Undefined(0x0018, Bytes(8))
        .Undefined(0x0081, Preview()).Data(0x0088, Preview()).Long(0x0089, {SizeOf(Preview())})
        .Long(0x0102, {2}).SRational(0x0104, {{-1, 3}}).Long(0x010C, {25500}).Long(0x0115, {1});
    return ExifJpeg(file.Build());
}

// The directories and values of Olympus' notes, the new one's or the old one's.
void FillOlympus(TiffBuilder& tiff, IfdBuilder& note) {
    IfdBuilder& equipment = tiff.SubIfd();
    IfdBuilder& settings = tiff.SubIfd();
    IfdBuilder& processing = tiff.SubIfd();
    IfdBuilder& raw = tiff.SubIfd();
    note.Undefined(0x0100, JpegStream({}, 16, 12)).Long(0x0200, {0, 0, 0}).Ascii(0x0207, "D4040")
        .SRational(0x1001, {{6, 1}}).Short(0x1015, {1, 0}).Long(0x1035, {1})
        .Data(0x1036, Preview()).Long(0x1037, {SizeOf(Preview())}).Link(0x2010, {&equipment})
        .Link(0x2020, {&settings}).Link(0x2040, {&processing}).Link(0x3000, {&raw});
    equipment.Ascii(0x0101, "143008611 ").Byte(0x0201, {0, 0, 5, 0, 0, 0}).Short(0x0205, {760})
        .Short(0x0206, {925}).Short(0x0207, {14}).Short(0x0208, {54})
        .Byte(0x0301, {0, 0, 4, 0, 0, 0});
    settings.Long(0x0100, {1}).Data(0x0101, Preview()).Long(0x0102, {SizeOf(Preview())})
        .Short(0x0301, {1, 64}).Long(0x0304, {0, 0x79798585}).Short(0x0400, {9})
        .Short(0x0500, {18}).Short(0x0503, {2, 0, 5}).Short(0x050A, {8}).Short(0x0600, {5, 2, 1});
    processing.Long(0x0614, {2560}).Long(0x0615, {1920});
    raw.Long(0x0614, {2560}).Short(0x1000, {20});
}

Bytes OlympusOld() {
    NoteFile file(Order::kBig, "OLYMPUS CORPORATION", "OLYMP\0\1\0"sv);
    FillOlympus(file.Tiff(), file.Note());
    // Bodies of that time keep a directory in the value itself.
    const Bytes directory = {0, 1, 0x10, 0, 0, 3, 0, 0, 0, 1, 0, 2, 0, 0, 0, 0, 0, 0};
    file.Note().Undefined(0x2010, directory);
    return ExifJpeg(file.Build());
}

Bytes OlympusNew() {
    TiffBuilder note(Order::kLittle);
    IfdBuilder& directory = note.Header("OLYMPUS\0II\3\0"sv).Ifd();
    FillOlympus(note, directory);
    return note.Build();
}

void FillPentax(IfdBuilder& note, std::uint32_t previewAt) {
    note.Short(0x0002, {64, 48}).Long(0x0003, {SizeOf(Preview())}).Long(0x0004, {previewAt})
        .Undefined(0x0006, {7, 216, 3, 2}).Undefined(0x0007, {12, 1, 23}).Short(0x000C, {2, 63})
        .Short(0x0014, {9}).Long(0x001D, {5000}).Short(0x001F, {1, 0})
        .Undefined(0x0028, {0xFE, 0xE1, 0xFF, 0xED}).Undefined(0x0032, {0, 0, 0, 4})
        .Byte(0x0033, {2, 7, 1}).Byte(0x0034, {0, 0, 0, 1}).Byte(0x003F, {8, 234, 0, 0, 0})
        .Value(0x004D, 6, 2, {0xFD, 0}).Byte(0x005C, {1, 7, 0, 0})
        .Undefined(0x005D, {0xF4, 0x26, 0xED, 0x8D}).Byte(0x0071, {3, 0, 0, 0, 0});
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

// ---- Nikon: every header form and version of the lens data.

struct NikonLens {
    const char* version;
    std::size_t bytes;
    std::size_t lensAt, nameAt, zNumberAt;  // 0: none
    const char* model;
    const char* serial = "2188172";
    std::uint32_t key = 2188172;
};

constexpr NikonLens kNikonLenses[] = {
    {"0100", 20, 6, 0, 0, "NIKON D100"}, {"0101", 31, 11, 0, 0, "NIKON D70"},
    {"0201", 31, 11, 0, 0, "NIKON D50", "D50", 0x22},
    {"0201", 31, 11, 0, 0, "NIKON D200", "       ", 0x60},
    {"0202", 32, 11, 0, 0, "NIKON D80"}, {"0203", 32, 11, 0, 0, "NIKON D300"},
    {"0204", 33, 12, 0, 0, "NIKON D90"}, {"0400", 459, 0, 394, 0, "NIKON 1 V1"},
    {"0401", 459, 0, 394, 0, "NIKON 1 J2"}, {"0402", 460, 0, 395, 0, "NIKON 1 S1"},
    {"0403", 879, 0, 684, 0, "NIKON 1 J5"}, {"0800", 108, 13, 0, 48, "NIKON Z 6"},
    {"0801", 108, 13, 0, 48, "NIKON Z 50"}, {"0802", 108, 0, 0, 48, "NIKON Z 9"},
};

constexpr std::uint32_t kNikonReleases = 4044;

// As the camera stores it.
Bytes NikonLensData(const NikonLens& lens) {
    Bytes block(lens.bytes);
    Put(block, 0, FromText(lens.version));
    if (lens.lensAt != 0) Put(block, lens.lensAt, {0xA5, 0x40, 0x3C, 0x8E, 0x2C, 0x3C, 0xA7});
    if (lens.nameAt != 0) Put(block, lens.nameAt, FromText("1 NIKKOR VR 10-30mm f/3.5-5.6"));
    if (lens.zNumberAt != 0) Put(block, lens.zNumberAt, {9, 0});
    if (lens.version[1] >= '2')
        DecipherNikon(std::span(block).subspan(4), lens.key, kNikonReleases);
    return block;
}

Bytes NikonNote(const NikonLens& lens, Order order) {
    TiffBuilder inner(order);
    IfdBuilder& note = inner.Ifd();
    IfdBuilder& preview = inner.SubIfd();
    const char generation = lens.version[1];
    Bytes settings(generation < '8' ? 68 : 108, 0x81);
    Put(settings, 0, FromText(generation < '2' ? "0100" : generation < '8' ? "0200" : "0300"));
    Put(settings, generation < '8' ? 4 : 8, FromText("VIVID\0"sv));
    note.Undefined(0x0001, FromText("0210")).Short(0x0002, {0, 200}).Ascii(0x0005, "PRESET0     ")
        .Undefined(0x0012, {0xFB, 1, 3, 0}).Link(0x0011, {&preview}).Ascii(0x001D, lens.serial)
        .Undefined(0x0023, settings).Undefined(0x0035, FromText("0100\1\2\3\0"sv))
        .Byte(0x0083, {14}).Rational(0x0084, {{28}, {300}, {35, 10}, {56, 10}})
        .Undefined(0x0088, {1, 3, 4, 8}).Undefined(0x0098, NikonLensData(lens))
        .Short(0x009E, {3, 7, 0, 0, 5}).Long(0x00A7, {kNikonReleases})
        .Undefined(0x00B7, FromText("0101\0\10\1\27"sv))
        .Undefined(0x00B8, {48, 49, 48, 48, 0, 0, 0, 101, 0x12, 0x34});
    preview.Short(0x0103, {6}).Data(0x0201, Preview()).Long(0x0202, {SizeOf(Preview())});
    const auto header = order == Order::kLittle ? "Nikon\0\2\x10\0\0"sv : "Nikon\0\2\0\0\0"sv;
    return FromText(header) + inner.Build();
}

void AddNikon(std::vector<SeedFile>& seeds) {
    for (const NikonLens& lens : kNikonLenses) {
        const auto number = &lens - kNikonLenses;
        const Bytes note = NikonNote(lens, number % 2 != 0 ? Order::kLittle : Order::kBig);
        const std::string name = std::string(lens.version) + "-" + std::to_string(number);
        seeds.push_back({"nikon-" + name + ".jpg", Photo("NIKON CORPORATION", lens.model, note)});
    }
    // The numbering of the cameras before the inner header, and of those that had no header at all.
    const Bytes directory = {2, 0, 3, 0, 3, 0, 1, 0, 0, 0, 12, 0,
                             7, 0, 3, 0, 1, 0, 0, 0, 2, 0, 0, 0, 0, 0};
    const Bytes headed = FromText("Nikon\0\1\0"sv) + directory;
    seeds.push_back({"nikon-first.jpg", Photo("NIKON", "E950", headed)});
    seeds.push_back({"nikon-bare.jpg", Photo("NIKON", "E775", directory)});
}

// ---- Sony: every header form, enciphered block and form of the settings.

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

// With one block of its own.
Bytes SonyPhoto(const char* model, std::string_view header, std::uint16_t tag, const Bytes& block) {
    NoteFile file(Order::kLittle, "SONY", header, model);
    IfdBuilder& note = file.Note();
    note.Undefined(tag, block).Long(0x0102, {2}).SRational(0x0104, {{-3, 10}})
        .Undefined(0x2001, Bytes(32) + Preview()).Value(0x2004, 9, 1, {0xFE, 0xFF, 0xFF, 0xFF})
        .Long(0x200A, {0x00010011}).Byte(0x201C, {4}).Ascii(0xB020, "Vivid")
        .Byte(0xB02A, {0xC3, 0, 0x16, 0, 0x50, 0x35, 0x56, 0}).Short(0xB054, {5});
    if (model == "DSLR-A100"sv) {
        IfdBuilder& part = file.Tiff().SubIfd();
        note.Link(0xB028, {&part});
        part.Long(0x010C, {24}).Undefined(0x0114, Bytes(260, 1)).Long(0x0115, {1});
    } else {
        note.Long(0xB027, {65535});
    }
    return file.Build();
}

void AddSony(std::vector<SeedFile>& seeds) {
    constexpr std::string_view kHeader = "SONY DSC \0\0\0"sv;
    const auto add = [&seeds](const std::string& name, const Bytes& tiff) {
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
    for (const auto& [model, bytes] :
         {std::pair{"DSLR-A200", 280}, {"DSLR-A900", 364}, {"DSLR-A330", 332}, {"NEX-5", 1536},
          {"SLT-A35", 2048}, {"DSLR-A100", 260}}) {
        Bytes settings(static_cast<std::size_t>(bytes));
        for (std::size_t i = 0; i < settings.size(); ++i)
            settings[i] = static_cast<std::uint8_t>(bytes < 1000 && i % 2 == 0 ? 0 : i);
        const Bytes tiff = SonyPhoto(model, kHeader, 0x0114, settings);
        add(std::to_string(bytes) + ".jpg", ExifJpeg(tiff));
    }
    add("bare.tif", SonyPhoto("ILCE-7M3", "", 0x940C, Bytes(64, 8)));
    add("cam.jpg", ExifJpeg(SonyPhoto("DCR-PC120E", "SONY CAM \0\0\0"sv, 0x0114, Bytes(280))));
}

// clang-format on

}  // namespace

std::vector<SeedFile> NoteSeeds() {
    const Bytes pentax = PentaxBlock("PENTAX \0MM"sv);
    std::vector<SeedFile> seeds = {
        {"minolta-7hi.jpg", Minolta(Order::kBig, "DiMAGE 7Hi", 0x0003, 4, 256)},
        {"minolta-7d.jpg", Minolta(Order::kLittle, "DYNAX 7D", 0x0004, 2, 294)},
        {"minolta-5d.jpg", Minolta(Order::kLittle, "DYNAX 5D", 0x0114, 2, 448)},
        {"olympus-old.jpg", OlympusOld()},
        {"olympus-new.jpg", Photo("OLYMPUS IMAGING CORP.", "E-P3", OlympusNew())},
        {"pentax-aoc.jpg", ExifJpeg(PreviewLast(PentaxAoc))},
        {"pentax-ricoh.jpg", Photo("RICOH IMAGING COMPANY, LTD.", "PENTAX K-3", pentax)},
        {"pentax.dng", Dng("PENTAX", "PENTAX K-7", pentax)},
        {"samsung.dng", Dng("SAMSUNG", "SAMSUNG GX20", PentaxBlock("SAMSUNG\0MM"sv))},
        {"ricoh.jpg", ExifJpeg(PreviewLast(Ricoh))},
        {"photoshop.tif", Photoshop()},
    };
    AddNikon(seeds);
    AddSony(seeds);
    return seeds;
}

}  // namespace qmx::test
