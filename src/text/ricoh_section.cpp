// Ricoh's part of the texts.

#include "makernote/maker_record.h"
#include "makernote/ricoh_fields.h"
#include "text/maker_sections.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Fields = RicohMakerFields;

// One row per line, to be proof-read.
// clang-format off

constexpr ValueName kIsoSettings[] = {
    {0, L"オート"},
    {1, L"64"},
    {2, L"100"},
    {4, L"200"},
    {6, L"400"},
    {7, L"800"},
    {8, L"1600"},
    {9, L"オートHI"},
    {10, L"3200"},
};

constexpr ValueName kWhiteBalances[] = {
    {0, L"オート"},
    {1, L"屋外"},
    {2, L"曇天"},
    {3, L"白熱灯"},
    {4, L"蛍光灯"},
    {5, L"手動設定"},
    {7, L"詳細設定"},
    {9, L"マルチパターンAUTO"},
};

constexpr ValueName kFlashModes[] = {
    {0, L"オフ"},
    {1, L"オート"},
    {2, L"オン"},
};

constexpr ValueName kMacroModes[] = {
    {0, L"オフ"},
    {1, L"オン"},
};

constexpr ValueName kSharpnesses[] = {
    {0, L"シャープ"},
    {1, L"標準"},
    {2, L"ソフト"},
};

constexpr ValueName kImageSettings[] = {
    {0, L"濃い"},
    {1, L"普通"},
    {2, L"薄い"},
    {3, L"白黒"},
    {4, L"クロスプロセス"},
    {6, L"白黒"},
    {9, L"ビビッド"},
    {10, L"Natural"},
    {14, L"ブリーチ バイパス"},
};

// Deliberate: the first row is never reached, see FormatImageSetting.
constexpr ValueName kTonings[] = {
    {0, L"ノーマル"},
    {1, L"レッド"},
    {2, L"グリーン"},
    {3, L"ブルー"},
    {4, L"パープル"},
    {6, L"セピア"},
};

// clang-format on

bool FormatImageSetting(const Fields& fields, TextBuffer& dst) {
    if (!Named<&Fields::imageSetting, kImageSettings>(fields, dst)) return false;
    if (!IsSet(fields.toning) || fields.toning < 1) return true;
    LookupValueName(dst.Append(L"（調色："), fields.toning, kTonings);
    dst.Append(L"）");
    return true;
}

constexpr TextRow<Fields> kItems[] = {
    {L"イメージサイズ", Pair<&Fields::width, &Fields::height>},
    {L"ISOセッティング", Named<&Fields::isoSetting, kIsoSettings>},
    {L"ホワイトバランス", Named<&Fields::whiteBalance, kWhiteBalances>},
    {L"フラッシュモード", Named<&Fields::flashMode, kFlashModes>},
    {L"マクロモード", Named<&Fields::macro, kMacroModes>},
    {L"シャープネス", Named<&Fields::sharpness, kSharpnesses>},
    {L"画像設定", FormatImageSetting},
};

}  // namespace

void EmitRicohSection(const ImageInfo& info, const EnumContext& context) {
    EmitRows(MakerRecord<Fields>(info), kItems, context);
}

}  // namespace qmx
