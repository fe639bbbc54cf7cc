#pragma once
// Files with one to six faults of the kind that structures can have: tags, types, counts, offsets
// and byte orders that are wrong, entries exchanged, doubled and dropped, offsets that lead to
// other structures or back to themselves, pieces cut off, moved, or taken from another file.

#include <string>

#include "hostile/structure.h"

namespace qmx::hostile {

struct SoundFile {
    std::string name;  // UTF-8
    Bytes bytes;
    Structure structure;
};
SoundFile MakeSound(std::string name, Bytes bytes);

// The small sound files that the tests build, one of each kind.
const std::vector<SoundFile>& BuiltInFiles();

// The mutation with this number: always the same for the same file.
Bytes Mutate(const SoundFile& file, std::uint64_t number);

}  // namespace qmx::hostile
