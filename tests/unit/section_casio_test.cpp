// Casio's section of the labelled list.

#include <gtest/gtest.h>

#include <cstring>

#include "makernote/casio_fields.h"
#include "makernote/maker_record.h"
#include "support/listing.h"

namespace qmx::test {
namespace {

using Fields = CasioMakerFields;

Lines List(const Fields& fields) {
    ImageInfo info;
    info.makerId = kMakerCasio;
    info.hasMakerNote = 1;
    ResetMakerRecord<Fields>(info) = fields;
    return ListMakerNote(info);
}

// clang-format off

TEST(CasioSection, EveryItemInOrder) {
    const Fields fields = {.casioTag2011a = 487, .casioTag2011b = 435, .casioTag2012 = 12,
                           .casioTag2022 = 1500, .casioTag2034 = 806, .casioTag3000 = 6,
                           .casioUnsetField = 3, .casioTag3001 = 1, .casioTag3002 = 3,
                           .casioTag3003 = 6, .casioTag3006 = "New York", .casioTag3007 = 5,
                           .casioTag3011 = 65532, .casioTag3013 = 0, .casioTag3012 = 2,
                           .casioTag3014 = 50, .casioTag3015 = 3, .casioTag3016 = 9,
                           .casioTag3017 = 7};
    const Lines expected = {
        "撮影モード=ベストショット", "ベストショット=5", "レリーズモード=ノーマル",
        "画質モード=ファイン", "フォーカスモード=マルチエリアAF", "撮影距離=1.5m",
        "フラッシュ距離=80.6cm", "ISO感度=50", "ホワイトバランス=フラッシュ",
        "ホワイトバランス補正=487, 435", "コントラスト=+2", "色の濃さ=±0", "シャープネス=-4",
        "カラーモード=セピア", "カラー強調=肌色", "カラーフィルター=ピンク",
        "ホームタウン=New York"};
    EXPECT_EQ(List(fields), expected);
    EXPECT_EQ(List({}), Lines());
}

TEST(CasioSection, ConditionsAndFallbacks) {
    struct Case {
        void (*change)(Fields&);
        Lines lines;
    };
    const Case cases[] = {
        {[](Fields& f) { f.casioTag3000 = 2, f.casioTag3007 = 5; }, {"撮影モード=プログラムAE"}},
        {[](Fields& f) { f.casioTag3000 = 6, f.casioTag3007 = 0; },
         {"撮影モード=ベストショット", "ベストショット=オフ"}},
        {[](Fields& f) { f.casioTag3000 = 99; }, {"撮影モード=(99)"}},
        {[](Fields& f) { f.casioTag3001 = 14; }, {"レリーズモード=(14)"}},
        {[](Fields& f) { f.casioTag2012 = 13; }, {"ホワイトバランス=(13)"}},
        {[](Fields& f) { f.casioTag2022 = 0x1FFFFFFF; }, {"撮影距離=536871.0m"}},
        {[](Fields& f) { f.casioTag2022 = 0x20000000; }, {"撮影距離=∞"}},
        {[](Fields& f) { f.casioTag2022 = INT32_MIN; }, {"撮影距離=∞"}},
        {[](Fields& f) { f.casioTag3014 = 0; }, {"ISO感度=オート"}},
        {[](Fields& f) { f.casioTag2011b = 93; }, {}},
        {[](Fields& f) { f.casioTag3012 = 0x12345; }, {"コントラスト=+9029"}},
        {[](Fields& f) { std::memset(f.casioTag3006, 'x', sizeof f.casioTag3006); },
         {"ホームタウン=" + std::string(32, 'x')}},
    };
    for (const Case& c : cases) {
        Fields fields;
        c.change(fields);
        EXPECT_EQ(List(fields), c.lines);
    }
}

// clang-format on

}  // namespace
}  // namespace qmx::test
