#pragma once
// Small sound files of every kind, to be damaged by tests and mutated by fuzzers.

#include <string>
#include <vector>

#include "support/tiff_builder.h"

namespace qmx::test {

// A JPEG photo with all directories, two previews, a MakerNote and a position.
Bytes FullPhoto(Order order);

struct SeedFile {
    std::string name;  // with its extension
    Bytes bytes;
};
std::vector<SeedFile> SeedFiles();

}  // namespace qmx::test
