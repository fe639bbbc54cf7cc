#pragma once
// What the texts say of a maker's record, in readable form.

#include <gtest/gtest.h>
#include <qmxexif.h>

#include <algorithm>
#include <string>
#include <vector>

#include "makernote/maker_record.h"
#include "support/utf8.h"
#include "text/enumerate.h"
#include "text/maker_text.h"
#include "text/text_buffer.h"

namespace qmx::test {

// As the maker's decoder leaves it.
template <class Fields>
ImageInfo InfoOf(MakerId maker, const Fields& fields, std::int32_t modelId = 0) {
    ImageInfo info;
    info.makerId = maker;
    info.modelId = modelId;
    info.hasMakerNote = 1;
    ResetMakerRecord<Fields>(info) = fields;
    return info;
}

// One of the maker's wordings, "-" when it has nothing to say.
inline std::string Wording(MakerWording MakerText::*wording, const ImageInfo& info) {
    wchar_t storage[kValueCapacity];
    TextBuffer text(storage);
    const bool written = (FindMakerText(info.makerId).*wording)(info, text);
    return written ? Utf8(text.Text()) : text.IsEmpty() ? "-" : "left over";
}

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

// Whether these are the section's lines; tells which are not.
inline testing::AssertionResult Lists(const ImageInfo& info, const Lines& expected) {
    const Lines lines = ListMakerNote(info);
    if (lines == expected) return testing::AssertionSuccess();
    auto failure = testing::AssertionFailure();
    for (std::size_t i = 0; i < std::max(lines.size(), expected.size()); ++i) {
        const std::string line = i < lines.size() ? lines[i] : "nothing";
        const std::string wanted = i < expected.size() ? expected[i] : "nothing";
        if (line != wanted) failure << line << " instead of " << wanted << '\n';
    }
    return failure;
}

template <class Fields>
struct ListCase {
    Fields fields;
    Lines lines;
    std::int32_t modelId = 0;  // 0: the usual one
};

// Rows of single fields and the lines that they alone make.
template <class Fields>
void ExpectLists(MakerId maker, const std::vector<ListCase<Fields>>& cases,
                 std::int32_t usualModel = 0) {
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const auto& [fields, lines, modelId] = cases[i];
        const ImageInfo info = InfoOf(maker, fields, modelId != 0 ? modelId : usualModel);
        EXPECT_TRUE(Lists(info, lines)) << "row " << i;
    }
}

}  // namespace qmx::test
