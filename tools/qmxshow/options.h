// The command line: what the user asks for, and the help text that documents it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qmx {

struct Options {
    std::vector<std::wstring> inputs;
    std::wstring thumbOut;
    std::wstring primaryOut;
    std::wstring htmlOut;
    std::wstring dllPath;
    bool json = false;
    bool orient = false;
    bool quiet = false;
    bool help = false;
    bool version = false;
};

// False, with the complaint in `error`, when the arguments make no sense.
bool ParseOptions(int count, wchar_t** arguments, Options& options, std::wstring& error);

std::string_view HelpText();
std::string_view VersionText();

}  // namespace qmx
