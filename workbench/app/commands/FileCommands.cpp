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
    const auto chosen = typed.empty() ? session.window().chooseScript() : typed;
    if (!chosen) {
        session.tellNothingChosen();
        return;
    }
    const SoughtFile file = soughtFile(*chosen, session.path());
    std::wstring problem;
    std::vector<std::wstring> lines = readScript(file, problem);
    if (problem.empty() && !session.window().runScript({file.path, std::move(lines), keepsGoing}))
        problem = L"The script " + quotation(file.path) +
                  L" isn't run, because too many scripts wait for each other: look for one that runs itself.";
    if (problem.empty())
        session.window().print(L"Running " + file.path + L".\n");
    else
        session.refuse(problem + L"\n");
}

void quit(Session& session, const CommandText&) {
    if (session.mayClose())
        session.window().quit();
}

} // namespace workbench::commands
