#include "AboutText.h"

#include "WorkbenchVersion.h"

namespace workbench {

namespace {

constexpr Library kLibraries[] = {
    {L"FlatBuffers", L"Apache License 2.0"},
    {L"libstdc++ and libgcc", L"GNU General Public License 3 or later with the GCC Runtime Library Exception 3.1"},
    {L"mingw-w64 runtime", L"Zope Public License 2.1, parts under others"},
    {L"winpthreads", L"MIT License, parts under the BSD License"},
};

} // namespace

std::span<const Library> libraries() {
    return kLibraries;
}

std::wstring aboutText() {
    std::wstring text =
        L"Kel Workbench " WORKBENCH_VERSION L"\n\nOpens, shows and saves drawings, changes their layers, and runs "
        L"the commands of modules.\n\n"
        L"It is built with these libraries of others:\n";
    for (const Library& library : kLibraries)
        text += std::wstring(L"\x2022 ") + library.name + L": " + library.license + L"\n";
    return text;
}

} // namespace workbench
