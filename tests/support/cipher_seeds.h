#pragma once
// Small sound photos of the makers who encipher parts of their MakerNotes, Nikon and Sony: every
// header form, cipher version, enciphered block and form of the settings.

#include <vector>

#include "support/seed_files.h"

namespace qmx::test {

std::vector<SeedFile> CipherSeeds();

}  // namespace qmx::test
