// Olympus' MakerNote, old form and new, with the directories in it, and the texts.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "makernote/dispatch.h"
#include "makernote/olympus_fields.h"
#include "support/listing.h"
#include "support/note_file.h"
#include "support/parse.h"
#include "text/summary.h"
#include "unit/bare_note.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = OlympusMakerFields;

BareNote OldNote(Order order = Order::kLittle) {
    return BareNote(kMakerOlympus, "OLYMP\0\1\0"sv, 0, order);
}

Fields FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

// clang-format off

void FillEveryTag(BareNote& note) {
    note.Entries()
        .Ascii(0x0104, "1.2").Long(0x0200, {3, 4, 2}).Short(0x0201, {33}).Short(0x0202, {2})
        .Short(0x0203, {6}).Rational(0x0204, {{5, 2}}).Ascii(0x0207, "SX756")
        .Undefined(0x0209, FromText("OLYMPUS DIGITAL CAMERA         \0"sv)).Short(0x0302, {1})
        .Short(0x0303, {5}).Short(0x0403, {17}).Ascii(0x0404, "S-0404").Ascii(0x0405, "F-0405")
        .Short(0x1004, {2}).Short(0x1005, {5, 0}).Short(0x100A, {1}).Short(0x100B, {1})
        .Rational(0x100C, {{3500, 1}}).Short(0x100F, {2}).Short(0x1015, {2, 5})
        .Ascii(0x101A, "S-101A  ").SRational(0x1023, {{-1, 2}}).Short(0x1026, {1})
        .Short(0x1029, {2}).Long(0x102E, {2560}).Long(0x102F, {1920}).Rational(0x1034, {{27, 10}})
        .Short(0x1039, {1}).Short(0x103A, {1});
    note.Directory(0x2010)
        .Ascii(0x0100, "D4040").Ascii(0x0101, "143008611                      ")
        .Long(0x0104, {0x1300}).Byte(0x0201, {1, 0xEE, 2, 0x10, 0xEE, 0xEE})
        .Ascii(0x0202, "050105886").Ascii(0x0203, "A lens").Long(0x0204, {0x1100})
        .Short(0x0205, {760}).Short(0x0206, {925}).Short(0x0207, {14}).Short(0x0208, {54})
        .Byte(0x0301, {2, 0xEE, 8, 0, 0, 0}).Ascii(0x0403, "WCON").Short(0x1000, {3})
        .Short(0x1001, {2});
    note.Directory(0x2020)
        .Short(0x0200, {3}).Short(0x0201, {1}).Short(0x0202, {261}).SRational(0x0203, {{1, 3}})
        .Short(0x0300, {1}).Short(0x0301, {2, 68}).Short(0x0302, {1, 9}).Short(0x0303, {1})
        .Long(0x0304, {0, 0, 0x79798585, 1}).Short(0x0400, {18}).SRational(0x0401, {{-2, 3}})
        .Short(0x0404, {3, 0, 0, 0}).Short(0x0500, {20}).Short(0x0501, {3000})
        .Value(0x0502, kTypeSShort, 2, ByteWriter(Order::kLittle).U16(0xFFFE).U16(3).bytes)
        .Short(0x0503, {2, 1, 5}).Short(0x0504, {4}).Short(0x0505, {6, 0, 9})
        .Short(0x0506, {7, 0, 9}).Short(0x0507, {1}).Short(0x0509, {142}).Short(0x050A, {9})
        .Short(0x050B, {1}).Short(0x050C, {0}).Rational(0x050D, {{4, 1}})
        .Short(0x050F, {1, 2, 3, 4}).Short(0x0520, {256, 7}).Short(0x0521, {8}).Short(0x0523, {9})
        .Short(0x0524, {10}).Short(0x0525, {5}).Short(0x0526, {2}).Short(0x0527, {1, 2, 3})
        .Short(0x0529, {9, 0, 0, 0}).Short(0x0600, {5, 2, 65}).Short(0x0601, {3, 6})
        .Short(0x0603, {4}).Long(0x0604, {2});
    note.Directory(0x2040).Long(0x0614, {4000}).Long(0x0615, {3000});
    note.Directory(0x3000).Short(0x1000, {22});
}

TEST(OlympusNote, EveryTagHasItsFieldAndEveryFieldItsLine) {
    const Fields expected = {
        .cameraId = "OLYMPUS DIGITAL CAMERA", .mainType = "SX756", .mainSerial = "S-101A",
        .compactSerial = "S-0404", .mainFirmware = "1.2", .compactFirmware = "F-0405",
        .specialMode = 3, .specialSequence = 4, .specialPanorama = 2, .mainQuality = 33,
        .mainMacro = 2, .blackAndWhite = 6, .digitalZoom = 2.5f, .oneTouchBalance = 1,
        .mainBalanceBracket = 5, .compactScene = 17, .mainFlash = 2, .flashDevice = 5,
        .focusRange = 1, .mainFocusMode = 1, .manualFocusDistance = 3500, .mainSharpness = 2,
        .whiteBalanceCode = 2, .whiteBalanceSubCode = 5, .mainFlashCompensation = -0.5f,
        .flashBounce = 1, .mainContrast = 2, .mainCompression = 2.7f, .scanMode = 1,
        .mainNoiseReduction = 1, .imageWidth = 2560, .imageHeight = 1920, .cameraType = "D4040",
        .serialNumber = "143008611", .lensSerial = "050105886", .lensModel = "A lens",
        .conversionLens = "WCON", .bodyFirmware = 0x1300, .lensFirmware = 0x1100,
        .lensId = 0x010210, .widestAtMinFocal = 760, .widestAtMaxFocal = 925,
        .minFocalLength = 14, .maxFocalLength = 54, .extender = 0x0208, .flashType = 3,
        .flashModel = 2, .exposureMode = 3, .aeLock = 1, .meteringMode = 261,
        .exposureShift = 1.0f / 3, .macroMode = 1, .focusMode = 2, .focusBits = 68,
        .focusProcess = 1, .focusSearch = 1, .focusArea = 0x79798585, .flashMode = 18,
        .flashCompensation = -2.0f / 3, .flashControl = 3, .whiteBalance = 20,
        .colorTemperature = 3000, .balanceBracketAmber = -2, .balanceBracketGreen = 3,
        .saturation = 2, .saturationLowest = 1, .modifiedSaturation = 4, .contrast = 6,
        .sharpness = 7, .colorSpace = 1, .sceneMode = 142, .noiseReduction = 9,
        .distortionCorrection = 1, .shadingCompensation = 0, .compression = 4, .gradation = 1,
        .gradationLowest = 2, .gradationHighest = 3, .gradationAuto = 4, .pictureMode = 256,
        .pictureSaturation = 8, .pictureContrast = 9, .pictureSharpness = 10,
        .monochromeFilter = 5, .monochromeTone = 2, .noiseFilter = 1, .noiseFilterLowest = 2,
        .noiseFilterHighest = 3, .artFilter = 9, .driveMode = 5, .driveShot = 2,
        .bracketBits = 65, .panoramaMode = 3, .panoramaShot = 6, .imageQuality = 4,
        .imageStabilization = 2, .lightSource = 22};
    const Lines lines = {
        "カメラID=OLYMPUS DIGITAL CAMERA", "カメラタイプ=D4040", "撮影モード=絞り優先AE",
        "シーンモード=手持ち夜景", "画質モード=RAW", "イメージサイズ=2560, 1920",
        "特殊撮影モード=パノラマ", "　+ 連番=4", "　+ パノラマ方向=右→左",
        "ドライブモード=ブラケット", "　+ 連番=2", "　+ ブラケット=AE+フォーカス",
        "パノラマ=下→上", "　+ 連番=6", "測光モード=ESP+AF測光", "AEロック=オン", "露出シフト=+0.3EV",
        "フラッシュモード=強制発光+強制発光", "フラッシュ制御=TTL", "フラッシュ=内蔵+外部",
        "フラッシュ機種=FL-50", "フラッシュのバウンス=あり", "フラッシュ光量補正=-0.7EV",
        "マクロモード=オン", "フォーカスモード=コンティニュアスAF",
        "　+ AF方式=C-AF+イメージャAF", "AF動作=AFあり", "合焦状態=合焦",
        "フォーカスレンジ=マクロ", "撮影距離=3.5m", "AFエリア=(121,121)-(133,133)",
        "デジタルズーム=2.5倍", "手ブレ補正=オン/モード2", "ホワイトバランス=3000K（電球）",
        "ワンタッチWB=オン", "色温度=3000K", "WBブラケット=-2, +3",
        "仕上がり=モノトーン", "コントラスト=+9", "シャープネス=+10", "色の濃さ=+8",
        "彩度強調=CM4（肌色）", "白黒モード=なし", "フィルター効果=緑", "調色=セピア",
        "アートフィルター=ジオラマ", "階調=ハイキー", "カラースペース=Adobe RGB",
        "ノイズリダクション=ノイズリダクション+オート", "ノイズフィルタ=強",
        "歪み補正=オン", "シェーディング補正=オフ", "CCD走査モード=プログレッシブ",
        "圧縮率=4.0", "レンズ情報=Sigma 19mm F2.8 EX DN", "レンズ名=A lens",
        "レンズシリアル番号=050105886", "レンズファームウェア=1.100", "エクステンダー=(520)",
        "コンバージョンレンズ=WCON", "シリアル番号=143008611", "ファームウェア=1.300"};
    BareNote note = OldNote();
    FillEveryTag(note);
    const ImageInfo info = note.Decode();
    EXPECT_TRUE(HoldsRecord(info, expected));
    EXPECT_TRUE(Lists(info, lines));
    note.ExpectHarmless(sizeof(Fields));
    const ImageInfo empty = OldNote(Order::kBig).Decode();
    EXPECT_TRUE(HoldsRecord(empty, Fields()));
    EXPECT_TRUE(Lists(empty, {}));
}

TEST(OlympusNote, RulesOfSingleTags) {
    struct Case {
        const char* what; void (*fill)(BareNote&); std::int32_t Fields::*field, value;
    };
    const auto area65 = [](BareNote& n) {
        std::vector<std::uint32_t> areas(65);
        areas[64] = 5;
        n.Directory(0x2020).Long(0x0304, areas);
    };
    const Case cases[] = {
        {"three bytes are no lens",
         [](BareNote& n) { n.Directory(0x2010).Byte(0x0201, {0, 0, 1}); },
         &Fields::lensId, INT_UNSET},
        {"no lens",
         [](BareNote& n) { n.Directory(0x2010).Byte(0x0201, {0, 1, 0, 0, 9, 9}); },
         &Fields::lensId, 0},
        {"range 0", [](BareNote& n) { n.Directory(0x2010).Short(0x0207, {0}); },
         &Fields::minFocalLength, INT_UNSET},
        {"no area in use", [](BareNote& n) { n.Directory(0x2020).Long(0x0304, {0, 0}); },
         &Fields::focusArea, INT_UNSET},
        {"area behind the list", area65, &Fields::focusArea, INT_UNSET},
        {"one word of two", [](BareNote& n) { n.Entries().Short(0x1015, {3}); },
         &Fields::whiteBalanceSubCode, 0},
        {"crop of the raw data",
         [](BareNote& n) { n.Directory(0x3000).Long(0x0614, {3264}).Long(0x0615, {2448}); },
         &Fields::imageHeight, 2448},
        {"size 0 gives way",
         [](BareNote& n) {
             n.Entries().Long(0x102E, {0}).Long(0x102F, {1920});
             n.Directory(0x2040).Long(0x0614, {4032}).Long(0x0615, {3024});
         },
         &Fields::imageHeight, 3024},
        {"half a size", [](BareNote& n) { n.Entries().Long(0x102E, {2560}); },
         &Fields::imageWidth, INT_UNSET},
        {"negative size", [](BareNote& n) { n.Entries().Long(0x102E, {1}).Long(0x102F, {~0u}); },
         &Fields::imageWidth, INT_UNSET},
    };
    for (const Case& c : cases) {
        BareNote note = OldNote();
        c.fill(note);
        EXPECT_EQ(FieldsOf(note.Decode()).*c.field, c.value) << c.what;
    }
}

TEST(OlympusNote, ExifTakesWhatItLacks) {
    BareNote note = OldNote();
    note.Entries().SRational(0x1000, {{7, 1}}).SRational(0x1001, {{6, 1}})
        .SRational(0x1002, {{4, 1}}).SRational(0x1003, {{-3, 2}}).SRational(0x1006, {{-1, 2}});
    note.Directory(0x2010).Short(0x020A, {1024});
    const ImageInfo filled = note.Decode();
    EXPECT_EQ(filled.shutterSpeed, 1.0f / 128);
    EXPECT_EQ(filled.isoSpeed, 200);
    EXPECT_EQ(filled.aperture, 4.0f);
    EXPECT_EQ(filled.brightness, -1.5f);
    EXPECT_EQ(filled.exposureBias, -0.5f);
    EXPECT_EQ(filled.maxAperture, 4.0f);

    ImageInfo& before = note.before;
    before.shutterSpeed = before.aperture = before.brightness = before.exposureBias = 9.0f;
    before.maxAperture = 9.0f;
    before.isoSpeed = 9;
    const ImageInfo kept = note.Decode();
    for (const float value : {kept.shutterSpeed, kept.aperture, kept.brightness,
                              kept.exposureBias, kept.maxAperture})
        EXPECT_EQ(value, 9.0f);
    EXPECT_EQ(kept.isoSpeed, 9);
    // What reads as 0 says nothing, nor does what no film has.
    BareNote empty = OldNote();
    empty.Entries().SRational(0x1000, {{0, 0}}).SRational(0x1001, {{0, 0}});
    EXPECT_EQ(empty.Decode().shutterSpeed, FLOAT_UNSET);
    EXPECT_EQ(empty.Decode().isoSpeed, INT_UNSET);
    for (const std::int64_t apex : {-2000, -4, 30, 2000}) {
        BareNote wild = OldNote();
        wild.Entries().SRational(0x1001, {{apex, 1}});
        EXPECT_EQ(wild.Decode().isoSpeed, INT_UNSET) << apex;
    }
}

// A note in a file: Equipment with a serial number, linked by a value of this type; offsets count
// from the note or from the TIFF header.
TEST(OlympusNote, FormsAndBases) {
    constexpr std::uint32_t kPosition = 40, kTiff = 12, kEntry = 2 + 12 + 4;
    constexpr Order kLittle = Order::kLittle, kBig = Order::kBig;
    constexpr std::uint16_t kTypes[] = {13, kTypeLong, kTypeUndefined};
    struct Case { std::string_view header; Order fileOrder, noteOrder; bool fromNote, isRead; };
    const Case cases[] = {
        {"OLYMPUS\0II\3\0"sv, kLittle, kLittle, true, true},
        {"OLYMPUS\0II\3\0"sv, kBig, kLittle, true, true},
        {"OLYMPUS\0MM\0\3"sv, kLittle, kBig, true, true},
        {"OLYMP\0\1\0"sv, kLittle, kLittle, false, true},
        {"OLYMP\0\2\0"sv, kBig, kBig, false, true},
        {"OLYMPUS\1"sv, kBig, kBig, false, true},
        {"OLYMPUS\0II\3\0"sv, kLittle, kLittle, false, false},
        {"OLYMP\0\1\0"sv, kLittle, kLittle, true, false},
    };
    for (const Case& c : cases) {
        for (const std::uint16_t type : kTypes) {
            const std::uint32_t equipment = static_cast<std::uint32_t>(c.header.size()) + kEntry +
                                            (c.fromNote ? 0 : kPosition - kTiff);
            ByteWriter note(c.noteOrder);
            note.U16(1).U16(0x2010).U16(type).U32(type == kTypeUndefined ? kEntry : 1);
            note.U32(equipment).U32(0).U16(1).U16(0x0101).U16(kTypeAscii).U32(10);
            note.U32(equipment + kEntry).U32(0).Raw(FromText("143008611\0"sv));
            const Bytes file = Bytes(kPosition, 0xEE) + FromText(c.header) + note.bytes;
            BytesContext context(file, c.fileOrder == kLittle ? kLittleEndian : kBigEndian);
            context.ctx.info.makerId = kMakerOlympus;
            context.ctx.tiffBase = kTiff;
            SeekTo(context.ctx, kPosition);
            ParseMakerNote(context.ctx, kTiff);
            const Fields fields = FieldsOf(context.ctx.info);
            EXPECT_EQ(FieldText(fields.serialNumber), c.isRead ? "143008611" : "")
                << "row " << &c - cases << ", type " << type;
        }
    }
}

TEST(OlympusNote, OtherHeadersStayClosed) {
    for (const std::string_view header : {"OM SYSTEM\0"sv, "olympus\0"sv, "OLYM"sv, ""sv}) {
        const ImageInfo info = BareNote(kMakerOlympus, header).Decode();
        EXPECT_EQ(info.hasMakerNote, 0) << header;
        EXPECT_EQ(info.makerFields[0], 0);
    }
}

// Pictures behind everything else, by each pair of tags that leads to one.
TEST(OlympusNote, PreviewsAreDelivered) {
    static const Bytes jpeg = JpegStream(Segment(0xDB, Bytes(6)), 320, 240);
    using File = NoteFile;
    using U32 = std::uint32_t;
    const auto photo = [](void (*fill)(File&, U32, U32), U32 offset, U32 length) {
        File file(Order::kLittle, "OLYMPUS CORPORATION", "OLYMP\0\1\0"sv);
        fill(file, offset, length);
        return file.Tiff().Trailer(jpeg).Build();
    };
    constexpr void (*kPlaces[])(File&, U32, U32) = {
        [](File& f, U32 at, U32 size) {
            IfdBuilder& settings = f.Tiff().SubIfd();
            f.Note().Link(0x2020, {&settings});
            settings.Long(0x0100, {1}).Long(0x0101, {at}).Long(0x0102, {size});
        },
        [](File& f, U32 at, U32 size) {
            f.Note().Short(0x1035, {1}).Long(0x1036, {at}).Long(0x1037, {size});
        },
        [](File& f, U32 at, U32 size) { f.Note().Long(0x1037, {size}).Long(0x1036, {at}); },
        [](File& f, U32 at, U32 size) { f.Note().Long(0x0F04, {at}).Long(0x0F05, {size}); },
        [](File& f, U32 at, U32 size) { f.Note().Long(0x0088, {at}).Long(0x0089, {size}); },
    };
    for (const auto& fill : kPlaces) {
        SCOPED_TRACE(&fill - kPlaces);
        ExpectPreview(jpeg, [&](U32 at, U32 size) { return photo(fill, at, size); });
    }
    // Values that are the picture, one that is none, and a picture that is said to be invalid.
    const auto deliver = [&](auto fill) { return DeliveredBytes(photo(fill, 0, 0)); };
    EXPECT_EQ(deliver([](File& f, U32, U32) { f.Note().Undefined(0x0081, jpeg); }), jpeg);
    EXPECT_EQ(deliver([](File& f, U32, U32) { f.Note().Undefined(0x0100, jpeg); }), jpeg);
    EXPECT_EQ(deliver([](File& f, U32, U32) { f.Note().Undefined(0x0100, Bytes(20)); }), Bytes());
    EXPECT_EQ(deliver([](File& f, U32, U32) {
        const auto size = static_cast<U32>(jpeg.size());
        IfdBuilder& settings = f.Tiff().SubIfd();
        f.Note().Link(0x2020, {&settings});
        settings.Long(0x0100, {0}).Data(0x0101, jpeg).Long(0x0102, {size});
    }), Bytes());
}
// And says that it has the most entries.
TEST(OlympusNote, DirectoryThatLeadsToItselfEnds) {
    BareNote loop = OldNote();
    IfdBuilder& self = loop.Directory(0x2010).Ascii(0x0101, "S").EntryCount(0xFFFF);
    for (const int tag : {0x2010, 0x2020, 0x2040, 0x3000}) {
        loop.Entries().Link(static_cast<std::uint16_t>(tag), {&self});
        self.Link(static_cast<std::uint16_t>(tag), {&self});
    }
    loop.Entries().EntryCount(0xFFFF);
    EXPECT_EQ(FieldText(FieldsOf(loop.Decode()).serialNumber), "S");
}

TEST(OlympusSection, OlderDirectoriesConditionsAndFallbacks) {
    ExpectLists<Fields>(kMakerOlympus, {
        {{.oneTouchBalance = 2, .focusSearch = 0},
         {"合焦状態=未合焦", "ワンタッチWB=オン（プリセット）"}},
        {{.pictureContrast = -1, .pictureSharpness = 0}, {"コントラスト=-1", "シャープネス=±0"}},
        {{.cameraType = "D4040", .saturation = 2, .saturationLowest = -2},
         {"カメラタイプ=D4040", "色の濃さ=CS4"}},
        {{.gradation = -1, .gradationAuto = 0}, {"階調=ローキー"}},
        {{.noiseFilter = -2, .noiseFilterLowest = -2, .noiseFilterHighest = 1},
         {"ノイズフィルタ=オフ"}},
        {{.lensFirmware = 0x1001, .lensId = 0x500, .extender = 4},
         {"レンズ情報=ZD 14-54mm F2.8-3.5", "レンズファームウェア=1.001", "エクステンダー=EC-14"}},
        {{.mainType = "SX874", .mainQuality = 2}, {"カメラタイプ=SX874", "画質モード=SHQ"}},
        {{.mainType = "SX151", .mainQuality = 2}, {"カメラタイプ=SX151", "画質モード=HQ"}},
        {{.mainQuality = 0, .cameraType = "D4322"}, {"カメラタイプ=D4322", "画質モード=SQ"}},
        {{.mainQuality = 7}, {"画質モード=(7)"}},
        {{.compactScene = 43}, {"シーンモード=手持ち夜景"}},
        {{.specialMode = 0, .specialSequence = 0, .specialPanorama = 0}, {"特殊撮影モード=標準"}},
        {{.driveMode = 0, .driveShot = 0, .bracketBits = 0}, {"ドライブモード=1コマ撮影"}},
        {{.panoramaMode = 0, .panoramaShot = 1}, {}},
        {{.mainFlash = 2, .flashMode = 0}, {"フラッシュモード=発光禁止"}},
        {{.flashMode = 64}, {"フラッシュモード=(64)"}},
        {{.mainFlash = 0}, {"フラッシュモード=(0)"}},
        {{.flashType = 2, .flashModel = 0}, {"フラッシュ=簡易E-System"}},
        {{.mainFlashCompensation = 0}, {"フラッシュ光量補正=±0"}},
        {{.mainMacro = 2, .mainFocusMode = 1}, {"マクロモード=スーパーマクロ", "フォーカスモード=マニュアルフォーカス"}},
        {{.manualFocusDistance = 0}, {}},
        {{.manualFocusDistance = -5}, {}},
        {{.digitalZoom = 0}, {"デジタルズーム=オフ"}},
        {{.whiteBalanceCode = 0x102, .whiteBalanceSubCode = 0x305}, {"ホワイトバランス=4500K"}},
        {{.lightSource = 17}, {"ホワイトバランス=曇天"}},
        {{.colorTemperature = 0, .balanceBracketAmber = 0}, {}},
        {{.balanceBracketAmber = 0, .balanceBracketGreen = 0}, {}},
        {{.mainBalanceBracket = 2}, {"WBブラケット=+2"}},
        {{.mainSharpness = 1, .mainContrast = 0}, {"コントラスト=高い", "シャープネス=ハード"}},
        {{.saturation = 0, .contrast = 2, .sharpness = -1}, {"コントラスト=+2", "シャープネス=-1", "色の濃さ=±0"}},
        {{.monochromeFilter = 0, .monochromeTone = 0, .artFilter = 0}, {}},
        {{.gradation = 0, .gradationAuto = 1}, {"階調=オート"}},
        {{.noiseReduction = 0}, {"ノイズリダクション=なし"}},
        {{.mainNoiseReduction = 1}, {"ノイズリダクション=オン"}},
        {{.noiseFilter = 0, .noiseFilterLowest = 0, .noiseFilterHighest = 0}, {}},
        {{.noiseFilter = 0}, {"ノイズフィルタ=標準"}},
        {{.bodyFirmware = 0, .lensId = 0, .extender = 0}, {}},
        {{.compactSerial = "0404", .mainFirmware = "1"}, {"シリアル番号=0404", "ファームウェア=1"}},
    });
}

TEST(OlympusWordings, LensAndWhiteBalance) {
    struct Case { Fields fields; const char *lens, *whiteBalance; };
    const Case cases[] = {
        {{}, "-", "-"},
        {{.lensId = 272, .whiteBalance = 0}, "M.ZD 14-42mm F3.5-5.6", "オート"},
        {{.lensId = 0, .minFocalLength = 14}, "-", "-"},
        {{.lensId = 131329, .whiteBalance = 23}, "(131329)", "5500K（フラッシュ）"},
        {{.lensId = 131329, .widestAtMinFocal = 925, .widestAtMaxFocal = 1273,
          .minFocalLength = 14, .maxFocalLength = 42, .whiteBalance = 4711},
         "14-42mm F3.5-5.6", "(4711)"},
        {{.whiteBalanceCode = 3, .lensId = 131329, .maxFocalLength = 42}, "(131329)", "ワンタッチ"},
        {{.whiteBalanceCode = 1, .whiteBalanceSubCode = 1}, "-", "(257)"},
        {{.whiteBalanceCode = 1, .whiteBalance = 512, .lightSource = 17}, "-", "カスタムWB1"},
        {{.lightSource = 17}, "-", "-"},
    };
    for (const Case& c : cases) {
        const ImageInfo info = InfoOf(kMakerOlympus, c.fields);
        EXPECT_EQ(Wording(&MakerText::lensText, info), c.lens);
        EXPECT_EQ(Wording(&MakerText::whiteBalanceText, info), c.whiteBalance);
    }
}

TEST(OlympusSummary, ImageSizeWhereExifHasNone) {
    struct Case { const char* what; void (*change)(ImageInfo&); std::int32_t width, height; };
    const Case cases[] = {
        {"note alone", [](ImageInfo&) {}, 2560, 1920},
        {"half of Exif's", [](ImageInfo& i) { i.pixelXDimension = 100; }, 2560, 1920},
        {"Exif's", [](ImageInfo& i) { i.pixelXDimension = 100, i.pixelYDimension = 72; }, 100, 72},
        {"no note", [](ImageInfo& i) { i.hasMakerNote = 0; }, INT_UNSET, INT_UNSET},
        {"another maker", [](ImageInfo& i) { i.makerId = kMakerCasio; }, INT_UNSET, INT_UNSET},
        {"never decoded", [](ImageInfo& i) { std::memset(i.makerFields, 0, kMakerFieldsSize); },
         INT_UNSET, INT_UNSET},
        {"none there", [](ImageInfo& i) { ResetMakerRecord<Fields>(i); }, INT_UNSET, INT_UNSET},
    };
    for (const Case& c : cases) {
        ImageInfo info = InfoOf(kMakerOlympus, Fields{.imageWidth = 2560, .imageHeight = 1920});
        c.change(info);
        InfoRequest request = {};
        BuildSummary(info, &request);
        EXPECT_EQ(request.imageWidth, c.width) << c.what;
        EXPECT_EQ(request.imageHeight, c.height) << c.what;
    }
}

// clang-format on

}  // namespace
}  // namespace qmx::test
