#include "hostile/options.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
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
    using Text = const std::filesystem::path&;
    const auto number = [](Text text) { return std::strtoull(text.string().c_str(), nullptr, 10); };
    const std::map<std::string, std::function<void(Text)>> valued = {
        {"--mutate", [&](Text text) { options.mutants = number(text); }},
        {"--seed", [&](Text text) { options.seed = number(text); }},
        {"--max-size", [&](Text text) { options.maxSize = number(text); }},
        {"--time-limit",
         [&](Text text) { options.timeLimitSeconds = static_cast<double>(number(text)); }},
        {"--seconds", [&](Text text) { options.seconds = static_cast<double>(number(text)); }},
        {"--slow-ms",
         [&](Text text) { options.slowMilliseconds = static_cast<double>(number(text)); }},
        {"--memory-mib",
         [&](Text text) { options.memoryBytes = static_cast<std::int64_t>(number(text) << 20); }},
        {"--from", [&](Text text) { options.from = number(text); }},
        {"--worker", [&](Text text) { options.worker = text; }},
    };
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
        } else if (const auto option = valued.find(name);
                   option != valued.end() && i + 1 < arguments.size()) {
            option->second(arguments[++i]);
        } else {
            std::fputs(kUsage, stderr);
            return std::nullopt;
        }
    }
    return options;
}

}  // namespace qmx::hostile
