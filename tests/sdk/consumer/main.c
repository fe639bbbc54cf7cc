/* Prints the camera of the photo whose path, in ASCII, is the argument. */
#include <qmxexif.h>
#include <stdio.h>

int main(int count, char** arguments) {
    static WCHAR path[1024];
    InfoRequest info = {0};
    int i;
    if (count < 2) return 2;
    for (i = 0; arguments[1][i] && i < 1023; ++i) path[i] = (WCHAR)(unsigned char)arguments[1][i];
    if (!ExifGetExifInfoEx(path, NULL, NULL, 0, &info)) return 1;
    for (i = 0; info.modelText[i]; ++i) putchar((char)info.modelText[i]);
    putchar('\n');
    return 0;
}
