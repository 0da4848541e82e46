// MODULE: loading other modules into the program, and unloading them.

#include "CommandFunctions.h"
#include "ModuleNames.h"
#include "Session.h"

#include "files/OutsidePaths.h"

#include <algorithm>

namespace workbench {

std::wstring moduleName(const std::wstring& path) {
    return path.substr(path.find_last_of(L"\\/") + 1);
}

std::vector<std::wstring> moduleNames(const std::vector<std::wstring>& paths) {
    std::vector<std::wstring> names;
    std::ranges::transform(paths, std::back_inserter(names), moduleName);
    return names;
}

std::wstring findModule(const std::vector<std::wstring>& paths, const std::wstring& typed) {
    const auto bears = [&typed](const std::wstring& path) {
        const std::wstring name = moduleName(path);
        return zdr::isSamePath(path, typed) || sameName(name, typed) ||
               sameName(name.substr(0, name.rfind(L'.')), typed);
    };
    const auto found = std::find_if(paths.rbegin(), paths.rend(), bears);
    return found == paths.rend() ? std::wstring() : *found;
}

namespace commands {

namespace {

// What the system looks libraries up by, and what a message can show.
constexpr std::size_t kLongestPath = 260;

void load(Session& session, const Words& words) {
    const std::wstring path = unquoted(words[0]);
    if (path.size() > kLongestPath) {
        session.refuse(L"The path of the module is too long: give one of at most " + std::to_wstring(kLongestPath) +
                       L" characters.\n");
        return;
    }
    const std::wstring problem = session.window().loadModule(path);
    if (problem.empty())
        session.window().print(moduleName(session.window().loadedModules().back()) + L" is loaded.\n");
    else
        session.refuse(problem + L"\n");
}

void unloadNamed(Session& session, const Words& words) {
    const std::wstring typed = unquoted(words[0]);
    const std::wstring path = findModule(session.window().loadedModules(), typed);
    if (path.empty())
        session.refuse(L"No module " + quotation(typed) + L" is loaded: MODULE LIST names those that are.\n");
    else if (session.window().unloadModule(path))
        session.window().print(moduleName(path) + L" is unloaded.\n");
    else
        session.refuse(moduleName(path) + L" stays until the Workbench ends: it takes no unloading before.\n");
}

void list(Session& session, const Words&) {
    std::wstring text;
    for (const std::wstring& path : session.window().loadedModules())
        text += path + L"\n";
    session.window().print(text.empty() ? L"No module is loaded.\n" : text);
}

// clang-format off
constexpr Option kModuleOptions[] = {
    {L"LOAD", nullptr, L"path", L"Loads a module; without a folder in the path, one that lies beside the program.", {1, 1}, Offer::Files, Offer::Nothing, load},
    {L"UNLOAD", nullptr, L"name", L"Unloads a module, and with it its commands.", {1, 1}, Offer::Modules, Offer::Nothing, unloadNamed},
    {L"LIST", nullptr, L"", L"Lists the modules that are loaded, with their paths.", {0, 0}, Offer::Nothing, Offer::Nothing, list},
};
// clang-format on

} // namespace

std::span<const Option> moduleOptions() {
    return kModuleOptions;
}

} // namespace commands

} // namespace workbench
