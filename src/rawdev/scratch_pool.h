#pragma once
// Memory of one development run.  The run owns it, not the readers that use it, so that a reader
// may be left at any point without a leak.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <type_traits>

namespace qmx {

struct FreeMemory {
    void operator()(void* block) const { std::free(block); }
};

// Arrays that live as long as their owner; null when memory is short.
template <class T>
using OwnedArray = std::unique_ptr<T[], FreeMemory>;

// Zeroed; large blocks come from the system as zero pages that cost nothing until they are touched.
template <class T>
OwnedArray<T> AllocateZeroed(std::uint64_t count) {
    static_assert(std::is_trivially_copyable_v<T>);
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) return nullptr;
    const auto items = static_cast<std::size_t>(count);
    return OwnedArray<T>(static_cast<T*>(std::calloc(items == 0 ? 1 : items, sizeof(T))));
}

// The same for what is written as a whole: there is no need to touch it twice.
template <class T>
OwnedArray<T> AllocateUnset(std::uint64_t count) {
    static_assert(std::is_trivially_copyable_v<T>);
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) return nullptr;
    const auto items = static_cast<std::size_t>(count);
    return OwnedArray<T>(static_cast<T*>(std::malloc(items == 0 ? 1 : items * sizeof(T))));
}

// A few blocks of different types that are freed together.
class ScratchPool {
public:
    // Null when memory is short or every place is taken.
    template <class T>
    T* Take(std::uint64_t count) {
        T* const items = used_ == blocks_.size() ? nullptr : AllocateZeroed<T>(count).release();
        ranShort_ |= items == nullptr;
        if (items != nullptr) blocks_[used_++].reset(items);
        return items;
    }
    bool RanShort() const { return ranShort_; }
    void Clear() {
        for (auto& block : blocks_) block.reset();
        used_ = 0;
    }

private:
    std::array<std::unique_ptr<void, FreeMemory>, 16> blocks_;
    std::size_t used_ = 0;
    bool ranShort_ = false;
};

}  // namespace qmx
