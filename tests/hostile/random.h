#pragma once
// Numbers that look random and are the same for the same seed on every machine.

#include <cstddef>
#include <cstdint>

namespace qmx::hostile {

// SplitMix64.  Any seed is as good as any other, so seeds in a row make unrelated sequences.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t Next() {
        state_ += 0x9E3779B97F4A7C15u;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9u;
        mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EBu;
        return mixed ^ mixed >> 31;
    }
    // Below `bound`; 0 when that is 0.
    std::size_t Below(std::size_t bound) {
        return bound == 0 ? 0 : static_cast<std::size_t>(Next() % bound);
    }
    template <class List>
    auto& Of(List& list) {
        return list[Below(std::size(list))];
    }

private:
    std::uint64_t state_;
};

}  // namespace qmx::hostile
