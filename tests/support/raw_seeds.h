#pragma once
// Small sound raw files of every layout, to be damaged by tests and mutated by fuzzers.

#include <vector>

#include "support/raw_builder.h"
#include "support/seed_files.h"

namespace qmx::test {

std::vector<SeedFile> RawSeeds();

}  // namespace qmx::test
