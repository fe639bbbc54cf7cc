#include "text/canon_values.h"

#include <algorithm>

#include "text/canon_lenses.h"
#include "text/canon_names.h"
#include "text/maker_sections.h"

namespace qmx {
namespace {

using Fields = CanonMakerFields;

constexpr std::int32_t kD30 = 4097;
constexpr std::int32_t kD60 = 4098;

// The 16 bits of a word that the file means unsigned.
std::uint32_t UnsignedWord(std::int32_t word) { return static_cast<std::uint16_t>(word); }

TextBuffer& AppendTenths(TextBuffer& dst, std::int32_t tenths) {
    return dst.AppendInteger(tenths / 10).Append(L'.').AppendInteger(tenths % 10);
}

// A detail of the bracket whose mode this is.
bool FormatBracketDetail(std::int32_t mode, std::int32_t detail, TextBuffer& dst) {
    if (!IsCanonBracketing(mode) || !IsSet(detail)) return false;
    FormatInteger(dst, detail);
    return true;
}

void AppendMetres(TextBuffer& dst, std::uint32_t centimetres) {
    constexpr std::uint32_t kInfinity = 0xFFFF;
    if (centimetres == kInfinity) {
        dst.Append(L'∞');
        return;
    }
    dst.AppendUnsigned(centimetres / 100).Append(L'.');
    dst.AppendUnsigned(centimetres % 100, 2).Append(L'm');
}

bool HasFocalUnits(const Fields& note) { return IsSet(note.focalUnits) && note.focalUnits > 0; }

// In mm.
float FocalLength(const Fields& note, std::int32_t word) {
    return static_cast<float>(UnsignedWord(word)) / static_cast<float>(note.focalUnits);
}

bool FormatFocalRange(const Fields& note, TextBuffer& dst) {
    if (!HasFocalUnits(note) || !IsSet(note.minFocalLength) || !IsSet(note.maxFocalLength)) {
        return false;
    }
    FormatWholeOrTenths(dst, FocalLength(note, note.minFocalLength));
    if (note.maxFocalLength != note.minFocalLength) {
        FormatWholeOrTenths(dst.Append(L'-'), FocalLength(note, note.maxFocalLength));
    }
    AppendMillimetreUnit(dst);
    return true;
}

bool IsOneSeries(std::int32_t modelId) {
    return (modelId >= 4104 && modelId <= 4107) || (modelId >= 4128 && modelId <= 4132);
}

// Whether `fileIndex` is a file's number; with later bodies it counts the shutter's releases.
bool IsFileIndexNumber(std::int32_t modelId) {
    return modelId < kCanonFirstShutterCount || HasCanon30DFileIndex(modelId);
}

}  // namespace

// ---- Exposure.

bool FormatCanonShootingMode(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = CanonNote(info);
    if (note.exposureMode == 0 && IsSet(note.easyMode)) {
        return Named<&Fields::easyMode, kCanonEasyModeNames>(note, dst);
    }
    return Named<&Fields::exposureMode, kCanonExposureModeNames>(note, dst);
}

// The scene beside a mode of its own; 1 is that mode.
bool FormatCanonImageZone(const ImageInfo& info, TextBuffer& dst) {
    if (CanonNote(info).exposureMode == 0) return false;
    return CanonCode<&Fields::easyMode, kCanonEasyModeNames, 0, 1>(info, dst);
}

bool FormatCanonDriveMode(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = CanonNote(info);
    if (note.driveMode == 0 && IsSet(note.selfTimer) && note.selfTimer > 0) {
        dst.Append(L"セルフタイマー");
        return true;
    }
    return Named<&Fields::driveMode, kCanonDriveModeNames>(note, dst);
}

bool FormatCanonSelfTimer(const ImageInfo& info, TextBuffer& dst) {
    constexpr std::int32_t kTenths = 0xFFF;
    constexpr std::int32_t kCustom = 0x4000;
    const std::int32_t timer = CanonNote(info).selfTimer;
    if (!IsSet(timer) || timer < 0) return false;
    if (timer == 0) {
        dst.Append(L"オフ");
        return true;
    }
    AppendSecondsUnit(AppendTenths(dst, timer & kTenths));
    if ((timer & kCustom) != 0) dst.Append(L"（カスタム）");
    return true;
}

bool FormatCanonIsoSetting(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t code = CanonNote(info).isoCode;
    if (!IsSet(code) || code < kCanonIsoNumber) {
        return CanonCode<&Fields::isoCode, kCanonIsoNames, 0>(info, dst);
    }
    dst.AppendInteger(code - kCanonIsoNumber);
    return true;
}

bool FormatCanonAebValue(const ImageInfo& info, TextBuffer& dst) {
    return IsCanonBracketing(CanonNote(info).autoExposureBracketing) &&
           CanonExposureValue<&Fields::aebBracketValue>(info, dst);
}

bool FormatCanonBracketValue(const ImageInfo& info, TextBuffer& dst) {
    return FormatBracketDetail(CanonNote(info).fileInfo3, CanonNote(info).fileInfo4, dst);
}

bool FormatCanonBracketShot(const ImageInfo& info, TextBuffer& dst) {
    return FormatBracketDetail(CanonNote(info).fileInfo3, CanonNote(info).fileInfo5, dst);
}

bool FormatCanonDigitalGain(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t tenths = CanonNote(info).processingInfo11;
    if (!IsSet(tenths) || tenths <= 0) return false;
    AppendTenths(dst, tenths);
    return true;
}

bool FormatCanonBulbDuration(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t tenths = CanonNote(info).bulbDuration;
    if (!IsSet(tenths) || tenths <= 0) return false;
    AppendSecondsUnit(AppendTenths(dst, tenths));
    return true;
}

// ---- Flash and focus.

bool FormatCanonFlashUnit(const ImageInfo& info, TextBuffer& dst) {
    constexpr std::int32_t kUnitBits = 0x7F;  // all of them: no unit is named
    const std::int32_t activity = CanonNote(info).flashActivity;
    if (!IsSet(activity) || activity <= 0 || (activity & kUnitBits) == kUnitBits) return false;
    LookupValueName(dst, activity & kUnitBits, kCanonFlashUnitNames);
    return true;
}

bool FormatCanonGuideNumber(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t number = CanonNote(info).flashGuideNumber;
    if (!IsSet(number)) return false;
    FormatRoundedTenths(dst, static_cast<float>(number) / 32.0f);
    return true;
}

// EOS bodies never tell.
bool FormatCanonFocusRange(const ImageInfo& info, TextBuffer& dst) {
    return !IsCanonEos(info) && CanonCode<&Fields::focusRange, kCanonFocusRangeNames>(info, dst);
}

// Bodies with other layouts keep in the word what is no set of points.
bool FormatCanonPointsInFocus(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t points = CanonNote(info).afPointsInFocus;
    if (!IsSet(points) || points == 0) return false;
    if (HasCanonPointBits(info.modelId)) {
        FormatFlagNames(dst, static_cast<std::uint32_t>(points), kCanonPointBitNames);
        return !dst.IsEmpty();
    }
    return info.modelId <= kD60 &&
           Named<&Fields::afPointsInFocus, kCanonPointNames>(CanonNote(info), dst);
}

// From near to far; some bodies swap the two, and compacts leave the nearer one at 0.
bool FormatCanonFocusDistance(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = CanonNote(info);
    if (!IsSet(note.focusDistanceUpper) || note.focusDistanceUpper == 0) return false;
    const std::uint32_t upper = UnsignedWord(note.focusDistanceUpper);
    const bool isRange = IsSet(note.focusDistanceLower) && note.focusDistanceLower != 0;
    const std::uint32_t lower = isRange ? UnsignedWord(note.focusDistanceLower) : upper;
    AppendMetres(dst, std::min(lower, upper));
    if (lower != upper) AppendMetres(dst.Append(L'-'), std::max(lower, upper));
    return true;
}

// ---- Lens and body.

// The name that the body wrote, else the name of the lens type, else the range.
bool AppendCanonLens(const ImageInfo& info, TextBuffer& dst) {
    constexpr std::size_t kNameCapacity = 256;
    const Fields& note = CanonNote(info);
    if (Widened<&Fields::lensModel, kNameCapacity>(note, dst)) return true;
    if (!IsSet(note.lensType)) return FormatFocalRange(note, dst);
    LookupValueName(dst, note.lensType, kCanonLensNames, kCanonLensCount, nullptr);
    return true;
}

bool FormatCanonFocalLength(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = CanonNote(info);
    if (!HasFocalUnits(note) || !IsSet(note.focalLength) || note.focalLength == 0) return false;
    FormatWholeOrTenths(dst, FocalLength(note, note.focalLength), L"mm");
    return true;
}

bool FormatCanonPanoramaFrame(const ImageInfo& info, TextBuffer& dst) {
    const Fields& note = CanonNote(info);
    if (!IsSet(note.panoramaDirection) || !IsSet(note.panoramaFrameNumber)) return false;
    FormatInteger(dst, note.panoramaFrameNumber);
    return true;
}

// Folder and file, "118-1861".
bool FormatCanonFileNumber(const ImageInfo& info, TextBuffer& dst) {
    constexpr std::int32_t kFilesPerFolder = 10000;
    constexpr std::int32_t kFromEmptyWords = 1280000;  // what the 30D's rule makes of two zeros
    const Fields& note = CanonNote(info);
    const bool hasNumber = IsSet(note.fileNumber) && note.fileNumber != 0;
    if (!hasNumber && !IsFileIndexNumber(info.modelId)) return false;
    const std::int32_t number = hasNumber ? note.fileNumber : note.fileIndex;
    if (!IsSet(number) || number <= 0 || number == kFromEmptyWords) return false;
    dst.AppendUnsigned(static_cast<std::uint32_t>(number / kFilesPerFolder), 3).Append(L'-');
    dst.AppendUnsigned(static_cast<std::uint32_t>(number % kFilesPerFolder), 4);
    return true;
}

bool FormatCanonShutterCount(const ImageInfo& info, TextBuffer& dst) {
    return !IsFileIndexNumber(info.modelId) && CanonCount<&Fields::fileIndex>(info, dst);
}

// In the notation of the body's own plate.
bool FormatCanonSerialNumber(const ImageInfo& info, TextBuffer& dst) {
    const std::int32_t field = CanonNote(info).serialNumber;
    if (!IsSet(field) || field == 0) return false;
    const auto number = static_cast<std::uint32_t>(field);
    if (info.modelId == kD30) {
        dst.AppendHex(number >> 16, 4).AppendUnsigned(number & 0xFFFF, 5);
    } else {
        dst.AppendUnsigned(number, IsOneSeries(info.modelId) ? 6 : 10);
    }
    return true;
}

}  // namespace qmx
