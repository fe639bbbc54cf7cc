#include "details_view.h"

#include <cstring>
#include <utility>

#include "strings.h"

namespace browser {
namespace {

HWND CreateChild(HWND parent, int id, const wchar_t* kind, DWORD style) {
    return CreateWindowExW(WS_EX_CLIENTEDGE, kind, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | style,
                           0, 0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                           GetModuleHandleW(nullptr), nullptr);
}

void PutOnClipboard(HWND owner, const std::wstring& text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (!memory) return;
    if (void* target = GlobalLock(memory)) {
        std::memcpy(target, text.c_str(), bytes);
        GlobalUnlock(memory);
    }
    bool isTaken = false;
    if (OpenClipboard(owner)) {
        EmptyClipboard();
        isTaken = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
        CloseClipboard();
    }
    if (!isTaken) GlobalFree(memory);
}

}  // namespace

DetailsView::DetailsView(HWND parent, int descriptionId, int rowsId)
    : description(CreateChild(parent, descriptionId, WC_EDITW,
                              ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | WS_VSCROLL)),
      rows(CreateChild(parent, rowsId, WC_LISTVIEWW,
                       LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER)) {
    ListView_SetExtendedListViewStyle(rows,
                                      LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT;
    int at = 0;
    for (const wchar_t* name : {kLabelColumn, kValueColumn}) {
        column.pszText = const_cast<wchar_t*>(name);
        ListView_InsertColumn(rows, at++, &column);
    }
}

void DetailsView::Show(Details newDetails) {
    details = std::move(newDetails);
    SetWindowTextW(description, details.description.c_str());
    ListView_SetItemState(rows, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetItemCountEx(rows, static_cast<int>(details.rows.size()), 0);
    if (!details.rows.empty()) ListView_EnsureVisible(rows, 0, FALSE);
    InvalidateRect(rows, nullptr, TRUE);
    FitColumns();
}

void DetailsView::SetDpi(int dpi) { boldFont = MakeFont(dpi, true); }

void DetailsView::FitColumns() const {
    RECT area;
    GetClientRect(rows, &area);
    const int label = area.right * 2 / 5;
    ListView_SetColumnWidth(rows, 0, label);
    ListView_SetColumnWidth(rows, 1, area.right - label);
}

void DetailsView::CopyRows() const {
    const bool all = ListView_GetSelectedCount(rows) == 0;
    std::wstring text;
    for (std::size_t i = 0; i < details.rows.size(); ++i) {
        if (!all && !ListView_GetItemState(rows, static_cast<int>(i), LVIS_SELECTED)) continue;
        const DetailRow& row = details.rows[i];
        text += row.isHeading ? L"[" + row.label + L"]" : row.label + L"\t" + row.value;
        text += L"\r\n";
    }
    PutOnClipboard(rows, text);
}

LRESULT DetailsView::OnNotify(NMHDR* header) {
    if (header->code == NM_CUSTOMDRAW) {
        return OnCustomDraw(*reinterpret_cast<NMLVCUSTOMDRAW*>(header));
    }
    if (header->code == LVN_GETDISPINFOW) {
        LVITEMW& wanted = reinterpret_cast<NMLVDISPINFOW*>(header)->item;
        const auto index = static_cast<std::size_t>(wanted.iItem);
        if ((wanted.mask & LVIF_TEXT) && index < details.rows.size()) {
            DetailRow& row = details.rows[index];
            wanted.pszText = (wanted.iSubItem == 0 ? row.label : row.value).data();
        }
    }
    return 0;
}

// Headings of sections are bold.
LRESULT DetailsView::OnCustomDraw(NMLVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    const std::size_t index = draw.nmcd.dwItemSpec;
    if (index >= details.rows.size() || !details.rows[index].isHeading) return CDRF_DODEFAULT;
    SelectObject(draw.nmcd.hdc, boldFont.get());
    return CDRF_NEWFONT;
}

}  // namespace browser
