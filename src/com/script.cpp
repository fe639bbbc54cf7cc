#include "com/script.h"

#include <algorithm>

namespace qmx {
namespace {

struct RootName {
    const wchar_t* name;
    HKEY root;
};

const RootName kRoots[] = {
    {L"HKCR", HKEY_CLASSES_ROOT},  {L"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},
    {L"HKCU", HKEY_CURRENT_USER},  {L"HKEY_CURRENT_USER", HKEY_CURRENT_USER},
    {L"HKLM", HKEY_LOCAL_MACHINE}, {L"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE},
    {L"HKU", HKEY_USERS},          {L"HKEY_USERS", HKEY_USERS},
};

// More than any script needs; keeps a broken one from exhausting the stack.
constexpr int kMaxDepth = 32;

bool IsBlank(wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r'); }

struct Token {
    std::wstring text;
    bool quoted = false;

    bool Is(const wchar_t* word) const { return !quoted && lstrcmpiW(text.c_str(), word) == 0; }
};

// Splits the text into words, quoted or bare; false once it cannot go on.
class TokenReader {
public:
    TokenReader(std::wstring_view text, const ScriptVariables& variables)
        : text_(text), variables_(variables) {}

    bool AtEnd() {
        SkipBlanks();
        return text_.empty();
    }

    bool Next(Token& token) {
        if (AtEnd()) return false;
        token = {};
        token.quoted = text_.front() == L'\'';
        return token.quoted ? ReadQuoted(token) : ReadBare(token);
    }

    // Reads the next token only if it is this word.
    bool Accept(const wchar_t* word) {
        const std::wstring_view before = text_;
        Token token;
        if (Next(token) && token.Is(word)) return true;
        text_ = before;
        return false;
    }

private:
    void SkipBlanks() {
        while (!text_.empty() && IsBlank(text_.front())) text_.remove_prefix(1);
    }

    bool ReadBare(Token& token) {
        const auto end = std::find_if(text_.begin(), text_.end(), IsBlank);
        const auto length = static_cast<std::size_t>(end - text_.begin());
        const bool sound = Expand(text_.substr(0, length), token.text);
        text_.remove_prefix(length);
        return sound;
    }

    bool ReadQuoted(Token& token) {
        std::wstring raw;
        for (text_.remove_prefix(1); !text_.empty(); text_.remove_prefix(1)) {
            if (text_.front() == L'\'') {
                text_.remove_prefix(1);
                if (text_.empty() || text_.front() != L'\'') return Expand(raw, token.text);
            }
            raw += text_.front();
        }
        return false;  // the closing quote is missing
    }

    bool Expand(std::wstring_view raw, std::wstring& out) const {
        while (true) {
            const std::size_t start = raw.find(L'%');
            out += raw.substr(0, start);
            if (start == raw.npos) return true;
            const std::size_t end = raw.find(L'%', start + 1);
            if (end == raw.npos || !Replace(raw.substr(start + 1, end - start - 1), out))
                return false;
            raw.remove_prefix(end + 1);
        }
    }

    bool Replace(std::wstring_view name, std::wstring& out) const {
        if (name.empty()) out += L'%';
        if (name.empty()) return true;
        for (const ScriptVariable& variable : variables_) {
            if (variable.name != name) continue;
            out += variable.text;
            return true;
        }
        return false;
    }

    std::wstring_view text_;
    const ScriptVariables& variables_;
};

// A number in decimal, or in hexadecimal behind 0x or &H.
bool ParseNumber(std::wstring_view text, DWORD& number) {
    DWORD base = 10;
    if (text.starts_with(L"0x") || text.starts_with(L"0X") || text.starts_with(L"&h") ||
        text.starts_with(L"&H")) {
        base = 16;
        text.remove_prefix(2);
    }
    if (text.empty()) return false;
    ULONGLONG value = 0;
    for (const wchar_t c : text) {
        DWORD digit = base;
        if (c >= L'0' && c <= L'9') digit = c - L'0';
        if ((c | 0x20) >= L'a' && (c | 0x20) <= L'f') digit = (c | 0x20) - L'a' + 10;
        if (digit >= base) return false;
        value = value * base + digit;
        if (value > MAXDWORD) return false;
    }
    number = static_cast<DWORD>(value);
    return true;
}

class Parser {
public:
    explicit Parser(TokenReader reader) : reader_(reader) {}

    bool ParseRoots(Script& script) {
        while (!reader_.AtEnd())
            if (!ParseRoot(script)) return false;
        return true;
    }

private:
    bool ParseRoot(Script& script) {
        Token token;
        if (!reader_.Next(token)) return false;
        const auto row = std::find_if(std::begin(kRoots), std::end(kRoots),
                                      [&](const RootName& root) { return token.Is(root.name); });
        if (row == std::end(kRoots) || !reader_.Accept(L"{")) return false;
        ScriptRoot root = {row->root, {KeyRule::kNoRemove, {}}};
        if (!ParseContent(root.content, 1)) return false;
        script.push_back(std::move(root));
        return true;
    }

    // Everything up to the closing brace.
    bool ParseContent(ScriptKey& parent, int depth) {
        while (!reader_.Accept(L"}")) {
            const KeyRule rule = ParseRule();
            const bool sound = rule != KeyRule::kDelete && reader_.Accept(L"val")
                                   ? ParseValue(parent, rule == KeyRule::kNoRemove)
                                   : ParseKey(parent, rule, depth);
            if (!sound) return false;
        }
        return true;
    }

    KeyRule ParseRule() {
        if (reader_.Accept(L"NoRemove")) return KeyRule::kNoRemove;
        if (reader_.Accept(L"ForceRemove")) return KeyRule::kForceRemove;
        if (reader_.Accept(L"Delete")) return KeyRule::kDelete;
        return KeyRule::kRemove;
    }

    bool ParseValue(ScriptKey& parent, bool keep) {
        Token name;
        if (!reader_.Next(name) || !reader_.Accept(L"=")) return false;
        ScriptValue value = {std::move(name.text), {}, keep};
        if (!ParseData(value.data)) return false;
        parent.values.push_back(std::move(value));
        return true;
    }

    bool ParseKey(ScriptKey& parent, KeyRule rule, int depth) {
        Token name;
        if (depth > kMaxDepth || !reader_.Next(name)) return false;
        // One key at a time.  An empty name would be the parent itself, and go with all of it.
        if (name.text.empty() || name.text.find(L'\\') != name.text.npos) return false;
        if (name.Is(L"{") || name.Is(L"=")) return false;
        ScriptKey key = {rule, std::move(name.text)};
        if (rule != KeyRule::kDelete) {
            if (reader_.Accept(L"=") && !ParseData(key.data.emplace())) return false;
            if (reader_.Accept(L"{") && !ParseContent(key, depth + 1)) return false;
        }
        parent.keys.push_back(std::move(key));
        return true;
    }

    bool ParseData(ScriptData& data) {
        Token type;
        Token text;
        if (!reader_.Next(type) || !reader_.Next(text)) return false;
        if (type.Is(L"d")) return ParseNumber(text.text, data.emplace<DWORD>());
        data = std::move(text.text);
        return type.Is(L"s");
    }

    TokenReader reader_;
};

}  // namespace

std::optional<Script> ParseScript(std::wstring_view text, const ScriptVariables& variables) {
    Script script;
    if (!Parser(TokenReader(text, variables)).ParseRoots(script)) return std::nullopt;
    return script;
}

}  // namespace qmx
