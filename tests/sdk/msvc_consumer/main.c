/* Ends with 7 when the library knows sample.jpg in the working folder. */
unsigned ExifIsExifFile(const unsigned short* path);

int start(void) {
    static const unsigned short path[] = {'s', 'a', 'm', 'p', 'l', 'e', '.', 'j', 'p', 'g', 0};
    return ExifIsExifFile(path) == 1 ? 7 : 1;
}
