#include "ActionTest.h"

#include "engine/DatabaseAccess.h"

using ui::Script;
using ui::TestDrawing;
using ui::View;

TestDrawing ActionTest::wiredHouse() {
    TestDrawing drawing = house();
    drawing.state(L"Wiring", MaskOn | MaskColor, L"As of May",
                  [](zdr::LayerColumns& columns) { columns.colors.set(2, 6); });
    return drawing.lastRestored(L"Wiring");
}

Script ActionTest::countCalls() {
    return Script().look("the calls count from here", [](const View&) { instruments::clearTrace(); });
}

Script ActionTest::answerBox(const std::wstring& text, int button) {
    return Script().waitForText(text).click(button);
}

std::wstring ActionTest::textWithName(unsigned int id, const std::wstring& name) {
    std::wstring text = resourceText(id);
    const std::size_t place = text.find(L"%s");
    return place == std::wstring::npos ? text : text.replace(place, 2, name);
}

ActionTest::Texts ActionTest::stateNames() const {
    Texts names;
    for (const zdr::LayerState& state : engine::drawingOf(database()).states)
        names.push_back(state.name);
    return names;
}

const zdr::LayerState* ActionTest::stateOf(const std::wstring& name) const {
    for (const zdr::LayerState& state : engine::drawingOf(database()).states)
        if (state.name == name)
            return &state;
    return nullptr;
}

bool ActionTest::matchesDrawing(const wchar_t* name) const {
    return states().compareLayerStateToDb(name, KelDbObjectId());
}
