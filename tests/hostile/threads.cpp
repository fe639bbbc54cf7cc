// Threads that ask about mixed files at the same time and must all get the answers that one thread
// alone gets.
//   hostile_threads [--seconds N] [--no-com] [FILE|FOLDER...]

#include <atomic>
#include <chrono>
#include <cstdio>
#include <optional>
#include <thread>

#include "bench/platform.h"
#include "hostile/corpus.h"
#include "hostile/mutator.h"
#include "hostile/objects.h"
#include "hostile/options.h"
#include "hostile/random.h"

namespace qmx::hostile {
namespace {

// One file that stays where it is.
struct Photo {
    std::string name;
    WideText path;
    std::unique_ptr<Scratch> scratch;  // of a file that the tests build
    Answers expected;
};

class Asker {
public:
    explicit Asker(bool withObjects) {
        if (withObjects) objects_.emplace();
    }
    Answers Ask(const Photo& photo) {
        Answers answers = AskEverything(photo.path.data());
        if (objects_) objects_->Ask(photo.path.data(), answers);
        return answers;
    }

private:
    std::optional<Objects> objects_;
};

class Crowd {
public:
    Crowd(std::vector<Photo>& photos, bool withObjects)
        : photos_(photos), withObjects_(withObjects) {
        Asker alone(withObjects);
        for (Photo& photo : photos) photo.expected = alone.Ask(photo);
    }

    // The number of answers that differ.
    std::uint64_t Run(unsigned threads, double seconds) {
        const auto end = std::chrono::steady_clock::now() +
                         std::chrono::milliseconds(static_cast<int>(seconds * 1000));
        std::vector<std::thread> crowd;
        for (unsigned i = 0; i < threads; ++i)
            crowd.emplace_back([this, i, end] { AskUntil(end, i); });
        for (std::thread& thread : crowd) thread.join();
        return differences_;
    }
    std::uint64_t Asked() const { return asked_; }

private:
    void AskUntil(std::chrono::steady_clock::time_point end, std::uint64_t seed) {
        Asker asker(withObjects_);
        Random random(seed);
        while (std::chrono::steady_clock::now() < end) {
            const Photo& photo = random.Of(photos_);
            const Answers answers = asker.Ask(photo);
            ++asked_;
            for (std::size_t i = 0; i < answers.count; ++i) {
                if (answers.digests[i] == photo.expected.digests[i]) continue;
                ++differences_;
                std::printf("differs: %s: %s\n", photo.name.c_str(), NameOfRequest(i));
            }
            if (answers.broken != nullptr) {
                ++differences_;
                std::printf("promise: %s: %s\n", photo.name.c_str(), answers.broken);
            }
        }
    }

    std::vector<Photo>& photos_;
    bool withObjects_;
    std::atomic<std::uint64_t> asked_ = 0;
    std::atomic<std::uint64_t> differences_ = 0;
};

std::vector<Photo> BuildPhotos(const std::filesystem::path& folder,
                               const std::vector<std::filesystem::path>& places) {
    std::vector<Photo> photos;
    for (const SoundFile& file : BuiltInFiles()) {
        auto scratch = std::make_unique<Scratch>(folder, file.name);
        const wchar_t* path = scratch->Put(file.bytes, file.name);
        const auto length = static_cast<std::size_t>(lstrlenW(path));
        photos.push_back({file.name, WideText(path, path + length + 1), std::move(scratch), {}});
    }
    for (const auto& path : ListFiles(places))
        photos.push_back(
            {bench::ToUtf8(path), bench::ToWide(std::filesystem::absolute(path)), {}, {}});
    return photos;
}

int Main(const Options& options) {
    constexpr unsigned kThreads = 8;
    const double seconds = options.seconds > 0 ? options.seconds : 3;
    LoadLibraryUnderTest();
    const TemporaryFolder folder;
    std::vector<Photo> photos = BuildPhotos(folder.path, options.places);
    Crowd crowd(photos, options.objects);
    const std::uint64_t differences = crowd.Run(kThreads, seconds);
    std::printf("%u threads, %zu files, %llu times all requests, %llu answers differ\n", kThreads,
                photos.size(), static_cast<unsigned long long>(crowd.Asked()),
                static_cast<unsigned long long>(differences));
    return differences == 0 && crowd.Asked() > kThreads ? 0 : 1;
}

}  // namespace
}  // namespace qmx::hostile

int main(int argc, char** argv) {
    const auto options = qmx::hostile::ReadOptions(argc, argv);
    return options ? qmx::hostile::Main(*options) : 2;
}
