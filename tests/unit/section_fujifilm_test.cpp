// Fujifilm's section of the labelled list and its wordings.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "makernote/fujifilm_fields.h"
#include "makernote/maker_record.h"
#include "makernote/model_identity.h"
#include "support/listing.h"
#include "support/parse.h"
#include "text/summary.h"

namespace qmx::test {
namespace {

using Fields = FujifilmMakerFields;

ImageInfo InfoOf(const Fields& fields, std::int32_t modelId = 0) {
    ImageInfo info;
    info.makerId = kMakerFujifilm;
    info.modelId = modelId;
    info.hasMakerNote = 1;
    ResetMakerRecord<Fields>(info) = fields;
    return info;
}

Lines List(const Fields& fields, std::int32_t modelId = 0) {
    return ListMakerNote(InfoOf(fields, modelId));
}

// clang-format off

constexpr Fields kFull = {
    .fujiVersion = "0130", .fujiQuality = "NORMAL ", .fujiSharpness = 132, .fujiWhiteBalance = 256,
    .fujiSaturation = 256, .fujiContrast = 512, .fujiColorTemperature = 5600, .fujiContrast2 = 768,
    .fujiWbFineTune1 = 2, .fujiWbFineTune2 = -1, .fujiNoiseReduction = 64, .fujiFlashMode = 4,
    .fujiFlashExposureComp = 0.67f, .fujiMacro = 1, .fujiFocusMode = 1, .fujiAfMode = 0,
    .fujiFocusPixel1 = 1152, .fujiFocusPixel2 = 864, .fujiSlowSync = 1, .fujiPictureMode = 15,
    .fujiAutoBracketing = 3, .fujiSequenceNumber = 7, .fujiTag1210 = 16, .fujiBlurWarning = 1,
    .fujiFocusWarning = 0, .fujiExposureWarning = 2, .fujiDynamicRange = 3, .fujiFilmMode = 512,
    .fujiDynamicRangeSetting = 512, .fujiDevelopmentDynamicRange = 200, .fujiMinFocalLength = 18,
    .fujiMaxFocalLength = 55, .fujiMaxApertureAtMinFocal = 2.8f, .fujiMaxApertureAtMaxFocal = 4.0f,
    .fujiTag4005 = {10, 20, 30, -40}, .fujiReserved = 5};

TEST(FujifilmSection, EveryItemInOrder) {
    const Lines expected = {
        "バージョン=0130", "画質モード=NORMAL ", "撮影モード=高感度2枚撮り",
        "ホワイトバランス=晴天 ( 赤+2, 青-1 )", "色の濃さ=高い", "色温度=5600K",
        "シャープネス=ややハード", "トーン=低い", "コントラスト=低い", "ノイズリダクション=低い",
        "フラッシュモード=外部ストロボ", "フラッシュ光量補正=+0.7", "マクロモード=オン",
        "フォーカスモード=マニュアルフォーカス", "センター固定AF=オフ",
        "フォーカスポイント=1152, 864", "スローシンクロ=オン",
        "連写・自動ブラケットモード=サイクル連射", "連続撮影時の連番=7",
        "FinePixカラー=F-クローム", "手振れ警告=あり", "フォーカス警告=なし", "AE警告=不明(2)",
        "D-レンジ=ワイド (200%)", "D-レンジ モード=ワイド1 (230%)",
        "フィルムシミュレーション=フジクローム", "レンズ情報=18-55mm F2.8",
        "顔検出位置=(10,20)-(30,-40)"};
    EXPECT_EQ(List(kFull), expected);
    EXPECT_EQ(List({}), Lines());
}

std::int32_t ModelIdOf(const char* model) {
    BytesContext context({});
    context.ctx.info.makerId = kMakerFujifilm;
    std::strcpy(context.ctx.info.cameraModel, model);
    IdentifyModel(context.ctx);
    return context.ctx.info.modelId;
}

TEST(FujifilmSection, NamesThatDependOnTheModel) {
    struct Case {
        const char* model;
        std::int32_t modelId;
        std::int32_t film;
        const char *saturation, *tone, *filmName;
    };
    const Case cases[] = {
        {"FinePix E500", 0, 768, "高い", "低い", "スタジオポートレート"},
        {"FinePix F200EXR", 257, 768, "高い", "低い", "ASTIA"},
        {"FinePix F550EXR", 257, 256, "高い", "低い", "PORTRAIT"},
        {"FinePix X100", 257, 0, "高い", "低い", "PROVIA"},
        {"X100T", 257, 288, "高い", "低い", "ASTIA"},
        {"X-Pro1", 257, 512, "高い", "低い", "Velvia"},
        {"FinePix S100FS", 4103, 288, "高い", "低い", "ASTIA"},
        {"FinePix S200EXR", 4103, 304, "高い", "低い", "PORTRAIT"},
        {"FinePixS1Pro", 8192, 0, "高い", "低い", "STD/なし"},
        {"FinePixS2Pro", 8193, 256, "HIGH", "LOW", "ポートレート"},
        {"FinePix S3Pro", 8194, 272, "HIGH", "LOW", "(272)"},
        {"FinePix S5Pro", 8195, 272, "HIGH", "LOW", "F1a"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ModelIdOf(c.model), c.modelId) << c.model;
        const Fields fields = {.fujiSaturation = 256, .fujiContrast = 512, .fujiContrast2 = 256,
                               .fujiFilmMode = c.film};
        const Lines expected = {"色の濃さ=" + std::string(c.saturation),
                                "トーン=" + std::string(c.tone), "コントラスト=高い",
                                "フィルムシミュレーション=" + std::string(c.filmName)};
        EXPECT_EQ(List(fields, c.modelId), expected) << c.model;
    }
    EXPECT_EQ(List({.fujiSaturation = 768, .fujiContrast = 768}, 8193),
              Lines({"色の濃さ=B/W", "トーン=(768)"}));
}

TEST(FujifilmSection, ConditionsAndFallbacks) {
    struct Case {
        Fields fields;
        Lines lines;
    };
    const Case cases[] = {
        {{.fujiSharpness = 0}, {"シャープネス="}},
        {{.fujiWhiteBalance = 3844}, {"ホワイトバランス=カスタム5"}},
        {{.fujiWhiteBalance = 256, .fujiWbFineTune1 = 0}, {"ホワイトバランス=晴天"}},
        {{.fujiWhiteBalance = 256, .fujiWbFineTune1 = 0, .fujiWbFineTune2 = 3},
         {"ホワイトバランス=晴天 ( 赤+0, 青+3 )"}},
        {{.fujiWhiteBalance = 1, .fujiWbFineTune1 = INT32_MIN, .fujiWbFineTune2 = 0},
         {"ホワイトバランス=(1) ( 赤-2147483648, 青+0 )"}},
        {{.fujiWbFineTune1 = 2, .fujiWbFineTune2 = 2}, {}},
        {{.fujiWhiteBalance = 0, .fujiWbFineTune2 = 2}, {"ホワイトバランス=オート"}},
        {{.fujiFlashExposureComp = 0.0f}, {"フラッシュ光量補正=±0"}},
        {{.fujiFocusPixel1 = 5}, {}},
        {{.fujiAutoBracketing = 0, .fujiSequenceNumber = 7}, {"連写・自動ブラケットモード=オフ"}},
        {{.fujiAutoBracketing = 1}, {"連写・自動ブラケットモード=オン"}},
        {{.fujiAutoBracketing = 9, .fujiSequenceNumber = 0},
         {"連写・自動ブラケットモード=(9)", "連続撮影時の連番=0"}},
        {{.fujiSequenceNumber = 7}, {}},
        {{.fujiDynamicRange = 1}, {"D-レンジ=スタンダード"}},
        {{.fujiDevelopmentDynamicRange = 400}, {}},
        {{.fujiMinFocalLength = 28}, {}},
        {{.fujiMinFocalLength = 28, .fujiMaxFocalLength = 28}, {"レンズ情報=28mm"}},
        {{.fujiMinFocalLength = 28, .fujiMaxFocalLength = 70, .fujiMaxApertureAtMinFocal = 2.8f},
         {"レンズ情報=28-70mm F2.8"}},
        {{.fujiTag4005 = {INT_UNSET, 1, 1, 1}}, {}},
        {{.fujiTag4005 = {0, 0, 0, 0}}, {"顔検出位置=(0,0)-(0,0)"}},
    };
    for (const Case& c : cases) EXPECT_EQ(List(c.fields), c.lines);
}

// clang-format on

TEST(FujifilmSection, FieldsWithoutTerminator) {
    Fields fields;
    std::fill(std::begin(fields.fujiVersion), std::end(fields.fujiVersion), 'v');
    EXPECT_EQ(List(fields), Lines({"バージョン=" + std::string(16, 'v')}));
}

TEST(FujifilmSummary, LensAndWhiteBalance) {
    InfoRequest request = {};
    BuildSummary(InfoOf(kFull), &request);
    EXPECT_EQ(Utf8(request.lensText), "18-55mm F2.8-4.0");
    EXPECT_EQ(Utf8(request.whiteBalanceText), "晴天");
    ImageInfo exifOnly = InfoOf({.fujiMinFocalLength = 18});
    exifOnly.whiteBalance = 1;
    BuildSummary(exifOnly, &request);
    EXPECT_EQ(Utf8(request.lensText), "");
    EXPECT_EQ(Utf8(request.whiteBalanceText), "マニュアル");
    BuildSummary(InfoOf({.fujiWhiteBalance = 77}), &request);
    EXPECT_EQ(Utf8(request.whiteBalanceText), "(77)");
}

}  // namespace
}  // namespace qmx::test
