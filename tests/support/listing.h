#pragma once
// The labelled list of a record in readable form.

#include <qmxexif.h>

#include <string>
#include <vector>

#include "support/utf8.h"
#include "text/enumerate.h"

namespace qmx::test {

using Lines = std::vector<std::string>;

// One line per item of the MakerNote's section: "label=value", or "label" for a null value.
inline Lines ListMakerNote(const ImageInfo& info) {
    struct Section {
        Lines lines;
        bool entered = false;
    } section;
    const auto collect = [](UINT32 kind, const WCHAR* label, const WCHAR* value,
                            INT_PTR user) -> INT_PTR {
        auto& into = *reinterpret_cast<Section*>(user);
        if (kind == QMXEXIF_KIND_HEADING) {
            into.entered = Utf8(label) == "メーカーノート";
        } else if (into.entered) {
            into.lines.push_back(Utf8(label) + (value != nullptr ? "=" + Utf8(value) : ""));
        }
        return 0;
    };
    EmitInfo(info, {collect, reinterpret_cast<INT_PTR>(&section)});
    return section.lines;
}

}  // namespace qmx::test
