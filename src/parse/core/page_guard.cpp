#include "parse/core/page_guard.h"

#include "parse/core/win32.h"

namespace qmx {
namespace {

constexpr std::uint64_t kPageBytes = 4096;

#ifdef _WIN32
// The second parameter of the exception is the address that was read.
bool IsFailedRead(const EXCEPTION_RECORD& record, const PageGuard& guard) {
    if (guard.suspended || record.ExceptionCode != EXCEPTION_IN_PAGE_ERROR ||
        record.NumberParameters < 2)
        return false;
    const std::uint64_t offset =
        record.ExceptionInformation[1] - reinterpret_cast<std::uintptr_t>(guard.view);
    return offset < (guard.size + kPageBytes - 1) / kPageBytes * kPageBytes;
}
#endif

}  // namespace

#if defined(_MSC_VER)

std::uint32_t CallGuarded(std::uint32_t (*body)(void*), void* argument, const PageGuard& guard) {
    __try {
        return body(argument);
    } __except (IsFailedRead(*GetExceptionInformation()->ExceptionRecord, guard)
                    ? EXCEPTION_EXECUTE_HANDLER
                    : EXCEPTION_CONTINUE_SEARCH) {
        return 0;
    }
}

#elif defined(_WIN32)

// MinGW has no __try: the frame with the handler is made in page_guard.S.
extern "C" {

std::uint32_t QmxCallGuarded(std::uint32_t (*body)(void*), void* argument, const PageGuard* guard);
extern char QmxGuardResume[];  // where the frame goes on when the body is abandoned

EXCEPTION_DISPOSITION QmxGuardHandler(EXCEPTION_RECORD* record, void* frame, CONTEXT*,
                                      DISPATCHER_CONTEXT* dispatcher) {
    constexpr std::ptrdiff_t kGuardInFrame = 40;
    constexpr DWORD kUnwinding = 0x02 | 0x04;  // EXCEPTION_UNWINDING, EXCEPTION_EXIT_UNWIND
    const PageGuard& guard =
        **reinterpret_cast<const PageGuard**>(static_cast<char*>(frame) + kGuardInFrame);
    if ((record->ExceptionFlags & kUnwinding) == 0 && IsFailedRead(*record, guard))
        RtlUnwindEx(frame, QmxGuardResume, record, nullptr, dispatcher->ContextRecord,
                    dispatcher->HistoryTable);
    return ExceptionContinueSearch;
}

}  // extern "C"

std::uint32_t CallGuarded(std::uint32_t (*body)(void*), void* argument, const PageGuard& guard) {
    return QmxCallGuarded(body, argument, &guard);
}

#else

std::uint32_t CallGuarded(std::uint32_t (*body)(void*), void* argument, const PageGuard&) {
    return body(argument);
}

#endif

void TouchPages(const std::uint8_t* bytes, std::uint64_t length) {
    const volatile std::uint8_t* const at = bytes;
    for (std::uint64_t i = 0; i < length; i += kPageBytes) static_cast<void>(at[i]);
    if (length != 0) static_cast<void>(at[length - 1]);
}

GuardPause::GuardPause(PageGuard& guard) : guard_(guard) { guard_.suspended = true; }

GuardPause::~GuardPause() { guard_.suspended = false; }

}  // namespace qmx
