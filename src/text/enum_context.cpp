#include "text/enum_context.h"

#include <vector>

#include "text/text_buffer.h"

namespace qmx {
namespace {

constexpr wchar_t kSubItemMark[] = L"　+ ";  // begins with U+3000, an ideographic space
constexpr std::size_t kUsualLabelCapacity = 64;

std::size_t LengthOf(const wchar_t* text) {
    std::size_t length = 0;
    while (text[length] != 0) ++length;
    return length;
}

INT_PTR EmitMarked(const EnumContext& context, std::span<wchar_t> storage, const wchar_t* label,
                   const wchar_t* value) {
    TextBuffer marked(storage);
    marked.Append(kSubItemMark).Append(label);
    return context.callback(QMXEXIF_KIND_ITEM, marked.Text(), value, context.user);
}

}  // namespace

void EmitHeading(const EnumContext& context, const wchar_t* label) {
    if (context.callback == nullptr) return;
    context.callback(QMXEXIF_KIND_HEADING, label, nullptr, context.user);
}

void EmitItem(const EnumContext& context, const wchar_t* label, const wchar_t* value) {
    if (context.callback == nullptr) return;
    context.callback(QMXEXIF_KIND_ITEM, label, value, context.user);
}

INT_PTR EmitSubItem(const EnumContext& context, const wchar_t* label, const wchar_t* value) {
    if (context.callback == nullptr) return -1;
    const std::size_t needed = std::size(kSubItemMark) + LengthOf(label);
    if (needed > kUsualLabelCapacity) {
        std::vector<wchar_t> storage(needed);
        return EmitMarked(context, storage, label, value);
    }
    wchar_t storage[kUsualLabelCapacity];
    return EmitMarked(context, storage, label, value);
}

}  // namespace qmx
