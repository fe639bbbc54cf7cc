/* Shows a photo through qmxexif.dll, in plain C: its texts, the first rows of the labelled list,
 * and its small preview in a file.
 *
 *     show PHOTO PREVIEW
 */
#define COBJMACROS /* lets C call the methods of COM by name: IStream_Release(stream) */
#include <qmxexif.h>

#include <stdio.h>
#include <stdlib.h>

/* Writes UTF-16 text as UTF-8, which pipes and files carry unharmed. */
static void Print(const WCHAR* text) {
    char utf8[4 * QMXEXIF_TEXT_BUFFER_LENGTH];
    if (WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8, sizeof utf8, NULL, NULL) > 0) {
        fputs(utf8, stdout);
    }
}

/* Called once per row of the list, while ExifEnumInfo runs.  `user` is whatever the caller gave;
 * here it counts down the rows that are still wanted.  The result cannot stop the list. */
static INT_PTR CALLBACK PrintRow(UINT32 kind, const WCHAR* label, const WCHAR* value,
                                 INT_PTR user) {
    int* wanted = (int*)user;
    if (*wanted == 0) return 0;
    --*wanted;
    if (kind == QMXEXIF_KIND_HEADING) printf("[");
    Print(label);
    if (kind == QMXEXIF_KIND_HEADING) printf("]");
    if (value) {
        printf(": ");
        Print(value);
    }
    printf("\n");
    return 0;
}

/* Copies what the library wrote to the stream into a file; the number of bytes, or 0. */
static unsigned long Save(IStream* stream, const WCHAR* path) {
    STATSTG facts;
    unsigned long written = 0;
    void* bytes;
    FILE* file;
    ULONG length;
    if (FAILED(IStream_Stat(stream, &facts, STATFLAG_NONAME))) return 0;
    bytes = malloc(facts.cbSize.LowPart);
    file = _wfopen(path, L"wb");
    /* After success the stream stands at its start. */
    if (bytes && file && SUCCEEDED(IStream_Read(stream, bytes, facts.cbSize.LowPart, &length))) {
        written = (unsigned long)fwrite(bytes, 1, length, file);
    }
    if (file) fclose(file);
    free(bytes);
    return written;
}

int wmain(int count, WCHAR** arguments) {
    static WCHAR longText[1024];
    static WCHAR shortText[257]; /* one more than the capacity that is stated */
    InfoRequest info = {0};      /* zeroed: absent dates and texts stay empty */
    UINT32 orientation = 1;
    int rows = 6;
    IStream* stream = NULL;
    if (count != 3) {
        fprintf(stderr, "usage: show PHOTO PREVIEW\n");
        return 2;
    }

    /* Any IStream will do; this one is Windows' own, in memory that it frees by itself. */
    if (FAILED(CreateStreamOnHGlobal(NULL, TRUE, &stream))) return 1;

    /* One call for everything.  With a stream it fails when the file has no preview: pass NULL
     * to get the metadata of such a file. */
    info.longText = longText;
    info.longTextCapacity = 1024;
    info.shortText = shortText;
    info.shortTextCapacity = 256;
    if (!ExifGetExifInfoEx(arguments[1], stream, &orientation, 0, &info)) {
        fprintf(stderr, "no metadata or no preview\n");
        IStream_Release(stream);
        return 1;
    }
    Print(shortText);
    printf("\n\n");
    Print(longText);
    printf("\n\n");

    ExifEnumInfo(arguments[1], PrintRow, (INT_PTR)&rows);

    /* The record says 1 when the file gives no orientation, `orientation` QMXEXIF_INT_UNSET. */
    printf("\npreview: %lu bytes, orientation %u\n", Save(stream, arguments[2]), info.orientation);
    IStream_Release(stream);
    return 0;
}
