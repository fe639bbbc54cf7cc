#include "rawdev/lossless_jpeg.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace qmx {
namespace {

std::uint16_t Modulo16(std::int32_t value) { return static_cast<std::uint16_t>(value); }

// T.81 table H.1; predictor 1 is the left neighbour.
template <int Predictor>
std::int32_t PredictFrom(std::int32_t left, std::int32_t above, std::int32_t aboveLeft) {
    switch (Predictor) {
        case 2: return above;
        case 3: return aboveLeft;
        case 4: return left + above - aboveLeft;
        case 5: return left + ((above - aboveLeft) >> 1);
        case 6: return above + ((left - aboveLeft) >> 1);
        case 7: return (left + above) >> 1;
        default: return left;
    }
}

// Replaces differences by samples; `from` is not the line's first sample.
template <int Predictor>
void PredictSamples(std::uint16_t* line, const std::uint16_t* above, std::uint32_t from,
                    std::uint32_t to, std::uint32_t components) {
    for (std::uint32_t i = from; i < to; ++i) {
        const std::int32_t prediction =
            PredictFrom<Predictor>(line[i - components], above[i], above[i - components]);
        line[i] = Modulo16(line[i] + prediction);
    }
}

}  // namespace

void JpegBits::Start(std::span<const std::uint8_t> data) {
    next_ = data.data();
    end_ = next_ + data.size();
    buffer_ = 0;
    held_ = 0;
    fed_ = 0;
}

void JpegBits::RefillSlowly() {
    // A fast refill may have left bits below those that count.
    buffer_ = held_ == 0 ? 0 : buffer_ >> (64 - held_) << (64 - held_);
    while (held_ <= 56) {
        std::uint64_t byte = 0;
        const bool isMarker =
            next_ == end_ || (next_[0] == 0xFF && (end_ - next_ < 2 || next_[1] != 0));
        if (isMarker) {
            fed_ += 8;
        } else {
            byte = next_[0];
            next_ += byte == 0xFF ? 2 : 1;
        }
        buffer_ |= byte << (56 - held_);
        held_ += 8;
    }
}

bool JpegBits::PassRestart() {
    // Bytes that were taken into the buffer ahead of time lie before the marker: it stops refills.
    while (end_ - next_ >= 2) {
        if (next_[0] == 0xFF && next_[1] >= 0xD0 && next_[1] <= 0xD7) {
            next_ += 2;
            buffer_ = 0;
            held_ = 0;
            fed_ = 0;
            return true;
        }
        if (next_[0] == 0xFF && next_[1] != 0 && next_[1] != 0xFF) return false;
        ++next_;
    }
    return false;
}

bool LosslessJpeg::Open(std::span<const std::uint8_t> stream, const LosslessOptions& options) {
    stream_ = stream;
    options_ = options;
    return ReadLosslessHeader(stream, options, header_, tables_);
}

void LosslessJpeg::Start(std::uint16_t* lines) {
    line_ = lines;
    above_ = lines + header_.LineSamples();
    bits_.Start(stream_.subspan(header_.scanStart));
    taken_ = header_.LineSamples();
    linesDecoded_ = 0;
    unitsToRestart_ = header_.restartInterval;
    isFirstLine_ = true;
    isOver_ = false;
}

void LosslessJpeg::Take(std::uint16_t* dst, std::size_t count) {
    const std::uint32_t lineSamples = header_.LineSamples();
    while (count != 0) {
        if (taken_ == lineSamples && isOver_) {
            std::memset(dst, 0, count * sizeof *dst);
            return;
        }
        if (taken_ == lineSamples) DecodeLine();
        const std::size_t run = std::min<std::size_t>(count, lineSamples - taken_);
        const std::uint16_t* src = line_ + taken_;
        if (header_.pointTransform == 0) {
            std::memcpy(dst, src, run * sizeof *dst);
        } else {
            for (std::size_t i = 0; i < run; ++i)
                dst[i] = Modulo16(src[i] << header_.pointTransform);
        }
        dst += run;
        count -= run;
        taken_ += static_cast<std::uint32_t>(run);
    }
}

void LosslessJpeg::Skip(std::uint64_t count) {
    const std::uint32_t lineSamples = header_.LineSamples();
    while (count != 0) {
        if (taken_ == lineSamples && isOver_) return;
        if (taken_ == lineSamples) DecodeLine();
        const std::uint64_t run = std::min<std::uint64_t>(count, lineSamples - taken_);
        count -= run;
        taken_ += static_cast<std::uint32_t>(run);
    }
}

const std::uint16_t* LosslessJpeg::NextLine() {
    if (isOver_) return nullptr;
    DecodeLine();
    taken_ = header_.LineSamples();
    return line_;
}

void LosslessJpeg::DecodeLine() {
    std::swap(line_, above_);
    taken_ = 0;
    std::uint32_t done = 0;
    bool restarted = false;
    if (linesDecoded_++ >= header_.height) isOver_ = true;
    while (done < header_.width && !isOver_) {
        if (header_.restartInterval != 0 && unitsToRestart_ == 0) {
            isOver_ = !bits_.PassRestart();
            if (isOver_) break;
            unitsToRestart_ = header_.restartInterval;
            restarted = true;
            isFirstLine_ = true;
        }
        std::uint32_t run = header_.width - done;
        if (header_.restartInterval != 0) run = std::min(run, unitsToRestart_);
        const std::uint32_t decoded = DecodeDifferences(done, done + run);
        Predict(done, done + decoded, restarted || (isFirstLine_ && done == 0));
        isOver_ = decoded < run;
        done += decoded;
        if (header_.restartInterval != 0) unitsToRestart_ -= decoded;
        restarted = false;
    }
    isFirstLine_ = false;
    const std::size_t decodedSamples = std::size_t{done} * header_.components;
    std::memset(line_ + decodedSamples, 0,
                (header_.LineSamples() - decodedSamples) * sizeof *line_);
}

// Differences of whole units into the line; how many there were.
std::uint32_t LosslessJpeg::DecodeDifferences(std::uint32_t from, std::uint32_t to) {
    const std::uint32_t components = header_.components;
    const HuffmanTable* tables[kMostComponents] = {};
    for (std::uint32_t c = 0; c < components; ++c) tables[c] = &tables_[header_.tableOf[c]];
    JpegBits bits = bits_;
    std::uint16_t* dst = line_ + std::size_t{from} * components;
    std::uint32_t unit = from;
    for (; unit < to; ++unit) {
        for (std::uint32_t c = 0; c < components; ++c) {
            if (bits.NeedsRefill()) bits.Refill();
            const HuffmanTable::Entry entry = tables[c]->fast[bits.Peek(kFastBits)];
            if (entry.used != 0) {
                bits.Skip(entry.used);
                *dst++ = static_cast<std::uint16_t>(entry.difference);
            } else if (!DecodeDifference(bits, *tables[c], *dst++)) {
                bits_ = bits;
                return unit - from;
            }
        }
        if (bits.IsExhausted()) break;
    }
    bits_ = bits;
    return unit - from;
}

bool LosslessJpeg::DecodeDifference(JpegBits& bits, const HuffmanTable& table,
                                    std::uint16_t& difference) {
    const HuffmanTable::Code code = table.Find(bits.Peek(kLongestCode));
    if (code.length == 0) return false;
    bits.Skip(code.length);
    if (code.category == 16) {
        difference = 0x8000;
        if (options_.longCategory16) {
            bits.Refill();
            bits.Skip(16);
        }
        return true;
    }
    const std::uint32_t raw = code.category == 0 ? 0 : bits.Peek(code.category);
    bits.Skip(code.category);
    difference = Modulo16(ExtendDifference(raw, code.category));
    return true;
}

// The samples of units from..to.  The first unit of an interval starts from the middle of the
// range, the first line of one goes on from the left alone.
void LosslessJpeg::Predict(std::uint32_t from, std::uint32_t to, bool startsInterval) {
    if (from == to) return;
    const std::uint32_t components = header_.components;
    if (isFirstLine_) return PredictFromLeft(from, to, startsInterval);
    std::uint32_t first = from * components;
    const std::uint32_t last = to * components;
    if (from == 0) {
        for (; first < components; ++first) line_[first] = Modulo16(line_[first] + above_[first]);
    }
    switch (header_.predictor) {
        case 2: return PredictSamples<2>(line_, above_, first, last, components);
        case 3: return PredictSamples<3>(line_, above_, first, last, components);
        case 4: return PredictSamples<4>(line_, above_, first, last, components);
        case 5: return PredictSamples<5>(line_, above_, first, last, components);
        case 6: return PredictSamples<6>(line_, above_, first, last, components);
        case 7: return PredictSamples<7>(line_, above_, first, last, components);
        default: return PredictSamples<1>(line_, above_, first, last, components);
    }
}

void LosslessJpeg::PredictFromLeft(std::uint32_t from, std::uint32_t to, bool isInitial) {
    const std::uint32_t components = header_.components;
    std::uint32_t first = from * components;
    if (isInitial) {
        const std::int32_t middle = 1 << (header_.precision - header_.pointTransform - 1);
        for (const std::uint32_t end = first + components; first < end; ++first)
            line_[first] = Modulo16(line_[first] + middle);
    }
    PredictSamples<1>(line_, above_, first, to * components, components);
}

}  // namespace qmx
