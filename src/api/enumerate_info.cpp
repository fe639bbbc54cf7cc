#include "api/enumerate_info.h"

#include "api/requests.h"
#include "text/enumerate.h"

namespace qmx {

std::uint32_t EnumerateInfo(const wchar_t* path, const EnumContext* context) {
    ImageInfo info;
    if (context == nullptr || ParseFile(path, nullptr, &info, false) == 0) return kEnumFailed;
    EmitInfo(info, *context);
    return 1;
}

}  // namespace qmx
