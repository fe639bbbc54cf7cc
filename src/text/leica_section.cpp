// Leica's part of the texts.  The bodies that Panasonic built share Panasonic's; for Leica's own,
// what the fields mean follows the public tag list at exiftool.org/TagNames/Panasonic.html (the
// table for the M8).

#include "makernote/leica_fields.h"
#include "makernote/maker_record.h"
#include "text/maker_sections.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Fields = LeicaMakerFields;

// One row per line, to be proof-read.
// clang-format off

constexpr ValueName kWhiteBalances[] = {
    {0, L"オート"},
    {2, L"蛍光灯"},
    {3, L"白熱灯"},
};

// The lens code of the bayonet times 4, and the frame lines in the low 2 bits.
constexpr ValueName kLenses[] = {
    {0, L"オフ"},
    {97, L"21mm F2.8"},
    {113, L"28mm F2.8"},
    {131, L"40mm"},
    {135, L"50mm F2.0"},
};

// clang-format on

constexpr wchar_t kKelvin[] = L"K";
constexpr wchar_t kNoSuffix[] = L"";

constexpr TextRow<Fields> kItems[] = {
    {L"ホワイトバランス", Named<&Fields::leicaTag304, kWhiteBalances>},
    {L"色温度", Formatted<&Fields::leicaTag321, FormatInteger, kKelvin>},
    {L"レンズ情報", Named<&Fields::leicaTag310, kLenses>},
    {L"イメージID", Formatted<&Fields::leicaTag340, FormatInteger, kNoSuffix>},
};

// Whose record lies in the maker area.
bool IsPanasonicBuilt(const ImageInfo& info) { return info.modelId < kFirstOwnLeicaModel; }

}  // namespace

void EmitLeicaSection(const ImageInfo& info, const EnumContext& context) {
    if (IsPanasonicBuilt(info)) return EmitPanasonicSection(info, context);
    EmitRows(MakerRecord<Fields>(info), kItems, context);
}

bool AppendLeicaLens(const ImageInfo& info, TextBuffer& dst) {
    return IsPanasonicBuilt(info) && AppendPanasonicLens(info, dst);
}

bool AppendLeicaWhiteBalance(const ImageInfo& info, TextBuffer& dst) {
    return IsPanasonicBuilt(info) && AppendPanasonicWhiteBalance(info, dst);
}

bool AppendLeicaSceneMode(const ImageInfo& info, TextBuffer& dst) {
    return IsPanasonicBuilt(info) && AppendPanasonicSceneMode(info, dst);
}

}  // namespace qmx
