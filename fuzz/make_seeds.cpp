// Writes the seed files of the fuzz targets into the folder that the argument names.

#include <filesystem>
#include <fstream>

#include "support/cipher_seeds.h"
#include "support/note_seeds.h"
#include "support/raw_seeds.h"
#include "support/seed_files.h"

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    std::vector<qmx::test::SeedFile> seeds = qmx::test::SeedFiles();
    for (const qmx::test::SeedFile& seed : qmx::test::RawSeeds()) seeds.push_back(seed);
    for (const qmx::test::SeedFile& seed : qmx::test::NoteSeeds()) seeds.push_back(seed);
    for (const qmx::test::SeedFile& seed : qmx::test::CipherSeeds()) seeds.push_back(seed);
    for (const qmx::test::SeedFile& seed : seeds) {
        std::ofstream file(folder / seed.name, std::ios::binary);
        file.write(reinterpret_cast<const char*>(seed.bytes.data()),
                   static_cast<std::streamsize>(seed.bytes.size()));
    }
    return 0;
}
