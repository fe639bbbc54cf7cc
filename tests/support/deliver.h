#pragma once
// Parses that deliver a picture, and files that are damaged in every place.

#include <gtest/gtest.h>

#include "parse/containers/container.h"
#include "support/memory_stream.h"
#include "support/parse.h"

namespace qmx::test {

// The result of one parse with a stream; without a write there are no bytes.
struct Delivered {
    std::uint8_t result;
    Bytes bytes;
    int writes;
};

inline Delivered Deliver(const Bytes& file, bool wantPrimary = false) {
    const Bytes before = {1, 2};
    BytesContext context(file);
    MemoryStream stream;
    stream.bytes = before;
    stream.position = before.size();
    context.ctx.outStream = &stream;
    const std::uint8_t result = ParseContainer(context.ctx, wantPrimary);
    EXPECT_EQ(context.ctx.thumbDone, stream.writes);
    if (stream.writes == 0) {
        EXPECT_EQ(stream.bytes, before);
        stream.bytes.clear();
    }
    return {result, stream.bytes, stream.writes};
}

// Calls `use` with every truncation of the bytes, and with each byte changed in four ways.
template <class Use>
void ForEachDamage(const Bytes& sound, Use use) {
    for (std::size_t i = 0; i < sound.size(); ++i) {
        use(Bytes(sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(i)));
        for (const unsigned change : {0x01u, 0x40u, 0x80u, 0xFFu}) {
            Bytes changed = sound;
            changed[i] = static_cast<std::uint8_t>(changed[i] ^ change);
            use(changed);
        }
    }
}

}  // namespace qmx::test
