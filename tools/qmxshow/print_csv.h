// Photos as a table: a heading row, then one row per file.
#pragma once

#include "photo.h"
#include "writer.h"

namespace qmx {

// The mark by which spreadsheets know UTF-8, and the names of the columns.
void PrintCsvHeading(Writer& out);
void PrintCsv(Writer& out, const Photo& photo);

}  // namespace qmx
