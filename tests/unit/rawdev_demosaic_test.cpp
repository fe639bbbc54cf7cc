// The demosaic against scenes whose every pixel is known.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "rawdev/demosaic.h"
#include "support/raw_builder.h"

namespace qmx::test {
namespace {

constexpr double kPi = 3.14159265358979;

using Scene = std::function<double(int row, int column, int color)>;  // 0 to 1

double ZonePlate(int row, int column, int color) {
    const double y = row - 150;
    const double x = column - 150;
    const double wave = std::cos(kPi * (x * x + y * y) / 1200);
    return 0.5 + 0.4 * wave * (color == 1 ? 1 : 0.9);
}

// An edge at an angle in degrees, one pixel soft.
Scene Edge(double angle) {
    const double s = std::sin(angle * kPi / 180);
    const double c = std::cos(angle * kPi / 180);
    return [=](int row, int column, int color) {
        const double distance = std::clamp((column - 150) * c + (row - 150) * s, -0.5, 0.5);
        return 0.2 + (0.5 + distance) * (color == 2 ? 0.4 : 0.6);
    };
}

double FlatNoise(int row, int column, int color) {
    const std::uint32_t hash =
        (static_cast<std::uint32_t>(row) * 7919u + static_cast<std::uint32_t>(column) * 104729u +
         static_cast<std::uint32_t>(color) * 1299709u) *
        2654435761u;
    return 0.4 + 0.02 * ((hash >> 16) / 65536.0 - 0.5);
}

std::uint16_t LevelOf(double light) { return static_cast<std::uint16_t>(65535 * light); }

// A picture that the sensor saw part of; `top` and `left` are where in the scene it begins.
struct Shot {
    RawDecodeState state;

    Shot(const Scene& scene, int top, int left, std::uint16_t height, std::uint16_t width,
         std::uint32_t pattern = 0x94949494) {
        state.cfaPattern = pattern;
        state.outputHeight = height;
        state.outputWidth = width;
        state.image = AllocateZeroed<std::uint16_t[kColors]>(std::uint64_t{height} * width);
        for (int row = 0; row < height; ++row) {
            for (int column = 0; column < width; ++column) {
                const std::uint32_t color = CfaColor(pattern, static_cast<std::uint32_t>(row),
                                                     static_cast<std::uint32_t>(column));
                At(row, column)[color] = LevelOf(
                    scene(top + row, left + column, color == 3 ? 1 : static_cast<int>(color)));
            }
        }
        FoldGreens(state);
        EXPECT_TRUE(Demosaic(state));
    }
    std::uint16_t (&At(int row, int column))[kColors] {
        return state.image[static_cast<std::size_t>(row * state.outputWidth + column)];
    }
};

double Psnr(Shot& shot, const Scene& scene, int margin) {
    double sum = 0;
    double count = 0;
    for (int row = margin; row < shot.state.outputHeight - margin; ++row) {
        for (int column = margin; column < shot.state.outputWidth - margin; ++column) {
            for (int color = 0; color < 3; ++color) {
                const double error =
                    (shot.At(row, column)[color] - LevelOf(scene(row, column, color))) / 65535.0;
                sum += error * error;
                ++count;
            }
        }
    }
    return -10 * std::log10(sum / count + 1e-20);
}

TEST(Demosaic, ComesNearTheTruth) {
    struct Case {
        const char* name;
        Scene scene;
        double leastPsnr;  // dB
    };
    const Case cases[] = {
        {"zone plate", ZonePlate, 24}, {"edge 0", Edge(0), 40},   {"edge 30", Edge(30), 38},
        {"edge 45", Edge(45), 36},     {"edge 90", Edge(90), 40}, {"edge 117", Edge(117), 36},
        {"flat noise", FlatNoise, 40},
    };
    for (const Case& c : cases) {
        for (const std::uint32_t pattern : {0x94949494u, 0x49494949u, 0xE1E1E1E1u}) {
            Shot shot(c.scene, 0, 0, 300, 300, pattern);
            const double psnr = Psnr(shot, c.scene, 0);
            EXPECT_GE(psnr, c.leastPsnr) << c.name << ' ' << std::hex << pattern;
            if (pattern == 0x94949494) RecordProperty(c.name, std::to_string(psnr));
        }
    }
}

TEST(Demosaic, KeepsFlatColors) {
    const double colors[][3] = {{0.2, 0.5, 0.8}, {1, 1, 1}, {0, 0, 0}, {0.9, 0.1, 0.3}};
    for (const auto& flat : colors) {
        const Scene scene = [&](int, int, int color) { return flat[color]; };
        Shot shot(scene, 0, 0, 40, 30);
        for (int row = 0; row < 40; ++row)
            for (int column = 0; column < 30; ++column)
                for (int color = 0; color < 3; ++color)
                    ASSERT_EQ(shot.At(row, column)[color], LevelOf(flat[color]));
    }
}

// The same scene from another corner puts its tiles elsewhere; the pixels must not show it.
TEST(Demosaic, ShowsNoSeams) {
    const Scene scene = [](int row, int column, int color) {
        return 0.5 * ZonePlate(row, column, color) + FlatNoise(row, column, color) * 0.5;
    };
    Shot whole(scene, 0, 0, 540, 540);
    Shot part(scene, 100, 60, 440, 480);
    for (int row = 8; row < 432; ++row)
        for (int column = 8; column < 472; ++column)
            for (int color = 0; color < 3; ++color)
                ASSERT_EQ(part.At(row, column)[color], whole.At(row + 100, column + 60)[color])
                    << row << ' ' << column;
}

TEST(Demosaic, ServesSmallAndOddPictures) {
    const Scene scene = [](int, int, int color) { return 0.2 + 0.3 * color; };
    for (const int width : {2, 3, 10, 11, 12, 261, 262}) {
        for (const int height : {2, 11, 13, 257}) {
            Shot shot(scene, 0, 0, static_cast<std::uint16_t>(height),
                      static_cast<std::uint16_t>(width));
            for (int row = 0; row < height; ++row)
                for (int column = 0; column < width; ++column)
                    for (int color = 0; color < 3; ++color)
                        ASSERT_EQ(shot.At(row, column)[color], LevelOf(0.2 + 0.3 * color))
                            << width << ' ' << height;
        }
    }
    // No mosaic of pairs of greens: every colour comes from around.
    Shot stripes(scene, 0, 0, 30, 30, 0x24242424 & 0x0F0F0F0F);
    EXPECT_EQ(stripes.At(10, 10)[CfaColor(0x04040404, 10, 10)], LevelOf(0.2));
}

}  // namespace
}  // namespace qmx::test
