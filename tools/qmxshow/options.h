// The command line: what the user asks for, and the help text that documents it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "selection.h"

namespace qmx {

struct Options {
    std::vector<std::wstring> inputs;
    std::wstring thumbOut;
    std::wstring primaryOut;
    std::wstring htmlOut;
    std::wstring dllPath;
    std::wstring sort;
    std::wstring maker;
    std::wstring since;
    std::wstring until;
    std::wstring jobs;
    bool json = false;
    bool csv = false;
    bool orient = false;
    bool quiet = false;
    bool help = false;
    bool version = false;

    // What the texts above say.
    SortKey sortKey = SortKey::kNone;
    Filter filter;
    unsigned jobCount = 0;  // 0: as many as the processor makes useful
};

// False, with the complaint in `error`, when the arguments make no sense.
bool ParseOptions(int count, wchar_t** arguments, Options& options, std::wstring& error);

std::string_view HelpText();
std::string_view VersionText();

}  // namespace qmx
