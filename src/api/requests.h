#pragma once
// The internal entries behind the exported functions and the COM methods.

#include <qmxexif.h>

#include <cstdint>

#include "parse/core/image_info.h"

namespace qmx {

// Room for the result of a parse, which costs nothing until it is filled.
union ImageInfoRoom {
    ImageInfoRoom() {}  // NOLINT(modernize-use-equals-default): that would be deleted
    ImageInfo info;
};

// Parses one file: maps it, reads it, writes the wanted picture to `stream` (may be null), copies
// the result to `infoOut` (may be null) and releases everything.  1 or 0; on 0 nothing is copied.
std::uint32_t ParseFile(const wchar_t* path, IStream* stream, ImageInfo* infoOut, bool wantPrimary);

// Tells whether the file is of a kind to parse.  1 or 0.
std::uint32_t ProbeFile(const wchar_t* path);

// An image and information request: develops the raw files that the extension and flag name, else
// parses.  Every pointer but the path may be null.
std::uint32_t DispatchRequest(const wchar_t* path, IStream* stream, std::uint32_t* orientationOut,
                              std::uint32_t flag, InfoRequest* request);

// DispatchRequest with both texts: `text` receives the short text, a NUL and the long text.  It
// must hold 1282 characters whatever `textLength` says, which is only tested for 1 and more.
std::uint32_t RunTextRequest(const wchar_t* path, IStream* stream, std::uint32_t* orientationOut,
                             std::uint32_t flag, wchar_t* text, std::int32_t textLength);

// Copies DateTimeOriginal, see ExifGetDateTimeString.
std::uint32_t CopyDateTimeText(const wchar_t* path, wchar_t* text, std::int32_t textLength);

// DispatchRequest on the basic record, the first 164 bytes of `info`.
std::uint32_t RunBasicRequest(const wchar_t* path, IStream* stream, InfoRequest* info);

}  // namespace qmx
