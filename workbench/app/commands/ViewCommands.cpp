// The commands that choose the space that is looked at, and those that take changes back.

#include "CommandFunctions.h"
#include "Session.h"

#include <optional>

namespace workbench::commands {

namespace {

/// How many changes are to be taken back or made again; none when the word isn't such a number, and the user has been
/// told then.
std::optional<int> stepsOf(Session& session, const Words& words) {
    if (words.empty())
        return 1;
    const int steps = parseWholeNumber(unquoted(words[0]));
    if (steps > 0)
        return steps;
    session.refuse(quotation(unquoted(words[0])) + L" is no number of changes: give one from 1 to 9999.\n");
    return std::nullopt;
}

} // namespace

void undo(Session& session, const CommandText& text) {
    if (const auto steps = stepsOf(session, text.words))
        session.undo(*steps);
}

void redo(Session& session, const CommandText& text) {
    if (const auto steps = stepsOf(session, text.words))
        session.redo(*steps);
}

void model(Session& session, const CommandText&) {
    session.showModel();
}

void layout(Session& session, const CommandText& text) {
    session.showLayout(text.argument);
}

void viewport(Session& session, const CommandText& text) {
    const int number = parseViewportNumber(text.argument);
    if (number < 0)
        session.refuse(L"VPORT takes the number of a viewport, or NONE.\n");
    else
        session.makeViewportCurrent(number);
}

void regenerate(Session& session, const CommandText&) {
    session.window().drawingChanged();
    session.window().print(L"Everything is drawn anew.\n");
}

} // namespace workbench::commands
