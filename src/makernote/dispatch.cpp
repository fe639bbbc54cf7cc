#include "makernote/dispatch.h"

#include <cstring>
#include <string_view>

#include "makernote/decoders.h"
#include "makernote/pentax_base.h"
#include "parse/core/cursor.h"

namespace qmx {
namespace {

// How a maker's note begins and who reads it.  `enter` is called at the note's first byte; it
// recognises the header, sets byte order and offset base, and leaves the cursor on the entry count.
// A null `decode` leaves the note unread.
struct MakerNoteForm {
    MakerId maker;
    bool (*enter)(ParseContext& ctx);
    MakerNoteDecoder decode = nullptr;
};

bool BeginsWith(const ParseContext& ctx, std::string_view magic) {
    return BytesLeft(ctx) >= magic.size() &&
           std::memcmp(ctx.cursor, magic.data(), magic.size()) == 0;
}

void Skip(ParseContext& ctx, std::uint32_t bytes) {
    SeekTo(ctx, WrappingAdd(Position(ctx), bytes));
}

// Offsets count from here on.
void SetBaseHere(ParseContext& ctx) { ctx.tiffBase = static_cast<std::uint32_t>(Position(ctx)); }

bool EnterBehind(ParseContext& ctx, std::string_view magic, std::uint32_t headerBytes) {
    if (!BeginsWith(ctx, magic)) return false;
    Skip(ctx, headerBytes);
    return true;
}

// The entries start with the note.
bool EnterAtStart(ParseContext&) { return true; }

// A whole TIFF header with a byte order of its own follows the maker's.  The oldest cameras have
// no such header, and tags of another meaning: of their notes nothing is read.
bool EnterNikon(ParseContext& ctx) {
    using namespace std::string_view_literals;
    const bool isOldest = BeginsWith(ctx, "Nikon\0\1"sv);
    if (!EnterBehind(ctx, "Nikon", 10)) return false;
    if (isOldest) {
        ctx.cursor = ctx.readEnd;
        return true;
    }
    SetBaseHere(ctx);
    ctx.byteOrder = ReadU16(ctx);
    ReadU16(ctx);
    SeekToOffset(ctx, ReadU32(ctx));
    return true;
}

// "MLY0" notes hold no entries.
bool EnterMinolta(ParseContext& ctx) { return !BeginsWith(ctx, "MLY0"); }

bool EnterOlympus(ParseContext& ctx) {
    using namespace std::string_view_literals;
    if (!BeginsWith(ctx, "OLYMPUS\0"sv)) return EnterBehind(ctx, "OLYMP", 8);
    SetBaseHere(ctx);
    Skip(ctx, 8);
    ctx.byteOrder = ReadU16(ctx);
    ReadU16(ctx);
    return true;
}

// Raw files of the models from 8192 up leave the header out.
bool EnterSony(ParseContext& ctx) {
    constexpr std::int32_t kFirstHeaderless = 8192;
    return EnterBehind(ctx, "SONY DSC", 12) || ctx.info.modelId >= kFirstHeaderless;
}

// Always little-endian; the header names where the entries start.
bool EnterFujifilm(ParseContext& ctx) {
    if (!BeginsWith(ctx, "FUJIFILM")) return false;
    SetBaseHere(ctx);
    ctx.byteOrder = kLittleEndian;
    Skip(ctx, 8);
    SeekToOffset(ctx, ReadU16(ctx));
    return true;
}

bool EnterCasio(ParseContext& ctx) {
    using namespace std::string_view_literals;
    return EnterBehind(ctx, "QVC\0"sv, 6);
}

bool EnterRicoh(ParseContext& ctx) {
    if (!EnterBehind(ctx, "Ricoh", 8)) return false;
    ctx.byteOrder = kBigEndian;
    return true;
}

// The private data of Samsung's DNGs has Samsung's name in Pentax's place.
bool EnterPentax(ParseContext& ctx) {
    using namespace std::string_view_literals;
    const bool shortForm = EnterBehind(ctx, "AOC\0"sv, 4);
    if (!shortForm && !EnterBehind(ctx, "PENTAX", 8) && !EnterBehind(ctx, "SAMSUNG\0"sv, 8))
        return false;
    ctx.byteOrder = ReadU16(ctx);
    if (!shortForm) ChoosePentaxBase(ctx, 10);
    return true;
}

bool EnterPanasonic(ParseContext& ctx) { return EnterBehind(ctx, "Panasonic", 12); }
bool EnterLeica(ParseContext& ctx) { return EnterBehind(ctx, "LEICA", 8); }
bool EnterSanyo(ParseContext& ctx) { return EnterBehind(ctx, "SANYO", 8); }
bool EnterSigma(ParseContext& ctx) { return EnterBehind(ctx, "SIGMA", 10); }
bool EnterSeiko(ParseContext& ctx) { return EnterBehind(ctx, "EPSON", 8); }
bool EnterKddi(ParseContext& ctx) { return EnterBehind(ctx, "KDDI", 8); }

// Makers without a row have no known form: their notes count as present and stay closed.
// clang-format off
constexpr MakerNoteForm kForms[] = {
    {kMakerCanon, EnterAtStart, ParseCanonMakerNote},
    {kMakerNikon, EnterNikon, ParseNikonMakerNote},
    {kMakerMinolta, EnterMinolta, ParseMinoltaMakerNote},
    {kMakerOlympus, EnterOlympus, ParseOlympusMakerNote},
    {kMakerSony, EnterSony, ParseSonyMakerNote},
    {kMakerFujifilm, EnterFujifilm, ParseFujifilmMakerNote},
    {kMakerCasio, EnterCasio, ParseCasioMakerNote},
    {kMakerRicoh, EnterRicoh, ParseRicohMakerNote},
    {kMakerPanasonic, EnterPanasonic, ParsePanasonicMakerNote},
    {kMakerSanyo, EnterSanyo, ParseSanyoMakerNote},
    {kMakerPentax, EnterPentax, ParsePentaxMakerNote},
    {kMakerSigma, EnterSigma, ParseSigmaMakerNote},
    {kMakerSeiko, EnterSeiko, ParseSeikoMakerNote},
    {kMakerMamiya, EnterAtStart, ParseMamiyaMakerNote},
    {kMakerLeica, EnterLeica, ParseLeicaMakerNote},
    {kMakerKddi, EnterKddi, ParseKddiMakerNote},
    {kMakerHasselblad, EnterAtStart, ParseHasselbladMakerNote},
};
// clang-format on

void ReadMakerNote(ParseContext& ctx, const MakerNoteForm& form, std::uint32_t ifdBase) {
    const OffsetScope restoreOffsets(ctx);
    ctx.info.hasMakerNote = form.enter(ctx) ? 1 : 0;
    if (ctx.info.hasMakerNote && form.decode != nullptr) form.decode(ctx, ifdBase);
}

const MakerNoteForm* FindForm(std::uint32_t maker) {
    for (const MakerNoteForm& form : kForms)
        if (form.maker == maker) return &form;
    return nullptr;
}

}  // namespace

void ParseMakerNote(ParseContext& ctx, std::uint32_t ifdBase) {
    ctx.info.hasMakerNote = 1;
    if (const MakerNoteForm* form = FindForm(ctx.info.makerId)) ReadMakerNote(ctx, *form, ifdBase);
}

void ParsePentaxPrivateData(ParseContext& ctx) {
    ReadMakerNote(ctx, *FindForm(kMakerPentax), ctx.tiffBase);
}

}  // namespace qmx
