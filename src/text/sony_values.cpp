#include "text/sony_values.h"

#include <charconv>

#include "text/maker_sections.h"
#include "text/minolta_lenses.h"
#include "text/sony_lens_spec.h"
#include "text/sony_lenses.h"
#include "text/sony_names.h"
#include "text/sony_setting_names.h"

namespace qmx {
namespace {

using Fields = SonyMakerFields;

// A number whose 0 leaves the choice to the camera.
bool FormatOrAuto(TextBuffer& dst, std::int32_t value, const wchar_t* suffix) {
    if (!IsSet(value)) return false;
    if (value == 0) {
        dst.Append(L"オート");
    } else {
        FormatInteger(dst, value, suffix);
    }
    return true;
}

}  // namespace

bool FormatSonyWhiteBalanceShift(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = SonyNote(info);
    if (note.sonyWbShiftAmber == 0 && note.sonyWbShiftMagenta == 0) return false;
    return Pair<&Fields::sonyWbShiftAmber, &Fields::sonyWbShiftMagenta>(note, dst);
}

bool FormatSonyColorTemperature(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = SonyNote(info);
    return FormatOrAuto(dst, note.sonyColorTemp, L"K") ||
           FormatOrAuto(dst, note.sonyColorTempSet, L"K");
}

bool FormatSonyIso(const ImageInfo& info, TextBuffer& dst) {
    return FormatOrAuto(dst, SonyNote(info).sonyIsoSetting, nullptr);
}

bool FormatSonyAfArea(const ImageInfo& info, TextBuffer& dst) {
    const std::string_view model = FieldText(info.cameraModel);
    const Fields& note = SonyNote(info);
    if (model.starts_with("SLT-"))
        return Named<&Fields::sonyAfAreaMode2, kSonyAfAreaMode2SltNames>(note, dst);
    if (model.starts_with("ILCA-"))
        return Named<&Fields::sonyAfAreaMode2, kSonyAfAreaMode2IlcaNames>(note, dst);
    return Named<&Fields::sonyAfAreaMode2, kSonyAfAreaMode2EMountNames>(note, dst);
}

bool FormatSonyCreativeStyle(const ImageInfo& info, TextBuffer& dst) {
    const std::string_view style = FieldText(SonyNote(info).sonyCreativeStyle);
    if (style.empty()) return false;
    LookupPrefixName(dst, style, kSonyCreativeStyleNames);
    return true;
}

bool FormatSonyHdr(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = SonyNote(info);
    if (!Named<&Fields::sonyHdr, kSonyHdrNames>(note, dst)) return false;
    if (note.sonyHdrImage == 0 || !IsSet(note.sonyHdrImage)) return true;
    LookupValueName(dst.Append(L'（'), note.sonyHdrImage, kSonyHdrImageNames);
    dst.Append(L'）');
    return true;
}

bool FormatSonyDriveSetting(const ImageInfo& info, TextBuffer& dst) {
    constexpr std::int32_t kMirrorUp = 11;  // of bodies that have it
    const Fields& note = SonyNote(info);
    if (note.sonySettingsForm == kSonyWordsSet2 && note.sonyDriveMode == kMirrorUp) {
        dst.Append(L"連続セルフタイマー");
        return true;
    }
    return SonySetting<&Fields::sonyDriveMode, kSonyDriveModeSet1Names, kSonyDriveModeSet3Names>(
        info, dst);
}

bool FormatSonyHighIsoSetting(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = SonyNote(info);
    if (note.sonySettingsForm == kSonyWordsSet2)
        return Named<&Fields::sonyHighNrSet, kSonyHighNrSet2Names>(note, dst);
    return SonySetting<&Fields::sonyHighNrSet, kSonyHighNrSet1Names, kSonyHighNrSet3Names>(info,
                                                                                           dst);
}

bool FormatSonyLensDescription(const ImageInfo& info, TextBuffer& dst) {
    return FormatSonyLensSpec(dst, SonyNote(info).sonyLensSpec);
}

// "3 1 0 0", the four numbers in decimal.
bool FormatSonyFileFormat(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t format = SonyNote(info).sonyFileFormat;
    if (!IsSet(format)) return false;
    char text[16];
    char* end = text;
    for (int shift = 24; shift >= 0; shift -= 8) {
        if (end != text) *end++ = ' ';
        end = std::to_chars(end, text + sizeof text,
                            static_cast<std::uint32_t>(format) >> shift & 0xFF)
                  .ptr;
    }
    LookupPrefixName(dst, {text, static_cast<std::size_t>(end - text)}, kSonyFileFormatNames);
    return true;
}

bool FormatSonyImageSize(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = SonyNote(info);
    if (!IsSet(note.sonyFullImageWidth) || !IsSet(note.sonyFullImageHeight)) return false;
    FormatInteger(dst, note.sonyFullImageWidth, L" x ");
    FormatInteger(dst, note.sonyFullImageHeight);
    return true;
}

bool AppendSonyLens(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = SonyNote(info);
    if (!IsSet(note.sonyLensId)) return false;
    if (note.sonyMount == kSonyAMount) {
        AppendAMountLens(note.sonyLensId, dst);
    } else {
        AppendEMountLens(note.sonyLensId, dst);
    }
    return true;
}

bool AppendSonyWhiteBalance(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = SonyNote(info);
    return Named<&Fields::sonyWhiteBalance, kSonyWhiteBalanceNames>(note, dst) ||
           Named<&Fields::sonyWhiteBalance2, kSonyWhiteBalanceNames>(note, dst);
}

}  // namespace qmx
