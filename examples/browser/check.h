// A run without a user: shows a folder, waits for every thumbnail and every description, and
// prints how many there were.
#pragma once

#include <string>

#include "browser_window.h"

namespace browser {

// The process's exit status: 0, or 1 when something did not come in time.
int RunCheck(BrowserWindow& window, const std::wstring& folder);

}  // namespace browser
