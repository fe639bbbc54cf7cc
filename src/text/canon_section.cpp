// Canon's part of the texts.

#include "text/canon_names.h"
#include "text/canon_values.h"
#include "text/maker_sections.h"

namespace qmx {
namespace {

using Fields = CanonMakerFields;

// Where an item stands: by itself, or as a detail of the one before it; the picture settings are
// details of the picture style on bodies that have one.
enum class Place { kItem, kDetail, kOfStyle };

struct CanonRow {
    const wchar_t* label;
    bool (*format)(const ImageInfo& info, TextBuffer& dst);
    Place place = Place::kItem;
};

// In the order of shooting.  One row per line, to be proof-read.
// clang-format off
constexpr CanonRow kItems[] = {
    {L"画像タイプ", CanonText<&Fields::imageType>},
    {L"撮影モード", FormatCanonShootingMode},
    {L"イメージゾーン", FormatCanonImageZone},
    {L"画質モード", CanonCode<&Fields::quality, kCanonQualityNames>},
    {L"イメージサイズ", CanonCode<&Fields::imageSize, kCanonImageSizeNames>},
    {L"ドライブモード", FormatCanonDriveMode},
    {L"セルフタイマー", FormatCanonSelfTimer},
    {L"連続撮影時の連番", CanonCount<&Fields::sequenceNumber>},
    {L"ISOセッティング", FormatCanonIsoSetting},
    {L"ベースISO", CanonCount<&Fields::baseIso>},
    {L"測光モード", CanonCode<&Fields::meteringMode, kCanonMeteringModeNames>},
    {L"露出補正", CanonExposureValue<&Fields::exposureCompensation>},
    {L"AE設定", CanonCode<&Fields::aeSetting, kCanonAeSettingNames>},
    {L"自動露出ブラケット", CanonCode<&Fields::autoExposureBracketing, kCanonBracketingNames>},
    {L"補正量", FormatCanonAebValue, Place::kDetail},
    {L"ブラケットモード", CanonCode<&Fields::fileInfo3, kCanonBracketModeNames, 0, kCanonNoWord>},
    {L"補正量", FormatCanonBracketValue, Place::kDetail},
    {L"撮影枚数", FormatCanonBracketShot, Place::kDetail},
    {L"スローシャッター", CanonCode<&Fields::slowShutter, kCanonSlowShutterNames>},
    {L"バルブ撮影時間", FormatCanonBulbDuration},
    {L"NDフィルター", CanonCode<&Fields::ndFilter, kCanonNdFilterNames>},
    {L"フラッシュモード", CanonCode<&Fields::flashMode, kCanonFlashModeNames>},
    {L"使用ストロボ", FormatCanonFlashUnit},
    {L"フラッシュ光量補正", CanonExposureValue<&Fields::flashExposureComp>},
    {L"ガイドナンバー", FormatCanonGuideNumber},
    {L"マクロモード", CanonCode<&Fields::macroMode, kCanonMacroModeNames, 0>},
    {L"フォーカスモード", CanonCode<&Fields::focusMode, kCanonFocusModeNames>},
    {L"連続AF", CanonCode<&Fields::focusContinuous, kCanonFocusContinuousNames>},
    {L"フォーカスレンジ", FormatCanonFocusRange},
    {L"AFフレーム", CanonCode<&Fields::afPoint, kCanonAfPointNames, 0>},
    {L"合焦AFフレーム", FormatCanonPointsInFocus},
    {L"撮影距離", FormatCanonFocusDistance},
    {L"デジタルズーム", CanonCode<&Fields::digitalZoom, kCanonDigitalZoomNames, -1>},
    {L"手ブレ補正", CanonCode<&Fields::imageStabilization, kCanonImageStabilizationNames>},
    {L"ホワイトバランス", AppendCanonWhiteBalance},
    {L"色温度", FormatCanonColorTemperature},
    {L"ホワイトバランス補正", FormatCanonWhiteBalanceShift},
    {L"WBブラケット", CanonCode<&Fields::fileInfo9, kCanonWhiteBalanceBracketNames, 0, kCanonNoWord>},
    {L"補正量(A-B)", FormatCanonBracketAmber, Place::kDetail},
    {L"補正量(G-M)", FormatCanonBracketGreen, Place::kDetail},
    {L"カラーマトリックス", FormatCanonColorMatrix},
    {L"ピクチャースタイル", FormatCanonPictureStyle},
    {L"コントラスト", FormatCanonContrast, Place::kOfStyle},
    {L"シャープネス", FormatCanonSharpness, Place::kOfStyle},
    {L"色の濃さ", FormatCanonSaturation, Place::kOfStyle},
    {L"色あい", FormatCanonColorTone, Place::kOfStyle},
    {L"フィルター効果", FormatCanonFilterEffect, Place::kOfStyle},
    {L"調色", FormatCanonToningEffect, Place::kOfStyle},
    {L"写真効果", CanonCode<&Fields::photoEffect, kCanonPhotoEffectNames>},
    {L"マイカラー", FormatCanonMyColors},
    {L"トーンカーブ", CanonCode<&Fields::processingInfo1, kCanonToneCurveNames>},
    {L"シャープネス周波数", CanonCode<&Fields::processingInfo3, kCanonSharpnessFrequencyNames, 0>},
    {L"デジタルゲイン", FormatCanonDigitalGain},
    {L"カラースペース", CanonCode<&Fields::colorSpace, kCanonColorSpaceNames, kCanonNoWord>},
    {L"長秒時露光のノイズ低減", CanonCode<&Fields::fileInfo8, kCanonLongExposureNames, kCanonNoWord>},
    {L"高輝度側・階調優先", CanonCode<&Fields::cameraInfoByte7, kCanonTonePriorityNames>},
    {L"高感度撮影時のノイズ低減", CanonCode<&Fields::cameraInfoA, kCanonStrengthNames>},
    {L"オートライティングオプティマイザ", CanonCode<&Fields::cameraInfoB, kCanonStrengthNames>},
    {L"レンズ情報", AppendCanonLens},
    {L"レンズタイプ", CanonCode<&Fields::focalType, kCanonFocalTypeNames, 0>},
    {L"焦点距離", FormatCanonFocalLength},
    {L"開放絞り", CanonFNumber<&Fields::maxAperture>},
    {L"最小絞り", CanonFNumber<&Fields::minAperture>},
    {L"パノラマ", CanonCode<&Fields::panoramaDirection, kCanonPanoramaDirectionNames>},
    {L"撮影枚数", FormatCanonPanoramaFrame, Place::kDetail},
    {L"自動回転", CanonCode<&Fields::autoRotate, kCanonAutoRotateNames>},
    {L"カメラタイプ", CanonCode<&Fields::cameraType, kCanonCameraTypeNames, 0>},
    {L"ファイル番号", FormatCanonFileNumber},
    {L"シャッター回数", FormatCanonShutterCount},
    {L"所有者名", CanonText<&Fields::ownerName>},
    {L"ファームウェア", CanonText<&Fields::firmwareVersion>},
    {L"シリアル番号", FormatCanonSerialNumber},
};
// clang-format on

bool HasPictureStyle(const ImageInfo& info) {
    return info.modelId >= kCanonFirstPictureStyle && IsSet(CanonNote(info).processingInfo10);
}

}  // namespace

void EmitCanonSection(const ImageInfo& info, const EnumContext& context) {
    wchar_t storage[kValueCapacity];
    const bool hasStyle = HasPictureStyle(info);
    for (const CanonRow& row : kItems) {
        TextBuffer value(storage);
        if (!row.format(info, value)) continue;
        if (row.place == Place::kDetail || (row.place == Place::kOfStyle && hasStyle)) {
            EmitSubItem(context, row.label, value.Text());
        } else {
            EmitItem(context, row.label, value.Text());
        }
    }
}

bool AppendCanonPictureStyle(const ImageInfo& info, TextBuffer& dst) {
    if (!HasPictureStyle(info)) return false;
    dst.Append(L"ピクチャースタイル: ");
    return FormatCanonPictureStyle(info, dst);
}

}  // namespace qmx
