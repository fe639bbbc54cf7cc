#pragma once
// An IStream over memory that counts what the library does with it.

#include <cstdint>
#include <vector>

#include "support/written_stream.h"

namespace qmx::test {

class MemoryStream : public WrittenStream {
public:
    std::vector<std::uint8_t> bytes;
    std::size_t position = 0;
    int writes = 0;
    int seeks = 0;

    HRESULT STDMETHODCALLTYPE Write(const void* data, ULONG size, ULONG* written) override;
    HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move, DWORD origin,
                                   ULARGE_INTEGER* newPosition) override;
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER size) override;
};

}  // namespace qmx::test
