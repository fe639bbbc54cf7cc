// The registrar's scripts: whatever is accepted can be written down again and is then read as the
// same keys and values.

#include <cstdlib>
#include <string>

#include "com/script.h"

namespace {

wchar_t Fold(wchar_t c) { return c >= L'A' && c <= L'Z' ? c - L'A' + L'a' : c; }

}  // namespace

int lstrcmpiW(const wchar_t* left, const wchar_t* right) {
    while (*left != 0 && Fold(*left) == Fold(*right)) ++left, ++right;
    return Fold(*left) - Fold(*right);
}

namespace {

using namespace qmx;

std::wstring Quoted(const std::wstring& text) {
    std::wstring quoted = L"'";
    for (const wchar_t c : text) {
        quoted += c;
        if (c == L'\'' || c == L'%') quoted += c;
    }
    return quoted + L"'";
}

std::wstring Data(const ScriptData& data) {
    if (const auto* text = std::get_if<std::wstring>(&data)) return L" s " + Quoted(*text);
    std::wstring digits;
    for (DWORD rest = std::get<DWORD>(data); digits.empty() || rest != 0; rest /= 10)
        digits.insert(digits.begin(), static_cast<wchar_t>(L'0' + rest % 10));
    return L" d " + digits;
}

std::wstring Content(const ScriptKey& key);

std::wstring Key(const ScriptKey& key) {
    constexpr const wchar_t* kRules[] = {L"", L"NoRemove ", L"ForceRemove ", L"Delete "};
    std::wstring text = kRules[static_cast<int>(key.rule)] + Quoted(key.name);
    if (key.data.has_value()) text += L" =" + Data(*key.data);
    if (key.rule != KeyRule::kDelete) text += L" {" + Content(key) + L" }";
    return text;
}

// Values before keys, which is also the order in which they are carried out.
std::wstring Content(const ScriptKey& key) {
    std::wstring text;
    for (const ScriptValue& value : key.values)
        text += std::wstring(value.keep ? L" NoRemove" : L"") + L" val " + Quoted(value.name) +
                L" =" + Data(value.data);
    for (const ScriptKey& child : key.keys) text += L" " + Key(child);
    return text;
}

const wchar_t* RootName(HKEY root) {
    if (root == HKEY_CLASSES_ROOT) return L"HKCR";
    if (root == HKEY_CURRENT_USER) return L"HKCU";
    return root == HKEY_USERS ? L"HKU" : L"HKLM";
}

std::wstring Write(const Script& script) {
    std::wstring text;
    for (const ScriptRoot& root : script)
        text += std::wstring(RootName(root.root)) + L" {" + Content(root.content) + L" }\n";
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ScriptVariables variables = {{L"MODULE", L"C:\\it's { 100% }.dll"}, {L"APPID", L"{1}"}};
    const auto script = ParseScript(std::wstring(data, data + size), variables);
    if (!script.has_value()) return 0;
    const std::wstring text = Write(*script);
    const auto again = ParseScript(text, variables);
    if (!again.has_value() || Write(*again) != text) std::abort();
    return 0;
}
