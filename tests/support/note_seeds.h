#pragma once
// Small sound photos whose MakerNotes have every form, directory, cipher and block that their
// makers' decoders read, to be mutated by fuzzers.

#include <vector>

#include "support/seed_files.h"

namespace qmx::test {

// Minolta, Olympus, Pentax with Samsung, Ricoh, Nikon, Sony; and a picture that Photoshop has
// saved.
std::vector<SeedFile> NoteSeeds();

}  // namespace qmx::test
