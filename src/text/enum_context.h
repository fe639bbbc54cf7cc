#pragma once
// Where the labelled list goes: the caller's callback.  With a null callback nothing is emitted.

#include "parse/core/win32.h"

#include <qmxexif.h>

namespace qmx {

struct EnumContext {
    ExifEnumCallback callback;
    INT_PTR user;
};

void EmitHeading(const EnumContext& context, const wchar_t* label);

// `value` is null for an item that introduces the sub-items after it.
void EmitItem(const EnumContext& context, const wchar_t* label, const wchar_t* value);

// A detail of the item before; its label, of any length, is marked as such.  Returns the
// callback's result, -1 without a callback.
INT_PTR EmitSubItem(const EnumContext& context, const wchar_t* label, const wchar_t* value);

}  // namespace qmx
