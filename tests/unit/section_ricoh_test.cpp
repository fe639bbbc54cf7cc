// Ricoh's section of the labelled list.

#include <gtest/gtest.h>

#include "makernote/maker_record.h"
#include "makernote/ricoh_fields.h"
#include "support/listing.h"

namespace qmx::test {
namespace {

using Fields = RicohMakerFields;

Lines List(const Fields& fields) {
    ImageInfo info;
    info.makerId = kMakerRicoh;
    info.hasMakerNote = 1;
    ResetMakerRecord<Fields>(info) = fields;
    return ListMakerNote(info);
}

TEST(RicohSection, EveryItemInOrder) {
    // clang-format off
    const Fields fields = {.width = 3264, .height = 2448, .isoSetting = 9, .whiteBalance = 1,
                           .flashMode = 2, .macro = 1, .sharpness = 0, .imageSetting = 6,
                           .toning = 6};
    // clang-format on
    const Lines expected = {
        "イメージサイズ=3264, 2448",    "ISOセッティング=オートHI", "ホワイトバランス=屋外",
        "フラッシュモード=オン",        "マクロモード=オン",        "シャープネス=シャープ",
        "画像設定=白黒（調色：セピア）"};
    EXPECT_EQ(List(fields), expected);
    EXPECT_EQ(List({}), Lines());
}

TEST(RicohSection, ConditionsAndFallbacks) {
    struct Case {
        Fields fields;
        Lines lines;
    };
    const Case cases[] = {
        {{.width = 640}, {}},
        {{.isoSetting = 11}, {"ISOセッティング=(11)"}},
        {{.whiteBalance = 6}, {"ホワイトバランス=(6)"}},
        {{.imageSetting = 14}, {"画像設定=ブリーチ バイパス"}},
        {{.imageSetting = 5}, {"画像設定=(5)"}},
        {{.imageSetting = 6, .toning = 0}, {"画像設定=白黒"}},
        {{.imageSetting = 3, .toning = 1}, {"画像設定=白黒（調色：レッド）"}},
        {{.imageSetting = 6, .toning = 5}, {"画像設定=白黒（調色：(5)）"}},
        {{.toning = 1}, {}},
    };
    for (const Case& c : cases) EXPECT_EQ(List(c.fields), c.lines);
}

}  // namespace
}  // namespace qmx::test
