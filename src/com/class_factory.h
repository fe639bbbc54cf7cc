#pragma once
// The factories that DllGetClassObject returns.

#include "com/module.h"

namespace qmx {

using CreateFunction = HRESULT(CQMExifModule& module, IUnknown* outer, REFIID iid, void** out);

// A factory of the objects that `create` makes.
HRESULT CreateClassFactory(CQMExifModule& module, CreateFunction* create, REFIID iid, void** out);

}  // namespace qmx
