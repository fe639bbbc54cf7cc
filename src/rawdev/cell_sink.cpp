#include "rawdev/cell_sink.h"

#include <algorithm>

#include "rawdev/cell_sums.h"

namespace qmx {
namespace {

constexpr std::uint32_t kRepairReach = 2;  // cells on each side that a dead one is mended from

bool HoldsZero(const std::uint16_t* samples, std::uint32_t count) {
    std::uint32_t zeros = 0;
    for (std::uint32_t i = 0; i < count; ++i) zeros |= static_cast<std::uint32_t>(samples[i] == 0);
    return zeros != 0;
}

// How many of `rows` x `columns` cells from `top` have each colour.
CellCounts CountColors(std::uint32_t pattern, std::uint32_t top, std::uint32_t rows,
                       std::uint32_t columns) {
    CellCounts counts = {{0, 0, 0, 0}};
    for (std::uint32_t row = top; row < top + rows; ++row)
        for (std::uint32_t column = 0; column < columns; ++column)
            ++counts.of[CfaColor(pattern, row, column)];
    return counts;
}

// Whether every 2 x 2 samples have four colours.
bool HasQuads(std::uint32_t pattern) {
    for (std::uint32_t at = 0; at < 32; at += 8) {
        std::uint32_t colors = 0;  // a bit each
        for (std::uint32_t i = 0; i < 8; i += 2) colors |= 1u << (pattern >> (at + i) & 3);
        if (colors != 15) return false;
    }
    return true;
}

}  // namespace

bool CellSink::Start(RawDecodeState& state, CellUse use, BitmapPainter* painter) {
    state_ = &state;
    use_ = use;
    painter_ = painter;
    color_ = CellColor(state);
    isQuad_ = state.shrinkShift == 1 && HasQuads(state.cfaPattern);
    const std::uint32_t blockRows = 1u << state.shrinkShift;
    const bool repair = state.repairZeros && state.cfaPattern != 0;
    ringRows_ = repair ? kMostRows : blockRows;
    const std::uint32_t stored = SamplesPerRow(state);
    const std::uint32_t reach =
        (std::uint32_t{state.leftMargin} + state.width) * state.samplesPerPixel;
    ringStride_ = std::max(stored, reach) + kRowSlack;
    ring_ = state.scratch.Take<std::uint16_t>(ringStride_ * ringRows_);
    return ring_ != nullptr;
}

std::uint16_t* CellSink::NextRow() { return ring_ + ringStride_ * (rowsIn_ % ringRows_); }

std::uint16_t* CellSink::VisibleRow(std::uint32_t y) {
    return ring_ + ringStride_ * (y % ringRows_) +
           std::size_t{state_->leftMargin} * state_->samplesPerPixel;
}

void CellSink::FinishRow() {
    const std::uint32_t y = rowsIn_++;
    if (!state_->repairZeros || state_->cfaPattern == 0) return PassRow(y);
    // A row is mended when the two below it have come, or none will.
    if (y >= kRepairReach) {
        RepairRow(y - kRepairReach, rowsIn_);
        PassRow(y - kRepairReach);
    }
    if (rowsIn_ < state_->height) return;
    const std::uint32_t firstLeft = y >= kRepairReach ? y - kRepairReach + 1 : 0;
    for (std::uint32_t row = firstLeft; row <= y; ++row) {
        RepairRow(row, rowsIn_);
        PassRow(row);
    }
}

// Cells that were mended before count as good neighbours.
void CellSink::RepairRow(std::uint32_t y, std::uint32_t rowsThere) {
    std::uint16_t* row = VisibleRow(y);
    if (!HoldsZero(row, state_->width)) return;
    for (std::uint32_t x = 0; x < state_->width; ++x)
        if (row[x] == 0) row[x] = RepairedSample(y, x, rowsThere);
}

std::uint16_t CellSink::RepairedSample(std::uint32_t y, std::uint32_t x, std::uint32_t rowsThere) {
    const std::uint32_t pattern = state_->cfaPattern;
    const std::uint32_t color = CfaColor(pattern, y, x);
    const std::uint32_t top = y >= kRepairReach ? y - kRepairReach : 0;
    const std::uint32_t left = x >= kRepairReach ? x - kRepairReach : 0;
    const std::uint32_t bottom = std::min(y + kRepairReach, rowsThere - 1);
    const std::uint32_t right = std::min(x + kRepairReach, std::uint32_t{state_->width} - 1);
    std::uint32_t sum = 0;
    std::uint32_t count = 0;
    for (std::uint32_t row = top; row <= bottom; ++row) {
        const std::uint16_t* samples = VisibleRow(row);
        for (std::uint32_t column = left; column <= right; ++column) {
            if (samples[column] == 0 || CfaColor(pattern, row, column) != color) continue;
            sum += samples[column];
            ++count;
        }
    }
    return static_cast<std::uint16_t>(count == 0 ? 0 : sum / count);
}

void CellSink::PassRow(std::uint32_t y) {
    if (state_->cfaPattern == 0) return StoreFullRow(y);
    if (state_->shrinkShift == 0) return StoreMosaicRow(y);
    const std::uint32_t blockRows = 1u << state_->shrinkShift;
    const bool last = y + 1 == state_->height;
    if (last || (y + 1) % blockRows == 0) ReduceBlock(y >> state_->shrinkShift);
}

void CellSink::ReduceBlock(std::uint32_t outRow) {
    const std::uint32_t side = 1u << state_->shrinkShift;
    const std::uint32_t top = outRow * side;
    const std::uint32_t rows = std::min(side, state_->height - top);
    if (isQuad_ && rows == side && state_->width % side == 0) return ReduceQuads(outRow);
    const std::uint16_t* samples[8];
    std::uint32_t colors[8];  // each row's two
    for (std::uint32_t row = 0; row < rows; ++row) {
        samples[row] = VisibleRow(top + row);
        colors[row] = state_->cfaPattern >> (4 * ((top + row) % 8)) & 15;
    }
    const CellCounts counts = CountColors(state_->cfaPattern, top, rows, side);
    CellSums sums;
    for (std::uint32_t column = 0; column < state_->outputWidth; column += kRunCells) {
        const std::uint32_t width = std::min(kRunCells * side, state_->width - column * side);
        const std::uint32_t wholeCells = width / side;
        const std::uint32_t restColumns = width % side;
        std::uint16_t(*cells)[kColors] = PlaceOf(outRow, column);
        SumBlock(*state_->kernels, samples, colors, rows, side, width, sums);
        color_.FinishSums(sums, counts, 0, wholeCells, cells);
        if (restColumns != 0)
            color_.FinishSums(sums, CountColors(state_->cfaPattern, top, rows, restColumns),
                              wholeCells, 1, cells + wholeCells);
        UseCells(outRow, column, wholeCells + (restColumns != 0 ? 1 : 0));
        for (std::uint32_t row = 0; row < rows; ++row)
            samples[row] += std::size_t{kRunCells} * side;
    }
}

// Where each colour has one sample in a cell there is nothing to sum.
void CellSink::ReduceQuads(std::uint32_t outRow) {
    const std::uint16_t* samples[kColors] = {};
    for (std::uint32_t i = 0; i < 4; ++i) {
        const std::uint32_t row = 2 * outRow + i / 2;
        samples[CfaColor(state_->cfaPattern, row, i % 2)] = VisibleRow(row) + i % 2;
    }
    for (std::uint32_t column = 0; column < state_->outputWidth; column += kRunCells) {
        const std::uint32_t count = std::min(kRunCells, state_->outputWidth - column);
        color_.FinishSamples(samples, count, PlaceOf(outRow, column));
        UseCells(outRow, column, count);
        for (auto& first : samples) first += 2 * std::size_t{kRunCells};
    }
}

// Room for a run of cells.
auto CellSink::PlaceOf(std::uint32_t row, std::uint32_t column) -> std::uint16_t (*)[kColors] {
    if (use_ != CellUse::kKeep) return run_;
    return state_->image.get() + std::size_t{row} * state_->outputWidth + column;
}

void CellSink::UseCells(std::uint32_t row, std::uint32_t column, std::uint32_t count) {
    if (use_ == CellUse::kPaint) return painter_->Paint(row, column, run_, count);
    color_.Count(PlaceOf(row, column), count);
}

// One sample per cell: its other colours are found later.
void CellSink::StoreMosaicRow(std::uint32_t y) {
    const std::uint16_t* row = VisibleRow(y);
    std::uint16_t(*cells)[kColors] = state_->image.get() + std::size_t{y} * state_->outputWidth;
    for (std::uint32_t x = 0; x < state_->width; ++x)
        cells[x][CfaColor(state_->cfaPattern, y, x)] = row[x];
}

void CellSink::StoreFullRow(std::uint32_t y) {
    const std::uint16_t* row = VisibleRow(y);
    CellSums levels;
    for (std::uint32_t x = 0; x < state_->width; x += kRunCells) {
        const std::uint32_t count = std::min(kRunCells, state_->width - x);
        for (std::uint32_t i = 0; i < count; ++i)
            for (std::uint32_t color = 0; color < 3; ++color)
                levels[color][i] = row[3 * (std::size_t{x} + i) + color];
        color_.FinishSums(levels, {{1, 1, 1, 0}}, 0, count, PlaceOf(y, x));
        UseCells(y, x, count);
    }
}

}  // namespace qmx
