// Strings, code pages, and the formats of dates and times.

#include <windows.h>

#include <objidl.h>

#include <cstdint>
#include <cstring>

#include "utf.h"

const IID IID_IUnknown = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_ISequentialStream = {
    0x0C733A30, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
const IID IID_IStream = {0x0000000C, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

bool operator==(const GUID& a, const GUID& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

namespace {

using CodePoint = std::uint32_t;
constexpr CodePoint kReplacement = 0xFFFD;

// 0x80..0x9F of Windows-1252; the five that it leaves open keep their value.
constexpr std::uint16_t kWindows1252[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

CodePoint NextOfWindows1252(const unsigned char*& src) {
    const unsigned char byte = *src++;
    return byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : byte;
}

// One ill-formed sequence gives one replacement character.
CodePoint NextOfUtf8(const unsigned char*& src, const unsigned char* end) {
    const unsigned char lead = *src++;
    if (lead < 0x80) return lead;
    const int more = lead >= 0xF0 && lead < 0xF5   ? 3
                     : lead >= 0xE0 && lead < 0xF0 ? 2
                     : lead >= 0xC2 && lead < 0xE0 ? 1
                                                   : 0;
    if (more == 0) return kReplacement;
    CodePoint point = lead & (0x3Fu >> more);
    for (int i = 0; i < more; ++i) {
        if (src == end || (*src & 0xC0) != 0x80) return kReplacement;
        const CodePoint next = point << 6 | (*src & 0x3Fu);
        const bool overlong = i == 0 && ((more == 2 && next < 0x20) || (more == 3 && next < 0x10));
        const bool surrogate = i == 0 && more == 2 && next >= 0x360 && next < 0x380;
        const bool tooLarge = i == 0 && more == 3 && next > 0x10F;
        if (overlong || surrogate || tooLarge) return kReplacement;
        point = next;
        ++src;
    }
    return point;
}

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

int PutUtf16(CodePoint point, wchar_t (&dst)[2]) {
    dst[0] = static_cast<wchar_t>(point);
    if (point < 0x10000) return 1;
    dst[0] = static_cast<wchar_t>(0xD7C0 + (point >> 10));
    dst[1] = static_cast<wchar_t>(0xDC00 | (point & 0x3FF));
    return 2;
}

// Collects converted units as the system's conversions do: without room it only counts, with too
// little room it fills that and fails.
template <class Unit>
class Collector {
public:
    Collector(Unit* dst, int capacity) : dst_(dst), capacity_(capacity) {}
    void Append(const Unit* units, int count) {
        for (int i = 0; i < count; ++i, ++length_)
            if (length_ < capacity_) dst_[length_] = units[i];
    }
    int Result() const {
        if (capacity_ == 0 || length_ <= capacity_) return length_;
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }

private:
    Unit* dst_;
    int capacity_;
    int length_ = 0;
};

wchar_t FoldAscii(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
}

template <class Fold>
int Compare(const wchar_t* a, const wchar_t* b, Fold fold) {
    while (*a != 0 && fold(*a) == fold(*b)) ++a, ++b;
    return fold(*a) - fold(*b);
}

// A short ASCII text, composed and then returned with its NUL as the format functions do.
class Line {
public:
    Line& Append(const char* text) {
        for (; *text != 0; ++text) units_[length_++] = static_cast<unsigned char>(*text);
        return *this;
    }
    Line& Append(int number, int minDigits = 1) {
        char digits[12];
        int count = 0;
        for (; number != 0 || count < minDigits; number /= 10)
            digits[count++] = static_cast<char>('0' + number % 10);
        while (count > 0) units_[length_++] = static_cast<unsigned char>(digits[--count]);
        return *this;
    }
    int Return(wchar_t* dst, int capacity) {
        units_[length_++] = 0;
        Collector<wchar_t> out(dst, capacity);
        out.Append(units_, length_);
        return out.Result();
    }

private:
    wchar_t units_[64];
    int length_ = 0;
};

bool IsLeapYear(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

bool IsDate(const SYSTEMTIME& date) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (date.wYear < 1601 || date.wYear > 30827) return false;
    if (date.wMonth < 1 || date.wMonth > 12 || date.wDay < 1) return false;
    return date.wDay <= kDays[date.wMonth - 1] + (date.wMonth == 2 && IsLeapYear(date.wYear));
}

// Sakamoto's formula; 0 is Sunday.
int DayOfWeek(const SYSTEMTIME& date) {
    constexpr int kOffsets[] = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
    const int year = date.wYear - (date.wMonth < 3 ? 1 : 0);
    return (year + year / 4 - year / 100 + year / 400 + kOffsets[date.wMonth - 1] + date.wDay) % 7;
}

int RefuseParameter() {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
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

int lstrlenA(LPCSTR text) { return text == nullptr ? 0 : static_cast<int>(std::strlen(text)); }

int lstrlenW(LPCWSTR text) {
    int length = 0;
    if (text != nullptr)
        while (text[length] != 0) ++length;
    return length;
}

LPWSTR lstrcpyW(LPWSTR dst, LPCWSTR src) {
    for (LPWSTR out = dst; (*out = *src) != 0; ++out, ++src) {
    }
    return dst;
}

LPWSTR lstrcpynW(LPWSTR dst, LPCWSTR src, int capacity) {
    LPWSTR out = dst;
    for (; capacity > 1 && *src != 0; --capacity) *out++ = *src++;
    if (capacity > 0) *out = 0;
    return dst;
}

LPWSTR lstrcatW(LPWSTR dst, LPCWSTR src) {
    lstrcpyW(dst + lstrlenW(dst), src);
    return dst;
}

int lstrcmpW(LPCWSTR a, LPCWSTR b) {
    return Compare(a, b, [](wchar_t c) { return c; });
}

int lstrcmpiW(LPCWSTR a, LPCWSTR b) { return Compare(a, b, FoldAscii); }

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR src, int length, LPWSTR dst,
                        int capacity) {
    if (src == nullptr || length == 0 || capacity < 0) return RefuseParameter();
    if (length < 0) length = lstrlenA(src) + 1;
    const auto* at = reinterpret_cast<const unsigned char*>(src);
    const unsigned char* end = at + length;
    Collector<wchar_t> out(dst, capacity);
    while (at != end) {
        const unsigned char* start = at;
        const CodePoint point = codePage == CP_UTF8 ? NextOfUtf8(at, end) : NextOfWindows1252(at);
        const bool wellFormed = point != kReplacement || (at - start == 3 && *start == 0xEF);
        if ((flags & MB_ERR_INVALID_CHARS) != 0 && !wellFormed) {
            SetLastError(ERROR_NO_UNICODE_TRANSLATION);
            return 0;
        }
        wchar_t units[2];
        out.Append(units, PutUtf16(point, units));
    }
    return out.Result();
}

int WideCharToMultiByte(UINT codePage, DWORD, LPCWSTR src, int length, LPSTR dst, int capacity,
                        LPCSTR, LPBOOL) {
    if (src == nullptr || length == 0 || capacity < 0 || codePage != CP_UTF8)
        return RefuseParameter();
    if (length < 0) length = lstrlenW(src) + 1;
    const wchar_t* end = src + length;
    Collector<char> out(dst, capacity);
    while (src != end) {
        CodePoint point = NextOfUtf16(src, end);
        if (point >= 0xD800 && point < 0xE000) point = kReplacement;
        char bytes[4];
        out.Append(bytes, PutUtf8(point, bytes));
    }
    return out.Result();
}

int GetDateFormatW(LCID, DWORD flags, const SYSTEMTIME* date, LPCWSTR format, LPWSTR text,
                   int capacity) {
    if (date == nullptr || format != nullptr || !IsDate(*date)) return RefuseParameter();
    constexpr const char* kDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                     "Thursday", "Friday", "Saturday"};
    constexpr const char* kMonths[] = {"January",   "February", "March",    "April",
                                       "May",       "June",     "July",     "August",
                                       "September", "October",  "November", "December"};
    Line line;
    if ((flags & DATE_LONGDATE) != 0)
        line.Append(kDays[DayOfWeek(*date)])
            .Append(", ")
            .Append(kMonths[date->wMonth - 1])
            .Append(" ")
            .Append(date->wDay)
            .Append(", ");
    else
        line.Append(date->wMonth).Append("/").Append(date->wDay).Append("/");
    return line.Append(date->wYear).Return(text, capacity);
}

int GetTimeFormatW(LCID, DWORD, const SYSTEMTIME* time, LPCWSTR format, LPWSTR text, int capacity) {
    if (time == nullptr || format != nullptr) return RefuseParameter();
    if (time->wHour > 23 || time->wMinute > 59 || time->wSecond > 59) return RefuseParameter();
    Line line;
    line.Append((time->wHour + 11) % 12 + 1).Append(":").Append(time->wMinute, 2).Append(":");
    return line.Append(time->wSecond, 2)
        .Append(time->wHour < 12 ? " AM" : " PM")
        .Return(text, capacity);
}
