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

// Every Canon that a rule tells from others, by the text that it writes.
TEST(Model, NumbersEveryCanonThatRulesTest) {
    struct Case {
        const char* model;
        std::int32_t modelId;
    };
    // clang-format off
    const Case cases[] = {
        {"Canon PowerShot Pro70", 513}, {"Canon PowerShot G1", 514},
        {"Canon PowerShot Pro90 IS", 526}, {"Canon PowerShot G2", 516},
        {"Canon PowerShot S30", 517}, {"Canon PowerShot S40", 518}, {"Canon PowerShot G3", 519},
        {"Canon PowerShot S45", 520}, {"Canon PowerShot G5", 521}, {"Canon PowerShot S50", 522},
        {"Canon PowerShot S60", 523}, {"Canon PowerShot S70", 524}, {"Canon PowerShot G6", 525},
        {"Canon PowerShot Pro1", 526}, {"Canon PowerShot S1 IS", 527}, {"Canon PowerShot S80", 528},
        {"Canon PowerShot A520", 529}, {"Canon PowerShot A610", 530}, {"Canon PowerShot A620", 531},
        {"Canon PowerShot A430", 532}, {"Canon PowerShot A540", 533}, {"Canon PowerShot A700", 534},
        {"Canon PowerShot S2 IS", 535}, {"Canon PowerShot S3 IS", 536},
        {"Canon PowerShot S5 IS", 537}, {"Canon PowerShot A640", 538},
        {"Canon PowerShot A710 IS", 539}, {"Canon PowerShot A720 IS", 540},
        {"Canon PowerShot G7", 541}, {"Canon PowerShot G9", 542}, {"Canon PowerShot TX1", 543},
        {"Canon PowerShot SX100 IS", 544}, {"Canon EOS D30", 4097}, {"Canon EOS D60", 4098},
        {"Canon EOS 10D", 4099}, {"Canon EOS 300D DIGITAL", 4100},
        {"Canon EOS DIGITAL REBEL", 4100}, {"Canon EOS Kiss Digital", 4100},
        {"Canon EOS 350D DIGITAL", 4101}, {"Canon EOS DIGITAL REBEL XT", 4101},
        {"Canon EOS Kiss Digital N", 4101}, {"Canon EOS 20D", 4102}, {"Canon EOS 20Da", 4103},
        {"Canon EOS-1D", 4104}, {"Canon EOS-1DS", 4105}, {"Canon EOS-1D Mark II", 4106},
        {"Canon EOS-1Ds Mark II", 4107}, {"Canon EOS 400D DIGITAL", 4108},
        {"Canon EOS DIGITAL REBEL XTi", 4108}, {"Canon EOS Kiss Digital X", 4108},
        {"Canon EOS 450D", 4109}, {"Canon EOS DIGITAL REBEL XSi", 4109},
        {"Canon EOS Kiss X2", 4109}, {"Canon EOS 500D", 4110}, {"Canon EOS REBEL T1i", 4110},
        {"Canon EOS Kiss X3", 4110}, {"Canon EOS 1000D", 4111},
        {"Canon EOS DIGITAL REBEL XS", 4111}, {"Canon EOS Kiss F", 4111}, {"Canon EOS 550D", 4112},
        {"Canon EOS REBEL T2i", 4112}, {"Canon EOS Kiss X4", 4112}, {"Canon EOS 600D", 4113},
        {"Canon EOS REBEL T3i", 4113}, {"Canon EOS Kiss X5", 4113}, {"Canon EOS 1100D", 4114},
        {"Canon EOS REBEL T3", 4114}, {"Canon EOS Kiss X50", 4114}, {"Canon EOS 650D", 4115},
        {"Canon EOS REBEL T4i", 4115}, {"Canon EOS Kiss X6i", 4115}, {"Canon EOS 700D", 4116},
        {"Canon EOS REBEL T5i", 4116}, {"Canon EOS Kiss X7i", 4116}, {"Canon EOS 100D", 4117},
        {"Canon EOS REBEL SL1", 4117}, {"Canon EOS Kiss X7", 4117}, {"Canon EOS 1200D", 4118},
        {"Canon EOS REBEL T5", 4118}, {"Canon EOS Kiss X70", 4118}, {"Canon EOS 30D", 4120},
        {"Canon EOS 40D", 4121}, {"Canon EOS 50D", 4122}, {"Canon EOS 60D", 4123},
        {"Canon EOS 60Da", 4123}, {"Canon EOS 7D", 4124}, {"Canon EOS 5D", 4125},
        {"Canon EOS 5D Mark II", 4126}, {"Canon EOS 5D Mark III", 4127},
        {"Canon EOS-1D Mark II N", 4128}, {"Canon EOS-1D Mark III", 4129},
        {"Canon EOS-1Ds Mark III", 4130}, {"Canon EOS-1D Mark IV", 4131}, {"Canon EOS-1D X", 4132},
        {"Canon EOS 6D", 4133}, {"Canon EOS 70D", 4134},
    };
    // clang-format on
    for (const Case& c : cases) {
        BytesContext context({});
        context.ctx.info.makerId = kMakerCanon;
        std::strcpy(context.ctx.info.cameraModel, c.model);
        IdentifyModel(context.ctx);
        EXPECT_EQ(context.ctx.info.modelId, c.modelId) << c.model;
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
