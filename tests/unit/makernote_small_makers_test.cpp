// The MakerNotes of Sanyo, Seiko Epson, Mamiya, Leica's own cameras, KDDI and Hasselblad.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "makernote/hasselblad_fields.h"
#include "makernote/leica_fields.h"
#include "makernote/maker_record.h"
#include "makernote/mamiya_fields.h"
#include "makernote/model_identity.h"
#include "makernote/sanyo_fields.h"
#include "makernote/seiko_fields.h"
#include "parse/containers/container.h"
#include "unit/bare_note.h"
#include "support/memory_stream.h"
#include "support/note_file.h"
#include "support/parse.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kSanyo = "SANYO\0\1\0"sv;
constexpr std::string_view kSeiko = "EPSON\0\1\0"sv;
constexpr std::string_view kMamiya = ""sv;
constexpr std::string_view kLeica = "LEICA\0\0\0"sv;
constexpr std::string_view kKddi = "KDDI\0\0\0\0"sv;
constexpr std::string_view kHasselblad = ""sv;

template <class Fields>
Fields FieldsOf(const ImageInfo& info) {
    return MakerRecord<Fields>(info);
}

// Every tag of the record and both neighbours of the first and the last.
void AddSanyoTags(IfdBuilder& entries) {
    // clang-format off
    entries.Short(0x0200, {99}).Short(0x0201, {0x0102}).Short(0x0202, {2}).Short(0x0203, {99})
        .Rational(0x0204, {{3, 2}}).Short(0x020E, {4}).Short(0x020F, {5}).Short(0x0210, {6})
        .Short(0x0213, {7}).Short(0x0214, {8}).Short(0x0215, {9}).Short(0x0216, {99})
        .Short(0x0218, {10}).Short(0x0219, {11}).Short(0x021A, {12}).Rational(0x021B, {{27, 2}})
        .Short(0x0225, {14}).Short(0x0226, {99});
    // clang-format on
}

TEST(SanyoNote, EveryTagHasItsField) {
    // clang-format off
    const SanyoMakerFields expected = {
        .sanyoTag201 = 0x0102, .sanyoTag202 = 2, .sanyoTag204 = 1.5f, .sanyoTag20E = 4,
        .sanyoTag20F = 5, .sanyoTag210 = 6, .sanyoTag213 = 7, .sanyoTag214 = 8, .sanyoTag215 = 9,
        .sanyoTag218 = 10, .sanyoTag219 = 11, .sanyoTag21A = 12, .sanyoTag21B = 13,
        .sanyoTag225 = 14};
    // clang-format on
    for (const Order order : {Order::kLittle, Order::kBig}) {
        NoteFile file(order, "SANYO Electric Co.,Ltd.", kSanyo);
        AddSanyoTags(file.Note());
        const ImageInfo info = Parse(file.Build()).info;
        EXPECT_EQ(info.hasMakerNote, 1);
        EXPECT_TRUE(HoldsRecord(info, expected));
        EXPECT_EQ(info.pixelYDimension, static_cast<std::int32_t>(NoteFile::kHeight));
    }
    const auto fields = FieldsOf<SanyoMakerFields>(BareNote(kMakerSanyo, kSanyo).Decode());
    EXPECT_EQ(fields.sanyoTag201, INT_UNSET);
    EXPECT_EQ(fields.sanyoTag204, FLOAT_UNSET);
}

// A note that the file cuts short keeps what stands before the cut.
TEST(SanyoNote, CutShortKeepsWhatCameBefore) {
    const std::int32_t SanyoMakerFields::*const kFields[] = {
        &SanyoMakerFields::sanyoTag20E, &SanyoMakerFields::sanyoTag213,
        &SanyoMakerFields::sanyoTag215, &SanyoMakerFields::sanyoTag225};
    BareNote note(kMakerSanyo, kSanyo);
    note.Entries().Short(0x020E, {1}).Short(0x0213, {1}).Short(0x0215, {1}).Short(0x0225, {1});
    Bytes bytes = note.Build();
    constexpr std::size_t kFirstValueEnd = BareNote::kPosition + 8 + 2 + 10;
    for (std::size_t i = 0; i < std::size(kFields); ++i) {
        const auto end = static_cast<std::ptrdiff_t>(kFirstValueEnd + 12 * i);
        const auto fields =
            FieldsOf<SanyoMakerFields>(note.Decode(Bytes(bytes.begin(), bytes.begin() + end)));
        for (std::size_t j = 0; j < std::size(kFields); ++j)
            EXPECT_EQ(fields.*kFields[j], j <= i ? 1 : INT_UNSET) << i << ' ' << j;
    }
}

void AddSeikoTags(IfdBuilder& entries) {
    // clang-format off
    entries.Short(0x0200, {99}).Short(0x0201, {3}).Ascii(0x0209, "EPSON DIGITAL CAMERA")
        .Short(0x020B, {3008}).Short(0x020C, {2000}).Ascii(0x020D, "R-D1").Short(0x0281, {99});
    // clang-format on
}

TEST(SeikoNote, EveryTagHasItsField) {
    // clang-format off
    const SeikoMakerFields expected = {
        .seikoTag201 = 3, .seikoTag209 = "EPSON DIGITAL CAMERA", .seikoTag20B = 3008,
        .seikoTag20C = 2000, .seikoTag20D = "R-D1"};
    // clang-format on
    for (const Order order : {Order::kLittle, Order::kBig}) {
        NoteFile file(order, "SEIKO EPSON CORP.", kSeiko);
        AddSeikoTags(file.Note());
        const ImageInfo info = Parse(file.Build()).info;
        EXPECT_TRUE(HoldsRecord(info, expected));
        EXPECT_EQ(info.pixelXDimension, static_cast<std::int32_t>(NoteFile::kWidth));
    }
    const auto fields = FieldsOf<SeikoMakerFields>(BareNote(kMakerSeiko, kSeiko).Decode());
    EXPECT_EQ(fields.seikoTag201, INT_UNSET);
}

TEST(SeikoNote, TextsFillTheirFields) {
    for (const std::size_t length : {15u, 16u, 17u, 31u, 32u, 33u, 500u}) {
        BareNote note(kMakerSeiko, kSeiko);
        for (const std::uint16_t tag : std::to_array<std::uint16_t>({0x0209, 0x020D}))
            note.Entries().Undefined(tag, FromText(std::string(length, 'x')));
        const auto fields = FieldsOf<SeikoMakerFields>(note.Decode());
        EXPECT_EQ(fields.seikoTag209, std::string(std::min<std::size_t>(length, 31), 'x'));
        EXPECT_EQ(fields.seikoTag20D, std::string(std::min<std::size_t>(length, 15), 'x'));
        EXPECT_EQ(fields.seikoTag20B, INT_UNSET);
    }
}

// The picture that a request for the smallest or the largest one gets.
Bytes Deliver(const Bytes& file, bool primary) {
    BytesContext context(file);
    MemoryStream stream;
    context.ctx.outStream = &stream;
    context.ctx.wantPrimary = primary ? 1 : 0;
    ParseContainer(context.ctx, primary);
    EXPECT_EQ(context.ctx.thumbDone != 0, !stream.bytes.empty());
    return stream.bytes;
}

TEST(SeikoNote, PreviewIsDelivered) {
    const Bytes large = JpegStream(Segment(0xDB, Bytes(6)), 640, 480);
    const Bytes small = JpegStream(Segment(0xDB, Bytes(8)), 160, 120);
    struct Case {
        std::vector<Bytes> previews;
        Bytes delivered;
    };
    const Case cases[] = {
        {{large}, large},
        {{large, small}, small},  // one record, of the last
        {{small, large}, large},
        {{large, Bytes(large.size(), 0x20)}, {}},  // the first one's size is not kept
        {{{}}, {}},
        {{{0xFF, 0xD8, 0xFF}}, {}},
        {{Bytes(large.begin(), large.begin() + 12)}, {}},
    };
    for (const Case& c : cases) {
        for (const bool primary : {false, true}) {
            NoteFile file(Order::kLittle, "SEIKO EPSON CORP.", kSeiko);
            for (const Bytes& preview : c.previews) file.Note().Undefined(0x0280, preview);
            EXPECT_EQ(Deliver(file.Build(), primary), c.delivered);
        }
    }
}

// A preview beside the file's own thumbnail: the smallest and the largest are still told apart.
TEST(SeikoNote, PreviewTakesPartInTheChoice) {
    const Bytes large = JpegStream(Segment(0xDB, Bytes(6)), 640, 480);
    const Bytes small = JpegStream(Segment(0xDB, Bytes(8)), 160, 120);
    NoteFile file(Order::kBig, "SEIKO EPSON CORP.", kSeiko);
    file.Note().Undefined(0x0280, large);
    file.Tiff().Ifd().Data(0x0201, small).Long(0x0202, {static_cast<std::uint32_t>(small.size())});
    EXPECT_EQ(Deliver(file.Build(), false), small);
    EXPECT_EQ(Deliver(file.Build(), true), large);
}

void AddMamiyaTags(IfdBuilder& entries) {
    entries.Short(0x008F, {99})
        .Short(0x0090, {8})
        .Short(0x0095, {100})
        .Short(0x0098, {3})
        .Short(0x00A2, {2})
        .Rational(0x00A5, {{5, 2}})
        .Short(0x00A6, {99});
}

TEST(MamiyaNote, EveryTagHasItsField) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        BareNote note(kMakerMamiya, kMamiya, 0, order);
        AddMamiyaTags(note.Entries());
        const MamiyaMakerFields expected = {.mamiyaTag90 = 8,
                                            .mamiyaTag95 = 100,
                                            .mamiyaTag98 = 3,
                                            .mamiyaTagA2 = 2,
                                            .mamiyaTagA5 = 2};
        EXPECT_TRUE(HoldsRecord(note.Decode(), expected));
    }
    const auto fields = FieldsOf<MamiyaMakerFields>(BareNote(kMakerMamiya, kMamiya).Decode());
    EXPECT_EQ(fields.mamiyaTagA5, INT_UNSET);
}

void AddLeicaTags(IfdBuilder& entries) {
    entries.Short(0x0003, {99})
        .Short(0x0304, {2})
        .Long(0x0310, {113})
        .Long(0x0321, {5200})
        .Long(0x0340, {4711})
        .Short(0x0341, {99});
}

TEST(LeicaNote, EveryTagHasItsField) {
    const LeicaMakerFields expected = {
        .leicaTag304 = 2, .leicaTag310 = 113, .leicaTag321 = 5200, .leicaTag340 = 4711};
    for (const Order order : {Order::kLittle, Order::kBig}) {
        BareNote note(kMakerLeica, kLeica, kFirstOwnLeicaModel, order);
        AddLeicaTags(note.Entries());
        EXPECT_TRUE(HoldsRecord(note.Decode(), expected));
    }
    // Deliberate: without its tag the white balance is 0, not unset.
    const auto fields = FieldsOf<LeicaMakerFields>(BareNote(kMakerLeica, kLeica, 775).Decode());
    EXPECT_EQ(fields.leicaTag304, 0);
    EXPECT_EQ(fields.leicaTag310, INT_UNSET);
    EXPECT_EQ(fields.leicaTag321, INT_UNSET);
    EXPECT_EQ(fields.leicaTag340, INT_UNSET);
}

// Which of the two forms a camera writes follows from its Model text.
TEST(LeicaNote, ModelsTellTheFormsApart) {
    struct Case {
        const char* model;
        std::int32_t modelId;
    };
    // clang-format off
    const Case cases[] = {
        {"DIGILUX 1", 257}, {"DIGILUX 2", 258}, {"DIGILUX 3", 259}, {"D-LUX", 260}, {"D-LUX2", 261},
        {"D-LUX 3", 262}, {"D-LUX 4", 263}, {"D-LUX 5", 264}, {"D-LUX 6", 265}, {"C-LUX 1", 266},
        {"C-LUX 2", 267}, {"C-LUX 3", 268}, {"V-LUX 1", 269}, {"V-LUX 2", 270}, {"V-LUX 20", 271},
        {"V-LUX 30", 272}, {"V-LUX 3", 273}, {"V-LUX 4", 274}, {"LEICA T (Typ 701)", 0},
        {"M8 Digital Camera", 768}, {"M8.2 Digital Camera", 769}, {"R9 - Digital Back DMR", 770},
        {"M9 Digital Camera", 771}, {"M Monochrom", 772}, {"LEICA X1", 773}, {"LEICA X2", 774},
        {"S2", 775},
    };
    // clang-format on
    for (const Case& c : cases) {
        BytesContext context({});
        context.ctx.info.makerId = kMakerLeica;
        std::strcpy(context.ctx.info.cameraModel, c.model);
        IdentifyModel(context.ctx);
        EXPECT_EQ(context.ctx.info.modelId, c.modelId) << c.model;
        BareNote note(kMakerLeica, kLeica, context.ctx.info.modelId);
        note.Entries().Short(0x0001, {2}).Short(0x0304, {3});
        EXPECT_EQ(FieldsOf<LeicaMakerFields>(note.Decode()).leicaTag304, c.modelId < 768 ? 2 : 3);
    }
}

TEST(WalkedNotes, KeepNothing) {
    struct Case {
        MakerId maker;
        std::string_view header;
    };
    for (const Case& c : {Case{kMakerKddi, kKddi}, {kMakerHasselblad, kHasselblad}}) {
        BareNote note(c.maker, c.header);
        note.Entries().Short(0x0001, {5}).Ascii(0x0002, "some text").Rational(0x0011, {{1, 2}});
        const ImageInfo info = note.Decode();
        EXPECT_EQ(info.hasMakerNote, 1);
        EXPECT_EQ(FieldsOf<HasselbladMakerFields>(info).hasselbladField, 0);
        note.ExpectHarmless(0);
    }
    EXPECT_EQ(BareNote(kMakerKddi, "KDDX\0\0\0\0"sv).Decode().hasMakerNote, 0);
}

TEST(SmallMakerNotes, HostileBytes) {
    struct Case {
        MakerId maker;
        std::string_view header;
        std::int32_t modelId;
        void (*addTags)(IfdBuilder&);
        std::size_t recordSize;
    };
    const Case cases[] = {
        {kMakerSanyo, kSanyo, 0, AddSanyoTags, sizeof(SanyoMakerFields)},
        {kMakerSeiko, kSeiko, 0, AddSeikoTags, sizeof(SeikoMakerFields)},
        {kMakerMamiya, kMamiya, 0, AddMamiyaTags, sizeof(MamiyaMakerFields)},
        {kMakerLeica, kLeica, 769, AddLeicaTags, sizeof(LeicaMakerFields)},
    };
    for (const Case& c : cases) {
        for (const Order order : {Order::kLittle, Order::kBig}) {
            BareNote note(c.maker, c.header, c.modelId, order);
            c.addTags(note.Entries());
            note.Entries().Undefined(0x0280, JpegStream({}, 8, 8));
            note.ExpectHarmless(c.recordSize);
        }
    }
}

}  // namespace
}  // namespace qmx::test
