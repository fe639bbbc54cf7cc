// One run over all files: reads each, prints it, writes what was asked for, counts what failed.
#pragma once

#include "library.h"
#include "options.h"
#include "writer.h"

namespace qmx {

// Results, which are the process's exit status as well.
inline constexpr int kAllFine = 0;
inline constexpr int kSomeFailed = 1;
inline constexpr int kNothingDone = 2;

int RunSession(const Options& options, const Library& library, Writer& out, Writer& err);

}  // namespace qmx
