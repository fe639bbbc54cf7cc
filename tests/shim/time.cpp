// Times: the zone is the host's.

#include <windows.h>

#include <cstdint>
#include <ctime>

namespace {

constexpr std::uint64_t kTicksPerSecond = 10'000'000;
constexpr std::uint64_t kEpoch = 116'444'736'000'000'000;  // 1970 in ticks since 1601

void Fill(const tm& from, SYSTEMTIME* to) {
    *to = {};
    to->wYear = static_cast<WORD>(from.tm_year + 1900);
    to->wMonth = static_cast<WORD>(from.tm_mon + 1);
    to->wDayOfWeek = static_cast<WORD>(from.tm_wday);
    to->wDay = static_cast<WORD>(from.tm_mday);
    to->wHour = static_cast<WORD>(from.tm_hour);
    to->wMinute = static_cast<WORD>(from.tm_min);
    to->wSecond = static_cast<WORD>(from.tm_sec);
}

}  // namespace

extern "C" BOOL WINAPI FileTimeToSystemTime(const FILETIME* time, SYSTEMTIME* utc) {
    const std::uint64_t ticks = std::uint64_t{time->dwHighDateTime} << 32 | time->dwLowDateTime;
    const auto seconds = static_cast<time_t>(ticks / kTicksPerSecond) -
                         static_cast<time_t>(kEpoch / kTicksPerSecond);
    tm parts;
    if (gmtime_r(&seconds, &parts) == nullptr) return FALSE;
    Fill(parts, utc);
    return TRUE;
}

extern "C" BOOL WINAPI SystemTimeToTzSpecificLocalTime(const TIME_ZONE_INFORMATION*,
                                                       const SYSTEMTIME* utc, SYSTEMTIME* local) {
    tm parts = {};
    parts.tm_year = utc->wYear - 1900;
    parts.tm_mon = utc->wMonth - 1;
    parts.tm_mday = utc->wDay;
    parts.tm_hour = utc->wHour;
    parts.tm_min = utc->wMinute;
    parts.tm_sec = utc->wSecond;
    const time_t seconds = timegm(&parts);
    if (localtime_r(&seconds, &parts) == nullptr) return FALSE;
    Fill(parts, local);
    return TRUE;
}
