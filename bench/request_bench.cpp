// Measures what the library's requests cost per file, as a multiple of the least that any reader
// of the file must do: open, get the size, map, touch the first 64 KiB, unmap, close.
//
//     request_bench [--repeat N] [--csv OUT] [--dll LIBRARY] [--only REQUEST] [FILE|FOLDER]...

#include "copy_stream.h"
#include "platform.h"
#include "request_counts.h"

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

enum Operation : std::size_t {
    kFloor,
    kInfo,
    kInfoText,
    kThumbnail,
    kList,
    kPrimary,
    kDevelop,
    kOperations
};

constexpr double kNoLimit = 0;

// Limits of the ratio to the floor: of the files' median, and of the ninth of ten.
struct OperationRow {
    const char* name;
    double limit;
    double ninthLimit = kNoLimit;
};

// The last two copy or make whole pictures, whose cost is the picture's.
constexpr OperationRow kRows[kOperations] = {
    {"floor", kNoLimit}, {"info", 1.05, 1.3},   {"info_text", kNoLimit}, {"thumbnail", 1.15},
    {"list", 1.2},       {"primary", kNoLimit}, {"develop", kNoLimit},
};

constexpr int kWarmUpRounds = 5;
constexpr std::size_t kDefaultRepeats = 201;
constexpr int kMaxRepeats = 1000000;
constexpr std::size_t kSlowest = 5;
// Development takes a hundred times as long as the others.
constexpr std::size_t kRoundsPerDevelopment = 20;

struct Library {
    decltype(&ExifGetExifInfoEx) getInfo = nullptr;
    decltype(&ExifGetInfoTip) getInfoTip = nullptr;
    decltype(&ExifGetThumbnailImage) getThumbnail = nullptr;
    decltype(&ExifGetPrimaryImage) getPrimary = nullptr;
    decltype(&ExifEnumInfo) enumInfo = nullptr;
};

struct Options {
    std::size_t repeats = kDefaultRepeats;
    fs::path csv;
    fs::path library;
    std::size_t only = kOperations;  // all
    std::vector<fs::path> inputs;
};

// What one file cost; an operation that did not succeed has no time.
struct FileResult {
    fs::path file;
    std::uintmax_t bytes = 0;
    std::array<std::optional<double>, kOperations> microseconds;
    std::array<std::optional<RequestCounts>, kOperations> counts;

    std::optional<double> Ratio(std::size_t operation) const {
        if (!microseconds[operation]) return std::nullopt;
        return *microseconds[operation] / *microseconds[kFloor];
    }
};

INT_PTR CALLBACK CountItem(UINT32, const WCHAR*, const WCHAR*, INT_PTR user) {
    return static_cast<INT_PTR>(++*reinterpret_cast<std::size_t*>(user));
}

std::string LowerExtension(const fs::path& file) {
    std::string extension = ToUtf8(file.extension());
    for (char& c : extension)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return extension;
}

// One file with everything its requests need, so that nothing is prepared while the clock runs.
class Requests {
public:
    Requests(const Library& library, CopyStream& stream, const fs::path& file)
        : library_(library),
          stream_(stream),
          openable_(ToOpenablePath(file)),
          path_(ToWide(file)),
          extension_(LowerExtension(file)) {}

    bool Run(std::size_t operation) {
        switch (operation) {
            case kFloor: return RunFloor(openable_);
            case kInfo: return library_.getInfo(path_.data(), nullptr, nullptr, 0, &info_) == 1;
            case kInfoText:
                return library_.getInfoTip(path_.data(), text_.data(),
                                           static_cast<INT32>(text_.size())) == 1;
            case kThumbnail:
                stream_.Seek({}, 0, nullptr);
                return extension_ != ".raw" &&
                       library_.getThumbnail(path_.data(), &stream_, nullptr, 0, nullptr, 0) == 1;
            case kPrimary:
            case kDevelop:
                stream_.Seek({}, 0, nullptr);
                return (operation == kDevelop) == IsDeveloped() &&
                       library_.getPrimary(path_.data(), &stream_) == 1;
            default:
                return library_.enumInfo(path_.data(), CountItem,
                                         reinterpret_cast<INT_PTR>(&items_)) == 1;
        }
    }

private:
    // Rather than read, by a request for the large picture.
    bool IsDeveloped() const {
        return extension_ == ".raw" || extension_ == ".erf" || extension_ == ".3fr";
    }

    const Library& library_;
    CopyStream& stream_;
    fs::path openable_;
    WideText path_;
    std::string extension_;
    InfoRequest info_ = {};
    std::array<wchar_t, QMXEXIF_TEXT_BUFFER_LENGTH> text_ = {};
    std::size_t items_ = 0;
};

// The value that this share of the values is below.
double Quantile(std::vector<double> values, double share) {
    const double index = share * static_cast<double>(values.size());
    const auto wanted = values.begin() + static_cast<std::ptrdiff_t>(index);
    std::nth_element(values.begin(), wanted, values.end());
    return *wanted;
}

double Median(const std::vector<double>& values) { return Quantile(values, 0.5); }

// Times every operation once per round.  The order turns and runs backwards every other round, so
// that no operation always profits from the same predecessor and noise hits all alike.
FileResult MeasureFile(const Library& library, CopyStream& stream, const fs::path& file,
                       const Options& options) {
    using Clock = std::chrono::steady_clock;
    FileResult result;
    result.file = file;
    std::error_code error;
    result.bytes = fs::file_size(file, error);

    Requests requests(library, stream, file);
    std::vector<std::size_t> working;
    for (std::size_t operation = kFloor; operation < kOperations; ++operation) {
        if (operation != kFloor && options.only != kOperations && options.only != operation)
            continue;
        bool works = true;
        for (int round = 0; works && round < kWarmUpRounds; ++round)
            works = requests.Run(operation);
        if (!works && operation == kFloor) return result;
        if (!works) continue;
        working.push_back(operation);
        if (options.only != kOperations) continue;  // profilers do not bear the faults
        StartCounting();
        requests.Run(operation);
        result.counts[operation] = StopCounting();
    }

    std::array<std::vector<double>, kOperations> samples;
    for (const std::size_t operation : working) samples[operation].reserve(options.repeats);
    const std::size_t count = working.size();
    for (std::size_t round = 0; round < options.repeats; ++round) {
        for (std::size_t step = 0; step < count; ++step) {
            const std::size_t turned = (step + round / 2) % count;
            const std::size_t operation = working[round % 2 == 0 ? turned : count - 1 - turned];
            if (operation == kDevelop && round % kRoundsPerDevelopment != 0) continue;
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

// Of what was counted, over all files: the median and the most.
void PrintCounts(const std::vector<double>& values) {
    if (values.empty())
        std::printf(" %9s", "");
    else
        std::printf(" %4.0f/%-4.0f", Median(values),
                    *std::max_element(values.begin(), values.end()));
}

const char* Verdict(double ratio, double ninth, const OperationRow& row) {
    if (row.limit == kNoLimit) return "";
    const bool holds =
        ratio <= row.limit && (row.ninthLimit == kNoLimit || ninth <= row.ninthLimit);
    return holds ? "holds" : "MISSED";
}

void PrintOperation(const std::vector<FileResult>& results, std::size_t operation) {
    std::vector<double> times;
    std::vector<double> ratios;
    std::vector<double> pages;
    std::vector<double> blocks;
    for (const FileResult& result : results) {
        const std::optional<double> ratio = result.Ratio(operation);
        if (!ratio) continue;
        times.push_back(*result.microseconds[operation]);
        ratios.push_back(*ratio);
        if (!result.counts[operation]) continue;
        pages.push_back(static_cast<double>(result.counts[operation]->pages));
        blocks.push_back(static_cast<double>(result.counts[operation]->blocks));
    }
    const OperationRow& row = kRows[operation];
    std::printf("%-10s %6zu %8zu", row.name, times.size(), results.size() - times.size());
    if (!times.empty()) {
        const double ratio = Median(ratios);
        const double ninth = Quantile(ratios, 0.9);
        std::printf(" %10.2f %8.3f %8.3f %8.2f", Median(times), ratio, ninth,
                    *std::max_element(ratios.begin(), ratios.end()));
        PrintCounts(pages);
        PrintCounts(blocks);
        std::printf("  %s", Verdict(ratio, ninth, row));
    }
    std::printf("\n");
}

// Where a profile should look first.
void PrintSlowest(const std::vector<FileResult>& results, std::size_t operation) {
    std::vector<const FileResult*> slowest;
    for (const FileResult& result : results)
        if (result.Ratio(operation)) slowest.push_back(&result);
    std::sort(slowest.begin(), slowest.end(), [&](const FileResult* a, const FileResult* b) {
        return *a->Ratio(operation) > *b->Ratio(operation);
    });
    slowest.resize(std::min(slowest.size(), kSlowest));
    for (const FileResult* result : slowest)
        std::printf("%-10s %8.2f  %s\n", kRows[operation].name, *result->Ratio(operation),
                    ToUtf8(result->file).c_str());
}

void PrintReport(const std::vector<FileResult>& results, std::size_t unreadable,
                 std::size_t repeats) {
    std::printf("%zu files, %zu unreadable; %zu interleaved repeats, medians\n\n", results.size(),
                unreadable, repeats);
    std::printf("%-10s %6s %8s %10s %8s %8s %8s %9s %9s\n", "request", "files", "without", "us",
                "ratio", "90%", "worst", "pages", "blocks");
    for (std::size_t operation = kFloor; operation < kOperations; ++operation)
        PrintOperation(results, operation);
    std::printf("\nslowest\n");
    for (std::size_t operation = kInfo; operation < kOperations; ++operation)
        PrintSlowest(results, operation);
}

bool WriteCsv(const fs::path& path, const std::vector<FileResult>& results) {
    std::ofstream out(path, std::ios::binary);
    out << "file,bytes";
    for (const OperationRow& row : kRows)
        for (const char* column : {"_us", "_ratio", "_pages", "_blocks"})
            out << ',' << row.name << column;
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
            const std::optional<RequestCounts>& counts = result.counts[operation];
            out << ',';
            if (counts) out << counts->pages;
            out << ',';
            if (counts) out << counts->blocks;
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
           FindFunction(module, "ExifGetPrimaryImage", library.getPrimary) &&
           FindFunction(module, "ExifEnumInfo", library.enumInfo);
}

bool ParseRepeats(const std::string& text, std::size_t& repeats) {
    char* end = nullptr;
    const long long value = std::strtoll(text.c_str(), &end, 10);
    if (end == text.c_str() || *end != '\0' || value < 1 || value > kMaxRepeats) return false;
    repeats = static_cast<std::size_t>(value);
    return true;
}

bool ParseOperation(const std::string& text, std::size_t& operation) {
    for (operation = kInfo; operation < kOperations; ++operation)
        if (text == kRows[operation].name) return true;
    return false;
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
        else if (text == "--only" && ParseOperation(ToUtf8(value), options.only))
            continue;
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
        FileResult result = MeasureFile(library, stream, file, options);
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
                     "[--only REQUEST] [FILE|FOLDER]...\n");
        return 2;
    }
    return qmx::bench::RunBenchmark(std::move(options));
}
