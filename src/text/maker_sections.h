#pragma once
// What each maker adds to the texts, by the columns of text/maker_text.h.

#include "parse/core/image_info.h"
#include "text/enum_context.h"
#include "text/text_buffer.h"

namespace qmx {

void EmitCanonSection(const ImageInfo& info, const EnumContext& context);
void EmitCasioSection(const ImageInfo& info, const EnumContext& context);
void EmitFujifilmSection(const ImageInfo& info, const EnumContext& context);
void EmitLeicaSection(const ImageInfo& info, const EnumContext& context);
void EmitMamiyaSection(const ImageInfo& info, const EnumContext& context);
void EmitMinoltaSection(const ImageInfo& info, const EnumContext& context);
void EmitNikonSection(const ImageInfo& info, const EnumContext& context);
void EmitOlympusSection(const ImageInfo& info, const EnumContext& context);
void EmitPanasonicSection(const ImageInfo& info, const EnumContext& context);
void EmitPentaxSection(const ImageInfo& info, const EnumContext& context);
void EmitRicohSection(const ImageInfo& info, const EnumContext& context);
void EmitSanyoSection(const ImageInfo& info, const EnumContext& context);
void EmitSeikoSection(const ImageInfo& info, const EnumContext& context);
void EmitSigmaSection(const ImageInfo& info, const EnumContext& context);
void EmitSonySection(const ImageInfo& info, const EnumContext& context);

bool AppendCanonLens(const ImageInfo& info, TextBuffer& dst);
bool AppendCanonPictureStyle(const ImageInfo& info, TextBuffer& dst);
bool AppendCanonWhiteBalance(const ImageInfo& info, TextBuffer& dst);
bool AppendFujifilmLens(const ImageInfo& info, TextBuffer& dst);
bool AppendFujifilmWhiteBalance(const ImageInfo& info, TextBuffer& dst);
bool AppendLeicaLens(const ImageInfo& info, TextBuffer& dst);
bool AppendLeicaSceneMode(const ImageInfo& info, TextBuffer& dst);
bool AppendLeicaWhiteBalance(const ImageInfo& info, TextBuffer& dst);
bool AppendMinoltaLens(const ImageInfo& info, TextBuffer& dst);
bool AppendMinoltaWhiteBalance(const ImageInfo& info, TextBuffer& dst);
bool AppendNikonLens(const ImageInfo& info, TextBuffer& dst);
bool AppendNikonWhiteBalance(const ImageInfo& info, TextBuffer& dst);
bool AppendOlympusLens(const ImageInfo& info, TextBuffer& dst);
bool AppendOlympusWhiteBalance(const ImageInfo& info, TextBuffer& dst);
bool AppendPanasonicLens(const ImageInfo& info, TextBuffer& dst);
bool AppendPanasonicSceneMode(const ImageInfo& info, TextBuffer& dst);
bool AppendPanasonicWhiteBalance(const ImageInfo& info, TextBuffer& dst);
bool AppendPentaxLens(const ImageInfo& info, TextBuffer& dst);
bool AppendPentaxWhiteBalance(const ImageInfo& info, TextBuffer& dst);
bool AppendSigmaWhiteBalance(const ImageInfo& info, TextBuffer& dst);
bool AppendSonyLens(const ImageInfo& info, TextBuffer& dst);
bool AppendSonyWhiteBalance(const ImageInfo& info, TextBuffer& dst);

}  // namespace qmx
