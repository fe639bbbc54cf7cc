#include "screen.h"

#include <cstdlib>
#include <iterator>

namespace browser {
namespace {

// From Windows 10, 8.1/7 and XP.
constexpr const wchar_t* kJapaneseFonts[] = {L"Yu Gothic UI", L"Meiryo UI", L"MS UI Gothic"};

int CALLBACK OnFont(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
    *reinterpret_cast<bool*>(found) = true;
    return 0;  // one is enough
}

bool HasJapanese(const wchar_t* face) {
    LOGFONTW wanted = {};
    wanted.lfCharSet = SHIFTJIS_CHARSET;
    lstrcpynW(wanted.lfFaceName, face, static_cast<int>(std::size(wanted.lfFaceName)));
    bool found = false;
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExW(screen, &wanted, OnFont, reinterpret_cast<LPARAM>(&found), 0);
    ReleaseDC(nullptr, screen);
    return found;
}

int SystemDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi;
}

}  // namespace

int DpiOf(HWND window) {
    // Since Windows 10; before, all monitors count as one.
    using GetDpi = UINT(WINAPI*)(HWND);
    static const auto getDpi = reinterpret_cast<GetDpi>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")));
    const int dpi = getDpi ? static_cast<int>(getDpi(window)) : 0;
    return dpi > 0 ? dpi : SystemDpi();
}

Font MakeFont(int dpi, bool bold) {
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    LOGFONTW& font = metrics.lfMessageFont;
    // The metrics are for the system's resolution; the size stays the user's choice.
    font.lfHeight = -MulDiv(std::abs(font.lfHeight), dpi, SystemDpi());
    if (bold) font.lfWeight = FW_BOLD;
    if (!HasJapanese(font.lfFaceName)) {
        const wchar_t* face = L"MS Shell Dlg";
        for (const wchar_t* known : kJapaneseFonts) {
            if (!HasJapanese(known)) continue;
            face = known;
            break;
        }
        lstrcpynW(font.lfFaceName, face, static_cast<int>(std::size(font.lfFaceName)));
        font.lfCharSet = DEFAULT_CHARSET;
    }
    return Font(CreateFontIndirectW(&font));
}

}  // namespace browser
