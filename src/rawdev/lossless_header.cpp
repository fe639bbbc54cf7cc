#include <algorithm>

#include "rawdev/lossless_jpeg.h"

namespace qmx {
namespace {

enum Marker : std::uint8_t {
    kFrame = 0xC3,  // lossless, Huffman
    kHuffman = 0xC4,
    kStart = 0xD8,
    kEnd = 0xD9,
    kScan = 0xDA,
    kRestartInterval = 0xDD,
};

using Segment = std::span<const std::uint8_t>;

std::uint32_t Word(Segment bytes, std::size_t at) {
    return std::uint32_t{bytes[at]} << 8 | bytes[at + 1];
}

// Several tables may share a segment.
bool ReadTables(Segment segment, bool longCategory16, HuffmanTable (&tables)[kMostComponents]) {
    while (segment.size() > kLongestCode) {
        const std::uint32_t id = segment[0] & 15;
        const auto counts = segment.subspan<1, kLongestCode>();
        std::size_t codes = 0;
        for (const std::uint8_t count : counts) codes += count;
        segment = segment.subspan(1 + kLongestCode);
        if (id >= kMostComponents || codes > segment.size()) return false;
        tables[id].Build(counts, segment.first(codes), longCategory16);
        segment = segment.subspan(codes);
    }
    return true;
}

bool ReadFrame(Segment segment, LosslessHeader& header, std::uint8_t (&ids)[kMostComponents]) {
    if (segment.size() < 6) return false;
    header.precision = segment[0];
    header.height = Word(segment, 1);
    header.width = Word(segment, 3);
    header.components = segment[5];
    const bool sound = header.precision >= 2 && header.precision <= 16 && header.width != 0 &&
                       header.height != 0 && header.components >= 1 &&
                       header.components <= kMostComponents &&
                       segment.size() >= 6 + 3 * header.components;
    if (!sound) return false;
    for (std::uint32_t i = 0; i < header.components; ++i) {
        ids[i] = segment[6 + 3 * i];
        if (segment[7 + 3 * i] != 0x11 && header.components > 1) return false;  // subsampled
    }
    return true;
}

bool ReadScan(Segment segment, const std::uint8_t (&ids)[kMostComponents], LosslessHeader& header) {
    if (segment.size() < 4 + 2 * std::size_t{header.components} || segment[0] != header.components)
        return false;
    for (std::uint32_t i = 0; i < header.components; ++i) {
        header.tableOf[i] = segment[2 + 2 * i] >> 4;
        if (segment[1 + 2 * i] != ids[i] || header.tableOf[i] >= kMostComponents) return false;
    }
    const Segment rest = segment.subspan(1 + 2 * std::size_t{header.components});
    header.predictor = rest[0];
    header.pointTransform = rest[2] & 15;
    return header.pointTransform < header.precision;
}

bool IsReadable(const LosslessHeader& header, const LosslessOptions& options,
                const HuffmanTable (&tables)[kMostComponents]) {
    for (std::uint32_t i = 0; i < header.components; ++i)
        if (!tables[header.tableOf[i]].isValid) return false;
    if (options.pairedWords) return header.predictor == 8 && header.components == 1;
    return header.predictor >= 1 && header.predictor <= 7;
}

}  // namespace

bool ReadLosslessHeader(std::span<const std::uint8_t> stream, const LosslessOptions& options,
                        LosslessHeader& header, HuffmanTable (&tables)[kMostComponents]) {
    header = {};
    for (HuffmanTable& table : tables) table.isValid = false;
    if (stream.size() < 2 || stream[0] != 0xFF || stream[1] != kStart) return false;
    std::uint8_t ids[kMostComponents] = {};
    std::size_t at = 2;
    while (stream.size() - at >= 4) {
        const std::uint8_t marker = stream[at + 1];
        if (stream[at] != 0xFF || marker == kEnd) return false;
        if (marker == 0xFF) {  // fill byte
            ++at;
            continue;
        }
        const std::size_t length = Word(stream, at + 2);
        if (length < 2 || length > stream.size() - at - 2) return false;
        const Segment segment = stream.subspan(at + 4, length - 2);
        at += 2 + length;
        if (marker == kHuffman && !ReadTables(segment, options.longCategory16, tables))
            return false;
        if (marker == kFrame && !ReadFrame(segment, header, ids)) return false;
        if (marker == kRestartInterval && segment.size() >= 2)
            header.restartInterval = Word(segment, 0);
        if (marker != kScan) continue;
        header.scanStart = at;
        return header.components != 0 && ReadScan(segment, ids, header) &&
               IsReadable(header, options, tables);
    }
    return false;
}

}  // namespace qmx
