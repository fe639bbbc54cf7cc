#include "rawdev/shot_record.h"

#include <cstring>
#include <span>

#include "parse/core/numeric.h"
#include "text/text_buffer.h"
#include "text/value_format.h"

namespace qmx {
namespace {

constexpr std::size_t kTextCapacity = 1024;  // the longest text fits
constexpr int kDateCapacity = 256;

// Exposure programs 1 to 8.
constexpr const wchar_t* kProgramCodes[] = {L"M ",  L"P ",  L"A ",  L"S ",
                                            L"Cr ", L"Ac ", L"Po ", L"La "};

// In the system's code page, cut to the capacity.
void WidenText(const char* text, std::span<wchar_t> dst) {
    wchar_t wide[64];
    wide[0] = 0;
    const int units =
        MultiByteToWideChar(CP_ACP, 0, text, -1, wide, static_cast<int>(std::size(wide)));
    TextBuffer(dst).Append(units > 0 ? wide : nullptr);
}

const char* DateTimeText(const ShotData& shot) {
    return shot.dateTimeOriginal[0] != 0 ? shot.dateTimeOriginal : shot.dateTime;
}

// The system refuses dates that do not exist; what it refuses is left out.
void AppendDateTime(TextBuffer& dst, const ShotData& shot) {
    SYSTEMTIME time = {};
    ParseExifDateTime(DateTimeText(shot), &time);
    wchar_t date[kDateCapacity];
    wchar_t clock[kDateCapacity];
    const bool isSet = time.wYear != 0;
    const bool hasDate = isSet && GetDateFormatW(LOCALE_USER_DEFAULT, DATE_LONGDATE, &time, nullptr,
                                                 date, kDateCapacity) > 0;
    const bool hasClock =
        isSet && GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, clock, kDateCapacity) > 0;
    dst.Append(hasDate ? date : nullptr).Append(L' ').Append(hasClock ? clock : nullptr);
}

void AppendShot(TextBuffer& dst, const ShotData& shot) {
    const std::int32_t program = shot.exposureProgram;
    if (program >= 1 && program <= static_cast<std::int32_t>(std::size(kProgramCodes)))
        dst.Append(kProgramCodes[program - 1]);
    if (shot.exposureTime != 0) {
        FormatExposureTime(dst, shot.exposureTime);
        // Deliberate: the unit stands twice here.
        AppendSecondsUnit(dst).Append(L' ');
    }
    FormatFNumber(dst, shot.fNumber).Append(L' ');
    if (shot.exposureBias != 0) FormatExposureBias(dst, shot.exposureBias).Append(L' ');
    dst.Append(L"ISO");
    const std::int32_t iso = TruncateToI32(shot.isoSpeed);
    if (iso == 0) {
        dst.Append(L"オート");
    } else {
        FormatInteger(dst, iso);
    }
}

void BuildInfoText(const RawDecodeState& state, TextBuffer& dst) {
    wchar_t model[sizeof state.modelText];
    WidenText(state.modelText, model);
    dst.Append(L"モデル名: ").Append(model).Append(L"\n大きさ: ");
    dst.AppendInteger(state.rawWidth).Append(L" x ").AppendInteger(state.rawHeight);
    dst.Append(L"\n撮影日時: ");
    AppendDateTime(dst, state.shot);
    dst.Append(L"\n撮影情報: ");
    AppendShot(dst, state.shot);
}

// As a camera's display has it: 1"3 for 1.3 s, 250 for 1/250 s, three places wide.
void AppendExposure(TextBuffer& dst, float seconds) {
    if (seconds < 0.3f) {
        dst.AppendInteger(TruncateToI32(1.0f / seconds + 0.5f), 3).Append(L' ');
        return;
    }
    const float rounded = seconds + 0.05f;
    dst.AppendInteger(TruncateToI32(rounded)).Append(L'"').AppendUnsigned(TenthsDigit(rounded));
    dst.Append(L' ');
}

void BuildShotLine(const ShotData& shot, TextBuffer& dst) {
    if (shot.exposureTime != 0) AppendExposure(dst, shot.exposureTime);
    FormatFNumber(dst, shot.fNumber).Append(L' ');
    if (shot.exposureBias != 0) FormatSignedTenths(dst, shot.exposureBias).Append(L' ');
    const std::int32_t iso = TruncateToI32(shot.isoSpeed);
    if (iso == 0) {
        dst.Append(L"Auto ");
    } else {
        dst.AppendInteger(iso).Append(L' ');
    }
    if (shot.flashFired) dst.Append(L"* ");
}

// The record's pointers are misaligned: `buffer` is a copy of one.
template <class Build>
void WriteText(wchar_t* buffer, std::int32_t capacity, Build&& build) {
    if (buffer == nullptr || capacity < 1) return;
    wchar_t storage[kTextCapacity];
    TextBuffer text(storage);
    build(text);
    TextBuffer(std::span(buffer, static_cast<std::size_t>(capacity))).Append(text.Text());
}

void FillFields(const RawDecodeState& state, InfoRequest& info) {
    const ShotData& shot = state.shot;
    WidenText(state.modelText, info.modelText);
    WidenText(state.makeText, info.makeText);
    SYSTEMTIME time = info.captureTime;
    ParseExifDateTime(DateTimeText(shot), &time);
    info.captureTime = time;
    info.imageWidth = state.rawWidth;
    info.imageHeight = state.rawHeight;
    info.exposureProgram = shot.exposureProgram;
    info.focalLength = shot.focalLength;
    info.exposureTime = shot.exposureTime;
    info.exposureBias = shot.exposureBias;
    info.fNumber = shot.fNumber;
    info.isoSpeed = TruncateToI32(shot.isoSpeed);
    info.flashFired = shot.flashFired ? 1 : 0;
    info.meteringMode = shot.meteringMode;
    info.whiteBalance = shot.whiteBalance;
    info.orientation = 1;  // the picture is upright already
    info.focalLength35mm = FLOAT_UNSET;
    info.maxAperture = FLOAT_UNSET;
    info.lensText[0] = 0;
    info.whiteBalanceText[0] = 0;
}

}  // namespace

void FillShotRecord(const RawDecodeState& state, InfoRequest& info) {
    FillFields(state, info);
    WriteText(info.longText, info.longTextCapacity,
              [&state](TextBuffer& dst) { BuildInfoText(state, dst); });
    WriteText(info.shortText, info.shortTextCapacity,
              [&state](TextBuffer& dst) { BuildShotLine(state.shot, dst); });
}

}  // namespace qmx
