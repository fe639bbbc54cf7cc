// Panasonic's part of the texts.  What the fields, named by tag, mean follows the public tag lists
// at exiftool.org/TagNames/Panasonic.html and exiv2.org/tags-panasonic.html; the item table below
// is the one place that says so.

#include "makernote/maker_record.h"
#include "makernote/panasonic_fields.h"
#include "parse/core/numeric.h"
#include "text/maker_sections.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Fields = PanasonicMakerFields;

// One row per line, to be proof-read.
// clang-format off

constexpr ValueName kQualities[] = {
    {2, L"ファイン"},
    {3, L"標準"},
    {6, L"スーパーファイン"},
    {7, L"RAW"},
};

constexpr ValueName kWhiteBalances[] = {
    {1, L"オート"},
    {2, L"晴天"},
    {3, L"曇り"},
    {4, L"白熱灯"},
    {5, L"マニュアル"},
    {8, L"フラッシュ"},
    {10, L"白黒"},
    {12, L"ホワイトセット1"},
    {13, L"ホワイトセット2"},
};

constexpr ValueName kFocusModes[] = {
    {1, L"オート"},
    {2, L"マニュアル"},
};

constexpr ValueName kAfModes[] = {
    {256, L"スポット"},
    {4096, L"オートフォーカス（1点）"},
    {4112, L"オートフォーカス（1点）高速"},
    {16, L"オートフォーカス（3点）高速"},
    {257, L"オートフォーカス（5点）"},
    {1, L"スポット測光"},
    {8192, L"インテリジェント評価測光"},
    {8194, L"中央重点測光"},
    {16384, L"オートフォーカス（23点）"},
};

constexpr ValueName kStabilizers[] = {
    {2, L"オン/モード1"},
    {3, L"オフ"},
    {4, L"オン/モード2"},
};

constexpr ValueName kMacroModes[] = {
    {1, L"オン"},
    {2, L"オフ"},
    {257, L"AFマクロ"},
};

constexpr ValueName kFilmModes[] = {
    {0, L"なし"},
    {1, L"スタンダード"},
    {2, L"ダイナミック"},
    {3, L"ネイチャー"},
    {4, L"スムーズ"},
    {5, L"白黒・スタンダード"},
    {6, L"白黒・ダイナミック"},
    {7, L"白黒・スムーズ"},
    {10, L"ノスタルジック"},
    {11, L"バイブラント"},
};

constexpr ValueName kSceneModes[] = {
    {1, L"標準"},
    {2, L"人物"},
    {3, L"風景"},
    {4, L"スポーツ"},
    {5, L"夜景&人物"},
    {6, L"プログラムAE"},
    {7, L"絞り優先AE"},
    {8, L"シャッター速度優先AE"},
    {9, L"マクロ"},
    {11, L"マニュアル"},
    {13, L"流し撮り"},
    {14, L"かんたん"},
    {18, L"花火"},
    {19, L"パーティー"},
    {20, L"雪"},
    {21, L"夜景"},
    {22, L"料理"},
    {23, L"赤ちゃん"},
    {24, L"美肌"},
    {25, L"キャンドル"},
    {26, L"星空"},
    {27, L"高感度"},
    {29, L"水中"},
    {30, L"ビーチ"},
    {32, L"夕焼け"},
    {33, L"ペット"},
    {37, L"インテリジェントオート"},
    {45, L"マイカラーモード"},
};

constexpr ValueName kColorModes[] = {
    {0, L"なし"},
    {1, L"スタンダード"},
    {7, L"ポップ"},
    {8, L"レトロ"},
    {9, L"ピュア"},
    {10, L"シック"},
    {12, L"モノクローム"},
    {13, L"ダイナミックアート"},
    {14, L"シルエット"},
};

// Deliberate: the first row is never reached, see FormatBurst.
constexpr ValueName kBurstModes[] = {
    {0, L"オフ"},
    {1, L"連射"},
    {2, L"オートブラケット"},
    {4, L"フリー連射"},
};

constexpr ValueName kContrasts[] = {
    {0, L"標準"},
    {1, L"低い"},
    {2, L"高い"},
    {3, L"とても高い"},
    {18, L"ハード"},
    {256, L"低い"},
    {272, L"標準"},
    {288, L"高い"},
};

constexpr ValueName kColorEffects[] = {
    {1, L"なし"},
    {2, L"ウォーム"},
    {3, L"クール"},
    {4, L"モノクロ"},
    {5, L"セピア"},
};

constexpr ValueName kPictureAdjustments[] = {
    {0, L"標準"},
    {1, L"ナチュラル"},
    {2, L"ビビッド"},
};

constexpr ValueName kShadowCorrections[] = {
    {0, L"オフ"},
    {1, L"弱"},
    {2, L"中"},
    {3, L"強"},
};

constexpr ValueName kSelfTimers[] = {
    {1, L"オフ"},
    {2, L"10秒セルフタイマー"},
    {3, L"2秒セルフタイマー"},
    {257, L"シャッターリモコン"},
};

// clang-format on

constexpr wchar_t kNoSuffix[] = L"";

// A shift of the white balance in steps of 150 K.
bool FormatWhiteBalanceShift(const Fields& fields, TextBuffer& dst) {
    constexpr std::uint32_t kKelvinPerStep = 150;
    const std::int32_t steps = fields.panasonicTag23;
    if (!IsSet(steps)) return false;
    FormatSignedInteger(dst, steps);
    if (steps == 0) return true;
    FormatSignedInteger(dst.Append(L" ("), WrappingMultiply(steps, kKelvinPerStep), L"K)");
    return true;
}

bool FormatBurst(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.panasonicTag2A)) return false;
    if (fields.panasonicTag2A < 1) {
        dst.Append(L"なし");
        return true;
    }
    LookupValueName(dst, fields.panasonicTag2A, kBurstModes);
    const std::int32_t number = fields.panasonicTag2B;
    if (!IsSet(number) || number <= 0) return true;
    dst.Append(L" (").AppendInteger(number).Append(L"枚目)");
    return true;
}

// Newer cameras write a step, older ones a code.
bool FormatContrast(const Fields& fields, TextBuffer& dst) {
    return Formatted<&Fields::panasonicTag39, FormatSignedInteger, kNoSuffix>(fields, dst) ||
           Named<&Fields::panasonicTag2C, kContrasts>(fields, dst);
}

constexpr TextRow<Fields> kItems[] = {
    {L"画質モード", Named<&Fields::panasonicTag01, kQualities>},
    {L"ホワイトバランス", Named<&Fields::panasonicTag03, kWhiteBalances>},
    {L"WB微調整", FormatWhiteBalanceShift},
    {L"フォーカスモード", Named<&Fields::panasonicTag07, kFocusModes>},
    {L"AFモード", Named<&Fields::panasonicTag0F, kAfModes>},
    {L"手ブレ補正", Named<&Fields::panasonicTag1A, kStabilizers>},
    {L"マクロモード", Named<&Fields::panasonicTag1C, kMacroModes>},
    {L"フィルムモード", Named<&Fields::panasonicTag42, kFilmModes>},
    {L"シーンモード", Named<&Fields::panasonicTag1F, kSceneModes>},
    {L"マイカラー", Named<&Fields::panasonicTag3D, kColorModes>},
    {L"シリアル番号", Widened<&Fields::panasonicTag25, 256>},
    {L"連続撮影", FormatBurst},
    {L"コントラスト", FormatContrast},
    {L"シャープネス", Formatted<&Fields::panasonicTag41, FormatSignedInteger, kNoSuffix>},
    {L"色の濃さ", Formatted<&Fields::panasonicTag40, FormatSignedInteger, kNoSuffix>},
    // Deliberate: a full-width hyphen-minus in place of the long-vowel mark.
    {L"カラ－エフェクト", Named<&Fields::panasonicTag28, kColorEffects>},
    {L"画質調整", Named<&Fields::panasonicTag32, kPictureAdjustments>},
    {L"暗部補正", Named<&Fields::panasonicTag5D, kShadowCorrections>},
    {L"セルフタイマー", Named<&Fields::panasonicTag2E, kSelfTimers>},
    {L"使用レンズ名", Widened<&Fields::panasonicTag51, 256>},
    {L"アクセサリ", Widened<&Fields::panasonicTag53, 256>},
};

}  // namespace

void EmitPanasonicSection(const ImageInfo& info, const EnumContext& context) {
    EmitRows(MakerRecord<Fields>(info), kItems, context);
}

bool AppendPanasonicLens(const ImageInfo& info, TextBuffer& dst) {
    return Widened<&Fields::panasonicTag51>(MakerRecord<Fields>(info), dst);
}

bool AppendPanasonicWhiteBalance(const ImageInfo& info, TextBuffer& dst) {
    return Named<&Fields::panasonicTag03, kWhiteBalances>(MakerRecord<Fields>(info), dst);
}

bool AppendPanasonicSceneMode(const ImageInfo& info, TextBuffer& dst) {
    const Fields& fields = MakerRecord<Fields>(info);
    if (!FieldText(fields.panasonicTag51).empty() || !IsSet(fields.panasonicTag1F)) return false;
    LookupValueName(dst.Append(L"シーンモード: "), fields.panasonicTag1F, kSceneModes);
    return true;
}

}  // namespace qmx
