#pragma once
// How single values of Sony's notes read, for the rows of the section.

#include "makernote/sony_fields.h"
#include "text/item_row.h"

namespace qmx {

inline const SonyMakerFields& SonyNote(const ImageInfo& info) {
    return MakerRecord<SonyMakerFields>(info);
}

// A code of the block of settings, whose forms number it in two ways.
template <auto Field, const auto& WordNames, const auto& ByteNames>
bool SonySetting(const ImageInfo& info, TextBuffer& dst) {
    const SonyMakerFields& note = SonyNote(info);
    return note.sonySettingsForm == kSonyBytesSet3 ? Named<Field, ByteNames>(note, dst)
                                                   : Named<Field, WordNames>(note, dst);
}

bool FormatSonyWhiteBalanceShift(const ImageInfo& info, TextBuffer& dst);
bool FormatSonyColorTemperature(const ImageInfo& info, TextBuffer& dst);
bool FormatSonyIso(const ImageInfo& info, TextBuffer& dst);
bool FormatSonyAfArea(const ImageInfo& info, TextBuffer& dst);
bool FormatSonyCreativeStyle(const ImageInfo& info, TextBuffer& dst);
bool FormatSonyHdr(const ImageInfo& info, TextBuffer& dst);
bool FormatSonyDriveSetting(const ImageInfo& info, TextBuffer& dst);
bool FormatSonyHighIsoSetting(const ImageInfo& info, TextBuffer& dst);
bool FormatSonyLensDescription(const ImageInfo& info, TextBuffer& dst);
bool FormatSonyFileFormat(const ImageInfo& info, TextBuffer& dst);
bool FormatSonyImageSize(const ImageInfo& info, TextBuffer& dst);

}  // namespace qmx
