// The thumbnail provider, on the shell's own items and on items that fail.

#include <qmxexif.h>

#include <gtest/gtest.h>
#include <psapi.h>
#include <shlobj.h>
#include <thumbcache.h>

#include <set>

#include "com/com_support.h"
#include "com/fake_shell_item.h"
#include "support/api.h"
#include "support/handle_count.h"
#include "support/tiff_builder.h"

namespace qmx::test {
namespace {

const auto kUntouched = reinterpret_cast<HBITMAP>(static_cast<INT_PTR>(-1));
constexpr WTS_ALPHATYPE kNoAlpha = WTSAT_ARGB;

// A picture of four quarters: red and green above, blue and white below.
Bytes Quarters(std::uint32_t width, std::uint32_t height, std::uint16_t orientation) {
    const Bytes colours[] = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 255}};
    Bytes pixels;
    for (std::uint32_t y = 0; y < height; ++y)
        for (std::uint32_t x = 0; x < width; ++x) {
            const Bytes& colour = colours[(y * 2 / height) * 2 + x * 2 / width];
            pixels.insert(pixels.end(), colour.begin(), colour.end());
        }
    TiffBuilder tiff;
    IfdBuilder& camera = tiff.Ifd().Camera();
    if (orientation != 0) camera.Short(0x0112, {orientation});
    tiff.Ifd().Picture(width, height, 2, pixels);
    return tiff.Build();
}

struct Pixels {
    LONG width = 0;
    LONG height = 0;
    WORD depth = 0;
    std::string corners;  // letters of the colours, top row first
};

// Scaled pictures are a little off.
char LetterOf(COLORREF colour) {
    const auto is = [&](int r, int g, int b) {
        return std::abs(GetRValue(colour) - r) < 40 && std::abs(GetGValue(colour) - g) < 40 &&
               std::abs(GetBValue(colour) - b) < 40;
    };
    return is(255, 0, 0)       ? 'R'
           : is(0, 255, 0)     ? 'G'
           : is(0, 0, 255)     ? 'B'
           : is(255, 255, 255) ? 'W'
                               : '?';
}

// Looks at a bitmap and deletes it.
Pixels TakePixels(HBITMAP bitmap) {
    BITMAP header = {};
    if (GetObjectW(bitmap, sizeof header, &header) == 0) return {};
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    Pixels pixels = {header.bmWidth, header.bmHeight, header.bmBitsPixel, {}};
    for (const LONG y : {0L, header.bmHeight - 1})
        for (const LONG x : {0L, header.bmWidth - 1})
            pixels.corners += LetterOf(GetPixel(dc, x, y));
    SelectObject(dc, before);
    DeleteDC(dc);
    DeleteObject(bitmap);
    return pixels;
}

ComPtr<IShellItem> ItemOf(const wchar_t* path) {
    ComPtr<IShellItem> item;
    SHCreateItemFromParsingName(path, nullptr, __uuidof(IShellItem), item.ReceiveAny());
    return item;
}

// Wine's GDI+ takes the two turns that mirror for each other.
bool ExchangesMirroringTurns() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

class Provider : public testing::Test {
protected:
    // What one request stored.
    struct Stored {
        HBITMAP bitmap = kUntouched;
        WTS_ALPHATYPE alpha = kNoAlpha;
    };

    Stored Ask(IShellItem* item, UINT cx) {
        const auto provider = module.Create<IThumbnailProvider>(CLSID_RawThmubnail);
        EXPECT_EQ(Query<IInitializeWithItem>(provider)->Initialize(item, STGM_READ), S_OK);
        Stored stored;
        EXPECT_EQ(provider->GetThumbnail(cx, &stored.bitmap, &stored.alpha), E_FAIL);
        return stored;
    }
    Stored AskFile(const Bytes& bytes, const char* name, UINT cx) {
        const TestFile file(bytes, name);
        const auto item = ItemOf(file.path());
        EXPECT_TRUE(item);
        return item ? Ask(item.Get(), cx) : Stored{};
    }
    void TearDown() override { EXPECT_TRUE(module.isUnlocked()); }

    const Apartment apartment;
    const ComModule module;
};

TEST_F(Provider, TurnsPicturesUpright) {
    const char* corners[] = {"RGBW", "RGBW", "GRWB", "WBGR", "BWRG",
                             "RBGW", "BRWG", "WGBR", "GWRB", "RGBW"};
    if (ExchangesMirroringTurns()) std::swap(corners[5], corners[7]);
    for (std::uint16_t orientation = 0; orientation < 10; ++orientation) {
        const Stored stored = AskFile(Quarters(40, 20, orientation), "写真.tif", 256);
        EXPECT_EQ(stored.alpha, WTSAT_RGB);
        const Pixels pixels = TakePixels(stored.bitmap);
        EXPECT_EQ(pixels.corners, corners[orientation]) << orientation;
        const bool turned = orientation >= 5 && orientation <= 8;
        EXPECT_EQ(pixels.width, turned ? 20 : 40) << orientation;
        EXPECT_EQ(pixels.height, turned ? 40 : 20) << orientation;
    }
}

TEST_F(Provider, FitsPicturesIntoTheSquare) {
    struct Case {
        std::uint32_t width, height;
        std::uint16_t orientation;
        UINT cx;
        LONG expectedWidth, expectedHeight;
    };
    const Case cases[] = {
        {400, 300, 1, 256, 256, 192}, {160, 120, 1, 256, 160, 120}, {400, 300, 6, 100, 75, 100},
        {301, 200, 1, 100, 100, 66},  {100, 100, 1, 100, 100, 100}, {90, 110, 1, 100, 81, 100},
        {400, 2, 1, 100, 0, 0},  // not a row of pixels is left
        {40, 20, 1, 0, 0, 0},
    };
    for (const Case& c : cases) {
        const Stored stored = AskFile(Quarters(c.width, c.height, c.orientation), ".tif", c.cx);
        EXPECT_EQ(stored.alpha, WTSAT_RGB);
        EXPECT_EQ(stored.bitmap == nullptr, c.expectedWidth == 0) << c.width;
        const Pixels pixels = TakePixels(stored.bitmap);
        EXPECT_EQ(pixels.width, c.expectedWidth) << c.width << "x" << c.height;
        EXPECT_EQ(pixels.height, c.expectedHeight) << c.width << "x" << c.height;
        if (c.expectedWidth != 0) {
            EXPECT_EQ(pixels.corners, c.orientation == 6 ? "BRWG" : "RGBW");
        }
    }
}

TEST_F(Provider, DecodesTheJpegOfARealPhoto) {
    const std::wstring sample = Environment(L"QMX_SAMPLE");
    wchar_t path[MAX_PATH];
    ASSERT_NE(GetFullPathNameW(sample.c_str(), MAX_PATH, path, nullptr), 0u);
    const auto item = ItemOf(path);
    ASSERT_TRUE(item);
    const Pixels pixels = TakePixels(Ask(item.Get(), 96).bitmap);
    EXPECT_EQ(pixels.width, 96);
    EXPECT_GT(pixels.height, 50);
    EXPECT_LT(pixels.height, 96);
}

TEST_F(Provider, StoresNoBitmapWhenThePictureCannotBeDecoded) {
    TiffBuilder tiff;
    tiff.Ifd().Camera().Preview(JpegStream({}, 8, 8));
    const Stored stored = AskFile(tiff.Build(), ".tif", 96);
    EXPECT_EQ(stored.bitmap, nullptr);
    EXPECT_EQ(stored.alpha, WTSAT_RGB);
}

TEST_F(Provider, LeavesTheOutputsAloneWithoutAThumbnail) {
    const Stored stored = AskFile(FromText("not a photo"), ".jpg", 96);
    EXPECT_EQ(stored.bitmap, kUntouched);
    EXPECT_EQ(stored.alpha, kNoAlpha);
    const auto provider = module.Create<IThumbnailProvider>(CLSID_RawThmubnail);
    HBITMAP bitmap = kUntouched;
    WTS_ALPHATYPE alpha = kNoAlpha;
    EXPECT_EQ(provider->GetThumbnail(96, &bitmap, &alpha), E_FAIL);
    EXPECT_EQ(bitmap, kUntouched);
    const auto initialize = Query<IInitializeWithItem>(provider);
    EXPECT_EQ(initialize->Initialize(nullptr, STGM_READ), E_UNEXPECTED);
    const TestFile file(Quarters(4, 4, 1), ".tif");
    const auto item = ItemOf(file.path());
    initialize->Initialize(item.Get(), STGM_READ);
    EXPECT_EQ(provider->GetThumbnail(96, nullptr, &alpha), E_FAIL);
    EXPECT_EQ(provider->GetThumbnail(96, &bitmap, nullptr), E_FAIL);
}

TEST_F(Provider, SurvivesItemsThatFail) {
    for (const auto fault : {FakeData::kNoBinding, FakeData::kQueryFails, FakeData::kQuerySaysNo,
                             FakeData::kGetFails, FakeData::kEmptyDrop}) {
        FakeData data;
        data.fault = fault;
        FakeItem item(data);
        const Stored stored = Ask(&item, 96);
        EXPECT_EQ(stored.bitmap, kUntouched) << fault;
        EXPECT_EQ(stored.alpha, kNoAlpha) << fault;
        EXPECT_EQ(item.references, 1) << fault;
        EXPECT_EQ(data.references, 0) << fault;
        EXPECT_EQ(data.mediums, 0) << fault;
    }
}

TEST_F(Provider, DoesNotReleaseAnItemGivenBefore) {
    FakeData data;
    FakeItem first(data);
    FakeItem second(data);
    {
        const auto initialize = module.Create<IInitializeWithItem>(CLSID_RawThmubnail);
        initialize->Initialize(&first, STGM_READ);
        EXPECT_EQ(initialize->Initialize(&second, 0xFFFF), S_OK);
        EXPECT_EQ(first.references, 2);
        EXPECT_EQ(second.references, 2);
    }
    EXPECT_EQ(first.references, 2);
    EXPECT_EQ(second.references, 1);
}

SIZE_T PrivateBytes() {
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage;
}

TEST_F(Provider, LeaksNothing) {
    const TestFile file(Quarters(128, 64, 6), ".tif");
    FakeData data;
    data.path = file.path();
    FakeItem item(data);
    // Indices of GDI handles are used again once they are free: a leak takes ever new ones.
    std::set<WORD> indices;
    std::int64_t handles = 0;
    SIZE_T memory = 0;
    for (int i = 0; i < 3000; ++i) {
        const Stored stored = Ask(&item, 10);
        ASSERT_TRUE(stored.bitmap != kUntouched && stored.bitmap != nullptr);
        indices.insert(LOWORD(reinterpret_cast<ULONG_PTR>(stored.bitmap)));
        DeleteObject(stored.bitmap);
        if (i != 100) continue;
        handles = CountHandles();
        memory = PrivateBytes();
    }
    EXPECT_LT(indices.size(), 100u);
    EXPECT_LT(CountHandles(), handles + 50);
    EXPECT_NE(memory, 0u);
    EXPECT_LT(PrivateBytes(), memory + (16 << 20));  // a stream a call would be 70 MB
    EXPECT_EQ(item.references, 1);
    EXPECT_EQ(data.references, 0);
    EXPECT_EQ(data.mediums, 0);
}

}  // namespace
}  // namespace qmx::test
