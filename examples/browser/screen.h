// What depends on the screen: resolution, fonts with Japanese.
#pragma once

#include <windows.h>

#include <memory>

namespace browser {

// Dots per inch of the monitor that the window is on; 96 = 100 %.
int DpiOf(HWND window);

// From lengths at 96 dots per inch to pixels.
inline int Scale(int length, int dpi) { return MulDiv(length, dpi, 96); }

struct FontDeleter {
    using pointer = HFONT;
    void operator()(HFONT font) const { DeleteObject(font); }
};
using Font = std::unique_ptr<HFONT, FontDeleter>;

// The system's message font where it has Japanese, else a Japanese one, else a name that the
// system links to one.
Font MakeFont(int dpi, bool bold);

}  // namespace browser
