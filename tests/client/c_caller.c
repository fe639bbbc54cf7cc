/* A caller in C11: the public header compiles without a warning, the import library links, and
 * every export answers. */
#include <qmxexif.h>

#include <stdio.h>

static INT_PTR CALLBACK CountItem(UINT32 kind, const WCHAR* label, const WCHAR* value,
                                  INT_PTR user) {
    (void)kind;
    (void)label;
    (void)value;
    ++*(int*)user;
    return 0;
}

static int failures = 0;

static void Expect(UINT32 result, UINT32 expected, const char* call) {
    if (result == expected) return;
    printf("%s returned %u, not %u\n", call, (unsigned)result, (unsigned)expected);
    ++failures;
}

int main(void) {
    static const WCHAR missing[] = {'n', 'o', ' ', 's', 'u', 'c', 'h', ' ', 'f', 'i', 'l', 'e', 0};
    static WCHAR text[QMXEXIF_TEXT_BUFFER_LENGTH];
    InfoRequest info = {0};
    UINT32 orientation = 0;
    int items = 0;

    Expect(ExifGetThumbsnail(missing, NULL, text, 1), 0, "ExifGetThumbsnail");
    Expect(ExifGetPrimaryImageEx(missing, NULL, &orientation), 0, "ExifGetPrimaryImageEx");
    Expect(ExifGetPrimaryImage(missing, NULL), 0, "ExifGetPrimaryImage");
    Expect(ExifGetThumbnailImage(missing, NULL, &orientation, 0, text, 1), 0,
           "ExifGetThumbnailImage");
    Expect(ExifGetInfoTip(missing, text, 1), 0, "ExifGetInfoTip");
    Expect(ExifEnumInfo(missing, CountItem, (INT_PTR)&items), 0xFFFFFFFFu, "ExifEnumInfo");
    Expect(ExifIsExifFile(missing), 0, "ExifIsExifFile");
    Expect(ExifGetDateTimeString(missing, text, 1), 0, "ExifGetDateTimeString");
    Expect(ExifGetExifInfo(missing, NULL, &info), 0, "ExifGetExifInfo");
    Expect(ExifGetExifInfoEx(missing, NULL, &orientation, 0, &info), 0, "ExifGetExifInfoEx");
    Expect(ExifDrawDigiText(), 0, "ExifDrawDigiText");
    Expect((UINT32)items, 0, "items of a missing file");
    return failures != 0;
}
