// Olympus' part of the texts.

#include <cmath>
#include <cstdint>
#include <string_view>

#include "makernote/maker_record.h"
#include "makernote/olympus_fields.h"
#include "parse/core/numeric.h"
#include "text/lens_text.h"
#include "text/maker_sections.h"
#include "text/olympus_lenses.h"
#include "text/olympus_names.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Fields = OlympusMakerFields;
using Formatter = bool (*)(const Fields&, TextBuffer&);

// ---- Rules that several items share.

// What a newer directory says, else what an older one does.
template <Formatter... Sources>
bool FirstOf(const Fields& fields, TextBuffer& dst) {
    return (Sources(fields, dst) || ...);
}

// A code other than the one by which the camera says nothing.
template <auto Field, const auto& Table>
bool NamedUnlessZero(const Fields& fields, TextBuffer& dst) {
    return fields.*Field != 0 && Named<Field, Table>(fields, dst);
}

// The names of bits; for none of them the name of 0.
template <auto Field, const auto& Table>
bool Flags(const Fields& fields, TextBuffer& dst) {
    const std::int32_t bits = fields.*Field;
    if (!IsSet(bits)) return false;
    if (bits != 0) FormatFlagNames(dst, static_cast<std::uint32_t>(bits), Table);
    if (dst.IsEmpty()) LookupValueName(dst, bits, Table);
    return true;
}

template <auto Field, const auto& Table>
bool FlagsUnlessZero(const Fields& fields, TextBuffer& dst) {
    return fields.*Field != 0 && Flags<Field, Table>(fields, dst);
}

template <auto Field>
bool Count(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.*Field) || fields.*Field <= 0) return false;
    dst.AppendInteger(fields.*Field);
    return true;
}

template <auto Field>
bool Signed(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.*Field)) return false;
    FormatSignedInteger(dst, fields.*Field);
    return true;
}

template <auto Field>
bool SignedUnlessZero(const Fields& fields, TextBuffer& dst) {
    return fields.*Field != 0 && Signed<Field>(fields, dst);
}

template <auto Field>
bool ExposureValue(const Fields& fields, TextBuffer& dst) {
    return Formatted<Field, FormatExposureBias>(fields, dst);
}

template <auto Field>
bool Tenths(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.*Field)) return false;
    FormatRoundedTenths(dst, fields.*Field);
    return true;
}

// Hexadecimal digits, the last three behind the point: 0x1300 is 1.300.
template <auto Field>
bool Firmware(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.*Field) || fields.*Field <= 0) return false;
    const auto version = static_cast<std::uint32_t>(fields.*Field);
    dst.AppendHex(version >> 12).Append(L'.').AppendHex(version & 0xFFF, 3);
    return true;
}

// The camera's code name, such as D4040 for the E-1.
std::string_view TypeOf(const Fields& fields) {
    const std::string_view type = FieldText(fields.cameraType);
    return type.empty() ? FieldText(fields.mainType) : type;
}

// ---- Exposure.

// Early compacts count the qualities from 0.
bool FormatMainQuality(const Fields& fields, TextBuffer& dst) {
    const std::string_view type = TypeOf(fields);
    const bool countsFromZero =
        (type.starts_with("SX") && !type.starts_with("SX151")) || type == "D4322";
    return countsFromZero ? Named<&Fields::mainQuality, kOlympusSxQualityNames>(fields, dst)
                          : Named<&Fields::mainQuality, kOlympusQualityNames>(fields, dst);
}

bool FormatPanoramaShot(const Fields& fields, TextBuffer& dst) {
    const bool isPanorama = IsSet(fields.panoramaMode) && fields.panoramaMode != 0;
    return isPanorama && Count<&Fields::panoramaShot>(fields, dst);
}

// ---- Flash and focus.

bool FormatManualDistance(const Fields& fields, TextBuffer& dst) {
    const float distance = fields.manualFocusDistance;
    if (!IsSet(distance) || !(distance >= 1.0f)) return false;
    FormatDistance(dst, TruncateToI32(distance));
    return true;
}

// Corners in 255ths of the frame, from its upper left.
bool FormatFocusArea(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.focusArea)) return false;
    const auto area = static_cast<std::uint32_t>(fields.focusArea);
    const auto corner = [&](std::uint32_t point) {
        dst.Append(L'(').AppendUnsigned(point >> 8 & 0xFF);
        dst.Append(L',').AppendUnsigned(point & 0xFF).Append(L')');
    };
    corner(area >> 16);
    dst.Append(L'-');
    corner(area);
    return true;
}

// ---- Colour.

bool FormatPresetBalance(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.whiteBalanceCode)) return false;
    const std::int32_t key =
        (fields.whiteBalanceCode & 0xFF) << 8 | (fields.whiteBalanceSubCode & 0xFF);
    LookupValueName(dst, key, kOlympusPresetBalanceNames);
    return true;
}

constexpr Formatter kFormatWhiteBalance =
    FirstOf<Named<&Fields::whiteBalance, kOlympusWhiteBalanceNames>, FormatPresetBalance>;

bool FormatColorTemperature(const Fields& fields, TextBuffer& dst) {
    if (!Count<&Fields::colorTemperature>(fields, dst)) return false;
    dst.Append(L'K');
    return true;
}

// Towards amber, and, of bodies that bracket both ways, towards green.
bool FormatBalanceBracket(const Fields& fields, TextBuffer& dst) {
    const bool hasGreen = IsSet(fields.balanceBracketGreen) && fields.balanceBracketGreen != 0;
    if (!hasGreen) return SignedUnlessZero<&Fields::balanceBracketAmber>(fields, dst);
    FormatSignedInteger(dst, fields.balanceBracketAmber).Append(L", ");
    FormatSignedInteger(dst, fields.balanceBracketGreen);
    return true;
}

// The E-1's menu calls its steps CS0 to CS4.
bool FormatSaturation(const Fields& fields, TextBuffer& dst) {
    constexpr std::string_view kE1 = "D4040";
    const std::int32_t value = fields.saturation;
    const std::int32_t lowest = fields.saturationLowest;
    if (!IsSet(value)) return false;
    if (TypeOf(fields) == kE1 && IsSet(lowest)) {
        const auto minusLowest = 0u - static_cast<std::uint32_t>(lowest);
        dst.Append(L"CS").AppendInteger(WrappingAdd(value, minusLowest));
    } else {
        FormatSignedInteger(dst, value);
    }
    return true;
}

bool FormatGradation(const Fields& fields, TextBuffer& dst) {
    constexpr std::int32_t kAutomatic = 1;  // whatever the mode says
    return fields.gradationAuto == kAutomatic
               ? Named<&Fields::gradationAuto, kOlympusGradationAutoNames>(fields, dst)
               : Named<&Fields::gradation, kOlympusGradationNames>(fields, dst);
}

// Without a range there is no such filter.
bool FormatNoiseFilter(const Fields& fields, TextBuffer& dst) {
    const bool isGiven =
        fields.noiseFilter != 0 || fields.noiseFilterLowest != 0 || fields.noiseFilterHighest != 0;
    return isGiven && Named<&Fields::noiseFilter, kOlympusNoiseFilterNames>(fields, dst);
}

// ---- Lens.

// From 256ths of a stop.
float FNumber(std::int32_t raw) { return ToField(std::exp2(raw / 512.0)); }

bool HasLensRange(const Fields& fields) {
    return IsSet(fields.minFocalLength) && IsSet(fields.maxFocalLength) &&
           IsSet(fields.widestAtMinFocal) && IsSet(fields.widestAtMaxFocal);
}

bool FormatLensById(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.lensId) || fields.lensId == 0) return false;
    if (LookupValueName(dst, fields.lensId, kOlympusLensNames, kOlympusLensCount, nullptr) ||
        !HasLensRange(fields)) {
        return true;
    }
    dst.Truncate(0);
    FormatLensRange(dst, fields.minFocalLength, fields.maxFocalLength,
                    FNumber(fields.widestAtMinFocal), FNumber(fields.widestAtMaxFocal));
    return true;
}

struct OlympusRow {
    const wchar_t* label;
    Formatter format;
    bool isDetail = false;  // of the item before it, which is there when the detail is
};

constexpr bool kDetail = true;

// In the order of shooting, to be proof-read.
// clang-format off
constexpr OlympusRow kItems[] = {
    {L"カメラID", Widened<&Fields::cameraId>},
    {L"カメラタイプ", FirstOf<Widened<&Fields::cameraType>, Widened<&Fields::mainType>>},
    {L"撮影モード", Named<&Fields::exposureMode, kOlympusExposureModeNames>},
    {L"シーンモード",
     FirstOf<Named<&Fields::sceneMode, kOlympusSceneModeNames>,
             Named<&Fields::compactScene, kOlympusCompactSceneNames>>},
    {L"画質モード", FirstOf<Named<&Fields::imageQuality, kOlympusImageQualityNames>, FormatMainQuality>},
    {L"イメージサイズ", Pair<&Fields::imageWidth, &Fields::imageHeight>},
    {L"特殊撮影モード", Named<&Fields::specialMode, kOlympusSpecialModeNames>},
    {L"連番", Count<&Fields::specialSequence>, kDetail},
    {L"パノラマ方向", NamedUnlessZero<&Fields::specialPanorama, kOlympusPanoramaDirectionNames>, kDetail},
    {L"ドライブモード", Named<&Fields::driveMode, kOlympusDriveModeNames>},
    {L"連番", Count<&Fields::driveShot>, kDetail},
    {L"ブラケット", FlagsUnlessZero<&Fields::bracketBits, kOlympusBracketBitNames>, kDetail},
    {L"パノラマ", NamedUnlessZero<&Fields::panoramaMode, kOlympusPanoramaModeNames>},
    {L"連番", FormatPanoramaShot, kDetail},
    {L"測光モード", Named<&Fields::meteringMode, kOlympusMeteringModeNames>},
    {L"AEロック", Named<&Fields::aeLock, kOlympusOffOnNames>},
    {L"露出シフト", ExposureValue<&Fields::exposureShift>},
    {L"フラッシュモード",
     FirstOf<Flags<&Fields::flashMode, kOlympusFlashModeBitNames>,
             Named<&Fields::mainFlash, kOlympusMainFlashNames>>},
    {L"フラッシュ制御", Named<&Fields::flashControl, kOlympusFlashControlNames>},
    {L"フラッシュ",
     FirstOf<Named<&Fields::flashDevice, kOlympusFlashDeviceNames>,
             Named<&Fields::flashType, kOlympusFlashTypeNames>>},
    {L"フラッシュ機種", NamedUnlessZero<&Fields::flashModel, kOlympusFlashModelNames>},
    {L"フラッシュのバウンス", Named<&Fields::flashBounce, kOlympusYesNoNames>},
    {L"フラッシュ光量補正",
     FirstOf<ExposureValue<&Fields::flashCompensation>,
             ExposureValue<&Fields::mainFlashCompensation>>},
    {L"マクロモード",
     FirstOf<Named<&Fields::macroMode, kOlympusMacroNames>,
             Named<&Fields::mainMacro, kOlympusMacroNames>>},
    {L"フォーカスモード",
     FirstOf<Named<&Fields::focusMode, kOlympusFocusModeNames>,
             Named<&Fields::mainFocusMode, kOlympusMainFocusModeNames>>},
    {L"AF方式", FlagsUnlessZero<&Fields::focusBits, kOlympusFocusBitNames>, kDetail},
    {L"AF動作", Named<&Fields::focusProcess, kOlympusFocusProcessNames>},
    {L"合焦状態", Named<&Fields::focusSearch, kOlympusFocusSearchNames>},
    {L"フォーカスレンジ", Named<&Fields::focusRange, kOlympusFocusRangeNames>},
    {L"撮影距離", FormatManualDistance},
    {L"AFエリア", FormatFocusArea},
    {L"デジタルズーム", Formatted<&Fields::digitalZoom, FormatZoomRatio>},
    {L"手ブレ補正", Named<&Fields::imageStabilization, kOlympusImageStabilizationNames>},
    {L"ホワイトバランス",
     FirstOf<kFormatWhiteBalance, Named<&Fields::lightSource, kOlympusLightSourceNames>>},
    {L"ワンタッチWB", Named<&Fields::oneTouchBalance, kOlympusOneTouchBalanceNames>},
    {L"色温度", FormatColorTemperature},
    {L"WBブラケット", FirstOf<FormatBalanceBracket, SignedUnlessZero<&Fields::mainBalanceBracket>>},
    {L"仕上がり", Named<&Fields::pictureMode, kOlympusPictureModeNames>},
    {L"コントラスト",
     FirstOf<Signed<&Fields::pictureContrast>,
             Signed<&Fields::contrast>,
             Named<&Fields::mainContrast, kOlympusMainContrastNames>>},
    {L"シャープネス",
     FirstOf<Signed<&Fields::pictureSharpness>,
             Signed<&Fields::sharpness>,
             Named<&Fields::mainSharpness, kOlympusMainSharpnessNames>>},
    {L"色の濃さ", FirstOf<Signed<&Fields::pictureSaturation>, FormatSaturation>},
    {L"彩度強調", Named<&Fields::modifiedSaturation, kOlympusModifiedSaturationNames>},
    {L"白黒モード", Named<&Fields::blackAndWhite, kOlympusBlackAndWhiteNames>},
    {L"フィルター効果", NamedUnlessZero<&Fields::monochromeFilter, kOlympusMonochromeFilterNames>},
    {L"調色", NamedUnlessZero<&Fields::monochromeTone, kOlympusMonochromeToneNames>},
    {L"アートフィルター", NamedUnlessZero<&Fields::artFilter, kOlympusArtFilterNames>},
    {L"階調", FormatGradation},
    {L"カラースペース", Named<&Fields::colorSpace, kOlympusColorSpaceNames>},
    {L"ノイズリダクション",
     FirstOf<Flags<&Fields::noiseReduction, kOlympusNoiseReductionBitNames>,
             Named<&Fields::mainNoiseReduction, kOlympusOffOnNames>>},
    {L"ノイズフィルタ", FormatNoiseFilter},
    {L"歪み補正", Named<&Fields::distortionCorrection, kOlympusOffOnNames>},
    {L"シェーディング補正", Named<&Fields::shadingCompensation, kOlympusOffOnNames>},
    {L"CCD走査モード", Named<&Fields::scanMode, kOlympusScanModeNames>},
    {L"圧縮率", FirstOf<Tenths<&Fields::compression>, Tenths<&Fields::mainCompression>>},
    {L"レンズ情報", FormatLensById},
    {L"レンズ名", Widened<&Fields::lensModel>},
    {L"レンズシリアル番号", Widened<&Fields::lensSerial>},
    {L"レンズファームウェア", Firmware<&Fields::lensFirmware>},
    {L"エクステンダー", NamedUnlessZero<&Fields::extender, kOlympusExtenderNames>},
    {L"コンバージョンレンズ", Widened<&Fields::conversionLens>},
    {L"シリアル番号",
     FirstOf<Widened<&Fields::serialNumber>,
             Widened<&Fields::mainSerial>,
             Widened<&Fields::compactSerial>>},
    {L"ファームウェア",
     FirstOf<Firmware<&Fields::bodyFirmware>,
             Widened<&Fields::mainFirmware>,
             Widened<&Fields::compactFirmware>>},
};
// clang-format on

}  // namespace

void EmitOlympusSection(const ImageInfo& info, const EnumContext& context) {
    const auto& fields = MakerRecord<Fields>(info);
    wchar_t storage[kValueCapacity];
    for (const OlympusRow& row : kItems) {
        TextBuffer value(storage);
        if (!row.format(fields, value)) continue;
        if (row.isDetail) {
            EmitSubItem(context, row.label, value.Text());
        } else {
            EmitItem(context, row.label, value.Text());
        }
    }
}

bool AppendOlympusLens(const ImageInfo& info, TextBuffer& dst) {
    return FormatLensById(MakerRecord<Fields>(info), dst);
}

bool AppendOlympusWhiteBalance(const ImageInfo& info, TextBuffer& dst) {
    return kFormatWhiteBalance(MakerRecord<Fields>(info), dst);
}

}  // namespace qmx
