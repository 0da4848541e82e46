// The commands of drawing files and scripts.

#include "CommandFunctions.h"
#include "ScriptLines.h"
#include "Session.h"

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
    const auto path = text.argument.empty() ? session.window().chooseScript() : text.argument;
    if (!path) {
        session.window().tellNothingChosen();
        return;
    }
    std::wstring problem;
    const std::vector<std::wstring> lines = readScript(*path, problem);
    if (problem.empty() && !session.window().runScript(lines))
        problem = L"The script " + quotation(*path) +
                  L" isn't run, because too many scripts wait for each other: look for one that runs itself.";
    session.window().print(problem.empty() ? L"Running " + *path + L".\n" : problem + L"\n");
}

void quit(Session& session, const CommandText&) {
    if (session.mayClose())
        session.window().quit();
}

} // namespace workbench::commands
