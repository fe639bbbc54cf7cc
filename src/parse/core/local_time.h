#pragma once
// Moments that files hold as seconds since 1970 (UTC), as the user's local time.

#include <cstdint>
#include <span>

namespace qmx {

// "2008/07/31 12:34:56" and its terminator.
inline constexpr std::size_t kLocalTimeCapacity = 20;

// Writes the moment as text.  False, with nothing written, for one before 1970 or after 9999.
bool FormatLocalTime(std::int64_t seconds, std::span<char> dst);

}  // namespace qmx
