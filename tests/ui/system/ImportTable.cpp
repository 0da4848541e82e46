#include "ImportTable.h"

#include <cstddef>

void forEachImport(HMODULE library, const std::function<void(const char* name, void** entry)>& visit) {
    auto* const base = reinterpret_cast<std::byte*>(library);
    const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos.e_lfanew);
    const auto& directory = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* descriptor = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; descriptor->Name != 0; ++descriptor) {
        const auto* named = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + descriptor->OriginalFirstThunk);
        auto* address = reinterpret_cast<void**>(base + descriptor->FirstThunk);
        for (; named->u1.AddressOfData != 0; ++named, ++address) {
            if (IMAGE_SNAP_BY_ORDINAL(named->u1.Ordinal))
                continue;
            const auto& import = *reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + named->u1.AddressOfData);
            visit(reinterpret_cast<const char*>(import.Name), address);
        }
    }
}

void writeImport(void** entry, void* value) {
    DWORD before = 0;
    VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &before);
    *entry = value;
    VirtualProtect(entry, sizeof *entry, before, &before);
}
