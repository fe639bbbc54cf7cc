// A small photo browser on qmxexif.dll, in plain Win32:
//
//     browser [FOLDER|FILE]
//     browser --check FOLDER    shows nothing, prints counts and ends
//
// Where to look: photo.cpp calls the library, background.cpp gives the work to threads,
// photo_list.cpp asks for the thumbnails that are in view, picture.cpp decodes and turns them.
#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>
#include <shlobj.h>

#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include "browser_window.h"
#include "check.h"

namespace {

using namespace browser;

std::wstring PicturesFolder() {
    wchar_t path[MAX_PATH] = L"C:\\";
    SHGetFolderPathW(nullptr, CSIDL_MYPICTURES, nullptr, SHGFP_TYPE_CURRENT, path);
    return path;
}

int RunWindow(BrowserWindow& window, const std::wstring& path, int show) {
    window.Open(path);
    ShowWindow(window.Window(), show);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (window.TranslateKey(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

int Run(int show) {
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> arguments(
        CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
    const bool isCheck = count == 3 && std::wstring_view(arguments.get()[1]) == L"--check";
    BrowserWindow window;
    if (!window.Window()) return 2;
    if (isCheck) return RunCheck(window, arguments.get()[2]);
    return RunWindow(window, count > 1 ? arguments.get()[1] : PicturesFolder(), show);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int show) {
    const INITCOMMONCONTROLSEX controls = {
        sizeof controls, ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    int status = 2;
    try {
        status = Run(show);
    } catch (const std::exception&) {
        // Want of memory while starting.
    }
    if (SUCCEEDED(com)) CoUninitialize();
    return status;
}
