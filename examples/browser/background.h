// Work on threads of its own, whose results come back to the thread of the window.
#pragma once

#include <windows.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace browser {

// A job runs on a worker and returns what is then to be done on the window's thread: so no other
// data than the jobs' own are ever touched by two threads.
using Finish = std::function<void()>;
using Job = std::function<Finish()>;

class Background {
public:
    // `message` is posted to `window` whenever there is something for `RunFinished`.
    Background(HWND window, UINT message);

    // Ends the workers; what has not begun is left out.
    ~Background() = default;

    static unsigned WorkerCount();

    void Add(Job job) { Insert(std::move(job), false); }
    void AddUrgent(Job job) { Insert(std::move(job), true); }

    // Forgets jobs that wait and the results of those that run.
    void Cancel();

    void RunFinished();

private:
    struct Done {
        unsigned round;
        Finish finish;
    };

    void Insert(Job job, bool first);
    void Work(std::stop_token stop);

    const HWND window;
    const UINT message;
    std::mutex mutex;
    std::condition_variable_any wake;
    std::deque<Job> jobs;
    std::vector<Done> done;
    unsigned round = 0;                // counts the cancellations
    std::vector<std::jthread> workers;  // last: they end before what they use
};

}  // namespace browser
