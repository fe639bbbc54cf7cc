#pragma once
// What the process holds, and what the library asks for on the calling thread.

#include <cstdint>

namespace qmx::hostile {

// Handles or file descriptors in use: a number that grows by one with each that is not closed.
std::int64_t CountHandles();

// Objects of GDI; 0 where there is none.
std::int64_t CountGdiObjects();

// Everything allocated on the heaps of the process, in bytes.
std::int64_t CountHeapBytes();

// From now on what the library allocates is counted, natively with everything else in the process.
void StartCountingAllocations();

// Bytes allocated and not freed on this thread since the last reset, now and at the most.
struct Allocations {
    std::int64_t live = 0;
    std::int64_t peak = 0;
};
void ResetAllocations();
Allocations CurrentAllocations();

}  // namespace qmx::hostile
