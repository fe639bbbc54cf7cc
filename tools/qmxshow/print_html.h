// A contact sheet: one self-contained HTML page with the small previews inside it.
#pragma once

#include <string>
#include <vector>

#include "handle.h"
#include "photo.h"
#include "walk.h"
#include "writer.h"

namespace qmx {

// Written photo by photo, so that its length does not matter; a sheet that was not finished is
// deleted again.
class HtmlSheet {
public:
    explicit HtmlSheet(const std::wstring& path);
    ~HtmlSheet();
    HtmlSheet(const HtmlSheet&) = delete;
    HtmlSheet& operator=(const HtmlSheet&) = delete;

    // The system's error code of opening or writing; 0 when all is well.
    DWORD LastError() const { return IsOpen(file) ? out.LastError() : openError; }

    void Begin();
    void Add(const Photo& photo, const std::wstring& name);
    void Finish(const std::vector<Unreadable>& unreadable);

private:
    std::wstring longPath;
    FileHandle file;
    DWORD openError;
    Writer out;
    std::size_t count = 0;
    bool isFinished = false;
};

}  // namespace qmx
