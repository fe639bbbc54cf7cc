// Writes one damaged copy of a file: what hostile_run calls "seed N of FILE".
//   hostile_mutate --seed N FILE > out

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "bench/platform.h"
#include "hostile/corpus.h"
#include "hostile/mutator.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

int main(int argc, char** argv) {
    using namespace qmx;
    const auto arguments = bench::ReadArguments(argc, argv);
    if (arguments.size() != 3 || arguments[0] != "--seed") {
        std::fputs(
            "Usage: hostile_mutate --seed N FILE > OUT\n"
            "FILE may also be the name of a file that the tests build:\n",
            stderr);
        for (const auto& file : hostile::BuiltInFiles())
            std::fprintf(stderr, "  %s\n", file.name.c_str());
        return 2;
    }
    const std::uint64_t seed = std::strtoull(arguments[1].string().c_str(), nullptr, 10);
    const std::string name = bench::ToUtf8(arguments[2]);
    test::Bytes out;
    for (const auto& file : hostile::BuiltInFiles())
        if (file.name == name) out = hostile::Mutate(file, seed);
    if (std::filesystem::is_regular_file(arguments[2]))
        out = hostile::Mutate(hostile::MakeSound(name, hostile::ReadFile(arguments[2])), seed);
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    return std::fwrite(out.data(), 1, out.size(), stdout) == out.size() ? 0 : 1;
}
