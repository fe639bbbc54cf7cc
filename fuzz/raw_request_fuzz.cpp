// The exported functions over one file in memory whose name asks for development: the picture at
// both sizes, its record and texts.

#include "promises.h"
#include "shim.h"

namespace {

using qmx::fuzz::Check;

void AskForPicture(const wchar_t* path, UINT32 flag) {
    qmx::test::MemoryStream stream;
    wchar_t text[QMXEXIF_TEXT_BUFFER_LENGTH] = {};
    const UINT32 delivered = ExifGetThumbnailImage(path, &stream, nullptr, flag, text, 1);
    Check(delivered <= 1 && stream.references == 1);
    Check((delivered != 0) == !stream.bytes.empty());
    const int shortLength = lstrlenW(text);
    Check(shortLength < 256 && lstrlenW(text + shortLength + 1) < 1024);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const qmxshim::MemoryFile file(data, size, L".raw");
    AskForPicture(file.Path(), 0);
    AskForPicture(file.Path(), 1);
    InfoRequest record = {};
    Check(ExifGetExifInfo(file.Path(), nullptr, &record) <= 1);
    return 0;
}
