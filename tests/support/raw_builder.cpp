#include "support/raw_builder.h"

#include <algorithm>
#include <cstdlib>

namespace qmx::test {
namespace {

class Noise {
public:
    explicit Noise(std::uint32_t seed) : state_(seed * 2654435761u + 12345) {}
    std::uint32_t Next() {
        state_ = state_ * 1664525u + 1013904223u;
        return state_ >> 8;
    }

private:
    std::uint32_t state_;
};

// Bits from the top of each byte; a byte of ones is followed by a zero byte where asked.
class BitWriter {
public:
    explicit BitWriter(bool stuffed) : stuffed_(stuffed) {}

    void Put(std::uint32_t value, std::uint32_t count) {
        for (std::uint32_t i = count; i-- > 0;) {
            current_ = static_cast<std::uint8_t>(current_ * 2u + (value >> i & 1));
            if (++held_ == 8) Flush();
        }
    }
    // Fills the byte up with `bit`.
    void Align(std::uint32_t bit) {
        while (held_ != 0) Put(bit, 1);
    }
    Bytes bytes;

private:
    void Flush() {
        bytes.push_back(current_);
        if (stuffed_ && current_ == 0xFF) bytes.push_back(0);
        current_ = 0;
        held_ = 0;
    }

    bool stuffed_;
    std::uint8_t current_ = 0;
    std::uint32_t held_ = 0;
};

std::uint32_t CategoryOf(std::int32_t difference) {
    std::uint32_t category = 0;
    for (std::int32_t rest = std::abs(difference); rest != 0; rest >>= 1) ++category;
    return category;
}

// Every category has a code: six of 3 bits, then lengths that grow to 13 bits.
struct CodeBook {
    std::vector<std::uint32_t> order = {4, 3, 5, 2, 6, 1, 0, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    std::vector<std::uint8_t> counts = {0, 0, 6, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2, 0, 0, 0};

    void Put(BitWriter& bits, std::uint32_t category) const {
        std::uint32_t code = 0;
        std::size_t index = 0;
        for (std::uint32_t length = 1; length <= 16; ++length) {
            code <<= 1;
            for (int i = 0; i < counts[length - 1]; ++i, ++index, ++code)
                if (order[index] == category) return bits.Put(code, length);
        }
        std::abort();
    }
    Bytes Table(std::uint32_t id) const {
        Bytes table = {static_cast<std::uint8_t>(id)};
        table.insert(table.end(), counts.begin(), counts.end());
        for (const std::uint32_t category : order)
            table.push_back(static_cast<std::uint8_t>(category));
        return table;
    }
};

void PutRaw(BitWriter& bits, std::int32_t difference, std::uint32_t category) {
    const std::int32_t raw = difference >= 0 ? difference : difference + (1 << category) - 1;
    bits.Put(static_cast<std::uint32_t>(raw), category);
}

// Two rows side by side, in squares of 2 x 2 samples.
Samples InSquares(const Samples& samples) {
    Samples squares = {2 * samples.width, samples.height / 2, {}};
    for (std::uint32_t y = 0; y < samples.height; y += 2)
        for (std::uint32_t i = 0; i < squares.width; ++i)
            squares.values.push_back(samples.At(y + i / 2 % 2, i / 4 * 2 + i % 2));
    return squares;
}

// Into -32768..32767, modulo 2^16.
std::int32_t Wrap(std::int32_t difference) {
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(difference));
}

void PutDifference(BitWriter& bits, const CodeBook& book, std::int32_t difference,
                   bool longCategory16) {
    if (difference == -32768) {
        book.Put(bits, 16);
        if (longCategory16) bits.Put(0xA5C3, 16);
        return;
    }
    const std::uint32_t category = CategoryOf(difference);
    book.Put(bits, category);
    PutRaw(bits, difference, category);
}

std::int32_t PredictorOf(std::uint32_t number, std::int32_t a, std::int32_t b, std::int32_t c) {
    switch (number) {
        case 1: return a;
        case 2: return b;
        case 3: return c;
        case 4: return a + b - c;
        case 5: return a + ((b - c) >> 1);
        case 6: return b + ((a - c) >> 1);
        default: return (a + b) >> 1;
    }
}

Bytes JpegHeader(const JpegForm& form, std::uint32_t width, std::uint32_t height,
                 std::uint32_t predictor) {
    ByteWriter frame(Order::kBig);
    frame.U8(form.precision).U16(height).U16(width).U8(form.components);
    ByteWriter scan(Order::kBig);
    scan.U8(form.components);
    Bytes stream = {0xFF, 0xD8};
    for (std::uint32_t c = 0; c < form.components; ++c) {
        frame.U8(c).U8(0x11).U8(0);
        scan.U8(c).U8(c % 2 << 4);
    }
    scan.U8(predictor).U8(0).U8(form.pointTransform);
    const CodeBook book;
    stream = stream + Segment(0xC4, book.Table(0) + book.Table(1)) + Segment(0xC3, frame.bytes);
    if (form.restartUnits != 0)
        stream = stream + Segment(0xDD, ByteWriter(Order::kBig).U16(form.restartUnits).bytes);
    return stream + Segment(0xDA, scan.bytes);
}

// The 128 bits of one group, from the top.
class GroupWriter {
public:
    void Put(std::uint32_t value, std::uint32_t count) { bits_.Put(value, count); }
    void AppendTo(Bytes& out) {
        bits_.Align(0);
        bits_.bytes.resize(16);
        out.insert(out.end(), bits_.bytes.rbegin(), bits_.bytes.rend());
    }

private:
    BitWriter bits_{false};
};

// What a predictor becomes with a delta; the encoder tries them.
std::int32_t Step(std::int32_t predictor, std::uint32_t shift, std::int32_t delta) {
    if (delta == 0) return predictor;
    std::int32_t base = predictor - (128 << shift);
    if (base < 0 || shift == 4) base &= (1 << shift) - 1;
    return base + (delta << shift);
}

std::int32_t BestDelta(std::int32_t predictor, std::uint32_t shift, std::int32_t wanted) {
    std::int32_t best = 0;
    for (std::int32_t delta = 0; delta < 256; ++delta) {
        const std::int32_t there = Step(predictor, shift, delta);
        const std::int32_t reached = std::abs(Step(predictor, shift, best) - wanted);
        if (there <= 4095 && std::abs(there - wanted) < reached) best = delta;
    }
    return best;
}

void WriteGroup(std::uint16_t* samples, GroupWriter& out) {
    constexpr std::uint32_t kShifts[] = {0, 1, 2, 4};
    std::int32_t predictors[2] = {};
    bool started[2] = {};
    std::uint32_t shift = 0;
    for (std::uint32_t p = 0; p < 14; ++p) {
        if (p % 3 == 2) {
            // The finest step that brings all three near.
            std::uint32_t code = 0;
            for (; code < 3; ++code) {
                bool fits = true;
                for (std::uint32_t i = p; i < std::min(p + 3, 14u); ++i)
                    fits &= std::abs(samples[i] - predictors[i & 1]) < (50 << kShifts[code]);
                if (fits) break;
            }
            out.Put(code, 2);
            shift = kShifts[code];
        }
        std::int32_t& predictor = predictors[p & 1];
        if (!started[p & 1]) {
            const std::uint32_t high = samples[p] >> 4;
            out.Put(high, 8);
            started[p & 1] = high != 0;
            if (high != 0 || p >= 12) {
                out.Put(samples[p] & 15, 4);
                predictor = samples[p];
            }
        } else {
            const std::int32_t delta = BestDelta(predictor, shift, samples[p]);
            out.Put(static_cast<std::uint32_t>(delta), 8);
            predictor = Step(predictor, shift, delta);
        }
        samples[p] = static_cast<std::uint16_t>(predictor);
    }
}

}  // namespace

Samples Samples::Cut(std::uint32_t top, std::uint32_t left, std::uint32_t rows,
                     std::uint32_t columns) const {
    Samples cut = {columns, rows, {}};
    for (std::uint32_t row = top; row < top + rows; ++row)
        for (std::uint32_t column = left; column < left + columns; ++column)
            cut.values.push_back(row < height && column < width ? At(row, column) : 0);
    return cut;
}

Samples NoiseSamples(std::uint32_t width, std::uint32_t height, std::uint32_t bits,
                     std::uint32_t seed) {
    Samples samples = {width, height, {}};
    Noise noise(seed);
    for (std::uint32_t i = 0; i < width * height; ++i)
        samples.values.push_back(static_cast<std::uint16_t>(noise.Next() & ((1u << bits) - 1)));
    return samples;
}

Samples SmoothSamples(std::uint32_t width, std::uint32_t height, std::uint32_t bits,
                      std::uint32_t seed) {
    Samples samples = {width, height, {}};
    Noise noise(seed);
    const std::uint32_t top = (1u << bits) - 1;
    for (std::uint32_t row = 0; row < height; ++row) {
        for (std::uint32_t column = 0; column < width; ++column) {
            const std::uint32_t slope = (row * 3 + column * 2) % (top / 2 + 1);
            const std::uint32_t parity = (row % 2 + column % 2 * 2) * (top / 16);
            const std::uint32_t value =
                top / 8 + slope / 2 + parity + noise.Next() % (top / 128 + 2);
            samples.values.push_back(static_cast<std::uint16_t>(std::min(value, top)));
        }
    }
    return samples;
}

Bytes PackBits(const Samples& samples, std::uint32_t bits) {
    BitWriter out(false);
    for (std::uint32_t row = 0; row < samples.height; ++row) {
        for (std::uint32_t column = 0; column < samples.width; ++column)
            out.Put(samples.At(row, column), bits);
        out.Align(1);
    }
    return out.bytes;
}

Bytes PackPadded12(const Samples& samples) {
    Noise noise(7);
    Bytes out;
    for (std::uint32_t row = 0; row < samples.height; ++row) {
        BitWriter bits(false);
        for (std::uint32_t column = 0; column < samples.width; ++column) {
            bits.Put(samples.At(row, column), 12);
            if (column % 10 == 9) bits.Put(noise.Next() & 0xFF, 8);
        }
        bits.Align(1);
        bits.bytes.resize((samples.width * 3 + 1) / 2 + (samples.width + 2) / 10);
        out = std::move(out) + bits.bytes;
    }
    return out;
}

Bytes PackWords(const Samples& samples, Order order) {
    ByteWriter out(order);
    for (const std::uint16_t value : samples.values) out.U16(value);
    return out.bytes;
}

Bytes PackBlocks(Samples& samples) {
    Bytes out;
    for (std::uint32_t row = 0; row < samples.height; ++row) {
        for (std::uint32_t column = 0; column < samples.width; column += 14) {
            std::uint16_t group[14] = {};
            const std::uint32_t count = std::min(14u, samples.width - column);
            std::uint16_t* from = &samples.values[std::size_t{row} * samples.width + column];
            std::copy_n(from, count, group);
            GroupWriter writer;
            WriteGroup(group, writer);
            std::copy_n(group, count, from);
            writer.AppendTo(out);
        }
    }
    return out;
}

Bytes WriteLosslessJpeg(const Samples& samples, const JpegForm& form) {
    if (form.inSquares) {
        JpegForm linear = form;
        linear.inSquares = false;
        return WriteLosslessJpeg(InSquares(samples), linear);
    }
    const std::uint32_t lineSamples = samples.width * form.linesPerRow;
    const std::uint32_t n = form.components;
    const std::uint32_t width = lineSamples / n;
    const std::uint32_t height = samples.height / form.linesPerRow;
    const CodeBook book;
    BitWriter bits(true);
    Bytes scan;
    std::uint32_t units = 0;  // since the last restart
    std::uint32_t restarts = 0;
    bool firstLine = true;
    const auto at = [&](std::uint32_t y, std::uint32_t i) {
        return static_cast<std::int32_t>(samples.values[std::size_t{y} * lineSamples + i] >>
                                         form.pointTransform);
    };
    for (std::uint32_t y = 0; y < height; ++y) {
        for (std::uint32_t x = 0; x < width; ++x) {
            if (form.restartUnits != 0 && units == form.restartUnits) {
                bits.Align(1);
                scan = std::move(scan) + bits.bytes;
                scan.push_back(0xFF);
                scan.push_back(static_cast<std::uint8_t>(0xD0 + restarts++ % 8));
                bits = BitWriter(true);
                units = 0;
                firstLine = true;
            }
            for (std::uint32_t c = 0; c < n; ++c) {
                const std::uint32_t i = x * n + c;
                std::int32_t predicted = 0;
                if (firstLine) {
                    predicted =
                        units == 0 ? 1 << (form.precision - form.pointTransform - 1) : at(y, i - n);
                } else if (x == 0) {
                    predicted = at(y - 1, i);
                } else {
                    predicted =
                        PredictorOf(form.predictor, at(y, i - n), at(y - 1, i), at(y - 1, i - n));
                }
                PutDifference(bits, book, Wrap(at(y, i) - predicted), form.longCategory16);
            }
            ++units;
        }
        firstLine = false;
    }
    bits.Align(1);
    return JpegHeader(form, width, height, form.predictor) + scan + bits.bytes + Bytes{0xFF, 0xD9};
}

Bytes WritePairedJpeg(const Samples& samples, std::uint32_t precision) {
    const CodeBook book;
    BitWriter bits(false);
    for (std::uint32_t row = 0; row < samples.height; ++row) {
        std::int32_t left[2] = {1 << (precision - 1), 1 << (precision - 1)};
        for (std::uint32_t column = 0; column < samples.width; column += 2) {
            std::int32_t differences[2] = {};
            for (std::uint32_t i = 0; i < 2 && column + i < samples.width; ++i) {
                differences[i] = Wrap(samples.At(row, column + i) - left[i]);
                left[i] = samples.At(row, column + i);
            }
            // -32768 is the one difference of 16 bits; it is written as ones.
            for (const std::int32_t difference : differences)
                book.Put(bits, difference == -32768 ? 16 : CategoryOf(difference));
            for (const std::int32_t difference : differences) {
                if (difference == -32768) {
                    bits.Put(0xFFFF, 16);
                } else {
                    PutRaw(bits, difference, CategoryOf(difference));
                }
            }
        }
    }
    bits.Align(0);
    bits.bytes.resize((bits.bytes.size() + 3) / 4 * 4);
    for (std::size_t i = 0; i < bits.bytes.size(); i += 4)
        std::reverse(bits.bytes.begin() + static_cast<std::ptrdiff_t>(i),
                     bits.bytes.begin() + static_cast<std::ptrdiff_t>(i) + 4);
    JpegForm form;
    form.precision = precision;
    return JpegHeader(form, samples.width, samples.height, 8) + bits.bytes;
}

RawForm FormOf(std::uint32_t width, std::uint32_t height, std::uint32_t bits,
               std::uint32_t compression) {
    RawForm form;
    form.width = width;
    form.height = height;
    form.bits = bits;
    form.compression = compression;
    return form;
}

RawDecodeState StateOf(const Bytes& file) {
    RawDecodeState state;
    state.file.data = file.data();
    state.file.size = file.size();
    return state;
}

Bytes BuildRaw(const RawForm& form, const Bytes& data) {
    TiffBuilder tiff(form.order);
    IfdBuilder& ifd = tiff.Ifd();
    ifd.Long(256, {form.width}).Long(257, {form.height});
    if (form.bits != 0) ifd.Short(258, {form.bits});
    ifd.Short(259, {form.compression}).Short(277, {form.samplesPerPixel});
    if (!form.make.empty()) ifd.Ascii(271, form.make);
    if (!form.model.empty()) ifd.Ascii(272, form.model);
    ifd.Data(273, data).Long(279, {static_cast<std::uint32_t>(data.size())});
    if (form.more) form.more(tiff, ifd);
    return tiff.Build();
}

Bytes BuildDng(const DngForm& form, const Samples& samples,
               const std::function<Bytes(const Samples& tile)>& pack) {
    const std::uint32_t planes = form.samplesPerPixel;
    const std::uint32_t tileWidth = form.tileHeight != 0 ? form.tileWidth : form.width;
    const std::uint32_t tileHeight = form.tileHeight != 0  ? form.tileHeight
                                     : form.tileWidth != 0 ? form.tileWidth
                                                           : form.height;
    std::vector<Bytes> tiles;
    for (std::uint32_t top = 0; top < form.height; top += tileHeight) {
        // The last strip is as high as what is left; tiles are always whole.
        const std::uint32_t rows =
            form.tileHeight != 0 ? tileHeight : std::min(tileHeight, form.height - top);
        for (std::uint32_t left = 0; left < form.width; left += tileWidth)
            tiles.push_back(pack(samples.Cut(top, left * planes, rows, tileWidth * planes)));
    }

    // Twice: the data follow the directory, whose size the first time tells.
    const auto build = [&](std::uint32_t dataStart) {
        TiffBuilder tiff(form.order);
        IfdBuilder& ifd = tiff.Ifd();
        std::vector<std::uint32_t> offsets;
        std::vector<std::uint32_t> lengths;
        Bytes data;
        for (const Bytes& tile : tiles) {
            offsets.push_back(dataStart + static_cast<std::uint32_t>(data.size()));
            lengths.push_back(static_cast<std::uint32_t>(tile.size()));
            data = std::move(data) + tile;
        }
        ifd.Long(254, {0}).Long(256, {form.width}).Long(257, {form.height});
        ifd.Short(258, {form.bits}).Short(259, {form.compression});
        ifd.Short(262, {planes == 3 ? 34892u : 32803u}).Short(277, {planes});
        ifd.Ascii(271, form.make).Ascii(272, form.model);
        ifd.Byte(50706, {1, form.minorVersion, 0, 0});
        if (form.tileHeight != 0) {
            ifd.Long(322, {tileWidth}).Long(323, {tileHeight});
            ifd.Long(324, offsets).Long(325, lengths);
        } else {
            ifd.Long(273, offsets).Long(278, {tileHeight}).Long(279, lengths);
        }
        if (form.more) form.more(tiff, ifd);
        return tiff.Trailer(data).Build();
    };
    std::size_t dataBytes = 0;
    for (const Bytes& tile : tiles) dataBytes += tile.size();
    return build(static_cast<std::uint32_t>(build(0).size() - dataBytes));
}

}  // namespace qmx::test
