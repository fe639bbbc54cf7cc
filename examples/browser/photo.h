// What the library says about one photo.  These functions may run on any thread.
#pragma once

#include <string>
#include <vector>

#include "picture.h"

namespace browser {

struct Thumbnail {
    Bitmap bitmap;         // empty when there is no picture to be had
    std::wstring summary;  // the one-line summary and the description, or empty
};

Thumbnail ReadThumbnail(const std::wstring& path, int edge);

struct DetailRow {
    bool isHeading;
    std::wstring label;
    std::wstring value;
};

struct Details {
    std::wstring description;  // several lines, or why there is none
    std::vector<DetailRow> rows;
    bool isRead = false;
};

Details ReadDetails(const std::wstring& path);

}  // namespace browser
