// HELP: the list of commands, and one command with its options.

#include "CommandFunctions.h"
#include "CommandTable.h"
#include "Session.h"

#include "SystemRegistry.h"

namespace workbench::commands {

namespace {

/// What a command of the modules that come with the Workbench does; a module registers no more than names.
struct ModuleHelp {
    const wchar_t* name;
    const wchar_t* help;
};
constexpr ModuleHelp kModuleHelp[] = {
    {L"LAYERSTATE", L"Opens the layer states manager, which saves how all layers look under a name, and puts it back. "
                    L"The Help button there tells more."},
    {L"LAYERSNAPSHOT", L"Keeps layer snapshots, which LAYERSTATE turns into layer states: SAVE name, RESTORE name, "
                       L"DELETE name, or LIST behind it."},
};

std::wstring explanation(const KelEdCommand& command) {
    std::wstring text = std::wstring(command.globalName()) + L" - ";
    for (const ModuleHelp& known : kModuleHelp)
        if (sameName(command.globalName(), known.name))
            text += std::wstring(known.help) + L' ';
    return text + L"From the module group " + command.groupName() + L".\n";
}

std::wstring overview() {
    std::wstring text;
    for (const Command& command : commandTable())
        text += usageOf(command) + L" - " + command.help + L"\n";
    const KelEdCommandStack& stack = runtime::commandStack();
    for (int i = 0; i < stack.count(); ++i)
        text += explanation(*stack.at(i));
    return text + L"Tab completes what is being typed, Up and Down recall lines, Enter alone repeats the last one. "
                  L"F2 makes room for more of the history, and takes it back. HELP with a command's name tells more.\n";
}

std::wstring explanation(const Command& command) {
    std::wstring text = usageOf(command) + L" - " + command.help;
    if (command.alias)
        text += std::wstring(L" Short: ") + command.alias + L".";
    text += L"\n";
    if (!command.options)
        return text;
    for (const Option& option : command.options()) {
        text += L"    " + usageOf(command, option) + L" - " + option.help;
        if (option.alias)
            text += std::wstring(L" Also: ") + option.alias + L".";
        text += L"\n";
    }
    return text;
}

} // namespace

void help(Session& session, const CommandText& text) {
    if (text.words.empty()) {
        session.window().print(overview());
        return;
    }
    const std::wstring& name = text.argument;
    if (const Command* command = findCommand(name))
        session.window().print(explanation(*command));
    else if (const KelEdCommand* registered = runtime::commandStack().lookup(name.c_str()))
        session.window().print(explanation(*registered));
    else
        session.refuse(L"There is no command " + quotation(name) + L": HELP alone lists them.\n");
}

} // namespace workbench::commands
