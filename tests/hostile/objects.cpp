#include "hostile/objects.h"

#ifdef _WIN32
#include <oleauto.h>
#include <thumbcache.h>

#include <algorithm>

#include "com/fake_shell_item.h"
#endif

namespace qmx::hostile {

#ifdef _WIN32
namespace {

class Text {
public:
    explicit Text(const wchar_t* text) : text_(SysAllocString(text)) {}
    explicit Text(UINT length) : text_(SysAllocStringLen(nullptr, length)) {
        std::fill(text_, text_ + length, L'-');
    }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(text_); }
    operator BSTR() const { return text_; }

private:
    BSTR text_;
};

void Close(Answers& answers, HRESULT result, Digest digest) {
    if (result != S_OK && result != E_FAIL && answers.broken == nullptr)
        answers.broken = "a method of an object returns neither S_OK nor E_FAIL";
    digest.Add(static_cast<std::uint32_t>(result));
    answers.digests[answers.count++] = digest.value;
}

INT_PTR CALLBACK Collect(UINT32 kind, const WCHAR* label, const WCHAR* value, INT_PTR user) {
    auto& digest = *reinterpret_cast<Digest*>(user);
    digest.Add(kind);
    digest.AddText(label);
    digest.AddText(value);
    return 0;
}

// The pixels of a DIB section, which is deleted.
void TakeBitmap(HBITMAP bitmap, Digest& digest) {
    DIBSECTION section = {};
    const bool known = GetObjectW(bitmap, sizeof section, &section) != 0;
    const BITMAP& pixels = section.dsBm;
    digest.Add(static_cast<std::uint64_t>(pixels.bmWidth));
    digest.Add(static_cast<std::uint64_t>(pixels.bmHeight));
    if (known && pixels.bmBits != nullptr)
        digest.Add(pixels.bmBits, static_cast<std::size_t>(pixels.bmWidthBytes) *
                                      static_cast<std::size_t>(pixels.bmHeight));
    DeleteObject(bitmap);
}

}  // namespace

void Objects::Ask(const wchar_t* path, Answers& answers) {
    AskParser(path, answers);
    AskProvider(path, answers);
}

bool Objects::AllReleased() const { return module_.isUnlocked(); }

void Objects::AskParser(const wchar_t* path, Answers& answers) {
    const auto parser = module_.Create<IExifParser>(CLSID_ExifParser);
    const Text name(path);
    Close(answers, parser->ExifIsExifFile(name), {});
    {
        Digest digest;
        DigestStream stream;
        InfoRequest record = {};
        LONG orientation = -7;
        const HRESULT result = parser->ExifGetExifInfoEx(name, &stream, &orientation, 0,
                                                         reinterpret_cast<LONG_PTR>(&record));
        digest.Add(&record, sizeof record);
        digest.Add(static_cast<std::uint64_t>(orientation));
        digest.Add(stream.digest.value);
        Close(answers, result, digest);
    }
    {
        Digest digest;
        DigestStream stream;
        LONG orientation = -7;
        const Text text(QMXEXIF_TEXT_BUFFER_LENGTH);
        const HRESULT result =
            parser->ExifGetThumbnailImage(name, &stream, &orientation, 1, text, 1282);
        digest.AddText(text);
        digest.Add(static_cast<std::uint64_t>(orientation));
        digest.Add(stream.digest.value);
        Close(answers, result, digest);
    }
    const Text tip(QMXEXIF_TEXT_BUFFER_LENGTH);
    Digest digest;
    HRESULT result = parser->ExifGetInfoTip(name, tip, 1);
    digest.AddText(tip);
    Close(answers, result, digest);
    const Text date(40u);
    digest = {};
    result = parser->ExifGetDateTimeString(name, date, 40);
    digest.AddText(date);
    Close(answers, result, digest);
    digest = {};
    result = parser->ExifEnumInfo(name, reinterpret_cast<LONG_PTR>(Collect),
                                  reinterpret_cast<LONG_PTR>(&digest));
    Close(answers, result, digest);
}

void Objects::AskProvider(const wchar_t* path, Answers& answers) {
    const auto untouched = reinterpret_cast<HBITMAP>(static_cast<INT_PTR>(-1));
    test::FakeData data;
    data.path = path;
    test::FakeItem item(data);
    Digest digest;
    HRESULT result = S_OK;
    {
        const auto provider = module_.Create<IThumbnailProvider>(CLSID_RawThmubnail);
        test::Query<IInitializeWithItem>(provider)->Initialize(&item, STGM_READ);
        HBITMAP bitmap = untouched;
        WTS_ALPHATYPE alpha = WTSAT_ARGB;
        result = provider->GetThumbnail(96, &bitmap, &alpha);
        digest.Add(static_cast<std::uint64_t>(alpha));
        if (bitmap != untouched && bitmap != nullptr) TakeBitmap(bitmap, digest);
    }
    const bool balanced = item.references == 1 && data.references == 0 && data.mediums == 0;
    if ((result != E_FAIL || !balanced) && answers.broken == nullptr)
        answers.broken = "the thumbnail provider succeeds or keeps what it was given";
    Close(answers, result, digest);
}

#else

void Objects::Ask(const wchar_t*, Answers&) {}
bool Objects::AllReleased() const { return true; }

#endif

}  // namespace qmx::hostile
