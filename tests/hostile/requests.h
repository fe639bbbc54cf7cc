#pragma once
// Every exported function on one file: what they answer, whether they keep what the header
// promises, and how long they take.

#include <array>
#include <cstdint>

#include "support/exports.h"
#include "support/written_stream.h"

namespace qmx::hostile {

// Digests of what each request returned and wrote; equal answers have equal digests.
struct Answers {
    std::array<std::uint64_t, 24> digests = {};
    std::uint32_t count = 0;
    // Of these, the first broken promise; null when all were kept.
    const char* broken = nullptr;
    bool parsed = false;     // there is metadata
    bool delivered = false;  // and a picture
    // What each request took; those that may develop a raw file apart.
    std::array<float, 24> milliseconds = {};
    std::array<float, 24> developMilliseconds = {};
};

// Loads the library: on Windows the DLL that QMX_DLL names, else the one beside the program.
void LoadLibraryUnderTest();

// The name of the request with this place in `digests`.
const char* NameOfRequest(std::size_t place);

// Allocates nothing itself, so that whatever is still allocated afterwards is the library's.
Answers AskEverything(const wchar_t* path);

// Swallows what is written and keeps a digest of it.
class DigestStream final : public test::WrittenStream {
public:
    test::Digest digest;
    std::uint64_t size = 0;
    std::uint64_t position = 0;

    HRESULT STDMETHODCALLTYPE Write(const void* data, ULONG length, ULONG* written) override;
    HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move, DWORD origin,
                                   ULARGE_INTEGER* newPosition) override;
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER newSize) override;
};

}  // namespace qmx::hostile
