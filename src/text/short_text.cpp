#include <span>

#include "parse/core/numeric.h"
#include "text/summary.h"
#include "text/text_buffer.h"
#include "text/value_format.h"

namespace qmx {
namespace {

// As a camera's display has it: 1"3 for 1.3 s, 250 for 1/250 s, three places wide.
void AppendExposure(TextBuffer& dst, float seconds) {
    if (seconds < 0.3f) {
        dst.AppendInteger(TruncateToI32(1.0f / seconds + 0.5f), 3);
        return;
    }
    const float rounded = seconds + 0.05f;
    dst.AppendInteger(TruncateToI32(rounded)).Append(L'"').AppendUnsigned(TenthsDigit(rounded));
}

// Every part is followed by a blank.
void AppendParts(TextBuffer& dst, const InfoRequest& request) {
    if (IsSet(request.exposureTime) && request.exposureTime != 0.0f) {
        AppendExposure(dst, request.exposureTime);
        dst.Append(L' ');
    }
    if (IsSet(request.fNumber)) FormatFNumber(dst, request.fNumber).Append(L' ');
    if (IsSet(request.exposureBias) && request.exposureBias != 0.0f) {
        FormatSignedTenths(dst, request.exposureBias).Append(L' ');
    }
    if (IsSet(request.isoSpeed)) {
        // Deliberate: English, unlike the long text.
        if (request.isoSpeed == 0) {
            dst.Append(L"Auto ");
        } else {
            dst.AppendInteger(request.isoSpeed).Append(L' ');
        }
    }
    if (request.flashFired == 1) {
        if (!dst.IsEmpty()) dst.Truncate(dst.Length() - 1);
        dst.Append(L"* ");
    }
}

}  // namespace

void BuildShortText(InfoRequest& request) {
    wchar_t* shortText = request.shortText;
    if (shortText == nullptr || request.shortTextCapacity < 1) return;
    shortText[0] = 0;
    wchar_t storage[kValueCapacity];
    TextBuffer line(storage);
    AppendParts(line, request);
    if (line.IsEmpty()) return;
    // Deliberate: the leading blank comes on top of the capacity, callers hold one unit more.
    if (line.Text()[0] != L' ') *shortText++ = L' ';
    const auto capacity = static_cast<std::size_t>(request.shortTextCapacity);
    TextBuffer(std::span(shortText, capacity)).Append(line.Text());
}

}  // namespace qmx
