// Measures what the library's requests cost per file, as a multiple of the least that any reader
// of the file must do: open, get the size, map, touch the first 64 KiB, unmap, close.
//
//     request_bench [--repeat N] [--csv OUT] [--dll LIBRARY] [FILE|FOLDER]...

#include "copy_stream.h"
#include "platform.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace qmx::bench {
namespace {

namespace fs = std::filesystem;

enum Operation : std::size_t { kFloor, kInfo, kInfoText, kThumbnail, kList, kOperations };

struct OperationRow {
    const char* name;
    double limit;  // of the ratio to the floor
};

constexpr OperationRow kRows[kOperations] = {
    {"floor", 1.0}, {"info", 1.2}, {"info_text", 1.2}, {"thumbnail", 1.3}, {"list", 1.4},
};

constexpr int kWarmUpRounds = 5;
constexpr std::size_t kDefaultRepeats = 201;
constexpr int kMaxRepeats = 1000000;

struct Library {
    decltype(&ExifGetExifInfoEx) getInfo = nullptr;
    decltype(&ExifGetInfoTip) getInfoTip = nullptr;
    decltype(&ExifGetThumbnailImage) getThumbnail = nullptr;
    decltype(&ExifEnumInfo) enumInfo = nullptr;
};

struct Options {
    std::size_t repeats = kDefaultRepeats;
    fs::path csv;
    fs::path library;
    std::vector<fs::path> inputs;
};

// What one file cost; an operation that did not succeed has no time.
struct FileResult {
    fs::path file;
    std::uintmax_t bytes = 0;
    std::array<std::optional<double>, kOperations> microseconds;

    std::optional<double> Ratio(std::size_t operation) const {
        if (!microseconds[operation]) return std::nullopt;
        return *microseconds[operation] / *microseconds[kFloor];
    }
};

INT_PTR CALLBACK CountItem(UINT32, const WCHAR*, const WCHAR*, INT_PTR user) {
    return static_cast<INT_PTR>(++*reinterpret_cast<std::size_t*>(user));
}

// A .raw file is developed, which is not a thumbnail request's work.
bool IsDeveloped(const fs::path& file) {
    const std::string extension = ToUtf8(file.extension());
    constexpr char kRaw[] = ".raw";
    return std::equal(extension.begin(), extension.end(), kRaw, kRaw + 4,
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a + 32 : a) == b; });
}

// One file with everything its requests need, so that nothing is prepared while the clock runs.
class Requests {
public:
    Requests(const Library& library, CopyStream& stream, const fs::path& file)
        : library_(library),
          stream_(stream),
          openable_(ToOpenablePath(file)),
          path_(ToWide(file)),
          developed_(IsDeveloped(file)) {}

    bool Run(std::size_t operation) {
        switch (operation) {
            case kFloor: return RunFloor(openable_);
            case kInfo: return library_.getInfo(path_.data(), nullptr, nullptr, 0, &info_) == 1;
            case kInfoText:
                return library_.getInfoTip(path_.data(), text_.data(),
                                           static_cast<INT32>(text_.size())) == 1;
            case kThumbnail:
                stream_.Seek({}, 0, nullptr);
                return !developed_ &&
                       library_.getThumbnail(path_.data(), &stream_, nullptr, 0, nullptr, 0) == 1;
            default:
                return library_.enumInfo(path_.data(), CountItem,
                                         reinterpret_cast<INT_PTR>(&items_)) == 1;
        }
    }

private:
    const Library& library_;
    CopyStream& stream_;
    fs::path openable_;
    WideText path_;
    bool developed_;
    InfoRequest info_ = {};
    std::array<wchar_t, QMXEXIF_TEXT_BUFFER_LENGTH> text_ = {};
    std::size_t items_ = 0;
};

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// Times every operation once per round.  The order turns and runs backwards every other round, so
// that no operation always profits from the same predecessor and noise hits all alike.
FileResult MeasureFile(const Library& library, CopyStream& stream, const fs::path& file,
                       std::size_t rounds) {
    using Clock = std::chrono::steady_clock;
    FileResult result;
    result.file = file;
    std::error_code error;
    result.bytes = fs::file_size(file, error);

    Requests requests(library, stream, file);
    std::vector<std::size_t> working;
    for (std::size_t operation = kFloor; operation < kOperations; ++operation) {
        bool works = true;
        for (int round = 0; works && round < kWarmUpRounds; ++round)
            works = requests.Run(operation);
        if (works) working.push_back(operation);
        if (!works && operation == kFloor) return result;
    }

    std::array<std::vector<double>, kOperations> samples;
    for (const std::size_t operation : working) samples[operation].reserve(rounds);
    const std::size_t count = working.size();
    for (std::size_t round = 0; round < rounds; ++round) {
        for (std::size_t step = 0; step < count; ++step) {
            const std::size_t turned = (step + round / 2) % count;
            const std::size_t operation = working[round % 2 == 0 ? turned : count - 1 - turned];
            const Clock::time_point start = Clock::now();
            requests.Run(operation);
            const std::chrono::duration<double, std::micro> time = Clock::now() - start;
            samples[operation].push_back(time.count());
        }
    }
    for (const std::size_t operation : working)
        result.microseconds[operation] = Median(samples[operation]);
    return result;
}

void PrintOperation(const std::vector<FileResult>& results, std::size_t operation) {
    std::vector<double> times;
    std::vector<double> ratios;
    const FileResult* worst = nullptr;
    for (const FileResult& result : results) {
        const std::optional<double> ratio = result.Ratio(operation);
        if (!ratio) continue;
        times.push_back(*result.microseconds[operation]);
        ratios.push_back(*ratio);
        if (worst == nullptr || *ratio > *worst->Ratio(operation)) worst = &result;
    }
    const OperationRow& row = kRows[operation];
    const std::size_t without = results.size() - times.size();
    if (worst == nullptr) {
        std::printf("%-10s %6zu %8zu\n", row.name, times.size(), without);
        return;
    }
    std::printf("%-10s %6zu %8zu %10.2f", row.name, times.size(), without, Median(times));
    if (operation != kFloor) {
        const double ratio = Median(ratios);
        std::printf(" %8.2f %8.2f %6.1f %-5s  %s", ratio, *worst->Ratio(operation), row.limit,
                    ratio <= row.limit ? "holds" : "MISSED", ToUtf8(worst->file).c_str());
    }
    std::printf("\n");
}

void PrintReport(const std::vector<FileResult>& results, std::size_t unreadable,
                 std::size_t repeats) {
    std::printf("%zu files, %zu unreadable; %zu interleaved repeats, medians\n\n", results.size(),
                unreadable, repeats);
    std::printf("%-10s %6s %8s %10s %8s %8s %6s %-6s %s\n", "request", "files", "without", "us",
                "ratio", "worst", "limit", "", "worst file");
    for (std::size_t operation = kFloor; operation < kOperations; ++operation)
        PrintOperation(results, operation);
}

bool WriteCsv(const fs::path& path, const std::vector<FileResult>& results) {
    std::ofstream out(path, std::ios::binary);
    out << "file,bytes";
    for (const OperationRow& row : kRows) out << ',' << row.name << "_us," << row.name << "_ratio";
    out << '\n';
    for (const FileResult& result : results) {
        std::string quoted;
        for (const char c : ToUtf8(result.file)) quoted.append(c == '"' ? 2 : 1, c);
        out << '"' << quoted << "\"," << result.bytes;
        for (std::size_t operation = kFloor; operation < kOperations; ++operation) {
            out << ',';
            if (result.microseconds[operation]) out << *result.microseconds[operation];
            out << ',';
            if (result.Ratio(operation)) out << *result.Ratio(operation);
        }
        out << '\n';
    }
    return static_cast<bool>(out.flush());
}

// The file `relative` to `folder` or to a folder above it; an empty path when there is none.
fs::path FindUpwards(fs::path folder, const fs::path& relative) {
    std::error_code error;
    for (;;) {
        if (fs::is_regular_file(folder / relative, error)) return folder / relative;
        const fs::path parent = folder.parent_path();
        if (parent == folder) return {};
        folder = parent;
    }
}

std::vector<fs::path> CollectFiles(const std::vector<fs::path>& inputs) {
    std::vector<fs::path> files;
    std::error_code error;
    for (const fs::path& input : inputs) {
        const fs::path absolute = fs::absolute(input, error);
        if (!fs::is_directory(absolute, error)) {
            files.push_back(absolute);
            continue;
        }
        fs::recursive_directory_iterator entry(
            absolute, fs::directory_options::skip_permission_denied, error);
        for (; entry != fs::recursive_directory_iterator(); entry.increment(error))
            if (entry->is_regular_file(error)) files.push_back(entry->path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool LoadLibraryFile(const fs::path& file, Library& library) {
    void* module = LoadModule(file);
    return module != nullptr && FindFunction(module, "ExifGetExifInfoEx", library.getInfo) &&
           FindFunction(module, "ExifGetInfoTip", library.getInfoTip) &&
           FindFunction(module, "ExifGetThumbnailImage", library.getThumbnail) &&
           FindFunction(module, "ExifEnumInfo", library.enumInfo);
}

bool ParseRepeats(const std::string& text, std::size_t& repeats) {
    char* end = nullptr;
    const long long value = std::strtoll(text.c_str(), &end, 10);
    if (end == text.c_str() || *end != '\0' || value < 1 || value > kMaxRepeats) return false;
    repeats = static_cast<std::size_t>(value);
    return true;
}

bool ParseOptions(const std::vector<fs::path>& arguments, Options& options) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string text = ToUtf8(arguments[i]);
        if (text.compare(0, 2, "--") != 0) {
            options.inputs.push_back(arguments[i]);
            continue;
        }
        if (++i == arguments.size()) return false;
        const fs::path& value = arguments[i];
        if (text == "--csv")
            options.csv = value;
        else if (text == "--dll")
            options.library = value;
        else if (text != "--repeat" || !ParseRepeats(ToUtf8(value), options.repeats))
            return false;
    }
    return true;
}

int RunBenchmark(Options options) {
    std::error_code error;
    const fs::path folder = FindProgramFolder();
    if (options.library.empty()) options.library = FindUpwards(folder, kLibraryName);
    if (options.library.empty()) options.library = folder / kLibraryName;
    if (options.inputs.empty()) {
        const fs::path sample = FindUpwards(folder, fs::path("tools") / "sample" / "sample.jpg");
        if (!sample.empty()) options.inputs.push_back(sample);
    }
    Library library;
    options.library = fs::absolute(options.library, error);
    if (!LoadLibraryFile(options.library, library)) {
        std::fprintf(stderr, "cannot load %s\n", ToUtf8(options.library).c_str());
        return 2;
    }

    constexpr std::size_t kStreamBytes = std::size_t{4} << 20;
    CopyStream stream(kStreamBytes);
    std::vector<FileResult> results;
    std::size_t unreadable = 0;
    for (const fs::path& file : CollectFiles(options.inputs)) {
        FileResult result = MeasureFile(library, stream, file, options.repeats);
        if (result.microseconds[kFloor])
            results.push_back(std::move(result));
        else
            ++unreadable;
    }
    std::printf("%s\n", ToUtf8(options.library).c_str());
    PrintReport(results, unreadable, options.repeats);
    if (!options.csv.empty() && !WriteCsv(options.csv, results)) {
        std::fprintf(stderr, "cannot write %s\n", ToUtf8(options.csv).c_str());
        return 2;
    }
    return results.empty() ? 1 : 0;
}

}  // namespace
}  // namespace qmx::bench

int main(int argc, char** argv) {
    qmx::bench::Options options;
    if (!qmx::bench::ParseOptions(qmx::bench::ReadArguments(argc, argv), options)) {
        std::fprintf(stderr,
                     "usage: request_bench [--repeat N] [--csv OUT] [--dll LIBRARY] "
                     "[FILE|FOLDER]...\n");
        return 2;
    }
    return qmx::bench::RunBenchmark(std::move(options));
}
