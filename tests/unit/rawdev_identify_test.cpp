// What is found out about a raw file before any sample is read.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "rawdev/identify.h"
#include "rawdev/loaders.h"
#include "support/note_file.h"
#include "support/raw_builder.h"

namespace qmx::test {
namespace {

bool Identify(const Bytes& file, RawDecodeState& state) {
    state.file.data = file.data();
    state.file.size = file.size();
    return IdentifyRaw(state);
}

Bytes Directory(const std::function<void(TiffBuilder&, IfdBuilder&)>& more,
                const std::string& make = "ACME", std::uint32_t compression = 1,
                std::uint32_t bits = 16) {
    RawForm form = FormOf(64, 48, bits, compression);
    form.make = make;
    form.more = more;
    return BuildRaw(form, Bytes(100));
}

TEST(RawIdentification, ChoosesTheLoaderByCompressionAndDepth) {
    struct Case {
        std::uint32_t compression, bits;
        const char* make;
        bool dng;
        const Loader* loader;  // null: refused
    };
    const Case cases[] = {
        {0, 8, "ACME", false, &kEightBit},
        {1, 8, "ACME", false, &kEightBit},
        {1, 12, "ACME", false, &kPacked12},
        {1, 14, "ACME", false, &kUnpacked16},
        {0, 16, "ACME", false, &kUnpacked16},
        {1, 10, "ACME", false, nullptr},
        {1, 0, "ACME", false, nullptr},
        {1, 64, "ACME", false, nullptr},
        {6, 12, "ACME", false, &kLosslessJpeg},
        {7, 12, "ACME", false, &kLosslessJpeg},
        {99, 12, "ACME", false, &kLosslessJpeg},
        {7, 16, "Hasselblad", false, &kHasselblad},
        {7, 16, "Hasselblad AB", false, &kLosslessJpeg},
        {1, 16, "Hasselblad", false, &kUnpacked16},
        {32769, 12, "ACME", false, &kEpson12},
        {32773, 12, "ACME", false, &kPacked12},
        {5, 12, "ACME", false, nullptr},
        {34713, 12, "ACME", false, nullptr},
        {0, 0, "Panasonic", false, &kUnpacked16},
        {5, 12, "LEICA", false, nullptr},
        {1, 10, "LEICA", false, &kUnpacked16},
        {1, 12, "LEICA", false, &kPacked12},
        {1, 0, "Leica Camera AG", false, nullptr},
        {1, 12, "ACME", true, &kDngUncompressed},
        {7, 16, "ACME", true, &kDngLosslessJpeg},
        {7, 16, "Hasselblad", true, &kDngLosslessJpeg},
        {1, 7, "ACME", true, nullptr},
        {1, 17, "ACME", true, nullptr},
        {8, 16, "ACME", true, nullptr},
    };
    for (const Case& c : cases) {
        const Bytes file = Directory(
            [&](TiffBuilder&, IfdBuilder& ifd) {
                if (c.dng) ifd.Byte(50706, {1, 4, 0, 0});
            },
            c.make, c.compression, c.bits);
        RawDecodeState state;
        const bool identified = Identify(file, state);
        EXPECT_EQ(identified, c.loader != nullptr) << c.make << c.compression << ' ' << c.bits;
        const Loader* const chosen = identified ? state.loader : nullptr;
        EXPECT_EQ(chosen, c.loader) << c.make << c.compression << ' ' << c.bits;
    }
}

TEST(RawIdentification, RefusesWhatConvertersWrote) {
    struct Case {
        const char* software;
        bool raw;
    };
    const Case cases[] = {
        {"Adobe Photoshop", false},
        {"dcraw v8", false},
        {"Bibble 4", false},
        {"Nikon Scan 4", false},
        {"Nikon", true},
        {"Digital Photo Professional", false},
        {"An Adobe", true},
        {"Digital Photo Professional 3", true},
    };
    for (const Case& c : cases) {
        RawDecodeState state;
        EXPECT_EQ(
            Identify(Directory([&](TiffBuilder&, IfdBuilder& ifd) { ifd.Ascii(305, c.software); }),
                     state),
            c.raw)
            << c.software;
    }
}

TEST(RawIdentification, TakesTheLargestImageOfChainAndSubdirectories) {
    TiffBuilder tiff(Order::kBig);
    IfdBuilder& first = tiff.Ifd();
    IfdBuilder& raw = tiff.SubIfd();
    IfdBuilder& preview = tiff.SubIfd();
    IfdBuilder& exif = tiff.SubIfd();
    first.Long(256, {100}).Long(257, {100}).Short(258, {8}).Short(259, {1}).Short(262, {2});
    first.Ascii(271, "ACME  ").Ascii(272, "ACME One ").Short(274, {8}).Short(277, {3});
    first.Link(330, {&raw, &preview}).Link(34665, {&exif});
    raw.Long(256, {200}).Long(257, {150}).Short(258, {12}).Short(259, {1}).Short(262, {32803});
    raw.Long(273, {4000}).Byte(33422, {2, 1, 1, 0}).Short(33421, {2, 2});
    preview.Long(256, {4000}).Long(257, {3000}).Short(258, {8}).Short(259, {7}).Short(262, {6});
    preview.Short(277, {3});
    exif.Rational(33434, {{1, 60}}).Rational(37386, {{50}});
    tiff.Ifd().Long(256, {120}).Long(257, {100}).Short(259, {1});
    RawDecodeState state;
    ASSERT_TRUE(Identify(tiff.Build(), state));
    EXPECT_STREQ(state.makeText, "ACME");
    EXPECT_STREQ(state.modelText, "One");
    EXPECT_EQ(state.rawWidth, 200);
    EXPECT_EQ(state.rawHeight, 150);
    EXPECT_EQ(state.dataOffset, 4000u);
    EXPECT_EQ(state.cfaPattern, 0x1E1E1E1Eu);
    EXPECT_EQ(state.maximum, 4095u);
    EXPECT_EQ(state.black, 0u);
    EXPECT_EQ(state.flip, 5);  // the raw image has no orientation of its own
    EXPECT_FLOAT_EQ(state.shot.exposureTime, 1 / 60.0f);
    EXPECT_EQ(state.shot.focalLength, 50);
    EXPECT_TRUE(state.rawColor);
}

TEST(RawIdentification, ApexStandsInForMissingExposures) {
    struct Case {
        Ratio shutter, aperture;
        float seconds, number;
    };
    const Case cases[] = {
        {{5}, {6}, 1 / 32.0f, 8},
        {{0}, {0}, 1, 1},
        {{0, 0}, {0, 0}, 0, 0},  // unknown
        {{-200}, {400}, 0, 0},   // beyond any number
    };
    for (const Case& c : cases) {
        RawDecodeState state;
        ASSERT_TRUE(Identify(Directory([&](TiffBuilder&, IfdBuilder& ifd) {
                                 ifd.SRational(33434, {{0, 0}}).SRational(37377, {c.shutter});
                                 ifd.Rational(37378, {c.aperture});
                             }),
                             state));
        EXPECT_EQ(state.shot.exposureTime, c.seconds);
        EXPECT_EQ(state.shot.fNumber, c.number);
    }
}

TEST(RawIdentification, FollowsPointersOfTheirOwnType) {
    TiffBuilder tiff;
    IfdBuilder& raw = tiff.SubIfd();
    raw.Long(256, {64}).Long(257, {48}).Short(258, {12}).Short(259, {1}).Long(273, {8});
    tiff.Ifd().Ascii(272, "One").Link(330, {&raw});
    Bytes file = tiff.Build();
    const Bytes pointer = {330 & 0xFF, 330 >> 8, 4, 0};
    const auto entry = std::search(file.begin(), file.end(), pointer.begin(), pointer.end());
    ASSERT_NE(entry, file.end());
    entry[2] = 13;
    RawDecodeState state;
    ASSERT_TRUE(Identify(file, state));
    EXPECT_EQ(state.rawWidth, 64);
}

TEST(RawIdentification, PatternsSplitTheirGreens) {
    struct Case {
        std::vector<std::uint32_t> pattern;
        std::uint32_t expected;
    };
    const Case cases[] = {
        {{0, 1, 1, 2}, 0xB4B4B4B4}, {{1, 2, 0, 1}, 0x4B4B4B4B}, {{1, 0, 2, 1}, 0xE1E1E1E1},
        {{2, 1, 1, 0}, 0x1E1E1E1E}, {{0, 0, 0, 0}, 0xB4B4B4B4}, {{3, 4, 1, 5}, 0xB4B4B4B4},
        {{0, 1}, 0xB4B4B4B4},
    };
    for (const Case& c : cases) {
        RawDecodeState state;
        ASSERT_TRUE(Identify(
            Directory([&](TiffBuilder&, IfdBuilder& ifd) { ifd.Byte(33422, c.pattern); }), state));
        EXPECT_EQ(state.cfaPattern, c.expected) << c.pattern[0] << c.pattern[1];
    }
}

TEST(RawIdentification, FlipFollowsTheOrientation) {
    constexpr std::int32_t kFlips[] = {5, 0, 1, 3, 2, 4, 6, 7, 5};
    for (std::uint32_t orientation = 0; orientation <= 8; ++orientation) {
        RawDecodeState state;
        ASSERT_TRUE(Identify(
            Directory([&](TiffBuilder&, IfdBuilder& ifd) { ifd.Short(274, {orientation}); }),
            state));
        EXPECT_EQ(state.flip, kFlips[orientation]) << orientation;
    }
}

TEST(CameraRules, GiveThePanasonicBodiesTheirVisibleArea) {
    struct Case {
        std::uint32_t rawWidth, rawHeight;
        std::uint32_t width, height, top, left, pattern, maximum;
        bool zeros;
        float firstWeight;  // of the matrix; 1 without one
    };
    constexpr std::uint32_t kDefault = 0xB4B4B4B4, kIs = 0x4B4B4B4B;
    const Case cases[] = {
        {3177, 2400, 3167, 2400, 0, 0, kIs, 0xF7FC, true, 1.608760f},
        {3304, 2458, 3288, 2458, 0, 0, kDefault, 0xF94C, true, 0},
        {3330, 2481, 3291, 2470, 10, 9, kIs, 0xF7F0, true, 1},
        {3330, 2480, 3291, 2480, 0, 9, kIs, 0xF7F0, true, 1},
        {3370, 2490, 3288, 2470, 10, 15, kIs, 65520, true, 1},
        {2568, 1928, 2568, 1928, 0, 0, kDefault, 65520, false, 0},
        {3130, 2330, 3096, 2326, 13, 4, kIs, 0xF7F0, true, 0},
        {3170, 2326, 3096, 2326, 0, 18, kDefault, 0xF7F0, true, 0},
        {3690, 2763, 3672, 2760, 15, 3, kIs, 0xF7F0, true, 0},
        {3690, 2700, 3672, 2697, 0, 3, kIs, 0xF7F0, true, 0},
        {3710, 2500, 3682, 2500, 0, 0, kIs, 65520, false, 1},
        {3770, 2799, 3672, 2760, 15, 17, kDefault, 65520, true, 0},
        {3880, 2200, 3858, 2200, 0, 6, kDefault, 0xF7F0, true, 1.327850f},
        {4290, 2401, 4248, 2400, 15, 3, kIs, 65520, false, 0},
        {4330, 2439, 4248, 2400, 15, 17, kDefault, 65520, false, 0},
        {4000, 3000, 4000, 3000, 0, 0, kDefault, 65520, false, 1},
    };
    for (const Case& c : cases) {
        TiffBuilder tiff;
        tiff.Ifd()
            .Short(2, {c.rawWidth})
            .Short(3, {c.rawHeight})
            .Ascii(271, "Panasonic")
            .Ascii(272, "DMC-X")
            .Long(273, {8});
        RawDecodeState state;
        ASSERT_TRUE(Identify(tiff.Build(), state)) << c.rawWidth;
        EXPECT_EQ(state.rawWidth, c.rawWidth);
        EXPECT_EQ(state.width, c.width) << c.rawWidth;
        EXPECT_EQ(state.height, c.height) << c.rawWidth;
        EXPECT_EQ(state.topMargin, c.top) << c.rawWidth;
        EXPECT_EQ(state.leftMargin, c.left) << c.rawWidth;
        EXPECT_EQ(state.cfaPattern, c.pattern) << c.rawWidth;
        EXPECT_EQ(state.maximum, c.maximum) << c.rawWidth;
        EXPECT_EQ(state.repairZeros, c.zeros) << c.rawWidth;
        EXPECT_EQ(state.rawColor, c.firstWeight == 1) << c.rawWidth;
        const float weight = state.cameraToOutput[0][0];
        EXPECT_NEAR(weight, c.firstWeight != 0 ? c.firstWeight : weight, 1e-5);
    }
}

TEST(CameraRules, HasselbladMargins) {
    RawForm form = FormOf(7262, 5456);
    form.make = "Hasselblad";
    RawDecodeState state;
    ASSERT_TRUE(Identify(BuildRaw(form, {}), state));
    EXPECT_EQ(state.width, 7248);
    EXPECT_EQ(state.height, 5444);
    EXPECT_EQ(state.topMargin, 4);
    EXPECT_EQ(state.leftMargin, 7);
    EXPECT_EQ(state.cfaPattern, 0xE1E1E1E1u);
}

TEST(CameraRules, TheNamelessCameraIsKnownByItsSize) {
    RawForm form = FormOf(100, 100);
    Bytes file = BuildRaw(form, Bytes(10));
    file.resize(6114240);
    RawDecodeState state;
    ASSERT_TRUE(Identify(file, state));
    EXPECT_EQ(state.loader, &kPacked12);
    EXPECT_EQ(state.maximum, 3962u);
    EXPECT_EQ(state.rawWidth, 3520);
    EXPECT_EQ(state.width, 2324);
    EXPECT_EQ(state.height, 1737);
    EXPECT_EQ(state.presetMultipliers[0], 1.98f);
    EXPECT_EQ(state.presetMultipliers[2], 1.57f);
    EXPECT_EQ(state.loader->rowBytes(state), 3486u);
    file.pop_back();
    RawDecodeState shorter;
    ASSERT_TRUE(Identify(file, shorter));
    EXPECT_EQ(shorter.width, 100);
}

TEST(RawColors, FollowFromTheMatrix) {
    struct Case {
        const char* make;
        const char* model;
        float first[3];
    };
    const Case cases[] = {
        {"SEIKO EPSON CORP.", "R-D1", {1.585533f, -0.505680f, -0.079853f}},
        {"Panasonic", "DMC-LX1", {1.327850f, -0.223395f, -0.104455f}},
        {"Panasonic", "DMC-L1", {1.608760f, -0.565523f, -0.043237f}},
    };
    for (const Case& c : cases) {
        RawForm form = FormOf(64, 48);
        form.make = c.make;
        form.model = c.model;
        RawDecodeState state;
        ASSERT_TRUE(Identify(BuildRaw(form, {}), state)) << c.model;
        EXPECT_FALSE(state.rawColor);
        for (int i = 0; i < 3; ++i) EXPECT_NEAR(state.cameraToOutput[0][i], c.first[i], 1e-5);
        for (const auto& row : state.cameraToOutput)
            EXPECT_NEAR(row[0] + row[1] + row[2], 1, 1e-5);  // white stays white
    }
    // A name that only begins like a known one is another camera.
    for (const char* model : {"DMC-L12", "DMC-FZ80", "R"}) {
        RawForm form = FormOf(64, 48);
        form.make = "Panasonic";
        form.model = model;
        RawDecodeState state;
        ASSERT_TRUE(Identify(BuildRaw(form, {}), state));
        EXPECT_TRUE(state.rawColor) << model;
    }
}

TEST(RawColors, BalanceOfEpsonsNoteAndLeafsBlock) {
    std::vector<std::uint32_t> words(256);
    words[24] = 200;
    words[25] = 150;
    for (const Order order : {Order::kLittle, Order::kBig}) {
        NoteFile file(order, "SEIKO EPSON CORP.", std::string_view("EPSON\0\1\0", 8));
        file.Ifd().Long(256, {64}).Long(257, {48}).Short(258, {12}).Short(259, {1});
        file.Note().Short(0x0201, {7}).Short(0x0E80, words);
        RawDecodeState state;
        ASSERT_TRUE(Identify(file.Build(), state));
        EXPECT_FLOAT_EQ(state.cameraMultipliers[0], 200 * 508 * 1.078f / 65536);
        EXPECT_EQ(state.cameraMultipliers[1], 1);
        EXPECT_FLOAT_EQ(state.cameraMultipliers[2], 150 * 382 * 1.173f / 65536);
    }
    const std::string name = std::string(60, '.') + "NeutObj_neutrals" + std::string(28, '\0');
    struct Case {
        std::string text;
        float red, green, blue;
    };
    const Case cases[] = {
        {"1000 500 1000\n800", 2, 1, 1.25f}, {"1000 500 1000", 0, 0, 0}, {"1 0 1 1", 0, 0, 0}};
    for (const Case& c : cases) {
        const std::string block = name + c.text;
        RawDecodeState state;
        ASSERT_TRUE(Identify(Directory([&](TiffBuilder&, IfdBuilder& ifd) {
                                 ifd.Undefined(34310, Bytes(block.begin(), block.end()));
                             }),
                             state));
        EXPECT_EQ(state.cameraMultipliers[0], c.red) << c.text;
        EXPECT_EQ(state.cameraMultipliers[1], c.green) << c.text;
        EXPECT_EQ(state.cameraMultipliers[2], c.blue) << c.text;
    }
}

TEST(RawColors, OfDngTagsAndTextBlocks) {
    DngForm form;
    form.width = 64;
    form.height = 48;
    form.more = [](TiffBuilder&, IfdBuilder& ifd) {
        ifd.SRational(50721, {{1}, {0}, {0}, {0}, {1}, {0}, {0}, {0}, {1}});
        ifd.SRational(50722, {{10704, 10000},
                              {-4187, 10000},
                              {-1230, 10000},
                              {-8314, 10000},
                              {15952, 10000},
                              {2501, 10000},
                              {-920, 10000},
                              {945, 10000},
                              {8927, 10000}});
        ifd.Rational(50728, {{1, 2}, {1}, {4, 5}}).Short(50779, {21});
    };
    RawDecodeState dng;
    ASSERT_TRUE(Identify(BuildDng(form, Samples{64, 48, std::vector<std::uint16_t>(64 * 48)},
                                  [](const Samples& s) { return PackWords(s, Order::kLittle); }),
                         dng));
    EXPECT_NEAR(dng.cameraToOutput[0][0], 1.327850, 1e-5);
    EXPECT_NEAR(dng.presetMultipliers[0], 2.151688, 1e-5);
    EXPECT_EQ(dng.cameraMultipliers[0], 2);
    EXPECT_EQ(dng.cameraMultipliers[2], 1.25f);

    struct Case {
        const char* text;
        float red, blue;
        bool rawColor;
    };
    const Case cases[] = {
        {"MATRIX\nNeutral 1.5 1 2.25\n", 1.5f, 2.25f, true},
        {"Version 3\nNeutral 1.5 1 2.25", 1.5f, 2.25f, false},
        {"MATRIX 1\n Neutral 1 1 1\nNeutral x", 0, 0, true},
        {"short", 0, 0, false},
        {"MATRIX\nNeutral +1.5 1 +2.25", 1.5f, 2.25f, true},
    };
    for (const Case& c : cases) {
        RawDecodeState state;
        ASSERT_TRUE(Identify(
            Directory([&](TiffBuilder&, IfdBuilder& ifd) { ifd.Ascii(50454, c.text); }), state));
        EXPECT_EQ(state.cameraMultipliers[0], c.red) << c.text;
        EXPECT_EQ(state.cameraMultipliers[2], c.blue) << c.text;
        EXPECT_EQ(state.rawColor, c.rawColor) << c.text;
    }
    // What one block has cleared the next one does not set again.
    RawDecodeState both;
    ASSERT_TRUE(Identify(Directory([](TiffBuilder&, IfdBuilder& ifd) {
                             ifd.Ascii(50454, "Version 3").Ascii(50455, "MATRIX 1");
                         }),
                         both));
    EXPECT_FALSE(both.rawColor);
}

}  // namespace
}  // namespace qmx::test
