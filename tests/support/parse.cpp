#include "support/parse.h"

#include <algorithm>

#include "parse/containers/container.h"

namespace qmx::test {

BytesContext::BytesContext(const Bytes& bytes, std::uint16_t byteOrder)
    : copy_(new std::uint8_t[bytes.size()]) {
    std::copy(bytes.begin(), bytes.end(), copy_);
    ctx.viewBase = copy_;
    ctx.cursor = copy_;
    ctx.fileSize = static_cast<std::int64_t>(bytes.size());
    ResetParse(ctx);
    ctx.byteOrder = byteOrder;
}

BytesContext::~BytesContext() {
    FreeWorkBuffer(ctx);
    delete[] copy_;
}

Parsed Parse(const Bytes& file) {
    BytesContext context(file);
    const bool parsed = ParseContainer(context.ctx, false) != 0;
    return {parsed, context.ctx.info};
}

}  // namespace qmx::test
