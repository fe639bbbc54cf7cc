// What the library says about the selected photo: its description above the labelled list.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "photo.h"
#include "screen.h"

namespace browser {

class DetailsView {
public:
    DetailsView(HWND parent, int descriptionId, int rowsId);

    HWND Description() const { return description; }
    HWND Rows() const { return rows; }
    std::size_t RowCount() const { return details.rows.size(); }
    bool IsRead() const { return details.isRead; }

    void Show(Details newDetails);
    void Clear() { Show({}); }
    void SetDpi(int dpi);

    // Gives the columns the width there is.
    void FitColumns() const;

    // To the clipboard: the selected rows, or all of them.
    void CopyRows() const;

    LRESULT OnNotify(NMHDR* header);

private:
    LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw) const;

    HWND description;
    HWND rows;
    Font boldFont;
    Details details;
};

}  // namespace browser
