#include "parse/core/numeric.h"
#include "text/enumerate.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Info = ImageInfo;

template <auto Field, auto Reference>
bool FormatCoordinate(const Info& info, TextBuffer& dst) {
    const float(&value)[3] = info.*Field;
    if (!IsSet(value[0])) return false;
    FormatGpsCoordinate(dst, value[0], value[1], value[2], FieldText(info.*Reference));
    return true;
}

bool FormatTimeStamp(const Info& info, TextBuffer& dst) {
    const float(&time)[3] = info.gpsTimeStamp;
    if (!IsSet(time[0])) return false;
    dst.AppendUnsigned(TruncateToU32(time[0]), 2).Append(L':');
    dst.AppendUnsigned(TruncateToU32(time[1]), 2).Append(L':');
    dst.AppendUnsigned(TruncateToU32(time[2]), 2).Append(L'.');
    dst.AppendUnsigned(HundredthsDigits(time[2]), 2).Append(L" UTC");
    return true;
}

constexpr TextRow<Info> kItems[] = {
    {L"緯度", FormatCoordinate<&Info::gpsLatitude, &Info::gpsLatitudeRef>},
    {L"経度", FormatCoordinate<&Info::gpsLongitude, &Info::gpsLongitudeRef>},
    {L"人工衛星", Widened<&Info::gpsSatellites>},
    {L"地図データ", Widened<&Info::gpsMapDatum>},
    {L"GPS日時", Widened<&Info::gpsDateStamp>},
    {L"GPS時刻", FormatTimeStamp},
};

}  // namespace

void EmitGpsSection(const ImageInfo& info, const EnumContext& context) {
    EmitHeading(context, L"GPS位置");
    EmitRows(info, kItems, context);
}

}  // namespace qmx
