// One photo as readable text.
#pragma once

#include "photo.h"
#include "writer.h"

namespace qmx {

void PrintHeading(Writer& out, const std::wstring& path);
void PrintText(Writer& out, const Photo& photo);

// One line: the stored number and what it means.
void PrintOrientation(Writer& out, const Photo& photo);

}  // namespace qmx
