#pragma once
// Carries registration scripts out and undoes them.

#include "com/script.h"

namespace qmx {

// Writes a script's keys and values, stopping at the first failure.  With `perUser` what is meant
// for HKEY_CLASSES_ROOT goes to the current user's classes.
HRESULT ApplyScript(const Script& script, bool perUser);

// The reverse: keys made for the script go with all below them, kept keys lose the script's values
// only.  Goes on after failures and returns the first.
HRESULT UndoScript(const Script& script, bool perUser);

// The scripts among this module's resources.
class Registrar {
public:
    explicit Registrar(bool perUser);

    HRESULT Register(WORD resource) const;
    HRESULT Unregister(WORD resource) const;

private:
    HRESULT Load(WORD resource, Script& script) const;

    ScriptVariables variables_;
    bool perUser_;
};

}  // namespace qmx
