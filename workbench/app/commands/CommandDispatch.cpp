#include "CommandDispatch.h"

#include "CommandTable.h"
#include "SystemRegistry.h"

#include <exception>

namespace workbench {

namespace {

/// Whether `count` allows this number of words. If not, tells the user what to type.
bool isCountRight(Session& session, std::size_t words, const Count& count, const std::wstring& name,
                  const std::wstring& usage) {
    const int given = static_cast<int>(words);
    if (given < count.least)
        session.refuse(name + L" lacks an argument: type " + usage + L".\n");
    else if (given > count.most && count.most == 0)
        session.refuse(name + L" takes no arguments: type " + usage + L" alone.\n");
    else if (given > count.most)
        session.refuse(name + L" has too many arguments: type " + usage + L".\n");
    return given >= count.least && given <= count.most;
}

void runOwn(Session& session, const Command& command, const CommandText& text) {
    session.nameCommand(command.name);
    if (!command.options) {
        if (isCountRight(session, text.words.size(), command.count, command.name, usageOf(command)))
            command.run(session, text);
        return;
    }
    const Option* option = text.words.empty() ? nullptr : findOption(command, text.words.front());
    if (!option) {
        if (command.run && !text.words.empty())
            command.run(session, text);
        else
            refuseOption(session, command, text.words);
        return;
    }
    const Words rest(text.words.begin() + 1, text.words.end());
    const std::wstring name = std::wstring(command.name) + L' ' + option->name;
    session.nameCommand(name);
    if (isCountRight(session, rest.size(), option->count, name, usageOf(command, *option)))
        option->run(session, rest);
}

void runCommand(Session& session, const CommandText& command) {
    if (const Command* own = findCommand(command.name))
        runOwn(session, *own, command);
    else if (const KelEdCommand* registered = runtime::commandStack().lookup(command.name.c_str())) {
        session.nameCommand(registered->globalName());
        session.runModuleCommand(registered->function(), command.argument);
    } else
        session.refuse(L"Unknown command " + quotation(command.name) + L": HELP lists the commands.\n");
}

std::wstring widened(const char* text) {
    return {text, text + std::char_traits<char>::length(text)};
}

/// A line as the history shows it: a very long one would push out all that was said before.
std::wstring shortened(const std::wstring& line) {
    constexpr std::size_t kLongest = 1000;
    return line.size() > kLongest ? line.substr(0, kLongest) + L"..." : line;
}

} // namespace

void refuseOption(Session& session, const Command& command, const Words& words) {
    std::wstring names;
    for (const Option& option : command.options())
        names += (names.empty() ? L"" : L", ") + std::wstring(option.name);
    const std::wstring what = words.empty() ? L" needs an option" : L" has no option " + quotation(words.front());
    session.refuse(command.name + what + L": type one of " + names + L" behind it, or HELP " + command.name + L".\n");
}

bool runLine(Session& session, const std::wstring& line) {
    session.beginCommand();
    if (line.size() > kLongestLine) {
        session.refuse(L"The line is too long: type " + std::to_wstring(kLongestLine) + L" characters at the most.\n");
        return false;
    }
    const CommandText command = parseCommand(line);
    if (command.name.empty())
        return true;
    session.window().echo(L"Command: " + shortened(line) + L"\n");
    const std::wstring name = command.name.substr(0, 60);
    try {
        runCommand(session, command);
    } catch (const std::exception& failure) {
        session.fail(name + L" failed: " + widened(failure.what()) + L".");
    } catch (...) {
        session.fail(name + L" failed for an unknown reason.");
    }
    return !session.isRefused();
}

} // namespace workbench
