// Lookups of coded values: what a known code, an unknown one and a hostile one read.

#include <gtest/gtest.h>

#include <string>

#include "parse/core/image_info.h"
#include "support/utf8.h"
#include "text/value_names.h"

namespace qmx::test {
namespace {

constexpr ValueName kTable[] = {{1, L"一"}, {2, L"二"}, {2, L"後"}, {3, nullptr}, {8, L"八"}};
constexpr ValueName kOpenTable[] = {{1, L"一"}, {INT_UNSET, L"末"}, {9, L"外"}};
constexpr const wchar_t* kNames[] = {L"標準", L"", nullptr, L"夜景"};
constexpr PrefixName kPrefixes[] = {{"PRESET0", L"P0"}, {"PRE", L"前"}, {nullptr, nullptr}};

// "text" for a known value, "text!" for a fallback.
template <class Lookup>
std::string Read(Lookup lookup) {
    wchar_t storage[kValueCapacity];
    TextBuffer text(storage);
    const bool found = lookup(text);
    return Utf8(text.Text()) + (found ? "" : "!");
}

TEST(ValueNames, ByValue) {
    const auto closed = [](std::int32_t value, const wchar_t* prefix = nullptr) {
        return Read([=](TextBuffer& dst) { return LookupValueName(dst, value, kTable, prefix); });
    };
    EXPECT_EQ(closed(2), "二");
    EXPECT_EQ(closed(3), "");
    EXPECT_EQ(closed(7), "(7)!");
    EXPECT_EQ(closed(-7, L"不明"), "不明(-7)!");
    EXPECT_EQ(closed(INT_UNSET), "(2147483647)!");

    const auto counted = [](std::int32_t value, std::int32_t count) {
        return Read([=](TextBuffer& dst) {
            return LookupValueName(dst, value, kOpenTable, count, nullptr);
        });
    };
    EXPECT_EQ(counted(1, -1), "一");
    EXPECT_EQ(counted(9, -1), "(9)!");
    EXPECT_EQ(counted(INT_UNSET, -1), "(2147483647)!");
    EXPECT_EQ(counted(9, 3), "外");
    EXPECT_EQ(counted(1, 0), "(1)!");
}

TEST(ValueNames, ByIndex) {
    const auto indexed = [](std::int32_t index, const wchar_t* name = nullptr) {
        return Read([=](TextBuffer& dst) { return LookupIndexedName(dst, index, kNames, name); });
    };
    EXPECT_EQ(indexed(0), "標準");
    EXPECT_EQ(indexed(3), "夜景");
    EXPECT_EQ(indexed(1), "不明(1)!");
    EXPECT_EQ(indexed(2), "不明(2)!");
    EXPECT_EQ(indexed(4, L"予約"), "予約(4)!");
    EXPECT_EQ(indexed(-1), "不明(-1)!");
    EXPECT_EQ(indexed(INT32_MIN), "不明(-2147483648)!");
}

TEST(ValueNames, ByPrefix) {
    const auto prefixed = [](std::string_view value) {
        return Read([=](TextBuffer& dst) { return LookupPrefixName(dst, value, kPrefixes); });
    };
    EXPECT_EQ(prefixed("PRESET0 "), "P0");
    EXPECT_EQ(prefixed("PRESET1"), "前");
    EXPECT_EQ(prefixed("PR"), "(PR)!");
    EXPECT_EQ(prefixed(""), "()!");
    EXPECT_EQ(prefixed(std::string(1000, 'x')), "(" + std::string(257, 'x') + ")!");

    wchar_t ansi[8] = {};
    MultiByteToWideChar(CP_ACP, 0, "\xB1", 1, ansi, 7);
    EXPECT_EQ(prefixed("\xB1"), "(" + Utf8(ansi) + ")!");
}

TEST(ValueNames, FlagsStopAtTheFirstUnknownBit) {
    constexpr ValueName kFlags[] = {{1, L"A"}, {2, L"B"}, {8, L"D"}, {2048, L"L"}, {4096, L"M"}};
    struct Case {
        std::uint32_t flags;
        const char* text;
    };
    const Case cases[] = {{0, ""},       {11, "A+B+D"},   {15, "A+B"},     {4, ""},
                          {2049, "A+L"}, {4096 + 8, "D"}, {0xFFFFF000, ""}};
    for (const Case& c : cases) {
        wchar_t storage[kValueCapacity];
        TextBuffer text(storage);
        EXPECT_EQ(Utf8(FormatFlagNames(text, c.flags, kFlags).Text()), c.text) << c.flags;
    }
}

TEST(ValueNames, Pairs) {
    constexpr ValuePair kPairs[] = {{1, 10}, {1, 11}, {2, 20}, {INT_UNSET, 99}};
    EXPECT_EQ(LookupPairValue(1, kPairs), 10);
    EXPECT_EQ(LookupPairValue(2, kPairs), 20);
    EXPECT_EQ(LookupPairValue(3, kPairs), INT_UNSET);
    EXPECT_EQ(LookupPairValue(INT_UNSET, kPairs), INT_UNSET);
}

}  // namespace
}  // namespace qmx::test
