#pragma once
// The import table of a loaded module, to lead its calls elsewhere; Windows only.

#include <windows.h>

#include <string_view>

namespace qmx::test {

// Calls `use` with the name of each import and the address that calls go to, which it may change.
template <class Use>
void ForEachImport(HMODULE module, Use use) {
    auto* const base = reinterpret_cast<char*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library =
        reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; library->Name != 0; ++library) {
        const auto* names = reinterpret_cast<const ULONG_PTR*>(base + library->OriginalFirstThunk);
        auto* targets = reinterpret_cast<ULONG_PTR*>(base + library->FirstThunk);
        for (; *names != 0; ++names, ++targets) {
            if (IMAGE_SNAP_BY_ORDINAL(*names)) continue;
            const auto* import = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + *names);
            DWORD protection = 0;
            VirtualProtect(targets, sizeof *targets, PAGE_READWRITE, &protection);
            use(std::string_view(reinterpret_cast<const char*>(import->Name)), *targets);
            VirtualProtect(targets, sizeof *targets, protection, &protection);
        }
    }
}

}  // namespace qmx::test
