#include "support/exports.h"

#include <bit>
#include <cstring>

namespace qmx::test {
namespace {

INT_PTR CALLBACK Collect(UINT32 kind, const WCHAR* label, const WCHAR* value, INT_PTR user) {
    auto& caller = *reinterpret_cast<Caller*>(user);
    const bool isSound = kind == QMXEXIF_KIND_HEADING
                             ? value == nullptr
                             : kind == QMXEXIF_KIND_ITEM && caller.listed != 0;
    caller.isListSound &= label != nullptr && isSound;
    ++caller.listed;
    caller.list.Add(kind);
    caller.list.AddText(label);
    caller.list.AddText(value);
    return 1;
}

using Path = const wchar_t*;
using enum Export::Traits;

// clang-format off
const Export kExports[] = {
    {"ExifIsExifFile", 0, [](Path path, Caller&) { return Library().isExifFile(path); }},
    {"ExifEnumInfo", kList | kMetadata, [](Path path, Caller& c) {
         return Library().enumInfo(path, Collect, reinterpret_cast<INT_PTR>(&c)); }},
    {"ExifEnumInfo without a callback", kList | kMetadata, [](Path path, Caller&) {
         return Library().enumInfo(path, nullptr, 0); }},
    {"ExifGetDateTimeString", kMetadata, [](Path path, Caller& c) {
         return Library().getDateTimeString(path, c.date.Get(), 40); }},
    {"ExifGetDateTimeString, cut", kMetadata, [](Path path, Caller& c) {
         return Library().getDateTimeString(path, c.cutDate.Get(), 5); }},
    {"ExifGetInfoTip", kMetadata, [](Path path, Caller& c) {
         return Library().getInfoTip(path, c.text.Get(), 1); }},
    {"ExifGetExifInfo without a stream", kMetadata | kBasic, [](Path path, Caller& c) {
         return Library().getExifInfo(path, nullptr, &c.record); }},
    {"ExifGetExifInfo", kStream | kBasic, [](Path path, Caller& c) {
         return Library().getExifInfo(path, c.stream, &c.record); }},
    {"ExifGetExifInfoEx without a stream", kMetadata, [](Path path, Caller& c) {
         return Library().getExifInfoEx(path, nullptr, &c.orientation, 0, &c.record); }},
    {"ExifGetExifInfoEx", kStream, [](Path path, Caller& c) {
         return Library().getExifInfoEx(path, c.stream, &c.orientation, 0, &c.record); }},
    {"ExifGetExifInfoEx, primary", kStream, [](Path path, Caller& c) {
         return Library().getExifInfoEx(path, c.stream, &c.orientation, 1, &c.record); }},
    {"ExifGetThumbsnail", kStream, [](Path path, Caller& c) {
         return Library().getThumbsnail(path, c.stream, c.text.Get(), 1282); }},
    {"ExifGetThumbnailImage", kStream, [](Path path, Caller& c) {
         return Library().getThumbnailImage(path, c.stream, &c.orientation, 0, c.text.Get(), 1); }},
    {"ExifGetThumbnailImage, primary", kStream, [](Path path, Caller& c) {
         return Library().getThumbnailImage(path, c.stream, &c.orientation, 1, c.text.Get(), 1); }},
    {"ExifGetPrimaryImage", kStream, [](Path path, Caller& c) {
         return Library().getPrimaryImage(path, c.stream); }},
    {"ExifGetPrimaryImageEx", kStream, [](Path path, Caller& c) {
         return Library().getPrimaryImageEx(path, c.stream, &c.orientation); }},
};
// clang-format on

std::span<UINT8> BeyondBasic(InfoRequest& record) {
    return std::span(reinterpret_cast<UINT8*>(&record), sizeof record)
        .subspan(QMXEXIF_BASIC_INFO_SIZE);
}

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

Caller::Caller(IStream* given) : stream(given) {
    std::memset(static_cast<void*>(&record), 0, sizeof record);
    std::ranges::fill(BeyondBasic(record), UINT8{0xA5});
    record.longText = longText.Get();
    record.longTextCapacity = 1024;
    record.shortText = shortText.Get();
    record.shortTextCapacity = 256;
}

std::uint64_t Caller::Written() const {
    Digest digest = list;
    for (const wchar_t* written : {date.Get(), cutDate.Get(), longText.Get(), shortText.Get(),
                                   text.Get(), text.Get() + lstrlenW(text.Get()) + 1})
        digest.AddText(written);
    InfoRequest values;
    std::memcpy(static_cast<void*>(&values), &record, sizeof values);
    values.longText = values.shortText = nullptr;
    digest.Add(&values, sizeof values);
    digest.Add(orientation);
    return digest.value;
}

bool Caller::KeptBounds() const {
    return text.IsWhole() && date.IsWhole() && cutDate.IsWhole() && longText.IsWhole() &&
           shortText.IsWhole();
}

bool Caller::HasUntouchedTexts() const {
    return text.IsUntouched() && longText.IsUntouched() && shortText.IsUntouched();
}

bool Caller::KeptBasicBounds() const {
    return std::ranges::all_of(BeyondBasic(const_cast<InfoRequest&>(record)),
                               [](UINT8 byte) { return byte == 0xA5; });
}

std::span<const Export> Exports() { return kExports; }

}  // namespace qmx::test
