#include "print_csv.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>

#include "utf8.h"

namespace qmx {
namespace {

using Column = void (*)(Writer& out, const Photo& photo);

void PutText(Writer& out, std::wstring_view text) {
    const std::wstring line = OneLine(text);
    if (line.find_first_of(L",\"") == std::wstring::npos) {
        out.Put(line);
        return;
    }
    std::wstring quoted = L"\"";
    for (const wchar_t c : line) quoted.append(c == L'"' ? 2 : 1, c);
    out.Put(quoted += L'"');
}

void PutPath(Writer& out, const Photo& photo) { PutText(out, photo.path); }

void PutError(Writer& out, const Photo& photo) { PutText(out, photo.error); }

void PutSummary(Writer& out, const Photo& photo) { PutText(out, Trim(photo.shortText)); }

template <auto Field>
void PutInfoText(Writer& out, const Photo& photo) {
    PutText(out, BoundedText(photo.info.*Field, std::size(photo.info.*Field)));
}

template <auto Field>
void PutInteger(Writer& out, const Photo& photo) {
    const std::int64_t value = photo.info.*Field;
    if (value != QMXEXIF_INT_UNSET) out.PutNumber(value);
}

template <auto Field>
void PutReal(Writer& out, const Photo& photo) {
    const float value = photo.info.*Field;
    if (value != QMXEXIF_FLOAT_UNSET && std::isfinite(value)) out.PutNumber(value);
}

void PutCaptureTime(Writer& out, const Photo& photo) {
    const SYSTEMTIME& time = photo.info.captureTime;
    if (time.wYear == 0 && time.wMonth == 0 && time.wDay == 0) return;
    char text[48];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u", unsigned{time.wYear},
                  unsigned{time.wMonth}, unsigned{time.wDay}, unsigned{time.wHour},
                  unsigned{time.wMinute}, unsigned{time.wSecond});
    out.Put(text);
}

struct NamedColumn {
    std::string_view name;
    Column put;
};

// The names are those of the JSON.
constexpr NamedColumn kColumns[] = {
    {"path", PutPath},
    {"error", PutError},
    {"captureTime", PutCaptureTime},
    {"makeText", PutInfoText<&InfoRequest::makeText>},
    {"modelText", PutInfoText<&InfoRequest::modelText>},
    {"lensText", PutInfoText<&InfoRequest::lensText>},
    {"imageWidth", PutInteger<&InfoRequest::imageWidth>},
    {"imageHeight", PutInteger<&InfoRequest::imageHeight>},
    {"orientation", PutInteger<&InfoRequest::orientation>},
    {"exposureTime", PutReal<&InfoRequest::exposureTime>},
    {"fNumber", PutReal<&InfoRequest::fNumber>},
    {"isoSpeed", PutInteger<&InfoRequest::isoSpeed>},
    {"exposureBias", PutReal<&InfoRequest::exposureBias>},
    {"focalLength", PutReal<&InfoRequest::focalLength>},
    {"focalLength35mm", PutReal<&InfoRequest::focalLength35mm>},
    {"maxAperture", PutReal<&InfoRequest::maxAperture>},
    {"exposureProgram", PutInteger<&InfoRequest::exposureProgram>},
    {"meteringMode", PutInteger<&InfoRequest::meteringMode>},
    {"flashFired", PutInteger<&InfoRequest::flashFired>},
    {"whiteBalance", PutInteger<&InfoRequest::whiteBalance>},
    {"whiteBalanceText", PutInfoText<&InfoRequest::whiteBalanceText>},
    {"shortText", PutSummary},
};

}  // namespace

void PrintCsvHeading(Writer& out) {
    out.Put("\xEF\xBB\xBF");
    for (const NamedColumn& column : kColumns) {
        out.Put(&column == kColumns ? "" : ",").Put(column.name);
    }
    out.Put("\r\n");
}

void PrintCsv(Writer& out, const Photo& photo) {
    for (const NamedColumn& column : kColumns) {
        if (&column != kColumns) out.Put(",");
        // A file that could not be read has nothing but its path and the reason.
        const bool isShown = photo.error.empty() || column.put == PutPath || column.put == PutError;
        if (isShown) column.put(out, photo);
    }
    out.Put("\r\n");
}

}  // namespace qmx
