#include "makernote/minolta_settings.h"

#include <cmath>
#include <iterator>

namespace qmx {
namespace {

using Fields = MinoltaMakerFields;

std::int32_t SignedWord(std::int32_t word) { return static_cast<std::int16_t>(word); }

// ---- Conversions.  Exposures are counted in eighths of a step.

float Seconds(std::int32_t word) { return ToField(std::exp2((48.0 - word) / 8)); }
float FNumber(std::int32_t word) { return ToField(std::exp2((word - 8.0) / 16)); }
std::int32_t IsoSpeed(std::int32_t word) {
    return TruncateToI32(std::round(100 * std::exp2((word - 48.0) / 8)));
}
float FocalLength(std::int32_t word) { return ToField(word / 256.0); }

float ThirdsFrom6(std::int32_t word) { return ToField((word - 6.0) / 3); }
float HundredthsFrom3(std::int32_t word) { return ToField(word / 100.0 - 3); }
float TwentyFourths(std::int32_t word) { return ToField(SignedWord(word) / 24.0); }

// 0 stands for the bulb setting.
float SecondsA100(std::int32_t word) { return word == 0 ? 0.0f : Seconds(word); }

std::int32_t Kelvin(std::int32_t word) { return SignedWord(word) * 100; }
std::int32_t NextNumber(std::int32_t word) { return WrappingAdd(word, 1); }

// How the camera was held, as the Exif orientation; 0 is unknown.
std::int32_t Orientation(std::int32_t word) {
    switch (word) {
        case 72: return 1;
        case 76: return 6;
        case 82: return 8;
        default: return 0;
    }
}

template <auto Field, auto Convert>
constexpr auto Fill = FillExif<Fields, Field, Convert>;

// ---- Words with rules of their own.

// The A1 and A2 put the kind into the upper byte and a fine step around 0x80 into the next one;
// the kind is kept with the step at its centre.
void KeepWhiteBalance(ImageInfo&, Fields& fields, std::int32_t word) {
    constexpr std::uint32_t kCentre = 0x80;
    const auto bits = static_cast<std::uint32_t>(word);
    if (IsSet(fields.minoltaWhiteBalance)) return;
    fields.minoltaWhiteBalance = word;
    if (bits <= 0xFFFF) return;
    const std::uint32_t step = bits >> 16 & 0xFF;
    fields.minoltaWhiteBalance = static_cast<std::int32_t>((bits & 0xFF00FFFF) | kCentre << 16);
    if (!IsSet(fields.minoltaWbFineTune)) {
        fields.minoltaWbFineTune = static_cast<std::int32_t>(step) - std::int32_t{kCentre};
    }
}

// The codes of the 5D's and A100's settings, as tag 0x0115 numbers the same kinds.
void KeepWhiteBalance5D(ImageInfo&, Fields& fields, std::int32_t word) {
    constexpr std::int32_t kTagCodes[] = {0, 16, 32, 48, 64, 96, 80};
    if (IsSet(fields.minoltaWhiteBalance)) return;
    if (word < static_cast<std::int32_t>(std::size(kTagCodes))) {
        fields.minoltaWhiteBalance = kTagCodes[word];
    } else if (word == 0x100 || word == 0x200) {
        fields.minoltaWhiteBalance = word;
    }
}

// The compacts count steps from 3, the A1 and A2 from 5.
std::int32_t CentreOf(const ImageInfo& info) {
    return info.modelId == kMinoltaA1 || info.modelId == kMinoltaA2 ? 5 : 3;
}

template <auto Field>
void KeepCompactStep(ImageInfo& info, Fields& fields, std::int32_t word) {
    if (!IsSet(fields.*Field)) fields.*Field = StepFrom(CentreOf(info), word);
}

// Cameras without a filter have no step there.
void KeepColorFilter(ImageInfo& info, Fields& fields, std::int32_t word) {
    constexpr std::int32_t kHighest = 10;
    if (word < 0 || word > kHighest) return;
    KeepCompactStep<&Fields::minoltaColorFilter>(info, fields, word);
}

// Words that other cameras fill with something else.
template <auto Field>
void KeepWordOf7Hi(ImageInfo& info, Fields& fields, std::int32_t word) {
    if (info.modelId == kMinolta7Hi) KeepWord<Field>(info, fields, word);
}

// ---- The blocks.

// 32-bit words of the DiMAGE cameras.
constexpr SettingRow<Fields> kCompactRows[] = {
    {1, KeepWord<&Fields::minoltaExposureMode>},
    {2, KeepWord<&Fields::minoltaFlashMode>},
    {3, KeepWhiteBalance},
    {4, KeepWord<&Fields::minoltaImageSize>},
    {5, KeepWord<&Fields::minoltaQuality>},
    {6, KeepWord<&Fields::minoltaDriveMode>},
    {7, KeepWord<&Fields::minoltaMetering>},
    {8, Fill<&ImageInfo::isoSpeed, IsoSpeed>},
    {9, Fill<&ImageInfo::exposureTime, Seconds>},
    {10, Fill<&ImageInfo::fNumber, FNumber>},
    {11, KeepWord<&Fields::minoltaMacro>},
    {12, KeepWord<&Fields::minoltaDigitalZoom>},
    {13, KeepConverted<&Fields::minoltaExposureComp, ThirdsFrom6>},
    {14, KeepWord<&Fields::minoltaBracketStep>},
    {16, KeepWord<&Fields::minoltaIntervalLength>},
    {17, KeepWord<&Fields::minoltaIntervalNumber>},
    {18, Fill<&ImageInfo::focalLength, FocalLength>},
    {19, KeepWord<&Fields::minoltaFocusDistance>},
    {20, KeepWord<&Fields::minoltaFlashFired>},
    {23, Fill<&ImageInfo::maxAperture, FNumber>},
    {27, KeepWord<&Fields::minoltaLastFileNumber>},
    {31, KeepCompactStep<&Fields::minoltaSaturation>},
    {32, KeepCompactStep<&Fields::minoltaContrast>},
    {33, KeepWord<&Fields::minoltaSharpness>},
    {34, KeepWord<&Fields::minoltaSubjectProgram>},
    {35, KeepConverted<&Fields::minoltaFlashComp, ThirdsFrom6>},
    {36, KeepWord<&Fields::minoltaIsoSetting>},
    {40, KeepWord<&Fields::minoltaColorMode>},
    {41, KeepColorFilter},
    {43, KeepWord<&Fields::minoltaInternalFlash>},
    {47, KeepWord<&Fields::minoltaFocusZone>},
    {48, KeepWord<&Fields::minoltaFocusMode>},
    {49, KeepWord<&Fields::minoltaFocusArea>},
    {51, KeepWordOf7Hi<&Fields::minoltaColorProfile>},
    {52, KeepWordOf7Hi<&Fields::minoltaDataImprint>},
    {63, KeepWord<&Fields::minoltaFlashMetering>},
};

// 16-bit words from here on.
constexpr SettingRow<Fields> k7DRows[] = {
    {0, KeepWord<&Fields::minoltaExposureMode>},
    {2, KeepWord<&Fields::minoltaImageSize7D>},
    {3, KeepWord<&Fields::minoltaQuality7D>},
    {4, KeepWord<&Fields::minoltaWhiteBalance>},
    {14, KeepWord<&Fields::minoltaFocusMode7D>},
    {16, KeepWord<&Fields::minoltaAfPoints7D>},
    {21, KeepWord<&Fields::minoltaFlashFired>},
    {22, KeepWord<&Fields::minoltaFlashMode7D>},
    {28, KeepWord<&Fields::minoltaIsoSetting7D>},
    {30, KeepConverted<&Fields::minoltaExposureComp, TwentyFourths>},
    {37, KeepWord<&Fields::minoltaColorSpace7D>},
    {38, KeepStep<&Fields::minoltaSharpnessStep, 10>},
    {39, KeepStep<&Fields::minoltaContrast, 10>},
    {40, KeepStep<&Fields::minoltaSaturation, 10>},
    {63, KeepConverted<&Fields::minoltaColorTemp, Kelvin>},
    {64, KeepStep<&Fields::minoltaHue, 10>},
    {70, Fill<&ImageInfo::orientation, Orientation>},
    {71, Fill<&ImageInfo::fNumber, FNumber>},
    {72, Fill<&ImageInfo::exposureTime, Seconds>},
    {94, KeepConverted<&Fields::minoltaImageNumber, NextNumber>},
    {96, KeepWord<&Fields::minoltaNoiseReduction>},
    {113, KeepWord<&Fields::minoltaStabilizer>},
    {117, KeepWord<&Fields::minoltaZoneMatchingOn>},
};

constexpr SettingRow<Fields> k5DRows[] = {
    {10, KeepWord<&Fields::minoltaExposureMode>},
    {12, KeepWord<&Fields::minoltaImageSize7D>},
    {13, KeepWord<&Fields::minoltaQuality7D>},
    {14, KeepWhiteBalance5D},
    {31, KeepWord<&Fields::minoltaFlashFired>},
    {32, KeepWord<&Fields::minoltaFlashMode7D>},
    {37, KeepWord<&Fields::minoltaMetering>},
    {38, KeepWord<&Fields::minoltaIsoSetting7D>},
    {47, KeepWord<&Fields::minoltaColorSpace5D>},
    {48, KeepStep<&Fields::minoltaSharpnessStep, 10>},
    {49, KeepStep<&Fields::minoltaContrast, 10>},
    {50, KeepStep<&Fields::minoltaSaturation, 10>},
    {53, Fill<&ImageInfo::exposureTime, Seconds>},
    {54, Fill<&ImageInfo::fNumber, FNumber>},
    {73, KeepConverted<&Fields::minoltaColorTemp, Kelvin>},
    {74, KeepStep<&Fields::minoltaHue, 10>},
    {80, Fill<&ImageInfo::orientation, Orientation>},
    {83, KeepConverted<&Fields::minoltaExposureComp, HundredthsFrom3>},
    {113, KeepWord<&Fields::minoltaPictureFinish>},
    {174, KeepConverted<&Fields::minoltaImageNumber, NextNumber>},
    {176, KeepWord<&Fields::minoltaNoiseReduction>},
    {189, KeepWord<&Fields::minoltaStabilizer>},
};

constexpr SettingRow<Fields> kA100Rows[] = {
    {0, KeepWord<&Fields::minoltaExposureMode>},
    {1, KeepConverted<&Fields::minoltaExposureComp, HundredthsFrom3>},
    {8, Fill<&ImageInfo::exposureTime, SecondsA100>},
    {9, Fill<&ImageInfo::fNumber, FNumber>},
    {10, KeepWord<&Fields::minoltaDriveModeA100>},
    {11, KeepWhiteBalance5D},
    {12, KeepWord<&Fields::minoltaFocusModeA100>},
};

}  // namespace

void ReadMinoltaSettings(ParseContext& ctx, MinoltaSettings kind, const SettingsBlock& block,
                         MinoltaMakerFields& fields) {
    switch (kind) {
        case MinoltaSettings::kNone: break;
        case MinoltaSettings::kCompact: ReadSettings(ctx, block, 4, fields, kCompactRows); break;
        case MinoltaSettings::k7D: ReadSettings(ctx, block, 2, fields, k7DRows); break;
        case MinoltaSettings::k5D: ReadSettings(ctx, block, 2, fields, k5DRows); break;
        case MinoltaSettings::kA100: ReadSettings(ctx, block, 2, fields, kA100Rows); break;
    }
}

}  // namespace qmx
