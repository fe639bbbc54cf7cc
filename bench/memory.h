// The memory that the process has for itself alone; mapped files do not count.
#pragma once

#include <cstdint>

#ifdef _WIN32
#include <windows.h>

#include <psapi.h>
#else
#include <malloc.h>
#include <unistd.h>

#include <fstream>
#endif

namespace qmx::bench {

#ifdef _WIN32

inline std::uint64_t PrivateMemory() {
    PROCESS_MEMORY_COUNTERS_EX counters = {};
    K32GetProcessMemoryInfo(GetCurrentProcess(),
                            reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters), sizeof counters);
    return counters.PrivateUsage;
}

// Gives what was freed back to the system, where that does not happen at once.
inline void ReleaseFreeMemory() {}

#else

inline std::uint64_t PrivateMemory() {
    std::uint64_t all = 0, resident = 0, shared = 0;
    std::ifstream("/proc/self/statm") >> all >> resident >> shared;
    return (resident - shared) * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

inline void ReleaseFreeMemory() { malloc_trim(0); }

#endif

}  // namespace qmx::bench
