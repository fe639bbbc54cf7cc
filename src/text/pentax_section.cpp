// Pentax's part of the texts.

#include "makernote/maker_record.h"
#include "makernote/pentax_fields.h"
#include "text/maker_sections.h"
#include "text/pentax_lenses.h"
#include "text/pentax_names.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Fields = PentaxMakerFields;

enum class Place { kItem, kDetail };  // a detail belongs to the item before

struct PentaxRow {
    const wchar_t* label;
    bool (*format)(const Fields& fields, TextBuffer& dst);
    Place place = Place::kItem;
};

constexpr wchar_t kKelvin[] = L"K";
constexpr wchar_t kDegrees[] = L"℃";
constexpr wchar_t kMillimetres[] = L"mm";

// A code; the values left out are the camera's ways of saying nothing.
template <auto Field, const auto& Table, std::int32_t... LeftOut>
bool Code(const Fields& fields, TextBuffer& dst) {
    if (((fields.*Field == LeftOut) || ...)) return false;
    return Named<Field, Table>(fields, dst);
}

template <auto Field>
bool Unsigned(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.*Field)) return false;
    dst.AppendUnsigned(static_cast<std::uint32_t>(fields.*Field));
    return true;
}

bool FormatShootingMode(const Fields& fields, TextBuffer& dst) {
    return Named<&Fields::pictureMode, kPentaxPictureModeNames>(fields, dst) ||
           Named<&Fields::compactMode, kPentaxCompactModeNames>(fields, dst);
}

bool FormatSensitivityAdjust(const Fields& fields, TextBuffer& dst) {
    if (fields.sensitivityAdjust == 0) return false;
    return Formatted<&Fields::sensitivityAdjust, FormatExposureBias>(fields, dst);
}

// Thirds of EV up to 9; from 10 on halves, 0.5 EV first.
bool FormatAutoBracket(const Fields& fields, TextBuffer& dst) {
    constexpr std::int32_t kFirstHalf = 10;
    constexpr std::int32_t kLast = 19;
    const std::int32_t code = fields.autoBracket;
    if (!IsSet(code) || code == 0) return false;
    if (code < 0 || code > kLast) {
        dst.Append(L'(').AppendInteger(code).Append(L')');
        return true;
    }
    const auto number = static_cast<float>(code);
    FormatExposureBias(dst, code < kFirstHalf ? number / 3 : number - 9.5f);
    return true;
}

bool FormatColorTemperature(const Fields& fields, TextBuffer& dst) {
    constexpr std::int32_t kOrigin = 53190;
    const std::int32_t code = fields.colorTemperature;
    if (!IsSet(code) || code <= 0 || code >= kOrigin) return false;
    FormatInteger(dst, kOrigin - code, kKelvin);
    return true;
}

// SLRs write steps where compacts write a name.
template <auto Field, const auto& CompactNames>
bool FormatPictureSetting(const Fields& fields, TextBuffer& dst) {
    if (fields.hasTwoWordSettings != 0 || IsSet(fields.lensId))
        return Named<Field, kPentaxStepNames>(fields, dst);
    return Named<Field, CompactNames>(fields, dst);
}

bool FormatLens(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.lensId)) return false;
    LookupValueName(dst, fields.lensId, kPentaxLensNames, kPentaxLensCount, nullptr);
    return true;
}

// "1.30.00.18"; the camera's own version, or that of its image processor.
bool FormatFirmware(const Fields& fields, TextBuffer& dst) {
    const std::int32_t stored = IsSet(fields.cpuFirmware) ? fields.cpuFirmware : fields.dspFirmware;
    if (!IsSet(stored)) return false;
    const auto version = static_cast<std::uint32_t>(stored);
    dst.AppendUnsigned(version >> 24);
    for (const int shift : {16, 8, 0}) dst.Append(L'.').AppendUnsigned(version >> shift & 0xFF, 2);
    return true;
}

// In the order of shooting.  One row per line, to be proof-read.
// clang-format off
constexpr PentaxRow kItems[] = {
    {L"撮影モード", FormatShootingMode},
    {L"露出ステップ", Code<&Fields::exposureStep, kPentaxExposureStepNames>, Place::kDetail},
    {L"画質モード", Code<&Fields::quality, kPentaxQualityNames, 65535>},
    {L"イメージサイズ", Code<&Fields::imageSize, kPentaxImageSizeNames>},
    {L"ドライブモード", Code<&Fields::drive, kPentaxDriveNames>},
    {L"セルフタイマー", Code<&Fields::selfTimer, kPentaxSelfTimerNames, 0, 255>, Place::kDetail},
    {L"リモコン", Code<&Fields::remote, kPentaxRemoteNames, 0>, Place::kDetail},
    {L"多重露出", Code<&Fields::exposureCount, kPentaxExposureCountNames, 0>, Place::kDetail},
    {L"ISO感度", Code<&Fields::iso, kPentaxIsoNames>},
    {L"感度補正", FormatSensitivityAdjust},
    {L"露出時間", Formatted<&Fields::exposureTime, FormatExposureTime>},
    {L"絞り値", Formatted<&Fields::fNumber, FormatFNumber>},
    {L"露出補正", Formatted<&Fields::exposureCompensation, FormatExposureBias>},
    {L"オートブラケット", FormatAutoBracket},
    {L"測光モード", Code<&Fields::metering, kPentaxMeteringNames>},
    {L"AEロック", Code<&Fields::aeLock, kPentaxSwitchNames>},
    {L"フラッシュモード", Code<&Fields::flashMode, kPentaxFlashModeNames>},
    {L"ストロボ", Code<&Fields::flashUnit, kPentaxFlashUnitNames, 0>, Place::kDetail},
    {L"フラッシュ光量補正", Formatted<&Fields::flashCompensation, FormatExposureBias>},
    {L"フォーカスモード", Code<&Fields::focusMode, kPentaxFocusModeNames>},
    {L"測距点", Code<&Fields::afPointSelected, kPentaxAfPointSelectedNames>},
    {L"合焦測距点", Code<&Fields::afPointInFocus, kPentaxAfPointInFocusNames>},
    {L"焦点距離", Formatted<&Fields::focalLength, FormatWholeOrTenths, kMillimetres>},
    {L"デジタルズーム", Formatted<&Fields::digitalZoom, FormatZoomRatio>},
    {L"手ブレ補正", Code<&Fields::shakeReduction, kPentaxShakeReductionNames>},
    {L"ホワイトバランス", Code<&Fields::whiteBalance, kPentaxWhiteBalanceNames>},
    {L"ホワイトバランスモード", Code<&Fields::whiteBalanceMode, kPentaxWhiteBalanceModeNames>},
    {L"色温度", FormatColorTemperature},
    {L"画像仕上", Code<&Fields::imageTone, kPentaxImageToneNames>},
    {L"色の濃さ", FormatPictureSetting<&Fields::saturation, kPentaxStrengthNames>},
    {L"コントラスト", FormatPictureSetting<&Fields::contrast, kPentaxStrengthNames>},
    {L"シャープネス", FormatPictureSetting<&Fields::sharpness, kPentaxSharpnessNames>},
    {L"ファインシャープネス", Code<&Fields::fineSharpness, kPentaxSwitchNames>},
    {L"色相", Code<&Fields::hue, kPentaxStepNames>},
    {L"ダイナミックレンジ拡大", Code<&Fields::dynamicRange, kPentaxSwitchNames>},
    {L"シャドー補正", Code<&Fields::shadowCorrection, kPentaxShadowCorrectionNames>},
    {L"ノイズリダクション", Code<&Fields::noiseReduction, kPentaxSwitchNames>},
    {L"高感度ノイズリダクション", Code<&Fields::highIsoReduction, kPentaxNoiseReductionNames>},
    {L"カラースペース", Code<&Fields::colorSpace, kPentaxColorSpaceNames>},
    {L"画像処理", Code<&Fields::imageProcessing, kPentaxImageProcessingNames, 0>},
    {L"レンズ情報", FormatLens},
    {L"ワールドタイム", Code<&Fields::worldTime, kPentaxWorldTimeNames>},
    {L"現在地", Code<&Fields::homeCity, kPentaxCityNames>},
    {L"夏時間", Code<&Fields::homeDaylightSaving, kPentaxSwitchNames, 0>, Place::kDetail},
    {L"目的地", Code<&Fields::destinationCity, kPentaxCityNames>},
    {L"夏時間", Code<&Fields::destinationDaylightSaving, kPentaxSwitchNames, 0>, Place::kDetail},
    {L"撮影時温度", Formatted<&Fields::temperature, FormatInteger, kDegrees>},
    {L"シャッター回数", Unsigned<&Fields::shutterCount>},
    {L"画像番号", Unsigned<&Fields::frameNumber>},
    {L"ファームウェア", FormatFirmware},
};
// clang-format on

}  // namespace

void EmitPentaxSection(const ImageInfo& info, const EnumContext& context) {
    wchar_t storage[kValueCapacity];
    const Fields& fields = MakerRecord<Fields>(info);
    bool hasItem = false;
    for (const PentaxRow& row : kItems) {
        const bool isDetail = row.place == Place::kDetail;
        TextBuffer value(storage);
        const bool shown = (!isDetail || hasItem) && row.format(fields, value);
        if (!isDetail) hasItem = shown;
        if (!shown) continue;
        if (isDetail) {
            EmitSubItem(context, row.label, value.Text());
        } else {
            EmitItem(context, row.label, value.Text());
        }
    }
}

bool AppendPentaxLens(const ImageInfo& info, TextBuffer& dst) {
    return FormatLens(MakerRecord<Fields>(info), dst);
}

bool AppendPentaxWhiteBalance(const ImageInfo& info, TextBuffer& dst) {
    return Named<&Fields::whiteBalance, kPentaxWhiteBalanceNames>(MakerRecord<Fields>(info), dst);
}

}  // namespace qmx
