#include "print_text.h"

#include <algorithm>

#include "orientation.h"
#include "utf8.h"

namespace qmx {
namespace {

// Longer labels push their own value to the right instead of everybody's.
constexpr std::size_t kMaxLabelColumns = 34;

void PrintDescription(Writer& out, std::wstring_view text) {
    while (!text.empty()) out.Put(OneLine(TakeLine(text))).Put("\n");
}

void PrintListLine(Writer& out, const ListLine& line, std::size_t labelColumns) {
    const std::wstring label = OneLine(line.label);
    if (line.isHeading) {
        out.Put("\n[").Put(label).Put("]\n");
        return;
    }
    out.Put("  ").Put(label);
    if (line.hasValue) {
        const std::size_t columns = TextColumns(label);
        const std::size_t blanks = columns < labelColumns ? labelColumns - columns : 0;
        out.Put(std::string(blanks + 2, ' ')).Put(OneLine(line.value));
    }
    out.Put("\n");
}

void PrintList(Writer& out, const std::vector<ListLine>& list) {
    std::size_t labelColumns = 0;
    for (const ListLine& line : list) {
        if (!line.hasValue) continue;
        const std::size_t columns = TextColumns(line.label);
        if (columns <= kMaxLabelColumns) labelColumns = (std::max)(labelColumns, columns);
    }
    for (const ListLine& line : list) PrintListLine(out, line, labelColumns);
}

void PrintPreview(Writer& out, const Preview& preview) {
    if (preview.kind == PreviewKind::kNone) {
        out.Put("\nPreview: none\n");
        return;
    }
    out.Put("\nPreview: ").PutNumber(preview.bytes.size()).Put(" bytes, ");
    out.Put(KindName(preview.kind));
    if (preview.width != 0 && preview.height != 0) {
        out.Put(", ").PutNumber(preview.width).Put(" x ").PutNumber(preview.height);
        out.Put(" pixels");
    }
    out.Put("\n");
}

}  // namespace

void PrintHeading(Writer& out, const std::wstring& path) {
    out.Put("=== ").Put(OneLine(path)).Put(" ===\n");
}

void PrintText(Writer& out, const Photo& photo) {
    const std::wstring summary = OneLine(Trim(photo.shortText));
    if (!summary.empty()) out.Put(summary).Put("\n\n");
    PrintDescription(out, Trim(photo.longText));
    PrintList(out, photo.list);
    PrintPreview(out, photo.preview);
}

void PrintOrientation(Writer& out, const Photo& photo) {
    if (photo.storedOrientation >= 1 && photo.storedOrientation <= 8) {
        out.PutNumber(photo.storedOrientation).Put(" ");
    }
    out.Put(OrientationWords(photo.storedOrientation)).Put("\n");
}

}  // namespace qmx
