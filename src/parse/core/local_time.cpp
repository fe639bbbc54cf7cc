#include "parse/core/local_time.h"

#include "parse/core/win32.h"

namespace qmx {
namespace {

constexpr std::uint64_t kTicksPerSecond = 10'000'000;      // of 100 ns
constexpr std::uint64_t kEpoch = 116'444'736'000'000'000;  // 1970 in ticks since 1601
constexpr std::int64_t kLastSecond = 253'402'300'799;      // of the year 9999
constexpr unsigned kLastYear = 9999;

// Daylight saving is that of the moment, not of today, which FileTimeToLocalFileTime would take.
bool ToLocalTime(std::int64_t seconds, SYSTEMTIME& local) {
    if (seconds < 0 || seconds > kLastSecond) return false;
    const std::uint64_t ticks = kEpoch + static_cast<std::uint64_t>(seconds) * kTicksPerSecond;
    FILETIME time;
    time.dwLowDateTime = static_cast<DWORD>(ticks & 0xFFFFFFFF);
    time.dwHighDateTime = static_cast<DWORD>(ticks >> 32);
    SYSTEMTIME utc;
    return FileTimeToSystemTime(&time, &utc) != 0 &&
           SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local) != 0 && local.wYear <= kLastYear;
}

char* PutDigits(char* dst, unsigned value, int digits) {
    for (int i = digits - 1; i >= 0; --i, value /= 10) dst[i] = static_cast<char>('0' + value % 10);
    return dst + digits;
}

}  // namespace

bool FormatLocalTime(std::int64_t seconds, std::span<char> dst) {
    SYSTEMTIME time;
    if (dst.size() < kLocalTimeCapacity || !ToLocalTime(seconds, time)) return false;
    char* end = PutDigits(dst.data(), time.wYear, 4);
    const struct {
        char before;
        WORD value;
    } parts[] = {{'/', time.wMonth},
                 {'/', time.wDay},
                 {' ', time.wHour},
                 {':', time.wMinute},
                 {':', time.wSecond}};
    for (const auto& part : parts) {
        *end++ = part.before;
        end = PutDigits(end, part.value, 2);
    }
    *end = 0;
    return true;
}

}  // namespace qmx
