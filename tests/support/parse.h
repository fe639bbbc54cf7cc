#pragma once
// Runs readers over bytes in memory.

#include "parse/core/cursor.h"
#include "parse/core/parse_context.h"
#include "support/tiff_builder.h"

namespace qmx::test {

// A context whose "file" is exactly these bytes, so that reading beyond them is seen.
class BytesContext {
public:
    explicit BytesContext(const Bytes& bytes, std::uint16_t byteOrder = kLittleEndian);
    ~BytesContext();
    BytesContext(const BytesContext&) = delete;
    BytesContext& operator=(const BytesContext&) = delete;

    ParseContext ctx;

private:
    std::uint8_t* copy_;
};

// The result of one parse without a stream; `parsed` tells whether it succeeded.
struct Parsed {
    bool parsed;
    ImageInfo info;
};
Parsed Parse(const Bytes& file);

}  // namespace qmx::test
