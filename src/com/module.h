#pragma once
// The COM server as a whole: its classes, its lock count and its registration.

#include <qmx_interfaces.h>

#include "com/module_lock.h"
#include "com/shared_type_info.h"
#include "parse/core/win32.h"

namespace qmx {

class CQMExifModule {
public:
    LockCount& locks() { return locks_; }
    SharedTypeInfo& exifParserType() { return exifParserType_; }
    SharedTypeInfo& rawThmubnailType() { return rawThmubnailType_; }

    // From now on classes are registered for the current user alone.
    void RegisterPerUser() { perUser_ = true; }

    // The factory of a class.
    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** out);

    // Writes the shell's values, then the module's and the classes' registration; the result is
    // that of the first script that failed, where the work ends.
    HRESULT Register() const;
    // Removes all that Register wrote, as far as it can; the result is the first failure.
    HRESULT Unregister() const;

private:
    LockCount locks_;
    SharedTypeInfo exifParserType_{__uuidof(IExifParser)};
    SharedTypeInfo rawThmubnailType_{__uuidof(IRawThmubnail)};
    bool perUser_ = false;
};

}  // namespace qmx
