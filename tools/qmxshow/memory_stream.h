// An IStream over a growing buffer in memory, for the library to write a preview into.
#pragma once

#include <windows.h>

#include <objidl.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace qmx {

// Made by `Create` with one reference; used by one thread at a time.
class MemoryStream final : public IStream {
public:
    struct Releaser {
        void operator()(MemoryStream* stream) const { stream->Release(); }
    };
    using Owner = std::unique_ptr<MemoryStream, Releaser>;

    static Owner Create() { return Owner(new MemoryStream); }

    // Hands the contents over and leaves the stream empty, at its start.
    std::vector<std::uint8_t> TakeBytes();

    // A write or a change of size failed for want of memory.
    bool WasOutOfMemory() const { return outOfMemory; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    HRESULT STDMETHODCALLTYPE Read(void* data, ULONG length, ULONG* read) noexcept override;
    HRESULT STDMETHODCALLTYPE Write(const void* data, ULONG length,
                                    ULONG* written) noexcept override;

    HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move, DWORD origin,
                                   ULARGE_INTEGER* newPosition) noexcept override;
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER size) noexcept override;
    HRESULT STDMETHODCALLTYPE CopyTo(IStream* target, ULARGE_INTEGER length, ULARGE_INTEGER* read,
                                     ULARGE_INTEGER* written) noexcept override;
    HRESULT STDMETHODCALLTYPE Commit(DWORD flags) noexcept override;
    HRESULT STDMETHODCALLTYPE Revert() noexcept override;
    HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER offset, ULARGE_INTEGER length,
                                         DWORD type) noexcept override;
    HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER offset, ULARGE_INTEGER length,
                                           DWORD type) noexcept override;
    HRESULT STDMETHODCALLTYPE Stat(STATSTG* facts, DWORD flags) noexcept override;
    HRESULT STDMETHODCALLTYPE Clone(IStream** copy) noexcept override;

private:
    MemoryStream() = default;
    ~MemoryStream() = default;
    HRESULT Resize(std::uint64_t size) noexcept;
    std::uint64_t BytesLeft() const {
        return position < bytes.size() ? bytes.size() - position : 0;
    }

    LONG references = 1;
    bool outOfMemory = false;
    std::uint64_t position = 0;  // may lie behind the end, as streams allow
    std::vector<std::uint8_t> bytes;
};

}  // namespace qmx
