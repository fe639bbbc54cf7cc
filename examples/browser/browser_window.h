// The main window: folder tree, thumbnails and details side by side above a status bar.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <atomic>
#include <memory>
#include <string>

#include "background.h"
#include "details_view.h"
#include "folder_tree.h"
#include "photo_list.h"
#include "screen.h"

namespace browser {

class BrowserWindow {
public:
    BrowserWindow();
    ~BrowserWindow();
    BrowserWindow(const BrowserWindow&) = delete;
    BrowserWindow& operator=(const BrowserWindow&) = delete;

    // Null when the window could not be made.
    HWND Window() const { return window; }

    // Shows a folder, or the folder of a file with that file selected.
    void Open(const std::wstring& path);

    // Handles Tab, which goes from pane to pane, and the shortcut keys.
    bool TranslateKey(MSG& message);

    bool IsListed() const { return isListed; }
    // The details of the selected photo are there, or nothing is selected.
    bool IsDescribed() const { return shownDetails == newestDetails->load(); }
    PhotoList& Photos() { return photos; }
    const DetailsView& Details() const { return details; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    static HWND CreateMain();
    LRESULT Handle(UINT message, WPARAM first, LPARAM second);
    LRESULT OnNotify(NMHDR* header);
    void OnCommand(int command);
    void OnDrop(HDROP drop);
    void LoadFolder(const std::wstring& newFolder, const std::wstring& name);
    void ShowListing(const std::wstring& name, std::vector<std::wstring> names, DWORD error);
    void ReadSelected();
    void OpenSelected() const;
    void MoveFocus(bool backwards) const;
    void SetStatus(const std::wstring& text) const;

    void ApplyDpi();
    void Arrange() const;
    int SplitterAt(int x) const;  // 0 none, 1 behind the tree, 2 before the details
    void Drag(int x);

    const HWND window;
    const HACCEL accelerators;
    // Declared before what gives it work, hence ended after that: its jobs use none of it.
    Background background;
    FolderTree tree;
    PhotoList photos;
    DetailsView details;
    const HWND status;
    Font font;
    int dpi = 96;
    int treeWidth = 0;
    int detailsWidth = 0;
    int draggedSplitter = 0;
    std::wstring folder;
    bool isListed = true;
    // Counts the selections, so that workers leave out the details of all but the last one.
    std::shared_ptr<std::atomic<unsigned>> newestDetails;
    unsigned shownDetails = 0;
};

}  // namespace browser
