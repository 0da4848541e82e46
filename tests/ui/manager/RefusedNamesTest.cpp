// A drawing whose file holds layer states under names that the host's rules refuse: what the manager does with them,
// which deletes a state and saves it again under its name.

#include "ManagerTest.h"

#include "Documents.h"
#include "engine/DatabaseAccess.h"

namespace {

using testing::ElementsAre;
using ui::callsOf;
using ui::Script;
using ui::View;

class RefusedNames : public ManagerTest {
  protected:
    void SetUp() override {
        ManagerTest::SetUp();
        auto opened = std::make_unique<KelDbDatabase>(false, false);
        ASSERT_EQ(opened->readZdrFile(L"" BUILT_DRAWINGS "/test_state_names.zdr", 64, false, nullptr), Vorn::eOk)
            << ui::narrow(engine::lastFileProblem(*opened));
        runtime::openDocument(std::move(opened), L"");
        instruments::clearTrace();
    }
    std::vector<std::wstring> stateNames() const {
        std::vector<std::wstring> names;
        for (const zdr::LayerState& state : engine::drawingOf(database()).states)
            names.push_back(state.name);
        return names;
    }
};

TEST_F(RefusedNames, AreListedAsTheyHaveBeenMendedAndHiddenOnesAreNot) {
    lookAtOpening([](const View& view) {
        EXPECT_THAT(view.column(IDC_LSTATE_RES_LIST, 0),
                    ElementsAre(L"Ground_floor 3", L"ground_floor 2", L"GROUND_FLOOR", L"Unnamed", L"tab_here"));
        EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(0)) << "the last restored one";
    });
}

TEST_F(RefusedNames, DoNotLoseTheirStateWhenItIsUpdated) {
    Script script;
    script.clickCellOf(IDC_LSTATE_RES_LIST, L"Ground_floor 3").click(IDC_LSTATE_RES_UPDATE);
    script.waitForControl(IDYES).click(IDYES).waitForControl(IDC_LSTATE_RES_LIST);
    script.look("the updated row", [](const View& view) {
        EXPECT_EQ(view.cells(IDC_LSTATE_RES_LIST, 0),
                  (std::vector<std::wstring>{L"Ground_floor 3", view.cell(IDC_LSTATE_RES_LIST, 1, 1),
                                             resourceText(IDS_LSTATE_YES), L"Walls in green"}));
    });
    ASSERT_TRUE(manage(script.click(IDC_LSTATE_RES_CLOSE)));
    EXPECT_THAT(callsOf("deleteLayerState"), ElementsAre("deleteLayerState(\"Ground_floor 3\") = 0"));
    EXPECT_THAT(callsOf("saveLayerState"), ElementsAre("saveLayerState(\"Ground_floor 3\", 1023, null) = 0"));
    EXPECT_THAT(stateNames(), ElementsAre(L"ground_floor 2", L"GROUND_FLOOR", L"Unnamed", L"tab_here", L"*auto_",
                                          L"*auto", L"Ground_floor 3"));
    EXPECT_EQ(engine::drawingOf(database()).states.back().columns.colors[1], 1u) << "as the drawing is";
    EXPECT_EQ(engine::drawingOf(database()).states.back().description, L"Walls in green");
}

// The new state dialog does offer the hidden ones. It must not get as far as deleting one that it couldn't save.
TEST_F(RefusedNames, OfHiddenStatesAreRefusedBeforeAnythingIsDeleted) {
    Script script;
    script.click(IDC_LSTATE_RES_NEW).waitForControl(IDC_LSTATE_SAVE_NAME).type(L"*auto").press(VK_RETURN);
    script.waitUntil("the refusal", [](const View& view) { return !view.has(IDC_LSTATE_SAVE_NAME); });
    script.press(VK_RETURN).waitForControl(IDC_LSTATE_SAVE_NAME).press(VK_ESCAPE).click(IDC_LSTATE_RES_CLOSE);
    ASSERT_TRUE(manage(script));
    EXPECT_EQ(callsOf("ShowInvalidNameUnsupportedCharacters").size(), 1u);
    EXPECT_THAT(callsOf("deleteLayerState"), testing::IsEmpty());
    EXPECT_THAT(stateNames(), testing::Contains(L"*auto"));
}

} // namespace
