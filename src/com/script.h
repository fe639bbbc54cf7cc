#pragma once
// Registration scripts in the registrar syntax that COM servers commonly use:
//
//   HKCR { NoRemove CLSID { ForceRemove '{...}' = s 'Name' { val Model = s 'Apartment' } } }
//
// Names and data stand bare or in single quotes, where '' is one quote.  %NAME% is replaced by a
// variable, %% by one percent sign, after the script was taken apart: a variable's text is data
// and never syntax.

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "parse/core/win32.h"

namespace qmx {

struct ScriptVariable {
    std::wstring name;
    std::wstring text;
};
using ScriptVariables = std::vector<ScriptVariable>;

using ScriptData = std::variant<std::wstring, DWORD>;  // s '...' or d 123

struct ScriptValue {
    std::wstring name;
    ScriptData data;
    bool keep;  // NoRemove: stays when the script is undone
};

enum class KeyRule {
    kRemove,       // goes with all below it when the script is undone
    kNoRemove,     // stays then
    kForceRemove,  // is made anew, and goes like kRemove
    kDelete,       // only deleted
};

struct ScriptKey {
    KeyRule rule;
    std::wstring name;
    std::optional<ScriptData> data = {};  // the default value
    std::vector<ScriptValue> values = {};
    std::vector<ScriptKey> keys = {};
};

// The keys below one of the registry's roots.
struct ScriptRoot {
    HKEY root;
    ScriptKey content;
};
using Script = std::vector<ScriptRoot>;

// Nothing when the text is no sound script: then nothing of it is to be carried out.
std::optional<Script> ParseScript(std::wstring_view text, const ScriptVariables& variables);

}  // namespace qmx
