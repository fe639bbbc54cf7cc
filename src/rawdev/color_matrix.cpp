#include "rawdev/color_matrix.h"

#include <cmath>
#include <cstring>
#include <string_view>

#include "rawdev/camera_matrices.h"

namespace qmx {
namespace {

constexpr double kSmallestSum = 0.00001;

// IEC 61966-2-1 (sRGB), white D65.
constexpr double kSrgbToXyz[3][3] = {
    {0.412453, 0.357580, 0.180423}, {0.212671, 0.715160, 0.072169}, {0.019334, 0.119193, 0.950227}};

constexpr std::uint32_t kIlluminantD65 = 21;

bool Invert(const double (&m)[3][3], double (&inverse)[3][3]) {
    const auto cofactor = [&m](int row, int column) {
        const int r1 = (row + 1) % 3, r2 = (row + 2) % 3;
        const int c1 = (column + 1) % 3, c2 = (column + 2) % 3;
        return m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1];
    };
    const double determinant =
        m[0][0] * cofactor(0, 0) + m[0][1] * cofactor(0, 1) + m[0][2] * cofactor(0, 2);
    if (!(std::abs(determinant) > 1e-9)) return false;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            inverse[row][column] = cofactor(column, row) / determinant;
    return true;
}

// Finite, positive and far from the ends of the range, so that quotients stay so too.
bool IsUsable(float multiplier) { return multiplier > 1e-4f && multiplier < 1e7f; }

void SetCameraMultipliers(RawDecodeState& state, double red, double green, double blue) {
    const float multipliers[kColors] = {static_cast<float>(red), static_cast<float>(green),
                                        static_cast<float>(blue), static_cast<float>(green)};
    std::memcpy(state.cameraMultipliers, multipliers, sizeof multipliers);
}

void ReadPanasonicBalance(RawDecodeState& state, const RawColorTags& tags) {
    const FileView& file = state.file;
    const double red = ReadNumber(file, tags.levelRed, 0);
    const double green = ReadNumber(file, tags.levelGreen, 0);
    const double blue = ReadNumber(file, tags.levelBlue, 0);
    if (red > 0 && green > 0 && blue > 0) return SetCameraMultipliers(state, red, green, blue);
    const double redBalance = ReadNumber(file, tags.balanceRed, 0);
    const double blueBalance = ReadNumber(file, tags.balanceBlue, 0);
    if (redBalance > 0 && blueBalance > 0)
        SetCameraMultipliers(state, redBalance, 256, blueBalance);
}

// The gains that the MakerNote holds, times what the maker's own converter adds.
void ReadEpsonBalance(RawDecodeState& state, const TagValues& words) {
    constexpr std::uint64_t kWordCount = 256, kRed = 24, kBlue = 25;
    if (RawTypeSize(words.type) * std::uint64_t{words.count} < 2 * kWordCount) return;
    const double red = state.file.U16(words.position + 2 * kRed) * 508 * 1.078 / 65536;
    const double blue = state.file.U16(words.position + 2 * kBlue) * 382 * 1.173 / 65536;
    if (red > 0 && blue > 0) SetCameraMultipliers(state, red, 1, blue);
}

// The matrix for daylight where there is one, else the second, else the first.
const TagValues& ChooseMatrixTag(const FileView& file, const RawColorTags& tags, int& index) {
    index = 1;
    if (ReadUnsigned(file, tags.illuminant[0], 0) == kIlluminantD65 &&
        ReadUnsigned(file, tags.illuminant[1], 0) != kIlluminantD65)
        index = 0;
    if (tags.colorMatrix[index].count != 9) index = 1 - index;
    return tags.colorMatrix[index];
}

bool ReadDngMatrix(const FileView& file, const RawColorTags& tags, XyzToCamera& matrix) {
    int index = 0;
    const TagValues& values = ChooseMatrixTag(file, tags, index);
    if (values.count != 9) return false;
    double published[3][3];
    for (std::uint32_t i = 0; i < 9; ++i) published[i / 3][i % 3] = ReadNumber(file, values, i);

    const TagValues& calibration = tags.cameraCalibration[index];
    for (std::uint32_t row = 0; row < 3; ++row) {
        const double balance =
            tags.analogBalance.count == 3 ? ReadNumber(file, tags.analogBalance, row) : 1;
        for (std::uint32_t column = 0; column < 3; ++column) {
            double sum = calibration.count == 9 ? 0 : published[row][column];
            for (std::uint32_t k = 0; k < 3 && calibration.count == 9; ++k)
                sum += ReadNumber(file, calibration, 3 * row + k) * published[k][column];
            matrix.rows[row][column] = balance * sum;
        }
    }
    return true;
}

void ReadNeutral(RawDecodeState& state, const RawColorTags& tags) {
    if (tags.asShotNeutral.count != 3) return;
    double neutral[3];
    for (std::uint32_t color = 0; color < 3; ++color) {
        neutral[color] = ReadNumber(state.file, tags.asShotNeutral, color);
        if (!(neutral[color] > 0)) return;
    }
    SetCameraMultipliers(state, 1 / neutral[0], 1 / neutral[1], 1 / neutral[2]);
}

// The white as chromaticity instead of in the camera's colours.
void ReadWhitePoint(RawDecodeState& state, const RawColorTags& tags, const XyzToCamera& matrix) {
    if (tags.asShotNeutral.count != 0 || tags.asShotWhite.count != 2) return;
    const double x = ReadNumber(state.file, tags.asShotWhite, 0);
    const double y = ReadNumber(state.file, tags.asShotWhite, 1);
    if (!(x > 0) || !(y > 0)) return;
    const double xyz[3] = {x / y, 1, (1 - x - y) / y};
    double neutral[3] = {};
    for (int color = 0; color < 3; ++color) {
        for (int k = 0; k < 3; ++k) neutral[color] += matrix.rows[color][k] * xyz[k];
        if (!(neutral[color] > 0)) return;
    }
    SetCameraMultipliers(state, 1 / neutral[0], 1 / neutral[1], 1 / neutral[2]);
}

}  // namespace

bool SetColorMatrix(RawDecodeState& state, const XyzToCamera& matrix) {
    double toCamera[3][3];  // the camera's response to the output's primaries, white = 1
    double presets[3];
    for (int row = 0; row < 3; ++row) {
        double sum = 0;
        for (int column = 0; column < 3; ++column) {
            toCamera[row][column] = 0;
            for (int k = 0; k < 3; ++k)
                toCamera[row][column] += matrix.rows[row][k] * kSrgbToXyz[k][column];
            sum += toCamera[row][column];
        }
        if (!(sum > kSmallestSum)) return false;
        presets[row] = 1 / sum;
        for (double& response : toCamera[row]) response /= sum;
    }
    double fromCamera[3][3];
    if (!Invert(toCamera, fromCamera)) return false;

    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            state.cameraToOutput[row][column] = static_cast<float>(fromCamera[row][column]);
    if (!state.presetsFixed) {
        for (int color = 0; color < 3; ++color)
            state.presetMultipliers[color] = static_cast<float>(presets[color]);
        state.presetMultipliers[3] = state.presetMultipliers[1];
    }
    state.rawColor = false;
    return true;
}

void SetMatrixByName(RawDecodeState& state, const char* make, const char* model) {
    char camera[sizeof state.makeText + sizeof state.modelText] = {};
    std::size_t length = 0;
    for (const char* part : {make, " ", model})
        for (; *part != 0 && length < sizeof camera - 1; ++part) camera[length++] = *part;
    const CameraMatrix* row = FindCameraMatrix({camera, length});
    if (row == nullptr) return;
    XyzToCamera matrix;
    for (int color = 0; color < 3; ++color)
        for (int axis = 0; axis < 3; ++axis)
            matrix.rows[color][axis] = row->xyzToCamera[color][axis] / 10000.0;
    SetColorMatrix(state, matrix);
}

void ReadColorTags(RawDecodeState& state, const RawColorTags& tags) {
    const std::string_view make = state.makeText;
    if (make == "Panasonic" || make == "LEICA") ReadPanasonicBalance(state, tags);
    ReadEpsonBalance(state, tags.epsonBalance);
    ReadNeutral(state, tags);
    XyzToCamera matrix;
    if (!state.isDng || !ReadDngMatrix(state.file, tags, matrix)) return;
    ReadWhitePoint(state, tags, matrix);
    SetColorMatrix(state, matrix);
}

void ChooseMultipliers(const RawDecodeState& state, float (&multipliers)[kColors]) {
    const float* known = state.cameraMultipliers;
    const bool fromCamera = IsUsable(known[0]) && IsUsable(known[2]);
    const float* chosen = fromCamera ? known : state.presetMultipliers;
    for (std::uint32_t color = 0; color < kColors; ++color)
        multipliers[color] = IsUsable(chosen[color]) ? chosen[color] : 1;
    // The second green follows the first.
    multipliers[3] = multipliers[1];
}

}  // namespace qmx
