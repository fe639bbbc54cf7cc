// Real photos, when the folder that QMX_PHOTOS names is there: all of them are survived, and the
// ones listed here read as the cameras meant them.

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/api.h"
#include "support/memory_stream.h"
#include "support/utf8.h"

namespace qmx::test {
namespace {

class Photos : public testing::Test {
protected:
    void SetUp() override {
        const char* folder = std::getenv("QMX_PHOTOS");
        if (folder == nullptr || !std::filesystem::is_directory(folder))
            GTEST_SKIP() << "no folder of real photos here (QMX_PHOTOS)";
        folder_ = folder;
    }

    std::filesystem::path folder_;
};

TEST_F(Photos, AreAllSurvived) {
    std::size_t files = 0;
    std::size_t parsed = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_)) {
        if (!entry.is_regular_file()) continue;
        const auto path = WidePath(entry.path());
        ++files;
        const Answer answer = AskFor(path.data());
        parsed += answer.result;
        EXPECT_EQ(answer.result == 1, ListOf(path.data()) != Listing{"failed"}) << entry.path();
        for (const UINT32 flag : {0u, 1u}) {
            MemoryStream stream;
            const UINT32 delivered =
                Library().getThumbnailImage(path.data(), &stream, nullptr, flag, nullptr, 0);
            EXPECT_EQ(delivered == 1, !stream.bytes.empty()) << entry.path();
        }
    }
    EXPECT_GT(files, 100u);
    EXPECT_GT(parsed, 80u);
}

// Values as an independent reader of Exif data prints them.
TEST_F(Photos, ReadAsTheCamerasMeantThem) {
    struct Case {
        const char* file;
        const char* make;
        const char* model;
        const char* shortText;
        int width;
        std::size_t thumbnailBytes;
    };
    constexpr int kUnset = QMXEXIF_INT_UNSET;
    // clang-format off
    const Case cases[] = {
        {"sets/Canon_40D.jpg", "Canon", "Canon EOS 40D", " 160 F7.1 100* ", 100, 1378},
        {"sets/Konica_Minolta_DiMAGE_Z3.jpg", "KONICA MINOLTA ", "DiMAGE Z3", " 40 F2.8 200* ", 70,
         1234},
        {"sets/Nikon_D70.jpg", "NIKON CORPORATION", "NIKON D70", " 200 F9 -1.0 200 ", 100, 1700},
        {"sets/Panasonic_DMC-FZ30.jpg", "Panasonic", "DMC-FZ30", " 30 F3.2 100* ", 100, 1607},
        {"sets/Pentax_K10D.jpg", "PENTAX Corporation ", "PENTAX K10D        ", " 180 F11 200 ", 100,
         1349},
        {"sets/Sony_HDR-HC3.jpg", "SONY", "HDR-HC3", " 60 F4* ", 100, 1232},
        {"sets/Olympus_C8080WZ.jpg", "OLYMPUS CORPORATION", "C8080WZ", " 160 F2.8 50* ", 100, 1061},
        {"sets/exif-org/fujifilm-dx10.jpg", "FUJIFILM", "DX-10", " 97 F4.2 150* ", 1024, 10274},
        {"sets/exif-org/kodak-dc210.jpg", "Eastman Kodak Company", "DC210 Zoom (V05.00)",
         " 30 F4* ", kUnset, 20790},
        {"sets/exif-org/sony-d700.jpg", "SONY", "DSC-D700", " 32 F2.4 200 ", 1344, 14454},
        {"sets/exif-org/sanyo-vpcsx550.jpg", "SANYO Electric Co.,Ltd.", "SX113 ", " 48 F2.4 400 ",
         640, 13234},
        {"cameras/Nikon.nef", "NIKON CORPORATION", "NIKON D70", " 20 F3.5 200 ", kUnset, 0},
        {"cameras/Panasonic.rw2", "Panasonic", "DMC-LX3", " 250 F4 80 ", kUnset, 10785},
        {"cameras/FujiFilm.raf", "FUJIFILM", "FinePix S5Pro  ", " 250 F8 100 ", 1440, 9362},
        {"cameras/DNG.dng", "Canon", "Canon EOS 350D DIGITAL", " 15 F8 400 ", kUnset, 246},
    };
    // clang-format on
    for (const Case& c : cases) {
        const auto path = WidePath(folder_ / c.file);
        const Answer answer = AskFor(path.data());
        ASSERT_EQ(answer.result, 1u) << c.file;
        EXPECT_EQ(Utf8(answer.record.makeText), c.make) << c.file;
        EXPECT_EQ(Utf8(answer.record.modelText), c.model) << c.file;
        EXPECT_EQ(answer.shortText, c.shortText) << c.file;
        EXPECT_EQ(answer.record.imageWidth, c.width) << c.file;
        EXPECT_EQ(answer.record.orientation, 1u) << c.file;
        MemoryStream stream;
        Library().getThumbsnail(path.data(), &stream, nullptr, 0);
        EXPECT_EQ(stream.bytes.size(), c.thumbnailBytes) << c.file;
    }
}

}  // namespace
}  // namespace qmx::test
