#include "parse/containers/ciff_mapping.h"

#include "makernote/canon_fields.h"
#include "makernote/maker_record.h"

namespace qmx {
namespace {

// Compacts whose focal lengths, see makernote/model_rules.cpp, are not in the usual unit.
constexpr std::int32_t kLongFineZoom = 526;
constexpr std::int32_t kFirstHundredths = 535;
constexpr std::int32_t kSecondHundredths = 536;
constexpr std::int32_t kFirstThousandths = 1000;  // from this number on it is 1/1000 mm

// In mm.  EOS bodies store them so.
float CanonFocalLength(std::int32_t value, std::int32_t modelId) {
    if (modelId >= kCanonFirstEos) return static_cast<float>(value);
    if (modelId == kFirstHundredths || modelId == kSecondHundredths) return ToField(value / 100.0);
    if (value < kFirstThousandths || modelId == kLongFineZoom)
        return ToField(value * 3.125 / 100.0);
    return ToField(value / 1000.0);
}

template <class Value>
void MapIfSet(Value value, Value& field) {
    if (IsSet(value)) field = value;
}

// -1 says that the camera does not tell.
bool TellsFlash(std::int32_t flashActivity) { return IsSet(flashActivity) && flashActivity != -1; }

}  // namespace

void MapCanonValues(ImageInfo& info) {
    const auto& fields = MakerRecord<CanonMakerFields>(info);
    if (IsSet(fields.focalLength))
        info.focalLength = CanonFocalLength(fields.focalLength, info.modelId);
    if (!IsSet(info.isoSpeed)) info.isoSpeed = fields.baseIso;
    MapIfSet(fields.targetAperture, info.aperture);
    MapIfSet(fields.targetExposureTime, info.exposureTime);
    if (IsSet(fields.exposureCompensation))
        info.exposureBias = CanonEv(fields.exposureCompensation);
    if (TellsFlash(fields.flashActivity)) info.flash = fields.flashActivity != 0 ? 1 : 0;
    MapIfSet(fields.canonImageWidth, info.pixelXDimension);
    MapIfSet(fields.canonImageHeight, info.pixelYDimension);
}

}  // namespace qmx
