// HELP: the list of commands, and one command with its options.

#include "CommandFunctions.h"
#include "CommandTable.h"
#include "Session.h"

#include "SystemRegistry.h"

namespace workbench::commands {

namespace {

std::wstring overview() {
    std::wstring text;
    for (const Command& command : commandTable())
        text += usageOf(command) + L" - " + command.help + L"\n";
    const KelEdCommandStack& stack = runtime::commandStack();
    for (int i = 0; i < stack.count(); ++i)
        text +=
            std::wstring(stack.at(i)->globalName()) + L" - From the module group " + stack.at(i)->groupName() + L".\n";
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
        session.window().print(std::wstring(registered->globalName()) + L" - From the module group " +
                               registered->groupName() + L".\n");
    else
        session.window().print(L"There is no command " + quotation(name) + L": HELP alone lists them.\n");
}

} // namespace workbench::commands
