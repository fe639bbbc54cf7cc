#include "text/enumerate.h"

#include "text/maker_text.h"

namespace qmx {
namespace {

// A maker without a producer gets the heading alone.
void EmitMakerSection(const ImageInfo& info, const EnumContext& context) {
    EmitHeading(context, L"メーカーノート");
    const MakerText& maker = FindMakerText(info.makerId);
    if (maker.emitSection != nullptr) maker.emitSection(info, context);
}

}  // namespace

void EmitInfo(const ImageInfo& info, const EnumContext& context) {
    if (context.callback == nullptr) return;
    EmitExifSection(info, context);
    if (info.hasMakerNote != 0) EmitMakerSection(info, context);
    if (info.hasGps != 0) EmitGpsSection(info, context);
}

}  // namespace qmx
