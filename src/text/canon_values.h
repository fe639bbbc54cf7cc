#pragma once
// How single values of Canon's notes read, for the rows of the section.  Formatters take the whole
// record, since many rules depend on the model; each returns false, having written nothing, when
// there is nothing to show.

#include <cstdint>

#include "makernote/canon_fields.h"
#include "makernote/maker_record.h"
#include "text/text_row.h"

namespace qmx {

inline const CanonMakerFields& CanonNote(const ImageInfo& info) {
    return MakerRecord<CanonMakerFields>(info);
}

inline bool IsCanonEos(const ImageInfo& info) { return info.modelId >= kCanonFirstEos; }

// What arrays of unsigned words hold in place of a value.
inline constexpr std::int32_t kCanonNoWord = 0xFFFF;

inline bool IsCanonBracketing(std::int32_t mode) {
    return IsSet(mode) && mode != 0 && mode != kCanonNoWord;
}

// A text of the file.
template <auto Field>
bool CanonText(const ImageInfo& info, TextBuffer& dst) {
    return Widened<Field>(CanonNote(info), dst);
}

// A code; the values left out are the camera's ways of saying nothing.
template <auto Field, const auto& Table, std::int32_t... LeftOut>
bool CanonCode(const ImageInfo& info, TextBuffer& dst) {
    const CanonMakerFields& note = CanonNote(info);
    if (((note.*Field == LeftOut) || ...)) return false;
    return Named<Field, Table>(note, dst);
}

// A number above 0.
template <auto Field>
bool CanonCount(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t value = CanonNote(info).*Field;
    if (!IsSet(value) || value <= 0) return false;
    dst.AppendInteger(value);
    return true;
}

template <auto Field>
bool CanonExposureValue(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t word = CanonNote(info).*Field;
    if (!IsSet(word)) return false;
    FormatExposureBias(dst, CanonEv(word));
    return true;
}

template <auto Field>
bool CanonFNumber(const ImageInfo& info, TextBuffer& dst) {
    return Formatted<Field, FormatFNumber>(CanonNote(info), dst);
}

// Exposure.
bool FormatCanonShootingMode(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonImageZone(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonDriveMode(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonSelfTimer(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonIsoSetting(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonAebValue(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonBracketValue(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonBracketShot(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonDigitalGain(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonBulbDuration(const ImageInfo& info, TextBuffer& dst);

// Flash and focus.
bool FormatCanonFlashUnit(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonGuideNumber(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonFocusRange(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonPointsInFocus(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonFocusDistance(const ImageInfo& info, TextBuffer& dst);

// Colour.
bool FormatCanonColorTemperature(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonWhiteBalanceShift(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonBracketAmber(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonBracketGreen(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonColorMatrix(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonPictureStyle(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonContrast(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonSharpness(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonSaturation(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonColorTone(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonFilterEffect(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonToningEffect(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonMyColors(const ImageInfo& info, TextBuffer& dst);

// Lens and body.
bool FormatCanonFocalLength(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonPanoramaFrame(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonFileNumber(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonShutterCount(const ImageInfo& info, TextBuffer& dst);
bool FormatCanonSerialNumber(const ImageInfo& info, TextBuffer& dst);

}  // namespace qmx
