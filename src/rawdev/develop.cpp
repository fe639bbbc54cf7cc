#include "rawdev/develop.h"

namespace qmx {

// No loader reads any raw format yet, so every file is refused.
std::uint32_t DevelopRawFile(const wchar_t*, IStream*, std::uint32_t, InfoRequest*) { return 0; }

}  // namespace qmx
