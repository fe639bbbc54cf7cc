// Photoshop's image resources: the input is the value of the tag.

#include "makernote/photoshop.h"
#include "promises.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace qmx;
    test::BytesContext context(test::Bytes(data, data + size));
    ReadPhotoshopResources(context.ctx, size);
    fuzz::CheckCursor(context.ctx);
    for (const ImageRecord& record : context.ctx.imageRecords)
        fuzz::Check(record.jpegLength != 0 && record.jpegOffset < size);
    context.ctx.imageRecords.Clear();
    return 0;
}
