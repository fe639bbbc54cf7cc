// Sanyo's part of the texts.  What the fields, named by tag, mean follows the public tag list at
// exiftool.org/TagNames/Sanyo.html.  That has no names for two of them: 0x0215, between self timer
// and flicker reduction, is taken for the voice memo, and 0x021A, which holds 3 in real files, for
// the focus mode.  0x0219 and 0x021B (zooms in use) are not shown.

#include "makernote/maker_record.h"
#include "makernote/sanyo_fields.h"
#include "text/maker_sections.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Fields = SanyoMakerFields;

// One row per line, to be proof-read.
// clang-format off

constexpr ValueName kQualities[] = {
    {0, L"標準"},
    {1, L"ファイン"},
    {2, L"スーパーファイン"},
};

constexpr ValueName kShootingModes[] = {
    {0, L"標準"},
    {1, L"マクロ"},
    {2, L"遠景"},
    {3, L"マニュアル"},
};

constexpr ValueName kContinuousModes[] = {
    {0, L"オフ"},
    {1, L"高速連写"},
    {2, L"ベストセレクト"},
    {3, L"オートブラケット"},
};

constexpr ValueName kSwitch[] = {
    {0, L"オフ"},
    {1, L"オン"},
};

constexpr ValueName kFocusModes[] = {
    {0, L"標準"},
    {3, L"スーパーマクロ"},
};

constexpr ValueName kFlashModes[] = {
    {0, L"オート"},
    {1, L"強制"},
    {2, L"禁止"},
    {3, L"赤目緩和"},
};

// clang-format on

// Compression in the high byte, size of the picture in the low one.
bool FormatQuality(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.sanyoTag201)) return false;
    LookupValueName(dst, fields.sanyoTag201 >> 8, kQualities);
    dst.Append(L'(').AppendInteger(fields.sanyoTag201 & 0xFF).Append(L')');
    return true;
}

// A field that another one decides whether to show; unset it reads "(2147483647)".
template <auto Tested, auto Shown, const auto& Table>
bool NamedWhen(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.*Tested)) return false;
    LookupValueName(dst, fields.*Shown, Table);
    return true;
}

constexpr TextRow<Fields> kItems[] = {
    {L"画質モード", FormatQuality},
    {L"撮影モード", Named<&Fields::sanyoTag202, kShootingModes>},
    {L"デジタルズーム", Formatted<&Fields::sanyoTag204, FormatZoomRatio>},
    // Deliberate: the neighbouring field is tested, here and at the colour equaliser.
    {L"連写モード", NamedWhen<&Fields::sanyoTag202, &Fields::sanyoTag20E, kContinuousModes>},
    {L"ワイドレンジショット", Named<&Fields::sanyoTag20F, kSwitch>},
    {L"リアルカラーイコライザ", NamedWhen<&Fields::sanyoTag20F, &Fields::sanyoTag210, kSwitch>},
    {L"クイックショット", Named<&Fields::sanyoTag213, kSwitch>},
    {L"セルフタイマー", Named<&Fields::sanyoTag214, kSwitch>},
    {L"ボイスメモ", Named<&Fields::sanyoTag215, kSwitch>},
    {L"フリッカー軽減", Named<&Fields::sanyoTag218, kSwitch>},
    {L"フォーカスモード", Named<&Fields::sanyoTag21A, kFocusModes>},
    {L"フラッシュモード", Named<&Fields::sanyoTag225, kFlashModes>},
};

}  // namespace

void EmitSanyoSection(const ImageInfo& info, const EnumContext& context) {
    EmitRows(MakerRecord<Fields>(info), kItems, context);
}

}  // namespace qmx
