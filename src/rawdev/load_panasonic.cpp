// Rows of Panasonic's block code, see block_groups.h.

#include <algorithm>

#include "rawdev/block_groups.h"
#include "rawdev/cell_sink.h"
#include "rawdev/loaders.h"
#include "rawdev/split_rows.h"
#include "rawdev/stored_row.h"

namespace qmx {
namespace {

std::uint64_t BlockRow(const RawDecodeState& state) {
    return (std::uint64_t{SamplesPerRow(state)} + kGroupSamples - 1) / kGroupSamples * kGroupBytes;
}

// `groupsOf` gives a row's groups.
template <class GroupsOf>
void DecodeRows(RawDecodeState& state, CellSink& sink, GroupsOf&& groupsOf) {
    const std::uint32_t count = SamplesPerRow(state);
    StreamRows(state, sink, false, [&](std::uint32_t rawRow, std::uint16_t* dst) {
        const std::uint8_t* group = groupsOf(rawRow);
        const std::uint32_t groups = count / kGroupSamples;
        const std::uint32_t done = groups * kGroupSamples;
        state.kernels->unpackGroups(group, groups, dst);
        if (done == count) return;
        // Each row starts a new group; what is left of its last one says nothing.
        std::uint16_t last[kGroupSamples];
        DecodeGroup(group + std::size_t{groups} * kGroupBytes, last);
        std::copy_n(last, count - done, dst + done);
    });
}

bool LoadBlocks(RawDecodeState& state, CellSink& sink) {
    const std::uint64_t rowBytes = BlockRow(state);
    if (state.splitBlocks) {
        SplitRows rows;
        if (!rows.Start(state, rowBytes)) return false;
        DecodeRows(state, sink, [&](std::uint32_t rawRow) { return rows.At(rawRow * rowBytes); });
        return true;
    }
    StoredRows rows;
    if (!rows.Start(state, rowBytes)) return false;
    DecodeRows(state, sink,
               [&](std::uint32_t rawRow) { return rows.At(state.dataOffset + rawRow * rowBytes); });
    return true;
}

}  // namespace

const Loader kPanasonicBlocks = {LoadBlocks, BlockRow, 12};

}  // namespace qmx
