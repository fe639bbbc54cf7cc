// Prints the camera of the photo whose path, in ASCII, is the argument.  A second argument is the
// library, for the program that loads it.
#include <cstdio>
#include <qmxexif.hpp>

namespace {

std::vector<WCHAR> Widen(const char* text) {
    std::vector<WCHAR> wide;
    while (*text) wide.push_back(static_cast<WCHAR>(static_cast<unsigned char>(*text++)));
    wide.push_back(0);
    return wide;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) return 2;
    const std::vector<WCHAR> path = Widen(arguments[1]);
#ifdef QMXEXIF_LOAD_AT_RUN_TIME
    // Before the library is there calls fail, and one that is not there cannot be loaded.
    if (count < 3 || qmxexif::ReadPhoto(path.data()) || qmxexif::ReadList(path.data())) return 3;
    if (qmxexif::Load(path.data()) || !qmxexif::Load(Widen(arguments[2]).data())) return 4;
#endif
    const auto photo = qmxexif::ReadPhoto(path.data());
    if (!photo || !photo->preview) return 1;
    std::puts(qmxexif::ToUtf8(photo->info.model).c_str());
    return 0;
}
