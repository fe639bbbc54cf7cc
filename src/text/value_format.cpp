#include "text/value_format.h"

#include <algorithm>
#include <cmath>

#include "parse/core/numeric.h"

namespace qmx {
namespace {

constexpr std::size_t kDateDigits = 14;     // YYYYMMDDhhmmss
constexpr std::size_t kHexUnitsNeeded = 4;  // "0A," and the terminator
constexpr std::size_t kReferenceCapacity = 64;

std::uint32_t LastDigits(float scaled, float modulus) {
    const float whole = std::floor(scaled);
    return std::isfinite(whole) ? TruncateToU32(std::fmod(whole, modulus)) : 0;
}

// Half a unit of the last decimal, away from zero.
float RoundAway(float value, float half) {
    if (value > 0.0f) return value + half;
    return value < 0.0f ? value - half : value;
}

bool IsPrintableAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c <= 0x7E; });
}

// "2" when the rounded tenth is 0, else "2.5".
TextBuffer& AppendRoundedShort(TextBuffer& dst, float value) {
    const float rounded = value + 0.05f;
    if (std::fmod(std::floor(rounded * 10.0f), 10.0f) == 0.0f) {
        return dst.AppendInteger(TruncateToI32(rounded));
    }
    return FormatTenths(dst, rounded);
}

// "%.6f" without the C library, whose decimal point follows the host's locale.  A float times 10^6
// is exact in double; the bound keeps even nonsense within 64 bits.
TextBuffer& AppendMillionths(TextBuffer& dst, float value) {
    constexpr std::uint64_t kMillion = 1'000'000;
    constexpr double kBound = 9.0e18;
    const double scaled = std::nearbyint(std::fabs(static_cast<double>(value)) * 1.0e6);
    const auto millionths = static_cast<std::uint64_t>(scaled < kBound ? scaled : kBound);
    if (value < 0.0f) dst.Append(L'-');
    return dst.AppendUnsigned(millionths / kMillion)
        .Append(L'.')
        .AppendUnsigned(millionths % kMillion, 6);
}

}  // namespace

void ParseExifDateTime(std::string_view text, SYSTEMTIME* time) {
    if (text.empty() || time == nullptr) return;
    *time = {};
    std::uint16_t digits[kDateDigits];
    std::size_t count = 0;
    for (const char c : text) {
        if (c >= '0' && c <= '9') digits[count++] = static_cast<std::uint16_t>(c - '0');
        if (count == kDateDigits) break;
    }
    if (count < kDateDigits) return;
    const auto two = [&](std::size_t at) {
        return static_cast<std::uint16_t>(digits[at] * 10 + digits[at + 1]);
    };
    time->wYear = static_cast<std::uint16_t>(two(0) * 100 + two(2));
    time->wMonth = two(4);
    time->wDay = two(6);
    time->wHour = two(8);
    time->wMinute = two(10);
    time->wSecond = two(12);
}

TextBuffer& AppendSecondsUnit(TextBuffer& dst) { return dst.Append(L"秒"); }

TextBuffer& AppendMillimetreUnit(TextBuffer& dst) { return dst.Append(L"mm"); }

TextBuffer& FormatInteger(TextBuffer& dst, std::int32_t value, const wchar_t* suffix) {
    return dst.AppendInteger(value).Append(suffix);
}

TextBuffer& FormatHex(TextBuffer& dst, std::uint32_t value) { return dst.AppendHex(value); }

TextBuffer& FormatIntegerPair(TextBuffer& dst, std::int32_t first, std::int32_t second) {
    return dst.AppendInteger(first).Append(L", ").AppendInteger(second);
}

TextBuffer& FormatSignedInteger(TextBuffer& dst, std::int32_t value, const wchar_t* suffix) {
    if (value == 0) dst.Append(L'±');
    if (value > 0) dst.Append(L'+');
    return dst.AppendInteger(value).Append(suffix);
}

TextBuffer& WidenMakerString(TextBuffer& dst, std::string_view text, std::size_t capacity) {
    if (capacity == 0) return dst;
    if (IsPrintableAscii(text)) return dst.AppendAscii(text.substr(0, capacity - 1));
    // Deliberate: non-ASCII text is shown as bytes, since its encoding is anybody's guess.
    for (const char c : text) {
        if (capacity < kHexUnitsNeeded) break;
        dst.AppendHex(static_cast<std::uint8_t>(c), 2).Append(L',');
        capacity -= 3;
    }
    return dst;
}

std::uint32_t TenthsDigit(float value) { return LastDigits(std::fabs(value) * 10.0f, 10.0f); }

std::uint32_t HundredthsDigits(float value) {
    return LastDigits(std::fabs(value) * 100.0f, 100.0f);
}

TextBuffer& FormatTenths(TextBuffer& dst, float value, const wchar_t* suffix) {
    dst.AppendInteger(TruncateToI32(value)).Append(L'.');
    return dst.AppendUnsigned(TenthsDigit(value)).Append(suffix);
}

TextBuffer& FormatRoundedTenths(TextBuffer& dst, float value, const wchar_t* suffix) {
    return FormatTenths(dst, RoundAway(value, 0.05f), suffix);
}

TextBuffer& FormatHundredths(TextBuffer& dst, float value, const wchar_t* suffix) {
    // Deliberate: only positive values are rounded.
    const float rounded = value > 0.0f ? value + 0.005f : value;
    dst.AppendInteger(TruncateToI32(rounded)).Append(L'.');
    return dst.AppendUnsigned(HundredthsDigits(rounded), 2).Append(suffix);
}

TextBuffer& FormatWholeOrTenths(TextBuffer& dst, float value, const wchar_t* suffix) {
    if (std::fmod(value, 1.0f) > 0.05f) return FormatRoundedTenths(dst, value, suffix);
    return dst.AppendInteger(TruncateToI32(value)).Append(suffix);
}

TextBuffer& FormatSignedTenths(TextBuffer& dst, float value, const wchar_t* suffix) {
    if (value == 0.0f) return dst.Append(L"±0");
    dst.Append(value < 0.0f ? L'-' : L'+');
    return FormatTenths(dst, std::fabs(value) + 0.05f, suffix);
}

TextBuffer& FormatExposureBias(TextBuffer& dst, float stops) {
    return FormatSignedTenths(dst, stops, L"EV");
}

TextBuffer& FormatZoomRatio(TextBuffer& dst, float ratio) {
    if (!(ratio > 0.0f)) return dst.Append(L"オフ");
    return FormatTenths(dst, ratio + 0.05f, L"倍");
}

TextBuffer& FormatExposureTime(TextBuffer& dst, float seconds) {
    // Deliberate: 0.3 s reads as a decimal, anything shorter as a fraction.
    if (seconds < 0.3f) {
        dst.Append(L"1/").AppendInteger(TruncateToI32(1.0f / seconds + 0.5f));
    } else {
        AppendRoundedShort(dst, seconds);
    }
    return AppendSecondsUnit(dst);
}

TextBuffer& FormatFNumber(TextBuffer& dst, float number) {
    dst.Append(L'F');
    if (number >= 10.0f) return dst.AppendInteger(TruncateToI32(number + 0.5f));
    return AppendRoundedShort(dst, number);
}

TextBuffer& FormatDistance(TextBuffer& dst, std::int32_t millimetres) {
    const auto value = static_cast<float>(millimetres);
    return millimetres >= 1000 ? FormatRoundedTenths(dst, value / 1000.0f, L"m")
                               : FormatRoundedTenths(dst, value / 10.0f, L"cm");
}

TextBuffer& FormatGpsCoordinate(TextBuffer& dst, float degrees, float minutes, float seconds,
                                std::string_view reference) {
    const std::int32_t wholeDegrees = TruncateToI32(degrees);
    // Deliberate: less than one degree counts as no position.
    if (wholeDegrees == 0) return dst.Append(L" - ");
    WidenMakerString(dst, reference, kReferenceCapacity).Append(L' ');
    dst.AppendInteger(wholeDegrees).Append(L"度");
    dst.AppendInteger(TruncateToI32(minutes)).Append(L"分");
    FormatHundredths(dst, seconds, L"秒").Append(L" (");
    const float decimalDegrees = (seconds / 60.0f + minutes) / 60.0f + degrees;
    return AppendMillionths(dst, decimalDegrees).Append(L')');
}

}  // namespace qmx
