// Sigma X3F: header, adjustments, properties and directory.

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "makernote/maker_record.h"
#include "makernote/sigma_fields.h"
#include "parse/containers/container.h"
#include "support/parse.h"
#include "support/x3f_builder.h"

namespace qmx::test {
namespace {

using Fields = SigmaMakerFields;

const Fields& FieldsOf(const Parsed& parsed) { return MakerRecord<Fields>(parsed.info); }

std::string AdjustmentsOf(const Parsed& parsed) {
    const Fields& fields = FieldsOf(parsed);
    std::string texts;
    for (const auto field :
         {sigmaExposureAdjust, sigmaContrastAdjust, sigmaShadowAdjust, sigmaHighlightAdjust,
          sigmaSaturationAdjust, sigmaSharpnessAdjust, sigmaFillLight, sigmaColorAdjust})
        texts += (texts.empty() ? "" : "|") + std::string(FieldText(fields.*field));
    return texts;
}

Bytes WithProperties(const Properties& properties) {
    return X3fBuilder().Section("PROP", PropertyList(properties)).Build();
}

TEST(X3f, HeaderCrossesTheDimensions) {
    for (const auto& [rotation, orientation] :
         {std::pair{0u, 1}, {45u, 1}, {90u, 6}, {180u, 3}, {270u, 8}, {0xFFFFFFA6u, 1}}) {
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
        EXPECT_EQ(AdjustmentsOf(parsed), "+0.5|-1.1|-0.0|-2.0|+1234.6|-1.9|+1.8|-0.2, +0.0, +0.0");
    }
}

TEST(X3f, AdjustmentsKeepWithinTheirFields) {
    X3fBuilder file;
    file.version = 0x20003;
    file.extended = ExtendedHeader({"Auto", "Standard"}, {1, 2, 3, 7, 7, 8, 9, 6, 6},
                                   {INFINITY, NAN, -3e38f, 1e9f, 1e9f, 5, 5, 1.0f, 2.0f});
    EXPECT_EQ(AdjustmentsOf(Parse(file.Build())),
              "+900000000000000|+900000000000000|-900000000000000|||+2.0||+1000000000.0, +");
}

TEST(X3f, EveryPropertyHasItsTarget) {
    // clang-format off
    const Parsed parsed = Parse(WithProperties({
        {"CAMMANUF", "SIGMA"}, {"CAMMODEL", "SIGMA SD10"}, {"ISO", "100"}, {"AP_DESC", "5.6"},
        {"SH_DESC", "1/180"}, {"EXPCOMP", "-0.70"}, {"FLENGTH", "24.2"}, {"FLEQ35MM", "41"},
        {"FLASH", "ON"}, {"WB_DESC", "Sunlight"}, {"AEMODE", "8"}, {"DRIVE", "SINGLE"},
        {"AFMODE", "AF-S"}, {"PMODE", "P"}, {"BRACKET", "1 of 3"}, {"RESOLUTION", "HI"},
        {"LENSFRANGE", "15 to 30"}, {"LENSARANGE", "29 to 4.5"}, {"LENSMODEL", "145"},
        {"CAMSERIAL", "02001234"}, {"BURST", "7"}, {"ROTATION", "90"}, {"AFAREA", "CENTER_V"},
        {"AFINFOCUS", "H"}, {"COLORSPACE", "sRGB"}, {"FOCUS", "NO LOCK"}, {"APERTURE", "8.35"},
        {"UNKNOWN", "left aside"}}));
    // clang-format on
    ASSERT_TRUE(parsed.parsed);
    const ImageInfo& info = parsed.info;
    EXPECT_EQ(info.hasMakerNote, 1);
    EXPECT_STREQ(info.cameraMake, "SIGMA");
    EXPECT_STREQ(info.cameraModel, "SIGMA SD10");
    const std::array integers = {info.isoSpeed, info.flash, info.whiteBalance, info.meteringMode,
                                 info.exposureProgram};
    EXPECT_EQ(integers, (std::array{100, 1, 1, 5, 2}));
    const std::array floats = {info.fNumber, info.exposureTime, info.exposureBias, info.focalLength,
                               info.focalLengthIn35mm};
    EXPECT_EQ(floats, (std::array{5.6f, 1.0f / 180, -0.7f, 24.2f, 41.0f}));
    const Fields& f = FieldsOf(parsed);
    std::string texts;
    for (const std::string_view text :
         {FieldText(f.*sigmaWhiteBalance), FieldText(f.*sigmaMetering),
          FieldText(f.*sigmaDriveMode), FieldText(f.*sigmaAfMode), FieldText(f.*sigmaProgramMode),
          FieldText(f.sigmaBracket), FieldText(f.*sigmaResolution),
          FieldText(f.*sigmaLensFocalRange), FieldText(f.sigmaLensApertureRange),
          FieldText(f.sigmaLensModel), FieldText(f.*sigmaCameraSerial), FieldText(f.sigmaBurst),
          FieldText(f.sigmaRotation), FieldText(f.sigmaAfArea), FieldText(f.sigmaAfInFocus),
          FieldText(f.*sigmaColorSpace), FieldText(f.*sigmaFocus)})
        texts += std::string(text) + '|';
    EXPECT_EQ(texts,
              "Sunlight|8|SINGLE|AF-S|P|1 of 3|HI|15 to 30|29 to 4.5|145|02001234|7|90|"
              "CENTER_V|H|sRGB|NO LOCK|");
}

TEST(X3f, PropertyTextsBecomeNumbers) {
    // clang-format off
    using Info = ImageInfo;
    const struct {
        const char* name;
        float Info::*field;
        std::vector<std::pair<const char*, float>> values;
    } fractions[] = {
        {"SH_DESC", &Info::exposureTime, {{"0.5", 0.5f}, {"30", 30}, {"1/0", FLOAT_UNSET},
            {"1/x", FLOAT_UNSET}, {"inf", FLOAT_UNSET}, {"1e99", FLOAT_UNSET}, {" ", FLOAT_UNSET}}},
        {"EXPCOMP", &Info::exposureBias, {{"+0.30", 0.3f}, {"0", 0}, {"-1/3", -1.0f / 3},
            {"", FLOAT_UNSET}}},
        {"FLEQ35MM", &Info::focalLengthIn35mm, {{"0", FLOAT_UNSET}}},
    };
    const struct {
        const char* name;
        std::int32_t Info::*field;
        std::vector<std::pair<const char*, std::int32_t>> values;
    } codes[] = {
        {"ISO", &Info::isoSpeed, {{"99999999999", INT_UNSET}, {"Auto", INT_UNSET}}},
        {"FLASH", &Info::flash, {{"OFF", 0}, {"AUTO", 1}, {" ", INT_UNSET}}},
        {"WB_DESC", &Info::whiteBalance, {{"Auto", 0}, {"Shade", 1}, {" ", INT_UNSET}}},
        {"AEMODE", &Info::meteringMode, {{"C", 2}, {"A", 1}, {"x", INT_UNSET}}},
        {"PMODE", &Info::exposureProgram, {{"Aperture", 3}, {"M", 1}, {"S", 4}, {"x", INT_UNSET}}},
    };
    // clang-format on
    const auto expectAll = [](const auto& rows) {
        for (const auto& row : rows)
            for (const auto& [text, value] : row.values)
                EXPECT_EQ(Parse(WithProperties({{row.name, text}})).info.*row.field, value)
                    << row.name << ' ' << text;
    };
    expectAll(fractions);
    expectAll(codes);
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
