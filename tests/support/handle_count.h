#pragma once
// How many handles this process has open; Windows only.

#include <windows.h>

#include <cstdint>

namespace qmx::test {

// Wine counts none; a new handle is the lowest free one there, in steps of 4.
inline std::int64_t CountHandles() {
    DWORD count = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &count) && count != 0) return count;
    const HANDLE next = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(next);
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(next) / 4);
}

}  // namespace qmx::test
