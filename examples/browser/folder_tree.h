// The drives and their folders; each level is read when it is opened.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

namespace browser {

class FolderTree {
public:
    FolderTree(HWND parent, int id);

    HWND Window() const { return window; }

    // Opens the tree down to the folder and selects it; TVN_SELCHANGED follows.
    void Select(const std::wstring& path);
    std::wstring Selected() const;

    LRESULT OnNotify(NMHDR* header);

private:
    HTREEITEM Add(HTREEITEM parent, const std::wstring& name);
    void ReadLevel(HTREEITEM item);
    HTREEITEM FindChild(HTREEITEM parent, std::wstring_view name) const;
    HTREEITEM FindRoot(const std::wstring& root);
    std::wstring NameOf(HTREEITEM item) const;
    std::wstring PathOf(HTREEITEM item) const;

    HWND window;
};

}  // namespace browser
