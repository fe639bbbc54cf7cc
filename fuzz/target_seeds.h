#pragma once
// The seeds of the targets that are given parts of files.

#include <string>
#include <vector>

#include "support/seed_files.h"

namespace qmx::fuzz {

struct TargetSeed {
    std::string target;  // the name of the program
    test::SeedFile file;
};
using TargetSeeds = std::vector<TargetSeed>;

// The name of a maker's target of this kind, "note" or "section"; empty when there is none.
std::string MakerTarget(std::uint32_t maker, const std::string& kind);

// The notes in the seed files, and for every maker notes with all tags that it may have.
TargetSeeds NoteSeeds(const std::vector<test::SeedFile>& files);

// Records as the seed files fill them, and records of small codes.
TargetSeeds SectionSeeds(const std::vector<test::SeedFile>& files);

// Sample data of every loader, sections of X3F files, Photoshop's resources, scripts.
TargetSeeds PartSeeds();

}  // namespace qmx::fuzz
