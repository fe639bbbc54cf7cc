#include "parse/core/numeric.h"
#include "text/enumerate.h"
#include "text/exif_names.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Info = ImageInfo;

constexpr wchar_t kMillimetres[] = L"mm";
constexpr wchar_t kMetres[] = L"m";

// An exposure of 0 s is a camera's way of saying nothing.
bool FormatExposure(const Info& info, TextBuffer& dst) {
    if (!IsSet(info.exposureTime) || info.exposureTime == 0.0f) return false;
    FormatExposureTime(dst, info.exposureTime);
    return true;
}

bool FormatShutterSpeed(const Info& info, TextBuffer& dst) {
    if (!IsSet(info.shutterSpeed)) return false;
    // Canon writes next to nothing for a bulb exposure.
    if (info.makerId == kMakerCanon && TruncateToI32(info.shutterSpeed * 10000.0f) == 0) {
        dst.Append(L"バルブ");
        return true;
    }
    if (info.shutterSpeed == 0.0f) return false;
    FormatExposureTime(dst, info.shutterSpeed);
    return true;
}

TextBuffer& FormatIsoSpeed(TextBuffer& dst, std::int32_t speed) {
    return speed == 0 ? dst.Append(L"オート") : dst.AppendInteger(speed);
}

bool FormatDigitalZoom(const Info& info, TextBuffer& dst) {
    if (!IsSet(info.digitalZoomRatio) || !(info.digitalZoomRatio > 1.0f)) return false;
    FormatZoomRatio(dst, info.digitalZoomRatio);
    return true;
}

TextBuffer& FormatColorSpace(TextBuffer& dst, std::int32_t code) {
    if (code == 1) return dst.Append(L"sRGB");
    return dst.Append(L"sRGB以外(").AppendInteger(code).Append(L')');
}

bool FormatGamma(const Info& info, TextBuffer& dst) {
    if (!IsSet(info.gamma)) return false;
    FormatHundredths(dst, info.gamma);
    return true;
}

constexpr TextRow<Info> kItems[] = {
    {L"メーカー名", Widened<&Info::cameraMake>},
    {L"モデル名", Widened<&Info::cameraModel>},
    {L"撮影日時", Widened<&Info::dateTimeOriginal>},
    {L"イメージサイズ", Pair<&Info::pixelXDimension, &Info::pixelYDimension>},
    {L"露出時間", FormatExposure},
    {L"F値", Formatted<&Info::fNumber, FormatFNumber>},
    {L"シャッター速度", FormatShutterSpeed},
    {L"絞り値", Formatted<&Info::aperture, FormatFNumber>},
    {L"明るさ", Formatted<&Info::brightness, FormatExposureBias>},
    {L"露出補正", Formatted<&Info::exposureBias, FormatExposureBias>},
    {L"ISO感度", Formatted<&Info::isoSpeed, FormatIsoSpeed>},
    {L"光源", Named<&Info::lightSource, kLightSourceNames>},
    {L"焦点距離", Formatted<&Info::focalLength, FormatWholeOrTenths, kMillimetres>},
    {L"焦点距離(35mm)", Formatted<&Info::focalLengthIn35mm, FormatWholeOrTenths, kMillimetres>},
    {L"被写体距離", Formatted<&Info::subjectDistance, FormatHundredths, kMetres>},
    {L"フラッシュ", Named<&Info::flash, kFlashNames, kFlashPrefix>},
    {L"露出プログラム", Named<&Info::exposureProgram, kExposureProgramNames>},
    {L"測光モード", Named<&Info::meteringMode, kMeteringModeNames>},
    {L"撮影モード", Indexed<&Info::exposureMode, kExposureModeNames>},
    {L"ホワイトバランス", Indexed<&Info::whiteBalance, kWhiteBalanceNames>},
    {L"デジタルズーム", FormatDigitalZoom},
    {L"撮影シーンタイプ", Indexed<&Info::sceneCaptureType, kSceneCaptureTypeNames>},
    {L"ゲインコントロール", Indexed<&Info::gainControl, kGainControlNames>},
    {L"コントラスト", Indexed<&Info::contrast, kContrastNames>},
    {L"色の濃さ", Indexed<&Info::saturation, kSaturationNames>},
    {L"シャープネス", Indexed<&Info::sharpness, kContrastNames>},
    {L"被写体の距離範囲", Indexed<&Info::subjectDistanceRange, kSubjectDistanceRangeNames>},
    {L"色の表現", Formatted<&Info::colorSpace, FormatColorSpace>},
    {L"ガンマ値", FormatGamma},
    {L"ソフトウェア", Widened<&Info::software>},
};

}  // namespace

void EmitExifSection(const ImageInfo& info, const EnumContext& context) {
    EmitHeading(context, L"Exif情報");
    EmitRows(info, kItems, context);
}

}  // namespace qmx
