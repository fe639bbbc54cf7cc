// Makers, models and the headers of MakerNotes.

#include <gtest/gtest.h>

#include <cstring>

#include "makernote/maker_identity.h"
#include "makernote/model_identity.h"
#include "support/note_file.h"
#include "support/parse.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;

// clang-format off

TEST(Maker, FollowsFromTheMake) {
    const std::pair<const char*, std::uint32_t> cases[] = {
        {"Canon", 1}, {"Canonical", 1}, {"canon", 0}, {"NIKON", 2}, {"NIKON CORPORATION", 2},
        {"Nikon", 0}, {"Minolta Co., Ltd.", 3}, {"KONICA MINOLTA", 3},
        {"Konica Minolta Camera", 3}, {"MINOLTA CO.,LTD", 0}, {"Estman", 4},
        {"EASTMAN KODAK COMPANY", 0}, {"OLYMPUS IMAGING CORP.", 5}, {"SONY", 6}, {"Sony", 0},
        {"FUJIFILM", 7}, {"CASIO COMPUTER CO.,LTD.", 8}, {"Ricoh Imaging", 9}, {"Panasonic", 10},
        {"SANYO Electric Co.,Ltd.", 12}, {"pentax", 13}, {"Pentax Corporation", 13}, {"SIGMA", 14},
        {"SEIKO EPSON CORP.", 15}, {"MAMIYA-OP", 16}, {"Leica Camera AG", 17},
        {"Samsung Techwin", 18}, {"kddi-ca", 19}, {"Hasselblad", 20}, {"ACME", 0}, {"", 0},
        {"KDDI", 0},
    };
    for (const auto& [make, maker] : cases) {
        BytesContext context({});
        std::strcpy(context.ctx.info.cameraMake, make);
        IdentifyMaker(context.ctx);
        EXPECT_EQ(context.ctx.info.makerId, maker) << make;
    }
}

ImageInfo Identified(MakerId maker, const char* model) {
    BytesContext context({});
    context.ctx.info.makerId = maker;
    std::strcpy(context.ctx.info.cameraModel, model);
    IdentifyModel(context.ctx);
    EXPECT_STREQ(context.ctx.info.cameraModel, model);
    return context.ctx.info;
}

// Names that begin alike above all.
TEST(Model, HasItsNumber) {
    struct Case { MakerId maker; const char* model; std::int32_t modelId; };
    const Case cases[] = {
        {kMakerCanon, "Canon EOS 5D", 4125}, {kMakerCanon, "Canon EOS 5D Mark II", 4126},
        {kMakerCanon, "Canon EOS 5D Mark III", 4127}, {kMakerCanon, "EOS DIGITAL REBEL XT", 4101},
        {kMakerCanon, "Canon EOS DIGITAL REBEL XTi", 4108},
        {kMakerCanon, "Canon EOS DIGITAL REBEL", 4100},
        {kMakerCanon, "Canon EOS Kiss Digital  ", 4100},
        {kMakerCanon, "Canon EOS Kiss Digital N", 4101},
        {kMakerCanon, "Canon EOS Kiss Digital X", 4108}, {kMakerCanon, "Canon EOS Kiss X7", 4117},
        {kMakerCanon, "Canon EOS Kiss X70", 4118}, {kMakerCanon, "Canon EOS Kiss X7i", 4116},
        {kMakerCanon, "Canon EOS 20D", 4102}, {kMakerCanon, "Canon EOS 20Da", 4103},
        {kMakerCanon, "Canon EOS 60Da", 4123}, {kMakerCanon, "Canon EOS-1D", 4104},
        {kMakerCanon, "Canon EOS-1DS", 4105}, {kMakerCanon, "Canon EOS-1D Mark II", 4106},
        {kMakerCanon, "Canon EOS-1D Mark II N", 4128},
        {kMakerCanon, "Canon EOS-1Ds Mark III", 4130}, {kMakerCanon, "Canon EOS-1D X", 4132},
        {kMakerCanon, "Canon EOS 100D", 4117}, {kMakerCanon, "Canon EOS 1000D", 4111},
        {kMakerCanon, "Canon EOS 10D", 4099}, {kMakerCanon, "Canon EOS 30D", 4120},
        {kMakerCanon, "Canon EOS 300D DIGITAL", 4100}, {kMakerCanon, "Canon EOS D2000C", 4096},
        {kMakerCanon, "Canon EOS R5", 4159}, {kMakerCanon, "Canon PowerShot Pro1", 526},
        {kMakerCanon, "Canon PowerShot Pro90 IS", 526}, {kMakerCanon, "Canon PowerShot G1", 514},
        {kMakerCanon, "Canon PowerShot G1 X", 512}, {kMakerCanon, "Canon PowerShot S30", 517},
        {kMakerCanon, "Canon PowerShot S300", 512}, {kMakerCanon, "Canon PowerShot S1 IS", 527},
        {kMakerCanon, "Canon PowerShot SX100 IS", 544},
        {kMakerCanon, "Canon DIGITAL IXUS 400", 512}, {kMakerCanon, "CanoScan", 0},
        {kMakerNikon, "NIKON D70", 4102}, {kMakerNikon, "NIKON D9999", 4096},
        {kMakerNikon, "E5700", 256}, {kMakerMinolta, "DYNAX 7D", 4098},
        {kMakerMinolta, "ALPHA-7 DIGITAL", 4098}, {kMakerSony, "DSLR-A100", 8448},
        {kMakerSony, "DSC-P200", 256}, {kMakerFujifilm, "FinePixS2Pro", 8193},
        {kMakerFujifilm, "FinePix S5Pro  ", 8195}, {kMakerFujifilm, "FinePix S200EXR", 4103},
        {kMakerFujifilm, "FinePix F200EXR", 257}, {kMakerFujifilm, "X-Pro1", 257},
        {kMakerFujifilm, "X100T", 257}, {kMakerFujifilm, "FinePix6900ZOOM", 0},
        {kMakerFujifilm, "FinePix E500", 0}, {kMakerFujifilm, "FinePix F550EXR", 257},
        {kMakerFujifilm, "FinePix X100", 257}, {kMakerFujifilm, "FinePix S100FS", 4103},
        {kMakerFujifilm, "FinePixS1Pro", 8192}, {kMakerFujifilm, "FinePix S3Pro", 8194},
        {kMakerLeica, "D-LUX3", 262}, {kMakerLeica, "M8 Digital Camera", 768},
        {kMakerLeica, "M8.2 Digital Camera", 769}, {kMakerLeica, "R9 - Digital Back DMR", 770},
        {kMakerLeica, "LEICA X1", 773}, {kMakerLeica, "DIGILUX 1", 257},
        {kMakerLeica, "D-LUX", 260}, {kMakerLeica, "D-LUX2", 261}, {kMakerLeica, "V-LUX 2", 270},
        {kMakerLeica, "V-LUX 20", 271}, {kMakerLeica, "V-LUX 4", 274},
        {kMakerLeica, "LEICA T (Typ 701)", 0}, {kMakerLeica, "M Monochrom", 772},
        {kMakerLeica, "LEICA X2", 774}, {kMakerLeica, "S2", 775}, {kMakerUnknown, "EOS 5D", 0},
    };
    for (const auto& [maker, model, modelId] : cases)
        EXPECT_EQ(Identified(maker, model).modelId, modelId) << model;
}

TEST(Model, TellsPentaxCamerasOfOtherMakers) {
    struct Case { MakerId maker; const char* model; MakerId becomes; };
    const Case cases[] = {
        {kMakerSamsung, "SAMSUNG GX10", kMakerPentax},
        {kMakerSamsung, "SAMSUNG NX10", kMakerSamsung},
        {kMakerSamsung, "GX10", kMakerSamsung},
        {kMakerSamsung, "SAMSUNG G", kMakerSamsung},
        {kMakerRicoh, "PENTAX K-3 II", kMakerPentax},
        {kMakerRicoh, "GR II", kMakerRicoh},
    };
    for (const auto& [maker, model, becomes] : cases)
        EXPECT_EQ(Identified(maker, model).makerId, becomes) << model;
}

// Beside the headers of the makers' own tests.  That the file's size is read right shows that byte
// order and base are the Exif directory's again.
TEST(MakerNote, HeadersDecideWhetherItCounts) {
    struct Case { const char *make, *model; Bytes note; int hasMakerNote; };
    const Bytes directory = {1, 0, 1, 0, 3, 0, 1, 0, 0, 0, 7, 0, 0, 0, 0, 0, 0, 0};
    const Bytes tiffHeader = {'M', 'M', 0, 42, 0, 0, 0, 8};
    const auto headed = [&](std::string_view header) { return FromText(header) + directory; };
    const Case cases[] = {
        {"NIKON", "NIKON D70", headed("Nikon\0\2\0\0\0"sv) + tiffHeader, 1},
        {"NIKON", "E950", directory, 0},
        {"KONICA MINOLTA", "DiMAGE Z3", directory, 1},
        {"KONICA MINOLTA", "DiMAGE Z3", headed("MLY0"), 0},
        {"OLYMPUS", "E-3", directory, 0},
        {"SONY", "DSC-P200", directory, 0},
        {"SONY", "DSLR-A100", directory, 1},
        {"FUJIFILM", "X100", headed("FUJIFIL"), 0},
        {"CASIO", "QV-3000", directory, 0},
        {"RICOH", "Caplio", headed("RICOH\0\0\0"sv), 0},
        {"Panasonic", "DMC-FZ30", headed("Panasonik\0\0\0"sv), 0},
        {"SANYO", "S1", headed("SANY\0\0\1\0"sv), 0},
        {"PENTAX", "K10D", headed("AOC1"), 0},
        {"Samsung", "SAMSUNG GX10", headed("AOC\0MM"sv), 1},
        {"Samsung", "SAMSUNG NX10", headed("any"), 1},
        {"SEIKO EPSON", "R-D1", headed("SEIKO\0\1\0"sv), 0},
        {"LEICA", "M8 Digital Camera", headed("LEICA\0\0\0"sv), 1},
        {"LEICA", "M8 Digital Camera", directory, 0},
        {"KDDI-CA", "W41", headed("KDDI\0\0\0\0"sv), 1},
        {"Hasselblad", "H3D", directory, 1},
        {"ACME", "One", directory, 1},
        {"NIKON", "D1", FromText("Nikon"), 1},  // cut short behind the name
    };
    for (const Case& c : cases) {
        const Bytes file = NoteFile::Build(Order::kLittle, c.make, c.model, c.note);
        const ImageInfo info = Parse(file).info;
        EXPECT_EQ(info.hasMakerNote, c.hasMakerNote) << c.make << ' ' << c.model;
        EXPECT_EQ(info.pixelXDimension, static_cast<std::int32_t>(NoteFile::kWidth)) << c.make;
    }
}

TEST(MakerNote, PentaxPrivateDataOfADngIsOne) {
    struct Case { const char *make; std::string_view data; int hasMakerNote; };
    constexpr Case kCases[] = {{"PENTAX", "PENTAX \0MM"sv, 1}, {"PENTAX", "SomethingElse"sv, 0},
                               {"SONY", "PENTAX 123"sv, 0}};
    for (const auto& [make, data, hasMakerNote] : kCases) {
        TiffBuilder tiff;
        tiff.Ifd().Ascii(0x010F, make).Undefined(0xC634, FromText(data));
        EXPECT_EQ(Parse(tiff.Build()).info.hasMakerNote, hasMakerNote) << make << data;
    }
}

// clang-format on

}  // namespace
}  // namespace qmx::test
