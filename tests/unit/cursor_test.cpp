// The cursor: values in both byte orders, and what lies beyond the end.

#include <gtest/gtest.h>

#include <limits>

#include "support/parse.h"

namespace qmx::test {
namespace {

TEST(Cursor, ReadsBothByteOrdersAndKeepsItsPlaceAtTheEnd) {
    BytesContext little({1, 2, 3, 4, 5, 6, 7}, kLittleEndian);
    EXPECT_EQ(ReadU16(little.ctx), 0x0201);
    EXPECT_EQ(ReadU32(little.ctx), 0x06050403u);
    EXPECT_EQ(ReadU16(little.ctx), 0xFFFF);  // one byte left
    EXPECT_EQ(ReadU32BE(little.ctx), 0xFFFFFFFFu);
    EXPECT_EQ(Position(little.ctx), 6);
    EXPECT_EQ(ReadValue(little.ctx, kTypeByte), 7);
    EXPECT_EQ(ReadValue(little.ctx, kTypeByte), 255);
    EXPECT_EQ(ReadValue(little.ctx, kTypeSByte), -1);

    BytesContext big({1, 2, 3, 4, 5, 6}, kBigEndian);
    EXPECT_EQ(ReadU16(big.ctx), 0x0102);
    EXPECT_EQ(ReadU32(big.ctx), 0x03040506u);
    BytesContext neither({1, 2}, 0x1234);
    EXPECT_EQ(ReadU16(neither.ctx), 0x0102);
}

TEST(Cursor, ReadsEveryNumericType) {
    struct Case {
        const char* name;
        std::uint16_t type;
        Bytes bytes;
        double value;
        std::int32_t consumed;
    };
    // clang-format off
    const Case cases[] = {
        {"byte", 1, {200}, 200, 1}, {"ascii", 2, {65}, 0, 0}, {"short", 3, {0xFE, 0xFF}, 65534, 2},
        {"long", 4, {0, 0, 0, 0x80}, 2147483648.0, 4},
        {"rational", 5, {1, 0, 0, 0, 4, 0, 0, 0}, 0.25, 8}, {"0/0", 5, Bytes(8), 0, 8},
        {"5/0", 5, {5, 0, 0, 0, 0, 0, 0, 0}, 0, 8}, {"rational past the end", 5, {}, 1, 0},
        {"signed byte", 6, {0xFE}, -2, 1}, {"undefined", 7, {1, 2, 3, 4}, 0, 0},
        {"signed short", 8, {0xFE, 0xFF}, -2, 2}, {"signed long", 9, {0xFD, 0xFF, 0xFF, 0xFF}, -3, 4},
        {"signed rational", 10, {0xFF, 0xFF, 0xFF, 0xFF, 3, 0, 0, 0}, -1.0 / 3, 8},
        {"smallest / -1", 10, {0, 0, 0, 0x80, 0xFF, 0xFF, 0xFF, 0xFF}, 2147483648.0, 8},
        {"float", 11, {0, 0, 0xC0, 0x3F}, 1.5, 4}, {"double", 12, {0, 0, 0, 0, 0, 0, 0xF8, 0x3F}, 1.5, 8},
        {"type 0", 0, {1, 2}, 0, 0}, {"type 13", 13, {1, 2}, 0, 0},
    };
    // clang-format on
    for (const Case& c : cases) {
        BytesContext context(c.bytes);
        EXPECT_EQ(ReadValue(context.ctx, c.type), c.value) << c.name;
        EXPECT_EQ(Position(context.ctx), c.consumed) << c.name;
    }
    BytesContext unswapped({0, 0, 0xC0, 0x3F}, kBigEndian);
    EXPECT_EQ(ReadValue(unswapped.ctx, kTypeFloat), 1.5);
}

TEST(Cursor, ClampsEverySeek) {
    BytesContext context({1, 2, 3, 4});
    for (const auto& [position, reached] :
         {std::pair{-1, 0}, {3, 3}, {4, 4}, {5, 4}, {INT32_MAX, 4}, {INT32_MIN, 0}}) {
        SeekTo(context.ctx, position);
        EXPECT_EQ(Position(context.ctx), reached);
    }
    context.ctx.tiffBase = 0xFFFFFFFE;
    SeekToOffset(context.ctx, 3);
    EXPECT_EQ(Position(context.ctx), 1);
}

TEST(Cursor, FindsValuesInlineOrByOffset) {
    const Bytes bytes = {6, 0, 0, 0, 0, 0, 42, 0};
    struct Case {
        std::uint16_t type;
        std::uint32_t count;
        std::int32_t position;
        bool inside;
    };
    const Case cases[] = {
        {3, 2, 0, true},                                      // 4 bytes stand in the field
        {3, 3, 6, true},                                      // 6 do not
        {99, 4, 0, true},                                     // unknown types count one byte
        {5, 1, 6, true},          {12, 0x20000001, 6, true},  // 8 x count wraps to 8
        {5, 0x10000000, 0, true},                             // wraps below zero: inline
    };
    for (const Case& c : cases) {
        BytesContext context(bytes);
        EXPECT_EQ(SeekToValue(context.ctx, c.type, c.count), c.inside) << c.type;
        EXPECT_EQ(Position(context.ctx), c.position) << c.type << " x " << c.count;
    }
    BytesContext outside({0xFF, 0xFF, 0, 0, 1});
    EXPECT_FALSE(SeekToValue(outside.ctx, kTypeRational, 1));
}

TEST(Cursor, CopiesTextsWithinTheirFields) {
    struct Case {
        const char* source;
        std::uint32_t count;
        const char* text;
    };
    const Case cases[] = {
        {"abc", 3, "abc"}, {"abcdefgh", 8, "abcdefg"},
        {"   ", 3, ""},    {"  x", 3, "  x"},
        {"ab", 9, "ab"},   {"abc", 0, ""},
        {"", 5, ""},       {"abc", 0xFFFFFFFF, "abc"},
    };
    for (const Case& c : cases) {
        BytesContext context(FromText(c.source));
        char field[8];
        std::fill(std::begin(field), std::end(field), 'z');
        ReadString(context.ctx, field, c.count);
        EXPECT_STREQ(field, c.text) << c.source;
    }
}

TEST(Numeric, ConvertsWhatDoesNotFitAsTheProcessorDoes) {
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(TruncateToI32(2147483647.9), INT32_MAX);
    EXPECT_EQ(TruncateToI32(2147483648.0), INT32_MIN);
    EXPECT_EQ(TruncateToI32(-2147483648.9), INT32_MIN);
    EXPECT_EQ(TruncateToI32(-1.9), -1);
    EXPECT_EQ(TruncateToI32(kNan), INT32_MIN);
    EXPECT_EQ(TruncateToU32(4294967295.9), UINT32_MAX);
    EXPECT_EQ(TruncateToU32(4294967297.0), 1u);
    EXPECT_EQ(TruncateToU32(-1.0), UINT32_MAX);
    EXPECT_EQ(TruncateToU32(1e300), 0u);
    EXPECT_EQ(TruncateToU32(kNan), 0u);
}

TEST(ImageRecords, KeepTheirOrder) {
    ImageRecordList records;
    for (int i = 0; i < 9; ++i) records[records.Add()].width = i;
    EXPECT_EQ(records[8].orientation, 1);
    records.Remove(4);
    records.Remove(0);
    ASSERT_EQ(records.size(), 7u);
    std::vector<int> widths;
    for (const ImageRecord& record : records) widths.push_back(record.width);
    EXPECT_EQ(widths, (std::vector<int>{1, 2, 3, 5, 6, 7, 8}));
}

TEST(WorkBudget, EndsTheFileWhenItIsSpent) {
    BytesContext context(Bytes(100, 7));
    SpendWork(context.ctx, 4196);
    EXPECT_EQ(ReadU16(context.ctx), 0x0707);
    SpendWork(context.ctx, 1);
    EXPECT_TRUE(AtEnd(context.ctx));
    SeekTo(context.ctx, 5);
    EXPECT_EQ(ReadU16(context.ctx), 0xFFFF);
}

}  // namespace
}  // namespace qmx::test
