#include "api/enumerate_info.h"

#include "api/requests.h"
#include "text/enumerate.h"

namespace qmx {

std::uint32_t EnumerateInfo(const wchar_t* path, const EnumContext* context) {
    ImageInfoRoom room;
    if (context == nullptr || ParseFile(path, nullptr, &room.info, false) == 0) return kEnumFailed;
    EmitInfo(room.info, *context);
    return 1;
}

}  // namespace qmx
