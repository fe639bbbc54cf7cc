#pragma once
// What Olympus' MakerNote tells about a picture.  Tags and codes are those that the public tag
// lists of the note's directories describe; codes stand as the file has them.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

struct OlympusMakerFields {
    // Main directory.
    char cameraId[32] = {};                // 0x0209
    char mainType[16] = {};                // 0x0207, the camera's code name
    char mainSerial[32] = {};              // 0x101A
    char compactSerial[32] = {};           // 0x0404
    char mainFirmware[16] = {};            // 0x0104
    char compactFirmware[16] = {};         // 0x0405
    std::int32_t specialMode = INT_UNSET;  // 0x0200, three numbers
    std::int32_t specialSequence = INT_UNSET;
    std::int32_t specialPanorama = INT_UNSET;
    std::int32_t mainQuality = INT_UNSET;         // 0x0201
    std::int32_t mainMacro = INT_UNSET;           // 0x0202
    std::int32_t blackAndWhite = INT_UNSET;       // 0x0203
    float digitalZoom = FLOAT_UNSET;              // 0x0204, ratio; 0 off
    std::int32_t oneTouchBalance = INT_UNSET;     // 0x0302
    std::int32_t mainBalanceBracket = INT_UNSET;  // 0x0303
    std::int32_t compactScene = INT_UNSET;        // 0x0403
    std::int32_t mainFlash = INT_UNSET;           // 0x1004
    std::int32_t flashDevice = INT_UNSET;         // 0x1005
    std::int32_t focusRange = INT_UNSET;          // 0x100A
    std::int32_t mainFocusMode = INT_UNSET;       // 0x100B
    float manualFocusDistance = FLOAT_UNSET;      // 0x100C, mm
    std::int32_t mainSharpness = INT_UNSET;       // 0x100F
    std::int32_t whiteBalanceCode = INT_UNSET;    // 0x1015, two words
    std::int32_t whiteBalanceSubCode = 0;         // the low byte counts
    float mainFlashCompensation = FLOAT_UNSET;    // 0x1023, EV
    std::int32_t flashBounce = INT_UNSET;         // 0x1026
    std::int32_t mainContrast = INT_UNSET;        // 0x1029
    float mainCompression = FLOAT_UNSET;          // 0x1034, ratio
    std::int32_t scanMode = INT_UNSET;            // 0x1039
    std::int32_t mainNoiseReduction = INT_UNSET;  // 0x103A
    // Pixels, both above 0 or neither set: 0x102E and 0x102F, else the crop of ImageProcessing or
    // RawInfo, 0x0614 and 0x0615.
    std::int32_t imageWidth = INT_UNSET;
    std::int32_t imageHeight = INT_UNSET;

    // Equipment, 0x2010.
    char cameraType[16] = {};               // 0x0100
    char serialNumber[32] = {};             // 0x0101
    char lensSerial[32] = {};               // 0x0202
    char lensModel[64] = {};                // 0x0203
    char conversionLens[32] = {};           // 0x0403
    std::int32_t bodyFirmware = INT_UNSET;  // 0x0104, hexadecimal digits, three behind the point
    std::int32_t lensFirmware = INT_UNSET;  // 0x0204, likewise
    std::int32_t lensId = INT_UNSET;        // 0x0201: maker, kind and number; 0 no lens
    // The lens' range, each above 0: apertures as 256ths of a stop, focal lengths in mm.
    std::int32_t widestAtMinFocal = INT_UNSET;  // 0x0205
    std::int32_t widestAtMaxFocal = INT_UNSET;  // 0x0206
    std::int32_t minFocalLength = INT_UNSET;    // 0x0207
    std::int32_t maxFocalLength = INT_UNSET;    // 0x0208
    std::int32_t extender = INT_UNSET;          // 0x0301: maker and number; 0 none
    std::int32_t flashType = INT_UNSET;         // 0x1000
    std::int32_t flashModel = INT_UNSET;        // 0x1001

    // CameraSettings, 0x2020.
    std::int32_t exposureMode = INT_UNSET;  // 0x0200
    std::int32_t aeLock = INT_UNSET;        // 0x0201
    std::int32_t meteringMode = INT_UNSET;  // 0x0202
    float exposureShift = FLOAT_UNSET;      // 0x0203, EV
    std::int32_t macroMode = INT_UNSET;     // 0x0300
    std::int32_t focusMode = INT_UNSET;     // 0x0301, two words
    std::int32_t focusBits = INT_UNSET;
    std::int32_t focusProcess = INT_UNSET;         // 0x0302
    std::int32_t focusSearch = INT_UNSET;          // 0x0303
    std::int32_t focusArea = INT_UNSET;            // 0x0304: x1 y1 x2 y2, bytes of 1/255
    std::int32_t flashMode = INT_UNSET;            // 0x0400, bits
    float flashCompensation = FLOAT_UNSET;         // 0x0401, EV
    std::int32_t flashControl = INT_UNSET;         // 0x0404
    std::int32_t whiteBalance = INT_UNSET;         // 0x0500
    std::int32_t colorTemperature = INT_UNSET;     // 0x0501, K; 0 automatic
    std::int32_t balanceBracketAmber = INT_UNSET;  // 0x0502
    std::int32_t balanceBracketGreen = INT_UNSET;
    std::int32_t saturation = INT_UNSET;  // 0x0503: value, lowest
    std::int32_t saturationLowest = INT_UNSET;
    std::int32_t modifiedSaturation = INT_UNSET;    // 0x0504
    std::int32_t contrast = INT_UNSET;              // 0x0505
    std::int32_t sharpness = INT_UNSET;             // 0x0506
    std::int32_t colorSpace = INT_UNSET;            // 0x0507
    std::int32_t sceneMode = INT_UNSET;             // 0x0509
    std::int32_t noiseReduction = INT_UNSET;        // 0x050A, bits
    std::int32_t distortionCorrection = INT_UNSET;  // 0x050B
    std::int32_t shadingCompensation = INT_UNSET;   // 0x050C
    float compression = FLOAT_UNSET;                // 0x050D, ratio
    std::int32_t gradation = INT_UNSET;             // 0x050F: code, lowest, highest, automatic
    std::int32_t gradationLowest = INT_UNSET;
    std::int32_t gradationHighest = INT_UNSET;
    std::int32_t gradationAuto = INT_UNSET;
    std::int32_t pictureMode = INT_UNSET;        // 0x0520
    std::int32_t pictureSaturation = INT_UNSET;  // 0x0521
    std::int32_t pictureContrast = INT_UNSET;    // 0x0523
    std::int32_t pictureSharpness = INT_UNSET;   // 0x0524
    std::int32_t monochromeFilter = INT_UNSET;   // 0x0525
    std::int32_t monochromeTone = INT_UNSET;     // 0x0526
    std::int32_t noiseFilter = INT_UNSET;        // 0x0527: value, lowest, highest; all 0: not given
    std::int32_t noiseFilterLowest = INT_UNSET;
    std::int32_t noiseFilterHighest = INT_UNSET;
    std::int32_t artFilter = INT_UNSET;  // 0x0529
    std::int32_t driveMode = INT_UNSET;  // 0x0600: code, shot, bracket bits
    std::int32_t driveShot = INT_UNSET;
    std::int32_t bracketBits = INT_UNSET;
    std::int32_t panoramaMode = INT_UNSET;  // 0x0601: code, shot
    std::int32_t panoramaShot = INT_UNSET;
    std::int32_t imageQuality = INT_UNSET;        // 0x0603
    std::int32_t imageStabilization = INT_UNSET;  // 0x0604

    // RawInfo, 0x3000.
    std::int32_t lightSource = INT_UNSET;  // 0x1000
};
static_assert(sizeof(OlympusMakerFields) <= kMakerFieldsSize);

}  // namespace qmx
