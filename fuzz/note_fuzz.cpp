// The MakerNote of one maker, QMX_FUZZ_MAKER, and the texts made of it.  The input's first bytes
// say how the note is entered, the rest is the TIFF structure that it stands in.

#include "makernote/dispatch.h"
#include "parse/core/preview.h"
#include "promises.h"

namespace {

using namespace qmx;

// Byte order, which picture is wanted, the model's number, the note's position.
constexpr std::size_t kHeadBytes = 6;

void DecodeOnce(const std::uint8_t* data, std::size_t size, IStream* stream) {
    const bool isBigEndian = (data[0] & 1) != 0;
    const test::Bytes file(data + kHeadBytes, data + size);
    test::BytesContext context(file, isBigEndian ? kBigEndian : kLittleEndian);
    ParseContext& ctx = context.ctx;
    ctx.outStream = stream;
    ctx.wantPrimary = data[1] & 1;
    ctx.info.makerId = QMX_FUZZ_MAKER;
    ctx.info.modelId = data[2] | data[3] << 8;
    ctx.info.cameraMake[0] = ctx.info.cameraModel[0] = '?';
    SeekTo(ctx, data[4] | data[5] << 8);
    ParseMakerNote(ctx, 0);
    fuzz::CheckCursor(ctx);
    fuzz::Check(ctx.tiffBase == 0 && ctx.info.makerId == QMX_FUZZ_MAKER);
    DeliverImage(ctx);
    ctx.imageRecords.Clear();
    fuzz::WordRecord(ctx.info);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < kHeadBytes) return 0;
    test::MemoryStream stream;
    DecodeOnce(data, size, &stream);
    fuzz::Check(stream.bytes.size() <= fuzz::MostPictureBytes(size));
    DecodeOnce(data, size, nullptr);
    return 0;
}
