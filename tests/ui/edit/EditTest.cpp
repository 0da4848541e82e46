#include "EditTest.h"

#include "engine/DatabaseAccess.h"

using ui::Script;
using ui::View;

bool EditTest::edit(const std::wstring& state, const Script& script) {
    return manage(Script()
                      .clickCellOf(IDC_LSTATE_RES_LIST, state)
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

std::optional<zdr::LayerState> EditTest::stored(const std::wstring& name) const {
    for (const zdr::LayerState& state : engine::drawingOf(database()).states)
        if (state.name == name)
            return state;
    return std::nullopt;
}
