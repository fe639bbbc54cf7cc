// Seiko Epson's part of the texts.  What the fields, named by tag, mean follows the public tag list
// of the Olympus cameras that share their layout, exiftool.org/TagNames/Olympus.html.

#include "makernote/maker_record.h"
#include "makernote/seiko_fields.h"
#include "text/maker_sections.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Fields = SeikoMakerFields;

constexpr ValueName kQualities[] = {{1, L"標準"}, {2, L"詳細"}, {3, L"高詳細"}};

constexpr TextRow<Fields> kItems[] = {
    {L"画質モード", Named<&Fields::seikoTag201, kQualities>},
    {L"カメラID", Widened<&Fields::seikoTag209, 256>},
    {L"イメージサイズ", Pair<&Fields::seikoTag20B, &Fields::seikoTag20C>},
    {L"ハードウェアタイプ", Widened<&Fields::seikoTag20D, 256>},
};

}  // namespace

void EmitSeikoSection(const ImageInfo& info, const EnumContext& context) {
    EmitRows(MakerRecord<Fields>(info), kItems, context);
}

}  // namespace qmx
