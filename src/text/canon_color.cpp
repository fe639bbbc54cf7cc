// The colour part of Canon's values.

#include "text/canon_names.h"
#include "text/canon_values.h"
#include "text/maker_sections.h"

namespace qmx {
namespace {

using Fields = CanonMakerFields;

bool FormatBracketShift(std::int32_t mode, std::int32_t shift, TextBuffer& dst) {
    if (!IsCanonBracketing(mode) || !IsSet(shift)) return false;
    FormatSignedInteger(dst, static_cast<std::int16_t>(shift));
    return true;
}

// A step of the camera's scale: compacts name theirs, EOS bodies count them.
template <const auto& Table>
bool FormatStep(const ImageInfo& info, std::int32_t step, TextBuffer& dst) {
    if (!IsSet(step)) return false;
    if (IsCanonEos(info)) {
        FormatSignedInteger(dst, step);
    } else {
        LookupValueName(dst, step, Table);
    }
    return true;
}

// Effects of the monochrome style.
template <auto Field, const auto& Table>
bool FormatEffect(const ImageInfo& info, TextBuffer& dst) {
    constexpr std::int32_t kMonochrome = 134;
    return info.modelId >= kCanonFirstPictureStyle &&
           CanonNote(info).processingInfo10 == kMonochrome &&
           CanonCode<Field, Table, kCanonNoWord>(info, dst);
}

}  // namespace

bool AppendCanonWhiteBalance(const ImageInfo& info, TextBuffer& dst) {
    return CanonCode<&Fields::whiteBalance, kCanonWhiteBalanceNames>(info, dst);
}

// Compacts mean it only with a white balance by temperature.
bool FormatCanonColorTemperature(const ImageInfo& info, TextBuffer& dst) {
    constexpr std::int32_t kByTemperature = 9;
    const Fields& note = CanonNote(info);
    if (!IsCanonEos(info) && note.whiteBalance != kByTemperature) return false;
    const bool isProcessed = IsSet(note.processingInfo9) && note.processingInfo9 > 0;
    const std::int32_t kelvin = isProcessed ? note.processingInfo9 : note.canonColorTemperature;
    if (!IsSet(kelvin) || kelvin <= 0) return false;
    FormatInteger(dst, kelvin, L"K");
    return true;
}

bool FormatCanonWhiteBalanceShift(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = CanonNote(info);
    if (!IsCanonEos(info) || !IsSet(note.processingInfo12) || !IsSet(note.processingInfo13)) {
        return false;
    }
    FormatSignedInteger(dst.Append(L"A-B "), note.processingInfo12).Append(L", G-M ");
    FormatSignedInteger(dst, note.processingInfo13);
    return true;
}

bool FormatCanonBracketAmber(const ImageInfo& info, TextBuffer& dst) {
    return FormatBracketShift(CanonNote(info).fileInfo9, CanonNote(info).fileInfo12, dst);
}

bool FormatCanonBracketGreen(const ImageInfo& info, TextBuffer& dst) {
    return FormatBracketShift(CanonNote(info).fileInfo9, CanonNote(info).fileInfo13, dst);
}

// The 1-series' forerunner of the picture style.
bool FormatCanonColorMatrix(const ImageInfo& info, TextBuffer& dst) {
    return info.modelId >= kCanonFirstShutterCount && info.modelId < kCanonFirstPictureStyle &&
           CanonCode<&Fields::processingInfo10, kCanonPictureStyleNames>(info, dst);
}

bool FormatCanonPictureStyle(const ImageInfo& info, TextBuffer& dst) {
    return info.modelId >= kCanonFirstPictureStyle &&
           CanonCode<&Fields::processingInfo10, kCanonPictureStyleNames>(info, dst);
}

bool FormatCanonContrast(const ImageInfo& info, TextBuffer& dst) {
    return FormatStep<kCanonContrastNames>(info, CanonNote(info).contrast, dst);
}

bool FormatCanonSharpness(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = CanonNote(info);
    const std::int32_t step = IsSet(note.sharpness) ? note.sharpness : note.processingInfo2;
    return FormatStep<kCanonSharpnessNames>(info, step, dst);
}

bool FormatCanonSaturation(const ImageInfo& info, TextBuffer& dst) {
    return FormatStep<kCanonContrastNames>(info, CanonNote(info).saturation, dst);
}

bool FormatCanonColorTone(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t tone = CanonNote(info).colorTone;
    if (!IsCanonEos(info) || !IsSet(tone)) return false;
    FormatSignedInteger(dst, tone);
    return true;
}

bool FormatCanonFilterEffect(const ImageInfo& info, TextBuffer& dst) {
    return FormatEffect<&Fields::fileInfo14, kCanonFilterEffectNames>(info, dst);
}

bool FormatCanonToningEffect(const ImageInfo& info, TextBuffer& dst) {
    return FormatEffect<&Fields::fileInfo15, kCanonToningEffectNames>(info, dst);
}

bool FormatCanonMyColors(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t mode = CanonNote(info).tag1DWords[2];
    if (!IsSet(mode) || mode == 0) return false;
    LookupValueName(dst, mode, kCanonMyColorsNames);
    return true;
}

}  // namespace qmx
