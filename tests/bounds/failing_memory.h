#pragma once
// Memory that runs short on purpose: in this program the allocation that a test names fails, and
// every block that is not given back is known.  Counts operator new and the C functions as called
// by the library, the shim and the tests, on the calling thread.

namespace qmx::test {

// Blocks that exist.
long LiveBlocks();

// For the time of a scope, the allocation number `index` from its start, counted from 0, fails.
class FailingMemory {
public:
    explicit FailingMemory(long index);
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;
    ~FailingMemory();

    // Whether it came to that allocation.
    bool HasFailed() const;
};

}  // namespace qmx::test
