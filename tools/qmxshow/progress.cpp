#include "progress.h"

namespace qmx {
namespace {

constexpr ULONGLONG kFirstAfterMs = 500;
constexpr ULONGLONG kAgainAfterMs = 100;
constexpr std::size_t kBarCells = 30;

}  // namespace

Progress::Progress(bool isAllowed) : nextTick(GetTickCount64() + kFirstAfterMs) {
    const HANDLE handle = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    if (isAllowed && GetConsoleMode(handle, &mode)) console = handle;
}

void Progress::ShowSearch(std::size_t found) {
    if (IsDue()) Show(L"searching: " + std::to_wstring(found) + L" files");
}

void Progress::ShowDone(std::size_t done, std::size_t total) {
    if (total == 0 || !IsDue()) return;
    const std::size_t cells = done * kBarCells / total;
    Show(L"[" + std::wstring(cells, L'#') + std::wstring(kBarCells - cells, L'.') + L"] " +
         std::to_wstring(done * 100 / total) + L"%  " + std::to_wstring(done) + L"/" +
         std::to_wstring(total));
}

void Progress::Clear() noexcept {
    if (shownLength == 0) return;
    // Blanks instead of an escape sequence: older consoles know none.
    wchar_t blanks[82] = L"\r";
    for (std::size_t i = 1; i <= shownLength; ++i) blanks[i] = L' ';
    blanks[shownLength + 1] = L'\r';
    DWORD written = 0;
    WriteConsoleW(console, blanks, static_cast<DWORD>(shownLength + 2), &written, nullptr);
    shownLength = 0;
}

bool Progress::IsDue() {
    if (!console) return false;
    const ULONGLONG now = GetTickCount64();
    if (now < nextTick) return false;
    nextTick = now + kAgainAfterMs;
    return true;
}

void Progress::Show(const std::wstring& line) {
    Clear();
    const std::wstring cut = line.substr(0, 79);
    DWORD written = 0;
    WriteConsoleW(console, cut.data(), static_cast<DWORD>(cut.size()), &written, nullptr);
    shownLength = cut.size();
}

}  // namespace qmx
