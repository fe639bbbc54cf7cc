#pragma once
// The summary of a picture in the caller's InfoRequest: values, wordings and the two texts.
//
// InfoRequest is packed to 4 bytes and its pointers are misaligned: copy them, never refer to them.

#include "parse/core/image_info.h"
#include "parse/core/win32.h"

#include <qmxexif.h>

namespace qmx {

// Fills the record, then both texts.  Nothing for a null request.
void BuildSummary(const ImageInfo& info, InfoRequest* request);

// The multi-line description from the filled record, cut to its capacity.
void BuildLongText(const ImageInfo& info, InfoRequest& request);

// The one-line exposure summary from the filled record.  It begins and ends with a blank.
void BuildShortText(InfoRequest& request);

}  // namespace qmx
