#pragma once
// The command line of the runner.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace qmx::hostile {

struct Options {
    std::vector<std::filesystem::path> places;  // none: the files that the tests build
    bool truncate = false;
    std::uint64_t mutants = 0;
    std::uint64_t seed = 0;
    bool objects = true;
    double timeLimitSeconds = 10;  // for all requests on one file
    double seconds = 0;            // after which no other hostile file is begun; 0: never
    double slowMilliseconds = 0;   // 0: no limit
    std::int64_t memoryBytes = std::int64_t{16} << 20;  // beyond the file's own size
    std::uint64_t maxSize = 65536;                      // of files to truncate or mutate
    // What the parent tells its worker.
    std::filesystem::path worker;  // the folder with the shared page
    bool fresh = false;
    std::uint64_t from = 0;
};

// Nothing, after a message, when the arguments make no sense.
std::optional<Options> ReadOptions(int argc, char** argv);

}  // namespace qmx::hostile
