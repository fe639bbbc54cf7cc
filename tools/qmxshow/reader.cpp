#include "reader.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace qmx {
namespace {

constexpr unsigned kMaxDefaultJobs = 8;
constexpr std::size_t kAheadPerThread = 4;

class LockScope {
public:
    explicit LockScope(SRWLOCK& target) : lock(target) { AcquireSRWLockExclusive(&lock); }
    ~LockScope() { ReleaseSRWLockExclusive(&lock); }
    LockScope(const LockScope&) = delete;
    LockScope& operator=(const LockScope&) = delete;

private:
    SRWLOCK& lock;
};

}  // namespace

unsigned DefaultJobs() {
    return std::clamp(std::thread::hardware_concurrency(), 1u, kMaxDefaultJobs);
}

PhotoReader::PhotoReader(const Library& lib, const std::vector<FoundFile>& list, PhotoParts wanted,
                         unsigned threads)
    : library(lib), files(list), parts(wanted), ahead(threads * kAheadPerThread) {
    const std::size_t useful = (std::min)(std::size_t{threads}, files.size());
    if (useful < 2) return;  // `Next` reads by itself
    try {
        workers.reserve(useful);
        for (std::size_t i = 0; i < useful; ++i) workers.emplace_back([this] { Work(); });
    } catch (const std::system_error&) {
        // The system grants no more threads: fewer do as well.
    }
}

PhotoReader::~PhotoReader() {
    {
        const LockScope scope(lock);
        isEnding = true;
    }
    WakeAllConditionVariable(&changed);
    for (std::thread& worker : workers) worker.join();
}

void PhotoReader::Work() {
    for (;;) {
        std::size_t index;
        {
            const LockScope scope(lock);
            while (!isEnding && begun < files.size() && begun - taken >= ahead) {
                SleepConditionVariableSRW(&changed, &lock, INFINITE, 0);
            }
            if (isEnding || begun == files.size()) return;
            index = begun++;
            window.emplace_back();
        }
        Photo photo = ReadPhoto(library, files[index].path, parts);
        {
            const LockScope scope(lock);
            window[index - taken] = std::move(photo);
        }
        WakeAllConditionVariable(&changed);
    }
}

Photo PhotoReader::Next() {
    if (workers.empty()) return ReadPhoto(library, files[taken++].path, parts);
    Photo photo;
    {
        const LockScope scope(lock);
        while (window.empty() || !window.front()) {
            SleepConditionVariableSRW(&changed, &lock, INFINITE, 0);
        }
        photo = std::move(*window.front());
        window.pop_front();
        ++taken;
    }
    WakeAllConditionVariable(&changed);
    return photo;
}

}  // namespace qmx
