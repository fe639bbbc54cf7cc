#include "check.h"

#include <string>
#include <vector>

namespace browser {
namespace {

constexpr DWORD kPatienceMs = 60'000;  // for each step

void Print(const std::string& text) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text.data(), static_cast<DWORD>(text.size()),
              &written, nullptr);
}

void HandleMessages() {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

template <class Condition>
bool WaitFor(Condition isDone) {
    const ULONGLONG end = GetTickCount64() + kPatienceMs;
    while (!isDone()) {
        if (GetTickCount64() > end) return false;
        HandleMessages();
    }
    return true;
}

// Asks for all thumbnails again and again; those out of view may be put off, or make room.
bool WaitForThumbnails(PhotoList& photos, std::vector<bool>& hasPicture) {
    std::vector<bool> isSettled(hasPicture.size());
    return WaitFor([&] {
        bool all = true;
        for (int i = 0; i < photos.Count(); ++i) {
            const auto at = static_cast<std::size_t>(i);
            if (isSettled[at]) continue;
            photos.Request(i);
            isSettled[at] = photos.IsSettled(i);
            hasPicture[at] = photos.HasPicture(i);
            all = all && isSettled[at];
        }
        return all;
    });
}

}  // namespace

int RunCheck(BrowserWindow& window, const std::wstring& folder) {
    PhotoList& photos = window.Photos();
    window.Open(folder);
    if (!WaitFor([&] { return window.IsListed(); })) return 1;
    std::vector<bool> hasPicture(static_cast<std::size_t>(photos.Count()));
    if (!WaitForThumbnails(photos, hasPicture)) return 1;
    std::size_t pictures = 0, described = 0, rows = 0;
    for (int i = 0; i < photos.Count(); ++i) {
        photos.Select(i);
        if (!WaitFor([&] { return window.IsDescribed(); })) return 1;
        pictures += hasPicture[static_cast<std::size_t>(i)];
        described += window.Details().IsRead();
        rows += window.Details().RowCount();
    }
    Print("photos " + std::to_string(photos.Count()) + ", thumbnails " + std::to_string(pictures) +
          ", described " + std::to_string(described) + ", rows " + std::to_string(rows) + "\n");
    return 0;
}

}  // namespace browser
