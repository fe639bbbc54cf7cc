// What the fuzz targets of raw development share: a run over one file in memory that checks the
// promises that hold for any file, and a wrapping of bare sample data into a file.
#pragma once

#include <cstdint>

#include "promises.h"
#include "rawdev/pipeline.h"
#include "support/memory_stream.h"
#include "support/raw_builder.h"

namespace qmx::fuzz {

// The stream is untouched, or holds one whole bitmap of the size that the dimensions make.
inline void DevelopAll(const std::uint8_t* data, std::size_t size) {
    for (const std::uint32_t level : {0u, 1u, 3u}) {
        RawDecodeState state;
        state.file.data = data;
        state.file.size = size;
        test::MemoryStream stream;
        const std::uint32_t written = DevelopView(state, &stream, level);
        Check(state.error == S_OK);
        Check(stream.writes == (written != 0 ? 3 : 0) && stream.position == 0);
        if (written == 0) continue;
        const bool transposed = (state.flip & 4) != 0;
        const std::size_t width = transposed ? state.outputHeight : state.outputWidth;
        const std::size_t height = transposed ? state.outputWidth : state.outputHeight;
        Check(stream.bytes.size() == 54 + (width * 3 + 3) / 4 * 4 * height);
    }
}

// The input's first bytes make the form of the file, the rest is its sample data.
inline test::RawForm TakeForm(const std::uint8_t*& data, std::size_t& size) {
    test::RawForm form;
    if (size < 4) return form;
    form.width = 1 + data[0];
    form.height = 22 + data[1] % 64;
    form.bits = 8 + data[2] % 9;
    form.samplesPerPixel = (data[3] & 1) != 0 ? 3 : 1;
    form.order = (data[3] & 2) != 0 ? test::Order::kBig : test::Order::kLittle;
    data += 4;
    size -= 4;
    return form;
}

inline void DevelopAs(const test::RawForm& form, const std::uint8_t* data, std::size_t size) {
    const test::Bytes file = test::BuildRaw(form, test::Bytes(data, data + size));
    DevelopAll(file.data(), file.size());
}

}  // namespace qmx::fuzz
