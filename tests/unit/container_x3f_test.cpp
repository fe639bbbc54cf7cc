// Sigma X3F: header, adjustments, properties and directory.

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "makernote/maker_record.h"
#include "makernote/sigma_fields.h"
#include "parse/containers/container.h"
#include "support/memory_stream.h"
#include "support/parse.h"
#include "support/x3f_builder.h"

namespace qmx::test {
namespace {

using Fields = SigmaMakerFields;

const Fields& FieldsOf(const Parsed& parsed) { return MakerRecord<Fields>(parsed.info); }

Bytes WithProperties(const Properties& properties) {
    return X3fBuilder().Section("PROP", PropertyList(properties)).Build();
}

TEST(X3f, HeaderCrossesTheDimensions) {
    struct Case {
        std::uint32_t rotation;
        std::int32_t orientation;
    };
    for (const auto& [rotation, orientation] :
         {Case{0, 1}, {45, 1}, {90, 6}, {180, 3}, {270, 8}, {0xFFFFFFA6, 1}}) {
        X3fBuilder file;
        file.rotation = rotation;
        const Parsed parsed = Parse(file.Build());
        EXPECT_TRUE(parsed.parsed);
        EXPECT_EQ(parsed.info.makerId, kMakerSigma);
        EXPECT_EQ(parsed.info.orientation, orientation) << rotation;
        EXPECT_EQ(parsed.info.pixelXDimension, 1512);
        EXPECT_EQ(parsed.info.pixelYDimension, 2268);
        EXPECT_EQ(FieldsOf(parsed).sigmaFormatVersion, 0x20000);
        EXPECT_EQ(FieldsOf(parsed).sigmaTag31, FLOAT_UNSET);
        EXPECT_EQ(parsed.info.hasMakerNote, 0);
    }
}

TEST(X3f, AdjustmentsStandBehindUpToTwoTexts) {
    const Bytes types = {1, 2, 3, 4, 5, 6, 10, 7, 8, 9, 0, 11, 200};
    const std::vector<float> values = {0.5f,   -1.1f, -0.04f, -2,   1234.56f, -1.9f, 1.75f,
                                       -0.25f, 0,     0,      9.9f, 8,        7};
    const std::vector<std::string_view> noText;
    for (const auto& texts : {noText, {"Sunlight"}, {""}, {"Auto", "Standard"}, {"Auto", ""}}) {
        X3fBuilder file;
        file.version = 0x20001;
        file.extended = ExtendedHeader(texts, types, values);
        const Parsed parsed = Parse(file.Build());
        EXPECT_TRUE(parsed.parsed);
        const Fields& fields = FieldsOf(parsed);
        EXPECT_EQ(FieldText(fields.*sigmaExposureAdjust), "+0.5");
        EXPECT_EQ(FieldText(fields.*sigmaContrastAdjust), "-1.1");
        EXPECT_EQ(FieldText(fields.*sigmaShadowAdjust), "-0.0");
        EXPECT_EQ(FieldText(fields.*sigmaHighlightAdjust), "-2.0");
        EXPECT_EQ(FieldText(fields.*sigmaSaturationAdjust), "+1234.6");
        EXPECT_EQ(FieldText(fields.*sigmaSharpnessAdjust), "-1.9");
        EXPECT_EQ(FieldText(fields.*sigmaFillLight), "+1.8");
        EXPECT_EQ(FieldText(fields.*sigmaColorAdjust), "-0.2, +0.0, +0.0");
    }
}

TEST(X3f, AdjustmentsKeepWithinTheirFields) {
    X3fBuilder file;
    file.version = 0x20003;
    file.extended = ExtendedHeader({"Auto", "Standard"}, {1, 2, 3, 7, 7, 8, 9, 6, 6},
                                   {INFINITY, NAN, -3e38f, 1e9f, 1e9f, 5, 5, 1.0f, 2.0f});
    const Parsed parsed = Parse(file.Build());
    const Fields& fields = FieldsOf(parsed);
    EXPECT_EQ(FieldText(fields.*sigmaExposureAdjust), "+900000000000000");
    EXPECT_EQ(FieldText(fields.*sigmaContrastAdjust), "+900000000000000");
    EXPECT_EQ(FieldText(fields.*sigmaShadowAdjust), "-900000000000000");
    EXPECT_EQ(FieldText(fields.*sigmaColorAdjust), "+1000000000.0, +");
    EXPECT_EQ(FieldText(fields.*sigmaSharpnessAdjust), "+2.0");
}

TEST(X3f, EveryPropertyHasItsTarget) {
    const Parsed parsed = Parse(WithProperties({
        {"CAMMANUF", "SIGMA"},
        {"CAMMODEL", "SIGMA SD10"},
        {"ISO", "100"},
        {"AP_DESC", "5.6"},
        {"SH_DESC", "1/180"},
        {"EXPCOMP", "-0.70"},
        {"FLENGTH", "24.2"},
        {"FLEQ35MM", "41"},
        {"FLASH", "ON"},
        {"WB_DESC", "Sunlight"},
        {"AEMODE", "8"},
        {"DRIVE", "SINGLE"},
        {"AFMODE", "AF-S"},
        {"PMODE", "P"},
        {"BRACKET", "1 of 3"},
        {"RESOLUTION", "HI"},
        {"LENSFRANGE", "15 to 30"},
        {"LENSARANGE", "29 to 4.5"},
        {"LENSMODEL", "145"},
        {"CAMSERIAL", "02001234"},
        {"BURST", "7"},
        {"ROTATION", "90"},
        {"AFAREA", "CENTER_V"},
        {"AFINFOCUS", "H"},
        {"COLORSPACE", "sRGB"},
        {"FOCUS", "NO LOCK"},
        {"APERTURE", "8.35"},
        {"UNKNOWN", "left aside"},
    }));
    ASSERT_TRUE(parsed.parsed);
    const ImageInfo& info = parsed.info;
    EXPECT_EQ(info.hasMakerNote, 1);
    EXPECT_STREQ(info.cameraMake, "SIGMA");
    EXPECT_STREQ(info.cameraModel, "SIGMA SD10");
    EXPECT_EQ(info.isoSpeed, 100);
    EXPECT_EQ(info.fNumber, 5.6f);
    EXPECT_EQ(info.exposureTime, 1.0f / 180);
    EXPECT_EQ(info.exposureBias, -0.7f);
    EXPECT_EQ(info.focalLength, 24.2f);
    EXPECT_EQ(info.focalLengthIn35mm, 41.0f);
    EXPECT_EQ(info.flash, 1);
    EXPECT_EQ(info.whiteBalance, 1);
    EXPECT_EQ(info.meteringMode, 5);
    EXPECT_EQ(info.exposureProgram, 2);
    const Fields& fields = FieldsOf(parsed);
    EXPECT_EQ(FieldText(fields.*sigmaWhiteBalance), "Sunlight");
    EXPECT_EQ(FieldText(fields.*sigmaMetering), "8");
    EXPECT_EQ(FieldText(fields.*sigmaDriveMode), "SINGLE");
    EXPECT_EQ(FieldText(fields.*sigmaAfMode), "AF-S");
    EXPECT_EQ(FieldText(fields.*sigmaProgramMode), "P");
    EXPECT_EQ(FieldText(fields.sigmaBracket), "1 of 3");
    EXPECT_EQ(FieldText(fields.*sigmaResolution), "HI");
    EXPECT_EQ(FieldText(fields.*sigmaLensFocalRange), "15 to 30");
    EXPECT_EQ(FieldText(fields.sigmaLensApertureRange), "29 to 4.5");
    EXPECT_EQ(FieldText(fields.sigmaLensModel), "145");
    EXPECT_EQ(FieldText(fields.*sigmaCameraSerial), "02001234");
    EXPECT_EQ(FieldText(fields.sigmaBurst), "7");
    EXPECT_EQ(FieldText(fields.sigmaRotation), "90");
    EXPECT_EQ(FieldText(fields.sigmaAfArea), "CENTER_V");
    EXPECT_EQ(FieldText(fields.sigmaAfInFocus), "H");
    EXPECT_EQ(FieldText(fields.*sigmaColorSpace), "sRGB");
    EXPECT_EQ(FieldText(fields.*sigmaFocus), "NO LOCK");
}

TEST(X3f, PropertyTextsBecomeNumbers) {
    struct Case {
        const char* name;
        const char* value;
        float number;  // of the field that the name sets
        float (*get)(const ImageInfo& info);
    };
    const auto exposure = [](const ImageInfo& i) { return i.exposureTime; };
    const auto bias = [](const ImageInfo& i) { return i.exposureBias; };
    const auto in35mm = [](const ImageInfo& i) { return i.focalLengthIn35mm; };
    const auto iso = [](const ImageInfo& i) { return static_cast<float>(i.isoSpeed); };
    const auto flash = [](const ImageInfo& i) { return static_cast<float>(i.flash); };
    const auto balance = [](const ImageInfo& i) { return static_cast<float>(i.whiteBalance); };
    const auto metering = [](const ImageInfo& i) { return static_cast<float>(i.meteringMode); };
    const auto program = [](const ImageInfo& i) { return static_cast<float>(i.exposureProgram); };
    const auto unset = static_cast<float>(INT_UNSET);
    const Case cases[] = {
        {"SH_DESC", "0.5", 0.5f, exposure},
        {"SH_DESC", "30", 30.0f, exposure},
        {"SH_DESC", "1/0", FLOAT_UNSET, exposure},
        {"SH_DESC", "1/x", FLOAT_UNSET, exposure},
        {"SH_DESC", "inf", FLOAT_UNSET, exposure},
        {"SH_DESC", "1e99", FLOAT_UNSET, exposure},
        {"SH_DESC", " ", FLOAT_UNSET, exposure},
        {"EXPCOMP", "+0.30", 0.3f, bias},
        {"EXPCOMP", "0", 0.0f, bias},
        {"EXPCOMP", "-1/3", -1.0f / 3, bias},
        {"EXPCOMP", "", FLOAT_UNSET, bias},
        {"FLEQ35MM", "0", FLOAT_UNSET, in35mm},
        {"ISO", "99999999999", unset, iso},
        {"ISO", "Auto", unset, iso},
        {"FLASH", "OFF", 0, flash},
        {"FLASH", "AUTO", 1, flash},
        {"FLASH", " ", unset, flash},
        {"WB_DESC", "Auto", 0, balance},
        {"WB_DESC", "Shade", 1, balance},
        {"WB_DESC", " ", unset, balance},
        {"AEMODE", "C", 2, metering},
        {"AEMODE", "A", 1, metering},
        {"AEMODE", "x", unset, metering},
        {"PMODE", "Aperture", 3, program},
        {"PMODE", "M", 1, program},
        {"PMODE", "S", 4, program},
        {"PMODE", "x", unset, program},
    };
    for (const Case& c : cases) {
        const Parsed parsed = Parse(WithProperties({{c.name, c.value}}));
        EXPECT_EQ(c.get(parsed.info), c.number) << c.name << ' ' << c.value;
    }
}

TEST(X3f, PropertyTextsAreCutToTheirFields) {
    const std::string text(100, 'x');
    const Parsed parsed =
        Parse(WithProperties({{"CAMMODEL", text}, {"PMODE", text}, {"DRIVE", text}, {text, "y"}}));
    EXPECT_EQ(FieldText(parsed.info.cameraModel), std::string(63, 'x'));
    EXPECT_EQ(FieldText(FieldsOf(parsed).*sigmaProgramMode), std::string(8, 'x'));
    EXPECT_EQ(FieldText(FieldsOf(parsed).*sigmaMetering), "");
    EXPECT_EQ(FieldText(FieldsOf(parsed).*sigmaDriveMode), std::string(16, 'x'));
}

TEST(X3f, TimesThatDoNotExistAreLeftOut) {
    for (const char* time : {"-1", "253402300800", "99999999999999999999", "now", " "})
        EXPECT_STREQ(Parse(WithProperties({{"TIME", time}})).info.dateTimeOriginal, "") << time;
    const Parsed parsed = Parse(WithProperties({{"TIME", "1259413520"}}));
    EXPECT_EQ(std::string(parsed.info.dateTimeOriginal).substr(0, 8), "2009/11/");
}

// A list whose bytes are changed before it goes into a file.
TEST(X3f, PropertyListsThatAreNotSound) {
    struct Case {
        const char* what;
        void (*change)(Bytes& list);
        bool sound;
        const char* drive;
    };
    const Case cases[] = {
        {"unchanged", [](Bytes&) {}, true, "AB"},
        {"another magic", [](Bytes& l) { l[3] = 'q'; }, false, ""},
        {"other characters", [](Bytes& l) { l[12] = 1; }, false, ""},
        {"too many entries", [](Bytes& l) { l[8] = 5; }, false, ""},
        {"all entries", [](Bytes& l) { l[8] = l[9] = l[10] = l[11] = 0xFF; }, false, ""},
        {"no header", [](Bytes& l) { l.resize(23); }, false, ""},
        {"no entries", [](Bytes& l) { l.resize(24), l[8] = 0; }, true, ""},
        {"no terminator, odd length", [](Bytes& l) { l.resize(l.size() - 1); }, true, "AB"},
        {"cut value", [](Bytes& l) { l.resize(l.size() - 3); }, true, "A"},
        {"name past the end", [](Bytes& l) { l[27] = 0x7F; }, true, ""},
        {"value past the end", [](Bytes& l) { l[30] = l[31] = 0xFF; }, true, ""},
        {"value is the name", [](Bytes& l) { l[28] = 0; }, true, "DRIVE"},
        {"upper bytes do not count", [](Bytes& l) { l[33] = 0x30; }, true, "AB"},
    };
    for (const Case& c : cases) {
        Bytes list = PropertyList({{"DRIVE", "AB"}});
        c.change(list);
        const Parsed parsed = Parse(X3fBuilder().Section("PROP", list).Build());
        EXPECT_EQ(parsed.parsed, c.sound) << c.what;
        EXPECT_EQ(FieldText(FieldsOf(parsed).*sigmaDriveMode), c.drive) << c.what;
    }
}

TEST(X3f, HeadersAndDirectoriesThatAreNotSound) {
    struct Case {
        const char* what;
        void (*change)(Bytes& file);
    };
    const Case cases[] = {
        {"short header", [](Bytes& f) { f.resize(39); }},
        {"header alone", [](Bytes& f) { f.resize(40); }},
        {"short extended header", [](Bytes& f) { f[4] = 3, f.resize(40 + 191); }},
        {"two texts and nothing else",
         [](Bytes& f) { f[4] = 3, f.resize(40), f.resize(40 + 223, 'a'); }},
        {"directory nowhere", [](Bytes& f) { f[f.size() - 2] = 0xFF; }},
        {"directory before the file", [](Bytes& f) { f[f.size() - 1] = 0xFF; }},
        {"another magic", [](Bytes& f) { f[f.size() - 28] = 'x'; }},
        {"too many entries", [](Bytes& f) { f[f.size() - 20] = 4; }},
        {"all entries", [](Bytes& f) { f[f.size() - 17] = 0xFF; }},
    };
    const Bytes sound = WithProperties({{"CAMMANUF", "SIGMA"}});
    EXPECT_TRUE(Parse(sound).parsed);
    for (const Case& c : cases) {
        Bytes file = sound;
        c.change(file);
        EXPECT_FALSE(Parse(file).parsed) << c.what;
    }
    EXPECT_TRUE(Parse(X3fBuilder().Section("IMA2", {}).Section("CAMF", Bytes(3)).Build()).parsed);
}

// A directory that names the same property list over and over.
TEST(X3f, WorkIsBoundedByTheFilesSize) {
    Properties many;
    for (int i = 0; i < 1000; ++i) many.emplace_back("DRIVE", "SINGLE");
    X3fBuilder builder;
    builder.Section("PROP", PropertyList(many));
    Bytes file = builder.Build();
    const Bytes entry(file.end() - 16, file.end() - 4);
    const auto directory = static_cast<std::uint32_t>(file.size() - 28);
    file.resize(file.size() - 4);
    constexpr std::uint32_t kEntries = 10000;
    for (std::uint32_t i = 1; i < kEntries; ++i) file = std::move(file) + entry;
    const Bytes count = ByteWriter(Order::kLittle).U32(kEntries).bytes;
    std::copy(count.begin(), count.end(), file.begin() + directory + 8);
    file = std::move(file) + ByteWriter(Order::kLittle).U32(directory).bytes;
    BytesContext context(file);
    EXPECT_EQ(ParseContainer(context.ctx, false), 0);
    EXPECT_EQ(context.ctx.readEnd, context.ctx.viewBase);
}

}  // namespace
}  // namespace qmx::test
