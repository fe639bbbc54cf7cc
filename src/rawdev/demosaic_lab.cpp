#include "rawdev/demosaic_lab.h"

#include <cmath>

namespace qmx {
namespace {

constexpr std::uint32_t kLevels = 0x10000;

// IEC 61966-2-1 (sRGB) to XYZ, and its white.
constexpr double kSrgbToXyz[3][3] = {
    {0.412453, 0.357580, 0.180423}, {0.212671, 0.715160, 0.072169}, {0.019334, 0.119193, 0.950227}};
constexpr double kWhite[3] = {0.950456, 1, 1.088754};

}  // namespace

bool LabConverter::Start(RawDecodeState& state) {
    auto* roots = state.scratch.Take<float>(kLevels);
    if (roots == nullptr) return false;
    for (std::uint32_t level = 0; level < kLevels; ++level) {
        const double x = level / 65535.0;
        roots[level] = static_cast<float>(x > 0.008856 ? std::cbrt(x) : 7.787 * x + 16.0 / 116);
    }
    roots_ = roots;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            double sum = state.rawColor ? kSrgbToXyz[row][column] : 0;
            for (int k = 0; k < 3 && !state.rawColor; ++k)
                sum += kSrgbToXyz[row][k] * double{state.cameraToOutput[k][column]};
            toXyz_[row][column] = static_cast<float>(sum / kWhite[row]);
        }
    }
    return true;
}

Lab LabConverter::Convert(const std::uint16_t (&rgb)[3]) const {
    float root[3];
    for (int i = 0; i < 3; ++i) {
        const float value = 0.5f + toXyz_[i][0] * static_cast<float>(rgb[0]) +
                            toXyz_[i][1] * static_cast<float>(rgb[1]) +
                            toXyz_[i][2] * static_cast<float>(rgb[2]);
        const float level = value < 0 ? 0 : value > 65535 ? 65535 : value;
        root[i] = roots_[static_cast<std::uint32_t>(level)];
    }
    return {static_cast<std::int16_t>(64 * (116 * root[1] - 16)),
            static_cast<std::int16_t>(64 * 500 * (root[0] - root[1])),
            static_cast<std::int16_t>(64 * 200 * (root[1] - root[2]))};
}

}  // namespace qmx
