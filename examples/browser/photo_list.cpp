#include "photo_list.h"

#include <algorithm>
#include <new>
#include <utility>

#include "folder.h"
#include "screen.h"
#include "strings.h"

namespace browser {
namespace {

constexpr int kEdge = 160;  // the size that cameras embed, at 96 dots per inch
constexpr int kGap = 16;
constexpr int kTextHeight = 40;

// Images before those of photos.
enum { kWaitingImage, kNoImage, kFirstPhotoImage };

// All images together; more than any screen shows at once, whatever its resolution.
constexpr int kImageBytes = 64 << 20;
constexpr int kMinImages = 96;

// Also keeps the workers busy while a result is on its way.
unsigned MaxRunning() { return Background::WorkerCount() * 2; }

// A square of the window's colour with a frame in its middle and words in that.
Bitmap DrawPlaceholder(int edge, const wchar_t* words, HFONT font) {
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    Bitmap bitmap(CreateCompatibleBitmap(screen, edge, edge), BitmapDeleter());
    ReleaseDC(nullptr, screen);
    const HGDIOBJ oldBitmap = SelectObject(dc, bitmap.get());
    const HGDIOBJ oldFont = SelectObject(dc, font);
    RECT area = {0, 0, edge, edge};
    FillRect(dc, &area, GetSysColorBrush(COLOR_WINDOW));
    RECT frame = {0, edge / 6, edge, edge - edge / 6};
    FrameRect(dc, &frame, GetSysColorBrush(COLOR_BTNFACE));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
    DrawTextW(dc, words, -1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(dc, oldFont);
    SelectObject(dc, oldBitmap);
    DeleteDC(dc);
    return bitmap;
}

}  // namespace

PhotoList::PhotoList(HWND parent, int id, Background& work) : background(work) {
    window = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
                             WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_ICON | LVS_OWNERDATA |
                                 LVS_AUTOARRANGE | LVS_SINGLESEL | LVS_SHOWSELALWAYS |
                                 LVS_SHAREIMAGELISTS,
                             0, 0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                             GetModuleHandleW(nullptr), nullptr);
    ListView_SetExtendedListViewStyle(window, LVS_EX_DOUBLEBUFFER | LVS_EX_INFOTIP);
}

PhotoList::~PhotoList() { ImageList_Destroy(images); }

void PhotoList::SetPhotos(const std::wstring& newFolder, std::vector<std::wstring> names) {
    folder = newFolder;
    items.clear();
    owners.clear();
    waiting.clear();
    running = 0;
    for (std::wstring& name : names) items.push_back({std::move(name), {}, State::kUnread, 0, 0});
    ListView_SetItemState(window, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetItemCountEx(window, Count(), 0);
    ListView_Arrange(window, LVA_DEFAULT);
    ListView_Scroll(window, 0, -0x7FFFFF);
    InvalidateRect(window, nullptr, TRUE);
}

void PhotoList::SetDpi(int dpi) {
    edge = Scale(kEdge, dpi);
    MakeImages();
    ListView_SetIconSpacing(window, edge + Scale(kGap, dpi), edge + Scale(kTextHeight, dpi));
    for (Item& item : items) {
        if (item.state == State::kShown) item.state = State::kUnread;
    }
    ListView_Arrange(window, LVA_DEFAULT);
    InvalidateRect(window, nullptr, TRUE);
}

void PhotoList::MakeImages() {
    const HIMAGELIST old = images;
    images = ImageList_Create(edge, edge, ILC_COLOR32, kFirstPhotoImage + kMinImages, kMinImages);
    owners.clear();
    const auto font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    for (const wchar_t* words : {kWaitingPicture, kNoPicture}) {
        ImageList_Add(images, DrawPlaceholder(edge, words, font).get(), nullptr);
    }
    ListView_SetImageList(window, images, LVSIL_NORMAL);
    ImageList_Destroy(old);
}

std::wstring PhotoList::PathOf(int index) const { return JoinPath(folder, At(index).name); }

int PhotoList::Find(std::wstring_view name) const {
    for (int i = 0; i < Count(); ++i) {
        if (CompareStringOrdinal(At(i).name.c_str(), -1, name.data(), static_cast<int>(name.size()),
                                 TRUE) == CSTR_EQUAL) {
            return i;
        }
    }
    return -1;
}

void PhotoList::Select(int index) {
    constexpr UINT kState = LVIS_SELECTED | LVIS_FOCUSED;
    ListView_SetItemState(window, index, kState, kState);
    ListView_EnsureVisible(window, index, FALSE);
}

LRESULT PhotoList::OnNotify(NMHDR* header) {
    switch (header->code) {
        case LVN_GETDISPINFOW: FillText(*reinterpret_cast<NMLVDISPINFOW*>(header)); break;
        case LVN_GETINFOTIPW: FillTip(*reinterpret_cast<NMLVGETINFOTIPW*>(header)); break;
        case LVN_ODFINDITEMW: return FindByPrefix(*reinterpret_cast<NMLVFINDITEMW*>(header));
        default: break;
    }
    return 0;
}

void PhotoList::FillText(NMLVDISPINFOW& request) {
    LVITEMW& wanted = request.item;
    if (wanted.iItem < 0 || wanted.iItem >= Count()) return;
    if (wanted.mask & LVIF_TEXT) wanted.pszText = At(wanted.iItem).name.data();
    if (wanted.mask & LVIF_IMAGE) wanted.iImage = ImageOf(wanted.iItem);
}

void PhotoList::FillTip(NMLVGETINFOTIPW& tip) const {
    if (tip.iItem < 0 || tip.iItem >= Count()) return;
    lstrcpynW(tip.pszText, At(tip.iItem).summary.c_str(), tip.cchTextMax);
}

// Typing letters goes to the next photo whose name begins so.
int PhotoList::FindByPrefix(const NMLVFINDITEMW& search) const {
    if (!(search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !search.lvfi.psz) return -1;
    const int length = lstrlenW(search.lvfi.psz);
    for (int step = 0; step < Count(); ++step) {
        const int index = (search.iStart + step) % Count();
        const std::wstring start = At(index).name.substr(0, static_cast<std::size_t>(length));
        if (CompareStringOrdinal(start.c_str(), -1, search.lvfi.psz, length, TRUE) == CSTR_EQUAL) {
            return index;
        }
    }
    return -1;
}

int PhotoList::ImageOf(int index) {
    Item& item = At(index);
    switch (item.state) {
        case State::kShown: item.lastUse = ++uses; return item.image;
        case State::kNone: return kNoImage;
        case State::kUnread:
            item.state = State::kWaiting;
            if (running < MaxRunning()) {
                Start(index);
            } else {
                waiting.push_back(index);
            }
            [[fallthrough]];
        default: return kWaitingImage;
    }
}

void PhotoList::Start(int index) {
    ++running;
    background.Add([this, index, path = PathOf(index), size = edge]() -> Finish {
        Thumbnail thumbnail;
        try {
            thumbnail = ReadThumbnail(path, size);
        } catch (const std::bad_alloc&) {
            thumbnail = {};  // the photo stays without a picture
        }
        return [this, index, size, thumbnail] {
            --running;
            if (size == edge) {
                Receive(index, thumbnail);
            } else {
                At(index).state = State::kUnread;  // the resolution has changed meanwhile
                ListView_RedrawItems(window, index, index);
            }
            StartNext();
        };
    });
}

// What has been scrolled out of view meanwhile is asked for again when it comes back.
void PhotoList::StartNext() {
    while (!waiting.empty() && running < MaxRunning()) {
        const int index = waiting.back();
        waiting.pop_back();
        if (IsInView(index)) {
            Start(index);
        } else {
            At(index).state = State::kUnread;
        }
    }
}

void PhotoList::Receive(int index, const Thumbnail& thumbnail) {
    Item& item = At(index);
    item.summary = thumbnail.summary;
    item.image = thumbnail.bitmap ? PutImage(index, thumbnail.bitmap.get()) : -1;
    item.state = item.image >= 0 ? State::kShown : State::kNone;
    item.lastUse = ++uses;
    ListView_RedrawItems(window, index, index);
}

// A new image, or in place of the one that was not used for the longest time.
int PhotoList::PutImage(int index, HBITMAP bitmap) {
    const int maxImages = (std::max)(kImageBytes / (edge * edge * 4), kMinImages);
    if (static_cast<int>(owners.size()) < maxImages) {
        const int image = ImageList_Add(images, bitmap, nullptr);
        if (image >= 0) owners.push_back(index);
        return image;
    }
    const auto oldest = std::min_element(owners.begin(), owners.end(), [this](int left, int right) {
        return At(left).lastUse < At(right).lastUse;
    });
    At(*oldest).state = State::kUnread;
    *oldest = index;
    const int image = kFirstPhotoImage + static_cast<int>(oldest - owners.begin());
    return ImageList_Replace(images, image, bitmap, nullptr) ? image : -1;
}

bool PhotoList::IsInView(int index) const {
    RECT area, item, common;
    GetClientRect(window, &area);
    return ListView_GetItemRect(window, index, &item, LVIR_BOUNDS) &&
           IntersectRect(&common, &area, &item);
}

bool PhotoList::IsSettled(int index) const {
    return At(index).state == State::kShown || At(index).state == State::kNone;
}

bool PhotoList::HasPicture(int index) const { return At(index).state == State::kShown; }

}  // namespace browser
