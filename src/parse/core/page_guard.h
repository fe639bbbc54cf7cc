#pragma once
// Reads of the mapped view that fail.  A file on a removable medium or a network share can vanish
// while it is mapped, and touching its view then raises EXCEPTION_IN_PAGE_ERROR.  The guard turns
// that into the result 0.  It is a frame-based handler: it costs nothing per read, concerns one
// call on one thread, and leaves every other exception to the handlers around it.
//
// Destructors between the failed read and the guard do not run.  What is called under a guard
// therefore owns nothing: memory belongs to the record that the guard's caller releases.
//
// On other systems a failed read is a signal to the whole process, which is not a library's to
// handle: there the guard only calls.

#include <cstdint>

namespace qmx {

struct PageGuard {
    const std::uint8_t* view = nullptr;
    std::uint64_t size = 0;  // bytes
    bool suspended = false;  // code that is not ours runs
};

// Calls body(argument); its result, or 0 when a page of the view could not be read.
std::uint32_t CallGuarded(std::uint32_t (*body)(void*), void* argument, const PageGuard& guard);

template <class Body>
std::uint32_t RunGuarded(const PageGuard& guard, Body body) {
    const auto call = [](void* argument) -> std::uint32_t {
        return (*static_cast<Body*>(argument))();
    };
    return CallGuarded(call, &body, guard);
}

// Reads a byte of every page of the range, so that what fails does so before it is handed on.
void TouchPages(const std::uint8_t* bytes, std::uint64_t length);

// Around calls of code that is not ours, which must not be abandoned in its midst.
class GuardPause {
public:
    explicit GuardPause(PageGuard& guard);
    GuardPause(const GuardPause&) = delete;
    GuardPause& operator=(const GuardPause&) = delete;
    ~GuardPause();

private:
    PageGuard& guard_;
};

}  // namespace qmx
