// The commands that tell about the drawing and change nothing.

#include "CommandFunctions.h"
#include "ReferenceStates.h"
#include "Session.h"

#include "KelEditor.h"

#include "files/ShownText.h"

#include <numbers>

namespace workbench::commands {

void units(Session& session, const CommandText&) {
    constexpr int kOfDrawing = -1;
    wchar_t length[256];
    wchar_t angle[256];
    keldbRToS(1, kOfDrawing, kOfDrawing, length);
    keldbAngToS(std::numbers::pi / 2, kOfDrawing, kOfDrawing, angle);
    session.window().print(
        std::wstring(L"A unit of model space is a millimeter, and a length is written as ") + length +
        L".\nA sheet counts in millimeters of its paper, and model space in its current viewport.\n" +
        L"Angles are in degrees, counter-clockwise from the x axis, and a right one is written as " + angle + L".\n");
}

void references(Session& session, const CommandText&) {
    const std::vector<ReferenceRow> rows = referencesOf(session.drawing());
    if (rows.empty()) {
        session.window().print(L"No drawing is attached: ATTACH attaches one.\n");
        return;
    }
    std::wstring text;
    for (const ReferenceRow& row : rows)
        text += row.name + L": " + stateText(row.state) + L", " + zdr::shownText(row.path) + L"\n";
    text += countText(rows) + (isAnyMissing(rows) ? L": RELOAD looks again.\n" : L".\n");
    session.window().print(text);
}

} // namespace workbench::commands
