#include "hostile/requests.h"

#include <algorithm>
#include <bit>
#include <chrono>
#include <cstring>
#include <string_view>

#include "bench/platform.h"

namespace qmx::hostile {
namespace {

using test::Api;
using test::Library;

constexpr wchar_t kFill = 0xA5A5;
constexpr UINT32 kNoOrientation = 0xFEDCBA98;

// What the requests below are, in their order.
constexpr const char* kNames[] = {
    "ExifIsExifFile",
    "ExifEnumInfo",
    "ExifEnumInfo without a callback",
    "ExifGetDateTimeString",
    "ExifGetDateTimeString, cut",
    "ExifGetInfoTip",
    "ExifGetExifInfo without a stream",
    "ExifGetExifInfo",
    "ExifGetExifInfoEx without a stream",
    "ExifGetExifInfoEx",
    "ExifGetExifInfoEx, primary",
    "ExifGetThumbsnail",
    "ExifGetThumbnailImage",
    "ExifGetThumbnailImage, primary",
    "ExifGetPrimaryImage",
    "ExifGetPrimaryImageEx",
    "ExifDrawDigiText",
};
static_assert(std::size(kNames) <= std::tuple_size_v<decltype(Answers::digests)>);

// A buffer of which nothing may be written beyond `Size`.
template <std::size_t Size>
class GuardedText {
public:
    GuardedText() { std::fill_n(text_, kLast, kFill); }
    wchar_t* Get() { return text_; }
    bool IsWhole() const { return IsFilledFrom(Size); }
    bool IsUntouched() const { return IsFilledFrom(0); }

private:
    static constexpr std::size_t kLast = Size + 64;
    bool IsFilledFrom(std::size_t first) const {
        return std::all_of(text_ + first, text_ + kLast, [](wchar_t c) { return c == kFill; });
    }
    wchar_t text_[kLast + 1] = {};
};

struct Listed {
    Digest digest;
    std::uint32_t calls = 0;
    bool sound = true;
};

INT_PTR CALLBACK Collect(UINT32 kind, const WCHAR* label, const WCHAR* value, INT_PTR user) {
    auto& listed = *reinterpret_cast<Listed*>(user);
    const bool isHeading = kind == QMXEXIF_KIND_HEADING;
    listed.sound &= label != nullptr &&
                    (isHeading ? value == nullptr : kind == QMXEXIF_KIND_ITEM && listed.calls != 0);
    ++listed.calls;
    listed.digest.Add(kind);
    listed.digest.AddText(label);
    listed.digest.AddText(value);
    return 1;
}

class Asker {
public:
    explicit Asker(const wchar_t* path) : path_(path), isRaw_(IsRaw(path)) {}

    Answers Ask() {
        Probe();
        List();
        Dates();
        Tip();
        BasicRecord(false);
        BasicRecord(true);
        Record(nullptr, 0);
        for (const UINT32 flag : {0u, 1u}) {
            DigestStream stream;
            Record(&stream, flag);
        }
        Picture(Kind::kThumbsnail, 0);
        Picture(Kind::kGeneral, 0);
        Picture(Kind::kGeneral, 1);
        Primary(false);
        Primary(true);
        Close(Timed([&] { return api_.drawDigiText(); }));
        return answers_;
    }

private:
    enum class Kind { kThumbsnail, kGeneral };

    static bool IsRaw(const wchar_t* path) {
        const int length = lstrlenW(path);
        if (length < 4) return false;
        const wchar_t* extension = path + length - 4;
        return lstrcmpiW(extension, L".raw") == 0 || lstrcmpiW(extension, L".erf") == 0 ||
               lstrcmpiW(extension, L".3fr") == 0;
    }

    void Promise(bool kept, const char* what) {
        if (!kept && answers_.broken == nullptr) answers_.broken = what;
    }

    template <class Call>
    UINT32 Timed(Call&& call, bool mayDevelop = false) {
        const auto start = std::chrono::steady_clock::now();
        const UINT32 result = call();
        const std::chrono::duration<float, std::milli> taken =
            std::chrono::steady_clock::now() - start;
        auto& times = mayDevelop && isRaw_ ? answers_.developMilliseconds : answers_.milliseconds;
        times[answers_.count] = taken.count();
        digest_ = {};
        digest_.Add(result);
        return result;
    }
    // Ends one request, of which `digest_` has taken in what was written.
    void Close(UINT32 result, bool isList = false) {
        Promise(result == 1 || result == (isList ? 0xFFFFFFFF : 0), "a result is neither 1 nor 0");
        answers_.digests[answers_.count++] = digest_.value;
    }

    void Probe() {
        Close(Timed([&] { return api_.isExifFile(path_); }));
    }

    void List() {
        Listed listed;
        const UINT32 result = Timed(
            [&] { return api_.enumInfo(path_, Collect, reinterpret_cast<INT_PTR>(&listed)); });
        answers_.parsed = result == 1;
        Promise(listed.sound, "the list has an item before a heading, or no label");
        Promise((listed.calls != 0) == answers_.parsed,
                "the list is empty after success or not after failure");
        digest_.Add(listed.digest.value);
        Close(result, true);
        Close(Timed([&] { return api_.enumInfo(path_, nullptr, 0); }), true);
    }

    void Dates() {
        GuardedText<40> whole;
        UINT32 result = Timed([&] { return api_.getDateTimeString(path_, whole.Get(), 40); });
        Promise((result == 1) == answers_.parsed && whole.IsWhole(),
                "the date and the list disagree");
        digest_.AddText(whole.Get());
        Close(result);
        GuardedText<5> cut;
        result = Timed([&] { return api_.getDateTimeString(path_, cut.Get(), 5); });
        Promise(cut.IsWhole(), "the date was written beyond its buffer");
        digest_.AddText(cut.Get());
        Close(result);
    }

    // The two texts behind each other, untouched after failure.
    template <class Text>
    void TakeTexts(UINT32 result, Text& text) {
        Promise(text.IsWhole(), "texts were written beyond 1282 characters");
        if (result != 1) return Promise(text.IsUntouched(), "texts were written after failure");
        digest_.AddText(text.Get());
        digest_.AddText(text.Get() + lstrlenW(text.Get()) + 1);
    }

    void Tip() {
        GuardedText<QMXEXIF_TEXT_BUFFER_LENGTH> text;
        const UINT32 result = Timed([&] { return api_.getInfoTip(path_, text.Get(), 1); });
        Promise((result == 1) == answers_.parsed, "the tip and the list disagree");
        TakeTexts(result, text);
        Close(result);
    }

    void TakeStream(UINT32 result, const DigestStream& stream) {
        Promise(stream.references == 1, "the stream was kept or released");
        Promise(result != 1 || stream.position == 0, "the stream does not stand at its start");
        digest_.Add(stream.size);
        digest_.Add(stream.digest.value);
    }

    void BasicRecord(bool withStream) {
        DigestStream stream;
        InfoRequest record;
        std::memset(static_cast<void*>(&record), 0, sizeof record);
        auto* beyond = reinterpret_cast<std::uint8_t*>(&record) + QMXEXIF_BASIC_INFO_SIZE;
        std::fill_n(beyond, sizeof record - QMXEXIF_BASIC_INFO_SIZE, std::uint8_t{0xA5});
        const UINT32 result =
            Timed([&] { return api_.getExifInfo(path_, withStream ? &stream : nullptr, &record); },
                  withStream);
        Promise(std::all_of(beyond, beyond + sizeof record - QMXEXIF_BASIC_INFO_SIZE,
                            [](std::uint8_t byte) { return byte == 0xA5; }),
                "the basic record was written beyond its 164 bytes");
        digest_.Add(&record, QMXEXIF_BASIC_INFO_SIZE);
        TakeStream(result, stream);
        Close(result);
    }

    void Record(DigestStream* stream, UINT32 flag) {
        GuardedText<1024> longText;
        GuardedText<257> shortText;
        InfoRequest record;
        std::memset(static_cast<void*>(&record), 0, sizeof record);
        record.longText = longText.Get();
        record.longTextCapacity = 1024;
        record.shortText = shortText.Get();
        record.shortTextCapacity = 256;
        UINT32 orientation = kNoOrientation;
        const UINT32 result =
            Timed([&] { return api_.getExifInfoEx(path_, stream, &orientation, flag, &record); },
                  stream != nullptr);
        Promise(longText.IsWhole() && shortText.IsWhole(), "a text was written beyond its buffer");
        Promise(result == 1 || (longText.IsUntouched() && shortText.IsUntouched()),
                "texts were written after failure");
        Promise(stream != nullptr || (result == 1) == answers_.parsed,
                "the record and the list disagree");
        if (result == 1) {
            digest_.AddText(longText.Get());
            digest_.AddText(shortText.Get());
        }
        record.longText = nullptr;
        record.shortText = nullptr;
        digest_.Add(&record, sizeof record);
        digest_.Add(orientation);
        if (stream != nullptr) TakeStream(result, *stream);
        Close(result);
    }

    void Picture(Kind kind, UINT32 flag) {
        DigestStream stream;
        GuardedText<QMXEXIF_TEXT_BUFFER_LENGTH> text;
        UINT32 orientation = kNoOrientation;
        const UINT32 result = Timed(
            [&] {
                return kind == Kind::kThumbsnail
                           ? api_.getThumbsnail(path_, &stream, text.Get(), 1282)
                           : api_.getThumbnailImage(path_, &stream, &orientation, flag, text.Get(),
                                                    1282);
            },
            true);
        if (kind == Kind::kThumbsnail) answers_.delivered = result == 1;
        TakeTexts(result, text);
        digest_.Add(orientation);
        TakeStream(result, stream);
        Close(result);
    }

    void Primary(bool withOrientation) {
        DigestStream stream;
        UINT32 orientation = kNoOrientation;
        const UINT32 result = Timed(
            [&] {
                return withOrientation ? api_.getPrimaryImageEx(path_, &stream, &orientation)
                                       : api_.getPrimaryImage(path_, &stream);
            },
            true);
        Promise(result == 1 || orientation == kNoOrientation,
                "an orientation was stored after failure");
        digest_.Add(orientation);
        TakeStream(result, stream);
        Close(result);
    }

    const Api& api_ = Library();
    const wchar_t* path_;
    bool isRaw_;
    Digest digest_;
    Answers answers_;
};

}  // namespace

void Digest::Add(std::uint64_t number) {
    value = std::rotl((value ^ number) * 0x9DDFEA08EB382D69u, 29);
}

void Digest::Add(const void* data, std::size_t size) {
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    std::uint64_t word = 0;
    for (; size >= sizeof word; bytes += sizeof word, size -= sizeof word) {
        std::memcpy(&word, bytes, sizeof word);
        Add(word);
    }
    word = size;
    for (; size != 0; ++bytes, --size) word = word << 8 | *bytes;
    Add(word);
}

void Digest::AddText(const wchar_t* text) {
    if (text == nullptr) return Add(~std::uint64_t{0});
    Add(text, static_cast<std::size_t>(lstrlenW(text)) * sizeof *text);
}

HRESULT STDMETHODCALLTYPE DigestStream::Write(const void* data, ULONG length, ULONG* written) {
    digest.Add(position);
    digest.Add(data, length);
    position += length;
    size = std::max(size, position);
    if (written != nullptr) *written = length;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE DigestStream::Seek(LARGE_INTEGER move, DWORD origin,
                                             ULARGE_INTEGER* newPosition) {
    if (origin != STREAM_SEEK_SET || move.QuadPart < 0) return E_INVALIDARG;
    position = static_cast<std::uint64_t>(move.QuadPart);
    if (newPosition != nullptr) newPosition->QuadPart = position;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE DigestStream::SetSize(ULARGE_INTEGER newSize) {
    size = newSize.QuadPart;
    digest.Add(size);
    return S_OK;
}

void LoadLibraryUnderTest() {
#ifdef _WIN32
    if (_wgetenv(L"QMX_DLL") == nullptr) {
        const auto beside = bench::FindProgramFolder() / bench::kLibraryName;
        _wputenv_s(L"QMX_DLL", beside.c_str());
    }
#endif
    Library();
}

const char* NameOfRequest(std::size_t place) {
    return place < std::size(kNames) ? kNames[place] : "a COM object";
}

Answers AskEverything(const wchar_t* path) { return Asker(path).Ask(); }

}  // namespace qmx::hostile
