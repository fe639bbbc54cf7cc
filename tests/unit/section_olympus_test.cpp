// Olympus' part of the texts: section, lens, white balance and image size.

#include <gtest/gtest.h>

#include <cstring>

#include "makernote/maker_record.h"
#include "makernote/olympus_fields.h"
#include "support/listing.h"
#include "text/maker_text.h"
#include "text/olympus_lenses.h"
#include "text/summary.h"

namespace qmx::test {
namespace {

using Fields = OlympusMakerFields;

ImageInfo InfoOf(const Fields& fields) {
    ImageInfo info;
    info.makerId = kMakerOlympus;
    info.hasMakerNote = 1;
    ResetMakerRecord<Fields>(info) = fields;
    return info;
}

InfoRequest Summary(const ImageInfo& info) {
    InfoRequest request = {};
    BuildSummary(info, &request);
    return request;
}

// clang-format off

TEST(OlympusSection, EveryItemInOrder) {
    const Fields fields = {
        .cameraId = "OLYMPUS DIGITAL CAMERA", .mainType = "SX756", .mainSerial = "101A",
        .mainFirmware = "1.2", .specialMode = 3, .specialSequence = 4, .specialPanorama = 2,
        .mainQuality = 2, .mainMacro = 2, .blackAndWhite = 6, .digitalZoom = 2.5f,
        .oneTouchBalance = 2, .mainBalanceBracket = 5, .compactScene = 17, .mainFlash = 2,
        .flashDevice = 5, .focusRange = 1, .mainFocusMode = 1, .manualFocusDistance = 3500,
        .mainSharpness = 2, .whiteBalanceCode = 2, .whiteBalanceSubCode = 5,
        .mainFlashCompensation = -0.5f, .flashBounce = 1, .mainContrast = 2,
        .mainCompression = 2.7f, .scanMode = 1, .mainNoiseReduction = 1, .imageWidth = 2560,
        .imageHeight = 1920, .cameraType = "D4040", .serialNumber = "143008611",
        .lensSerial = "050105886", .lensModel = "A lens", .conversionLens = "WCON",
        .bodyFirmware = 0x1300, .lensFirmware = 0x1001, .lensId = 0x500, .extender = 4,
        .flashType = 3, .flashModel = 2, .exposureMode = 3, .aeLock = 1, .meteringMode = 261,
        .exposureShift = 0.33f, .macroMode = 1, .focusMode = 2, .focusBits = 68,
        .focusProcess = 1, .focusSearch = 0, .focusArea = 0x79798585, .flashMode = 18,
        .flashCompensation = -0.67f, .flashControl = 3, .whiteBalance = 20,
        .colorTemperature = 3000, .balanceBracketAmber = -2, .balanceBracketGreen = 3,
        .saturation = 2, .saturationLowest = -2, .modifiedSaturation = 4, .contrast = 6,
        .sharpness = 7, .colorSpace = 1, .sceneMode = 142, .noiseReduction = 9,
        .distortionCorrection = 1, .shadingCompensation = 0, .compression = 4,
        .gradation = -1, .gradationAuto = 0, .pictureMode = 256, .pictureContrast = -1,
        .pictureSharpness = 0, .monochromeFilter = 5, .monochromeTone = 2, .noiseFilter = -2,
        .noiseFilterLowest = -2, .noiseFilterHighest = 1, .artFilter = 9, .driveMode = 5,
        .driveShot = 2, .bracketBits = 65, .panoramaMode = 3, .panoramaShot = 6, .imageQuality = 3,
        .imageStabilization = 2, .lightSource = 22};
    const Lines expected = {
        "カメラID=OLYMPUS DIGITAL CAMERA", "カメラタイプ=D4040", "撮影モード=絞り優先AE",
        "シーンモード=手持ち夜景", "画質モード=SHQ", "イメージサイズ=2560, 1920",
        "特殊撮影モード=パノラマ", "　+ 連番=4", "　+ パノラマ方向=右→左",
        "ドライブモード=ブラケット", "　+ 連番=2", "　+ ブラケット=AE+フォーカス",
        "パノラマ=下→上", "　+ 連番=6", "測光モード=ESP+AF測光", "AEロック=オン", "露出シフト=+0.3EV",
        "フラッシュモード=強制発光+強制発光", "フラッシュ制御=TTL", "フラッシュ=内蔵+外部",
        "フラッシュ機種=FL-50", "フラッシュのバウンス=あり", "フラッシュ光量補正=-0.7EV",
        "マクロモード=オン", "フォーカスモード=コンティニュアスAF",
        "　+ AF方式=C-AF+イメージャAF", "AF動作=AFあり", "合焦状態=未合焦",
        "フォーカスレンジ=マクロ", "撮影距離=3.5m", "AFエリア=(121,121)-(133,133)",
        "デジタルズーム=2.5倍", "手ブレ補正=オン/モード2", "ホワイトバランス=3000K（電球）",
        "ワンタッチWB=オン（プリセット）", "色温度=3000K", "WBブラケット=-2, +3",
        "仕上がり=モノトーン", "コントラスト=-1", "シャープネス=±0", "色の濃さ=CS4",
        "彩度強調=CM4（肌色）", "白黒モード=なし", "フィルター効果=緑", "調色=セピア",
        "アートフィルター=ジオラマ", "階調=ローキー", "カラースペース=Adobe RGB",
        "ノイズリダクション=ノイズリダクション+オート", "ノイズフィルタ=オフ",
        "歪み補正=オン", "シェーディング補正=オフ", "CCD走査モード=プログレッシブ",
        "圧縮率=4.0", "レンズ情報=ZD 14-54mm F2.8-3.5", "レンズ名=A lens",
        "レンズシリアル番号=050105886", "レンズファームウェア=1.001", "エクステンダー=EC-14",
        "コンバージョンレンズ=WCON", "シリアル番号=143008611", "ファームウェア=1.300"};
    EXPECT_EQ(ListMakerNote(InfoOf(fields)), expected);
    EXPECT_EQ(ListMakerNote(InfoOf({})), Lines());
}

TEST(OlympusSection, OlderDirectoriesConditionsAndFallbacks) {
    struct Case {
        void (*change)(Fields&);
        Lines lines;
    };
    const Case cases[] = {
        {[](Fields& f) { std::strcpy(f.mainType, "SX874"), f.mainQuality = 2; },
         {"カメラタイプ=SX874", "画質モード=SHQ"}},
        {[](Fields& f) { std::strcpy(f.mainType, "SX151"), f.mainQuality = 2; },
         {"カメラタイプ=SX151", "画質モード=HQ"}},
        {[](Fields& f) { std::strcpy(f.cameraType, "D4322"), f.mainQuality = 0; },
         {"カメラタイプ=D4322", "画質モード=SQ"}},
        {[](Fields& f) { f.mainQuality = 7; }, {"画質モード=(7)"}},
        {[](Fields& f) { f.compactScene = 43; }, {"シーンモード=手持ち夜景"}},
        {[](Fields& f) { f.specialMode = 0, f.specialSequence = 0, f.specialPanorama = 0; },
         {"特殊撮影モード=標準"}},
        {[](Fields& f) { f.driveMode = 0, f.driveShot = 0, f.bracketBits = 0; },
         {"ドライブモード=1コマ撮影"}},
        {[](Fields& f) { f.panoramaMode = 0, f.panoramaShot = 1; }, {}},
        {[](Fields& f) { f.flashMode = 0, f.mainFlash = 2; }, {"フラッシュモード=発光禁止"}},
        {[](Fields& f) { f.flashMode = 64; }, {"フラッシュモード=(64)"}},
        {[](Fields& f) { f.mainFlash = 0; }, {"フラッシュモード=(0)"}},
        {[](Fields& f) { f.flashType = 2, f.flashModel = 0; }, {"フラッシュ=簡易E-System"}},
        {[](Fields& f) { f.mainFlashCompensation = 0; }, {"フラッシュ光量補正=±0"}},
        {[](Fields& f) { f.mainMacro = 2, f.mainFocusMode = 1; },
         {"マクロモード=スーパーマクロ", "フォーカスモード=マニュアルフォーカス"}},
        {[](Fields& f) { f.manualFocusDistance = 0; }, {}},
        {[](Fields& f) { f.manualFocusDistance = -5; }, {}},
        {[](Fields& f) { f.digitalZoom = 0; }, {"デジタルズーム=オフ"}},
        {[](Fields& f) { f.whiteBalanceCode = 0x102, f.whiteBalanceSubCode = 0x305; },
         {"ホワイトバランス=4500K"}},
        {[](Fields& f) { f.lightSource = 17; }, {"ホワイトバランス=曇天"}},
        {[](Fields& f) { f.colorTemperature = 0, f.balanceBracketAmber = 0; }, {}},
        {[](Fields& f) { f.balanceBracketAmber = 0, f.balanceBracketGreen = 0; }, {}},
        {[](Fields& f) { f.mainBalanceBracket = 2; }, {"WBブラケット=+2"}},
        {[](Fields& f) { f.mainContrast = 0, f.mainSharpness = 1; },
         {"コントラスト=高い", "シャープネス=ハード"}},
        {[](Fields& f) { f.contrast = 2, f.sharpness = -1, f.saturation = 0; },
         {"コントラスト=+2", "シャープネス=-1", "色の濃さ=±0"}},
        {[](Fields& f) { f.monochromeFilter = 0, f.monochromeTone = 0, f.artFilter = 0; }, {}},
        {[](Fields& f) { f.gradation = 0, f.gradationAuto = 1; }, {"階調=オート"}},
        {[](Fields& f) { f.noiseReduction = 0; }, {"ノイズリダクション=なし"}},
        {[](Fields& f) { f.mainNoiseReduction = 1; }, {"ノイズリダクション=オン"}},
        {[](Fields& f) { f.noiseFilter = f.noiseFilterLowest = f.noiseFilterHighest = 0; }, {}},
        {[](Fields& f) { f.noiseFilter = 0; }, {"ノイズフィルタ=標準"}},
        {[](Fields& f) { f.bodyFirmware = 0, f.extender = 0, f.lensId = 0; }, {}},
        {[](Fields& f) { std::strcpy(f.compactSerial, "0404"), std::strcpy(f.mainFirmware, "1"); },
         {"シリアル番号=0404", "ファームウェア=1"}},
    };
    for (const Case& c : cases) {
        Fields fields;
        c.change(fields);
        EXPECT_EQ(ListMakerNote(InfoOf(fields)), c.lines);
    }
}

// clang-format on

TEST(OlympusSummary, LensAndWhiteBalance) {
    struct Case {
        Fields fields;
        const char* lens;
        const char* whiteBalance;
    };
    const Case cases[] = {
        {{}, "", ""},
        {{.lensId = 272, .whiteBalance = 0}, "M.ZD 14-42mm F3.5-5.6", "オート"},
        {{.lensId = 0, .minFocalLength = 14}, "", ""},
        {{.lensId = 131329, .whiteBalance = 23}, "(131329)", "5500K（フラッシュ）"},
        {{.lensId = 131329,
          .widestAtMinFocal = 925,
          .widestAtMaxFocal = 1273,
          .minFocalLength = 14,
          .maxFocalLength = 42,
          .whiteBalance = 4711},
         "14-42mm F3.5-5.6",
         "(4711)"},
        {{.whiteBalanceCode = 3, .lensId = 131329, .maxFocalLength = 42}, "(131329)", "ワンタッチ"},
        {{.whiteBalanceCode = 1, .whiteBalanceSubCode = 1}, "", "(257)"},
        {{.whiteBalanceCode = 1, .whiteBalance = 512, .lightSource = 17}, "", "カスタムWB1"},
        {{.lightSource = 17}, "", ""},
    };
    for (const Case& c : cases) {
        const InfoRequest request = Summary(InfoOf(c.fields));
        EXPECT_EQ(Utf8(request.lensText), c.lens);
        EXPECT_EQ(Utf8(request.whiteBalanceText), c.whiteBalance);
    }
    EXPECT_GE(kOlympusLensCount, 40);
}

TEST(OlympusSummary, ImageSizeWhereExifHasNone) {
    struct Case {
        const char* what;
        void (*change)(ImageInfo&);
        std::int32_t width, height;
    };
    const Case cases[] = {
        {"note alone", [](ImageInfo&) {}, 2560, 1920},
        {"half of Exif's", [](ImageInfo& i) { i.pixelXDimension = 100; }, 2560, 1920},
        {"Exif's", [](ImageInfo& i) { i.pixelXDimension = 100, i.pixelYDimension = 72; }, 100, 72},
        {"no note", [](ImageInfo& i) { i.hasMakerNote = 0; }, INT_UNSET, INT_UNSET},
        {"another maker", [](ImageInfo& i) { i.makerId = kMakerCasio; }, INT_UNSET, INT_UNSET},
        {"never decoded", [](ImageInfo& i) { std::memset(i.makerFields, 0, kMakerFieldsSize); },
         INT_UNSET, INT_UNSET},
        {"not in the note", [](ImageInfo& i) { ResetMakerRecord<Fields>(i); }, INT_UNSET,
         INT_UNSET},
    };
    for (const Case& c : cases) {
        ImageInfo info = InfoOf({.imageWidth = 2560, .imageHeight = 1920});
        c.change(info);
        const InfoRequest request = Summary(info);
        EXPECT_EQ(request.imageWidth, c.width) << c.what;
        EXPECT_EQ(request.imageHeight, c.height) << c.what;
    }
}

}  // namespace
}  // namespace qmx::test
