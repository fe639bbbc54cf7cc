#include <cstring>

#include "api/requests.h"
#include "parse/core/path_extension.h"
#include "rawdev/develop.h"
#include "text/summary.h"
#include "text/value_format.h"

namespace qmx {
namespace {

// Files whose picture the library makes itself.
bool IsRawToDevelop(const wchar_t* path, std::uint32_t flag) {
    if (HasExtension(path, ".raw")) return true;
    return flag != 0 && (HasExtension(path, ".erf") || HasExtension(path, ".3fr"));
}

std::uint32_t DevelopRequest(const wchar_t* path, IStream* stream, std::uint32_t* orientationOut,
                             std::uint32_t flag, InfoRequest* request) {
    const std::uint32_t result = DevelopRawFile(path, stream, flag, request);
    // Deliberate: without a record the orientation stays untouched, developed pictures are upright.
    if (result != 0 && orientationOut != nullptr && request != nullptr)
        *orientationOut = request->orientation;
    return result;
}

// Both texts of a request with the buffers they are made in.
struct TextRequestBlock {
    InfoRequest request;
    wchar_t longText[1024];
    wchar_t shortText[256];
};
static_assert(sizeof(TextRequestBlock) == 2968);

// Copies a text with its terminator; where the terminator's successor goes.
wchar_t* CopyText(wchar_t* dst, const wchar_t* text) {
    const std::size_t length = static_cast<std::size_t>(lstrlenW(text)) + 1;
    std::memcpy(dst, text, length * sizeof(wchar_t));
    return dst + length;
}

}  // namespace

std::uint32_t DispatchRequest(const wchar_t* path, IStream* stream, std::uint32_t* orientationOut,
                              std::uint32_t flag, InfoRequest* request) {
    if (path == nullptr) return 0;
    if (stream != nullptr && IsRawToDevelop(path, flag))
        return DevelopRequest(path, stream, orientationOut, flag, request);

    ImageInfoRoom room;
    const std::uint32_t result = ParseFile(path, stream, &room.info, flag != 0);
    if (result == 0) return 0;
    const ImageInfo& info = room.info;
    if (orientationOut != nullptr) *orientationOut = static_cast<std::uint32_t>(info.orientation);
    BuildSummary(info, request);
    return result;
}

std::uint32_t RunTextRequest(const wchar_t* path, IStream* stream, std::uint32_t* orientationOut,
                             std::uint32_t flag, wchar_t* text, std::int32_t textLength) {
    if (text == nullptr || textLength < 1)
        return DispatchRequest(path, stream, orientationOut, flag, nullptr);

    TextRequestBlock block;
    block.request = {};
    block.longText[0] = 0;
    block.shortText[0] = 0;
    block.request.longText = block.longText;
    block.request.longTextCapacity = static_cast<std::int32_t>(std::size(block.longText));
    block.request.shortText = block.shortText;
    // The summary may use one character more than it is told.
    block.request.shortTextCapacity = static_cast<std::int32_t>(std::size(block.shortText)) - 1;
    const std::uint32_t result =
        DispatchRequest(path, stream, orientationOut, flag, &block.request);
    if (result != 0) CopyText(CopyText(text, block.shortText), block.longText);
    return result;
}

std::uint32_t CopyDateTimeText(const wchar_t* path, wchar_t* text, std::int32_t textLength) {
    if (text == nullptr || textLength < 1) return 0;
    const auto capacity = static_cast<std::size_t>(textLength);
    TextBuffer buffer({text, capacity});
    ImageInfoRoom room;
    if (ParseFile(path, nullptr, &room.info, false) == 0) return 0;
    WidenMakerString(buffer, FieldText(room.info.dateTimeOriginal), capacity);
    return 1;
}

std::uint32_t RunBasicRequest(const wchar_t* path, IStream* stream, InfoRequest* info) {
    if (info == nullptr) return DispatchRequest(path, stream, nullptr, 0, nullptr);
    InfoRequest request = {};
    std::memcpy(static_cast<void*>(&request), info, QMXEXIF_BASIC_INFO_SIZE);
    const std::uint32_t result = DispatchRequest(path, stream, nullptr, 0, &request);
    std::memcpy(static_cast<void*>(info), &request, QMXEXIF_BASIC_INFO_SIZE);
    return result;
}

}  // namespace qmx
