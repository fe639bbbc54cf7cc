// Photos read by several threads ahead of the one that prints them, which gets them in order.
#pragma once

#include <windows.h>

#include <cstddef>
#include <deque>
#include <optional>
#include <thread>
#include <vector>

#include "photo.h"
#include "walk.h"

namespace qmx {

// As many threads as help: reading waits for the disk more than for the processor.
unsigned DefaultJobs();

class PhotoReader {
public:
    PhotoReader(const Library& lib, const std::vector<FoundFile>& list, PhotoParts wanted,
                unsigned threads);
    ~PhotoReader();
    PhotoReader(const PhotoReader&) = delete;
    PhotoReader& operator=(const PhotoReader&) = delete;

    // The next file's photo, once for each file; waits until it is read.
    Photo Next();

private:
    void Work();

    const Library& library;
    const std::vector<FoundFile>& files;
    const PhotoParts parts;
    const std::size_t ahead;  // how far the threads may get ahead, which bounds the memory

    SRWLOCK lock = SRWLOCK_INIT;  // guards what follows
    CONDITION_VARIABLE changed = CONDITION_VARIABLE_INIT;
    std::deque<std::optional<Photo>> window;  // begun and not yet taken; the first is `taken`
    std::size_t begun = 0;
    std::size_t taken = 0;
    bool isEnding = false;

    std::vector<std::thread> workers;
};

}  // namespace qmx
