#pragma once
// Both COM objects on one file.  Natively there are none, and nothing is asked.

#include "hostile/requests.h"

#ifdef _WIN32
#include "com/com_support.h"
#endif

namespace qmx::hostile {

// In an apartment of the thread that makes it.
class Objects {
public:
    // Adds the digests of the automation object's six methods and of the shell's thumbnail.
    void Ask(const wchar_t* path, Answers& answers);
    // False when an object has not been released.
    bool AllReleased() const;

#ifdef _WIN32
private:
    void AskParser(const wchar_t* path, Answers& answers);
    void AskProvider(const wchar_t* path, Answers& answers);

    const test::Apartment apartment_;
    const test::ComModule module_;
#endif
};

}  // namespace qmx::hostile
