// One photo as one JSON object on one line.
#pragma once

#include "photo.h"
#include "writer.h"

namespace qmx {

void PrintJson(Writer& out, const Photo& photo);

}  // namespace qmx
