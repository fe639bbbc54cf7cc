// Work on threads of its own, whose results come back to the thread of the window.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
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
    ~Background();
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

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
    void Work();
    bool TakeJob(Job& job, unsigned& begun);
    void AddResult(unsigned begun, Finish finish);

    const HWND window;
    const UINT message;
    SRWLOCK lock = SRWLOCK_INIT;  // guards what follows
    CONDITION_VARIABLE wake = CONDITION_VARIABLE_INIT;
    std::deque<Job> jobs;
    std::vector<Done> done;
    unsigned round = 0;  // counts the cancellations
    bool isEnding = false;

    std::vector<std::thread> workers;
};

}  // namespace browser
