#include "support/api.h"

#include <fstream>

#include "support/utf8.h"

namespace qmx::test {
namespace {

#ifdef _WIN32
Api Load() {
    const wchar_t* path = _wgetenv(L"QMX_DLL");
    const HMODULE module = LoadLibraryW(path != nullptr ? path : L"qmxexif.dll");
    Api api;
    LookUp(module, "ExifGetThumbsnail", api.getThumbsnail);
    LookUp(module, "ExifGetPrimaryImageEx", api.getPrimaryImageEx);
    LookUp(module, "ExifGetPrimaryImage", api.getPrimaryImage);
    LookUp(module, "ExifGetThumbnailImage", api.getThumbnailImage);
    LookUp(module, "ExifGetInfoTip", api.getInfoTip);
    LookUp(module, "ExifEnumInfo", api.enumInfo);
    LookUp(module, "ExifIsExifFile", api.isExifFile);
    LookUp(module, "ExifGetDateTimeString", api.getDateTimeString);
    LookUp(module, "ExifGetExifInfo", api.getExifInfo);
    LookUp(module, "ExifGetExifInfoEx", api.getExifInfoEx);
    LookUp(module, "ExifDrawDigiText", api.drawDigiText);
    return api;
}

#else
Api Load() {
    return {ExifGetThumbsnail, ExifGetPrimaryImageEx, ExifGetPrimaryImage, ExifGetThumbnailImage,
            ExifGetInfoTip,    ExifEnumInfo,          ExifIsExifFile,      ExifGetDateTimeString,
            ExifGetExifInfo,   ExifGetExifInfoEx,     ExifDrawDigiText};
}
#endif

std::u8string AsUtf8(const std::string& text) { return {text.begin(), text.end()}; }

INT_PTR CALLBACK Collect(UINT32 kind, const WCHAR* label, const WCHAR* value, INT_PTR user) {
    auto& listing = *reinterpret_cast<Listing*>(user);
    const std::string name = Utf8(label);
    if (kind == QMXEXIF_KIND_HEADING)
        listing.push_back("# " + name + (value != nullptr ? " (with a value)" : ""));
    else
        listing.push_back(value != nullptr ? name + " = " + Utf8(value) : name + " (group)");
    return -1;  // must not stop anything
}

}  // namespace

const Api& Library() {
    static const Api api = Load();
    return api;
}

std::vector<wchar_t> WidePath(const std::filesystem::path& path) {
    const std::u16string text = path.u16string();
    return {text.c_str(), text.c_str() + text.size() + 1};
}

TestFile::TestFile(const Bytes& bytes, const std::string& name) {
    const auto path = folder() / AsUtf8(name.starts_with('.') ? "photo" + name : name);
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    widePath_ = WidePath(path);
}

Listing ListOf(const wchar_t* path) {
    Listing listing;
    const UINT32 result = Library().enumInfo(path, Collect, reinterpret_cast<INT_PTR>(&listing));
    if (result != 1) listing.push_back(result == 0xFFFFFFFF ? "failed" : "wrong result");
    return listing;
}

Answer AskFor(const wchar_t* path) {
    wchar_t longText[1024] = {};
    wchar_t shortText[257] = {};
    Answer answer = {};
    answer.record.longText = longText;
    answer.record.longTextCapacity = 1024;
    answer.record.shortText = shortText;
    answer.record.shortTextCapacity = 256;
    answer.result = Library().getExifInfoEx(path, nullptr, nullptr, 0, &answer.record);
    answer.longText = Utf8(longText);
    answer.shortText = Utf8(shortText);
    answer.record.longText = nullptr;
    answer.record.shortText = nullptr;
    return answer;
}

}  // namespace qmx::test
