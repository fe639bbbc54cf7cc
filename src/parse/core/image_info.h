#pragma once
// ImageInfo: everything one parse learns about a picture, in one flat record without pointers.
// Readers write it, text reads it.  Tags and codes are those of Exif 2.3 (CIPA DC-008) and TIFF 6.

#include <cfloat>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace qmx {

// A numeric field that the file does not give.
inline constexpr std::int32_t INT_UNSET = 0x7FFFFFFF;
inline constexpr float FLOAT_UNSET = FLT_MAX;

constexpr bool IsSet(std::int32_t value) { return value != INT_UNSET; }
constexpr bool IsSet(float value) { return value != FLOAT_UNSET; }

// A number as a field keeps it: what no finite float holds, NaN too, counts as not given.
constexpr float ToField(double value) {
    return value >= -double{FLT_MAX} && value <= double{FLT_MAX} ? static_cast<float>(value)
                                                                 : FLOAT_UNSET;
}

// Camera makers.  The numbers are part of the record; 11 was never assigned.
enum MakerId : std::uint32_t {
    kMakerUnknown = 0,
    kMakerCanon = 1,
    kMakerNikon = 2,
    kMakerMinolta = 3,
    kMakerKodak = 4,
    kMakerOlympus = 5,
    kMakerSony = 6,
    kMakerFujifilm = 7,
    kMakerCasio = 8,
    kMakerRicoh = 9,
    kMakerPanasonic = 10,
    kMakerSanyo = 12,
    kMakerPentax = 13,
    kMakerSigma = 14,
    kMakerSeiko = 15,
    kMakerMamiya = 16,
    kMakerLeica = 17,
    kMakerSamsung = 18,
    kMakerKddi = 19,
    kMakerHasselblad = 20,
};

inline constexpr std::size_t kMakerFieldsSize = 1004;

// A reset record is ImageInfo{}: sentinels where they stand below, zero elsewhere.
// Strings are 8-bit as stored in the file, NUL-terminated within their field.
struct ImageInfo {
    std::uint32_t makerId = 0;
    std::int32_t modelId = 0;  // the maker's own numbering, see makernote/model_identity.h
    char software[64] = {};
    char dateTime[32] = {};
    char cameraMake[64] = {};  // empty: the file carries no usable metadata
    char cameraModel[64] = {};
    std::int32_t orientation = INT_UNSET;  // 1..8
    std::int32_t isoSpeed = INT_UNSET;     // 0 = automatic
    std::int32_t exposureProgram = INT_UNSET;
    char dateTimeOriginal[32] = {};
    char dateTimeDigitized[32] = {};
    std::int32_t flash = INT_UNSET;    // bit 0 = fired
    float exposureTime = FLOAT_UNSET;  // seconds
    float fNumber = FLOAT_UNSET;
    float shutterSpeed = FLOAT_UNSET;     // seconds, from the APEX value
    float aperture = FLOAT_UNSET;         // f-number, from the APEX value
    float brightness = FLOAT_UNSET;       // APEX
    float exposureBias = FLOAT_UNSET;     // EV
    float maxAperture = FLOAT_UNSET;      // f-number
    float subjectDistance = FLOAT_UNSET;  // metres
    std::int32_t meteringMode = INT_UNSET;
    std::int32_t lightSource = INT_UNSET;
    float focalLength = FLOAT_UNSET;  // mm
    std::int32_t colorSpace = INT_UNSET;
    std::int32_t pixelXDimension = INT_UNSET;
    std::int32_t pixelYDimension = INT_UNSET;
    float focalPlaneXResolution = FLOAT_UNSET;  // pixels per unit
    float focalPlaneYResolution = FLOAT_UNSET;
    float focalPlaneUnitMm = FLOAT_UNSET;  // mm per unit
    std::int32_t exposureMode = INT_UNSET;
    std::int32_t whiteBalance = INT_UNSET;
    float digitalZoomRatio = FLOAT_UNSET;
    float focalLengthIn35mm = FLOAT_UNSET;  // mm
    std::int32_t sceneCaptureType = INT_UNSET;
    std::int32_t gainControl = INT_UNSET;
    std::int32_t contrast = INT_UNSET;
    std::int32_t saturation = INT_UNSET;
    std::int32_t sharpness = INT_UNSET;
    std::int32_t subjectDistanceRange = INT_UNSET;
    float gamma = FLOAT_UNSET;
    std::uint8_t hasMakerNote = 0;
    // Each maker's decoder lays its own record over this area; see makernote/maker_record.h.
    alignas(4) std::uint8_t makerFields[kMakerFieldsSize] = {};
    std::uint8_t hasGps = 0;
    std::uint8_t gpsVersionId[4] = {};
    char gpsLatitudeRef[4] = {};
    float gpsLatitude[3] = {FLOAT_UNSET, 0, 0};  // degrees, minutes, seconds
    char gpsLongitudeRef[4] = {};
    float gpsLongitude[3] = {FLOAT_UNSET, 0, 0};
    std::uint8_t gpsAltitudeRef = 0;              // 1 = below sea level
    float gpsAltitude = FLOAT_UNSET;              // metres
    float gpsTimeStamp[3] = {FLOAT_UNSET, 0, 0};  // hours, minutes, seconds, UTC
    char gpsSatellites[8] = {};
    char gpsMapDatum[32] = {};
    char gpsDateStamp[16] = {};
};

static_assert(std::is_trivially_copyable_v<ImageInfo>);
static_assert(sizeof(ImageInfo) == 1548);
static_assert(offsetof(ImageInfo, makerFields) == 428);

// A character field as text: up to its first NUL or its end, whichever comes first.
template <std::size_t Size>
constexpr std::string_view FieldText(const char (&field)[Size]) {
    std::size_t length = 0;
    while (length < Size && field[length] != 0) ++length;
    return {field, length};
}

}  // namespace qmx
