// Where the previews of --thumb and --primary go, and their writing.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "preview.h"
#include "walk.h"

namespace qmx {

// The photos of this run, so that nothing is ever written over one of them.
class PhotoGuard {
public:
    explicit PhotoGuard(const std::vector<FoundFile>& files);
    bool IsPhoto(const std::wstring& path) const;

private:
    std::set<std::wstring> photos;  // full paths in lower case
};

// One option's OUT: a file, or a folder that takes the previews of several photos.
class PreviewTarget {
public:
    PreviewTarget(std::wstring place, bool isFolder, const PhotoGuard& photoGuard);

    // Writes the preview of `file`.  True: `written` is the path; false: `error` says why not.
    bool Write(const FoundFile& file, const Preview& preview, std::wstring& written,
               std::wstring& error);

private:
    std::wstring ChoosePath(const FoundFile& file, const Preview& preview);

    std::wstring out;
    bool outIsFolder;
    const PhotoGuard& guard;
    std::set<std::wstring> used;  // photos of one name from different folders must not collide
};

}  // namespace qmx
