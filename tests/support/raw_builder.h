#pragma once
// Builds raw files in memory: the packings and codes of their samples, and directories around them.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "rawdev/raw_decode_state.h"
#include "support/tiff_builder.h"

namespace qmx::test {

// Rows of samples; with several samples per pixel they stand side by side.
struct Samples {
    std::uint32_t width = 0;  // per row
    std::uint32_t height = 0;
    std::vector<std::uint16_t> values;

    std::uint16_t At(std::uint32_t row, std::uint32_t column) const {
        return values[std::size_t{row} * width + column];
    }
    // The columns from `left` of the rows from `top`; 0 beyond the edges.
    Samples Cut(std::uint32_t top, std::uint32_t left, std::uint32_t rows,
                std::uint32_t columns) const;
};

// Samples of all values below 2^bits without a visible order; the same for the same seed.
Samples NoiseSamples(std::uint32_t width, std::uint32_t height, std::uint32_t bits,
                     std::uint32_t seed = 1);

// Neighbours differ by little, as in a photo.
Samples SmoothSamples(std::uint32_t width, std::uint32_t height, std::uint32_t bits,
                      std::uint32_t seed = 1);

// Rows on byte boundaries, the first sample in the high bits.
Bytes PackBits(const Samples& samples, std::uint32_t bits);
// Ten 12-bit samples in 15 bytes and one of noise.
Bytes PackPadded12(const Samples& samples);
Bytes PackWords(const Samples& samples, Order order);
// Panasonic's block code of 12-bit samples, which `samples` is brought to the nearest of that the
// code can express.  Rows of any width.
Bytes PackBlocks(Samples& samples);

struct JpegForm {
    std::uint32_t precision = 12;
    std::uint32_t components = 1;
    std::uint32_t predictor = 1;
    std::uint32_t restartUnits = 0;  // 0: no restarts
    std::uint32_t pointTransform = 0;
    bool longCategory16 = false;    // 16 bits behind the code of category 16
    std::uint32_t linesPerRow = 1;  // rows of samples that make one line of the stream: 1 or more
    bool inSquares = false;         // units of four components are 2 x 2 samples
};
// A lossless JPEG whose scan holds the samples in their order.
Bytes WriteLosslessJpeg(const Samples& samples, const JpegForm& form);

// The paired code of Hasselblad's files.
Bytes WritePairedJpeg(const Samples& samples, std::uint32_t precision);

// A raw file of one directory.
struct RawForm {
    Order order = Order::kLittle;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t bits = 16;  // 0: no such tag
    std::uint32_t compression = 1;
    std::uint32_t samplesPerPixel = 1;
    std::string make = "ACME";
    std::string model = "One";
    std::function<void(TiffBuilder&, IfdBuilder&)> more = nullptr;  // further tags
};
RawForm FormOf(std::uint32_t width, std::uint32_t height, std::uint32_t bits = 16,
               std::uint32_t compression = 1);
Bytes BuildRaw(const RawForm& form, const Bytes& data);

// The start of a development of `file`, which must outlive it.
RawDecodeState StateOf(const Bytes& file);

// A DNG of one directory in tiles; a tile height of 0 makes strips of `tileWidth` rows.
struct DngForm : RawForm {
    std::uint32_t tileWidth = 0;  // 0: one strip
    std::uint32_t tileHeight = 0;
    std::uint32_t minorVersion = 4;
};
Bytes BuildDng(const DngForm& form, const Samples& samples,
               const std::function<Bytes(const Samples& tile)>& pack);

}  // namespace qmx::test
