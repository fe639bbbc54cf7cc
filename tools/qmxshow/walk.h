// From the command line's inputs to the list of files: wildcards and folders are opened up.
#pragma once

#include <string>
#include <vector>

#include "library.h"
#include "progress.h"

namespace qmx {

struct FoundFile {
    std::wstring path;
    std::wstring name;  // below the folder that was given; else the bare file name
};

struct Unreadable {
    std::wstring path;
    std::wstring reason;
};

struct FoundFiles {
    std::vector<FoundFile> files;
    std::vector<Unreadable> failures;  // inputs without a match, folders that cannot be listed
    bool hadFolder = false;
};

// In the order of the inputs; within a folder by name, without regard to case.
FoundFiles FindFiles(const Library& library, const std::vector<std::wstring>& inputs,
                     Progress& progress);

}  // namespace qmx
