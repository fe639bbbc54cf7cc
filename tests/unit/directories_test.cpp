// What directories say and how it lands in ImageInfo.

#include <gtest/gtest.h>

#include <chrono>

#include "support/parse.h"

namespace qmx::test {
namespace {

constexpr Order kOrders[] = {Order::kLittle, Order::kBig};

// A camera with an Exif directory that `fill` makes.
template <class Fill>
Bytes CameraTiff(Order order, Fill&& fill) {
    TiffBuilder tiff(order);
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& exif = tiff.SubIfd();
    ifd.Camera().Link(0x8769, {&exif});
    fill(exif);
    return tiff.Build();
}

template <class Fill>
ImageInfo InfoOf(Order order, Fill&& fill) {
    return Parse(CameraTiff(order, fill)).info;
}

TEST(ResetRecord, HoldsTheSentinels) {
    const ImageInfo info = {};
    EXPECT_EQ(info.orientation, 2147483647);
    EXPECT_EQ(info.exposureTime, 3.4028235e38f);
    EXPECT_EQ(info.gpsTimeStamp[0], FLOAT_UNSET);
    EXPECT_EQ(info.gpsTimeStamp[2], 0);
}

TEST(ExifDirectory, ReadsItsValuesInBothOrders) {
    using Info = ImageInfo;
    const struct {
        std::uint16_t tag;
        float Info::*field;
        Ratio stored;
        float value;
    } fractions[] = {
        {0x829A, &Info::exposureTime, {1, 250}, 0.004f},
        {0x829D, &Info::fNumber, {28, 10}, 2.8f},
        {0x9201, &Info::shutterSpeed, {8, 1}, 1 / 256.0f},
        {0x9202, &Info::aperture, {4, 1}, 4},
        {0x9203, &Info::brightness, {-5, 2}, -2.5f},
        {0x9204, &Info::exposureBias, {-1, 3}, -1 / 3.0f},
        {0x9205, &Info::maxAperture, {2, 1}, 2},
        {0x9206, &Info::subjectDistance, {5, 2}, 2.5f},
        {0x920A, &Info::focalLength, {50, 1}, 50},
        {0xA20E, &Info::focalPlaneXResolution, {3000, 1}, 3000},
        {0xA20F, &Info::focalPlaneYResolution, {2000, 1}, 2000},
        {0xA404, &Info::digitalZoomRatio, {2, 1}, 2},
        {0xA500, &Info::gamma, {22, 10}, 2.2f},
    };
    const struct {
        std::uint16_t tag;
        std::int32_t Info::*field;
    } integers[] = {
        {0x8822, &Info::exposureProgram},
        {0x8827, &Info::isoSpeed},
        {0x9207, &Info::meteringMode},
        {0x9208, &Info::lightSource},
        {0x9209, &Info::flash},
        {0xA001, &Info::colorSpace},
        {0xA002, &Info::pixelXDimension},
        {0xA003, &Info::pixelYDimension},
        {0xA402, &Info::exposureMode},
        {0xA403, &Info::whiteBalance},
        {0xA406, &Info::sceneCaptureType},
        {0xA407, &Info::gainControl},
        {0xA408, &Info::contrast},
        {0xA409, &Info::saturation},
        {0xA40A, &Info::sharpness},
        {0xA40C, &Info::subjectDistanceRange},
    };
    for (const Order order : kOrders) {
        const Info info = InfoOf(order, [&](IfdBuilder& exif) {
            exif.Ascii(0x9003, "2008:07:31 12:34:56").Ascii(0x9004, "2008:07:31 12:34:57");
            for (const auto& row : fractions) exif.SRational(row.tag, {row.stored});
            for (const auto& row : integers) exif.Short(row.tag, {1000u + (row.tag & 0xFF)});
            exif.Short(0xA210, {3}).Short(0xA405, {75});
        });
        EXPECT_STREQ(info.dateTimeOriginal, "2008:07:31 12:34:56");
        EXPECT_STREQ(info.dateTimeDigitized, "2008:07:31 12:34:57");
        for (const auto& row : fractions) EXPECT_FLOAT_EQ(info.*row.field, row.value) << row.tag;
        for (const auto& row : integers)
            EXPECT_EQ(info.*row.field, 1000 + (row.tag & 0xFF)) << row.tag;
        EXPECT_EQ(info.focalPlaneUnitMm, 10);
        EXPECT_EQ(info.focalLengthIn35mm, 75);
        EXPECT_EQ(info.hasMakerNote, 0);
        EXPECT_EQ(info.hasGps, 0);
    }
}

TEST(ExifDirectory, FollowsItsSpecialRules) {
    struct Case {
        const char* name;
        void (*fill)(IfdBuilder&);
        double (*value)(const ImageInfo&);
        double expected;
    };
    constexpr auto iso = [](const ImageInfo& info) { return double{1} * info.isoSpeed; };
    constexpr auto unit = [](const ImageInfo& info) { return double{info.focalPlaneUnitMm}; };
    constexpr double kWrapped = static_cast<std::int32_t>(0x80000000u * 200u);
    // clang-format off
    const Case cases[] = {
        {"gain 25", [](IfdBuilder& e) { e.Short(0x8827, {25}); }, iso, 5000},
        {"ISO 50", [](IfdBuilder& e) { e.Short(0x8827, {50}); }, iso, 50},
        {"ISO 0", [](IfdBuilder& e) { e.Short(0x8827, {0}); }, iso, 0},
        {"ISO, count 0", [](IfdBuilder& e) { e.Raw(0x8827, 3, 0, 100 << 16); }, iso, 100},
        {"index behind", [](IfdBuilder& e) { e.Short(0x8827, {100}).Short(0xA215, {400}); },
         iso, 100},
        {"index before", [](IfdBuilder& e) { e.Short(0xA215, {400}).Short(0x8827, {100}); },
         iso, 100},
        {"index alone", [](IfdBuilder& e) { e.Short(0xA215, {2}); }, iso, 400},
        {"negative count", [](IfdBuilder& e) { e.Raw(0x8827, 3, 0x80000001, 1); }, iso, INT_UNSET},
        {"too large", [](IfdBuilder& e) { e.Long(0x8827, {0xFFFFFFFF}); }, iso, kWrapped},
        {"35 mm unknown", [](IfdBuilder& e) { e.Short(0xA405, {0}); },
         [](const ImageInfo& info) { return double{info.focalLengthIn35mm}; }, FLOAT_UNSET},
        {"no end to the time", [](IfdBuilder& e) { e.SRational(0x9201, {{INT32_MIN, 1}}); },
         [](const ImageInfo& info) { return double{info.shutterSpeed}; }, FLOAT_UNSET},
        {"no number", [](IfdBuilder& e) { e.Value(0x829D, 11, 1, {0, 0, 0xC0, 0x7F}); },
         [](const ImageInfo& info) { return double{info.fNumber}; }, FLOAT_UNSET},
        {"unit 0", [](IfdBuilder& e) { e.Short(0xA210, {0}); }, unit, FLOAT_UNSET},
        {"unit 1", [](IfdBuilder& e) { e.Short(0xA210, {1}); }, unit, 25.4f},
        {"unit 4", [](IfdBuilder& e) { e.Short(0xA210, {4}); }, unit, 1},
        {"unit 5", [](IfdBuilder& e) { e.Short(0xA210, {5}); }, unit, 0.001f},
        {"unit 6", [](IfdBuilder& e) { e.Short(0xA210, {6}); }, unit, FLOAT_UNSET},
    };
    // clang-format on
    for (const Case& c : cases)
        EXPECT_EQ(c.value(InfoOf(Order::kBig, c.fill)), c.expected) << c.name;
}

TEST(GpsDirectory, ReadsPositionAndTime) {
    for (const Order order : kOrders) {
        TiffBuilder tiff(order);
        IfdBuilder& ifd = tiff.Ifd();
        IfdBuilder& gps = tiff.SubIfd();
        ifd.Ascii(0x010F, "ACME").Link(0x8825, {&gps});
        gps.Byte(0, {2, 3, 0, 0}).Ascii(1, "N").Rational(2, {{35, 1}, {39, 1}, {2915, 100}});
        gps.Ascii(3, "E").Rational(4, {{0, 1}, {30, 1}, {0, 1}}).Byte(5, {1});
        gps.Rational(6, {{40, 1}}).Rational(7, {{3, 1}, {4, 1}, {11, 2}}).Ascii(8, "0123456789");
        gps.Ascii(18, "WGS-84").Ascii(29, "2008:07:31").Ascii(30, "ignored");
        const ImageInfo info = Parse(tiff.Build()).info;
        EXPECT_EQ(info.hasGps, 1);
        EXPECT_EQ(info.gpsVersionId[1], 3);
        EXPECT_STREQ(info.gpsLatitudeRef, "N");
        EXPECT_EQ(info.gpsLatitude[0], 35);
        EXPECT_FLOAT_EQ(info.gpsLatitude[2], 29.15f);
        EXPECT_EQ(info.gpsLongitude[0], FLOAT_UNSET);  // less than one degree
        EXPECT_EQ(info.gpsLongitude[1], 30);
        EXPECT_EQ(info.gpsAltitudeRef, 1);
        EXPECT_EQ(info.gpsAltitude, 40);
        EXPECT_EQ(info.gpsTimeStamp[2], 5.5f);
        EXPECT_STREQ(info.gpsSatellites, "0123456");
        EXPECT_STREQ(info.gpsMapDatum, "WGS-84");
        EXPECT_STREQ(info.gpsDateStamp, "2008:07:31");
    }
}

TEST(Ifd, KeepsTextsTerminatedAndTheFirstOrientation) {
    TiffBuilder tiff;
    IfdBuilder& first = tiff.Ifd().Camera().Short(0x0112, {6});
    first.Undefined(0x0131, Bytes(70, 'x')).Undefined(0x0132, Bytes(32, 'y'));
    tiff.Ifd().Short(0x0112, {3}).Short(0x0017, {400});
    const ImageInfo info = Parse(tiff.Build()).info;
    EXPECT_EQ(FieldText(info.software), std::string(63, 'x'));
    EXPECT_EQ(FieldText(info.dateTime), std::string(31, 'y'));
    EXPECT_EQ(info.orientation, 6);
    EXPECT_EQ(info.isoSpeed, 400);
}

TEST(Ifd, EndsTheChainAtLoopsAndRejectedDirectories) {
    TiffBuilder loop;
    loop.Ifd().Ascii(0x010F, "ACME").Short(0x0017, {100});
    loop.LastNextOffset(8);
    EXPECT_EQ(Parse(loop.Build()).info.isoSpeed, 100);

    TiffBuilder rejected;
    rejected.Ifd().Ascii(0x010F, "ACME");
    rejected.Ifd().Short(0x0017, {100}).EntryCount(513);
    rejected.Ifd().Short(0x0017, {200});
    EXPECT_EQ(Parse(rejected.Build()).info.isoSpeed, INT_UNSET);

    // 512 stated entries are walked as far as the file goes.
    TiffBuilder longest;
    longest.Ifd().Ascii(0x010F, "ACME").Short(0x0017, {100}).EntryCount(512);
    EXPECT_EQ(Parse(longest.Build()).info.isoSpeed, 100);
}

TEST(Ifd, StopsASubIfdLoopAtTheFirstRejectedOne) {
    TiffBuilder tiff;
    IfdBuilder& ifd = tiff.Ifd();
    IfdBuilder& good = tiff.SubIfd().Short(0x0017, {100});
    IfdBuilder& bad = tiff.SubIfd().Short(0x0017, {200}).EntryCount(600);
    IfdBuilder& last = tiff.SubIfd().Short(0x0017, {300});
    ifd.Ascii(0x010F, "ACME").Link(0x014A, {&good, &bad, &last});
    EXPECT_EQ(Parse(tiff.Build()).info.isoSpeed, 100);
}

// Whatever a file repeats, the work stays in proportion to its size.
TEST(Ifd, BoundsTheWorkOfHostileDirectories) {
    const auto parseTime = [](const Bytes& file) {
        const auto start = std::chrono::steady_clock::now();
        Parse(file);
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    TiffBuilder once;
    IfdBuilder& self = once.Ifd();
    self.Ascii(0x010F, "ACME").Link(0x014A, {&self});
    EXPECT_TRUE(Parse(once.Build()).parsed);

    TiffBuilder many;
    IfdBuilder& parent = many.Ifd();
    parent.Link(0x014A, std::vector<const IfdBuilder*>(1000, &parent));
    EXPECT_LT(parseTime(many.Build()), 0.2);

    for (const std::uint32_t count : {0x20000000u, 0x7FFFFFFFu})
        for (std::uint16_t type = 1; type <= 4; ++type) {
            TiffBuilder tiff;
            tiff.Ifd().Raw(0x0117, type, count, 8).Raw(0x014A, type, count, 8);
            tiff.Trailer(Bytes(3));
            EXPECT_LT(parseTime(tiff.Build()), 0.2) << count << ' ' << type;
        }

    // A frame header that every entry of every directory looks for through a chain of segments.
    Bytes segments;
    for (int i = 0; i < 20000; ++i) segments = std::move(segments) + Segment(0xE0, {});
    TiffBuilder probes;
    IfdBuilder& directory = probes.Ifd();
    for (int i = 0; i < 500; ++i) directory.Raw(0x0201, 4, 1, 6100);
    directory.Link(0x014A, std::vector<const IfdBuilder*>(200, &directory));
    probes.Trailer(segments);
    EXPECT_LT(parseTime(probes.Build()), 0.2);
}

TEST(Container, LooksAtTheFirstApp1Only) {
    const Bytes tiff = CameraTiff(Order::kBig, [](IfdBuilder&) {});
    const Bytes exif = Segment(0xE1, Bytes{'E', 'x', 'i', 'f', 0, 0} + tiff);
    const Bytes jfif = Segment(0xE0, Bytes(14));
    const Bytes xmp = Segment(0xE1, FromText("http://ns.adobe.com/xap/1.0/"));
    struct Case {
        const char* name;
        Bytes file;
        bool parsed;
    };
    const Case cases[] = {
        {"Exif first", JpegStream(exif, 8, 8), true},
        {"JFIF first", JpegStream(jfif + exif, 8, 8), true},
        {"XMP first", JpegStream(xmp + exif, 8, 8), false},
        {"scan first", Bytes{0xFF, 0xD8} + Segment(0xDA, Bytes(6)) + exif, true},
        {"end first", Bytes{0xFF, 0xD8, 0xFF, 0xD9} + exif, false},
        {"table first", Bytes{0xFF, 0xD8} + Segment(0xC4, Bytes(6)) + exif, false},
        {"no marker", Bytes{0xFF, 0xD8, 0x00, 0xE1} + exif, false},
        {"TIFF", tiff, true},
        {"no make", TiffBuilder().Build(), false},
        {"nothing", Bytes(64), false},
        {"two bytes", {0xFF, 0xD8}, false},
    };
    for (const Case& c : cases) EXPECT_EQ(Parse(c.file).parsed, c.parsed) << c.name;
}

TEST(Container, RafIsFujifilmBeforeAnyTag) {
    TiffBuilder tiff;
    tiff.Ifd().Ascii(0x010F, "ACME");
    const Bytes jpeg = ExifJpeg(tiff.Build());
    ByteWriter raf(Order::kBig);
    raf.Raw(FromText("FUJIFILMCCD-RAW ")).Pad(84).U32(92).Sized(jpeg);
    const Parsed parsed = Parse(raf.bytes);
    EXPECT_TRUE(parsed.parsed);
    EXPECT_EQ(parsed.info.makerId, kMakerFujifilm);
}

}  // namespace
}  // namespace qmx::test
