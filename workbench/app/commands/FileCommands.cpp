// The commands of drawing files and scripts.

#include "CommandFunctions.h"
#include "ScriptLines.h"
#include "Session.h"
#include "StartOptions.h"

namespace workbench::commands {

void newDrawing(Session& session, const CommandText&) {
    session.newDrawing();
}

void open(Session& session, const CommandText& text) {
    session.open(text.argument);
}

void save(Session& session, const CommandText&) {
    session.save();
}

void saveAs(Session& session, const CommandText& text) {
    session.saveAs(text.argument);
}

void script(Session& session, const CommandText& text) {
    const bool keepsGoing = !text.words.empty() && sameName(text.words[0], kKeepGoing);
    const std::wstring typed = keepsGoing ? parseCommand(text.argument).argument : text.argument;
    const auto path = typed.empty() ? session.window().chooseScript() : typed;
    if (!path) {
        session.tellNothingChosen();
        return;
    }
    std::wstring problem;
    std::vector<std::wstring> lines = readScript(*path, problem);
    if (problem.empty() && !session.window().runScript({*path, std::move(lines), keepsGoing}))
        problem = L"The script " + quotation(*path) +
                  L" isn't run, because too many scripts wait for each other: look for one that runs itself.";
    if (problem.empty())
        session.window().print(L"Running " + *path + L".\n");
    else
        session.refuse(problem + L"\n");
}

void quit(Session& session, const CommandText&) {
    if (session.mayClose())
        session.window().quit();
}

} // namespace workbench::commands
