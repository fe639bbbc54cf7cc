#include "hostile/requests.h"

#include <algorithm>
#include <chrono>
#include <tuple>

#include "bench/platform.h"

namespace qmx::hostile {
namespace {

bool IsRaw(const wchar_t* path) {
    const int length = lstrlenW(path);
    if (length < 4) return false;
    const wchar_t* extension = path + length - 4;
    return lstrcmpiW(extension, L".raw") == 0 || lstrcmpiW(extension, L".erf") == 0 ||
           lstrcmpiW(extension, L".3fr") == 0;
}

// The promise that an answer breaks, or null.
const char* BrokenPromise(const test::Export& request, UINT32 result, const test::Caller& caller,
                          const DigestStream& stream, bool parsed) {
    const bool succeeded = result == 1;
    if (!succeeded && result != request.Failure()) return "a result is neither 1 nor failure";
    if (request.Has(test::Export::kMetadata) && succeeded != parsed)
        return "an answer without a picture and the list disagree";
    if (!caller.isListSound) return "the list has an item before a heading, or no label";
    if (caller.listed != 0 && !succeeded) return "a list was made by a failure";
    if (!caller.KeptBounds()) return "a text was written beyond its buffer";
    if (request.Has(test::Export::kBasic) && !caller.KeptBasicBounds())
        return "the basic record was written beyond its 164 bytes";
    if (stream.references != 1) return "the stream was kept or released";
    if (succeeded) return stream.position != 0 ? "the stream does not stand at its start" : nullptr;
    if (!caller.HasUntouchedTexts()) return "texts were written after failure";
    return caller.orientation != test::Caller::kNoOrientation
               ? "an orientation was stored after failure"
               : nullptr;
}

}  // namespace

HRESULT STDMETHODCALLTYPE DigestStream::Write(const void* data, ULONG length, ULONG* written) {
    digest.Add(position);
    digest.Add(data, length);
    position += length;
    size = std::max(size, position);
    if (written != nullptr) *written = length;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE DigestStream::Seek(LARGE_INTEGER move, DWORD origin,
                                             ULARGE_INTEGER* newPosition) {
    if (origin != STREAM_SEEK_SET || move.QuadPart < 0) return E_INVALIDARG;
    position = static_cast<std::uint64_t>(move.QuadPart);
    if (newPosition != nullptr) newPosition->QuadPart = position;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE DigestStream::SetSize(ULARGE_INTEGER newSize) {
    size = newSize.QuadPart;
    digest.Add(size);
    return S_OK;
}

void LoadLibraryUnderTest() {
#ifdef _WIN32
    if (_wgetenv(L"QMX_DLL") == nullptr) {
        const auto beside = bench::FindProgramFolder() / bench::kLibraryName;
        _wputenv_s(L"QMX_DLL", beside.c_str());
    }
#endif
    test::Library();
}

const char* NameOfRequest(std::size_t place) {
    const auto exports = test::Exports();
    return place < exports.size() ? exports[place].name : "a COM object";
}

Answers AskEverything(const wchar_t* path) {
    const bool isRaw = IsRaw(path);
    Answers answers;
    for (const test::Export& request : test::Exports()) {
        DigestStream stream;
        test::Caller caller(&stream);
        const auto start = std::chrono::steady_clock::now();
        const UINT32 result = request.call(path, caller);
        const std::chrono::duration<float, std::milli> taken =
            std::chrono::steady_clock::now() - start;
        const bool hasPicture = request.Has(test::Export::kStream);
        auto& times = hasPicture && isRaw ? answers.developMilliseconds : answers.milliseconds;
        times[answers.count] = taken.count();
        if (caller.listed != 0) answers.parsed = true;
        if (hasPicture) answers.delivered |= result == 1;
        const char* broken = BrokenPromise(request, result, caller, stream, answers.parsed);
        if (answers.broken == nullptr) answers.broken = broken;
        test::Digest digest = stream.digest;
        for (const std::uint64_t part : {std::uint64_t{result}, stream.size, caller.Written()})
            digest.Add(part);
        answers.digests[answers.count++] = digest.value;
    }
    return answers;
}

}  // namespace qmx::hostile
