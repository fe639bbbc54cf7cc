// Measures what loading and freeing the library costs, as a multiple of what a library costs that
// holds nothing.  Both lie beside the program.
//
//     load_bench [REPEATS]

#include "platform.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace qmx::bench {
namespace {

constexpr int kDefaultRepeats = 501;

double LoadAndFree(const std::filesystem::path& file) {
    const auto start = std::chrono::steady_clock::now();
    const HMODULE module = LoadLibraryW(file.c_str());
    if (module == nullptr) return -1;
    FreeLibrary(module);
    const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
    return time.count();
}

// Below it lies one of so many values.
double Quantile(std::vector<double>& values, std::size_t parts) {
    const auto wanted = values.begin() + static_cast<std::ptrdiff_t>(values.size() / parts);
    std::nth_element(values.begin(), wanted, values.end());
    return *wanted;
}

int Run(int repeats) {
    const std::filesystem::path folder = FindProgramFolder();
    const std::filesystem::path empty = folder / "libempty_module.dll";
    const std::filesystem::path ours = folder / kLibraryName;
    std::vector<double> emptyTimes;
    std::vector<double> ourTimes;
    for (int i = 0; i < repeats; ++i) {
        emptyTimes.push_back(LoadAndFree(empty));
        ourTimes.push_back(LoadAndFree(ours));
        if (emptyTimes.back() < 0 || ourTimes.back() < 0) {
            std::fprintf(stderr, "cannot load the libraries beside the program\n");
            return 2;
        }
    }
    std::printf("load and free, %d times; limit of the ratio 2\n", repeats);
    // Other programs on the machine disturb the fastest tenth least.
    for (const std::size_t parts : {std::size_t{10}, std::size_t{2}}) {
        const double emptyTime = Quantile(emptyTimes, parts);
        const double ourTime = Quantile(ourTimes, parts);
        std::printf("%-14s empty %8.1f us, %s %8.1f us, ratio %.2f\n",
                    parts == 2 ? "median" : "fastest tenth", emptyTime, kLibraryName, ourTime,
                    ourTime / emptyTime);
    }
    return 0;
}

}  // namespace
}  // namespace qmx::bench

int main(int argc, char** argv) {
    const int repeats = argc > 1 ? std::atoi(argv[1]) : qmx::bench::kDefaultRepeats;
    return qmx::bench::Run(std::clamp(repeats, 1, 1000000));
}
