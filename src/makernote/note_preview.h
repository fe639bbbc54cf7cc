#pragma once
// A preview that several tags of a MakerNote describe: one image record, made by the first of them
// and shared by the others.

#include "parse/core/parse_context.h"

namespace qmx {

class NotePreview {
public:
    // Null when no record can be added.
    ImageRecord* Record(ParseContext& ctx) {
        if (index_ == ImageRecordList::kNone) index_ = ctx.imageRecords.Add();
        return index_ == ImageRecordList::kNone ? nullptr : &ctx.imageRecords[index_];
    }

private:
    std::size_t index_ = ImageRecordList::kNone;
};

}  // namespace qmx
