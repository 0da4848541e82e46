// The commands that change what is looked at, and those that take changes back.

#include "CommandFunctions.h"
#include "Session.h"

namespace workbench::commands {

namespace {

constexpr double kZoomStep = 2;

constexpr Option kZoomOptions[] = {
    {L"EXTENTS",
     L"E",
     L"",
     L"Shows all of the drawing.",
     {0, 0},
     Offer::Nothing,
     Offer::Nothing,
     [](Session& session, const Words&) {
         session.window().zoomExtents();
         session.window().print(L"All of the drawing is shown.\n");
     }},
    {L"IN",
     nullptr,
     L"",
     L"Shows half as much, twice as large.",
     {0, 0},
     Offer::Nothing,
     Offer::Nothing,
     [](Session& session, const Words&) {
         session.window().zoomBy(kZoomStep);
         session.window().print(L"Zoomed in.\n");
     }},
    {L"OUT",
     nullptr,
     L"",
     L"Shows twice as much, half as large.",
     {0, 0},
     Offer::Nothing,
     Offer::Nothing,
     [](Session& session, const Words&) {
         session.window().zoomBy(1 / kZoomStep);
         session.window().print(L"Zoomed out.\n");
     }},
};

} // namespace

std::span<const Option> zoomOptions() {
    return kZoomOptions;
}

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
