#pragma once
// A second process that may crash or hang, and the page of memory that outlives it.

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "hostile/requests.h"

namespace qmx::hostile {

// What went wrong with one file.
struct Finding {
    char kind[16];
    char file[256];
    char detail[160];
};

// The largest value of all files.
struct Most {
    double value;
    char file[256];

    void Take(double other, const std::string& name);
};

// What the worker writes and the parent reads, also after the worker's death.  Plain data.
struct Page {
    static constexpr std::size_t kMaxFindings = 200;

    std::atomic<std::uint64_t> item;   // at work
    std::atomic<std::uint64_t> steps;  // changes whenever the worker gets on
    char file[256];                    // that item's name
    char fault[160];                   // what the system said about a crash

    std::uint64_t files;     // asked about
    std::uint64_t answered;  // of them with metadata
    std::uint64_t pictures;  // of them with a small preview
    std::uint64_t findingCount;
    Finding findings[kMaxFindings];
    Most slowest;    // milliseconds for all requests, developments apart
    Most developed;  // milliseconds for the developments
    Most hungriest;  // private bytes beyond the file's own size
    std::int64_t heapBefore, heapAfter, gdiBefore, gdiAfter, handlesBefore, handlesAfter;

    void AddFinding(const char* kind, const std::string& name, const std::string& detail);
};

// Memory shared through a file, which the parent makes.
class SharedMemory {
public:
    SharedMemory(const std::filesystem::path& file, std::size_t size, bool make);
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;
    ~SharedMemory();
    void* Get() const { return memory_; }

private:
    std::size_t size_;
    void* memory_ = nullptr;
};

// This program once more, with the same arguments and some in addition.
class Worker {
public:
    Worker(char** argv, const std::vector<std::string>& more);
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    ~Worker();

    // True when it has ended.
    bool Wait(int milliseconds);
    void Kill();
    int ExitCode() const { return exitCode_; }

private:
    std::intptr_t process_ = 0;
    int exitCode_ = -1;
    bool ended_ = false;
};

// In the worker: crashes are noted in the page, and the system shows no dialogue about them.
void NoteCrashes(Page& page);

}  // namespace qmx::hostile
