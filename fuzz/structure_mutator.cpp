// A mutator that knows structures.  Changes of single bytes mostly break a directory; this one
// changes tags, types, counts and offsets as a whole and leaves the rest sound.

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "hostile/mutator.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
    using namespace qmx::hostile;
    if (size == 0 || seed % 3 == 0) return LLVMFuzzerMutate(data, size, maxSize);
    const Bytes mutant = Mutate(MakeSound({}, Bytes(data, data + size)), seed);
    const std::size_t length = std::min(mutant.size(), maxSize);
    std::copy_n(mutant.begin(), length, data);
    return length;
}
