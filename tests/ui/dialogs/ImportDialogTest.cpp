#include "ImportDialogTest.h"

#include "CResourceScope.h"
#include "ModuleHandles.h"

#include <commctrl.h>

#include <algorithm>

HINSTANCE g_moduleInstance = nullptr;
HINSTANCE g_resourceModule = nullptr;

using ui::Script;
using ui::TestDrawing;
using ui::View;

void ImportDialogTest::SetUp() {
    HostTest::SetUp();
    g_resourceModule = LoadLibraryW(L"KelLayerAppsRes.dll");
    ASSERT_NE(g_resourceModule, nullptr);
    open(withStates({L"Plan"}));
}

void ImportDialogTest::TearDown() {
    FreeLibrary(g_resourceModule);
    g_resourceModule = nullptr;
    HostTest::TearDown();
}

TestDrawing ImportDialogTest::withStates(const Texts& names) {
    TestDrawing drawing;
    for (const std::wstring& name : names)
        drawing.state(name, MaskOn);
    return drawing;
}

Texts ImportDialogTest::numbered(int count) {
    Texts names;
    for (int number = 0; number < count; ++number)
        names.push_back((number < 10 ? L"S0" : L"S") + std::to_wstring(number));
    return names;
}

INT_PTR ImportDialogTest::chooseFrom(const std::wstring& path, const Script& script) {
    Script whole = untilInFront();
    whole.then(script);
    INT_PTR answer = 0;
    chosen.clear();
    instruments::clearTrace();
    ui::perform(std::move(whole), [&] {
        const CResourceScope scope;
        CLayerStatesImportDlg dialog(nullptr, path.c_str());
        answer = dialog.DoModal();
        for (const KelString& name : dialog.m_selectedNames)
            chosen.emplace_back(name.kwszPtr());
    });
    return answer;
}

INT_PTR ImportDialogTest::choose(const TestDrawing& offered, const Script& script) {
    offered.save(file(L"offered.zdr"));
    return chooseFrom(file(L"offered.zdr"), script);
}

std::vector<int> ImportDialogTest::tickedRows(const View& view) {
    std::vector<int> rows;
    const HWND list = view.control(kList);
    for (int row = 0; row < view.rowCount(kList); ++row)
        if (ListView_GetCheckState(list, static_cast<UINT>(row)))
            rows.push_back(row);
    return rows;
}

Texts ImportDialogTest::tickedNames(const View& view) {
    Texts names;
    for (const int row : tickedRows(view))
        names.push_back(view.cell(kList, row, 0));
    return names;
}

void ImportDialogTest::setTick(const View& view, int row, bool on) {
    ListView_SetCheckState(view.control(kList), row, on);
}

void ImportDialogTest::select(const View& view, const std::vector<int>& rows, int focused) {
    const HWND list = view.control(kList);
    for (int row = 0; row < view.rowCount(kList); ++row) {
        const bool selected = std::find(rows.begin(), rows.end(), row) != rows.end();
        ListView_SetItemState(list, row, selected ? LVIS_SELECTED : 0u, LVIS_SELECTED | LVIS_FOCUSED);
    }
    if (focused >= 0)
        ListView_SetItemState(list, focused, LVIS_FOCUSED, LVIS_FOCUSED);
}

Script ImportDialogTest::clickBox(int row, unsigned held) {
    Script script;
    return script.step("click the box of row " + std::to_string(row), [row, held](const View& view) -> ui::Obstacle {
        const std::optional<RECT> label = view.cellRect(kList, row, 0);
        if (!label)
            return "there is no such row";
        constexpr LONG kIntoBox = 8; // the boxes stand right before the texts
        if (!ui::pointerRestsAt({label->left - kIntoBox, (label->top + label->bottom) / 2}))
            return "the pointer hasn't come to rest at the box";
        ui::click(1, held);
        return std::nullopt;
    });
}

Script ImportDialogTest::untilInFront() {
    Script script;
    return script.waitForControl(IDHELP);
}

Script ImportDialogTest::look(std::string what, std::function<void(const View&)> see) {
    Script script;
    return script.look(std::move(what), std::move(see));
}

Script ImportDialogTest::expectTicked(const std::vector<int>& rows) {
    return look("the ticks", [rows](const View& view) { EXPECT_EQ(tickedRows(view), rows); });
}
