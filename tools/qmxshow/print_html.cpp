#include "print_html.h"

#include <cstdint>

#include "orientation.h"
#include "paths.h"
#include "sheet_style.h"
#include "utf8.h"

namespace qmx {
namespace {

// For element content and quoted attributes.  Characters that HTML forbids become U+FFFD.
std::string Escape(std::wstring_view text) {
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = NextCodePoint(text, at);
        switch (c) {
            case U'&': out += "&amp;"; break;
            case U'<': out += "&lt;"; break;
            case U'>': out += "&gt;"; break;
            case U'"': out += "&quot;"; break;
            case U'\'': out += "&#39;"; break;
            case U'\t':
            case U'\n': out += static_cast<char>(c); break;
            default: AppendUtf8(out, c < 0x20 || (c >= 0x7F && c < 0xA0) ? 0xFFFD : c);
        }
    }
    return out;
}

void PutBase64(Writer& out, const std::vector<std::uint8_t>& bytes) {
    constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t left = bytes.size() - at;
        const std::uint32_t group = static_cast<std::uint32_t>(
            bytes[at] << 16 | (left > 1 ? bytes[at + 1] << 8 : 0) | (left > 2 ? bytes[at + 2] : 0));
        text += kDigits[group >> 18];
        text += kDigits[group >> 12 & 63];
        text += left > 1 ? kDigits[group >> 6 & 63] : '=';
        text += left > 2 ? kDigits[group & 63] : '=';
    }
    out.Put(text);
}

void PutPicture(Writer& out, const Photo& photo, const std::string& name) {
    out.Put("<div class=\"pic\">");
    const Preview& preview = photo.preview;
    // Without a size it is no whole picture and would show as a broken one.
    if (preview.width == 0 || preview.height == 0) {
        out.Put("<span>プレビューなし</span></div>\n");
        return;
    }
    out.Put("<img alt=\"").Put(name).Put("\" width=\"").PutNumber(preview.width);
    out.Put("\" height=\"").PutNumber(preview.height).Put("\"");
    const std::string_view transform = OrientationTransform(photo.storedOrientation);
    if (!transform.empty()) out.Put(" style=\"transform:").Put(transform).Put("\"");
    out.Put(preview.kind == PreviewKind::kJpeg ? " src=\"data:image/jpeg;base64,"
                                               : " src=\"data:image/bmp;base64,");
    PutBase64(out, preview.bytes);
    out.Put("\"></div>\n");
}

void PutDescription(Writer& out, std::wstring_view text) {
    if (text.empty()) return;
    out.Put("<p class=\"text\">");
    for (bool isFirst = true; !text.empty(); isFirst = false) {
        out.Put(isFirst ? "" : "<br>").Put(Escape(TakeLine(text)));
    }
    out.Put("</p>\n");
}

void PutList(Writer& out, const std::vector<ListLine>& list) {
    if (list.empty()) return;
    out.Put("<details><summary>すべての情報</summary>\n<table>\n");
    for (const ListLine& line : list) {
        const std::string label = Escape(line.label);
        if (line.isHeading) {
            out.Put("<tr><th colspan=\"2\" class=\"section\">").Put(label).Put("</th></tr>\n");
        } else {
            out.Put("<tr><th scope=\"row\">").Put(label).Put("</th><td>");
            out.Put(Escape(line.value)).Put("</td></tr>\n");
        }
    }
    out.Put("</table>\n</details>\n");
}

void PutUnreadable(Writer& out, const std::vector<Unreadable>& unreadable) {
    if (unreadable.empty()) return;
    out.Put("<section class=\"failed\">\n<h2>読み取れなかったファイル</h2>\n<ul>\n");
    for (const Unreadable& file : unreadable) {
        out.Put("<li><code>").Put(Escape(file.path)).Put("</code> <span>");
        out.Put(Escape(file.reason)).Put("</span></li>\n");
    }
    out.Put("</ul>\n</section>\n");
}

}  // namespace

HtmlSheet::HtmlSheet(const std::wstring& path)
    : longPath(LongPath(path)),
      file(CreateFileW(longPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr)),
      openError(IsOpen(file) ? DWORD{ERROR_SUCCESS} : GetLastError()),
      out(file.get()) {}

HtmlSheet::~HtmlSheet() {
    if (!IsOpen(file)) return;
    out.Flush();
    const bool isWhole = isFinished && !out.HasFailed();
    file.reset();
    if (!isWhole) DeleteFileW(longPath.c_str());
}

void HtmlSheet::Begin() { out.Put(kSheetHead); }

void HtmlSheet::Add(const Photo& photo, const std::wstring& name) {
    const std::string caption = Escape(name);
    out.Put("<article>\n");
    PutPicture(out, photo, caption);
    out.Put("<h2 title=\"").Put(Escape(photo.path)).Put("\">").Put(caption).Put("</h2>\n");
    const std::wstring_view summary = Trim(photo.shortText);
    if (!summary.empty()) out.Put("<p class=\"summary\">").Put(Escape(summary)).Put("</p>\n");
    PutDescription(out, Trim(photo.longText));
    PutList(out, photo.list);
    out.Put("</article>\n");
    ++count;
}

void HtmlSheet::Finish(const std::vector<Unreadable>& unreadable) {
    out.Put("</main>\n");
    PutUnreadable(out, unreadable);
    out.Put("<footer>写真 ").PutNumber(count).Put("枚");
    if (!unreadable.empty()) {
        out.Put("、読み取れなかったファイル ").PutNumber(unreadable.size()).Put("件");
    }
    out.Put("</footer>\n</body>\n</html>\n").Flush();
    isFinished = true;
}

}  // namespace qmx
