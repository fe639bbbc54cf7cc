#include "rawdev/demosaic.h"

#include <algorithm>
#include <cstdlib>

#include "rawdev/demosaic_lab.h"

namespace qmx {
namespace {

constexpr std::int32_t kTile = 256;
constexpr std::int32_t kOverlap = 3;  // what a decision reaches beyond its own cell
constexpr std::int32_t kStep = kTile - 2 * kOverlap;
constexpr std::int32_t kBorder = 5;  // cells that lack the neighbours a decision needs

enum Direction { kAlongRow, kAlongColumn, kDirections };

using Rgb = std::uint16_t[3];

// The two interpolations of one tile and how homogeneous each is.
struct TileScratch {
    Rgb rgb[kDirections][kTile][kTile];
    Lab lab[kDirections][kTile][kTile];
    std::uint8_t homogeneous[kDirections][kTile][kTile];
};

struct Neighbour {
    std::int32_t row, column;
};
constexpr Neighbour kNeighbours[] = {{0, -1}, {0, 1}, {-1, 0}, {1, 0}};

std::uint16_t Clip(std::int32_t value) {
    return static_cast<std::uint16_t>(std::clamp(value, 0, 0xFFFF));
}

// Red and blue share no row and no column, green fills the rest.
bool IsBayer(std::uint32_t pattern) {
    for (std::uint32_t row = 0; row < 8; ++row) {
        const std::uint32_t even = CfaColor(pattern, row, 0);
        const std::uint32_t odd = CfaColor(pattern, row, 1);
        const std::uint32_t below = CfaColor(pattern, row + 1, even == 1 ? 0 : 1);
        if ((even == 1) == (odd == 1) || even + odd + below != 4 || below == 1 || below == 3)
            return false;
    }
    return true;
}

class Mosaic {
public:
    explicit Mosaic(RawDecodeState& state)
        : image_(state.image.get()),
          width_(state.outputWidth),
          height_(state.outputHeight),
          pattern_(state.cfaPattern) {}

    std::int32_t Width() const { return width_; }
    std::int32_t Height() const { return height_; }
    std::uint32_t ColorAt(std::int32_t row, std::int32_t column) const {
        return CfaColor(pattern_, static_cast<std::uint32_t>(row),
                        static_cast<std::uint32_t>(column));
    }
    std::uint16_t (&CellAt(std::int32_t row, std::int32_t column) const)[kColors] {
        return image_[static_cast<std::ptrdiff_t>(row) * width_ + column];
    }
    // The sample that the sensor saw.
    std::int32_t SampleAt(std::int32_t row, std::int32_t column) const {
        return CellAt(row, column)[ColorAt(row, column)];
    }

private:
    std::uint16_t (*image_)[kColors];
    std::int32_t width_;
    std::int32_t height_;
    std::uint32_t pattern_;
};

class TileDemosaic {
public:
    TileDemosaic(const Mosaic& mosaic, const LabConverter& lab, TileScratch& scratch)
        : mosaic_(mosaic), lab_(lab), scratch_(scratch) {}

    // Decides the cells of one step from `top`, `left`.
    void Run(std::int32_t top, std::int32_t left) {
        top_ = top - kOverlap;
        left_ = left - kOverlap;
        rows_ = std::min(kStep, mosaic_.Height() - kBorder - top) + 2 * kOverlap;
        columns_ = std::min(kStep, mosaic_.Width() - kBorder - left) + 2 * kOverlap;
        for (int direction = 0; direction < kDirections; ++direction) {
            FillGreen(direction);
            FillOthers(direction);
        }
        CountHomogeneous();
        Choose();
    }

private:
    template <class Visit>
    void ForCells(std::int32_t margin, Visit&& visit) {
        for (std::int32_t row = margin; row < rows_ - margin; ++row)
            for (std::int32_t column = margin; column < columns_ - margin; ++column)
                visit(row, column);
    }

    std::int32_t Sample(std::int32_t row, std::int32_t column) const {
        return mosaic_.SampleAt(top_ + row, left_ + column);
    }
    std::uint32_t Color(std::int32_t row, std::int32_t column) const {
        return mosaic_.ColorAt(top_ + row, left_ + column);
    }

    void FillGreen(int direction) {
        const std::int32_t down = direction == kAlongColumn ? 1 : 0;
        const std::int32_t right = 1 - down;
        ForCells(0, [&](std::int32_t row, std::int32_t column) {
            std::uint16_t& green = scratch_.rgb[direction][row][column][1];
            const std::int32_t own = Sample(row, column);
            if (Color(row, column) == 1) {
                green = static_cast<std::uint16_t>(own);
                return;
            }
            const std::int32_t before = Sample(row - down, column - right);
            const std::int32_t after = Sample(row + down, column + right);
            const std::int32_t outer = Sample(row - 2 * down, column - 2 * right) +
                                       Sample(row + 2 * down, column + 2 * right);
            const std::int32_t estimate = (2 * (before + own + after) - outer) / 4;
            // Kept between its neighbours, so that no edge rings.
            green = Clip(std::clamp(estimate, std::min(before, after), std::max(before, after)));
        });
    }

    // Red and blue by their differences to green, which vary less than they do.
    void FillOthers(int direction) {
        ForCells(1, [&](std::int32_t row, std::int32_t column) {
            Rgb& rgb = scratch_.rgb[direction][row][column];
            const std::uint32_t own = Color(row, column);
            if (own == 1) {
                rgb[Color(row, column + 1)] = FromPair(direction, row, column, 0, 1);
                rgb[Color(row + 1, column)] = FromPair(direction, row, column, 1, 0);
            } else {
                rgb[own] = static_cast<std::uint16_t>(Sample(row, column));
                rgb[2 - own] = FromDiagonals(direction, row, column);
            }
            scratch_.lab[direction][row][column] = lab_.Convert(rgb);
        });
    }

    std::int32_t Difference(int direction, std::int32_t row, std::int32_t column) const {
        return Sample(row, column) - scratch_.rgb[direction][row][column][1];
    }
    std::uint16_t FromPair(int direction, std::int32_t row, std::int32_t column, std::int32_t down,
                           std::int32_t right) const {
        const std::int32_t sum = Difference(direction, row - down, column - right) +
                                 Difference(direction, row + down, column + right);
        return Clip(scratch_.rgb[direction][row][column][1] + sum / 2);
    }
    std::uint16_t FromDiagonals(int direction, std::int32_t row, std::int32_t column) const {
        const std::int32_t sum = Difference(direction, row - 1, column - 1) +
                                 Difference(direction, row - 1, column + 1) +
                                 Difference(direction, row + 1, column - 1) +
                                 Difference(direction, row + 1, column + 1);
        return Clip(scratch_.rgb[direction][row][column][1] + sum / 4);
    }

    // Distances of a cell to its neighbours left, right, above and below.
    struct Distances {
        std::int32_t luminance[4];
        std::int32_t chrominance[4];
    };
    Distances Measure(int direction, std::int32_t row, std::int32_t column) const {
        const auto& lab = scratch_.lab[direction];
        const Lab own = lab[row][column];
        Distances distances;
        for (int i = 0; i < 4; ++i) {
            const Lab other = lab[row + kNeighbours[i].row][column + kNeighbours[i].column];
            const std::int32_t a = own.a - other.a;
            const std::int32_t b = own.b - other.b;
            distances.luminance[i] = std::abs(own.l - other.l);
            // Far apart is far apart: the sum of two squares has to fit.
            distances.chrominance[i] = std::min(a * a / 2 + b * b / 2, INT32_MAX / 2);
        }
        return distances;
    }

    // Neighbours count as alike within what the better picture shows along its own direction.
    void CountHomogeneous() {
        ForCells(2, [&](std::int32_t row, std::int32_t column) {
            const Distances along = Measure(kAlongRow, row, column);
            const Distances across = Measure(kAlongColumn, row, column);
            const std::int32_t nearL = std::min(std::max(along.luminance[0], along.luminance[1]),
                                                std::max(across.luminance[2], across.luminance[3]));
            const std::int32_t nearC =
                std::min(std::max(along.chrominance[0], along.chrominance[1]),
                         std::max(across.chrominance[2], across.chrominance[3]));
            scratch_.homogeneous[kAlongRow][row][column] = CountNear(along, nearL, nearC);
            scratch_.homogeneous[kAlongColumn][row][column] = CountNear(across, nearL, nearC);
        });
    }
    static std::uint8_t CountNear(const Distances& distances, std::int32_t nearL,
                                  std::int32_t nearC) {
        int count = 0;
        for (int i = 0; i < 4; ++i)
            count += distances.luminance[i] <= nearL && distances.chrominance[i] <= nearC;
        return static_cast<std::uint8_t>(count);
    }

    std::int32_t Homogeneity(int direction, std::int32_t row, std::int32_t column) const {
        std::int32_t sum = 0;
        for (std::int32_t r = row - 1; r <= row + 1; ++r)
            for (std::int32_t c = column - 1; c <= column + 1; ++c)
                sum += scratch_.homogeneous[direction][r][c];
        return sum;
    }

    void Choose() {
        ForCells(kOverlap, [&](std::int32_t row, std::int32_t column) {
            const std::int32_t along = Homogeneity(kAlongRow, row, column);
            const std::int32_t across = Homogeneity(kAlongColumn, row, column);
            const Rgb& first =
                scratch_.rgb[along >= across ? kAlongRow : kAlongColumn][row][column];
            const Rgb& second =
                scratch_.rgb[along > across ? kAlongRow : kAlongColumn][row][column];
            auto& cell = mosaic_.CellAt(top_ + row, left_ + column);
            for (int color = 0; color < 3; ++color)
                cell[color] = static_cast<std::uint16_t>((first[color] + second[color]) >> 1);
        });
    }

    const Mosaic& mosaic_;
    const LabConverter& lab_;
    TileScratch& scratch_;
    std::int32_t top_ = 0;  // of the tile, overlap included
    std::int32_t left_ = 0;
    std::int32_t rows_ = 0;
    std::int32_t columns_ = 0;
};

// The mean of the cells of each colour around.
void FillFromAround(const Mosaic& mosaic, std::int32_t row, std::int32_t column) {
    std::int32_t sums[kColors] = {};
    std::int32_t counts[kColors] = {};
    for (std::int32_t r = std::max(row - 1, 0); r <= std::min(row + 1, mosaic.Height() - 1); ++r) {
        for (std::int32_t c = std::max(column - 1, 0);
             c <= std::min(column + 1, mosaic.Width() - 1); ++c) {
            sums[mosaic.ColorAt(r, c)] += mosaic.SampleAt(r, c);
            ++counts[mosaic.ColorAt(r, c)];
        }
    }
    auto& cell = mosaic.CellAt(row, column);
    for (std::uint32_t color = 0; color < 3; ++color)
        if (color != mosaic.ColorAt(row, column) && counts[color] != 0)
            cell[color] = static_cast<std::uint16_t>(sums[color] / counts[color]);
}

void FillOutside(const Mosaic& mosaic, std::int32_t border) {
    for (std::int32_t row = 0; row < mosaic.Height(); ++row) {
        const bool inRows = row >= border && row < mosaic.Height() - border;
        for (std::int32_t column = 0; column < mosaic.Width(); ++column) {
            if (inRows && column == border && mosaic.Width() > 2 * border)
                column = mosaic.Width() - border;
            FillFromAround(mosaic, row, column);
        }
    }
}

}  // namespace

void FoldGreens(RawDecodeState& state) {
    const std::uint64_t width = state.outputWidth;
    for (std::uint32_t row = 0; row < state.outputHeight; ++row) {
        for (std::uint32_t column = 0; column < width; ++column) {
            std::uint16_t(&cell)[kColors] = state.image[row * width + column];
            if (CfaColor(state.cfaPattern, row, column) == 3) cell[1] = cell[3];
            cell[3] = 0;
        }
    }
    // Both bits set become the low one alone.
    state.cfaPattern &= ~((state.cfaPattern & 0x55555555) << 1);
}

bool Demosaic(RawDecodeState& state) {
    const Mosaic mosaic(state);
    if (!IsBayer(state.cfaPattern)) {
        FillOutside(mosaic, std::max(mosaic.Width(), mosaic.Height()));
        return true;
    }
    LabConverter lab;
    auto* scratch = state.scratch.Take<TileScratch>(1);
    if (scratch == nullptr || !lab.Start(state)) return false;
    FillOutside(mosaic, kBorder);
    TileDemosaic tile(mosaic, lab, *scratch);
    for (std::int32_t top = kBorder; top < mosaic.Height() - kBorder; top += kStep)
        for (std::int32_t left = kBorder; left < mosaic.Width() - kBorder; left += kStep)
            tile.Run(top, left);
    return true;
}

}  // namespace qmx
