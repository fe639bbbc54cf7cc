#include "rawdev/bitmap_writer.h"

namespace qmx {
namespace {

constexpr std::uint32_t kFileHeaderBytes = 14;

void SeekToStart(IStream* stream) {
    LARGE_INTEGER start = {};
    stream->Seek(start, STREAM_SEEK_SET, nullptr);
}

}  // namespace

void WriteBitmap(const BitmapLayout& layout, const std::uint8_t* rows, IStream* stream) {
    std::uint8_t header[kBitmapHeaderBytes];
    FillBitmapHeader(layout, header);

    SeekToStart(stream);
    ULARGE_INTEGER size = {};
    size.QuadPart = std::uint64_t{layout.imageBytes} + kBitmapHeaderBytes;
    stream->SetSize(size);
    stream->Write(header, kFileHeaderBytes, nullptr);
    stream->Write(header + kFileHeaderBytes, kBitmapHeaderBytes - kFileHeaderBytes, nullptr);
    stream->Write(rows, layout.imageBytes, nullptr);
    SeekToStart(stream);
}

}  // namespace qmx
