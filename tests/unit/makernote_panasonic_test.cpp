// Panasonic's MakerNote, which the Leica cameras that Panasonic built write too.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "makernote/leica_fields.h"
#include "makernote/maker_record.h"
#include "makernote/panasonic_fields.h"
#include "unit/bare_note.h"
#include "support/note_file.h"
#include "support/parse.h"

namespace qmx::test {
namespace {

using namespace std::string_view_literals;
using Fields = PanasonicMakerFields;

constexpr std::string_view kHeader = "Panasonic\0\0\0"sv;
constexpr std::string_view kLeicaHeader = "LEICA\0\0\0"sv;

Fields FieldsOf(const ImageInfo& info) { return MakerRecord<Fields>(info); }

// Every tag once, and the neighbours of the first and the last.
void AddEveryTag(IfdBuilder& entries) {
    // clang-format off
    entries.Short(0x0000, {99}).Short(0x0001, {1}).Short(0x0002, {99}).Short(0x0003, {3})
        .Short(0x0007, {7}).Byte(0x000F, {1, 2}).Short(0x001A, {26}).Short(0x001C, {28})
        .Short(0x001F, {31}).Short(0x0023, {65535}).Short(0x0024, {36})
        .Undefined(0x0025, FromText("S040408080427\0\0\0"sv)).Short(0x0028, {40})
        .Short(0x002A, {42}).Long(0x002B, {43}).Short(0x002C, {44}).Short(0x002D, {45})
        .Short(0x002E, {46}).Short(0x0031, {49}).Short(0x0032, {50}).Short(0x0039, {0xFFFE})
        .Short(0x003D, {61}).Short(0x0040, {0xFFFF}).Short(0x0041, {0x8000}).Short(0x0042, {66})
        .Ascii(0x0051, "LUMIX G VARIO 14-45/F3.5-5.6").Ascii(0x0053, "NO-ACCESSORY")
        .Short(0x005D, {93}).Short(0x005E, {99});
    // clang-format on
}

// clang-format off
constexpr Fields kEveryField = {
    .panasonicTag01 = 1, .panasonicTag03 = 3, .panasonicTag07 = 7, .panasonicTag0F = 258,
    .panasonicTag1C = 28, .panasonicTag1A = 26, .panasonicTag1F = 31, .panasonicTag23 = -1,
    .panasonicTag24 = 36, .panasonicTag25 = "S040408080427", .panasonicTag28 = 40,
    .panasonicTag2A = 42, .panasonicTag2B = 43, .panasonicTag2C = 44, .panasonicTag2D = 45,
    .panasonicTag2E = 46, .panasonicTag31 = 49, .panasonicTag32 = 50, .panasonicTag39 = -2,
    .panasonicTag3D = 61, .panasonicTag40 = -1, .panasonicTag41 = -32768, .panasonicTag42 = 66,
    .panasonicTag51 = "LUMIX G VARIO 14-45/F3.5-5.6", .panasonicTag53 = "NO-ACCESSORY",
    .panasonicTag5D = 93};
// clang-format on

TEST(PanasonicNote, EveryTagHasItsField) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        NoteFile file(order, "Panasonic", kHeader);
        AddEveryTag(file.Note());
        const ImageInfo info = Parse(file.Build()).info;
        EXPECT_EQ(info.hasMakerNote, 1);
        EXPECT_TRUE(HoldsRecord(info, kEveryField));
        EXPECT_EQ(info.pixelXDimension, static_cast<std::int32_t>(NoteFile::kWidth));
    }
}

TEST(PanasonicNote, StartValues) {
    const Fields fields = FieldsOf(BareNote(kMakerPanasonic, kHeader).Decode());
    EXPECT_EQ(fields.panasonicTag01, INT_UNSET);
    EXPECT_EQ(fields.panasonicTag5D, INT_UNSET);
    EXPECT_EQ(fields.panasonicTag51[0], 0);
}

TEST(PanasonicNote, ReadsTheLeicasThatPanasonicBuilt) {
    for (const std::int32_t modelId : {0, 262, 767}) {
        BareNote note(kMakerLeica, kLeicaHeader, modelId);
        AddEveryTag(note.Entries());
        EXPECT_TRUE(HoldsRecord(note.Decode(), kEveryField)) << modelId;
    }
    BareNote own(kMakerLeica, kLeicaHeader, kFirstOwnLeicaModel);
    AddEveryTag(own.Entries());
    own.Entries().Short(0x0304, {3});
    const auto fields = MakerRecord<LeicaMakerFields>(own.Decode());
    EXPECT_EQ(fields.leicaTag304, 3);
    EXPECT_EQ(fields.leicaTag310, INT_UNSET);
}

TEST(PanasonicNote, TextsFillTheirFields) {
    for (const std::size_t length : {23u, 24u, 25u, 47u, 48u, 49u, 1000u}) {
        BareNote note(kMakerPanasonic, kHeader);
        for (const std::uint16_t tag : std::to_array<std::uint16_t>({0x0025, 0x0051, 0x0053}))
            note.Entries().Undefined(tag, FromText(std::string(length, 'x')));
        const Fields fields = FieldsOf(note.Decode());
        EXPECT_EQ(fields.panasonicTag25, std::string(std::min<std::size_t>(length, 23), 'x'));
        EXPECT_EQ(fields.panasonicTag51, std::string(std::min<std::size_t>(length, 47), 'x'));
        EXPECT_EQ(fields.panasonicTag53, std::string(std::min<std::size_t>(length, 47), 'x'));
        EXPECT_EQ(fields.panasonicTag28, INT_UNSET);
        EXPECT_EQ(fields.panasonicTag5D, INT_UNSET);
    }
}

TEST(PanasonicNote, OddTypesAndCounts) {
    for (const Order order : {Order::kLittle, Order::kBig}) {
        BareNote note(kMakerPanasonic, kHeader, 0, order);
        note.Entries()
            .Ascii(0x0001, "2")  // a text is no number
            .Raw(0x0003, 3, 0x80000000, 1)
            .Raw(0x0007, 3, 3, 0x7FFFFF00)
            .Byte(0x000F, {16})  // the second byte is the field's next
            .SRational(0x001C, {{-7, 2}})
            .Long(0x0023, {0x12348000})
            .Long(0x002B, {0xFFFFFFFF})
            .Ascii(0x0039, "\x01\x02");  // two bytes, whatever the type
        const Fields fields = FieldsOf(note.Decode());
        EXPECT_EQ(fields.panasonicTag01, 0);
        EXPECT_EQ(fields.panasonicTag03, INT_UNSET);
        EXPECT_EQ(fields.panasonicTag07, INT_UNSET);
        EXPECT_EQ(fields.panasonicTag0F, 4096);
        EXPECT_EQ(fields.panasonicTag1C, -3);
        EXPECT_EQ(fields.panasonicTag23, -32768);
        EXPECT_EQ(fields.panasonicTag2B, INT32_MIN);
        EXPECT_EQ(fields.panasonicTag39, order == Order::kLittle ? 0x0201 : 0x0102);
    }
}

TEST(PanasonicNote, HostileBytes) {
    BareNote note(kMakerPanasonic, kHeader);
    AddEveryTag(note.Entries());
    note.ExpectHarmless(sizeof(Fields));
    BareNote leica(kMakerLeica, kLeicaHeader, 262, Order::kBig);
    AddEveryTag(leica.Entries());
    leica.ExpectHarmless(sizeof(Fields));
}

}  // namespace
}  // namespace qmx::test
