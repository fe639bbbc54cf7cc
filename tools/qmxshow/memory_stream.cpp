#include "memory_stream.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>
#include <utility>

namespace qmx {
namespace {

// Far above any preview; keeps a runaway writer from eating the machine.
constexpr std::uint64_t kMaxBytes = std::uint64_t{1} << 31;

}  // namespace

std::vector<std::uint8_t> MemoryStream::TakeBytes() {
    position = 0;
    return std::exchange(bytes, {});
}

HRESULT MemoryStream::QueryInterface(REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != __uuidof(IUnknown) && iid != __uuidof(ISequentialStream) &&
        iid != __uuidof(IStream)) {
        return E_NOINTERFACE;
    }
    *object = static_cast<IStream*>(this);
    AddRef();
    return S_OK;
}

ULONG MemoryStream::AddRef() noexcept {
    return static_cast<ULONG>(InterlockedIncrement(&references));
}

ULONG MemoryStream::Release() noexcept {
    const LONG left = InterlockedDecrement(&references);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

HRESULT MemoryStream::Read(void* data, ULONG length, ULONG* read) noexcept {
    if (read) *read = 0;
    if (!data) return STG_E_INVALIDPOINTER;
    const ULONG count = static_cast<ULONG>((std::min<std::uint64_t>)(length, BytesLeft()));
    if (count != 0) std::memcpy(data, bytes.data() + position, count);
    position += count;
    if (read) *read = count;
    return count == length ? S_OK : S_FALSE;
}

HRESULT MemoryStream::Write(const void* data, ULONG length, ULONG* written) noexcept {
    if (written) *written = 0;
    if (length == 0) return S_OK;
    if (!data) return STG_E_INVALIDPOINTER;
    if (position > kMaxBytes) return STG_E_MEDIUMFULL;
    const std::uint64_t end = position + length;
    if (end > bytes.size()) {
        const HRESULT result = Resize(end);
        if (FAILED(result)) return result;
    }
    std::memcpy(bytes.data() + position, data, length);
    position = end;
    if (written) *written = length;
    return S_OK;
}

HRESULT MemoryStream::Seek(LARGE_INTEGER move, DWORD origin, ULARGE_INTEGER* newPosition) noexcept {
    std::uint64_t from = 0;
    if (origin == STREAM_SEEK_CUR) {
        from = position;
    } else if (origin == STREAM_SEEK_END) {
        from = bytes.size();
    } else if (origin != STREAM_SEEK_SET) {
        return STG_E_INVALIDFUNCTION;
    }
    const std::uint64_t target = from + static_cast<std::uint64_t>(move.QuadPart);
    // Before the start, or past what 64 signed bits hold.
    if (target > static_cast<std::uint64_t>(INT64_MAX)) return STG_E_INVALIDFUNCTION;
    position = target;
    if (newPosition) newPosition->QuadPart = position;
    return S_OK;
}

HRESULT MemoryStream::SetSize(ULARGE_INTEGER size) noexcept { return Resize(size.QuadPart); }

HRESULT MemoryStream::CopyTo(IStream* target, ULARGE_INTEGER length, ULARGE_INTEGER* read,
                             ULARGE_INTEGER* written) noexcept {
    if (read) read->QuadPart = 0;
    if (written) written->QuadPart = 0;
    if (!target) return STG_E_INVALIDPOINTER;
    const std::uint64_t wanted = (std::min<std::uint64_t>)(length.QuadPart, BytesLeft());
    ULONG done = 0;
    HRESULT result = S_OK;
    if (wanted != 0) {
        result = target->Write(bytes.data() + position, static_cast<ULONG>(wanted), &done);
    }
    if (SUCCEEDED(result)) position += wanted;
    if (read) read->QuadPart = wanted;
    if (written) written->QuadPart = done;
    return result;
}

HRESULT MemoryStream::Commit(DWORD) noexcept { return S_OK; }

HRESULT MemoryStream::Revert() noexcept { return S_OK; }  // nothing is ever pending

HRESULT MemoryStream::LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept {
    return STG_E_INVALIDFUNCTION;
}

HRESULT MemoryStream::UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept {
    return STG_E_INVALIDFUNCTION;
}

HRESULT MemoryStream::Stat(STATSTG* facts, DWORD) noexcept {
    if (!facts) return STG_E_INVALIDPOINTER;
    *facts = {};  // no name
    facts->type = STGTY_STREAM;
    facts->cbSize.QuadPart = bytes.size();
    facts->grfMode = STGM_READWRITE;
    return S_OK;
}

// A clone would share this stream's bytes; no writer of previews needs one.
HRESULT MemoryStream::Clone(IStream** copy) noexcept {
    if (!copy) return STG_E_INVALIDPOINTER;
    *copy = nullptr;
    return E_NOTIMPL;
}

HRESULT MemoryStream::Resize(std::uint64_t size) noexcept {
    if (size > kMaxBytes) return STG_E_MEDIUMFULL;
    try {
        bytes.resize(static_cast<std::size_t>(size));
        return S_OK;
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    outOfMemory = true;
    return E_OUTOFMEMORY;
}

}  // namespace qmx
