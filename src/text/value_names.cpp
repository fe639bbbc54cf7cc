#include "text/value_names.h"

#include <algorithm>

#include "parse/core/image_info.h"

namespace qmx {
namespace {

constexpr std::uint32_t kHighestFlag = 1u << 11;
constexpr std::size_t kMaxAnsiBytes = kValueCapacity - 3;  // leaves brackets and terminator

const ValueName* FindValue(std::int32_t value, const ValueName* table, std::int32_t count) {
    for (std::int32_t i = 0; count < 0 ? table[i].key != INT_UNSET : i < count; ++i) {
        if (table[i].key == value) return &table[i];
    }
    return nullptr;
}

// In the system's ANSI code page, where no byte makes more than one unit.
void AppendAnsi(TextBuffer& dst, std::string_view text) {
    if (text.empty()) return;
    wchar_t wide[kMaxAnsiBytes + 1];
    const int bytes = static_cast<int>(std::min(text.size(), kMaxAnsiBytes));
    const int units = MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, wide, bytes);
    wide[units] = 0;
    dst.Append(wide);
}

}  // namespace

bool LookupIndexedName(TextBuffer& dst, std::int32_t index, const wchar_t* const* names,
                       std::int32_t count, const wchar_t* name) {
    if (index >= 0 && index < count && names[index] != nullptr && names[index][0] != 0) {
        dst.Append(names[index]);
        return true;
    }
    dst.Append(name != nullptr ? name : L"不明").Append(L'(').AppendInteger(index).Append(L')');
    return false;
}

bool LookupValueName(TextBuffer& dst, std::int32_t value, const ValueName* table,
                     std::int32_t count, const wchar_t* prefix) {
    if (const ValueName* row = FindValue(value, table, count)) {
        dst.Append(row->text);
        return true;
    }
    dst.Append(prefix).Append(L'(').AppendInteger(value).Append(L')');
    return false;
}

bool LookupPrefixName(TextBuffer& dst, std::string_view value, const PrefixName* table) {
    for (const PrefixName* row = table; row->key != nullptr; ++row) {
        if (!value.starts_with(row->key)) continue;
        dst.Append(row->text);
        return true;
    }
    dst.Append(L'(');
    AppendAnsi(dst, value);
    dst.Append(L')');
    return false;
}

TextBuffer& FormatFlagNames(TextBuffer& dst, std::uint32_t flags, const ValueName* table,
                            std::int32_t count) {
    bool first = true;
    for (std::uint32_t bit = 1; bit <= kHighestFlag; bit <<= 1) {
        if ((flags & bit) == 0) continue;
        const ValueName* row = FindValue(static_cast<std::int32_t>(bit), table, count);
        // Deliberate: an unknown bit hides itself and all higher ones.
        if (row == nullptr) break;
        if (!first) dst.Append(L'+');
        dst.Append(row->text);
        first = false;
    }
    return dst;
}

std::int32_t LookupPairValue(std::int32_t key, const ValuePair* table) {
    while (table->key != INT_UNSET && table->key != key) ++table;
    return table->key == INT_UNSET ? INT_UNSET : table->value;
}

}  // namespace qmx
