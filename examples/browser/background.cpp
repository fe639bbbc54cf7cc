#include "background.h"

#include <objbase.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace browser {

unsigned Background::WorkerCount() {
    return std::clamp(std::thread::hardware_concurrency(), 2u, 8u);
}

Background::Background(HWND target, UINT messageId) : window(target), message(messageId) {
    for (unsigned i = 0; i < WorkerCount(); ++i) {
        workers.emplace_back([this](std::stop_token stop) { Work(std::move(stop)); });
    }
}

void Background::Insert(Job job, bool first) {
    {
        const std::lock_guard lock(mutex);
        jobs.insert(first ? jobs.begin() : jobs.end(), std::move(job));
    }
    wake.notify_one();
}

void Background::Cancel() {
    const std::lock_guard lock(mutex);
    jobs.clear();
    ++round;
}

void Background::Work(std::stop_token stop) {
    // Windows' picture decoders are COM objects.
    const HRESULT com = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    std::unique_lock lock(mutex);
    while (wake.wait(lock, stop, [this] { return !jobs.empty(); }) && !stop.stop_requested()) {
        Job job = std::move(jobs.front());
        jobs.pop_front();
        const unsigned begun = round;
        lock.unlock();
        Finish finish;
        try {
            finish = job();
        } catch (const std::exception&) {
            // Want of memory: the job has no result.
        }
        job = nullptr;
        lock.lock();
        if (!finish) continue;
        done.push_back({begun, std::move(finish)});
        if (done.size() == 1) PostMessageW(window, message, 0, 0);
    }
    lock.unlock();
    if (SUCCEEDED(com)) CoUninitialize();
}

void Background::RunFinished() {
    std::vector<Done> ready;
    {
        const std::lock_guard lock(mutex);
        ready.swap(done);
    }
    for (const Done& item : ready) {
        // Only this thread cancels; what runs here may do so.
        if (item.round == round) item.finish();
    }
}

}  // namespace browser
