// The thumbnails of one folder, in a list view that holds no items of its own: it asks for what it
// draws, and only what is asked for is read.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "background.h"
#include "photo.h"

namespace browser {

class PhotoList {
public:
    PhotoList(HWND parent, int id, Background& work);
    ~PhotoList();
    PhotoList(const PhotoList&) = delete;
    PhotoList& operator=(const PhotoList&) = delete;

    HWND Window() const { return window; }

    // The caller has cancelled the work on the last folder.
    void SetPhotos(const std::wstring& newFolder, std::vector<std::wstring> names);

    // Throws the thumbnails away and reads them again: another resolution, other colours.
    void SetDpi(int dpi);

    int Count() const { return static_cast<int>(items.size()); }
    int Selected() const { return ListView_GetNextItem(window, -1, LVNI_SELECTED); }
    std::wstring PathOf(int index) const;
    int Find(std::wstring_view name) const;  // -1: not there
    void Select(int index);

    // Handles the list view's requests.
    LRESULT OnNotify(NMHDR* header);

    // Reads a thumbnail whether it is in view or not; `IsSettled` tells when that is over.
    void Request(int index) { ImageOf(index); }
    bool IsSettled(int index) const;
    bool HasPicture(int index) const;

private:
    enum class State { kUnread, kWaiting, kShown, kNone };
    struct Item {
        std::wstring name;
        std::wstring summary;
        State state = State::kUnread;
        int image = 0;
        unsigned lastUse = 0;
    };

    Item& At(int index) { return items[static_cast<std::size_t>(index)]; }
    const Item& At(int index) const { return items[static_cast<std::size_t>(index)]; }
    void FillText(NMLVDISPINFOW& request);
    void FillTip(NMLVGETINFOTIPW& tip) const;
    int FindByPrefix(const NMLVFINDITEMW& search) const;
    int ImageOf(int index);
    void Start(int index);
    void StartNext();
    void Receive(int index, const Thumbnail& thumbnail);
    int PutImage(int index, HBITMAP bitmap);
    bool IsInView(int index) const;
    void MakeImages();

    HWND window;
    Background& background;
    HIMAGELIST images = nullptr;
    int edge = 0;  // of a thumbnail's square, pixels
    std::wstring folder;
    std::vector<Item> items;
    std::vector<int> owners;   // which item each image belongs to
    std::vector<int> waiting;  // the last one asked for is read first
    unsigned running = 0;
    unsigned uses = 0;
};

}  // namespace browser
