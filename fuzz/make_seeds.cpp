// Writes the seeds of the fuzz targets into the folder that the argument names, one folder for each
// target.

#include <filesystem>
#include <fstream>

#include "parse/containers/signature.h"
#include "support/note_seeds.h"
#include "support/raw_seeds.h"
#include "target_seeds.h"

namespace {

using namespace qmx;

const char* ReaderOf(const test::SeedFile& file) {
    switch (RecogniseContainer(file.bytes)) {
        case Container::kCiff: return "ciff_fuzz";
        case Container::kJpeg: return "jpeg_fuzz";
        case Container::kMrw: return "mrw_fuzz";
        case Container::kRaf: return "raf_fuzz";
        case Container::kX3f: return "x3f_fuzz";
        default: return "tiff_fuzz";
    }
}

void Write(const std::filesystem::path& folder, const test::SeedFile& seed) {
    std::filesystem::create_directories(folder);
    std::ofstream file(folder / seed.name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(seed.bytes.data()),
               static_cast<std::streamsize>(seed.bytes.size()));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const std::filesystem::path folder = argv[1];
    std::vector<test::SeedFile> files = test::SeedFiles();
    const std::vector<test::SeedFile> notes = test::NoteSeeds();
    files.insert(files.end(), notes.begin(), notes.end());
    for (const test::SeedFile& file : files)
        for (const char* target : {"request_fuzz", ReaderOf(file)}) Write(folder / target, file);
    for (const test::SeedFile& file : test::RawSeeds())
        for (const char* target : {"raw_request_fuzz", "rawdev_path_fuzz"})
            Write(folder / target, file);
    for (const fuzz::TargetSeeds& seeds :
         {fuzz::NoteSeeds(files), fuzz::SectionSeeds(files), fuzz::PartSeeds()})
        for (const fuzz::TargetSeed& seed : seeds) Write(folder / seed.target, seed.file);
    return 0;
}
