// Nikon's part of the texts.

#include "makernote/nikon_fields.h"
#include "parse/core/numeric.h"
#include "text/item_row.h"
#include "text/lens_text.h"
#include "text/maker_sections.h"
#include "text/nikon_lenses.h"
#include "text/nikon_names.h"

namespace qmx {
namespace {

using Fields = NikonMakerFields;

constexpr std::size_t kTextCapacity = 256;
constexpr wchar_t kDegrees[] = L"度";
constexpr wchar_t kStops[] = L"段";

// Models as numbered in makernote/model_rules.cpp.
constexpr std::int32_t kD70 = 4102;
constexpr std::int32_t kD70s = 4106;

// ---- The ordinary values.

template <auto Field>
bool Text(const Fields& note, TextBuffer& dst) {
    return Widened<Field, kTextCapacity>(note, dst);
}

// A text through an array of PrefixName.
template <auto Field, const auto& Table>
bool Prefixed(const Fields& note, TextBuffer& dst) {
    const std::string_view text = FieldText(note.*Field);
    if (text.empty()) return false;
    LookupPrefixName(dst, text, Table);
    return true;
}

// Bits through an array of ValueName; none says nothing.
template <auto Field, const auto& Table>
bool Flags(const Fields& note, TextBuffer& dst) {
    if (!IsSet(note.*Field) || note.*Field == 0) return false;
    FormatFlagNames(dst, static_cast<std::uint32_t>(note.*Field), Table);
    return !dst.IsEmpty();
}

template <auto Field>
bool Number(const Fields& note, TextBuffer& dst) {
    if (!IsSet(note.*Field)) return false;
    FormatInteger(dst, note.*Field);
    return true;
}

template <auto Field>
bool Signed(const Fields& note, TextBuffer& dst) {
    if (!IsSet(note.*Field)) return false;
    FormatSignedInteger(dst, note.*Field);
    return true;
}

template <auto Field>
bool ExposureValue(const Fields& note, TextBuffer& dst) {
    return Formatted<Field, FormatExposureBias>(note, dst);
}

// The second where the first has nothing.
template <auto First, auto Second>
bool Either(const Fields& note, TextBuffer& dst) {
    return First(note, dst) || Second(note, dst);
}

// Whole steps as such, quarters of one with their decimals.
void AppendSteps(TextBuffer& dst, std::int32_t quarters) {
    if (quarters % kNikonStepQuarters == 0) {
        FormatSignedInteger(dst, quarters / kNikonStepQuarters);
        return;
    }
    const float steps = static_cast<float>(quarters) / kNikonStepQuarters;
    FormatHundredths(dst.Append(steps < 0.0f ? L'-' : L'+'), steps < 0.0f ? -steps : steps);
}

template <auto Field>
bool Steps(const Fields& note, TextBuffer& dst) {
    const std::int32_t quarters = note.*Field;
    if (!IsSet(quarters)) return false;
    if (quarters == kNikonStepAuto) {
        dst.Append(L"オート");
    } else if (quarters == kNikonStepUser) {
        dst.Append(L"ユーザー設定");
    } else {
        AppendSteps(dst, quarters);
    }
    return true;
}

// ---- Values with rules of their own.

// Four digits as text, or as numbers by the older compacts.
bool FormatVersion(const Fields& note, TextBuffer& dst) {
    const auto& version = note.nikonVersion;
    bool isText = true, isGiven = false;
    for (const std::uint8_t byte : version) {
        isText = isText && byte >= '0' && byte <= '9';
        isGiven = isGiven || byte != 0;
    }
    if (!isGiven) return false;
    if (isText) {
        dst.AppendAscii({reinterpret_cast<const char*>(version), sizeof version});
    } else {
        dst.AppendInteger(version[0] * 10 + version[1]).Append(L'.');
        dst.AppendInteger(version[2] * 10 + version[3]);
    }
    return true;
}

bool FormatWhiteBalance(const Fields& note, TextBuffer& dst) {
    if (!Prefixed<&Fields::nikonWhiteBalance, kNikonWhiteBalanceNames>(note, dst)) return false;
    const auto& [amberBlue, greenMagenta] = note.nikonWbFineTune;
    if (!IsSet(amberBlue)) return true;
    if (!IsSet(greenMagenta)) {
        FormatSignedInteger(dst.Append(L" ("), amberBlue, L")");
        return true;
    }
    FormatSignedInteger(dst.Append(L" (青-赤 "), amberBlue);
    FormatSignedInteger(dst.Append(L", 緑-赤紫 "), greenMagenta, L")");
    return true;
}

bool FormatAfAreaMode(const Fields& note, TextBuffer& dst) {
    if (!IsSet(note.nikonAfAreaMode2))
        return Named<&Fields::nikonAfAreaMode, kNikonAfAreaModeNames>(note, dst);
    return note.nikonAfInfo2Method == 0
               ? Named<&Fields::nikonAfAreaMode2, kNikonAfAreaModePdNames>(note, dst)
               : Named<&Fields::nikonAfAreaMode2, kNikonAfAreaModeCdNames>(note, dst);
}

// Newer bodies number the points from the centre on.
bool FormatFocusPoint(const Fields& note, TextBuffer& dst) {
    const std::int32_t point = note.nikonPrimaryAfPoint;
    if (!IsSet(point)) return Named<&Fields::nikonAfPoint, kNikonAfPointNames>(note, dst);
    if (point == 0) return false;
    if (point == 1) {
        dst.Append(L"中央");
    } else {
        dst.AppendInteger(point);
    }
    return true;
}

bool FormatAfTune(const Fields& note, TextBuffer& dst) {
    if (!Named<&Fields::nikonAfTune, kNikonAfTuneNames>(note, dst)) return false;
    if (note.nikonAfTune != 0 && IsSet(note.nikonAfTuneStep))
        FormatSignedInteger(dst.Append(L'('), note.nikonAfTuneStep, L")");
    return true;
}

bool FormatFocusDistance(const Fields& note, TextBuffer& dst) {
    if (!IsSet(note.nikonManualFocusDistance)) return false;
    FormatDistance(dst, TruncateToI32(note.nikonManualFocusDistance * 1000.0 + 0.5));
    return true;
}

// The bit of automatic ISO meant something else on the D70.
bool FormatDriveMode(const ImageInfo& info, TextBuffer& dst) {
    constexpr std::int32_t kAutoIso = 32;
    std::int32_t mode = MakerRecord<Fields>(info).nikonShootingMode;
    if (!IsSet(mode)) return false;
    if (info.modelId == kD70 || info.modelId == kD70s) mode &= ~kAutoIso;
    if (mode == 0) {
        dst.Append(L"1コマ撮影");
        return true;
    }
    FormatFlagNames(dst, static_cast<std::uint32_t>(mode), kNikonShootingModeNames);
    return !dst.IsEmpty();
}

bool FormatIsoExpansion(const Fields& note, TextBuffer& dst) {
    return note.nikonIsoExpansion != 0 &&
           Named<&Fields::nikonIsoExpansion, kNikonIsoExpansionNames>(note, dst);
}

bool FormatPictureControlBase(const Fields& note, TextBuffer& dst) {
    return FieldText(note.nikonPictureControlBase) != FieldText(note.nikonPictureControlName) &&
           Text<&Fields::nikonPictureControlBase>(note, dst);
}

bool FormatDigitalZoom(const Fields& note, TextBuffer& dst) {
    if (!IsSet(note.nikonDigitalZoom) || !(note.nikonDigitalZoom > 1.0f)) return false;
    FormatZoomRatio(dst, note.nikonDigitalZoom);
    return true;
}

bool FormatFocalRange(const Fields& note, TextBuffer& dst) {
    const auto& [minFocal, maxFocal, minAperture, maxAperture] = note.nikonLensRange;
    if (!IsSet(minFocal) || !IsSet(maxFocal)) return false;
    FormatLensRange(dst, TruncateToI32(minFocal), TruncateToI32(maxFocal), minAperture,
                    maxAperture);
    return true;
}

bool FormatRetouchHistory(const Fields& note, TextBuffer& dst) {
    for (const std::uint16_t entry : note.nikonRetouchHistory) {
        if (entry == 0) continue;
        if (!dst.IsEmpty()) dst.Append(L'+');
        LookupValueName(dst, entry, kNikonRetouchHistoryNames);
    }
    return !dst.IsEmpty();
}

// Folder and file, "100-0042".
bool FormatFileNumber(const Fields& note, TextBuffer& dst) {
    if (!IsSet(note.nikonFolderNumber) || !IsSet(note.nikonFileNumber)) return false;
    dst.AppendUnsigned(static_cast<std::uint32_t>(note.nikonFolderNumber), 3).Append(L'-');
    dst.AppendUnsigned(static_cast<std::uint32_t>(note.nikonFileNumber), 4);
    return true;
}

// "2008/07/31 12:34:56"
bool FormatPowerUpTime(const Fields& note, TextBuffer& dst) {
    constexpr wchar_t kMarksBehind[] = {L'/', L'/', L' ', L':', L':'};
    const auto& time = note.nikonPowerUpTime;
    if (time[0] == 0) return false;
    dst.AppendUnsigned(time[0], 4);
    for (std::size_t i = 1; i < std::size(time); ++i)
        dst.Append(kMarksBehind[i - 1]).AppendUnsigned(time[i], 2);
    return true;
}

// ---- The lens.

bool FormatLensNumber(const Fields& note, TextBuffer& dst) {
    const std::int32_t number = note.nikonLensIdNumber;
    // Too many lenses of other makers share these.
    if (!IsSet(number) || number == 0 || number == 3 || number == 38) return false;
    LookupValueName(dst, number, kNikonLensNumberNames, kNikonLensNumberCount, nullptr);
    return true;
}

bool FormatZLens(const Fields& note, TextBuffer& dst) {
    const std::size_t start = dst.Length();
    if (!IsSet(note.nikonZLensNumber)) return false;
    if (LookupValueName(dst, note.nikonZLensNumber, kNikonZLensNames, kNikonZLensCount, nullptr))
        return true;
    dst.Truncate(start);
    return false;
}

// A range with a gap says nothing.
bool FormatLensByRange(const Fields& note, TextBuffer& dst) {
    if (!IsSet(note.nikonLensType)) return false;
    for (const float measure : note.nikonLensRange)
        if (!IsSet(measure)) return false;
    FormatNikonLensText(dst, note.nikonLensType, note.nikonLensRange);
    return true;
}

// What tells most stands first.
bool FormatLens(const Fields& note, TextBuffer& dst) {
    return Prefixed<&Fields::nikonLensIdText, kNikonLensIdNames>(note, dst) ||
           FormatLensNumber(note, dst) || FormatZLens(note, dst) ||
           Text<&Fields::nikonLensText>(note, dst) || FormatLensByRange(note, dst);
}

// ---- The section.

// A row that only the note tells.
template <bool (*Format)(const Fields&, TextBuffer&)>
bool OfNote(const ImageInfo& info, TextBuffer& dst) {
    return Format(MakerRecord<Fields>(info), dst);
}

// One row per line, to be proof-read.  Details that make sense alone do not depend on an item that
// the camera may leave out.
// clang-format off
constexpr ItemRow kItems[] = {
    {L"バージョン", OfNote<FormatVersion>},
    {L"画質モード", OfNote<Prefixed<&Fields::nikonQuality, kNikonQualityNames>>},
    {L"RAW圧縮", OfNote<Named<&Fields::nikonNefCompression, kNikonNefCompressionNames>>, Place::kDetailOrItem},
    {L"ホワイトバランス", OfNote<FormatWhiteBalance>},
    {L"光源", OfNote<Prefixed<&Fields::nikonLightSource, kNikonLightSourceNames>>, Place::kDetailOrItem},
    {L"撮影モード", OfNote<Either<Prefixed<&Fields::nikonVariProgram, kNikonVariProgramNames>,
                                  Prefixed<&Fields::nikonSceneMode, kNikonSceneModeNames>>>},
    {L"シーン補助", OfNote<Text<&Fields::nikonSceneAssist>>, Place::kDetailOrItem},
    {L"フォーカスモード", OfNote<Prefixed<&Fields::nikonFocusMode, kNikonFocusModeNames>>},
    {L"AFエリアモード", OfNote<FormatAfAreaMode>},
    {L"フォーカスポイント", OfNote<FormatFocusPoint>, Place::kDetail},
    {L"合焦ポイント", OfNote<Flags<&Fields::nikonAfPointsInFocus, kNikonAfPointsInFocusNames>>, Place::kDetail},
    {L"AF微調節", OfNote<FormatAfTune>, Place::kDetailOrItem},
    {L"AF応答", OfNote<Prefixed<&Fields::nikonAfResponse, kNikonAfResponseNames>>},
    {L"撮影距離", OfNote<FormatFocusDistance>},
    {L"フラッシュモード", OfNote<Prefixed<&Fields::nikonFlashSetting, kNikonFlashSettingNames>>},
    {L"フラッシュ", OfNote<Named<&Fields::nikonFlashMode, kNikonFlashModeNames>>, Place::kDetailOrItem},
    {L"発光方式", OfNote<Prefixed<&Fields::nikonFlashType, kNikonFlashTypeNames>>, Place::kDetailOrItem},
    {L"フラッシュ光量補正", OfNote<ExposureValue<&Fields::nikonFlashComp>>},
    {L"外部ストロボ補正", OfNote<ExposureValue<&Fields::nikonExternalFlashComp>>, Place::kDetailOrItem},
    {L"フラッシュブラケット", OfNote<ExposureValue<&Fields::nikonFlashBracket>>, Place::kDetailOrItem},
    {L"露出差", OfNote<ExposureValue<&Fields::nikonExposureDifference>>},
    {L"プログラムシフト", OfNote<ExposureValue<&Fields::nikonProgramShift>>},
    {L"露出ブラケット", OfNote<ExposureValue<&Fields::nikonExposureBracket>>},
    {L"ドライブモード", FormatDriveMode},
    {L"ISOセッティング", OfNote<Either<Number<&Fields::nikonIsoSetting>,
                                       Prefixed<&Fields::nikonIsoSelection, kNikonIsoSelectionNames>>>},
    {L"拡張ISO", OfNote<FormatIsoExpansion>, Place::kDetailOrItem},
    {L"シャープネス", OfNote<Prefixed<&Fields::nikonSharpening, kNikonSharpeningNames>>},
    {L"階調補正", OfNote<Prefixed<&Fields::nikonToneComp, kNikonToneCompNames>>},
    {L"色の濃さ", OfNote<Either<Prefixed<&Fields::nikonSaturation, kNikonSaturationNames>,
                                Signed<&Fields::nikonSaturationStep>>>},
    {L"色相", OfNote<Formatted<&Fields::nikonHueAdjustment, FormatSignedInteger, kDegrees>>},
    {L"カラーモード", OfNote<Either<Prefixed<&Fields::nikonColorMode, kNikonColorModeNames>,
                                    Prefixed<&Fields::nikonColorHue, kNikonColorHueNames>>>},
    {L"カラースペース", OfNote<Named<&Fields::nikonColorSpace, kNikonColorSpaceNames>>},
    {L"画像調整", OfNote<Prefixed<&Fields::nikonImageAdjustment, kNikonImageAdjustmentNames>>},
    {L"画像最適化", OfNote<Prefixed<&Fields::nikonImageOptimization, kNikonImageOptimizationNames>>},
    {L"ピクチャーコントロール", OfNote<Text<&Fields::nikonPictureControlName>>},
    {L"ベース", OfNote<FormatPictureControlBase>, Place::kDetail},
    {L"調整", OfNote<Named<&Fields::nikonPictureControlAdjust, kNikonPictureControlAdjustNames>>, Place::kDetail},
    {L"クイック調整", OfNote<Steps<&Fields::nikonPictureControlQuick>>, Place::kDetail},
    {L"輪郭強調", OfNote<Steps<&Fields::nikonPcSharpness>>, Place::kDetail},
    {L"明瞭度", OfNote<Steps<&Fields::nikonPcClarity>>, Place::kDetail},
    {L"コントラスト", OfNote<Steps<&Fields::nikonPcContrast>>, Place::kDetail},
    {L"明るさ", OfNote<Steps<&Fields::nikonPcBrightness>>, Place::kDetail},
    {L"彩度", OfNote<Steps<&Fields::nikonPcSaturation>>, Place::kDetail},
    {L"色合い", OfNote<Steps<&Fields::nikonPcHue>>, Place::kDetail},
    {L"フィルター効果", OfNote<Named<&Fields::nikonFilterEffect, kNikonFilterEffectNames>>, Place::kDetail},
    {L"調色", OfNote<Named<&Fields::nikonToningEffect, kNikonToningEffectNames>>, Place::kDetail},
    {L"アクティブD-ライティング", OfNote<Named<&Fields::nikonActiveDLighting, kNikonActiveDLightingNames>>},
    {L"HDR", OfNote<Named<&Fields::nikonHdr, kNikonHdrNames>>},
    {L"露出差", OfNote<Named<&Fields::nikonHdrLevel, kNikonHdrLevelNames>>, Place::kDetail},
    {L"スムージング", OfNote<Named<&Fields::nikonHdrSmoothing, kNikonHdrSmoothingNames>>, Place::kDetail},
    {L"高感度ノイズ低減", OfNote<Named<&Fields::nikonHighIsoNr, kNikonHighIsoNrNames>>},
    {L"長秒時ノイズ低減", OfNote<Prefixed<&Fields::nikonNoiseReduction, kNikonNoiseReductionNames>>},
    {L"手ブレ補正", OfNote<Either<Named<&Fields::nikonVr, kNikonVrNames>,
                                  Prefixed<&Fields::nikonVrText, kNikonVrTextNames>>>},
    {L"モード", OfNote<Named<&Fields::nikonVrMode, kNikonVrModeNames>>, Place::kDetail},
    {L"ヴィネットコントロール", OfNote<Named<&Fields::nikonVignetteControl, kNikonVignetteControlNames>>},
    {L"自動ゆがみ補正", OfNote<Named<&Fields::nikonAutoDistortion, kNikonAutoDistortionNames>>},
    {L"撮像範囲", OfNote<Named<&Fields::nikonCropHiSpeed, kNikonCropHiSpeedNames>>},
    {L"デジタルズーム", OfNote<FormatDigitalZoom>},
    {L"レンズ情報", OfNote<FormatLens>},
    {L"レンズ種類", OfNote<Flags<&Fields::nikonLensType, kNikonLensTypeNames>>, Place::kDetailOrItem},
    {L"焦点距離", OfNote<FormatFocalRange>, Place::kDetail},
    {L"絞り段数", OfNote<Formatted<&Fields::nikonLensFStops, FormatTenths, kStops>>, Place::kDetailOrItem},
    {L"コンバーター", OfNote<Prefixed<&Fields::nikonAuxiliaryLens, kNikonAuxiliaryLensNames>>},
    {L"多重露出", OfNote<Named<&Fields::nikonMultiExposureMode, kNikonMultiExposureModeNames>>},
    {L"コマ数", OfNote<Number<&Fields::nikonMultiExposureShots>>, Place::kDetail},
    {L"日付写し込み", OfNote<Named<&Fields::nikonDateStamp, kNikonDateStampNames>>},
    {L"画像編集", OfNote<FormatRetouchHistory>},
    {L"シャッター方式", OfNote<Named<&Fields::nikonShutterMode, kNikonShutterModeNames>>},
    {L"メカシャッター回数", OfNote<Number<&Fields::nikonMechanicalShutterCount>>, Place::kDetailOrItem},
    {L"静音撮影", OfNote<Named<&Fields::nikonSilent, kNikonSilentNames>>},
    {L"シリアル番号", OfNote<Either<Text<&Fields::nikonSerialNumber>, Text<&Fields::nikonSerialNumber2>>>},
    {L"レリーズ回数", OfNote<Either<Number<&Fields::nikonShutterCount>, Number<&Fields::nikonImageCount>>>},
    {L"削除画像数", OfNote<Number<&Fields::nikonDeletedImageCount>>, Place::kDetailOrItem},
    {L"ファイル番号", OfNote<FormatFileNumber>},
    {L"電源オン日時", OfNote<FormatPowerUpTime>},
};
// clang-format on

}  // namespace

void EmitNikonSection(const ImageInfo& info, const EnumContext& context) {
    EmitItemRows(info, kItems, context);
}

bool AppendNikonLens(const ImageInfo& info, TextBuffer& dst) {
    return FormatLens(MakerRecord<Fields>(info), dst);
}

bool AppendNikonWhiteBalance(const ImageInfo& info, TextBuffer& dst) {
    return Prefixed<&Fields::nikonWhiteBalance, kNikonWhiteBalanceNames>(MakerRecord<Fields>(info),
                                                                         dst);
}

}  // namespace qmx
