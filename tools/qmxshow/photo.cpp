#include "photo.h"

#include <new>
#include <utility>

#include "handle.h"
#include "memory_stream.h"
#include "paths.h"
#include "utf8.h"

namespace qmx {
namespace {

constexpr INT32 kLongCapacity = 1024;
constexpr INT32 kShortCapacity = 256;

// Why the library refused a file: what the system says about opening it, else about its content.
std::wstring FailureReason(const std::wstring& path) {
    if (IsFolder(path)) return L"it is a folder";
    const FileHandle file(CreateFileW(LongPath(path).c_str(), GENERIC_READ, FILE_SHARE_READ,
                                      nullptr, OPEN_EXISTING, 0, nullptr));
    if (!IsOpen(file)) return ErrorText(GetLastError());
    LARGE_INTEGER size;
    if (GetFileSizeEx(file.get(), &size) && size.QuadPart == 0) return L"the file is empty";
    return L"no camera metadata found";
}

void RequireMemory(const MemoryStream& stream) {
    if (stream.WasOutOfMemory()) throw std::bad_alloc();
}

bool ReadRecord(const Library& library, IStream* stream, Photo& photo) {
    std::wstring longText(kLongCapacity, L'\0');
    std::wstring shortText(kShortCapacity + 1, L'\0');  // one more than stated, see the header
    photo.info = {};
    photo.info.longText = longText.data();
    photo.info.longTextCapacity = kLongCapacity;
    photo.info.shortText = shortText.data();
    photo.info.shortTextCapacity = kShortCapacity;
    if (!library.getInfo(photo.path.c_str(), stream, &photo.storedOrientation, 0, &photo.info)) {
        return false;
    }
    photo.info.longText = photo.info.shortText = nullptr;
    photo.longText = BoundedText(longText.data(), longText.size());
    photo.shortText = BoundedText(shortText.data(), shortText.size());
    return true;
}

struct ListReader {
    std::vector<ListLine> lines;
    bool outOfMemory = false;
};

INT_PTR CALLBACK OnListLine(UINT32 kind, const WCHAR* label, const WCHAR* value, INT_PTR user) {
    ListReader& reader = *reinterpret_cast<ListReader*>(user);
    try {
        reader.lines.push_back({kind == QMXEXIF_KIND_HEADING, value != nullptr, label ? label : L"",
                                value ? value : L""});
    } catch (const std::bad_alloc&) {
        reader.outOfMemory = true;  // nothing may be thrown through the library
    }
    return 0;
}

void ReadList(const Library& library, Photo& photo) {
    ListReader reader;
    library.enumInfo(photo.path.c_str(), OnListLine, reinterpret_cast<INT_PTR>(&reader));
    if (reader.outOfMemory) throw std::bad_alloc();
    photo.list = std::move(reader.lines);
}

Preview ReadSmallPreview(const Library& library, const std::wstring& path) {
    const MemoryStream::Owner stream = MemoryStream::Create();
    const bool found = library.getThumbnail(path.c_str(), stream.get(), nullptr, 0) != 0;
    RequireMemory(*stream);
    return found ? DescribePreview(stream->TakeBytes()) : Preview();
}

void ReadParts(const Library& library, PhotoParts parts, Photo& photo) {
    // A call with a stream fails when there is no preview, so the record is asked for alone.
    if (ReadRecord(library, nullptr, photo)) {
        if (parts.list) ReadList(library, photo);
        if (parts.preview) photo.preview = ReadSmallPreview(library, photo.path);
        return;
    }
    // Files that the library develops itself give their record only along with the picture.
    const MemoryStream::Owner stream = MemoryStream::Create();
    const bool developed = ReadRecord(library, stream.get(), photo);
    RequireMemory(*stream);
    if (!developed) {
        photo.error = FailureReason(photo.path);
        return;
    }
    photo.preview = DescribePreview(stream->TakeBytes());
}

}  // namespace

Photo ReadPhoto(const Library& library, const std::wstring& path, PhotoParts parts) {
    Photo photo;
    photo.path = path;
    try {
        ReadParts(library, parts, photo);
    } catch (const std::bad_alloc&) {
        photo.preview = {};  // make room again before going on
        photo.list = {};
        photo.error = L"not enough memory";
    }
    return photo;
}

Preview ReadPrimary(const Library& library, const std::wstring& path) {
    const MemoryStream::Owner stream = MemoryStream::Create();
    const bool found = library.getPrimaryImage(path.c_str(), stream.get()) != 0;
    RequireMemory(*stream);
    return found ? DescribePreview(stream->TakeBytes()) : Preview();
}

}  // namespace qmx
