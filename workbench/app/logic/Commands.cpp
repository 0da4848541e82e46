// See Commands.h.

#include "Commands.h"

#include "CommandText.h"
#include "SystemRegistry.h"

#include <algorithm>
#include <exception>
#include <iterator>

namespace workbench {

namespace {

void help(Session& session, const std::wstring& argument);

void viewport(Session& session, const std::wstring& argument) {
    const int number = parseViewportNumber(argument);
    if (number < 0)
        session.shell().print(L"VPORT takes the number of a viewport, or \"none\".\n");
    else
        session.makeViewportCurrent(number);
}

void zoom(Session& session, const std::wstring& argument) {
    if (sameName(argument, L"e") || sameName(argument, L"extents"))
        session.shell().zoomExtents();
    else
        session.shell().print(L"ZOOM takes \"e\" for the extents of the drawing; the wheel zooms by hand.\n");
}

void layout(Session& session, const std::wstring& argument) {
    if (argument.empty())
        session.shell().print(L"LAYOUT takes the name of a layout.\n");
    else
        session.showLayout(argument);
}

void quit(Session& session, const std::wstring&) {
    if (session.mayClose())
        session.shell().quit();
}

// In the order in which HELP lists them.
constexpr Command kCommands[] = {
    {L"OPEN", nullptr, L"[path]", L"Opens a drawing; without a path, asks for one.",
     [](Session& session, const std::wstring& path) { session.open(path); }},
    {L"SAVE", L"QSAVE", L"", L"Saves the drawing.", [](Session& session, const std::wstring&) { session.save(); }},
    {L"SAVEAS", nullptr, L"[path]", L"Saves the drawing under another name; without a path, asks for one.",
     [](Session& session, const std::wstring& path) { session.saveAs(path); }},
    {L"UNDO", L"U", L"", L"Takes back the last change.", [](Session& session, const std::wstring&) { session.undo(); }},
    {L"REDO", nullptr, L"", L"Makes the change again that was taken back last.",
     [](Session& session, const std::wstring&) { session.redo(); }},
    {L"MODEL", nullptr, L"", L"Shows model space.", [](Session& session, const std::wstring&) { session.showModel(); }},
    {L"LAYOUT", nullptr, L"name", L"Shows a layout.", layout},
    {L"VPORT", nullptr, L"number|none", L"Makes a viewport of the layout the current one, or none of them.", viewport},
    {L"ZOOM", L"Z", L"e", L"Shows all of the drawing.", zoom},
    {L"HELP", L"?", L"", L"Lists the commands.", help},
    {L"QUIT", L"EXIT", L"", L"Ends the Workbench.", quit},
};

void help(Session& session, const std::wstring&) {
    std::wstring text;
    for (const Command& command : kCommands) {
        text += command.name;
        if (*command.usage)
            text += std::wstring(L" ") + command.usage;
        text += std::wstring(L" - ") + command.help + L"\n";
    }
    const KelEdCommandStack& stack = runtime::commandStack();
    for (int i = 0; i < stack.count(); ++i)
        text +=
            std::wstring(stack.at(i)->globalName()) + L" - From the module group " + stack.at(i)->groupName() + L".\n";
    session.shell().print(text);
}

void runCommand(Session& session, const CommandText& command) {
    if (const Command* own = findCommand(command.name)) {
        own->run(session, command.argument);
        return;
    }
    if (const KelEdCommand* registered = runtime::commandStack().lookup(command.name.c_str())) {
        session.runModuleCommand(registered->function());
        return;
    }
    session.shell().print(L"Unknown command \"" + command.name + L"\". HELP lists the commands.\n");
}

std::wstring widened(const char* text) {
    return {text, text + std::char_traits<char>::length(text)};
}

} // namespace

const Command* findCommand(const std::wstring& name) {
    const auto* found = std::find_if(std::begin(kCommands), std::end(kCommands), [&name](const Command& command) {
        return name == command.name || (command.alias && name == command.alias);
    });
    return found == std::end(kCommands) ? nullptr : found;
}

void runLine(Session& session, const std::wstring& line) {
    const CommandText command = parseCommand(line);
    if (command.name.empty())
        return;
    session.shell().echo(L"Command: " + line + L"\n");
    try {
        runCommand(session, command);
    } catch (const std::exception& failure) {
        session.shell().showFailure(command.name + L" failed: " + widened(failure.what()) + L".");
    } catch (...) {
        session.shell().showFailure(command.name + L" failed for an unknown reason.");
    }
}

} // namespace workbench
