// The commands that choose the space that is looked at, and those that take changes back.

#include "CommandFunctions.h"
#include "Session.h"

namespace workbench::commands {

void undo(Session& session, const CommandText&) {
    session.undo();
}

void redo(Session& session, const CommandText&) {
    session.redo();
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
