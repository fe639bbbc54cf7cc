#include "folder_tree.h"

#include <shellapi.h>

#include <algorithm>

#include "folder.h"

namespace browser {
namespace {

constexpr LPARAM kUnread = 1;  // of an item whose folders are not in the tree yet

// The shell's picture of a folder, from its list of small icons.
int FolderIcon(HIMAGELIST& icons) {
    SHFILEINFOW info = {};
    icons = reinterpret_cast<HIMAGELIST>(
        SHGetFileInfoW(L"folder", FILE_ATTRIBUTE_DIRECTORY, &info, sizeof info,
                       SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES));
    return info.iIcon;
}

}  // namespace

FolderTree::FolderTree(HWND parent, int id) {
    window = CreateWindowExW(WS_EX_CLIENTEDGE, WC_TREEVIEWW, L"",
                             WS_CHILD | WS_VISIBLE | WS_TABSTOP | TVS_HASBUTTONS | TVS_LINESATROOT |
                                 TVS_SHOWSELALWAYS | TVS_HASLINES,
                             0, 0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                             GetModuleHandleW(nullptr), nullptr);
    HIMAGELIST icons = nullptr;
    FolderIcon(icons);
    TreeView_SetImageList(window, icons, TVSIL_NORMAL);
    wchar_t drives[4 * 26 + 1] = {};
    GetLogicalDriveStringsW(4 * 26, drives);
    for (const wchar_t* drive = drives; *drive; drive += lstrlenW(drive) + 1) {
        Add(TVI_ROOT, drive);
    }
}

HTREEITEM FolderTree::Add(HTREEITEM parent, const std::wstring& name) {
    HIMAGELIST icons = nullptr;
    static const int icon = FolderIcon(icons);
    TVINSERTSTRUCTW insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_CHILDREN | TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    insert.item.pszText = const_cast<wchar_t*>(name.c_str());
    insert.item.cChildren = 1;  // supposed until it is opened
    insert.item.lParam = kUnread;
    insert.item.iImage = insert.item.iSelectedImage = icon;
    return TreeView_InsertItem(window, &insert);
}

void FolderTree::ReadLevel(HTREEITEM item) {
    TVITEMW facts = {};
    facts.mask = TVIF_HANDLE | TVIF_PARAM | TVIF_CHILDREN;
    facts.hItem = item;
    if (!TreeView_GetItem(window, &facts) || facts.lParam != kUnread) return;
    const Listing folders = ListFolders(PathOf(item));
    SendMessageW(window, WM_SETREDRAW, FALSE, 0);
    for (const std::wstring& name : folders.names) Add(item, name);
    SendMessageW(window, WM_SETREDRAW, TRUE, 0);
    facts.lParam = 0;
    facts.cChildren = !folders.names.empty();
    TreeView_SetItem(window, &facts);
}

std::wstring FolderTree::NameOf(HTREEITEM item) const {
    wchar_t name[MAX_PATH + 1] = {};
    TVITEMW facts = {};
    facts.mask = TVIF_HANDLE | TVIF_TEXT;
    facts.hItem = item;
    facts.pszText = name;
    facts.cchTextMax = MAX_PATH;
    TreeView_GetItem(window, &facts);
    return name;
}

std::wstring FolderTree::PathOf(HTREEITEM item) const {
    std::wstring path = NameOf(item);
    while ((item = TreeView_GetParent(window, item)) != nullptr) {
        path = JoinPath(NameOf(item), path);
    }
    return path;
}

HTREEITEM FolderTree::FindChild(HTREEITEM parent, std::wstring_view name) const {
    HTREEITEM item = parent ? TreeView_GetChild(window, parent) : TreeView_GetRoot(window);
    for (; item; item = TreeView_GetNextSibling(window, item)) {
        if (CompareStringOrdinal(NameOf(item).c_str(), -1, name.data(),
                                 static_cast<int>(name.size()), TRUE) == CSTR_EQUAL) {
            return item;
        }
    }
    return nullptr;
}

// Shares join the drives when they are first gone to.
HTREEITEM FolderTree::FindRoot(const std::wstring& root) {
    const HTREEITEM item = FindChild(nullptr, root);
    return item ? item : Add(TVI_ROOT, root);
}

void FolderTree::Select(const std::wstring& path) {
    const std::wstring parent = ParentOf(path);
    std::wstring root = path;
    for (std::wstring next = parent; !next.empty(); next = ParentOf(next)) root = next;
    HTREEITEM item = FindRoot(root);
    std::size_t at = root.size();
    while (at < path.size()) {
        if (path[at] == L'\\') ++at;
        const std::size_t end = (std::min)(path.find(L'\\', at), path.size());
        const std::wstring name = path.substr(at, end - at);
        ReadLevel(item);
        const HTREEITEM child = FindChild(item, name);
        item = child ? child : Add(item, name);  // a hidden one
        at = end;
    }
    TreeView_EnsureVisible(window, item);
    TreeView_SelectItem(window, item);
}

std::wstring FolderTree::Selected() const {
    const HTREEITEM item = TreeView_GetSelection(window);
    return item ? PathOf(item) : std::wstring();
}

LRESULT FolderTree::OnNotify(NMHDR* header) {
    if (header->code == TVN_ITEMEXPANDINGW) {
        const auto& event = *reinterpret_cast<NMTREEVIEWW*>(header);
        if (event.action == TVE_EXPAND) ReadLevel(event.itemNew.hItem);
    }
    return 0;
}

}  // namespace browser
