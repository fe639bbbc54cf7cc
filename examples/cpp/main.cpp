// Shows a photo through qmxexif.hpp, the C++ wrapper: its texts, the first rows of the labelled
// list, and its small preview in a file.
//
//     show PHOTO PREVIEW

#include <qmxexif.hpp>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

int wmain(int count, wchar_t** arguments) {
    if (count != 3) {
        std::cerr << "usage: show PHOTO PREVIEW\n";
        return 2;
    }
    // Paths are taken as they come: const wchar_t*, std::wstring, std::filesystem::path.
    const std::filesystem::path path = arguments[1];

    // Metadata and preview in one pass.  An empty result means: nothing to be read there.
    const auto photo = qmxexif::ReadPhoto(path);
    if (!photo) {
        std::cerr << "no metadata\n";
        return 1;
    }
    const qmxexif::Info& info = photo->info;
    std::cout << qmxexif::ToUtf8(info.shortText) << "\n\n"
              << qmxexif::ToUtf8(info.longText) << "\n\n";

    // The list is a range of rows; a row without a value is a heading or introduces others.
    const auto list = qmxexif::ReadList(path).value_or(qmxexif::List());
    int wanted = 6;
    for (const qmxexif::Item& row : list) {
        if (wanted-- == 0) break;
        const bool heading = row.kind == qmxexif::Item::Kind::kHeading;
        std::cout << (heading ? "[" : "") << qmxexif::ToUtf8(row.label) << (heading ? "]" : "");
        if (row.value) std::cout << ": " << qmxexif::ToUtf8(*row.value);
        std::cout << "\n";
    }

    // A photo may lack a preview, as it may lack any number: ask before use.
    if (!photo->preview) {
        std::cout << "\nno preview\n";
        return 0;
    }
    const qmxexif::Bytes& bytes = photo->preview->bytes;
    std::ofstream file(std::filesystem::path(arguments[2]), std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    std::cout << "\npreview: " << bytes.size() << " bytes, orientation " << info.orientation
              << "\n";
    return file ? 0 : 1;
}
