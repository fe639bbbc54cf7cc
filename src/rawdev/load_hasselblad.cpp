// The lossless code of Hasselblad's 3FR files: the header is that of lossless JPEG, the data are
// pairs of neighbouring samples in 32-bit little-endian words.

#include <cstring>

#include "rawdev/cell_sink.h"
#include "rawdev/loaders.h"
#include "rawdev/lossless_jpeg.h"

namespace qmx {
namespace {

// Bits from the top of each word; zeros behind the end.
class WordBits {
public:
    explicit WordBits(std::span<const std::uint8_t> data) : data_(data) {}

    // At most 16 bits.
    std::uint32_t Peek(std::uint32_t count) {
        if (held_ < 32) Refill();
        return count == 0 ? 0 : static_cast<std::uint32_t>(buffer_ >> (64 - count));
    }
    void Skip(std::uint32_t count) {
        buffer_ <<= count;
        held_ -= count;
    }
    bool IsExhausted() const { return fed_ > 128; }

private:
    void Refill() {
        std::uint64_t word = 0;
        if (data_.size() >= 4) {
            word = std::uint64_t{data_[3]} << 24 | std::uint64_t{data_[2]} << 16 |
                   std::uint64_t{data_[1]} << 8 | data_[0];
            data_ = data_.subspan(4);
        } else {
            fed_ += 32;
        }
        buffer_ |= word << (32 - held_);
        held_ += 32;
    }

    std::span<const std::uint8_t> data_;
    std::uint64_t buffer_ = 0;  // the next bit on top
    std::uint32_t held_ = 0;
    std::uint32_t fed_ = 0;
};

bool TakeCategory(WordBits& bits, const HuffmanTable& table, std::uint32_t& category) {
    const std::uint32_t top = bits.Peek(kLongestCode);
    const HuffmanTable::Entry entry = table.fast[top >> (kLongestCode - kFastBits)];
    HuffmanTable::Code code = {entry.code, entry.category};
    if (code.length == 0) code = table.Find(top);
    category = code.category;
    bits.Skip(code.length);
    return code.length != 0;
}

std::int32_t TakeDifference(WordBits& bits, std::uint32_t category) {
    const std::uint32_t raw = bits.Peek(category);
    bits.Skip(category);
    // Deliberate: 16 bits of ones stand for the difference that has no other code.
    if (category == 16 && raw == 0xFFFF) return -32768;
    return ExtendDifference(raw, category);
}

// Each parity of columns follows its own left neighbour.  False when the data are broken.
bool DecodeRow(WordBits& bits, const HuffmanTable& table, std::uint32_t precision,
               std::uint32_t count, std::uint16_t* row) {
    const auto middle = static_cast<std::uint16_t>(1u << (precision - 1));
    std::uint16_t predictors[2] = {middle, middle};
    for (std::uint32_t x = 0; x < count; x += 2) {
        std::uint32_t categories[2];
        for (std::uint32_t& category : categories)
            if (!TakeCategory(bits, table, category) || bits.IsExhausted()) return false;
        for (std::uint32_t i = 0; i < 2; ++i) {
            const std::int32_t sample = predictors[i] + TakeDifference(bits, categories[i]);
            predictors[i] = static_cast<std::uint16_t>(sample);
            if (x + i < count) row[x + i] = predictors[i];
        }
    }
    return true;
}

struct HasselbladStream {
    LosslessHeader header;
    HuffmanTable tables[kMostComponents];
};

bool LoadHasselblad(RawDecodeState& state, CellSink& sink) {
    const std::uint64_t there = state.file.BytesFrom(state.dataOffset);
    auto* stream = state.scratch.Take<HasselbladStream>(1);
    if (stream == nullptr || there == 0) return false;
    const std::span<const std::uint8_t> data(state.file.data + state.dataOffset,
                                             static_cast<std::size_t>(there));
    LosslessOptions options;
    options.pairedWords = true;
    LosslessHeader& header = stream->header;
    if (!ReadLosslessHeader(data, options, header, stream->tables)) return false;
    auto* line = state.scratch.Take<std::uint16_t>(header.width);
    if (line == nullptr) return false;

    WordBits bits(data.subspan(header.scanStart));
    const std::uint32_t count = SamplesPerRow(state);
    const std::uint32_t shared = std::min(count, header.width);
    bool sound = true;
    StreamRows(state, sink, true, [&](std::uint32_t, std::uint16_t* dst) {
        std::memset(dst, 0, count * sizeof *dst);
        if (!sound) return;
        std::memset(line, 0, header.width * sizeof *line);
        sound = DecodeRow(bits, stream->tables[header.tableOf[0]], header.precision, header.width,
                          line);
        std::memcpy(dst, line, shared * sizeof *dst);
    });
    return true;
}

}  // namespace

const Loader kHasselblad = {LoadHasselblad, nullptr, 0};

}  // namespace qmx
