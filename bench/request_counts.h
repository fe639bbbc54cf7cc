// What a request takes of the system besides time: pages of its views, blocks of the heap.
#pragma once

#include <cstddef>
#include <optional>

namespace qmx::bench {

struct RequestCounts {
    std::size_t pages = 0;   // of views that were read
    std::size_t blocks = 0;  // allocated on the heap
};

// Counts what this thread does from Start to Stop, in the program and in every library: it leads
// mmap and the allocating functions through itself, and lets every page fail once.  Nothing where
// the build does not allow that: on Windows and under sanitizers.
void StartCounting();
std::optional<RequestCounts> StopCounting();

}  // namespace qmx::bench
