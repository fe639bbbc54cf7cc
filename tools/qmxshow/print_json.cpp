#include "print_json.h"

#include <cmath>
#include <cstdio>

#include "utf8.h"

namespace qmx {
namespace {

void AppendEscape(std::string& out, char32_t unit) {
    char escape[8];
    std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(unit));
    out += escape;
}

// An unpaired surrogate is written as an escape, which keeps it without breaking the UTF-8.
std::string Quote(std::wstring_view text) {
    std::string out = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = NextCodePoint(text, at);
        if (c == U'"' || c == U'\\') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (c == U'\n') {
            out += "\\n";
        } else if (c == U'\r') {
            out += "\\r";
        } else if (c == U'\t') {
            out += "\\t";
        } else if (c < 0x20 || c == 0x7F || IsSurrogate(c)) {
            AppendEscape(out, c);
        } else {
            AppendUtf8(out, c);
        }
    }
    return out += '"';
}

// Writes the fields of one object, with the commas between.
class Fields {
public:
    explicit Fields(Writer& writer) : out(writer) {}

    Writer& Name(std::string_view name) {
        out.Put(isFirst ? "\"" : ",\"").Put(name).Put("\":");
        isFirst = false;
        return out;
    }
    void Text(std::string_view name, std::wstring_view text) { Name(name).Put(Quote(text)); }
    void TextOrNull(std::string_view name, std::wstring_view text) {
        Name(name).Put(text.empty() ? "null" : Quote(text));
    }
    template <std::size_t N>
    void TextOrNull(std::string_view name, const WCHAR (&text)[N]) {
        TextOrNull(name, BoundedText(text, N));
    }
    void Integer(std::string_view name, std::int64_t value) {
        Name(name);
        if (value == QMXEXIF_INT_UNSET) {
            out.Put("null");
        } else {
            out.PutNumber(value);
        }
    }
    // JSON has no word for infinity and not-a-number: null as well.
    void Real(std::string_view name, float value) {
        Name(name);
        if (value == QMXEXIF_FLOAT_UNSET || !std::isfinite(value)) {
            out.Put("null");
        } else {
            out.PutNumber(value);
        }
    }

private:
    Writer& out;
    bool isFirst = true;
};

void PutCaptureTime(Fields& fields, const SYSTEMTIME& time) {
    if (time.wYear == 0 && time.wMonth == 0 && time.wDay == 0) {
        fields.Name("captureTime").Put("null");
        return;
    }
    char text[48];
    std::snprintf(text, sizeof text, "\"%04u-%02u-%02uT%02u:%02u:%02u\"", time.wYear, time.wMonth,
                  time.wDay, time.wHour, time.wMinute, time.wSecond);
    fields.Name("captureTime").Put(text);
}

// In the order of the record.
void PutRecord(Fields& fields, const Photo& photo) {
    const InfoRequest& info = photo.info;
    fields.TextOrNull("modelText", info.modelText);
    PutCaptureTime(fields, info.captureTime);
    fields.Integer("imageWidth", info.imageWidth);
    fields.Integer("imageHeight", info.imageHeight);
    fields.Integer("exposureProgram", info.exposureProgram);
    fields.Real("focalLength", info.focalLength);
    fields.Real("focalLength35mm", info.focalLength35mm);
    fields.Real("exposureTime", info.exposureTime);
    fields.Real("exposureBias", info.exposureBias);
    fields.Real("fNumber", info.fNumber);
    fields.Integer("isoSpeed", info.isoSpeed);
    fields.Integer("flashFired", info.flashFired);
    fields.TextOrNull("longText", photo.longText);
    fields.TextOrNull("shortText", photo.shortText);
    fields.Integer("orientation", info.orientation);
    fields.Integer("meteringMode", info.meteringMode);
    fields.Integer("whiteBalance", info.whiteBalance);
    fields.Real("maxAperture", info.maxAperture);
    fields.TextOrNull("makeText", info.makeText);
    fields.TextOrNull("lensText", info.lensText);
    fields.TextOrNull("whiteBalanceText", info.whiteBalanceText);
}

// A group line, which only introduces the lines after it, has the value null.
void PutList(Writer& out, const std::vector<ListLine>& list) {
    std::wstring_view section;
    bool isFirst = true;
    out.Put("[");
    for (const ListLine& line : list) {
        if (line.isHeading) {
            section = line.label;
            continue;
        }
        out.Put(isFirst ? "{" : ",{");
        isFirst = false;
        Fields fields(out);
        fields.Text("section", section);
        fields.Text("label", line.label);
        fields.Name("value").Put(line.hasValue ? Quote(line.value) : "null");
        out.Put("}");
    }
    out.Put("]");
}

void PutPreview(Writer& out, const Preview& preview) {
    if (preview.kind == PreviewKind::kNone) {
        out.Put("null");
        return;
    }
    out.Put("{");
    Fields fields(out);
    fields.Integer("bytes", static_cast<std::int64_t>(preview.bytes.size()));
    fields.Name("kind").Put("\"").Put(KindName(preview.kind)).Put("\"");
    fields.Integer("width", preview.width != 0 ? preview.width : QMXEXIF_INT_UNSET);
    fields.Integer("height", preview.height != 0 ? preview.height : QMXEXIF_INT_UNSET);
    out.Put("}");
}

}  // namespace

void PrintJson(Writer& out, const Photo& photo) {
    out.Put("{");
    Fields fields(out);
    fields.Text("path", photo.path);
    fields.Name("ok").Put(photo.error.empty() ? "true" : "false");
    if (photo.error.empty()) {
        PutRecord(fields, photo);
        fields.Name("list");
        PutList(out, photo.list);
        fields.Name("preview");
        PutPreview(out, photo.preview);
    } else {
        fields.Text("error", photo.error);
    }
    out.Put("}\n");
}

}  // namespace qmx
