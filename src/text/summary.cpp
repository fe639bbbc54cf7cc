#include "text/summary.h"

#include <span>

#include "makernote/maker_record.h"
#include "makernote/olympus_fields.h"
#include "text/exif_names.h"
#include "text/maker_text.h"
#include "text/text_buffer.h"
#include "text/value_format.h"
#include "text/value_names.h"

namespace qmx {
namespace {

constexpr std::int32_t kUprightOrientation = 1;
constexpr std::int32_t kFlashFiredBit = 1;

void StoreCamera(const ImageInfo& info, InfoRequest& request) {
    const std::string_view make = FieldText(info.cameraMake);
    if (!make.empty()) {
        TextBuffer text(request.makeText);
        WidenMakerString(text, make, std::size(request.makeText));
    }
    TextBuffer text(request.modelText);
    WidenMakerString(text, FieldText(info.cameraModel), std::size(request.modelText));
}

// Older files give the size in the note alone.  An area that no decoder has laid out holds zeros.
void StoreOlympusSize(const OlympusMakerFields& note, InfoRequest& request) {
    if (note.imageWidth <= 0 || note.imageHeight <= 0) return;
    request.imageWidth = note.imageWidth;
    request.imageHeight = note.imageHeight;
}

void StoreImageSize(const ImageInfo& info, InfoRequest& request) {
    request.imageWidth = request.imageHeight = INT_UNSET;
    if (IsSet(info.pixelXDimension) && IsSet(info.pixelYDimension)) {
        request.imageWidth = info.pixelXDimension;
        request.imageHeight = info.pixelYDimension;
    } else if (info.hasMakerNote != 0 && info.makerId == kMakerOlympus) {
        StoreOlympusSize(MakerRecord<OlympusMakerFields>(info), request);
    }
}

void StoreValues(const ImageInfo& info, InfoRequest& request) {
    request.orientation = static_cast<std::uint32_t>(IsSet(info.orientation) ? info.orientation
                                                                             : kUprightOrientation);
    request.exposureProgram = info.exposureProgram;
    request.isoSpeed = info.isoSpeed;
    request.exposureBias = info.exposureBias;
    request.focalLength = info.focalLength;
    request.focalLength35mm = info.focalLengthIn35mm;
    request.meteringMode = info.meteringMode;
    request.whiteBalance = info.whiteBalance;
    request.maxAperture = info.maxAperture;
    request.exposureTime = IsSet(info.exposureTime) ? info.exposureTime : info.shutterSpeed;
    request.fNumber = IsSet(info.fNumber) ? info.fNumber : info.aperture;
    request.flashFired = IsSet(info.flash) && (info.flash & kFlashFiredBit) != 0 ? 1u : 0u;
    ParseExifDateTime(FieldText(info.dateTimeOriginal), &request.captureTime);
}

// Replaces the text at `dst` when the maker has a wording.
void StoreMakerWording(const ImageInfo& info, MakerWording wording, std::span<wchar_t> dst) {
    wchar_t storage[kValueCapacity];
    TextBuffer text(storage);
    if (wording != nullptr && wording(info, text)) TextBuffer(dst).Append(text.Text());
}

void StoreWordings(const ImageInfo& info, InfoRequest& request) {
    request.lensText[0] = 0;
    TextBuffer whiteBalance(request.whiteBalanceText);
    if (IsSet(info.whiteBalance)) {
        LookupIndexedName(whiteBalance, info.whiteBalance, kWhiteBalanceNames);
    }
    if (info.hasMakerNote == 0) return;
    const MakerText& maker = FindMakerText(info.makerId);
    StoreMakerWording(info, maker.lensText, request.lensText);
    StoreMakerWording(info, maker.whiteBalanceText, request.whiteBalanceText);
}

}  // namespace

void BuildSummary(const ImageInfo& info, InfoRequest* request) {
    if (request == nullptr) return;
    StoreCamera(info, *request);
    StoreImageSize(info, *request);
    StoreValues(info, *request);
    StoreWordings(info, *request);
    BuildLongText(info, *request);
    BuildShortText(*request);
}

}  // namespace qmx
