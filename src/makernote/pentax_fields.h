#pragma once
// What is kept of a Pentax MakerNote, which Samsung's GX cameras write too.  Codes stand as in the
// file; text/pentax_section.cpp names them.  Tags: exiftool.org/TagNames/Pentax.html.

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

struct PentaxMakerFields {
    std::int32_t pictureMode = INT_UNSET;  // 0x0033: the dial's byte high, its setting low
    std::int32_t exposureStep = INT_UNSET;
    std::int32_t compactMode = INT_UNSET;  // 0x000B
    std::int32_t quality = INT_UNSET;      // 0x0008
    std::int32_t imageSize = INT_UNSET;    // 0x0009
    std::int32_t drive = INT_UNSET;        // 0x0034, byte by byte
    std::int32_t selfTimer = INT_UNSET;
    std::int32_t remote = INT_UNSET;
    std::int32_t exposureCount = INT_UNSET;
    std::int32_t iso = INT_UNSET;                 // 0x0014
    float sensitivityAdjust = FLOAT_UNSET;        // 0x0040, EV
    float exposureTime = FLOAT_UNSET;             // 0x0012, seconds
    float fNumber = FLOAT_UNSET;                  // 0x0013
    float exposureCompensation = FLOAT_UNSET;     // 0x0016, EV
    std::int32_t autoBracket = INT_UNSET;         // 0x0018: thirds, from 10 on halves
    std::int32_t metering = INT_UNSET;            // 0x0017
    std::int32_t aeLock = INT_UNSET;              // 0x0048
    std::int32_t flashMode = INT_UNSET;           // 0x000C
    std::int32_t flashUnit = INT_UNSET;           // its second word
    float flashCompensation = FLOAT_UNSET;        // 0x004D, EV
    std::int32_t focusMode = INT_UNSET;           // 0x000D
    std::int32_t afPointSelected = INT_UNSET;     // 0x000E
    std::int32_t afPointInFocus = INT_UNSET;      // 0x000F
    float focalLength = FLOAT_UNSET;              // 0x001D, mm
    float digitalZoom = FLOAT_UNSET;              // 0x001E
    std::int32_t shakeReduction = INT_UNSET;      // 0x005C, second byte
    std::int32_t whiteBalance = INT_UNSET;        // 0x0019
    std::int32_t whiteBalanceMode = INT_UNSET;    // 0x001A
    std::int32_t colorTemperature = INT_UNSET;    // 0x0050: 53190 less kelvins; 0 = not given
    std::int32_t imageTone = INT_UNSET;           // 0x004F
    std::int32_t saturation = INT_UNSET;          // 0x001F
    std::int32_t contrast = INT_UNSET;            // 0x0020
    std::int32_t sharpness = INT_UNSET;           // 0x0021
    std::int32_t hasTwoWordSettings = 0;          // the three before have a second word: an SLR
    std::int32_t hue = INT_UNSET;                 // 0x0067
    std::int32_t dynamicRange = INT_UNSET;        // 0x0069
    std::int32_t fineSharpness = INT_UNSET;       // 0x0070
    std::int32_t shadowCorrection = INT_UNSET;    // 0x0079
    std::int32_t noiseReduction = INT_UNSET;      // 0x0049
    std::int32_t highIsoReduction = INT_UNSET;    // 0x0071
    std::int32_t colorSpace = INT_UNSET;          // 0x0037
    std::int32_t imageProcessing = INT_UNSET;     // 0x0032
    std::int32_t lensId = INT_UNSET;              // 0x003F: series x 256 + model in the series
    std::int32_t worldTime = INT_UNSET;           // 0x0022
    std::int32_t homeCity = INT_UNSET;            // 0x0023
    std::int32_t homeDaylightSaving = INT_UNSET;  // 0x0025
    std::int32_t destinationCity = INT_UNSET;     // 0x0024
    std::int32_t destinationDaylightSaving = INT_UNSET;  // 0x0026
    std::int32_t temperature = INT_UNSET;                // 0x0047, degrees C
    std::int32_t shutterCount = INT_UNSET;               // 0x005D, unsigned
    std::int32_t frameNumber = INT_UNSET;                // 0x0029, unsigned
    std::int32_t dspFirmware = INT_UNSET;                // 0x0027, four bytes, first one high
    std::int32_t cpuFirmware = INT_UNSET;                // 0x0028
};

static_assert(sizeof(PentaxMakerFields) == 212);

}  // namespace qmx
