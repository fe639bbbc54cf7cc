#include "parse/containers/x3f_image.h"

#include <cstring>
#include <span>

#include "parse/containers/x3f_codes.h"
#include "parse/core/bitmap.h"
#include "parse/core/cursor.h"
#include "parse/core/jpeg.h"
#include "parse/core/output_stream.h"
#include "parse/core/preview.h"

namespace qmx {
namespace {

using Data = std::span<const std::uint8_t>;

constexpr std::uint32_t kRowOffsetBytes = 4;

// Empty when the file ends before.
Data DataOf(ParseContext& ctx, const X3fImage& image) {
    SeekTo(ctx, static_cast<std::int32_t>(image.position));
    return BytesLeft(ctx) < image.length ? Data{} : Data{ctx.cursor, image.length};
}

bool WriteJpeg(ParseContext& ctx, const X3fImage& image) {
    const Data data = DataOf(ctx, image);
    if (data.size() < 2 || data[0] != 0xFF || data[1] != kJpegSoi) return false;
    return WriteEmbeddedJpeg(ctx, image.position, image.length, true);
}

std::uint8_t* BottomUpRow(const BitmapLayout& layout, std::uint8_t* rows, std::uint32_t fromTop) {
    return rows +
           std::size_t{static_cast<std::uint32_t>(layout.height) - 1 - fromTop} * layout.rowBytes;
}

std::uint64_t RowBytesOf(const X3fImage& image) {
    return image.rowBytes != 0 ? image.rowBytes : std::uint64_t{3} * image.columns;
}

bool HasPlainRows(const X3fImage& image, Data data) {
    const std::uint64_t pixels = std::uint64_t{3} * image.columns;
    const std::uint64_t rowBytes = RowBytesOf(image);
    return rowBytes >= pixels && data.size() >= rowBytes * (image.rows - 1) + pixels;
}

void FillPlainRows(const X3fImage& image, Data data, const BitmapLayout& layout,
                   std::uint8_t* rows) {
    const BitmapLayout oneRow = {layout.width, 1, layout.rowBytes, layout.rowBytes};
    const std::size_t rowBytes = static_cast<std::size_t>(RowBytesOf(image));
    for (std::uint32_t y = 0; y < image.rows; ++y)
        FillRgbRows(oneRow, data.data() + y * rowBytes, nullptr, BottomUpRow(layout, rows, y));
}

// The code table, the coded rows, an offset for each of them.  A sample takes a bit at least, so
// that no more memory is asked for than the file's bytes are worth.
bool HasCodedRows(const X3fImage& image, Data data) {
    const std::uint64_t around = kX3fCodeTableBytes + std::uint64_t{kRowOffsetBytes} * image.rows;
    return data.size() > around && (data.size() - around) * 8 >= AreaOf(image) * 3;
}

bool FillCodedRow(const X3fCodes& codes, X3fBits& bits, std::uint32_t columns, std::uint8_t* out) {
    std::uint8_t sample[3] = {};  // red, green, blue
    for (std::uint32_t x = 0; x < columns; ++x, out += 3) {
        for (int channel = 0; channel < 3; ++channel) {
            const int difference = codes.Next(bits);
            if (difference < 0) return false;
            sample[channel] = static_cast<std::uint8_t>(sample[channel] + difference);
            out[2 - channel] = sample[channel];
        }
    }
    return true;
}

// Rows follow each other: together they read no more bits than there are.
bool FillCodedRows(const X3fImage& image, Data data, const BitmapLayout& layout,
                   std::uint8_t* rows) {
    X3fCodes codes;
    if (!codes.Read(data.first<kX3fCodeTableBytes>())) return false;
    const Data offsets = data.last(std::size_t{kRowOffsetBytes} * image.rows);
    const Data coded =
        data.subspan(kX3fCodeTableBytes, data.size() - kX3fCodeTableBytes - offsets.size());
    std::uint64_t bitsLeft = std::uint64_t{coded.size()} * 8;
    for (std::uint32_t y = 0; y < image.rows; ++y) {
        const std::uint32_t offset = LoadU32(offsets.data() + std::size_t{kRowOffsetBytes} * y);
        if (offset > coded.size()) return false;
        X3fBits bits(coded.subspan(offset));
        if (!FillCodedRow(codes, bits, image.columns, BottomUpRow(layout, rows, y))) return false;
        if (bits.BitsRead() > bitsLeft) return false;
        bitsLeft -= bits.BitsRead();
    }
    return true;
}

bool WriteBitmap(ParseContext& ctx, const X3fImage& image) {
    const bool coded = image.format == kX3fCoded && image.rowBytes == 0;
    const Data data = DataOf(ctx, image);
    BitmapLayout layout;
    if (!LayOutBitmap(static_cast<std::int32_t>(image.columns),
                      static_cast<std::int32_t>(image.rows), layout) ||
        !(coded ? HasCodedRows(image, data) : HasPlainRows(image, data)))
        return false;

    const std::uint32_t fileBytes = kBitmapHeaderBytes + layout.imageBytes;
    std::uint8_t* file = AllocateWorkBuffer(ctx, fileBytes);
    if (file == nullptr) return false;
    FillBitmapHeader(layout, file);
    std::uint8_t* rows = file + kBitmapHeaderBytes;
    std::memset(rows, 0, layout.imageBytes);  // the padding
    if (!coded) FillPlainRows(image, data, layout, rows);
    const bool whole = !coded || FillCodedRows(image, data, layout, rows);
    if (whole) {
        RewindStream(ctx);
        WriteToStream(ctx, file, fileBytes);
    }
    FreeWorkBuffer(ctx);
    return whole;
}

}  // namespace

bool WriteX3fImage(ParseContext& ctx, const X3fImage& image) {
    return image.format == kX3fJpeg ? WriteJpeg(ctx, image) : WriteBitmap(ctx, image);
}

}  // namespace qmx
