// What registration writes and removes, through the DLL and through scripts of our own.

#include <qmxexif.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <shlwapi.h>

#include <filesystem>

#include "com/com_support.h"
#include "com/registrar.h"
#include "support/api.h"
#include "support/utf8.h"

namespace qmx::test {
namespace {

using Lines = std::vector<std::string>;

const char kParserKey[] = "CLSID\\{0CFE4406-7B6F-4F69-9751-5968FFC13236}";
const char kProviderKey[] = "CLSID\\{CE57CDAB-B77A-44A1-8959-4FFDAC52AAB3}";
const char kProviderId[] = "{CE57CDAB-B77A-44A1-8959-4FFDAC52AAB3}";
const char kAppId[] = "{202068E5-655D-4CAE-8FD5-D6997DFD0F0D}";
const wchar_t kApproved[] =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Shell Extensions\\Approved";

Lines operator+(Lines left, const Lines& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Lines ClassLines(const std::string& key, const char* name, const std::string& path) {
    return {key, key + "|=" + name, key + "\\InprocServer32", key + "\\InprocServer32|=" + path,
            key + "\\InprocServer32|ThreadingModel=Apartment"};
}

// What the scripts write below `classes`.
Lines ScriptLines(const std::string& classes, const std::string& path) {
    const std::string app = classes + "\\AppID";
    return Lines{app,
                 app + "\\qmxexif.DLL",
                 app + "\\qmxexif.DLL|AppID=" + kAppId,
                 app + "\\" + kAppId,
                 app + "\\" + kAppId + "|=qmxexif",
                 classes + "\\CLSID"} +
           ClassLines(classes + "\\" + kParserKey, "ExifParser Class", path) +
           ClassLines(classes + "\\" + kProviderKey, "RawThmubnail Class", path);
}

// What the shell needs, always for the whole machine.
Lines ShellLines() {
    const std::string file = "HKCR\\.qmxexif.DigitalImage";
    const std::string handler = file + "\\ShellEx\\{E357FCCD-A995-4576-B01F-234630154E96}";
    Lines lines = {file, file + "\\ShellEx", handler, handler + "|=" + kProviderId};
    std::string key = "HKLM";
    for (const char* part :
         {"Software", "Microsoft", "Windows", "CurrentVersion", "Shell Extensions", "Approved"})
        lines.push_back(key += std::string("\\") + part);
    lines.push_back(key + "|" + kProviderId + "=RawThmubnail Class");
    return lines;
}

// The DLL under another name, so that its module-wide state is fresh.
class CopiedModule {
public:
    explicit CopiedModule(const std::wstring& name)
        : file_({}, ".tmp"),
          module_(CopyTo(std::filesystem::path(file_.path()).parent_path(), name)) {}
    ComModule* operator->() { return &module_; }

private:
    static std::wstring CopyTo(const std::filesystem::path& folder, const std::wstring& name) {
        const std::wstring target = L"\\\\?\\" + folder.wstring() + L"\\" + name;
        std::filesystem::create_directories(std::filesystem::path(target).parent_path());
        CopyFileW(Environment(L"QMX_DLL").c_str(), target.c_str(), TRUE);
        return target;
    }

    TestFile file_;  // its folder goes with it
    ComModule module_;
};

TEST(Registration, WritesAndRemovesItsOwnKeys) {
    const ComModule module;
    const ScratchRegistry registry;
    MakeValue(HKEY_CLASSES_ROOT, L"CLSID\\{other}", L"kept", L"1");
    MakeValue(HKEY_CLASSES_ROOT, L"AppID", L"kept", L"2");
    MakeValue(HKEY_LOCAL_MACHINE, kApproved, L"{other}", L"3");
    const Lines before = registry.Content();
    SetThreadLocale(0x0411);

    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(module.registerServer(), S_OK);
        const Lines own = ScriptLines("HKCR", Utf8(module.path().c_str())) + ShellLines();
        EXPECT_THAT(registry.Content(),
                    testing::AllOf(testing::IsSupersetOf(own), testing::IsSupersetOf(before)));
    }
    EXPECT_EQ(GetThreadLocale(), 0x0411u);
    // The file class goes whole, associations and all.
    MakeValue(HKEY_CLASSES_ROOT, L".qmxexif.DigitalImage\\shell\\open", L"", L"viewer");
    // A class's key goes with what others put there.
    MakeKey(HKEY_CLASSES_ROOT, L"CLSID\\{CE57CDAB-B77A-44A1-8959-4FFDAC52AAB3}\\Deep\\Deeper");
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(module.unregisterServer(), S_OK);
        EXPECT_EQ(registry.Content(), before);
    }
}

TEST(Registration, WritesNothingElse) {
    const ComModule module;
    const ScratchRegistry registry;
    EXPECT_EQ(module.install(TRUE, nullptr), S_OK);
    EXPECT_THAT(registry.Content(),
                testing::UnorderedElementsAreArray(
                    ScriptLines("HKCR", Utf8(module.path().c_str())) + ShellLines()));
    EXPECT_EQ(module.install(FALSE, nullptr), S_OK);
}

TEST(Registration, ForOneUserKeepsTheShellsValuesInTheMachine) {
    for (const wchar_t* word : {L"user", L"USER", L"users", L"use"}) {
        CopiedModule module(L"copy.dll");
        const ScratchRegistry registry;
        EXPECT_EQ(module->install(TRUE, word), S_OK);
        const Lines content = registry.Content();
        const bool perUser = lstrlenW(word) == 4;
        EXPECT_THAT(content,
                    testing::IsSupersetOf(ScriptLines(perUser ? "HKCU\\Software\\Classes" : "HKCR",
                                                      Utf8(module->path().c_str())) +
                                          ShellLines()));
        EXPECT_EQ(testing::Matches(testing::Contains(testing::StartsWith("HKCU")))(content),
                  perUser);
        EXPECT_EQ(module->install(FALSE, word), S_OK);
        EXPECT_THAT(registry.Content(),
                    testing::Not(testing::Contains(testing::HasSubstr(kProviderId))));
    }
}

TEST(Registration, TakesAnyPathOfTheModule) {
    const std::wstring deep = std::wstring(120, L'a') + L"\\" + std::wstring(120, L'b') + L"\\" +
                              std::wstring(60, L'c') + L"\\";
    for (const std::wstring& name :
         {std::wstring(L"with blanks.dll"), std::wstring(L"it's ''quoted'.dll"),
          std::wstring(L"写真 ü.dll"), std::wstring(L"%MODULE% 100%.dll"),
          std::wstring(L"} Delete CLSID {.dll"), deep + L"far away.dll"}) {
        CopiedModule module(name);
        const ScratchRegistry registry;
        const std::string path = Utf8(module->path().c_str());
        ASSERT_TRUE(path.ends_with(Utf8(name.c_str()))) << path;
        EXPECT_EQ(module->registerServer(), S_OK);
        EXPECT_THAT(registry.Content(),
                    testing::UnorderedElementsAreArray(ScriptLines("HKCR", path) + ShellLines()));
        EXPECT_EQ(module->unregisterServer(), S_OK);
    }
}

// Below a volatile key no lasting one can be made: the cheapest unwritable key there is.
TEST(Registration, FailsAsTheRegistryDoesAndInstallLeavesNothing) {
    const ComModule module;
    for (const wchar_t* unwritable : {L"AppID", L"CLSID"}) {
        const ScratchRegistry registry;
        MakeKey(HKEY_CLASSES_ROOT, unwritable, REG_OPTION_VOLATILE);
        EXPECT_EQ(module.registerServer(), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
        EXPECT_EQ(module.install(TRUE, nullptr), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
        const Lines content = registry.Content();
        for (const char* own : {kAppId, kProviderId, "0CFE4406", "qmxexif.D"})
            EXPECT_THAT(content, testing::Not(testing::Contains(testing::HasSubstr(own))));
    }
}

TEST(Registration, IgnoresThatTheShellsValuesCannotBeWritten) {
    const ComModule module;
    const ScratchRegistry registry;
    MakeKey(HKEY_CLASSES_ROOT, L".qmxexif.DigitalImage", REG_OPTION_VOLATILE);
    MakeKey(HKEY_LOCAL_MACHINE, L"Software\\Microsoft", REG_OPTION_VOLATILE);
    EXPECT_EQ(module.registerServer(), S_OK);
    EXPECT_EQ(module.unregisterServer(), S_OK);
}

// This program holds the module's code but none of its resources.
TEST(Registration, FailsWithoutItsScripts) {
    const ScratchRegistry registry;
    EXPECT_THAT(::DllInstall(TRUE, nullptr),
                testing::AnyOf(HRESULT_FROM_WIN32(ERROR_RESOURCE_TYPE_NOT_FOUND),
                               HRESULT_FROM_WIN32(ERROR_RESOURCE_DATA_NOT_FOUND)));
    EXPECT_THAT(registry.Content(),
                testing::Not(testing::Contains(testing::HasSubstr(kProviderId))));
}

const ScriptVariables kVariables = {{L"NAME", L"a'b} %NAME%"}, {L"MODULE", L"m"}};

TEST(Script, IsWrittenAndUndone) {
    struct Case {
        const wchar_t* script;
        Lines written;
        Lines undone;
    };
    const Case cases[] = {
        {L"HKCR{A{B{C}}}", {}, {}},  // braces need blanks around them: names are bare words
        {L"HKCR { A { 'B c' = s 'x' { val v = d 16 val w = d &h1F } } }",
         {"HKCR\\A", "HKCR\\A\\B c", "HKCR\\A\\B c|=x", "HKCR\\A\\B c|v=#16", "HKCR\\A\\B c|w=#31"},
         {}},
        {L"hkcr { noremove A = s 'x' { val v = s 'it''s 100%%' NoRemove val k = s '' B C } }",
         {"HKCR\\A", "HKCR\\A|=x", "HKCR\\A|v=it's 100%", "HKCR\\A|k=", "HKCR\\A\\B", "HKCR\\A\\C"},
         {"HKCR\\A", "HKCR\\A|=x", "HKCR\\A|k="}},
        {L"HKCR { '%NAME%' = s '<%NAME%>' }",
         {"HKCR\\a'b} %NAME%", "HKCR\\a'b} %NAME%|=<a'b} %NAME%>"},
         {}},
        {L"HKLM { NoRemove A { NoRemove B { C } } } HKEY_CURRENT_USER { D }",
         {"HKLM\\A", "HKLM\\A\\B", "HKLM\\A\\B\\C", "HKCU\\D"},
         {"HKLM\\A", "HKLM\\A\\B"}},
        {L"HKCR { 'NoRemove' { 'val' } }", {"HKCR\\NoRemove", "HKCR\\NoRemove\\val"}, {}},
        {L"HKCR { val only = s 'value' }", {"HKCR|only=value"}, {}},
    };
    for (const Case& c : cases) {
        const ScratchRegistry registry;
        const auto script = ParseScript(c.script, kVariables);
        EXPECT_EQ(script.has_value(), !c.written.empty()) << Utf8(c.script);
        if (!script) continue;
        EXPECT_EQ(ApplyScript(*script, false), S_OK);
        EXPECT_THAT(registry.Content(), testing::UnorderedElementsAreArray(c.written));
        EXPECT_EQ(UndoScript(*script, false), S_OK);
        EXPECT_THAT(registry.Content(), testing::UnorderedElementsAreArray(c.undone));
    }
}

TEST(Script, ReplacesOrDeletesWhatWasThere) {
    const ScratchRegistry registry;
    for (const wchar_t* key : {L"Forced\\Old", L"Deleted\\Old", L"Plain\\Old", L"Kept\\Old"})
        MakeKey(HKEY_CLASSES_ROOT, key);
    const auto script = ParseScript(
        L"HKCR { ForceRemove Forced { New } Delete Deleted Plain { New } NoRemove Kept { New } }",
        {});
    ASSERT_TRUE(script);
    EXPECT_EQ(ApplyScript(*script, false), S_OK);
    EXPECT_THAT(registry.Content(),
                testing::UnorderedElementsAre("HKCR\\Forced", "HKCR\\Forced\\New", "HKCR\\Plain",
                                              "HKCR\\Plain\\Old", "HKCR\\Plain\\New", "HKCR\\Kept",
                                              "HKCR\\Kept\\Old", "HKCR\\Kept\\New"));
    MakeKey(HKEY_CLASSES_ROOT, L"Deleted");
    EXPECT_EQ(UndoScript(*script, false), S_OK);
    EXPECT_THAT(registry.Content(),
                testing::UnorderedElementsAre("HKCR\\Deleted", "HKCR\\Kept", "HKCR\\Kept\\Old"));
}

TEST(Script, IsRefusedWholeWhenItIsBroken) {
    // clang-format off
    for (const wchar_t* script :
         {L"HKXX { A }", L"HKCR", L"HKCR {", L"HKCR { A", L"HKCR { A } }", L"HKCR { 'A }",
          L"HKCR { '' }", L"HKCR { A\\B }", L"HKCR { ForceRemove }", L"HKCR { A = s }",
          L"HKCR { A = x 'y' }", L"HKCR { A = d 12x }", L"HKCR { A = d 4294967296 }",
          L"HKCR { A = d '' }", L"HKCR { val v }", L"HKCR { %NONE% }", L"HKCR { '100%' }",
          L"HKCR { { } }", L"HKCR { = s 'x' }", L"HKCR { Delete val }x"})
        EXPECT_FALSE(ParseScript(script, kVariables)) << Utf8(script);
    // clang-format on
    std::wstring deep = L"HKCR {";
    for (int i = 0; i < 100000; ++i) deep += L" A {";
    EXPECT_FALSE(ParseScript(deep, {}));
}

}  // namespace
}  // namespace qmx::test
