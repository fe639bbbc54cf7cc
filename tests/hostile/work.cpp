#include "hostile/work.h"

#include <algorithm>

#include "bench/platform.h"

namespace qmx::hostile {
namespace {

// Of so many mutants one is of a raw file: developing takes some hundred times longer than parsing.
constexpr std::uint64_t kDevelopEvery = 256;

bool IsDeveloped(const std::string& name) { return name.ends_with(".raw"); }

}  // namespace

Work::Work(const Options& options, const std::filesystem::path& folder)
    : options_(options), scratch_(folder, "photo") {
    const bool changes = options.truncate || options.mutants != 0;
    for (const SoundFile& file : BuiltInFiles())
        sound_.push_back({file.name, {}, file, file.bytes.size()});
    const std::size_t builtIn = sound_.size();
    for (const auto& path : ListFiles(options.places)) {
        const std::uint64_t size = std::filesystem::file_size(path);
        const bool read = changes && size <= options.maxSize;
        const std::string name = bench::ToUtf8(path);
        sound_.push_back({name,
                          bench::ToWide(bench::ToOpenablePath(std::filesystem::absolute(path))),
                          read ? MakeSound(name, ReadFile(path)) : SoundFile{}, size});
    }
    for (std::size_t i = options.places.empty() ? 0 : builtIn; i < sound_.size(); ++i)
        if (!changes || sound_[i].size <= options.maxSize) chosen_.push_back(&sound_[i]);

    hostileCount_ = options.mutants != 0 && !chosen_.empty() ? options.mutants : 0;
    if (options.mutants != 0) {
        parsedEnd_ =
            std::stable_partition(chosen_.begin(), chosen_.end(),
                                  [](const Source* source) { return !IsDeveloped(source->name); }) -
            chosen_.begin();
        return;
    }
    for (const Source* source : chosen_) {
        firstOfFile_.push_back(hostileCount_);
        hostileCount_ += options.truncate ? source->size : 1;
    }
}

Work::Item Work::Hostile(std::uint64_t number) {
    if (options_.mutants != 0) {
        const std::uint64_t seed = options_.seed + number;
        const Source& source = MutatedBy(seed);
        return Written("seed " + std::to_string(seed) + " of " + source.name, source,
                       Mutate(source.file, seed));
    }
    if (!options_.truncate) return Whole(*chosen_[number]);
    const auto next = std::upper_bound(firstOfFile_.begin(), firstOfFile_.end(), number) - 1;
    const Source& source = *chosen_[static_cast<std::size_t>(next - firstOfFile_.begin())];
    const auto length = static_cast<std::ptrdiff_t>(number - *next);
    const Bytes& bytes = source.file.bytes;
    return Written("the first " + std::to_string(length) + " bytes of " + source.name, source,
                   {bytes.begin(), bytes.begin() + length});
}

const Work::Source& Work::MutatedBy(std::uint64_t seed) const {
    const auto count = static_cast<std::ptrdiff_t>(chosen_.size());
    const bool develop = parsedEnd_ == 0 || (parsedEnd_ != count && seed % kDevelopEvery == 0);
    const std::ptrdiff_t first = develop ? parsedEnd_ : 0;
    const auto choice = static_cast<std::uint64_t>(develop ? count - parsedEnd_ : parsedEnd_);
    const std::uint64_t turn = develop && parsedEnd_ != 0 ? seed / kDevelopEvery : seed;
    return *chosen_[static_cast<std::size_t>(first) + turn % choice];
}

Work::Item Work::Sound(std::uint64_t number) { return Whole(sound_[number]); }

Work::Item Work::Whole(const Source& source) {
    if (source.path.empty()) return Written(source.name, source, source.file.bytes);
    return {source.name, source.path.data(), source.size};
}

Work::Item Work::Written(std::string name, const Source& source, const Bytes& bytes) {
    const wchar_t* path = scratch_.Put(bytes, source.name);
    return {std::move(name), path, bytes.size()};
}

}  // namespace qmx::hostile
