#include "hostile/options.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "bench/platform.h"

namespace qmx::hostile {
namespace {

constexpr char kUsage[] =
    "Usage: hostile_run [OPTION...] [FILE|FOLDER...]\n"
    "Runs every exported function, and on Windows both COM objects, over each file in a process "
    "of\n"
    "its own and tells what crashed, hung, leaked or answered otherwise than it must.  Without "
    "files\n"
    "it takes the small sound ones that the tests build.\n"
    "  --truncate         over every truncation of the files instead\n"
    "  --mutate COUNT     over so many damaged copies of the files instead\n"
    "  --seed N           number of the first one (else from the clock)\n"
    "  --max-size BYTES   leave out larger files when truncating or mutating (65536)\n"
    "  --no-com           only the exports\n"
    "  --time-limit S     seconds after which a file counts as hanging (10)\n"
    "  --seconds S        end the run after so long, with what has been done\n"
    "  --slow-ms N        report files that take longer, developments apart (50 in the release\n"
    "                     build, else 0: never)\n"
    "  --memory-mib N     report files that take more private memory beyond their size (16)\n";

}  // namespace

std::optional<Options> ReadOptions(int argc, char** argv) {
    Options options;
#if defined(NDEBUG)
    options.slowMilliseconds = 50;
#endif
    options.seed = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch() /
                                              std::chrono::milliseconds(1));
    std::uint64_t memoryMib = 0;
    const std::map<std::string, std::uint64_t*> counts = {{"--mutate", &options.mutants},
                                                          {"--seed", &options.seed},
                                                          {"--from", &options.from},
                                                          {"--max-size", &options.maxSize},
                                                          {"--memory-mib", &memoryMib}};
    const std::map<std::string, double*> times = {{"--time-limit", &options.timeLimitSeconds},
                                                  {"--seconds", &options.seconds},
                                                  {"--slow-ms", &options.slowMilliseconds}};
    const std::map<std::string, bool*> flags = {{"--truncate", &options.truncate},
                                                {"--fresh", &options.fresh}};
    const auto arguments = bench::ReadArguments(argc, argv);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string name = bench::ToUtf8(arguments[i]);
        if (!name.starts_with("--")) {
            options.places.push_back(arguments[i]);
        } else if (name == "--no-com") {
            options.objects = false;
        } else if (const auto flag = flags.find(name); flag != flags.end()) {
            *flag->second = true;
        } else if (i + 1 < arguments.size() && counts.contains(name)) {
            *counts.at(name) = std::strtoull(arguments[++i].string().c_str(), nullptr, 10);
        } else if (i + 1 < arguments.size() && times.contains(name)) {
            *times.at(name) = std::atof(arguments[++i].string().c_str());
        } else if (i + 1 < arguments.size() && name == "--worker") {
            options.worker = arguments[++i];
        } else {
            std::fputs(kUsage, stderr);
            return std::nullopt;
        }
    }
    if (memoryMib != 0) options.memoryBytes = static_cast<std::int64_t>(memoryMib << 20);
    return options;
}

}  // namespace qmx::hostile
