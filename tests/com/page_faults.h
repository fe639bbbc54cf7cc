#pragma once
// Views whose pages cannot be read, and what the DLL holds while it meets them.  The DLL's imports
// are led through here: its views become copies that end in pages without access, and what it
// takes and gives back is counted, each thread for itself.

#include <qmxexif.h>

#include <cstddef>

namespace qmx::test {

enum class Fault {
    kInPage,  // as of a file that has vanished
    kAccess,  // an ordinary access violation
};

// The next views of this thread can be read up to this byte, and no further.
inline constexpr std::size_t kWhole = static_cast<std::size_t>(-1);
void ReadableUpTo(std::size_t bytes, Fault fault = Fault::kInPage);

// What the DLL did on this thread.
struct Traffic {
    int faults;   // reads that failed
    int views;    // mapped and not unmapped
    int handles;  // opened and not closed
    int blocks;   // of memory, allocated and not freed
};
Traffic& ThreadTraffic();

// Memory of the test's own, one page that cannot be read until it is mended.
const volatile char* BrokenPage();

// Whether allocations of the DLL on this thread read that page first.
void ReadBrokenPageInAllocations(bool read);

// In place of the program's filter for exceptions that nobody handles: makes the page readable and
// lets the read be repeated.
class MendingFilter {
public:
    MendingFilter();
    MendingFilter(const MendingFilter&) = delete;
    MendingFilter& operator=(const MendingFilter&) = delete;
    ~MendingFilter();
    int mended() const;

private:
    LPTOP_LEVEL_EXCEPTION_FILTER before_;
};

// Leads the imports of a loaded DLL through here, and makes failing reads look as they should,
// until the end of the scope.
class PatchedModule {
public:
    explicit PatchedModule(HMODULE module);
    PatchedModule(const PatchedModule&) = delete;
    PatchedModule& operator=(const PatchedModule&) = delete;
    ~PatchedModule();

private:
    void Swap();

    HMODULE module_;
    void* handler_;
};

}  // namespace qmx::test
