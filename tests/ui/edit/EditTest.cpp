#include "EditTest.h"

#include "DrawingDifference.h"
#include "engine/DatabaseAccess.h"

#include <algorithm>

using ui::Obstacle;
using ui::Script;
using ui::View;

Calls callsOfProperties(const std::string& id, const std::string& name, const std::string& color) {
    const auto of = [&id](const char* operation) { return "record." + std::string(operation) + "(" + id + ") = "; };
    return {of("getName") + "0, name=\"" + name + "\"",
            of("isFrozen") + "false",
            of("isOff") + "false",
            of("isLocked") + "false",
            of("VPDFLT") + "false",
            of("isPlottable") + "true",
            of("color") + color,
            of("linetypeObjectId") + "#E0",
            "openObject(#E0, 0, false) = 0",
            "record.getName(#E0) = 0, name=\"Continuous\"",
            "close(#E0) = 0",
            of("lineWeight") + "-3",
            "plotStyleMode() = false",
            of("plotStyleNameId") + "#E8",
            of("plotStyleName") + "\"Normal\"",
            "close(" + id + ") = 0"};
}

bool EditTest::edit(const std::wstring& state, const Script& script) {
    return manage(Script()
                      .clickCellOf(IDC_LSTATE_RES_LIST, state)
                      .waitUntil("it is selected",
                                 [state](const View& view) {
                                     return view.selectedRows(IDC_LSTATE_RES_LIST) ==
                                            std::vector{view.rowOf(IDC_LSTATE_RES_LIST, state)};
                                 })
                      .then(countFromHere())
                      .click(IDC_LSTATE_RES_EDIT)
                      .waitForControl(grid)
                      .then(script)
                      .click(IDC_LSTATE_RES_CLOSE));
}

Script EditTest::countFromHere() {
    return Script().look("the trace is emptied", [](const View&) { instruments::clearTrace(); });
}

std::vector<std::wstring> EditTest::rows(const View& view) {
    return view.column(grid, 0);
}

Script EditTest::dragDivider(int column, int by) {
    const auto target = std::make_shared<POINT>(); // fixed before the drag: the divider moves along with the pointer
    const auto rests = [](POINT point) {
        return ui::pointerRestsAt(point) ? Obstacle() : Obstacle("the pointer is on its way");
    };
    return Script()
        .step("point at the divider",
              [=](const View& view) -> Obstacle {
                  const std::optional<RECT> heading = view.headingRect(grid, column);
                  if (!heading)
                      return "the list has no such heading";
                  *target = {heading->right - 1, (heading->top + heading->bottom) / 2};
                  return rests(*target);
              })
        .look("press",
              [=](const View&) {
                  ui::pressButton();
                  target->x += by;
              })
        .step("drag", [=](const View&) { return rests(*target); })
        .look("release", [](const View&) { ui::releaseButton(); });
}

std::optional<zdr::LayerState> EditTest::stored(const std::wstring& name) const {
    for (const zdr::LayerState& state : engine::drawingOf(database()).states)
        if (state.name == name)
            return state;
    return std::nullopt;
}

std::string EditTest::differenceFrom(const zdr::Drawing& before) const {
    zdr::Drawing now = engine::drawingOf(database());
    now.nextHandle = before.nextHandle;
    return difference(before, now);
}

Calls withoutPainting(const Calls& calls) {
    constexpr const char* kPainting[] = {
        "tilemode() = true",          "tilemode() = false", "keledGetRGB(", "keldbGetReservedString(7, true)",
        "keledGetVar(\"LWDEFAULT\")", "SetUseTips(0)",      "SetUseTips(1)"};
    Calls others;
    bool painting = false;
    for (const std::string& call : calls) {
        // Reading and commit ask for the mode of plot styles too, each after a call that painting doesn't make.
        painting = (painting && call.starts_with("plotStyleMode()")) ||
                   std::ranges::any_of(kPainting, [&call](const char* start) { return call.starts_with(start); });
        if (!painting)
            others.push_back(call);
    }
    return others;
}
