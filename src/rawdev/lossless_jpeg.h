#pragma once
// Lossless JPEG (ITU-T T.81, Annexes B, F and H; process 14): the header, and the scan line by
// line.

#include <cstddef>
#include <cstdint>
#include <span>

#include "rawdev/huffman_table.h"

namespace qmx {

inline constexpr std::uint32_t kMostComponents = 4;

// A lossless frame of one scan.
struct LosslessHeader {
    std::uint32_t precision;  // bits
    std::uint32_t width;      // samples per component and line
    std::uint32_t height;
    std::uint32_t components;
    std::uint32_t tableOf[kMostComponents];
    std::uint32_t predictor;
    std::uint32_t pointTransform;
    std::uint32_t restartInterval;  // 0: none
    std::size_t scanStart;          // where the entropy-coded data begin

    std::uint32_t LineSamples() const { return width * components; }
};

struct LosslessOptions {
    bool pairedWords = false;     // the variant whose predictor is numbered 8
    bool longCategory16 = false;  // category 16 is followed by 16 bits that say nothing
};

// Reads the header and builds its tables.  False when it is not a lossless frame that can be read.
bool ReadLosslessHeader(std::span<const std::uint8_t> stream, const LosslessOptions& options,
                        LosslessHeader& header, HuffmanTable (&tables)[kMostComponents]);

// The bits of entropy-coded data.  A marker or the end is followed by zero bits.
class JpegBits {
public:
    void Start(std::span<const std::uint8_t> data);

    // Makes at least 32 bits ready.
    void Refill() {
        if (end_ - next_ >= 8) {
            const std::uint64_t word = LoadBigEndian(next_);
            if (!HoldsMarkerByte(word)) {
                // Whole bytes count as held; bits beyond them are read again by the next refill.
                buffer_ |= word >> held_;
                const std::uint32_t bytes = (63 - held_) >> 3;
                next_ += bytes;
                held_ += bytes * 8;
                return;
            }
        }
        RefillSlowly();
    }
    std::uint32_t Peek(std::uint32_t count) const {
        return static_cast<std::uint32_t>(buffer_ >> (64 - count));
    }
    void Skip(std::uint32_t count) {
        buffer_ <<= count;
        held_ -= count;
    }
    bool NeedsRefill() const { return held_ < 32; }

    // More bits were asked for than the data can have held.
    bool IsExhausted() const { return fed_ > kMostFedBits; }

    // Where the next refill reads.
    const std::uint8_t* Next() const { return next_; }

    // Drops the rest of the byte and passes the restart marker.  False when there is none.
    bool PassRestart();

private:
    static constexpr std::uint32_t kMostFedBits = 128;  // 64 that count, 64 that wait in the buffer

    // The first byte on top.
    static std::uint64_t LoadBigEndian(const std::uint8_t* p) {
        return std::uint64_t{p[0]} << 56 | std::uint64_t{p[1]} << 48 | std::uint64_t{p[2]} << 40 |
               std::uint64_t{p[3]} << 32 | std::uint64_t{p[4]} << 24 | std::uint64_t{p[5]} << 16 |
               std::uint64_t{p[6]} << 8 | p[7];
    }
    // A byte of all ones anywhere in the word.
    static bool HoldsMarkerByte(std::uint64_t word) {
        constexpr std::uint64_t kOnes = 0x0101010101010101;
        return ((~word - kOnes) & word & (kOnes << 7)) != 0;
    }

    void RefillSlowly();

    const std::uint8_t* next_;
    const std::uint8_t* end_;
    std::uint64_t buffer_;  // the next bit on top
    std::uint32_t held_;
    std::uint32_t fed_;
};

class LosslessJpeg {
public:
    // Reads the header.  False when the stream cannot be decoded.
    bool Open(std::span<const std::uint8_t> stream, const LosslessOptions& options);
    const LosslessHeader& Header() const { return header_; }

    // Gives the decoder the room of two lines, zeroed or not.
    void Start(std::uint16_t* lines);

    // The next samples of the scan, line by line and component by component; 0 where the stream
    // ends early or is broken.
    void Take(std::uint16_t* dst, std::size_t count);

    // Passes over samples; no work once the stream has ended.
    void Skip(std::uint64_t count);

    // The next whole line before the point transform; null once the stream has ended.
    const std::uint16_t* NextLine();

    // Bytes of the scan that have been decoded.
    std::size_t BytesRead() const {
        return static_cast<std::size_t>(bits_.Next() - stream_.data()) - header_.scanStart;
    }

private:
    void DecodeLine();
    std::uint32_t DecodeDifferences(std::uint32_t from, std::uint32_t to);
    bool DecodeDifference(JpegBits& bits, const HuffmanTable& table, std::uint16_t& difference);
    void Predict(std::uint32_t from, std::uint32_t to, bool startsInterval);
    void PredictFromLeft(std::uint32_t from, std::uint32_t to, bool isInitial);

    std::span<const std::uint8_t> stream_;
    LosslessOptions options_;
    LosslessHeader header_;
    HuffmanTable tables_[kMostComponents];
    JpegBits bits_;
    std::uint16_t* line_;
    std::uint16_t* above_;
    std::uint32_t taken_;  // samples of the line that are gone
    std::uint32_t linesDecoded_;
    std::uint32_t unitsToRestart_;  // of one sample per component
    bool isFirstLine_;              // of the interval
    bool isOver_;
};

}  // namespace qmx
