#include "background.h"

#include <objbase.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace browser {

namespace {

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

unsigned Background::WorkerCount() {
    return std::clamp(std::thread::hardware_concurrency(), 2u, 8u);
}

Background::Background(HWND target, UINT messageId) : window(target), message(messageId) {
    for (unsigned i = 0; i < WorkerCount(); ++i) workers.emplace_back([this] { Work(); });
}

Background::~Background() {
    {
        const LockScope scope(lock);
        isEnding = true;
    }
    WakeAllConditionVariable(&wake);
    for (std::thread& worker : workers) worker.join();
}

void Background::Insert(Job job, bool first) {
    {
        const LockScope scope(lock);
        jobs.insert(first ? jobs.begin() : jobs.end(), std::move(job));
    }
    WakeConditionVariable(&wake);
}

void Background::Cancel() {
    const LockScope scope(lock);
    jobs.clear();
    ++round;
}

// Waits for a job; false when there will be none any more.
bool Background::TakeJob(Job& job, unsigned& begun) {
    const LockScope scope(lock);
    while (jobs.empty() && !isEnding) SleepConditionVariableSRW(&wake, &lock, INFINITE, 0);
    if (isEnding) return false;
    job = std::move(jobs.front());
    jobs.pop_front();
    begun = round;
    return true;
}

void Background::AddResult(unsigned begun, Finish finish) {
    const LockScope scope(lock);
    done.push_back({begun, std::move(finish)});
    if (done.size() == 1) PostMessageW(window, message, 0, 0);
}

void Background::Work() {
    // Windows' picture decoders are COM objects.
    const HRESULT com = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    Job job;
    for (unsigned begun = 0; TakeJob(job, begun); job = nullptr) {
        try {
            if (Finish finish = job()) AddResult(begun, std::move(finish));
        } catch (const std::exception&) {
            // Want of memory: the job has no result.
        }
    }
    if (SUCCEEDED(com)) CoUninitialize();
}

void Background::RunFinished() {
    std::vector<Done> ready;
    {
        const LockScope scope(lock);
        ready.swap(done);
    }
    for (const Done& item : ready) {
        // Only this thread cancels; what runs here may do so.
        if (item.round == round) item.finish();
    }
}

}  // namespace browser
