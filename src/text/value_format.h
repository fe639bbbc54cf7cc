#pragma once
// How single values read.  Every formatter appends to `dst` and returns it, so that a caller starts
// with an empty buffer and composes; a suffix may be null.
//
// Floats are worked on in single precision, as they are stored: 1.25 then rounds to 1.3, as a
// photographer expects.  Numbers beyond 32 bits and NaN give what parse/core/numeric.h defines.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "parse/core/win32.h"
#include "text/text_buffer.h"

namespace qmx {

// Reads the first 14 decimal digits as year to second, whatever stands between them and whatever
// they say ("2008:07:31 12:34:56").  Fewer digits zero `time`; an empty text leaves it alone.
void ParseExifDateTime(std::string_view text, SYSTEMTIME* time);

TextBuffer& AppendSecondsUnit(TextBuffer& dst);
TextBuffer& AppendMillimetreUnit(TextBuffer& dst);

TextBuffer& FormatInteger(TextBuffer& dst, std::int32_t value, const wchar_t* suffix = nullptr);
TextBuffer& FormatHex(TextBuffer& dst, std::uint32_t value);

// "4272, 2848"
TextBuffer& FormatIntegerPair(TextBuffer& dst, std::int32_t first, std::int32_t second);

// "+2", "-2", "±0"
TextBuffer& FormatSignedInteger(TextBuffer& dst, std::int32_t value,
                                const wchar_t* suffix = nullptr);

// A text of the file within `capacity` units, terminator included.  Printable ASCII stands as it
// is; one byte of anything else turns the whole text into hexadecimal, "41,0A,".
TextBuffer& WidenMakerString(TextBuffer& dst, std::string_view text, std::size_t capacity);

// The digits behind the point, cut, not rounded.
std::uint32_t TenthsDigit(float value);
std::uint32_t HundredthsDigits(float value);

// "2.5", cut; the sign of a value above -1 is lost.
TextBuffer& FormatTenths(TextBuffer& dst, float value, const wchar_t* suffix = nullptr);

// "2.5", rounded.
TextBuffer& FormatRoundedTenths(TextBuffer& dst, float value, const wchar_t* suffix = nullptr);

// "2.50", rounded when positive.
TextBuffer& FormatHundredths(TextBuffer& dst, float value, const wchar_t* suffix = nullptr);

// "18" or "18.2": a decimal only when there is a rest of more than 0.05.
TextBuffer& FormatWholeOrTenths(TextBuffer& dst, float value, const wchar_t* suffix = nullptr);

// "+0.3", "-1.0", or "±0" without the suffix.
TextBuffer& FormatSignedTenths(TextBuffer& dst, float value, const wchar_t* suffix = nullptr);
TextBuffer& FormatExposureBias(TextBuffer& dst, float stops);

// "2.0倍", or "オフ" for 0 and less.
TextBuffer& FormatZoomRatio(TextBuffer& dst, float ratio);

// "1/250秒", "0.3秒", "2秒"
TextBuffer& FormatExposureTime(TextBuffer& dst, float seconds);

// "F5.6", "F4", "F11"
TextBuffer& FormatFNumber(TextBuffer& dst, float number);

// "1.5m" from a metre on, else "45.0cm".
TextBuffer& FormatDistance(TextBuffer& dst, std::int32_t millimetres);

// "N 35度39分29.15秒 (35.658096)"; " - " below one degree.  The decimal degrees carry no sign of
// the hemisphere.
TextBuffer& FormatGpsCoordinate(TextBuffer& dst, float degrees, float minutes, float seconds,
                                std::string_view reference);

}  // namespace qmx
