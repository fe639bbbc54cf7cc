#include "rawdev/reshape.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace qmx {
namespace {

constexpr double kSmallestAspect = 0.5;
constexpr double kLargestAspect = 2;
constexpr double kMostCells = 0xFFFF;  // of a side

struct Place {
    double row;
    double column;
};

// Two neighbours on one axis and how much the second of them counts.
struct Neighbours {
    std::size_t first;
    std::size_t second;
    float weight;

    Neighbours(double at, std::uint32_t count) {
        const double inside = std::clamp(at, 0.0, static_cast<double>(count - 1));
        first = static_cast<std::size_t>(inside);
        second = std::min<std::size_t>(first + 1, count - 1);
        weight = static_cast<float>(inside - static_cast<double>(first));
    }
};

// Cells whose places between the old ones `placeOf` tells: each is the mean of the four around its
// place, the nearer the weightier; beyond the picture its border goes on.
template <class PlaceOf>
bool Resample(RawDecodeState& state, double height, double width, PlaceOf&& placeOf) {
    if (!(height >= 1 && height <= kMostCells && width >= 1 && width <= kMostCells)) return true;
    const auto rows = static_cast<std::uint16_t>(height);
    const auto columns = static_cast<std::uint16_t>(width);
    auto cells = AllocateUnset<std::uint16_t[kColors]>(std::uint64_t{rows} * columns);
    if (cells == nullptr) {
        state.error = E_OUTOFMEMORY;
        return false;
    }
    const auto* const old = state.image.get();
    const std::size_t stride = state.outputWidth;
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < columns; ++column) {
            const Place place = placeOf(static_cast<double>(row), static_cast<double>(column));
            const Neighbours y(place.row, state.outputHeight);
            const Neighbours x(place.column, state.outputWidth);
            for (std::size_t color = 0; color < kColors; ++color) {
                const auto across = [&](std::size_t line) {
                    const float left = old[line * stride + x.first][color];
                    const float right = old[line * stride + x.second][color];
                    return left + (right - left) * x.weight;
                };
                const float above = across(y.first);
                const float level = above + (across(y.second) - above) * y.weight;
                cells[row * columns + column][color] =
                    static_cast<std::uint16_t>(std::lround(level));
            }
        }
    }
    state.image = std::move(cells);
    state.outputHeight = rows;
    state.outputWidth = columns;
    return true;
}

// The picture is a rectangle turned by 45 degrees: its left corner lies on the first column
// `diagonalWidth` rows down, its upper one on the first row as far to the right.
bool TurnUpright(RawDecodeState& state) {
    const double step = std::sqrt(0.5);
    const double left =
        std::min<std::uint32_t>(state.diagonalWidth >> state.shrinkShift, state.outputHeight);
    return Resample(state, (state.outputHeight - left) / step, left / step,
                    [&](double row, double column) -> Place {
                        return {left + (row - column) * step, (row + column) * step};
                    });
}

// The shorter side of a pixel grows, so that nothing is lost.
bool StretchPixels(RawDecodeState& state) {
    const double aspect = state.pixelAspect;
    if (!(aspect >= kSmallestAspect && aspect <= kLargestAspect)) return true;
    const double down = std::min(aspect, 1.0);
    const double across = std::min(1 / aspect, 1.0);
    return Resample(state, std::round(state.outputHeight / down),
                    std::round(state.outputWidth / across),
                    [=](double row, double column) -> Place {
                        return {(row + 0.5) * down - 0.5, (column + 0.5) * across - 0.5};
                    });
}

}  // namespace

bool Reshape(RawDecodeState& state) {
    if (state.diagonalWidth != 0 && !TurnUpright(state)) return false;
    return state.pixelAspect == 1 || StretchPixels(state);
}

}  // namespace qmx
