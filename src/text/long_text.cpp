#include <span>

#include "text/maker_text.h"
#include "text/summary.h"
#include "text/text_buffer.h"
#include "text/value_format.h"

namespace qmx {
namespace {

constexpr std::size_t kScratchCapacity = 1024;  // the longest set of lines fits
constexpr int kDateCapacity = 256;

// Exposure programs 1 to 8.
constexpr const wchar_t* kProgramCodes[] = {L"M", L"P", L"A", L"S", L"Cr", L"Ac", L"Po", L"La"};

void AppendLine(TextBuffer& dst, const wchar_t* label, const wchar_t* text) {
    if (text[0] != 0) dst.Append(label).Append(text).Append(L'\n');
}

void AppendImageSize(TextBuffer& dst, const InfoRequest& request) {
    if (!IsSet(request.imageWidth) || !IsSet(request.imageHeight)) return;
    dst.Append(L"大きさ: ").AppendInteger(request.imageWidth).Append(L" x ");
    dst.AppendInteger(request.imageHeight).Append(L'\n');
}

// In the user's own notation.  The system refuses dates and times that do not exist; what it
// refuses is left out.
void AppendCaptureTime(TextBuffer& dst, const SYSTEMTIME& time) {
    if (time.wYear == 0) return;
    wchar_t date[kDateCapacity];
    wchar_t clock[kDateCapacity];
    const bool hasDate =
        GetDateFormatW(LOCALE_USER_DEFAULT, DATE_LONGDATE, &time, nullptr, date, kDateCapacity) > 0;
    const bool hasClock =
        GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, clock, kDateCapacity) > 0;
    if (!hasDate && !hasClock) return;
    dst.Append(L"撮影日時: ").Append(hasDate ? date : nullptr);
    if (hasDate && hasClock) dst.Append(L' ');
    dst.Append(hasClock ? clock : nullptr).Append(L'\n');
}

// Each part follows a blank.
void AppendShootingParts(TextBuffer& dst, const InfoRequest& request) {
    const std::int32_t program = request.exposureProgram;
    if (program >= 1 && program <= static_cast<std::int32_t>(std::size(kProgramCodes))) {
        dst.Append(L' ').Append(kProgramCodes[program - 1]);
    }
    if (IsSet(request.exposureTime) && request.exposureTime != 0.0f) {
        FormatExposureTime(dst.Append(L' '), request.exposureTime);
    }
    if (IsSet(request.fNumber)) FormatFNumber(dst.Append(L' '), request.fNumber);
    if (IsSet(request.exposureBias) && request.exposureBias != 0.0f) {
        FormatExposureBias(dst.Append(L' '), request.exposureBias);
    }
    if (!IsSet(request.isoSpeed)) return;
    dst.Append(L" ISO");
    if (request.isoSpeed == 0) {
        dst.Append(L"オート");
    } else {
        dst.AppendInteger(request.isoSpeed);
    }
}

void AppendShootingLine(TextBuffer& dst, const InfoRequest& request) {
    const std::size_t start = dst.Length();
    dst.Append(L"撮影情報:");
    const std::size_t labelEnd = dst.Length();
    AppendShootingParts(dst, request);
    if (dst.Length() == labelEnd) {
        dst.Truncate(start);
    } else {
        dst.Append(L'\n');
    }
}

void AppendMakerLine(TextBuffer& dst, const ImageInfo& info) {
    if (info.hasMakerNote == 0) return;
    const MakerText& maker = FindMakerText(info.makerId);
    if (maker.summaryLine != nullptr && maker.summaryLine(info, dst)) dst.Append(L'\n');
}

}  // namespace

void BuildLongText(const ImageInfo& info, InfoRequest& request) {
    wchar_t* const longText = request.longText;
    if (longText == nullptr || request.longTextCapacity < 1) return;
    wchar_t storage[kScratchCapacity];
    TextBuffer text(storage);
    AppendLine(text, L"モデル名: ", request.modelText);
    AppendImageSize(text, request);
    AppendCaptureTime(text, request.captureTime);
    AppendShootingLine(text, request);
    AppendLine(text, L"レンズ: ", request.lensText);
    AppendMakerLine(text, info);
    if (!text.IsEmpty()) text.Truncate(text.Length() - 1);  // the last line's end
    const auto capacity = static_cast<std::size_t>(request.longTextCapacity);
    TextBuffer(std::span(longText, capacity)).Append(text.Text());
}

}  // namespace qmx
