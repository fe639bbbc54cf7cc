// Casio's part of the texts.

#include "makernote/casio_fields.h"
#include "makernote/maker_record.h"
#include "text/maker_sections.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Fields = CasioMakerFields;

constexpr std::int32_t kBestShotMode = 6;
constexpr std::uint32_t kInfinite = 0x20000000;  // distances from here on

// One row per line, to be proof-read.
// clang-format off

constexpr ValueName kRecordModeNames[] = {
    {2, L"プログラムAE"},
    {3, L"シャッター速度優先AE"},
    {4, L"絞り優先AE"},
    {5, L"マニュアル"},
    {6, L"ベストショット"},
    {17, L"ムービー"},
    {19, L"ムービー"},
    {20, L"YouTubeムービー"},
};
constexpr ValueName kReleaseModeNames[] = {
    {1, L"ノーマル"},
    {3, L"オートブラケット（露出）"},
    {11, L"オートブラケット（WB）"},
    {13, L"オートブラケット（コントラスト）"},
    {19, L"高速連写"},
};
constexpr ValueName kQualityNames[] = {
    {1, L"エコノミー"},
    {2, L"ノーマル"},
    {3, L"ファイン"},
};
constexpr ValueName kFocusModeNames[] = {
    {0, L"マニュアルフォーカス"},
    {1, L"フォーカスロック"},
    {2, L"マクロ"},
    {3, L"シングルエリアAF"},
    {5, L"無限遠"},
    {6, L"マルチエリアAF"},
    {8, L"スーパーマクロ"},
};
constexpr ValueName kWhiteBalanceNames[] = {
    {0, L"マニュアル"},
    {1, L"太陽光"},
    {2, L"曇り"},
    {3, L"日陰"},
    {4, L"フラッシュ"},
    {6, L"蛍光灯"},
    {9, L"電球"},
    {10, L"電球"},
    {12, L"フラッシュ"},
};
constexpr ValueName kColorModeNames[] = {
    {0, L"オフ"},
    {2, L"白黒"},
    {3, L"セピア"},
};
constexpr ValueName kEnhancementNames[] = {
    {0, L"オフ"},
    {1, L"風景"},
    {3, L"緑"},
    {5, L"水中"},
    {9, L"肌色"},
};
constexpr ValueName kColorFilterNames[] = {
    {0, L"オフ"},
    {1, L"青"},
    {3, L"緑"},
    {4, L"黄"},
    {5, L"赤"},
    {6, L"紫"},
    {7, L"ピンク"},
};
// clang-format on

// The scene's number is the model's own and counts in this mode alone.
bool FormatBestShot(const Fields& fields, TextBuffer& dst) {
    if (fields.casioTag3000 != kBestShotMode || !IsSet(fields.casioTag3007)) return false;
    if (fields.casioTag3007 == 0) {
        dst.Append(L"オフ");
    } else {
        dst.AppendInteger(fields.casioTag3007);
    }
    return true;
}

TextBuffer& FormatObjectDistance(TextBuffer& dst, std::int32_t millimetres) {
    if (static_cast<std::uint32_t>(millimetres) >= kInfinite) return dst.Append(L"∞");
    return FormatDistance(dst, millimetres);
}

TextBuffer& FormatIsoSpeed(TextBuffer& dst, std::int32_t speed) {
    return speed == 0 ? dst.Append(L"オート") : dst.AppendInteger(speed);
}

TextBuffer& FormatStep(TextBuffer& dst, std::int32_t word) {
    return FormatSignedInteger(dst, static_cast<std::int16_t>(word));
}

// In the order of shooting.
constexpr TextRow<Fields> kItems[] = {
    {L"撮影モード", Named<&Fields::casioTag3000, kRecordModeNames>},
    {L"ベストショット", FormatBestShot},
    {L"レリーズモード", Named<&Fields::casioTag3001, kReleaseModeNames>},
    {L"画質モード", Named<&Fields::casioTag3002, kQualityNames>},
    {L"フォーカスモード", Named<&Fields::casioTag3003, kFocusModeNames>},
    {L"撮影距離", Formatted<&Fields::casioTag2022, FormatObjectDistance>},
    {L"フラッシュ距離", Formatted<&Fields::casioTag2034, FormatDistance>},
    {L"ISO感度", Formatted<&Fields::casioTag3014, FormatIsoSpeed>},
    {L"ホワイトバランス", Named<&Fields::casioTag2012, kWhiteBalanceNames>},
    {L"ホワイトバランス補正", Pair<&Fields::casioTag2011a, &Fields::casioTag2011b>},
    {L"コントラスト", Formatted<&Fields::casioTag3012, FormatStep>},
    {L"色の濃さ", Formatted<&Fields::casioTag3013, FormatStep>},
    {L"シャープネス", Formatted<&Fields::casioTag3011, FormatStep>},
    {L"カラーモード", Named<&Fields::casioTag3015, kColorModeNames>},
    {L"カラー強調", Named<&Fields::casioTag3016, kEnhancementNames>},
    {L"カラーフィルター", Named<&Fields::casioTag3017, kColorFilterNames>},
    {L"ホームタウン", Widened<&Fields::casioTag3006>},
};

}  // namespace

void EmitCasioSection(const ImageInfo& info, const EnumContext& context) {
    EmitRows(MakerRecord<Fields>(info), kItems, context);
}

}  // namespace qmx
