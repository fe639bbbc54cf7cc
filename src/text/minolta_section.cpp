// Minolta's part of the texts.

#include "makernote/minolta_fields.h"
#include "text/item_row.h"
#include "text/maker_sections.h"
#include "text/minolta_lenses.h"
#include "text/minolta_names.h"

namespace qmx {
namespace {

using Fields = MinoltaMakerFields;

const Fields& Note(const ImageInfo& info) { return MakerRecord<Fields>(info); }

// The standard scene is none; older cameras have a program instead.
bool FormatSceneMode(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = Note(info);
    if (note.minoltaSceneMode == 0) return false;
    return Named<&Fields::minoltaSceneMode, kMinoltaSceneModeNames>(note, dst) ||
           Named<&Fields::minoltaSubjectProgram, kMinoltaSubjectProgramNames>(note, dst);
}

bool FormatInterval(const ImageInfo& info, TextBuffer& dst) {
    constexpr std::int32_t kIntervalDrive = 5;
    const Fields& note = Note(info);
    if (note.minoltaDriveMode != kIntervalDrive || !IsSet(note.minoltaIntervalNumber) ||
        !IsSet(note.minoltaIntervalLength)) {
        return false;
    }
    FormatInteger(dst, note.minoltaIntervalNumber, L"回 ");
    FormatInteger(dst, note.minoltaIntervalLength, L"分");
    return true;
}

bool FormatAfPoints(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t points = Note(info).minoltaAfPoints7D;
    if (!IsSet(points)) return false;
    FormatFlagNames(dst, static_cast<std::uint32_t>(points), kMinoltaAfPoints7DNames);
    return !dst.IsEmpty();
}

bool FormatFocusDistance(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t distance = Note(info).minoltaFocusDistance;
    if (!IsSet(distance)) return false;
    if (distance == 0) {
        dst.Append(L"無限遠");
    } else {
        FormatDistance(dst, distance);
    }
    return true;
}

// One row per line, to be proof-read.
// clang-format off
constexpr ItemRow kItems[] = {
    {L"撮影モード", FormatSceneMode},
    {L"露出モード", ItemCode<&Fields::minoltaExposureMode, kMinoltaExposureModeNames>},
    {L"イメージサイズ", FirstItem<ItemCode<&Fields::minoltaImageSize, kMinoltaImageSizeNames>,
                                  ItemCode<&Fields::minoltaImageSize7D, kMinoltaImageSize7DNames>,
                                  ItemCode<&Fields::minoltaImageSizeTag, kMinoltaImageSizeTagNames>>},
    {L"画質モード", FirstItem<ItemCode<&Fields::minoltaQuality, kMinoltaQualityNames>,
                              ItemCode<&Fields::minoltaQuality7D, kMinoltaQuality7DNames>>},
    {L"RAW+JPEG", ItemCode<&Fields::minoltaRawJpeg, kMinoltaOffOnNames>, Place::kDetail},
    {L"ホワイトバランス", AppendMinoltaWhiteBalance},
    {L"WB微調整", ItemNumber<&Fields::minoltaWbFineTune, FormatStep>, Place::kDetail},
    {L"色温度", ItemNumber<&Fields::minoltaColorTemp, FormatKelvin, 0>},
    {L"カラーフィルター", ItemNumber<&Fields::minoltaColorFilter, FormatStep>, Place::kDetailOrItem},
    {L"測光モード", ItemCode<&Fields::minoltaMetering, kMinoltaMeteringNames>},
    {L"露出補正", ItemNumber<&Fields::minoltaExposureComp, FormatExposureBias>},
    {L"ブラケット", ItemCode<&Fields::minoltaBracketStep, kMinoltaBracketStepNames>, Place::kDetail},
    {L"ISOセッティング", FirstItem<ItemCode<&Fields::minoltaIsoSetting, kMinoltaIsoSettingNames>,
                                   ItemCode<&Fields::minoltaIsoSetting7D, kMinoltaIsoSetting7DNames>>},
    {L"フラッシュモード", FirstItem<ItemCode<&Fields::minoltaFlashMode, kMinoltaFlashModeNames>,
                                    ItemCode<&Fields::minoltaFlashMode7D, kMinoltaFlashMode7DNames>>},
    {L"フラッシュ", FirstItem<ItemCode<&Fields::minoltaFlashFired, kMinoltaFlashFiredNames>,
                              ItemCode<&Fields::minoltaInternalFlash, kMinoltaInternalFlashNames>>, Place::kDetail},
    {L"調光方式", ItemCode<&Fields::minoltaFlashMetering, kMinoltaFlashMeteringNames>, Place::kDetail},
    {L"フラッシュ光量補正", ItemNumber<&Fields::minoltaFlashComp, FormatExposureBias>},
    {L"ドライブモード", FirstItem<ItemCode<&Fields::minoltaDriveMode, kMinoltaDriveModeNames>,
                                  ItemCode<&Fields::minoltaDriveModeA100, kMinoltaDriveModeA100Names>>},
    {L"インターバル", FormatInterval, Place::kDetail},
    {L"フォーカスモード", FirstItem<ItemCode<&Fields::minoltaFocusMode, kMinoltaFocusModeNames>,
                                    ItemCode<&Fields::minoltaFocusMode7D, kMinoltaFocusMode7DNames>,
                                    ItemCode<&Fields::minoltaFocusModeA100, kMinoltaFocusModeA100Names>>},
    {L"フォーカスエリア", ItemCode<&Fields::minoltaFocusArea, kMinoltaFocusAreaNames>, Place::kDetail},
    {L"フォーカス位置", ItemCode<&Fields::minoltaFocusZone, kMinoltaFocusZoneNames>, Place::kDetail},
    {L"フォーカスポイント", FormatAfPoints, Place::kDetail},
    {L"マクロモード", ItemCode<&Fields::minoltaMacro, kMinoltaOffOnNames>},
    {L"撮影距離", FormatFocusDistance},
    {L"シャープネス", FirstItem<ItemCode<&Fields::minoltaSharpness, kMinoltaSharpnessNames>,
                                ItemNumber<&Fields::minoltaSharpnessStep, FormatStep>>},
    {L"コントラスト", ItemNumber<&Fields::minoltaContrast, FormatStep>},
    {L"色の濃さ", ItemNumber<&Fields::minoltaSaturation, FormatStep>},
    {L"色相", ItemNumber<&Fields::minoltaHue, FormatStep>, Place::kDetail},
    {L"カラーモード", FirstItem<ItemCode<&Fields::minoltaColorMode, kMinoltaColorModeNames>,
                                ItemCode<&Fields::minoltaColorSpace7D, kMinoltaColorSpace7DNames>,
                                ItemCode<&Fields::minoltaColorSpace5D, kMinoltaColorSpace5DNames>>},
    {L"仕上がり設定", ItemCode<&Fields::minoltaPictureFinish, kMinoltaPictureFinishNames>, Place::kDetail},
    {L"カラープロファイル", ItemCode<&Fields::minoltaColorProfile, kMinoltaColorProfileNames>, Place::kDetail},
    {L"デジタルズーム", ItemCode<&Fields::minoltaDigitalZoom, kMinoltaDigitalZoomNames>},
    {L"ゾーンマッチング", FirstItem<ItemCode<&Fields::minoltaZoneMatching, kMinoltaZoneMatchingNames>,
                                    ItemCode<&Fields::minoltaZoneMatchingOn, kMinoltaOffOnNames>>},
    {L"ノイズリダクション", ItemCode<&Fields::minoltaNoiseReduction, kMinoltaOffOnNames>},
    {L"手ブレ補正", FirstItem<ItemCode<&Fields::minoltaStabilizer2, kMinoltaStabilizer2Names>,
                              ItemCode<&Fields::minoltaStabilizer, kMinoltaOffOnNames>,
                              ItemCode<&Fields::minoltaStabilizer3, kMinoltaOffOnNames>>},
    {L"レンズ情報", AppendMinoltaLens},
    {L"テレコンバーター", ItemCode<&Fields::minoltaTeleconverter, kMinoltaTeleconverterNames, 0>},
    {L"日付写し込み", ItemCode<&Fields::minoltaDataImprint, kMinoltaDataImprintNames>},
    {L"ファイル番号", FirstItem<ItemNumber<&Fields::minoltaLastFileNumber, FormatCount>,
                                ItemNumber<&Fields::minoltaImageNumber, FormatCount>>},
};
// clang-format on

}  // namespace

void EmitMinoltaSection(const ImageInfo& info, const EnumContext& context) {
    EmitItemRows(info, kItems, context);
}

bool AppendMinoltaLens(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t id = Note(info).minoltaLensId;
    if (!IsSet(id)) return false;
    AppendAMountLens(id, dst);
    return true;
}

bool AppendMinoltaWhiteBalance(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = Note(info);
    return info.modelId == kMinolta7D
               ? Named<&Fields::minoltaWhiteBalance, kMinoltaWhiteBalance7DNames>(note, dst)
               : Named<&Fields::minoltaWhiteBalance, kMinoltaWhiteBalanceNames>(note, dst);
}

}  // namespace qmx
