// Makers, models and the headers of MakerNotes.

#include <gtest/gtest.h>

#include <cstring>

#include "makernote/maker_identity.h"
#include "makernote/model_identity.h"
#include "support/parse.h"

namespace qmx::test {
namespace {

TEST(Maker, FollowsFromTheMake) {
    struct Case {
        const char* make;
        std::uint32_t maker;
    };
    const Case cases[] = {
        {"Canon", 1},
        {"Canonical", 1},
        {"canon", 0},
        {"NIKON", 2},
        {"NIKON CORPORATION", 2},
        {"Nikon", 0},
        {"Minolta Co., Ltd.", 3},
        {"KONICA MINOLTA", 3},
        {"Konica Minolta Camera", 3},
        {"MINOLTA CO.,LTD", 0},
        {"Estman", 4},
        {"EASTMAN KODAK COMPANY", 0},
        {"OLYMPUS IMAGING CORP.", 5},
        {"SONY", 6},
        {"Sony", 0},
        {"FUJIFILM", 7},
        {"CASIO COMPUTER CO.,LTD.", 8},
        {"Ricoh Imaging", 9},
        {"Panasonic", 10},
        {"SANYO Electric Co.,Ltd.", 12},
        {"pentax", 13},
        {"Pentax Corporation", 13},
        {"SIGMA", 14},
        {"SEIKO EPSON CORP.", 15},
        {"MAMIYA-OP", 16},
        {"Leica Camera AG", 17},
        {"Samsung Techwin", 18},
        {"kddi-ca", 19},
        {"Hasselblad", 20},
        {"ACME", 0},
        {"", 0},
        {"KDDI", 0},
    };
    for (const Case& c : cases) {
        BytesContext context({});
        std::strcpy(context.ctx.info.cameraMake, c.make);
        IdentifyMaker(context.ctx);
        EXPECT_EQ(context.ctx.info.makerId, c.maker) << c.make;
    }
}

TEST(Model, HasItsNumber) {
    struct Case {
        MakerId maker;
        const char* model;
        std::int32_t modelId;
    };
    const Case cases[] = {
        {kMakerCanon, "Canon EOS 5D", 4125},
        {kMakerCanon, "Canon EOS 5D Mark II", 4126},
        {kMakerCanon, "EOS DIGITAL REBEL XT", 4101},
        {kMakerCanon, "Canon EOS Kiss Digital  ", 4100},
        {kMakerCanon, "Canon PowerShot Pro1", 526},
        {kMakerCanon, "Canon PowerShot S30", 517},
        {kMakerCanon, "Canon PowerShot S300", 512},
        {kMakerCanon, "Canon PowerShot G1 X", 512},
        {kMakerCanon, "Canon DIGITAL IXUS 400", 512},
        {kMakerCanon, "Canon EOS D2000C", 4096},
        {kMakerCanon, "Canon EOS R5", 4159},
        {kMakerCanon, "CanoScan", 0},
        {kMakerNikon, "NIKON D70", 4102},
        {kMakerNikon, "NIKON D9999", 4096},
        {kMakerNikon, "E5700", 256},
        {kMakerMinolta, "DYNAX 7D", 4098},
        {kMakerMinolta, "ALPHA-7 DIGITAL", 4098},
        {kMakerSony, "DSLR-A100", 8448},
        {kMakerSony, "DSC-P200", 256},
        {kMakerFujifilm, "FinePixS2Pro", 8193},
        {kMakerFujifilm, "FinePix S5Pro  ", 8195},
        {kMakerFujifilm, "FinePix S200EXR", 4103},
        {kMakerFujifilm, "FinePix F200EXR", 257},
        {kMakerFujifilm, "X-Pro1", 257},
        {kMakerFujifilm, "X100T", 257},
        {kMakerFujifilm, "FinePix6900ZOOM", 0},
        {kMakerLeica, "D-LUX3", 262},
        {kMakerLeica, "M8 Digital Camera", 768},
        {kMakerLeica, "M8.2 Digital Camera", 769},
        {kMakerLeica, "R9 - Digital Back DMR", 770},
        {kMakerLeica, "LEICA X1", 773},
        {kMakerUnknown, "EOS 5D", 0},
    };
    for (const Case& c : cases) {
        BytesContext context({});
        context.ctx.info.makerId = c.maker;
        std::strcpy(context.ctx.info.cameraModel, c.model);
        IdentifyModel(context.ctx);
        EXPECT_EQ(context.ctx.info.modelId, c.modelId) << c.model;
        EXPECT_STREQ(context.ctx.info.cameraModel, c.model);
    }
}

TEST(Model, TellsPentaxCamerasOfOtherMakers) {
    struct Case {
        MakerId maker;
        const char* model;
        MakerId becomes;
    };
    const Case cases[] = {
        {kMakerSamsung, "SAMSUNG GX10", kMakerPentax},
        {kMakerSamsung, "SAMSUNG NX10", kMakerSamsung},
        {kMakerSamsung, "GX10", kMakerSamsung},
        {kMakerSamsung, "SAMSUNG G", kMakerSamsung},
        {kMakerRicoh, "PENTAX K-3 II", kMakerPentax},
        {kMakerRicoh, "GR II", kMakerRicoh},
    };
    for (const Case& c : cases) {
        BytesContext context({});
        context.ctx.info.makerId = c.maker;
        std::strcpy(context.ctx.info.cameraModel, c.model);
        IdentifyModel(context.ctx);
        EXPECT_EQ(context.ctx.info.makerId, c.becomes) << c.model;
    }
}

// A file whose MakerNote stands before a LONG: that the LONG is read right shows that byte order
// and base are the Exif directory's again.
TEST(MakerNote, HeadersDecideWhetherItCounts) {
    struct Case {
        const char* make;
        const char* model;
        Bytes note;
        int hasMakerNote;
    };
    const Bytes directory = {1, 0, 1, 0, 3, 0, 1, 0, 0, 0, 7, 0, 0, 0, 0, 0, 0, 0};
    const Bytes tiffHeader = {'M', 'M', 0, 42, 0, 0, 0, 8};
    const auto headed = [&](std::string_view header) { return FromText(header) + directory; };
    using namespace std::string_view_literals;
    const Case cases[] = {
        {"Canon", "Canon EOS 5D", directory, 1},
        {"NIKON", "NIKON D70", headed("Nikon\0\2\0\0\0"sv) + tiffHeader, 1},
        {"NIKON", "E950", directory, 0},
        {"KONICA MINOLTA", "DiMAGE Z3", directory, 1},
        {"KONICA MINOLTA", "DiMAGE Z3", headed("MLY0"), 0},
        {"OLYMPUS", "E-1", headed("OLYMP\0\1\0"sv), 1},
        {"OLYMPUS", "E-3", headed("OLYMPUS\0MM\3\0"sv), 1},
        {"OLYMPUS", "E-3", directory, 0},
        {"SONY", "DSC-P200", headed("SONY DSC \0\0\0"sv), 1},
        {"SONY", "DSC-P200", directory, 0},
        {"SONY", "DSLR-A100", directory, 1},
        {"FUJIFILM", "X100", headed("FUJIFILM\14\0\0\0"sv), 1},
        {"FUJIFILM", "X100", headed("FUJIFIL"), 0},
        {"CASIO", "EX-Z3", headed("QVC\0\0\0"sv), 1},
        {"CASIO", "QV-3000", directory, 0},
        {"RICOH", "Caplio", headed("Ricoh\0\0\0"sv), 1},
        {"RICOH", "Caplio", headed("RICOH\0\0\0"sv), 0},
        {"Panasonic", "DMC-FZ30", headed("Panasonic\0\0\0"sv), 1},
        {"Panasonic", "DMC-FZ30", headed("Panasonik\0\0\0"sv), 0},
        {"SANYO", "S1", headed("SANYO\0\1\0"sv), 1},
        {"SANYO", "S1", headed("SANY\0\0\1\0"sv), 0},
        {"PENTAX", "K10D", headed("AOC\0MM"sv), 1},
        {"PENTAX", "K10D", headed("PENTAX \0MM"sv), 1},
        {"PENTAX", "K10D", headed("AOC1"), 0},
        {"Samsung", "SAMSUNG GX10", headed("AOC\0MM"sv), 1},
        {"Samsung", "SAMSUNG NX10", headed("any"), 1},
        {"SIGMA", "DP1", headed("SIGMA\0\0\0\1\0"sv), 1},
        {"SEIKO EPSON", "R-D1", headed("EPSON\0\1\0"sv), 1},
        {"SEIKO EPSON", "R-D1", headed("SEIKO\0\1\0"sv), 0},
        {"Mamiya", "ZD", directory, 1},
        {"LEICA", "D-LUX 3", headed("LEICA\0\0\0"sv), 1},
        {"LEICA", "M8 Digital Camera", headed("LEICA\0\0\0"sv), 1},
        {"LEICA", "M8 Digital Camera", directory, 0},
        {"KDDI-CA", "W41", headed("KDDI\0\0\0\0"sv), 1},
        {"Hasselblad", "H3D", directory, 1},
        {"ACME", "One", directory, 1},
        {"NIKON", "D1", FromText("Nikon"), 1},  // cut short behind the name
    };
    for (const Case& c : cases) {
        TiffBuilder tiff;
        IfdBuilder& ifd = tiff.Ifd();
        IfdBuilder& exif = tiff.SubIfd();
        ifd.Ascii(0x010F, c.make).Ascii(0x0110, c.model).Link(0x8769, {&exif});
        exif.Undefined(0x927C, c.note).Rational(0x829A, {{1, 8}}).Long(0xA002, {0x01020304});
        const ImageInfo info = Parse(tiff.Build()).info;
        EXPECT_EQ(info.hasMakerNote, c.hasMakerNote) << c.make << ' ' << c.model;
        EXPECT_EQ(info.pixelXDimension, 0x01020304) << c.make;
        EXPECT_EQ(info.exposureTime, 0.125f) << c.make;
    }
}

TEST(MakerNote, PentaxPrivateDataOfADngIsOne) {
    for (const auto& [data, expected] : {std::pair{"PENTAX \0MM", 1}, {"SomethingElse", 0}}) {
        TiffBuilder tiff;
        tiff.Ifd().Ascii(0x010F, "PENTAX").Undefined(0xC634, FromText({data, 10}));
        EXPECT_EQ(Parse(tiff.Build()).info.hasMakerNote, expected) << data;
    }
    TiffBuilder other;
    other.Ifd().Ascii(0x010F, "SONY").Undefined(0xC634, FromText("PENTAX 123"));
    EXPECT_EQ(Parse(other.Build()).info.hasMakerNote, 0);
}

}  // namespace
}  // namespace qmx::test
