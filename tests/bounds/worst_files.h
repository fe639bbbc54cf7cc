#pragma once
// Files that cost the most for their size.

#include <functional>
#include <string>
#include <vector>

#include "support/tiff_builder.h"

namespace qmx::test {

struct WorstFile {
    std::string name;
    // A file of roughly this many bytes, 32 KiB at least.
    std::function<Bytes(std::size_t size)> build;
    bool isRaw = false;  // to be developed, else to be parsed
};

std::vector<WorstFile> WorstFiles();

}  // namespace qmx::test
