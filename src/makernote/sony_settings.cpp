#include "makernote/sony_settings.h"

#include <cmath>

namespace qmx {
namespace {

using Fields = SonyMakerFields;

float Stops(std::int32_t word) { return ToField((word - 128) / 24.0); }
std::int32_t Kelvin(std::int32_t word) { return word * 100; }
std::int32_t LowByte(std::int32_t word) { return word & 0xFF; }
std::int32_t SignedByteStep(std::int32_t word) { return word > 128 ? word - 256 : word; }

std::int32_t IsoSpeed(std::int32_t word) {
    return word == 0 ? 0 : TruncateToI32(std::round(100 * std::exp2(word / 8.0 - 6)));
}

// The bytes' own word for a speed that is not set.
std::int32_t IsoSpeedOfByte(std::int32_t word) {
    constexpr std::int32_t kNone = 254;
    return word == kNone ? INT_UNSET : IsoSpeed(word);
}

// How the camera was held, as the Exif orientation; 0 is unknown.
std::int32_t Orientation(std::int32_t word) {
    switch (word) {
        case 0: return 1;
        case 1: return 6;
        case 2: return 8;
        default: return 0;
    }
}

constexpr auto FillOrientation = FillExif<Fields, &ImageInfo::orientation, Orientation>;

constexpr SettingRow<Fields> kSet1Rows[] = {
    {3, KeepConverted<&Fields::sonyExposureCompSet, Stops>},
    {4, KeepConverted<&Fields::sonyDriveMode, LowByte>},
    {5, KeepWord<&Fields::sonyWbSetting>},
    {6, KeepConverted<&Fields::sonyWbFineTune, SignedByteStep>},
    {7, KeepConverted<&Fields::sonyColorTempSet, Kelvin>},
    {16, KeepWord<&Fields::sonyFocusModeSetting>},
    {17, KeepWord<&Fields::sonyAfArea>},
    {18, KeepWord<&Fields::sonyAfPoint>},
    {19, KeepWord<&Fields::sonyFlashModeSetting>},
    {20, KeepConverted<&Fields::sonyFlashCompSet, Stops>},
    {21, KeepWord<&Fields::sonyMetering>},
    {22, KeepConverted<&Fields::sonyIsoSetting, IsoSpeed>},
    {24, KeepWord<&Fields::sonyDroMode>},
    {26, KeepWord<&Fields::sonyStyle>},
    {28, KeepStep<&Fields::sonySharpness, 10>},
    {29, KeepStep<&Fields::sonyContrast, 10>},
    {30, KeepStep<&Fields::sonySaturation, 10>},
    {34, KeepStep<&Fields::sonyBrightness, 10>},
    {35, KeepWord<&Fields::sonyFlashControl>},
    {43, KeepWord<&Fields::sonyLongNrSet>},
    {44, KeepWord<&Fields::sonyHighNrSet>},
    {60, KeepWord<&Fields::sonyProgram>},
    {61, KeepWord<&Fields::sonyStabilizerSet>},
    {63, FillOrientation},
    {84, KeepWord<&Fields::sonyImageSizeSetting>},
    {85, KeepWord<&Fields::sonyAspect>},
    {86, KeepWord<&Fields::sonyQualitySetting>},
};

constexpr SettingRow<Fields> kSet2Rows[] = {
    {3, KeepConverted<&Fields::sonyExposureCompSet, Stops>},
    {4, KeepWord<&Fields::sonyWbSetting>},
    {5, KeepConverted<&Fields::sonyWbFineTune, SignedByteStep>},
    {6, KeepConverted<&Fields::sonyColorTempSet, Kelvin>},
    {15, KeepWord<&Fields::sonyFocusModeSetting>},
    {16, KeepWord<&Fields::sonyAfArea>},
    {17, KeepWord<&Fields::sonyAfPoint>},
    {18, KeepConverted<&Fields::sonyFlashCompSet, Stops>},
    {19, KeepWord<&Fields::sonyMetering>},
    {20, KeepConverted<&Fields::sonyIsoSetting, IsoSpeed>},
    {22, KeepWord<&Fields::sonyDroMode>},
    {24, KeepWord<&Fields::sonyStyle>},
    {25, KeepStep<&Fields::sonySharpness, 10>},
    {26, KeepStep<&Fields::sonyContrast, 10>},
    {27, KeepStep<&Fields::sonySaturation, 10>},
    {31, KeepWord<&Fields::sonyFlashControl>},
    {37, KeepWord<&Fields::sonyLongNrSet>},
    {38, KeepWord<&Fields::sonyHighNrSet>},
    {60, KeepWord<&Fields::sonyProgram>},
    {61, KeepWord<&Fields::sonyStabilizerSet>},
    {63, FillOrientation},
    {84, KeepWord<&Fields::sonyImageSizeSetting>},
    {85, KeepWord<&Fields::sonyAspect>},
    {86, KeepWord<&Fields::sonyQualitySetting>},
    {126, KeepConverted<&Fields::sonyDriveMode, LowByte>},
    {127, KeepWord<&Fields::sonyFlashModeSetting>},
};

constexpr SettingRow<Fields> kSet3Rows[] = {
    {2, KeepConverted<&Fields::sonyIsoSetting, IsoSpeedOfByte>},
    {3, KeepConverted<&Fields::sonyExposureCompSet, Stops>},
    {4, KeepWord<&Fields::sonyDriveMode>},
    {6, KeepWord<&Fields::sonyFocusModeSetting>},
    {7, KeepWord<&Fields::sonyMetering>},
    {9, KeepWord<&Fields::sonyImageSizeSetting>},
    {10, KeepWord<&Fields::sonyAspect>},
    {11, KeepWord<&Fields::sonyQualitySetting>},
    {12, KeepWord<&Fields::sonyDroSetting>},
    {15, KeepWord<&Fields::sonyStyleSetting>},
    {32, KeepWord<&Fields::sonyFlashModeSetting>},
    {33, KeepWord<&Fields::sonyFlashControl>},
    {35, KeepConverted<&Fields::sonyFlashCompSet, Stops>},
    {36, KeepWord<&Fields::sonyAfArea>},
    {37, KeepWord<&Fields::sonyLongNrSet>},
    {38, KeepWord<&Fields::sonyHighNrSet>},
};

}  // namespace

void ReadSonySettings(ParseContext& ctx, const SettingsBlock& block, SonyMakerFields& fields) {
    switch (block.bytes) {
        case 280:
        case 364:
            fields.sonySettingsForm = kSonyWordsSet1;
            return ReadSettings(ctx, block, 2, fields, kSet1Rows);
        case 332:
            fields.sonySettingsForm = kSonyWordsSet2;
            return ReadSettings(ctx, block, 2, fields, kSet2Rows);
        case 1536:
        case 2048:
            fields.sonySettingsForm = kSonyBytesSet3;
            return ReadSettings(ctx, block, 1, fields, kSet3Rows);
        default: return;
    }
}

}  // namespace qmx
