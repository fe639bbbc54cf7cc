#include "parse/containers/ciff.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "makernote/canon_arrays.h"
#include "makernote/canon_fields.h"
#include "makernote/maker_record.h"
#include "makernote/model_identity.h"
#include "parse/containers/ciff_mapping.h"
#include "parse/core/entry_walk.h"
#include "parse/core/local_time.h"
#include "parse/core/preview.h"

namespace qmx {
namespace {

using Fields = CanonMakerFields;

// A heap ends with the position of its directory: an entry count and entries of a type, and size
// and position of the data, or the data itself.  All positions count from the heap's start.
constexpr std::uint32_t kPointerBytes = 4;
constexpr std::uint32_t kCountBytes = 2;
constexpr std::uint32_t kRecordEntryBytes = 10;
constexpr std::uint16_t kInline = 0x4000;
constexpr std::uint32_t kInlineBytes = 8;
constexpr std::uint16_t kIdMask = 0x3FFF;
constexpr std::uint16_t kJpegPreview = 0x2007;

// Cameras nest two or three heaps.
constexpr int kMaxNesting = 8;

struct Heap {
    std::int32_t start;
    std::uint32_t length;
    const Heap* parent;  // null for the root
};

// What a directory entry leads to.
struct RecordPlace {
    std::uint16_t id;
    std::uint32_t position;  // stays that of the entry before when the data is inline
    std::uint32_t length;
};

// An id's upper bits say what its record holds.
constexpr std::uint16_t TypeOf(std::uint16_t id) {
    switch (id >> 8 & 0x38) {
        case 0x08: return kTypeAscii;
        case 0x10: return kTypeShort;
        case 0x18: return kTypeLong;
        default: return kTypeByte;
    }
}

constexpr bool IsHeap(std::uint16_t id) { return id >> 8 == 0x28 || id >> 8 == 0x30; }

template <std::size_t Size>
void CopyText(char (&field)[Size], std::string_view text) {
    std::memset(field, 0, Size);
    std::memcpy(field, text.data(), std::min(text.size(), Size - 1));
}

// Two texts, each with its terminator.
void StoreMakeAndModel(ParseContext& ctx, const DirEntry& entry, Fields&) {
    const std::size_t length = std::min<std::size_t>(entry.count, BytesLeft(ctx));
    SpendWork(ctx, static_cast<std::uint32_t>(length));
    std::string_view texts(reinterpret_cast<const char*>(ctx.cursor), length);
    const std::string_view make = texts.substr(0, texts.find('\0'));
    texts.remove_prefix(std::min(make.size() + 1, texts.size()));
    CopyText(ctx.info.cameraMake, make);
    CopyText(ctx.info.cameraModel, texts.substr(0, texts.find('\0')));
    IdentifyModel(ctx);
}

template <void (*Decode)(ParseContext& ctx, std::uint32_t count)>
void StoreArray(ParseContext& ctx, const DirEntry& entry, Fields&) {
    Decode(ctx, entry.count);
}

// Numbers beyond 31 bits exist; their bits are kept.
void StoreSerialNumber(ParseContext& ctx, const DirEntry& entry, Fields& fields) {
    fields.serialNumber = static_cast<std::int32_t>(ReadUnsigned(ctx, entry));
}

// Signed: all ones are no moment of 2106.
void StoreCaptureTime(ParseContext& ctx, const DirEntry&, Fields&) {
    FormatLocalTime(static_cast<std::int32_t>(ReadU32(ctx)), ctx.info.dateTimeOriginal);
}

void StoreImageSize(ParseContext& ctx, const DirEntry& entry, Fields& fields) {
    if (entry.count >= 1) fields.canonImageWidth = static_cast<std::int32_t>(ReadU32(ctx));
    if (entry.count >= 2) fields.canonImageHeight = static_cast<std::int32_t>(ReadU32(ctx));
}

// By record id.
constexpr TagRow<Fields> kRecords[] = {
    {0x080A, StoreMakeAndModel},
    {0x080B, StoreText<&Fields::firmwareVersion>},
    {0x0810, StoreText<&Fields::ownerName>},
    {0x0815, StoreText<&Fields::imageType>},
    {0x1029, StoreArray<DecodeCanonFocalLength>},
    {0x102A, StoreArray<DecodeCanonShotInfo>},
    {0x102D, StoreArray<DecodeCanonCameraSettings>},
    {0x1038, StoreArray<DecodeCanonAfInfo>},
    {0x1093, StoreArray<DecodeCanonFileInfo>},
    {0x10AE, StoreInteger<&Fields::canonColorTemperature>},
    {0x180B, StoreSerialNumber},
    {0x180E, StoreCaptureTime},
    {0x1810, StoreImageSize},
    {0x1817, StoreInteger<&Fields::fileNumber>},
};
static_assert(TagsAscend(kRecords));

// With the cursor on the record's data.
void StoreRecord(ParseContext& ctx, const RecordPlace& place) {
    if (AtEnd(ctx)) return;
    const auto* row =
        std::find_if(std::begin(kRecords), std::end(kRecords),
                     [&](const auto& candidate) { return candidate.tag == place.id; });
    if (row == std::end(kRecords)) return;
    const std::uint16_t type = TypeOf(place.id);
    const DirEntry entry = {place.id, type, place.length / FieldTypeSize(type)};
    row->store(ctx, entry, MakerRecord<Fields>(ctx.info));
}

void DeliverPreview(ParseContext& ctx, const RecordPlace& place) {
    if (!ctx.thumbDone && WriteEmbeddedJpeg(ctx, place.position, place.length, true))
        ctx.thumbDone = 1;
}

// Neither nested too deep nor one of the heaps that it is in.
bool MayEnter(const Heap& heap) {
    int nesting = 1;
    for (const Heap* outer = heap.parent; outer != nullptr; outer = outer->parent, ++nesting)
        if (outer->start == heap.start && outer->length == heap.length) return false;
    return nesting <= kMaxNesting;
}

// Reads an entry; the cursor is then on the record's data.
RecordPlace ReadRecordEntry(ParseContext& ctx, const Heap& heap, std::uint32_t lastPosition) {
    const std::uint16_t type = ReadU16(ctx);
    const auto id = static_cast<std::uint16_t>(type & kIdMask);
    if (type & kInline) return {id, lastPosition, kInlineBytes};
    const std::uint32_t length = ReadU32(ctx);
    const std::int32_t position = WrappingAdd(heap.start, ReadU32(ctx));
    SeekTo(ctx, position);
    return {id, static_cast<std::uint32_t>(position), length};
}

void ParseCiffHeap(ParseContext& ctx, const Heap& heap) {
    if (!MayEnter(heap)) return;
    SpendWork(ctx, kPointerBytes + kCountBytes);
    SeekTo(ctx, WrappingAdd(heap.start, heap.length - kPointerBytes));
    SeekTo(ctx, WrappingAdd(heap.start, ReadU32(ctx)));
    const std::uint16_t count = ReadU16(ctx);
    RecordPlace place = {};
    for (std::uint32_t i = 0; i < count && !AtEnd(ctx); ++i) {
        const std::int32_t next = WrappingAdd(Position(ctx), kRecordEntryBytes);
        SpendWork(ctx, kRecordEntryBytes);
        place = ReadRecordEntry(ctx, heap, place.position);
        if (IsHeap(place.id)) {
            const auto start = static_cast<std::int32_t>(place.position);
            ParseCiffHeap(ctx, {start, place.length, &heap});
        } else if (place.id == kJpegPreview) {
            DeliverPreview(ctx, place);
        } else {
            StoreRecord(ctx, place);
        }
        SeekTo(ctx, next);
    }
}

}  // namespace

void ReadCiff(ParseContext& ctx, std::int32_t start) {
    ctx.byteOrder = ReadU16(ctx);
    const std::uint32_t headerLength = ReadU32(ctx);
    ctx.info.makerId = kMakerCanon;
    ctx.info.hasMakerNote = 1;
    ResetMakerRecord<Fields>(ctx.info);
    const auto heapLength = static_cast<std::uint32_t>(ctx.fileSize) - headerLength;
    ParseCiffHeap(ctx, {static_cast<std::int32_t>(headerLength), heapLength, nullptr});
    MapCanonValues(ctx.info);
    SeekTo(ctx, WrappingAdd(start, headerLength));
}

}  // namespace qmx
