#include "DescriptionTest.h"

using ui::Script;
using ui::TestDrawing;
using ui::View;

void DescriptionTest::SetUp() {
    ManagerTest::SetUp();
    open(threeStates());
}

TestDrawing DescriptionTest::threeStates() {
    TestDrawing site;
    site.state(L"Survey", MaskColor, L"as surveyed");
    TestDrawing drawing;
    drawing.state(L"One", MaskColor).state(L"Two", MaskColor, L"the second").state(L"Three", MaskColor);
    return drawing.reference(L"site", site);
}

TestDrawing DescriptionTest::manyStates() {
    TestDrawing drawing;
    for (int number = 10; number < 60; ++number)
        drawing.state(L"State " + std::to_wstring(number), MaskColor);
    return drawing;
}

HWND DescriptionTest::editor(const View& view) {
    return GetDlgItem(view.control(kList), IDC_LSTATE_INPLACE_EDIT);
}

bool DescriptionTest::isEditorShown(const View& view) {
    return IsWindowVisible(editor(view));
}

Script DescriptionTest::openCell(int row) {
    return Script()
        .clickCell(kList, row, 0)
        .clickCell(kList, row, kDescriptionColumn)
        .waitUntil("the editor is open", isEditorShown)
        .look("the calls count from here", [](const View&) { instruments::clearTrace(); });
}

Script DescriptionTest::typeInto(int row, const std::wstring& text) {
    return openCell(row).type(text);
}

Script DescriptionTest::expectEnd(const Calls& calls) {
    return Script().look("the edit is over", [calls](const View& view) {
        EXPECT_EQ(instruments::trace(), calls);
        EXPECT_FALSE(isEditorShown(view));
        EXPECT_EQ(view.focusedControl(), kList);
    });
}

Script DescriptionTest::expectOpen(const std::wstring& text) {
    return Script().look("the editor is open", [text](const View& view) {
        EXPECT_TRUE(isEditorShown(view));
        EXPECT_EQ(ui::textOf(editor(view)), text);
        EXPECT_EQ(GetFocus(), editor(view));
    });
}

Script DescriptionTest::beginRefusing() {
    return Script().look("the host refuses", [this](const View&) {
        ASSERT_EQ(states().deleteLayerState(L"Two"), Vorn::eOk);
        instruments::clearTrace();
    });
}

Script DescriptionTest::endRefusing() {
    return Script().look("the host accepts again", [this](const View&) {
        ASSERT_EQ(states().saveLayerState(L"Two", MaskColor), Vorn::eOk);
        instruments::clearTrace();
    });
}

DescriptionTest::Calls DescriptionTest::keeping(const std::string& state, const std::string& text) {
    return {"keldbHostApplicationServices()", "workingDatabase() = object", "getLayerStateManager() = object",
            "setLayerStateDescription(\"" + state + "\", \"" + text + "\") = 0"};
}

std::wstring DescriptionTest::described(const wchar_t* state) const {
    wchar_t* text = nullptr;
    if (states().getLayerStateDescription(state, text) != Vorn::eOk)
        return L"(none)";
    std::wstring found(text);
    keldbFree(text);
    return found;
}
