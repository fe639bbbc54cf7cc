// A progress line on standard error, shown only on a terminal and only when work takes long.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace qmx {

class Progress {
public:
    // `isAllowed` false: shows nothing, whatever standard error is.
    explicit Progress(bool isAllowed);
    ~Progress() { Clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void ShowSearch(std::size_t found);
    void ShowDone(std::size_t done, std::size_t total);

    // Takes the line away, as is needed before anything else is printed.
    void Clear() noexcept;

private:
    bool IsDue();
    void Show(const std::wstring& line);

    HANDLE console = nullptr;  // null: silent
    ULONGLONG nextTick;        // milliseconds
    std::size_t shownLength = 0;
};

}  // namespace qmx
