// Filling the list of layer states and finding a state in it, on a bare window over a drawing in memory.
#include "CLayerStateListCtrl.h"
#include "Documents.h"
#include "KelEditor.h"
#include "ModuleHandles.h"
#include "Runtime.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"
#include "resource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

HINSTANCE g_moduleInstance = nullptr;
HINSTANCE g_resourceModule = nullptr;

namespace {

constexpr LayerStateMask allProperties = MaskAllProperties;

/// A list with the manager's four columns, over the states "alpha", "Beta" and "gamma" of the working drawing, of
/// which "Beta" has a description.
class StateList : public testing::Test {
  protected:
    void SetUp() override {
        g_resourceModule = LoadLibraryW(L"KelLayerAppsRes.dll");
        ASSERT_NE(g_resourceModule, nullptr);
        m_database = &runtime::openDocument(std::make_unique<KelDbDatabase>(true, true), L"").data();
        for (const wchar_t* name : {L"alpha", L"Beta", L"gamma"})
            ASSERT_EQ(states().saveLayerState(name, allProperties), Vorn::eOk);
        ASSERT_EQ(states().setLayerStateDescription(L"Beta", L"for the plan"), Vorn::eOk);
        ASSERT_TRUE(m_list.CreateEx(0, WC_LISTVIEW, L"", WS_POPUP | LVS_REPORT, CRect(0, 0, 400, 200), nullptr, 0));
        for (int column = 0; column < 4; ++column)
            m_list.InsertColumn(column, L"", LVCFMT_LEFT, 80, column);
        instruments::watch(true);
    }
    void TearDown() override {
        EXPECT_EQ(instruments::ledger(), std::vector<std::string>());
        instruments::watch(false);
        m_list.DestroyWindow();
        runtime::closeDocument(*runtime::currentDocument());
        runtime::reset();
        FreeLibrary(g_resourceModule);
    }

    KelDbLayerStateManager& states() { return *m_database->getLayerStateManager(); }
    std::vector<std::wstring> column(int index) const {
        std::vector<std::wstring> texts;
        for (int row = 0; row < m_list.GetItemCount(); ++row)
            texts.emplace_back(m_list.GetItemText(row, index).GetString());
        return texts;
    }
    static std::wstring text(UINT id) {
        wchar_t buffer[128] = {};
        LoadStringW(g_resourceModule, id, buffer, 128);
        return buffer;
    }
    static int calls(const std::string& operation) {
        const std::vector<std::string> lines = instruments::trace();
        return static_cast<int>(std::count_if(
            lines.begin(), lines.end(), [&](const std::string& line) { return line.starts_with(operation + "("); }));
    }

    KelDbDatabase* m_database = nullptr;
    CLayerStateListCtrl m_list;
};

using Texts = std::vector<std::wstring>;

} // namespace

TEST_F(StateList, TakesItsColumnsWithTheirSharesOfItsWholeWidth) {
    while (m_list.DeleteColumn(0)) {
    }
    constexpr ListColumn columns[] = {{IDS_LSTATE_COLUMN_NAME, 0.4}, {IDS_LSTATE_COLUMN_DESCRIPTION, 0.25}};
    m_list.InsertColumns(columns);
    for (const int index : {0, 1}) {
        wchar_t heading[64] = {};
        LVCOLUMNW column = {};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
        column.pszText = heading;
        column.cchTextMax = 64;
        ASSERT_TRUE(m_list.GetColumn(index, &column)) << index;
        EXPECT_EQ(heading, text(columns[index].headingId));
        EXPECT_EQ(column.cx, columnWidth(400, columns[index].fraction));
        EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT);
        EXPECT_EQ(column.iSubItem, index);
    }
    LVCOLUMNW third = {};
    third.mask = LVCF_WIDTH;
    EXPECT_FALSE(m_list.GetColumn(2, &third));
}

TEST_F(StateList, ShowsTheStatesInTheHostsOrderWithTheirDescriptions) {
    EXPECT_TRUE(m_list.PopulateStates(m_database, true, true));
    EXPECT_EQ(column(0), (Texts{L"alpha", L"Beta", L"gamma"}));
    EXPECT_EQ(column(3), (Texts{L"", L"for the plan", L""}));
}

TEST_F(StateList, ShowsTheHostsWordForModelSpaceWhereAStateHasNoViewport) {
    m_list.PopulateStates(m_database, true, true);
    EXPECT_EQ(column(1), Texts(3, keldbGetReservedString(10, true)));
}

TEST_F(StateList, TellsWhichStatesMatchTheDrawing) {
    KelDbLayerTableRecord* layer = nullptr;
    ASSERT_EQ(keldbOpenObject(layer, m_database->clayer(), KelDb::kForWrite), Vorn::eOk);
    layer->setIsLocked(true);
    ASSERT_EQ(layer->close(), Vorn::eOk);
    ASSERT_EQ(states().saveLayerState(L"gamma", allProperties), Vorn::eOk);
    m_list.PopulateStates(m_database, true, true);
    EXPECT_EQ(column(2), (Texts{text(IDS_LSTATE_NO), text(IDS_LSTATE_NO), text(IDS_LSTATE_YES)}));
}

TEST_F(StateList, ReadsTheViewportAgainForEveryRow) {
    m_list.PopulateStates(m_database, true, true);
    EXPECT_EQ(calls("keledGetCurViewportObjectId"), 3);
    EXPECT_EQ(calls("compareLayerStateToDb"), 3);
}

TEST_F(StateList, WithoutComparisonPutsTheDescriptionThirdAndNeverAsksForTheViewport) {
    EXPECT_TRUE(m_list.PopulateStates(m_database, true, false));
    EXPECT_EQ(column(2), (Texts{L"", L"for the plan", L""}));
    EXPECT_EQ(column(3), Texts(3));
    EXPECT_EQ(calls("keledGetCurViewportObjectId"), 0);
    EXPECT_EQ(calls("compareLayerStateToDb"), 0);
}

TEST_F(StateList, AsksForEachRowInTheOrderMaskSpaceComparisonDescription) {
    ASSERT_EQ(states().deleteLayerState(L"alpha"), Vorn::eOk);
    ASSERT_EQ(states().deleteLayerState(L"gamma"), Vorn::eOk);
    instruments::clearTrace();
    m_list.PopulateStates(m_database, false, true);
    std::vector<std::string> names;
    for (const std::string& line : instruments::trace())
        names.push_back(line.substr(0, line.find('(')));
    EXPECT_EQ(names, (std::vector<std::string>{"getLayerStateManager", "getLayerStateNames", "getLayerStateMask",
                                               "isDependentLayerState", "layerStateHasViewportData",
                                               "keldbGetReservedString", "keledGetCurViewportObjectId",
                                               "compareLayerStateToDb", "getLayerStateDescription", "keldbFree"}));
}

TEST_F(StateList, PassesTheChoiceOfReferencesToTheHostAndHidesInternalNames) {
    m_list.PopulateStates(m_database, false, true);
    m_list.PopulateStates(m_database, true, true);
    std::vector<std::string> asked;
    for (const std::string& line : instruments::trace())
        if (line.starts_with("getLayerStateNames("))
            asked.push_back(line.substr(0, line.find(')') + 1));
    ASSERT_EQ(asked.size(), 2u);
    EXPECT_NE(asked[0].find("false, false)"), std::string::npos) << asked[0];
    EXPECT_NE(asked[1].find("false, true)"), std::string::npos) << asked[1];
}

TEST_F(StateList, KeepsTheMaskWidenedWithSignAsItemData) {
    ASSERT_EQ(states().setLayerStateMask(L"Beta", 0x80000005), Vorn::eOk);
    m_list.PopulateStates(m_database, true, true);
    EXPECT_EQ(static_cast<INT_PTR>(m_list.GetItemData(0)), 1023);
    EXPECT_EQ(static_cast<INT_PTR>(m_list.GetItemData(1)), static_cast<std::int32_t>(0x80000005));
}

TEST_F(StateList, DropsSelectionAndFocusWithEveryFill) {
    m_list.PopulateStates(m_database, true, true);
    m_list.SelectRow(1);
    ASSERT_EQ(m_list.GetSelectedCount(), 1u);
    m_list.PopulateStates(m_database, true, true);
    EXPECT_EQ(m_list.GetSelectedCount(), 0u);
    EXPECT_EQ(m_list.GetNextItem(-1, LVNI_FOCUSED), -1);
}

TEST_F(StateList, EndsARenameWithEveryFill) {
    m_list.m_labelEditActive = 1;
    m_list.m_labelEditRetry = 1;
    m_list.PopulateStates(m_database, true, true);
    EXPECT_EQ(m_list.m_labelEditActive, 0);
    EXPECT_EQ(m_list.m_labelEditRetry, 0) << "there is no row to open again";
}

TEST_F(StateList, IsEmptyWithoutADatabase) {
    m_list.PopulateStates(m_database, true, true);
    EXPECT_FALSE(m_list.PopulateStates(nullptr, true, true));
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(StateList, IsEmptyWithoutAStateManager) {
    m_list.PopulateStates(m_database, true, true);
    instruments::failCall("getLayerStateManager", 1);
    EXPECT_FALSE(m_list.PopulateStates(m_database, true, true));
    EXPECT_TRUE(instruments::faultStruck());
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(StateList, IsEmptyWhenTheNamesCantBeRead) {
    instruments::failCall("getLayerStateNames", 1);
    EXPECT_FALSE(m_list.PopulateStates(m_database, true, true));
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(StateList, LeavesADescriptionBlankThatCantBeRead) {
    instruments::failCall("getLayerStateDescription", 2);
    EXPECT_TRUE(m_list.PopulateStates(m_database, true, true));
    EXPECT_EQ(column(3), Texts(3));
}

TEST_F(StateList, GoesOnWhenAMaskCantBeRead) {
    instruments::failCall("getLayerStateMask", 1);
    EXPECT_TRUE(m_list.PopulateStates(m_database, true, true));
    EXPECT_EQ(column(3), (Texts{L"", L"for the plan", L""}));
}

TEST_F(StateList, KeepsARowWithoutANameWithItsOtherCellsBlank) {
    zdr::Drawing drawing = engine::drawingOf(*m_database);
    drawing.states[0].name.clear();
    drawing.states[0].description = L"of nothing";
    engine::replaceDrawing(*m_database, std::move(drawing));
    instruments::clearTrace();
    EXPECT_TRUE(m_list.PopulateStates(m_database, true, true));
    ASSERT_EQ(column(0), (Texts{L"", L"Beta", L"gamma"}));
    for (int index = 1; index < 4; ++index)
        EXPECT_EQ(column(index)[0], L"") << index;
    EXPECT_EQ(column(3)[1], L"for the plan");
    EXPECT_EQ(calls("getLayerStateMask"), 2) << "nothing is asked about the row without a name";
}

TEST_F(StateList, NamesAStateByTheFirst258CharactersOfItsRow) {
    zdr::Drawing drawing = engine::drawingOf(*m_database);
    const std::wstring name(300, L'n');
    drawing.states[0].name = name;
    engine::replaceDrawing(*m_database, std::move(drawing));
    m_list.PopulateStates(m_database, true, true);
    EXPECT_STREQ(m_list.StateName(0).GetString(), name.substr(0, 258).c_str());
    EXPECT_EQ(m_list.FindState(name.c_str()), -1);
    EXPECT_EQ(m_list.FindState(name.substr(0, 258).c_str()), 0);
}

TEST_F(StateList, FindsAStateWithoutRegardToCase) {
    m_list.PopulateStates(m_database, true, true);
    EXPECT_EQ(m_list.FindState(L"alpha"), 0);
    EXPECT_EQ(m_list.FindState(L"BETA"), 1);
    EXPECT_EQ(m_list.FindState(L"bet"), -1);
    EXPECT_EQ(m_list.FindState(L"delta"), -1);
}

TEST_F(StateList, PassesOverRowsWithoutANameWhenItSearches) {
    m_list.PopulateStates(m_database, true, true);
    m_list.SetItemText(0, 0, L"");
    EXPECT_EQ(m_list.FindState(L""), -1);
    EXPECT_EQ(m_list.FindState(L"gamma"), 2);
}

TEST_F(StateList, StartsWithoutRenameOrTrackedRow) {
    EXPECT_EQ(m_list.m_labelEditActive, 0);
    EXPECT_EQ(m_list.m_labelEditRetry, 0);
    EXPECT_EQ(m_list.m_trackedRow, -1);
}

TEST_F(StateList, SelectsARowAsTheOneThatKeysActOn) {
    m_list.PopulateStates(m_database, true, true);
    m_list.SelectRow(2);
    m_list.SetItemState(-1, 0, LVIS_SELECTED);
    m_list.SelectRow(1);
    EXPECT_EQ(m_list.FirstSelectedRow(), 1);
    EXPECT_EQ(m_list.GetNextItem(-1, LVNI_FOCUSED), 1);
    EXPECT_EQ(m_list.GetSelectionMark(), 1);
}
