// The whole path over one file in memory: every exported function, parse, preview and texts, with
// the promises that hold for any file checked on the way.

#include <cstring>

#include "promises.h"
#include "shim.h"

namespace {

using qmx::fuzz::Check;

struct Listed {
    std::uint64_t digest = 0;
    bool headed = false;
};

void Digest(Listed& listed, const WCHAR* text) {
    for (; text != nullptr && *text != 0; ++text) listed.digest = listed.digest * 31 + *text;
}

INT_PTR CALLBACK Collect(UINT32 kind, const WCHAR* label, const WCHAR* value, INT_PTR user) {
    auto& listed = *reinterpret_cast<Listed*>(user);
    Check(kind == QMXEXIF_KIND_HEADING || (kind == QMXEXIF_KIND_ITEM && listed.headed));
    Check(value == nullptr || lstrlenW(value) < 260);
    listed.headed = true;
    Digest(listed, label);
    Digest(listed, value);
    return 0;
}

// The list, twice the same.
UINT32 List(const wchar_t* path) {
    Listed first;
    Listed second;
    const UINT32 result = ExifEnumInfo(path, Collect, reinterpret_cast<INT_PTR>(&first));
    Check(result == ExifEnumInfo(path, Collect, reinterpret_cast<INT_PTR>(&second)));
    Check(first.digest == second.digest && first.headed == (result == 1));
    return result;
}

void AskForTexts(const wchar_t* path, UINT32 parsed) {
    wchar_t text[QMXEXIF_TEXT_BUFFER_LENGTH];
    Check(ExifGetInfoTip(path, text, 1) == parsed);
    if (parsed) {
        const int shortLength = lstrlenW(text);
        Check(shortLength < 256 && lstrlenW(text + shortLength + 1) < 1024);
        Check(shortLength == 0 || (text[0] == L' ' && text[shortLength - 1] == L' '));
    }
    wchar_t date[20];
    Check(ExifGetDateTimeString(path, date, 20) == parsed && lstrlenW(date) < 20);
}

// An X3F file without a picture of a kind that is delivered succeeds all the same.
bool MayDeliverNothing(const std::uint8_t* file, std::size_t size) {
    return size >= 4 && std::memcmp(file, "FOVb", 4) == 0;
}

void AskForPicture(const wchar_t* path, UINT32 flag, UINT32 parsed, const std::uint8_t* file,
                   std::size_t fileSize) {
    qmx::test::MemoryStream stream;
    InfoRequest record = {};
    UINT32 orientation = 0;
    const UINT32 delivered = ExifGetExifInfoEx(path, &stream, &orientation, flag, &record);
    Check(delivered <= parsed && stream.references == 1);
    Check(!delivered || !stream.bytes.empty() || MayDeliverNothing(file, fileSize));
    Check(stream.bytes.size() <= qmx::fuzz::MostPictureBytes(fileSize));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const qmxshim::MemoryFile file(data, size, L".crw");
    Check(ExifIsExifFile(file.Path()) <= 1);
    const UINT32 parsed = List(file.Path()) == 1;
    AskForTexts(file.Path(), parsed);
    AskForPicture(file.Path(), 0, parsed, data, size);
    AskForPicture(file.Path(), 1, parsed, data, size);
    return 0;
}
