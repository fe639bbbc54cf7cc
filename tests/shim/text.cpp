// Strings, code pages, and the formats of dates and times.

#include <windows.h>

#include <objidl.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "utf.h"

const IID IID_IUnknown = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_ISequentialStream = {
    0x0C733A30, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
const IID IID_IStream = {0x0000000C, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

bool operator==(const GUID& a, const GUID& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

namespace {

using CodePoint = std::uint32_t;

// 0x80..0x9F of Windows-1252; the five that it leaves open keep their value.
constexpr std::uint16_t kWindows1252[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

CodePoint NextOfUtf16(const wchar_t*& src, const wchar_t* end) {
    const CodePoint unit = static_cast<std::uint16_t>(*src++);
    const bool pair =
        unit >= 0xD800 && unit < 0xDC00 && src != end && *src >= 0xDC00 && *src < 0xE000;
    return pair ? 0x10000 + ((unit - 0xD800) << 10) + (static_cast<CodePoint>(*src++) - 0xDC00)
                : unit;
}

int PutUtf8(CodePoint point, char (&dst)[4]) {
    const int length = point < 0x80 ? 1 : point < 0x800 ? 2 : point < 0x10000 ? 3 : 4;
    for (int i = length - 1; i > 0; --i, point >>= 6)
        dst[i] = static_cast<char>(0x80 | (point & 0x3F));
    constexpr unsigned kLead[] = {0, 0x00, 0xC0, 0xE0, 0xF0};
    dst[0] = static_cast<char>(kLead[length] | point);
    return length;
}

wchar_t FoldAscii(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
}

int RefuseParameter() {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}

// An ASCII text with its NUL, as the format functions return it.
int Return(const char* text, wchar_t* dst, int capacity) {
    const int length = static_cast<int>(std::strlen(text)) + 1;
    if (length <= capacity) std::copy(text, text + length, dst);
    return length <= capacity || capacity == 0 ? length : RefuseParameter();
}

}  // namespace

namespace qmxshim {

// A surrogate without its partner is kept in three bytes: such names exist, and it finds them.
bool PathToUtf8(const wchar_t* path, char* dst, std::size_t capacity) {
    std::size_t used = 0;
    for (; *path != 0 && *path < 0x80 && used + 1 < capacity;
         ++path)  // nearly every path ends here
        dst[used++] = static_cast<char>(*path);
    const wchar_t* end = path + lstrlenW(path);
    while (path != end) {
        char bytes[4];
        const auto length = static_cast<std::size_t>(PutUtf8(NextOfUtf16(path, end), bytes));
        if (used + length >= capacity) return false;
        std::memcpy(dst + used, bytes, length);
        used += length;
    }
    dst[used] = 0;
    return true;
}

}  // namespace qmxshim

int lstrlenW(LPCWSTR text) {
    int length = 0;
    if (text != nullptr)
        while (text[length] != 0) ++length;
    return length;
}

LPWSTR lstrcpynW(LPWSTR dst, LPCWSTR src, int capacity) {
    LPWSTR out = dst;
    for (; capacity > 1 && *src != 0; --capacity) *out++ = *src++;
    if (capacity > 0) *out = 0;
    return dst;
}

int lstrcmpiW(LPCWSTR a, LPCWSTR b) {
    while (*a != 0 && FoldAscii(*a) == FoldAscii(*b)) ++a, ++b;
    return FoldAscii(*a) - FoldAscii(*b);
}

// Every code page is Windows-1252.
int MultiByteToWideChar(UINT, DWORD, LPCSTR src, int length, LPWSTR dst, int capacity) {
    if (src == nullptr || length == 0 || capacity < 0) return RefuseParameter();
    if (length < 0) length = static_cast<int>(std::strlen(src)) + 1;
    for (int i = 0; i < std::min(length, capacity); ++i) {
        const auto byte = static_cast<unsigned char>(src[i]);
        dst[i] = byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : byte;
    }
    return length <= capacity || capacity == 0 ? length : RefuseParameter();
}

int GetDateFormatW(LCID, DWORD flags, const SYSTEMTIME* date, LPCWSTR format, LPWSTR text,
                   int capacity) {
    if (date == nullptr || format != nullptr || flags != DATE_LONGDATE) return RefuseParameter();
    const std::chrono::year_month_day day(std::chrono::year(date->wYear),
                                          std::chrono::month(date->wMonth),
                                          std::chrono::day(date->wDay));
    if (!day.ok() || date->wYear < 1601 || date->wYear > 30827) return RefuseParameter();
    constexpr const char* kDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                     "Thursday", "Friday", "Saturday"};
    constexpr const char* kMonths[] = {"January",   "February", "March",    "April",
                                       "May",       "June",     "July",     "August",
                                       "September", "October",  "November", "December"};
    const unsigned weekday = std::chrono::weekday(day).c_encoding();
    char line[64];
    std::snprintf(line, sizeof line, "%s, %s %d, %d", kDays[weekday], kMonths[date->wMonth - 1],
                  date->wDay, date->wYear);
    return Return(line, text, capacity);
}

int GetTimeFormatW(LCID, DWORD, const SYSTEMTIME* time, LPCWSTR format, LPWSTR text, int capacity) {
    if (time == nullptr || format != nullptr) return RefuseParameter();
    if (time->wHour > 23 || time->wMinute > 59 || time->wSecond > 59) return RefuseParameter();
    char line[32];
    std::snprintf(line, sizeof line, "%d:%02d:%02d %s", (time->wHour + 11) % 12 + 1, time->wMinute,
                  time->wSecond, time->wHour < 12 ? "AM" : "PM");
    return Return(line, text, capacity);
}
