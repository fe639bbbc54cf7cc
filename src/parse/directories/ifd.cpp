// One image file directory: what it says of the camera goes to ImageInfo, what it says of a
// picture to an image record.

#include "makernote/dispatch.h"
#include "makernote/maker_identity.h"
#include "makernote/model_identity.h"
#include "makernote/photoshop.h"
#include "parse/core/entry_walk.h"
#include "parse/core/jpeg.h"
#include "parse/directories/tiff.h"

namespace qmx {
namespace {

constexpr std::uint32_t kMaxEntries = 512;
constexpr std::uint32_t kMaxSubIfdDepth = 16;
constexpr std::uint32_t kDirectoryBytes = 6;  // the count and the next-directory offset

// What the rows of one directory work on.
struct Directory {
    std::uint32_t base;
    std::size_t record;  // index among the image records
    // Panasonic raws: the embedded JPEG, whose bytes are the value of a tag.
    std::uint32_t rawJpegPosition = 0;
    std::uint32_t rawJpegLength = 0;
};

ImageRecord& RecordFor(ParseContext& ctx, const Directory& directory) {
    return ctx.imageRecords[directory.record];
}

template <auto Field>
void StoreInRecord(ParseContext& ctx, const DirEntry& entry, Directory& directory) {
    RecordFor(ctx, directory).*Field = ReadInteger(ctx, entry);
}

template <auto Field>
void StorePosition(ParseContext& ctx, const DirEntry& entry, Directory& directory) {
    RecordFor(ctx, directory).*Field = directory.base + ReadUnsigned(ctx, entry);
}

template <auto Field>
void StoreBytesInInfo(ParseContext& ctx, const DirEntry& entry, Directory&) {
    StoreTerminatedBytes<Field>(ctx, entry, ctx.info);
}

void StorePanasonicIso(ParseContext& ctx, const DirEntry& entry, Directory&) {
    if (entry.type == kTypeShort) ctx.info.isoSpeed = ReadInteger(ctx, entry);
}

// The value is the picture itself; which camera it is, later tags tell.
void NotePanasonicJpeg(ParseContext& ctx, const DirEntry& entry, Directory& directory) {
    if (directory.rawJpegLength != 0) return;
    directory.rawJpegPosition = static_cast<std::uint32_t>(Position(ctx));
    directory.rawJpegLength = entry.count;
}

void StoreMake(ParseContext& ctx, const DirEntry& entry, Directory&) {
    StoreText<&ImageInfo::cameraMake>(ctx, entry, ctx.info);
    IdentifyMaker(ctx);
}

void StoreModel(ParseContext& ctx, const DirEntry& entry, Directory&) {
    StoreText<&ImageInfo::cameraModel>(ctx, entry, ctx.info);
    IdentifyModel(ctx);
}

// The picture's orientation is the first directory's; each record keeps its own.
void StoreOrientation(ParseContext& ctx, const DirEntry& entry, Directory& directory) {
    const std::int32_t orientation = ReadInteger(ctx, entry);
    if (!IsSet(ctx.info.orientation)) ctx.info.orientation = orientation;
    RecordFor(ctx, directory).orientation = orientation;
}

void StoreStripByteCount(ParseContext& ctx, const DirEntry& entry, Directory& directory) {
    if (entry.count == 0 || !WantsPicture(ctx)) return;
    std::uint32_t sum = 0;
    for (std::uint32_t i = 0; i < entry.count && !AtEnd(ctx); ++i) {
        SpendWork(ctx, FieldTypeSize(entry.type));
        sum += ReadUnsigned(ctx, entry);
    }
    RecordFor(ctx, directory).stripByteCount = sum;
}

void WalkSubIfds(ParseContext& ctx, const DirEntry& entry, Directory& directory) {
    for (std::uint32_t i = 0; i < entry.count && !AtEnd(ctx); ++i) {
        const std::int32_t next = WrappingAdd(Position(ctx), 4);
        SpendWork(ctx, 4);
        SeekToOffset(ctx, ReadU32(ctx));
        if (!WalkIfd(ctx, directory.base)) break;
        SeekTo(ctx, next);
    }
}

void ProbeRecord(ParseContext& ctx, ImageRecord& record) {
    if (ProbeJpegFrame(ctx, record.jpegOffset, record)) record.compression = kCompressionOldJpeg;
}

void StoreJpegOffset(ParseContext& ctx, const DirEntry& entry, Directory& directory) {
    StorePosition<&ImageRecord::jpegOffset>(ctx, entry, directory);
    ProbeRecord(ctx, RecordFor(ctx, directory));
}

void StoreJpegLength(ParseContext& ctx, const DirEntry& entry, Directory& directory) {
    RecordFor(ctx, directory).jpegLength = ReadUnsigned(ctx, entry);
}

void StoreLumaWeights(ParseContext& ctx, const DirEntry& entry, Directory& directory) {
    ImageRecord& record = RecordFor(ctx, directory);
    record.lumaRed = ReadFloat(ctx, entry);
    record.lumaGreen = ReadFloat(ctx, entry);
    record.lumaBlue = ReadFloat(ctx, entry);
}

void StoreSubSampling(ParseContext& ctx, const DirEntry& entry, Directory& directory) {
    ImageRecord& record = RecordFor(ctx, directory);
    record.ycbcrSubH = ReadInteger(ctx, entry);
    record.ycbcrSubV = ReadInteger(ctx, entry);
}

void EnterExif(ParseContext& ctx, const DirEntry& entry, Directory& directory) {
    SeekToOffset(ctx, ReadUnsigned(ctx, entry));
    WalkExifIfd(ctx, directory.base);
}

void EnterGps(ParseContext& ctx, const DirEntry& entry, Directory& directory) {
    SeekToOffset(ctx, ReadUnsigned(ctx, entry));
    WalkGpsIfd(ctx, directory.base);
}

void EnterPhotoshopResources(ParseContext& ctx, const DirEntry& entry, Directory&) {
    ReadPhotoshopResources(ctx, std::uint64_t{entry.count} * FieldTypeSize(entry.type));
}

void EnterDngPrivateData(ParseContext& ctx, const DirEntry&, Directory&) {
    if (ctx.info.makerId == kMakerPentax) ParsePentaxPrivateData(ctx);
}

constexpr TagRow<Directory> kTags[] = {
    {0x0017, StorePanasonicIso},
    {0x002E, NotePanasonicJpeg},
    {0x0100, StoreInRecord<&ImageRecord::width>},
    {0x0101, StoreInRecord<&ImageRecord::height>},
    {0x0102, StoreInRecord<&ImageRecord::bitsPerSample>},
    {0x0103, StoreInRecord<&ImageRecord::compression>},
    {0x0106, StoreInRecord<&ImageRecord::photometric>},
    {0x010F, StoreMake},
    {0x0110, StoreModel},
    {0x0111, StorePosition<&ImageRecord::stripOffset>},
    {0x0112, StoreOrientation},
    {0x0115, StoreInRecord<&ImageRecord::samplesPerPixel>},
    {0x0116, StoreInRecord<&ImageRecord::rowsPerStrip>},
    {0x0117, StoreStripByteCount},
    {0x011C, StoreInRecord<&ImageRecord::planarConfig>},
    {0x0131, StoreBytesInInfo<&ImageInfo::software>},
    {0x0132, StoreBytesInInfo<&ImageInfo::dateTime>},
    {0x014A, WalkSubIfds},
    {0x0201, StoreJpegOffset},
    {0x0202, StoreJpegLength},
    {0x0211, StoreLumaWeights},
    {0x0212, StoreSubSampling},
    {0x8649, EnterPhotoshopResources},
    {0x8769, EnterExif},
    {0x8825, EnterGps},
    {0xC634, EnterDngPrivateData},
};
static_assert(TagsAscend(kTags));

// A Panasonic raw's embedded JPEG is the full-size preview and stands upright already.
void TakePanasonicJpeg(ParseContext& ctx, const Directory& directory) {
    if (ctx.isJpegContainer || ctx.info.makerId != kMakerPanasonic) return;
    if (directory.rawJpegLength == 0) return;
    ImageRecord& record = RecordFor(ctx, directory);
    record.jpegOffset = directory.rawJpegPosition;
    record.jpegLength = directory.rawJpegLength;
    if (ctx.wantPrimary) {
        ctx.info.orientation = kUpright;
        record.orientation = kUpright;
    }
    ProbeRecord(ctx, record);
}

// Whether this library can make a picture of what the record describes.
bool IsDeliverable(const ImageRecord& record) {
    if (record.jpegOffset != 0 && record.jpegLength != 0) return true;
    if (record.width == 0 || record.height == 0 || record.stripOffset == 0 ||
        record.stripByteCount == 0 || record.bitsPerSample != 8)
        return false;
    switch (record.compression) {
        case kCompressionNone:
            return record.photometric == kPhotometricRgb || record.photometric == kPhotometricYCbCr;
        case kCompressionOldJpeg: return true;
        case kCompressionJpeg:
            return record.photometric == kPhotometricBlackIsZero ||
                   record.photometric == kPhotometricYCbCr;
        default: return false;
    }
}

bool WalkIfdEntries(ParseContext& ctx, Directory& directory) {
    SpendWork(ctx, kDirectoryBytes);
    const std::uint32_t count = ReadU16(ctx);
    if (count > kMaxEntries) return false;
    WalkTable(ctx, count, directory, kTags);
    TakePanasonicJpeg(ctx, directory);
    return true;
}

}  // namespace

bool WalkIfd(ParseContext& ctx, std::uint32_t base) {
    if (ctx.ifdDepth > kMaxSubIfdDepth) return false;
    Directory directory{base, ctx.imageRecords.Add()};
    if (directory.record == ImageRecordList::kNone) return false;
    ++ctx.ifdDepth;
    const bool accepted = WalkIfdEntries(ctx, directory);
    --ctx.ifdDepth;
    if (!accepted || !IsDeliverable(RecordFor(ctx, directory)))
        ctx.imageRecords.Remove(directory.record);
    return accepted;
}

}  // namespace qmx
