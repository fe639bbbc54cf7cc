#pragma once
// The rows of a strip or tile out of its stream of lossless JPEG.

#include "rawdev/lossless_jpeg.h"

namespace qmx {

class LosslessRows {
public:
    // Reads the header of a stream that holds `height` rows of `width` samples.  False when it
    // cannot be decoded.
    bool Open(std::span<const std::uint8_t> stream, const LosslessOptions& options,
              std::uint64_t width, std::uint32_t height);
    const LosslessHeader& Header() const { return decoder_.Header(); }

    // Gives the decoder the room of two lines, zeroed or not.
    void Start(std::uint16_t* lines);

    // The first `count` samples of the next row; 0 where the stream ends early or is broken.
    void Take(std::uint16_t* dst, std::uint32_t count);

    // Bytes of the scan that have been decoded.
    std::size_t BytesRead() const { return decoder_.BytesRead(); }

private:
    void TakeOfSquares(std::uint16_t* dst, std::uint32_t count);

    LosslessJpeg decoder_;
    std::uint64_t width_;
    bool inSquares_;             // each unit is 2 x 2 cells
    bool isLower_;               // the next row is the second one of its squares
    const std::uint16_t* line_;  // of squares; null behind the stream's end
};

}  // namespace qmx
