// Sigma's part of the texts.  Nearly every value is a text of the camera and stands as it is.

#include "makernote/maker_record.h"
#include "makernote/sigma_fields.h"
#include "text/maker_sections.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Fields = SigmaMakerFields;

// One row per line, to be proof-read.
// clang-format off

// A key names every text that begins with it, and the first one wins.
constexpr PrefixName kDriveModeNames[] = {
    {"SINGLE", L"1コマ撮影"},
    {"MULTI", L"連続撮影"},
    {"2S", L"2秒セルフタイマー"},
    {"10S", L"10秒セルフタイマー"},
    {"UP", L"ミラーアップ"},
    {"AB", L"オートブラケット"},
    {"OFF", L"オフ"},
    {nullptr, nullptr},
};
constexpr PrefixName kProgramModeNames[] = {
    {"P", L"プログラム"},
    {"A", L"絞り優先"},
    {"S", L"シャッター速度優先"},
    {"M", L"マニュアル"},
    {nullptr, nullptr},
};
constexpr PrefixName kMeteringNames[] = {
    {"8", L"8分割式評価測光"},
    {"C", L"中央部重点平均測光"},
    {"A", L"中央部分測光"},
    {"S", L"スポット測光"},
    {nullptr, nullptr},
};
// clang-format on

template <auto Field>
bool Copied(const Fields& fields, TextBuffer& dst) {
    return Widened<Field, 256>(fields, dst);
}

template <auto Field, const auto& Table>
bool Prefixed(const Fields& fields, TextBuffer& dst) {
    const std::string_view text = FieldText(fields.*Field);
    if (text.empty()) return false;
    LookupPrefixName(dst, text, Table);
    return true;
}

// An exposure of 0 s is a camera's way of saying nothing.
bool FormatExposure(const Fields& fields, TextBuffer& dst) {
    if (fields.*sigmaExposureTime == 0.0f) return false;
    return Formatted<sigmaExposureTime, FormatExposureTime>(fields, dst);
}

// The MakerNote and the X3F file keep it in different places.
bool FormatBracket(const Fields& fields, TextBuffer& dst) {
    return Copied<sigmaAutoBracket>(fields, dst) || Copied<&Fields::sigmaBracket>(fields, dst);
}

// clang-format off
constexpr TextRow<Fields> kShotItems[] = {
    {L"露出時間", FormatExposure},
    {L"絞り値", Formatted<sigmaAperture, FormatFNumber>},
    {L"露出補正", Formatted<sigmaExposureBias, FormatExposureBias>},
    {L"シリアル番号", Copied<sigmaCameraSerial>},
    {L"ドライブモード", Prefixed<sigmaDriveMode, kDriveModeNames>},
    {L"解像度", Copied<sigmaResolution>},
    {L"AFモード", Copied<sigmaAfMode>},
    {L"フォーカスモード", Copied<sigmaFocus>},
    {L"AFエリア", Copied<&Fields::sigmaAfArea>},
    {L"AF-In-Focus", Copied<&Fields::sigmaAfInFocus>},
    {L"ホワイトバランス", Copied<sigmaWhiteBalance>},
    {L"撮影モード", Prefixed<sigmaProgramMode, kProgramModeNames>},
    {L"測光モード", Prefixed<sigmaMetering, kMeteringNames>},
    {L"レンズ焦点範囲", Copied<sigmaLensFocalRange>},
    {L"カラースペース", Copied<sigmaColorSpace>},
};

constexpr wchar_t kToneLabel[] = L"階調";

constexpr TextRow<Fields> kToneItems[] = {
    {L"露出", Copied<sigmaExposureAdjust>},
    {L"コントラスト", Copied<sigmaContrastAdjust>},
    {L"シャドウ", Copied<sigmaShadowAdjust>},
    {L"ハイライト", Copied<sigmaHighlightAdjust>},
    {L"彩度", Copied<sigmaSaturationAdjust>},
    {L"シャープネス", Copied<sigmaSharpnessAdjust>},
    {L"X3 Fill Light", Copied<sigmaFillLight>},
};

constexpr TextRow<Fields> kFileItems[] = {
    {L"カラー調整", Copied<sigmaColorAdjust>},
    {L"調整モード", Copied<sigmaAdjustmentMode>},
    {L"画質モード", Copied<sigmaQuality>},
    {L"ファームウェア", Copied<sigmaFirmware>},
    {L"ソフトウェア", Copied<sigmaSoftware>},
    {L"オートブラケット", FormatBracket},
};
// clang-format on

// The group stands even when it is empty.
void EmitTone(const Fields& fields, const EnumContext& context) {
    EmitItem(context, kToneLabel, nullptr);
    wchar_t storage[kValueCapacity];
    for (const TextRow<Fields>& row : kToneItems) {
        TextBuffer value(storage);
        if (row.format(fields, value)) EmitSubItem(context, row.label, value.Text());
    }
}

}  // namespace

void EmitSigmaSection(const ImageInfo& info, const EnumContext& context) {
    const auto& fields = MakerRecord<Fields>(info);
    EmitRows(fields, kShotItems, context);
    EmitTone(fields, context);
    EmitRows(fields, kFileItems, context);
}

bool AppendSigmaWhiteBalance(const ImageInfo& info, TextBuffer& dst) {
    return Widened<sigmaWhiteBalance>(MakerRecord<Fields>(info), dst);
}

}  // namespace qmx
