#pragma once
// The pictures that a file's directories describe: previews, thumbnails, the image itself.

#include <cstddef>
#include <cstdint>

namespace qmx {

// TIFF 6 values of the tags that matter here.
enum : std::int32_t {
    kCompressionNone = 1,
    kCompressionOldJpeg = 6,
    kCompressionJpeg = 7,
    kPhotometricBlackIsZero = 1,
    kPhotometricRgb = 2,
    kPhotometricYCbCr = 6,
    kPlanarChunky = 1,
    kUpright = 1,
};

struct ImageRecord {
    std::int32_t width;  // pixels
    std::int32_t height;
    std::int32_t samplesPerPixel;
    std::int32_t bitsPerSample;  // of the first sample
    std::uint32_t stripOffset;   // position in the file
    std::int32_t orientation;
    std::uint32_t stripByteCount;  // of all strips together
    std::int32_t rowsPerStrip;
    std::int32_t compression;
    std::int32_t photometric;
    std::uint32_t jpegOffset;  // position in the file
    std::uint32_t jpegLength;
    std::int32_t planarConfig;
    std::int32_t ycbcrSubH;
    std::int32_t ycbcrSubV;
    float lumaRed;  // YCbCr coefficients, all 0 when absent
    float lumaGreen;
    float lumaBlue;
};

// Has room for the usual few, then grows by doubling; addressed by index, since growing moves the
// elements.
class ImageRecordList {
public:
    static constexpr std::size_t kMaxCount = 0x0FFFFFFF;
    static constexpr std::size_t kUsualCount = 8;
    static constexpr std::size_t kNone = SIZE_MAX;

    ImageRecordList() {}  // NOLINT(modernize-use-equals-default): that would zero the room
    ImageRecordList(const ImageRecordList&) = delete;
    ImageRecordList& operator=(const ImageRecordList&) = delete;
    ~ImageRecordList() { Clear(); }

    // Appends a zeroed upright record; kNone when the list is full or memory is short.
    std::size_t Add();
    void Remove(std::size_t index);
    void Clear();

    std::size_t size() const { return count_; }
    ImageRecord& operator[](std::size_t index) { return records_[index]; }
    ImageRecord* begin() { return records_; }
    ImageRecord* end() { return records_ + count_; }

private:
    ImageRecord* records_ = usual_;
    std::size_t count_ = 0;
    std::size_t capacity_ = kUsualCount;
    ImageRecord usual_[kUsualCount];
};

}  // namespace qmx
