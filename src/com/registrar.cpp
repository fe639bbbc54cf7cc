#include "com/registrar.h"

#include <qmx_interfaces.h>

#include "com/registry_key.h"

namespace qmx {
namespace {

constexpr REGSAM kReadWrite = KEY_READ | KEY_WRITE;

// The module that this code lies in.
HMODULE ThisModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const wchar_t*>(&ThisModule), &module);
    return module;
}

// The module's path, however long.
std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    while (true) {
        const auto capacity = static_cast<DWORD>(path.size());
        const DWORD length = GetModuleFileNameW(ThisModule(), path.data(), capacity);
        if (length < capacity) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

LSTATUS SetData(HKEY key, const wchar_t* name, const ScriptData& data) {
    const auto* text = std::get_if<std::wstring>(&data);
    return text != nullptr ? SetText(key, name, *text)
                           : SetNumber(key, name, std::get<DWORD>(data));
}

LSTATUS WriteKey(HKEY parent, const ScriptKey& key);

LSTATUS WriteContent(HKEY key, const ScriptKey& content) {
    for (const ScriptValue& value : content.values)
        if (const LSTATUS status = SetData(key, value.name.c_str(), value.data)) return status;
    for (const ScriptKey& child : content.keys)
        if (const LSTATUS status = WriteKey(key, child)) return status;
    return ERROR_SUCCESS;
}

LSTATUS WriteKey(HKEY parent, const ScriptKey& key) {
    const wchar_t* name = key.name.c_str();
    if (key.rule == KeyRule::kForceRemove || key.rule == KeyRule::kDelete)
        if (const LSTATUS status = DeleteKeyTree(parent, name)) return status;
    if (key.rule == KeyRule::kDelete) return ERROR_SUCCESS;

    RegistryKey opened;
    if (const LSTATUS status = CreateKey(parent, name, kReadWrite, opened)) return status;
    if (key.data.has_value())
        if (const LSTATUS status = SetData(opened.get(), nullptr, *key.data)) return status;
    return WriteContent(opened.get(), key);
}

void KeepFirstFailure(LSTATUS& kept, LSTATUS status) {
    if (kept == ERROR_SUCCESS) kept = status;
}

LSTATUS RemoveKey(HKEY parent, const ScriptKey& key);

LSTATUS RemoveContent(HKEY key, const ScriptKey& content) {
    LSTATUS result = ERROR_SUCCESS;
    for (auto child = content.keys.rbegin(); child != content.keys.rend(); ++child)
        KeepFirstFailure(result, RemoveKey(key, *child));
    for (const ScriptValue& value : content.values)
        if (!value.keep) KeepFirstFailure(result, DeleteKeyValue(key, nullptr, value.name.c_str()));
    return result;
}

LSTATUS RemoveKey(HKEY parent, const ScriptKey& key) {
    const wchar_t* name = key.name.c_str();
    if (key.rule == KeyRule::kDelete) return ERROR_SUCCESS;
    if (key.rule != KeyRule::kNoRemove) return DeleteKeyTree(parent, name);
    RegistryKey opened;
    const LSTATUS status = OpenKey(parent, name, kReadWrite, opened);
    if (status == ERROR_FILE_NOT_FOUND) return ERROR_SUCCESS;
    return status != ERROR_SUCCESS ? status : RemoveContent(opened.get(), key);
}

// Where a root's keys go; `owner` keeps a key that had to be opened.
LSTATUS OpenRoot(HKEY root, bool perUser, RegistryKey& owner, HKEY& opened) {
    opened = root;
    if (!perUser || root != HKEY_CLASSES_ROOT) return ERROR_SUCCESS;
    const LSTATUS status = CreateKey(HKEY_CURRENT_USER, L"Software\\Classes", kReadWrite, owner);
    opened = owner.get();
    return status;
}

// Scripts are ASCII.
std::wstring Widen(const char* text, DWORD size) { return {text, text + size}; }

}  // namespace

HRESULT ApplyScript(const Script& script, bool perUser) {
    for (const ScriptRoot& root : script) {
        RegistryKey owner;
        HKEY key = nullptr;
        LSTATUS status = OpenRoot(root.root, perUser, owner, key);
        if (status == ERROR_SUCCESS) status = WriteContent(key, root.content);
        if (status != ERROR_SUCCESS) return HRESULT_FROM_WIN32(status);
    }
    return S_OK;
}

HRESULT UndoScript(const Script& script, bool perUser) {
    LSTATUS result = ERROR_SUCCESS;
    for (auto root = script.rbegin(); root != script.rend(); ++root) {
        RegistryKey owner;
        HKEY key = nullptr;
        LSTATUS status = OpenRoot(root->root, perUser, owner, key);
        if (status == ERROR_SUCCESS) status = RemoveContent(key, root->content);
        KeepFirstFailure(result, status);
    }
    return HRESULT_FROM_WIN32(result);
}

Registrar::Registrar(bool perUser)
    : variables_{{L"APPID", QMX_APP_ID}, {L"MODULE", ModulePath()}}, perUser_(perUser) {}

HRESULT Registrar::Register(WORD resource) const {
    Script script;
    const HRESULT result = Load(resource, script);
    return FAILED(result) ? result : ApplyScript(script, perUser_);
}

HRESULT Registrar::Unregister(WORD resource) const {
    Script script;
    const HRESULT result = Load(resource, script);
    return FAILED(result) ? result : UndoScript(script, perUser_);
}

HRESULT Registrar::Load(WORD resource, Script& script) const {
    const HRSRC found = FindResourceW(ThisModule(), MAKEINTRESOURCEW(resource), L"REGISTRY");
    if (found == nullptr) return HRESULT_FROM_WIN32(GetLastError());
    const HGLOBAL loaded = LoadResource(ThisModule(), found);
    const auto* text = static_cast<const char*>(LockResource(loaded));
    if (text == nullptr) return HRESULT_FROM_WIN32(GetLastError());
    auto parsed = ParseScript(Widen(text, SizeofResource(ThisModule(), found)), variables_);
    if (!parsed.has_value()) return HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
    script = std::move(*parsed);
    return S_OK;
}

}  // namespace qmx
