// Mamiya's part of the texts.  No public list names the tags of its MakerNote; the five known items
// stand in the order of the tags.

#include "makernote/maker_record.h"
#include "makernote/mamiya_fields.h"
#include "text/maker_sections.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Fields = MamiyaMakerFields;

// One row per line, to be proof-read.
// clang-format off

constexpr ValueName kExposureModes[] = {
    {2, L"マニュアル"},
    {8, L"絞り優先AE"},
    {16, L"オート"},
};

constexpr ValueName kWhiteBalances[] = {
    {0, L"オート"},
    {2, L"曇り"},
    {3, L"太陽光"},
    {4, L"ストロボ"},
    {6, L"電球"},
};

constexpr ValueName kColorModes[] = {
    {0, L"スタンダード"},
    {1, L"ポートレート"},
    {2, L"風景"},
    {3, L"商品"},
};

constexpr ValueName kTones[] = {
    {1, L"ノーマル"},
    {2, L"低い"},
};

// clang-format on

TextBuffer& FormatIso(TextBuffer& dst, std::int32_t speed) {
    return speed == 0 ? dst.Append(L"オート") : dst.AppendInteger(speed);
}

constexpr TextRow<Fields> kItems[] = {
    {L"露出モード", Named<&Fields::mamiyaTag90, kExposureModes>},
    {L"ISOセッティング", Formatted<&Fields::mamiyaTag95, FormatIso>},
    {L"ホワイトバランス", Named<&Fields::mamiyaTag98, kWhiteBalances>},
    {L"カラーモード", Named<&Fields::mamiyaTagA2, kColorModes>},
    {L"トーン", Named<&Fields::mamiyaTagA5, kTones>},
};

}  // namespace

void EmitMamiyaSection(const ImageInfo& info, const EnumContext& context) {
    EmitRows(MakerRecord<Fields>(info), kItems, context);
}

}  // namespace qmx
