#pragma once
// The decoders of the makers' notes.  Each is called behind the note's header, with the cursor on
// the entry count, byte order and offset base set as the maker has them; the dispatch puts both
// back.  A decoder resets the maker's record first and never reports an error.

#include <cstdint>

#include "parse/core/parse_context.h"

namespace qmx {

// `ifdBase` is the base of the IFD chain being walked, for offsets that point outside the note.
using MakerNoteDecoder = void (*)(ParseContext& ctx, std::uint32_t ifdBase);

void ParseCanonMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseNikonMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseOlympusMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseFujifilmMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseCasioMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseMinoltaMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParsePanasonicMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseRicohMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParsePentaxMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseSanyoMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseSigmaMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseSonyMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseSeikoMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseMamiyaMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseLeicaMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseKddiMakerNote(ParseContext& ctx, std::uint32_t ifdBase);
void ParseHasselbladMakerNote(ParseContext& ctx, std::uint32_t ifdBase);

}  // namespace qmx
