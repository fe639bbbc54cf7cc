// Sony's part of the texts.

#include "text/maker_sections.h"
#include "text/minolta_names.h"
#include "text/sony_names.h"
#include "text/sony_setting_names.h"
#include "text/sony_values.h"

namespace qmx {
namespace {

using Fields = SonyMakerFields;

// One row per line, to be proof-read.
// clang-format off
constexpr ItemRow kItems[] = {
    {L"撮影モード", FirstItem<ItemCode<&Fields::sonySceneMode, kSonySceneModeNames, 0>,
                              ItemCode<&Fields::sonyExposureMode, kSonyExposureModeNames>,
                              ItemCode<&Fields::sonyProgram, kSonyProgramSet1Names>,
                              ItemCode<&Fields::minoltaExposureMode, kMinoltaExposureModeNames>>},
    {L"画質モード", FirstItem<ItemCode<&Fields::sonyQuality, kSonyQualityNames>,
                              ItemCode<&Fields::sonyQuality2, kSonyQuality2Names>,
                              ItemCode<&Fields::sonyJpegQuality, kSonyJpegQualityNames>,
                              SonySetting<&Fields::sonyQualitySetting, kSonyQualitySettingSet1Names, kSonyQualitySettingSet3Names>>},
    {L"RAW形式", ItemCode<&Fields::sonyRawFileType, kSonyRawFileTypeNames>, Place::kDetailOrItem},
    {L"ホワイトバランス", FirstItem<AppendSonyWhiteBalance,
                                    ItemCode<&Fields::sonyWbSetting, kSonyWbSettingSet1Names>>},
    {L"WB微調整", ItemNumber<&Fields::sonyWbFineTune, FormatStep>, Place::kDetailOrItem},
    {L"オートWB優先", ItemCode<&Fields::sonyAwbPriority, kSonyAwbPriorityNames>, Place::kDetailOrItem},
    {L"WBシフト", FormatSonyWhiteBalanceShift, Place::kDetailOrItem},
    {L"色温度", FormatSonyColorTemperature},
    {L"カラーフィルター", ItemNumber<&Fields::sonyColorFilter, FormatStep, 0>, Place::kDetailOrItem},
    {L"測光モード", FirstItem<ItemCode<&Fields::sonyMetering2, kSonyMetering2Names>,
                              SonySetting<&Fields::sonyMetering, kSonyMeteringSet1Names, kSonyMeteringSet3Names>>},
    {L"露出補正", ItemNumber<&Fields::sonyExposureCompSet, FormatExposureBias>},
    {L"ISOセッティング", FormatSonyIso},
    {L"ドライブモード", FirstItem<FormatSonyDriveSetting,
                                  ItemCode<&Fields::minoltaDriveModeA100, kMinoltaDriveModeA100Names>,
                                  ItemCode<&Fields::sonyReleaseMode, kSonyReleaseModeNames>>},
    {L"連続撮影時の連番", ItemNumber<&Fields::sonySequenceNumber, FormatCount, 0>, Place::kDetailOrItem},
    {L"フォーカスモード", FirstItem<ItemCode<&Fields::sonyFocusMode2, kSonyFocusMode2Names>,
                                    SonySetting<&Fields::sonyFocusModeSetting, kSonyFocusModeSettingSet1Names, kSonyFocusModeSettingSet3Names>,
                                    ItemCode<&Fields::minoltaFocusModeA100, kMinoltaFocusModeA100Names>,
                                    ItemCode<&Fields::sonyFocusMode, kSonyFocusModeNames, 0>>},
    {L"AFエリアモード", FirstItem<FormatSonyAfArea,
                                  SonySetting<&Fields::sonyAfArea, kSonyAfAreaSet1Names, kSonyAfAreaSet3Names>,
                                  ItemCode<&Fields::sonyAfAreaMode, kSonyAfAreaModeNames>>},
    {L"フォーカスポイント", ItemCode<&Fields::sonyAfPoint, kSonyAfPointSet1Names>, Place::kDetail},
    {L"AF追尾", ItemCode<&Fields::sonyAfTracking, kSonyAfTrackingNames>, Place::kDetailOrItem},
    {L"AF補助光", ItemCode<&Fields::sonyAfIlluminator, kSonyAfIlluminatorNames>, Place::kDetailOrItem},
    {L"マクロモード", ItemCode<&Fields::sonyMacro, kSonyMacroNames>},
    {L"フラッシュモード", FirstItem<SonySetting<&Fields::sonyFlashModeSetting, kSonyFlashModeSettingSet1Names, kSonyFlashModeSettingSet3Names>,
                                    ItemCode<&Fields::sonyFlashAction, kSonyFlashActionNames>>},
    {L"調光方式", SonySetting<&Fields::sonyFlashControl, kSonyFlashControlSet1Names, kSonyFlashControlSet3Names>, Place::kDetailOrItem},
    {L"フラッシュ光量補正", FirstItem<ItemNumber<&Fields::sonyFlashComp, FormatExposureBias>,
                                      ItemNumber<&Fields::sonyFlashCompSet, FormatExposureBias>,
                                      ItemCode<&Fields::sonyFlashLevel, kSonyFlashLevelNames>>},
    {L"電子先幕シャッター", ItemCode<&Fields::sonyElectronicFirstCurtain, kSonyOffOnNames>},
    {L"クリエイティブスタイル", FirstItem<FormatSonyCreativeStyle,
                                          ItemCode<&Fields::sonyColorMode, kSonyColorModeNames>,
                                          ItemCode<&Fields::sonyStyle, kSonyStyleSet1Names>,
                                          ItemCode<&Fields::sonyStyleSetting, kSonyStyleSettingNames>>},
    {L"コントラスト", ItemNumber<&Fields::sonyContrast, FormatStep>, Place::kDetailOrItem},
    {L"色の濃さ", ItemNumber<&Fields::sonySaturation, FormatStep>, Place::kDetailOrItem},
    {L"シャープネス", ItemNumber<&Fields::sonySharpness, FormatStep>, Place::kDetailOrItem},
    {L"明るさ", ItemNumber<&Fields::sonyBrightness, FormatStep>, Place::kDetailOrItem},
    {L"ピクチャーエフェクト", ItemCode<&Fields::sonyPictureEffect, kSonyPictureEffectNames, 0>},
    {L"Dレンジオプティマイザー", FirstItem<ItemCode<&Fields::sonyDro, kSonyDroNames>,
                                          ItemCode<&Fields::sonyDro2, kSonyDro2Names>,
                                          ItemCode<&Fields::sonyDroMode, kSonyDroModeSet1Names>,
                                          ItemCode<&Fields::sonyDroSetting, kSonyDroSettingNames>>},
    {L"オートHDR", FormatSonyHdr},
    {L"ゾーンマッチング", ItemCode<&Fields::sonyZoneMatching, kMinoltaZoneMatchingNames>},
    {L"高感度ノイズ低減", FirstItem<ItemCode<&Fields::sonyHighIsoNr, kSonyHighIsoNrNames>,
                                    ItemCode<&Fields::sonyHighIsoNr2, kSonyHighIsoNr2Names>,
                                    FormatSonyHighIsoSetting>},
    {L"長秒時ノイズ低減", FirstItem<ItemCode<&Fields::sonyLongExposureNr, kSonyLongExposureNrNames>,
                                    SonySetting<&Fields::sonyLongNrSet, kSonyLongNrSet1Names, kSonyLongNrSet3Names>>},
    {L"連写合成ノイズ低減", ItemCode<&Fields::sonyMultiFrameNr, kSonyOffOnNames>, Place::kDetailOrItem},
    {L"手ブレ補正", FirstItem<ItemCode<&Fields::sonyStabilizer, kSonyOffOnNames>,
                              ItemCode<&Fields::sonyAntiBlur, kSonyAntiBlurNames>,
                              ItemCode<&Fields::sonyStabilizerSet, kSonyOffOnNames>>},
    {L"ソフトスキン効果", ItemCode<&Fields::sonySoftSkin, kSonySoftSkinNames>},
    {L"オートポートレートフレーミング", ItemCode<&Fields::sonyAutoPortraitFramed, kSonyAutoPortraitFramedNames>},
    {L"周辺光量補正", ItemCode<&Fields::sonyVignetting, kSonyLensCorrectionNames>},
    {L"倍率色収差補正", ItemCode<&Fields::sonyChromatic, kSonyLensCorrectionNames>},
    {L"ゆがみ補正", ItemCode<&Fields::sonyDistortion, kSonyLensCorrectionNames>},
    {L"レンズ情報", AppendSonyLens},
    {L"レンズ仕様", FormatSonyLensDescription, Place::kDetailOrItem},
    {L"テレコンバーター", ItemCode<&Fields::sonyTeleconverter, kMinoltaTeleconverterNames, 0>},
    {L"おまかせオート", ItemCode<&Fields::sonyIntelligentAuto, kSonyIntelligentAutoNames>},
    {L"レーティング", ItemNumber<&Fields::sonyRating, FormatCount, 0>},
    {L"ファイル形式", FormatSonyFileFormat},
    {L"イメージサイズ", FirstItem<FormatSonyImageSize,
                                  SonySetting<&Fields::sonyImageSizeSetting, kSonyImageSizeSettingSet1Names, kSonyImageSizeSettingSet3Names>>},
    {L"縦横比", SonySetting<&Fields::sonyAspect, kSonyAspectSet1Names, kSonyAspectSet3Names>, Place::kDetailOrItem},
};
// clang-format on

}  // namespace

void EmitSonySection(const ImageInfo& info, const EnumContext& context) {
    EmitItemRows(info, kItems, context);
}

}  // namespace qmx
