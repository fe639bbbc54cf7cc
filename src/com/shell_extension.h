#pragma once
// The two registry values through which the shell finds CRawThmubnail.  Which extensions belong to
// the file class is left to whoever installs.

#include "parse/core/win32.h"

namespace qmx {

// Writes both for the whole machine.  Failures are not reported: without these values the classes
// still work.
void WriteShellExtension();

// Removes the file class with everything below it, and the approval.
void RemoveShellExtension();

}  // namespace qmx
