#pragma once
// The count of everything that keeps the DLL loaded.

#include <atomic>
#include <cstdint>

namespace qmx {

class LockCount {
public:
    void Add() { ++count_; }
    void Remove() { --count_; }
    bool IsZero() const { return count_ == 0; }

private:
    std::atomic<std::int32_t> count_ = 0;
};

// Holds one lock for the time of its life.
class ModuleLock {
public:
    explicit ModuleLock(LockCount& count) : count_(count) { count_.Add(); }
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
    ~ModuleLock() { count_.Remove(); }

private:
    LockCount& count_;
};

}  // namespace qmx
