#pragma once
// The read-only mapping of the file being parsed.

#include "parse/core/parse_context.h"

namespace qmx {

// Opens and maps the whole file, keeps its path and puts the cursor at its start.  False when the
// file cannot be opened or is empty.  A path of 260 characters and more is opened in its
// extended-length form.
bool MapFile(ParseContext& ctx, const wchar_t* path);

// Releases the mapping, the image records and the work buffer.
void UnmapFile(ParseContext& ctx);

// Unmaps at the end of the scope.
class MappedFile {
public:
    MappedFile(ParseContext& ctx, const wchar_t* path) : ctx_(ctx), mapped_(MapFile(ctx, path)) {}
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    ~MappedFile() { UnmapFile(ctx_); }
    explicit operator bool() const { return mapped_; }

private:
    ParseContext& ctx_;
    bool mapped_;
};

}  // namespace qmx
