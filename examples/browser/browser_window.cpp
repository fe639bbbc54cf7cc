#include "browser_window.h"

#include <commctrl.h>
#include <shellapi.h>
#include <windowsx.h>

#include <algorithm>
#include <new>
#include <utility>

#include "folder.h"
#include "resource.h"
#include "strings.h"

namespace browser {
namespace {

constexpr wchar_t kClassName[] = L"QmxexifBrowser";
constexpr UINT kWorkDone = WM_APP;

enum { kTreeId = 1, kPhotosId, kDescriptionId, kRowsId, kStatusId };

// At 96 dots per inch.
constexpr int kWindowWidth = 1180, kWindowHeight = 760;
constexpr int kTreeWidth = 220, kDetailsWidth = 380, kMinPane = 80;
constexpr int kSplitter = 5;

HWND CreateStatusBar(HWND parent) {
    return CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0,
                           0, 0, parent, reinterpret_cast<HMENU>(INT_PTR{kStatusId}),
                           GetModuleHandleW(nullptr), nullptr);
}

std::wstring ErrorText(DWORD code) {
    wchar_t text[512] = {};
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                   text, ARRAYSIZE(text), nullptr);
    return text[0] ? text : std::to_wstring(code);
}

}  // namespace

HWND BrowserWindow::CreateMain() {
    WNDCLASSEXW kind = {};
    kind.cbSize = sizeof kind;
    kind.lpfnWndProc = Procedure;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    kind.lpszClassName = kClassName;
    RegisterClassExW(&kind);
    return CreateWindowExW(WS_EX_ACCEPTFILES | WS_EX_CONTROLPARENT, kClassName, kTitle,
                           WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                           CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, kind.hInstance, nullptr);
}

BrowserWindow::BrowserWindow()
    : window(CreateMain()),
      accelerators(
          LoadAcceleratorsW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_ACCELERATORS))),
      background(window, kWorkDone),
      tree(window, kTreeId),
      photos(window, kPhotosId, background),
      details(window, kDescriptionId, kRowsId),
      status(CreateStatusBar(window)),
      newestDetails(std::make_shared<std::atomic<unsigned>>(0)) {
    if (!window) return;
    // Until now the window's messages went to the system's procedure alone.
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    dpi = DpiOf(window);
    treeWidth = Scale(kTreeWidth, dpi);
    detailsWidth = Scale(kDetailsWidth, dpi);
    ApplyDpi();
    SetWindowPos(window, nullptr, 0, 0, Scale(kWindowWidth, dpi), Scale(kWindowHeight, dpi),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    SetFocus(photos.Window());
}

BrowserWindow::~BrowserWindow() {
    background.Cancel();
    if (!IsWindow(window)) return;
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    DestroyWindow(window);
}

LRESULT CALLBACK BrowserWindow::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* self = reinterpret_cast<BrowserWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self) {
        try {
            return self->Handle(message, first, second);
        } catch (const std::bad_alloc&) {
            // Nothing may be thrown through the system; the window stays as it is.
        }
    }
    return DefWindowProcW(window, message, first, second);
}

LRESULT BrowserWindow::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case kWorkDone: background.RunFinished(); return 0;
        case WM_NOTIFY: return OnNotify(reinterpret_cast<NMHDR*>(second));
        case WM_COMMAND: OnCommand(LOWORD(first)); return 0;
        case WM_SIZE: Arrange(); return 0;
        case WM_ACTIVATE:
            if (LOWORD(first) != WA_INACTIVE) SetFocus(photos.Window());
            return 0;
        case WM_DROPFILES: OnDrop(reinterpret_cast<HDROP>(first)); return 0;
        case WM_DPICHANGED: {
            const int newDpi = LOWORD(first);
            treeWidth = MulDiv(treeWidth, newDpi, dpi);
            detailsWidth = MulDiv(detailsWidth, newDpi, dpi);
            dpi = newDpi;
            ApplyDpi();
            const RECT& place = *reinterpret_cast<const RECT*>(second);
            SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                         place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
            return 0;
        }
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
        case WM_SETTINGCHANGE: ApplyDpi(); break;
        case WM_SETCURSOR: {
            POINT point = {};
            GetCursorPos(&point);
            ScreenToClient(window, &point);
            if (LOWORD(second) != HTCLIENT || !SplitterAt(point.x)) break;
            SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
            return TRUE;
        }
        case WM_LBUTTONDOWN:
            draggedSplitter = SplitterAt(GET_X_LPARAM(second));
            if (draggedSplitter) SetCapture(window);
            return 0;
        case WM_MOUSEMOVE:
            if (draggedSplitter) Drag(GET_X_LPARAM(second));
            return 0;
        case WM_LBUTTONUP: ReleaseCapture(); return 0;
        case WM_CAPTURECHANGED: draggedSplitter = 0; return 0;
        case WM_DESTROY: PostQuitMessage(0); return 0;
        default: break;
    }
    return DefWindowProcW(window, message, first, second);
}

LRESULT BrowserWindow::OnNotify(NMHDR* header) {
    if (header->hwndFrom == tree.Window()) {
        if (header->code == TVN_SELCHANGEDW) {
            const std::wstring selected = tree.Selected();
            if (!selected.empty() && selected != folder) LoadFolder(selected, {});
        }
        return tree.OnNotify(header);
    }
    if (header->hwndFrom == details.Rows()) return details.OnNotify(header);
    if (header->hwndFrom != photos.Window()) return 0;
    if (header->code == LVN_ITEMACTIVATE) OpenSelected();
    if (header->code == LVN_ITEMCHANGED) {
        const auto& change = *reinterpret_cast<const NMLISTVIEW*>(header);
        if ((change.uNewState ^ change.uOldState) & LVIS_SELECTED) ReadSelected();
    }
    return photos.OnNotify(header);
}

void BrowserWindow::OnCommand(int command) {
    switch (command) {
        case IDC_REFRESH: {
            const int selected = photos.Selected();
            LoadFolder(folder,
                       selected >= 0 ? std::wstring(FileName(photos.PathOf(selected))) : L"");
            break;
        }
        case IDC_PARENT: {
            const std::wstring parent = ParentOf(folder);
            if (!parent.empty()) Open(parent);
            break;
        }
        case IDC_COPY_TEXT:
            if (GetFocus() == details.Description()) {
                SendMessageW(details.Description(), WM_COPY, 0, 0);
            } else {
                details.CopyRows();
            }
            break;
        default: break;
    }
}

void BrowserWindow::OnDrop(HDROP drop) {
    std::wstring path(DragQueryFileW(drop, 0, nullptr, 0) + std::size_t{1}, L'\0');
    DragQueryFileW(drop, 0, path.data(), static_cast<UINT>(path.size()));
    path.pop_back();
    DragFinish(drop);
    SetForegroundWindow(window);
    Open(path);
}

void BrowserWindow::Open(const std::wstring& path) {
    const std::wstring full = FullPath(path);
    if (IsFolder(full) || ParentOf(full).empty()) {
        LoadFolder(full, {});
    } else {
        LoadFolder(ParentOf(full), std::wstring(FileName(full)));
    }
    tree.Select(folder);
}

void BrowserWindow::LoadFolder(const std::wstring& newFolder, const std::wstring& name) {
    background.Cancel();
    folder = newFolder;
    isListed = false;
    photos.SetPhotos(folder, {});
    details.Clear();
    shownDetails = ++*newestDetails;
    SetWindowTextW(window, (std::wstring(FileName(folder)) + L" - " + kTitle).c_str());
    SetStatus(kReadingFolder);
    background.AddUrgent([this, name, path = folder]() -> Finish {
        Listing listing = ListPhotos(path);
        return [this, name, listing = std::move(listing)] {
            ShowListing(name, listing.names, listing.error);
        };
    });
}

void BrowserWindow::ShowListing(const std::wstring& name, std::vector<std::wstring> names,
                                DWORD error) {
    isListed = true;
    photos.SetPhotos(folder, std::move(names));
    SetStatus(error != ERROR_SUCCESS
                  ? kFolderUnreadable + ErrorText(error)
                  : folder + L"  -  " + std::to_wstring(photos.Count()) + kPhotoCount);
    if (photos.Count() != 0) photos.Select((std::max)(photos.Find(name), 0));
}

void BrowserWindow::ReadSelected() {
    const unsigned ticket = ++*newestDetails;
    const int selected = photos.Selected();
    if (selected < 0) {
        details.Clear();
        shownDetails = ticket;
        return;
    }
    background.AddUrgent(
        [this, ticket, newest = newestDetails, path = photos.PathOf(selected)]() -> Finish {
            if (ticket != *newest) return {};
            struct Details read = ReadDetails(path);
            return [this, ticket, read = std::move(read)] {
                if (ticket != *newestDetails) return;
                details.Show(read);
                shownDetails = ticket;
            };
        });
}

void BrowserWindow::OpenSelected() const {
    const int selected = photos.Selected();
    if (selected < 0) return;
    ShellExecuteW(window, nullptr, photos.PathOf(selected).c_str(), nullptr, nullptr,
                  SW_SHOWNORMAL);
}

bool BrowserWindow::TranslateKey(MSG& message) {
    if (message.message == WM_KEYDOWN && message.wParam == VK_TAB) {
        MoveFocus(GetKeyState(VK_SHIFT) < 0);
        return true;
    }
    return TranslateAcceleratorW(window, accelerators, &message) != 0;
}

void BrowserWindow::MoveFocus(bool backwards) const {
    const HWND next = GetNextDlgTabItem(window, GetFocus(), backwards);
    if (next) SetFocus(next);
}

void BrowserWindow::SetStatus(const std::wstring& text) const {
    SendMessageW(status, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void BrowserWindow::ApplyDpi() {
    Font newFont = MakeFont(dpi, false);
    for (const HWND child :
         {tree.Window(), photos.Window(), details.Description(), details.Rows(), status}) {
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(newFont.get()), TRUE);
    }
    font = std::move(newFont);  // the old one is let go when nobody uses it any more
    details.SetDpi(dpi);
    photos.SetDpi(dpi);
    Arrange();
}

void BrowserWindow::Arrange() const {
    RECT area, bar;
    SendMessageW(status, WM_SIZE, 0, 0);
    GetClientRect(window, &area);
    GetWindowRect(status, &bar);
    const int gap = Scale(kSplitter, dpi);
    const int height = (std::max)(area.bottom - (bar.bottom - bar.top), 0L);
    const int photosLeft = treeWidth + gap;
    const int detailsLeft = (std::max)(static_cast<int>(area.right) - detailsWidth, photosLeft);
    const int descriptionHeight = height / 4;
    const struct {
        HWND pane;
        int left, top, width, height;
    } places[] = {
        {tree.Window(), 0, 0, treeWidth, height},
        {photos.Window(), photosLeft, 0, detailsLeft - gap - photosLeft, height},
        {details.Description(), detailsLeft, 0, detailsWidth, descriptionHeight},
        {details.Rows(), detailsLeft, descriptionHeight + gap, detailsWidth,
         height - descriptionHeight - gap},
    };
    for (const auto& place : places) {
        MoveWindow(place.pane, place.left, place.top, (std::max)(place.width, 0),
                   (std::max)(place.height, 0), TRUE);
    }
    details.FitColumns();
}

int BrowserWindow::SplitterAt(int x) const {
    RECT area;
    GetClientRect(window, &area);
    const int gap = Scale(kSplitter, dpi);
    if (x >= treeWidth && x < treeWidth + gap) return 1;
    const int right = area.right - detailsWidth;
    return x >= right - gap && x < right ? 2 : 0;
}

void BrowserWindow::Drag(int x) {
    RECT area;
    GetClientRect(window, &area);
    int& width = draggedSplitter == 1 ? treeWidth : detailsWidth;
    const int other = draggedSplitter == 1 ? detailsWidth : treeWidth;
    const int least = Scale(kMinPane, dpi);
    const int most = (std::max)(static_cast<int>(area.right) - other - 2 * least, least);
    width = std::clamp(draggedSplitter == 1 ? x : static_cast<int>(area.right) - x, least, most);
    Arrange();
}

}  // namespace browser
