#include "hostile/objects.h"

#ifdef _WIN32
#include <thumbcache.h>

#include "com/fake_shell_item.h"
#endif

namespace qmx::hostile {

#ifdef _WIN32
namespace {

using test::AutoBstr;
using test::Digest;

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
    const AutoBstr name(path);
    // All that a method may write.
    struct Room {
        DigestStream stream;
        InfoRequest record = {};
        LONG orientation = -7;
        AutoBstr text{QMXEXIF_TEXT_BUFFER_LENGTH};
        Digest list = {};
        LONG_PTR Record() { return reinterpret_cast<LONG_PTR>(&record); }
        LONG_PTR List() { return reinterpret_cast<LONG_PTR>(&list); }
    };
    const auto ask = [&](auto call) {
        Room room;
        const HRESULT result = call(room);
        Digest digest = room.list;
        digest.Add(&room.record, sizeof room.record);
        digest.Add(static_cast<std::uint64_t>(room.orientation));
        digest.Add(room.stream.digest.value);
        digest.AddText(room.text);
        Close(answers, result, digest);
    };
    ask([&](Room&) { return parser->ExifIsExifFile(name); });
    ask([&](Room& r) {
        return parser->ExifGetExifInfoEx(name, &r.stream, &r.orientation, 0, r.Record());
    });
    ask([&](Room& r) {
        return parser->ExifGetThumbnailImage(name, &r.stream, &r.orientation, 1, r.text, 1282);
    });
    ask([&](Room& r) { return parser->ExifGetInfoTip(name, r.text, 1); });
    ask([&](Room& r) { return parser->ExifGetDateTimeString(name, r.text, 40); });
    ask([&](Room& r) {
        return parser->ExifEnumInfo(name, reinterpret_cast<LONG_PTR>(Collect), r.List());
    });
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
