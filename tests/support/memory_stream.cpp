#include "support/memory_stream.h"

#include <algorithm>

namespace qmx::test {

HRESULT STDMETHODCALLTYPE MemoryStream::Write(const void* data, ULONG size, ULONG* written) {
    ++writes;
    if (bytes.size() < position + size) bytes.resize(position + size);
    const auto* from = static_cast<const std::uint8_t*>(data);
    std::copy(from, from + size, bytes.begin() + static_cast<std::ptrdiff_t>(position));
    position += size;
    if (written != nullptr) *written = size;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE MemoryStream::Seek(LARGE_INTEGER move, DWORD origin,
                                             ULARGE_INTEGER* newPosition) {
    ++seeks;
    if (origin != STREAM_SEEK_SET || move.QuadPart < 0) return E_INVALIDARG;
    position = static_cast<std::size_t>(move.QuadPart);
    if (newPosition != nullptr) newPosition->QuadPart = position;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE MemoryStream::SetSize(ULARGE_INTEGER size) {
    bytes.resize(static_cast<std::size_t>(size.QuadPart));
    return S_OK;
}

}  // namespace qmx::test
