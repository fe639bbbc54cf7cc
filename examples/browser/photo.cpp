#include "photo.h"

#include <qmxexif.h>
#include <shlwapi.h>
#include <wrl/client.h>

#include <new>

#include "folder.h"
#include "strings.h"

namespace browser {
namespace {

using Microsoft::WRL::ComPtr;

constexpr INT32 kDescriptionCapacity = 1024;

// A stream that grows in memory, for the library to write a preview into.
ComPtr<IStream> MakeMemoryStream() {
    ComPtr<IStream> stream;
    stream.Attach(SHCreateMemStream(nullptr, 0));
    return stream;
}

// The summary, a NUL, the description and a NUL, as two paragraphs.
std::wstring JoinTexts(const wchar_t* texts) {
    const std::wstring summary = texts;
    const std::wstring description = texts + summary.size() + 1;
    if (summary.empty() || description.empty()) return summary + description;
    return summary + L"\r\n" + description;
}

bool ReadDescription(const std::wstring& path, IStream* stream, std::wstring& description) {
    wchar_t text[kDescriptionCapacity] = {};
    InfoRequest info = {};
    info.longText = text;
    info.longTextCapacity = kDescriptionCapacity;
    if (!ExifGetExifInfoEx(path.c_str(), stream, nullptr, 0, &info)) return false;
    description = text;
    return true;
}

struct RowReader {
    std::vector<DetailRow> rows;
    bool wasOutOfMemory = false;
};

INT_PTR CALLBACK OnRow(UINT32 kind, const WCHAR* label, const WCHAR* value, INT_PTR user) {
    RowReader& reader = *reinterpret_cast<RowReader*>(user);
    try {
        reader.rows.push_back(
            {kind == QMXEXIF_KIND_HEADING, label ? label : L"", value ? value : L""});
    } catch (const std::bad_alloc&) {
        reader.wasOutOfMemory = true;  // nothing may be thrown through the library
    }
    return 0;
}

}  // namespace

Thumbnail ReadThumbnail(const std::wstring& path, int edge) {
    Thumbnail thumbnail;
    UINT32 orientation = 1;
    wchar_t texts[QMXEXIF_TEXT_BUFFER_LENGTH] = {};
    const ComPtr<IStream> stream = MakeMemoryStream();
    if (stream && ExifGetThumbnailImage(path.c_str(), stream.Get(), &orientation, 0, texts,
                                        QMXEXIF_TEXT_BUFFER_LENGTH)) {
        thumbnail.bitmap = DecodeUpright(stream.Get(), orientation, edge);
    } else {
        // Without a preview there may still be texts and an orientation.
        ExifGetThumbnailImage(path.c_str(), nullptr, &orientation, 0, texts,
                              QMXEXIF_TEXT_BUFFER_LENGTH);
    }
    thumbnail.summary = JoinTexts(texts);
    // Many JPEG files, edited ones above all, hold no preview but are small enough themselves.
    if (!thumbnail.bitmap && IsPlainPicture(path)) {
        thumbnail.bitmap = DecodeUpright(path, orientation, edge);
    }
    return thumbnail;
}

Details ReadDetails(const std::wstring& path) {
    Details details;
    details.isRead = ReadDescription(path, nullptr, details.description);
    if (!details.isRead) {
        // Files that the library develops itself give their texts only along with the picture.
        const ComPtr<IStream> stream = MakeMemoryStream();
        details.isRead = stream && ReadDescription(path, stream.Get(), details.description);
    }
    RowReader reader;
    if (details.isRead) ExifEnumInfo(path.c_str(), OnRow, reinterpret_cast<INT_PTR>(&reader));
    if (reader.wasOutOfMemory) throw std::bad_alloc();
    details.rows = std::move(reader.rows);
    if (!details.isRead) details.description = kNoMetadata;
    return details;
}

}  // namespace browser
