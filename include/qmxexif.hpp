/* qmxexif.hpp - qmxexif.h for C++17 and later: optional values in place of sentinels, strings in
 * place of buffers, a stream in memory, a range in place of a callback.
 *
 *     if (const auto photo = qmxexif::ReadPhoto(L"C:\\photos\\DSC_0001.NEF")) {
 *         Show(photo->info.longText);
 *         if (photo->preview) Draw(photo->preview->bytes, photo->info.orientation);
 *     }
 *
 * Header only: it adds nothing to the library, and calls the exported functions and nothing else.
 * Link with the import library or, to do without it, define QMXEXIF_LOAD_AT_RUN_TIME before
 * including this header (in every file of the program alike) and call qmxexif::Load once.
 *
 * An empty std::optional says that the call failed: the file is missing or unreadable, has no
 * metadata, or lacks what was asked for.  The only exception ever thrown is std::bad_alloc.  All
 * functions may be called on different threads at the same time.
 */
#ifndef QMXEXIF_HPP
#define QMXEXIF_HPP

#include <qmxexif.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <exception>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#if defined(QMXEXIF_LOAD_AT_RUN_TIME) && !defined(_WIN32)
#include <dlfcn.h>
#endif

namespace qmxexif {

#ifdef _WIN32
/* One UTF-16 code unit of a text. */
using Char = wchar_t;
#else
/* One UTF-16 code unit of a text.  The wide strings of the host's C++ library are not UTF-16. */
using Char = char16_t;
#endif
/* A text of the library: std::wstring on Windows, std::u16string elsewhere. */
using Text = std::basic_string<Char>;
using TextView = std::basic_string_view<Char>;
using Bytes = std::vector<std::uint8_t>;

/* Converts a text to UTF-8, for files, logs and terminals; half a surrogate pair becomes U+FFFD. */
inline std::string ToUtf8(TextView text) {
    std::string utf8;
    utf8.reserve(text.size() * 3);
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::uint32_t code = static_cast<std::uint16_t>(text[i]);
        if (code >= 0xD800 && code < 0xE000) {
            const std::uint32_t next =
                i + 1 < text.size() ? static_cast<std::uint16_t>(text[i + 1]) : 0u;
            if (code < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
                code = 0x10000 + ((code - 0xD800) << 10) + (next - 0xDC00);
                ++i;
            } else {
                code = 0xFFFD;
            }
        }
        const auto append = [&utf8](std::uint32_t byte) {
            utf8.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
        };
        if (code < 0x80) {
            append(code);
            continue;
        }
        if (code < 0x800) {
            append(0xC0 | code >> 6);
        } else {
            if (code < 0x10000) {
                append(0xE0 | code >> 12);
            } else {
                append(0xF0 | code >> 18);
                append(0x80 | (code >> 12 & 0x3F));
            }
            append(0x80 | (code >> 6 & 0x3F));
        }
        append(0x80 | (code & 0x3F));
    }
    return utf8;
}

/* A path as an argument: made from a UTF-16 pointer, std::wstring, std::u16string, on Windows
 * std::filesystem::path, or whatever else has a c_str() of 16-bit characters.  Lives no longer
 * than the call that it is made for. */
class Path {
    template <class Unit>
    static constexpr bool kIsUtf16 = std::is_same_v<Unit, WCHAR> || std::is_same_v<Unit, char16_t>;

public:
    template <class Unit, class = std::enable_if_t<kIsUtf16<Unit>>>
    Path(const Unit* path) { /* NOLINT(google-explicit-constructor): an argument */
        if constexpr (std::is_same_v<Unit, WCHAR>) {
            text = path;
        } else if (path) {
            while (*path) copy.push_back(static_cast<WCHAR>(*path++));
            copy.push_back(0);
            text = copy.data();
        }
    }
    template <class String,
              class Unit = std::decay_t<decltype(*std::declval<const String&>().c_str())>,
              class = std::enable_if_t<kIsUtf16<Unit>>>
    Path(const String& path) /* NOLINT(google-explicit-constructor) */
        : Path(path.c_str()) {}
    Path(const Path&) = delete;
    Path& operator=(const Path&) = delete;

    const WCHAR* Get() const noexcept { return text; }

private:
    const WCHAR* text = nullptr;
    std::vector<WCHAR> copy; /* of a path in another type of character */
};

namespace detail {

/* The functions of the library that this header calls. */
struct Functions {
    decltype(&::ExifGetThumbnailImage) getThumbnailImage;
    decltype(&::ExifEnumInfo) enumInfo;
    decltype(&::ExifIsExifFile) isExifFile;
    decltype(&::ExifGetDateTimeString) getDateTimeString;
    decltype(&::ExifGetExifInfoEx) getExifInfoEx;
};

#ifdef QMXEXIF_LOAD_AT_RUN_TIME

/* What stands in for a library that is not loaded: every call fails. */
inline constexpr Functions kNotLoaded = {
    [](const WCHAR*, IStream*, UINT32*, UINT32, WCHAR*, INT32) -> UINT32 { return 0; },
    [](const WCHAR*, ExifEnumCallback, INT_PTR) -> UINT32 { return 0xFFFFFFFFu; },
    [](const WCHAR*) -> UINT32 { return 0; },
    [](const WCHAR*, WCHAR*, INT32) -> UINT32 { return 0; },
    [](const WCHAR*, IStream*, UINT32*, UINT32, InfoRequest*) -> UINT32 { return 0; },
};

inline Functions& Loaded() noexcept {
    static Functions functions = kNotLoaded;
    return functions;
}
inline const Functions& Api() noexcept { return Loaded(); }

#else

inline Functions Api() noexcept {
    return {&::ExifGetThumbnailImage, &::ExifEnumInfo, &::ExifIsExifFile, &::ExifGetDateTimeString,
            &::ExifGetExifInfoEx};
}

#endif

/* The text up to its NUL. */
inline Text ToText(const WCHAR* text) {
    std::size_t length = 0;
    while (text[length]) ++length;
    return Text(text, text + length);
}

inline std::optional<INT32> Given(INT32 value) noexcept {
    return value == QMXEXIF_INT_UNSET ? std::nullopt : std::optional<INT32>(value);
}

/* Written so that an infinity and what is not a number are not given either. */
inline std::optional<float> Given(float value) noexcept {
    return value > -QMXEXIF_FLOAT_UNSET && value < QMXEXIF_FLOAT_UNSET ? std::optional<float>(value)
                                                                       : std::nullopt;
}

/* Files say anything: only what a calendar has counts. */
inline std::optional<SYSTEMTIME> Given(const SYSTEMTIME& time) noexcept {
    const bool leap = time.wYear % 4 == 0 && (time.wYear % 100 != 0 || time.wYear % 400 == 0);
    const bool shortMonth =
        time.wMonth == 4 || time.wMonth == 6 || time.wMonth == 9 || time.wMonth == 11;
    const int days = time.wMonth == 2 ? (leap ? 29 : 28) : (shortMonth ? 30 : 31);
    const bool valid = time.wYear > 0 && time.wMonth >= 1 && time.wMonth <= 12 && time.wDay >= 1 &&
                       time.wDay <= days && time.wHour < 24 && time.wMinute < 60 &&
                       time.wSecond < 60;
    return valid ? std::optional<SYSTEMTIME>(time) : std::nullopt;
}

/* The COM object behind a MemoryStream.  Clones share the bytes and have positions of their own. */
class StreamObject final : public IStream {
public:
    explicit StreamObject(std::shared_ptr<Bytes> shared, std::uint64_t start = 0) noexcept
        : bytes(std::move(shared)), position(start) {}

    Bytes& Contents() noexcept { return *bytes; }
    void Rewind() noexcept { position = 0; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (!IsOurs(id)) return E_NOINTERFACE;
        *object = static_cast<IStream*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE Read(void* data, ULONG length, ULONG* read) noexcept override {
        if (read) *read = 0;
        if (!data) return E_POINTER;
        const ULONG count = static_cast<ULONG>((std::min<std::uint64_t>)(length, BytesLeft()));
        if (count != 0) std::memcpy(data, bytes->data() + position, count);
        position += count;
        if (read) *read = count;
        return count == length ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Write(const void* data, ULONG length,
                                    ULONG* written) noexcept override {
        if (written) *written = 0;
        if (length == 0) return S_OK;
        if (!data) return E_POINTER;
        if (position > kMaxBytes - length) return STG_E_MEDIUMFULL;
        if (position + length > bytes->size()) {
            const HRESULT result = Resize(position + length);
            if (FAILED(result)) return result;
        }
        std::memcpy(bytes->data() + position, data, length);
        position += length;
        if (written) *written = length;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move, DWORD origin,
                                   ULARGE_INTEGER* moved) noexcept override {
        std::uint64_t from = 0;
        if (origin == STREAM_SEEK_CUR) {
            from = position;
        } else if (origin == STREAM_SEEK_END) {
            from = bytes->size();
        } else if (origin != STREAM_SEEK_SET) {
            return STG_E_INVALIDFUNCTION;
        }
        const std::uint64_t target = from + static_cast<std::uint64_t>(move.QuadPart);
        if (target > static_cast<std::uint64_t>(INT64_MAX)) return STG_E_INVALIDFUNCTION;
        position = target;
        if (moved) moved->QuadPart = position;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER size) noexcept override {
        return Resize(size.QuadPart);
    }
    HRESULT STDMETHODCALLTYPE CopyTo(IStream* target, ULARGE_INTEGER length, ULARGE_INTEGER* read,
                                     ULARGE_INTEGER* written) noexcept override {
        if (read) read->QuadPart = 0;
        if (written) written->QuadPart = 0;
        if (!target) return E_POINTER;
        const std::uint64_t count = (std::min<std::uint64_t>)(length.QuadPart, BytesLeft());
        ULONG done = 0;
        HRESULT result = S_OK;
        if (count != 0) {
            /* From a copy: the target may be a clone that makes the shared bytes move. */
            try {
                const Bytes copy(bytes->data() + position, bytes->data() + position + count);
                result = target->Write(copy.data(), static_cast<ULONG>(count), &done);
            } catch (const std::bad_alloc&) {
                return E_OUTOFMEMORY;
            }
        }
        if (FAILED(result)) return result;
        position += count;
        if (read) read->QuadPart = count;
        if (written) written->QuadPart = done;
        return result;
    }
    HRESULT STDMETHODCALLTYPE Commit(DWORD) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Revert() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override {
        return STG_E_INVALIDFUNCTION;
    }
    HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER,
                                           DWORD) noexcept override {
        return STG_E_INVALIDFUNCTION;
    }
    HRESULT STDMETHODCALLTYPE Stat(STATSTG* facts, DWORD) noexcept override {
        if (!facts) return E_POINTER;
        *facts = STATSTG{}; /* no name */
        facts->type = STGTY_STREAM;
        facts->cbSize.QuadPart = bytes->size();
        facts->grfMode = 2; /* STGM_READWRITE */
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IStream** copy) noexcept override {
        if (!copy) return E_POINTER;
        *copy = new (std::nothrow) StreamObject(bytes, position);
        return *copy ? S_OK : E_OUTOFMEMORY;
    }

private:
    /* Far above any preview; keeps a runaway writer from eating the machine. */
    static constexpr std::uint64_t kMaxBytes = std::uint64_t{1} << 31;

    ~StreamObject() = default;

    /* Spelt out, so that no library of ids is needed: IUnknown, ISequentialStream, IStream. */
    static bool IsOurs(REFIID id) noexcept {
        constexpr GUID kIds[] = {
            {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}},
            {0x0C733A30, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0, 0xAA, 0, 0x44, 0x77, 0x3D}},
            {0x0000000C, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}};
        for (const GUID& own : kIds) {
            if (std::memcmp(&id, &own, sizeof own) == 0) return true;
        }
        return false;
    }
    std::uint64_t BytesLeft() const noexcept {
        return position < bytes->size() ? bytes->size() - position : 0;
    }
    HRESULT Resize(std::uint64_t size) noexcept {
        if (size > kMaxBytes) return STG_E_MEDIUMFULL;
        try {
            bytes->resize(static_cast<std::size_t>(size));
            return S_OK;
        } catch (const std::bad_alloc&) {
        } catch (const std::length_error&) {
        }
        return E_OUTOFMEMORY;
    }

    std::atomic<ULONG> references{1};
    std::shared_ptr<Bytes> bytes;
    std::uint64_t position; /* may lie behind the end, as streams allow */
};

}  // namespace detail

#ifdef QMXEXIF_LOAD_AT_RUN_TIME

/* Loads the library from `path`, for the rest of the process; until then every call fails.  Give a
 * full path: a bare name is searched for in folders that others may write to.  Not to be called
 * while another thread reads a file.  False when it cannot be loaded or lacks a function. */
inline bool Load(const Path& path) {
    if (!path.Get()) return false;
    detail::Functions found{};
#ifdef _WIN32
    const HMODULE module = LoadLibraryExW(path.Get(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    const auto look = [module](const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(module, name));
    };
#else
    const std::string name = ToUtf8(detail::ToText(path.Get()));
    void* const module = dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
    const auto look = [module](const char* symbol) { return dlsym(module, symbol); };
#endif
    if (!module) return false;
    const auto resolve = [&look](auto& function, const char* symbol) {
        function = reinterpret_cast<std::decay_t<decltype(function)>>(look(symbol));
        return function != nullptr;
    };
    const bool complete = resolve(found.getThumbnailImage, "ExifGetThumbnailImage") &&
                          resolve(found.enumInfo, "ExifEnumInfo") &&
                          resolve(found.isExifFile, "ExifIsExifFile") &&
                          resolve(found.getDateTimeString, "ExifGetDateTimeString") &&
                          resolve(found.getExifInfoEx, "ExifGetExifInfoEx");
    if (complete) detail::Loaded() = found;
    return complete;
}

#endif

/* A growing buffer in memory as a COM stream, for the library to write to and for anything else
 * that takes an IStream, such as Windows' own picture decoders.  Used by one thread at a time.  A
 * stream that was moved from can only be assigned to. */
class MemoryStream {
public:
    MemoryStream() : MemoryStream(Bytes()) {}
    /* A stream with contents, which stands at its start. */
    explicit MemoryStream(Bytes bytes)
        : object(new detail::StreamObject(std::make_shared<Bytes>(std::move(bytes)))) {}
    MemoryStream(MemoryStream&& other) noexcept : object(std::exchange(other.object, nullptr)) {}
    MemoryStream& operator=(MemoryStream&& other) noexcept {
        std::swap(object, other.object);
        return *this;
    }
    ~MemoryStream() {
        if (object) object->Release();
    }

    /* The interface.  Whoever keeps it beyond this object's life adds a reference. */
    IStream* Get() const noexcept { return object; }
    /* What the stream holds, wherever it stands. */
    const Bytes& Contents() const noexcept { return object->Contents(); }
    /* Hands the contents over and leaves the stream empty, at its start. */
    Bytes TakeContents() noexcept {
        object->Rewind();
        return std::exchange(object->Contents(), Bytes());
    }

private:
    detail::StreamObject* object;
};

/* A picture of a file, as the library delivers it. */
struct Preview {
    Bytes bytes; /* a JPEG as found in the file, or a 24-bit BMP */

    bool IsJpeg() const noexcept {
        return bytes.size() > 1 && bytes[0] == 0xFF && bytes[1] == 0xD8;
    }
    /* The extension of a file with these bytes. */
    const char* Extension() const noexcept { return IsJpeg() ? ".jpg" : ".bmp"; }
};

/* Which picture of a file. */
enum class PreviewSize : UINT32 {
    kSmall = 0,  /* the thumbnail */
    kLargest = 1 /* the largest embedded one; files named .erf and .3fr are developed */
};

/* What a file says about its picture: InfoRequest with optional values and strings.  Absent texts
 * are empty. */
struct Info {
    Text make;
    Text model;
    Text lens;
    std::optional<SYSTEMTIME> captureTime; /* camera's local time, if a calendar has it;
                                              wDayOfWeek and wMilliseconds are 0 */
    std::optional<INT32> width;            /* pixels */
    std::optional<INT32> height;
    std::optional<INT32> exposureProgram; /* Exif code */
    std::optional<INT32> meteringMode;    /* Exif code */
    std::optional<INT32> whiteBalance;    /* Exif code: 0 automatic, 1 manual */
    std::optional<INT32> isoSpeed;        /* 0 = automatic */
    std::optional<float> focalLength;     /* mm */
    std::optional<float> focalLength35mm; /* mm, equivalent for 35 mm film */
    std::optional<float> exposureTime;    /* seconds */
    std::optional<float> exposureBias;    /* EV */
    std::optional<float> fNumber;
    std::optional<float> maxAperture; /* the lens's, as an f-number */
    bool flashFired = false;
    UINT32 orientation = 1; /* Exif orientation 1..8; 1 when the file gives none */
    Text whiteBalanceText;  /* white balance in words */
    Text shortText;         /* one line */
    Text longText;          /* several lines */
};

/* Metadata and, where there is one, a preview. */
struct Photo {
    Info info;
    std::optional<Preview> preview;
};

/* The two texts of a file. */
struct Texts {
    Text shortText; /* one line */
    Text longText;  /* several lines */
};

/* One row of the labelled list. */
struct Item {
    enum class Kind : UINT32 { kHeading = QMXEXIF_KIND_HEADING, kItem = QMXEXIF_KIND_ITEM };

    Kind kind = Kind::kItem;
    Text label;                /* the name of a section or of an item */
    std::optional<Text> value; /* none in a heading, and in an item that introduces sub-items */
};

/* The labelled list of a file, in the library's order: headings, each followed by its items. */
class List {
public:
    using const_iterator = std::vector<Item>::const_iterator;

    List() = default;
    explicit List(std::vector<Item> rows) noexcept : items(std::move(rows)) {}

    const_iterator begin() const noexcept { return items.begin(); }
    const_iterator end() const noexcept { return items.end(); }
    std::size_t size() const noexcept { return items.size(); }
    bool empty() const noexcept { return items.empty(); }
    const Item& operator[](std::size_t index) const noexcept { return items[index]; }

    /* The first item with this label below the heading, or nullptr. */
    const Item* Find(TextView heading, TextView label) const& noexcept {
        bool inside = false;
        for (const Item& item : items) {
            if (item.kind == Item::Kind::kHeading) {
                inside = item.label == heading;
            } else if (inside && item.label == label) {
                return &item;
            }
        }
        return nullptr;
    }
    const Item* Find(TextView heading, TextView label) const&& = delete;

private:
    std::vector<Item> items;
};

namespace detail {

/* An InfoRequest with room for its texts. */
struct Request {
    /* The longest texts that the library composes, terminators included. */
    static constexpr INT32 kLongCapacity = 1024;
    static constexpr INT32 kShortCapacity = 256;

    InfoRequest record{};
    WCHAR longText[kLongCapacity] = {};
    WCHAR shortText[kShortCapacity + 1] = {}; /* the one beyond what the capacity says */

    Request() noexcept {
        record.longText = longText;
        record.longTextCapacity = kLongCapacity;
        record.shortText = shortText;
        record.shortTextCapacity = kShortCapacity;
    }
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    Info ToInfo() const {
        Info info;
        info.make = ToText(record.makeText);
        info.model = ToText(record.modelText);
        info.lens = ToText(record.lensText);
        info.captureTime = Given(SYSTEMTIME(record.captureTime));
        info.width = Given(INT32(record.imageWidth));
        info.height = Given(INT32(record.imageHeight));
        info.exposureProgram = Given(INT32(record.exposureProgram));
        info.meteringMode = Given(INT32(record.meteringMode));
        info.whiteBalance = Given(INT32(record.whiteBalance));
        info.isoSpeed = Given(INT32(record.isoSpeed));
        info.focalLength = Given(float(record.focalLength));
        info.focalLength35mm = Given(float(record.focalLength35mm));
        info.exposureTime = Given(float(record.exposureTime));
        info.exposureBias = Given(float(record.exposureBias));
        info.fNumber = Given(float(record.fNumber));
        info.maxAperture = Given(float(record.maxAperture));
        info.flashFired = record.flashFired != 0;
        info.orientation = record.orientation;
        info.whiteBalanceText = ToText(record.whiteBalanceText);
        info.shortText = ToText(shortText);
        info.longText = ToText(longText);
        return info;
    }
};

/* Gathers the rows of a list; an exception waits here until the library has returned. */
struct Collector {
    std::vector<Item> items;
    std::exception_ptr failure;

    static INT_PTR CALLBACK Collect(UINT32 kind, const WCHAR* label, const WCHAR* value,
                                    INT_PTR user) noexcept {
        auto& collector = *reinterpret_cast<Collector*>(user);
        if (collector.failure) return 0;
        try {
            Item item;
            item.kind = static_cast<Item::Kind>(kind);
            if (label) item.label = ToText(label);
            if (value) item.value = ToText(value);
            collector.items.push_back(std::move(item));
        } catch (...) {
            collector.failure = std::current_exception();
        }
        return 0;
    }
};

}  // namespace detail

/* Tells from a file's beginning and extension whether it is of a kind that the library reads. */
inline bool IsCameraFile(const Path& path) noexcept {
    return detail::Api().isExifFile(path.Get()) != 0;
}

/* Reads the metadata alone. */
inline std::optional<Info> ReadInfo(const Path& path) {
    detail::Request request;
    if (detail::Api().getExifInfoEx(path.Get(), nullptr, nullptr, 0, &request.record) == 0) {
        return std::nullopt;
    }
    return request.ToInfo();
}

/* Reads a picture alone.  It is as the camera held it: turn it by the orientation, see Photo. */
inline std::optional<Preview> ReadPreview(const Path& path,
                                          PreviewSize size = PreviewSize::kSmall) {
    MemoryStream stream;
    if (detail::Api().getThumbnailImage(path.Get(), stream.Get(), nullptr,
                                        static_cast<UINT32>(size), nullptr, 0) == 0) {
        return std::nullopt;
    }
    return Preview{stream.TakeContents()};
}

/* Reads the metadata and a picture, in one pass over a file that has both. */
inline std::optional<Photo> ReadPhoto(const Path& path, PreviewSize size = PreviewSize::kSmall) {
    detail::Request request;
    MemoryStream stream;
    if (detail::Api().getExifInfoEx(path.Get(), stream.Get(), nullptr, static_cast<UINT32>(size),
                                    &request.record) != 0) {
        return Photo{request.ToInfo(), Preview{stream.TakeContents()}};
    }
    std::optional<Info> info = ReadInfo(path);
    if (!info) return std::nullopt;
    return Photo{std::move(*info), std::nullopt};
}

/* Reads the one-line summary and the multi-line description. */
inline std::optional<Texts> ReadTexts(const Path& path) {
    WCHAR buffer[QMXEXIF_TEXT_BUFFER_LENGTH] = {};
    if (detail::Api().getThumbnailImage(path.Get(), nullptr, nullptr, 0, buffer,
                                        QMXEXIF_TEXT_BUFFER_LENGTH) == 0) {
        return std::nullopt;
    }
    Texts texts;
    texts.shortText = detail::ToText(buffer);
    texts.longText = detail::ToText(buffer + texts.shortText.size() + 1);
    return texts;
}

/* Reads every decoded value as labelled text. */
inline std::optional<List> ReadList(const Path& path) {
    detail::Collector collector;
    const UINT32 result = detail::Api().enumInfo(path.Get(), &detail::Collector::Collect,
                                                 reinterpret_cast<INT_PTR>(&collector));
    if (collector.failure) std::rethrow_exception(collector.failure);
    if (result != 1) return std::nullopt;
    return List(std::move(collector.items));
}

/* Reads the original date as stored, normally "2008:07:31 12:34:56"; empty when a file with
 * metadata has none. */
inline std::optional<Text> ReadDateTime(const Path& path) {
    WCHAR buffer[64] = {};
    if (detail::Api().getDateTimeString(path.Get(), buffer, 64) == 0) return std::nullopt;
    return detail::ToText(buffer);
}

/* A capture time for the functions of <ctime>, which take it as local time. */
inline std::tm ToTm(const SYSTEMTIME& time) noexcept {
    std::tm result{};
    result.tm_year = time.wYear - 1900;
    result.tm_mon = time.wMonth - 1;
    result.tm_mday = time.wDay;
    result.tm_hour = time.wHour;
    result.tm_min = time.wMinute;
    result.tm_sec = time.wSecond;
    result.tm_isdst = -1; /* unknown */
    return result;
}

}  // namespace qmxexif

#endif
