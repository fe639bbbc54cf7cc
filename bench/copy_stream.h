// The stream of the thumbnail request: the caller's least, one copy into memory that is there.
#pragma once

#include <qmxexif.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace qmx::bench {

// Copies what is written into a buffer that is kept from request to request.
class CopyStream : public IStream {
public:
    explicit CopyStream(std::size_t capacity) : bytes_(capacity) {}
    virtual ~CopyStream() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE Read(void*, ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Write(const void* source, ULONG length, ULONG* written) override {
        if (position_ + length > bytes_.size()) bytes_.resize(position_ + length);
        std::memcpy(bytes_.data() + position_, source, length);
        position_ += length;
        if (written != nullptr) *written = length;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move, DWORD, ULARGE_INTEGER* at) override {
        position_ = static_cast<std::size_t>(move.QuadPart);  // the library seeks from the start
        if (at != nullptr) at->QuadPart = position_;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*,
                                     ULARGE_INTEGER*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Commit(DWORD) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Revert() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Stat(STATSTG*, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IStream**) override { return E_NOTIMPL; }

private:
    std::vector<std::uint8_t> bytes_;
    std::size_t position_ = 0;
};

}  // namespace qmx::bench
