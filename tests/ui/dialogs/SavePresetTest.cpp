// A name that is given before the dialog opens, which no caller in the module does: the dialog's class on its own.

#include "SaveDialogTest.h"

#include "CLayerStatesSaveDlg.h"
#include "CResourceScope.h"
#include "ModuleHandles.h"

HINSTANCE g_moduleInstance = nullptr;
HINSTANCE g_resourceModule = nullptr;

namespace {

using testing::ElementsAreArray;
using ui::Script;
using ui::View;

class PresetDialog : public CLayerStatesSaveDlg {
  public:
    explicit PresetDialog(const wchar_t* name) : CLayerStatesSaveDlg(nullptr, false) { m_stateName = name; }
    BOOL OnInitDialog() override {
        const BOOL answer = CLayerStatesSaveDlg::OnInitDialog();
        m_nameHasFocus = ::IsChild(GetDlgItem(IDC_LSTATE_SAVE_NAME)->m_hWnd, ::GetFocus());
        return answer;
    }
    /// After the dialog's own set-up, where Wine hasn't yet given the focus to the first control by itself.
    BOOL m_nameHasFocus = FALSE;
};

class SavePreset : public SaveDialogTest {
  protected:
    void SetUp() override {
        SaveDialogTest::SetUp();
        open(house());
        g_resourceModule = GetModuleHandleW(L"KelLayerAppsRes.dll");
    }
    void TearDown() override {
        g_resourceModule = nullptr;
        SaveDialogTest::TearDown();
    }
    /// Runs the dialog with that name given beforehand. @return the name that it answers after OK
    static std::wstring saveUnder(const wchar_t* name, Script script) {
        const CResourceScope scope;
        instruments::clearTrace();
        PresetDialog dialog(name);
        INT_PTR answer = 0;
        ui::perform(std::move(script), [&] { answer = dialog.DoModal(); });
        return answer == IDOK ? dialog.GetStateName().GetString() : L"";
    }
    /// What the dialog asks for while it opens with a name given, whose description it reads.
    static Calls openingWith(const Calls& description) {
        return joined({opening("[\"Plan\", \"Bare\"]"), stateManager(), description});
    }
};

TEST_F(SavePreset, HasTheFocusBeforeTheSystemWouldPlaceIt) {
    const CResourceScope scope;
    PresetDialog dialog(L"Plan");
    ui::perform(Script().press(VK_ESCAPE), [&dialog] { dialog.DoModal(); });
    EXPECT_TRUE(dialog.m_nameHasFocus);
}

TEST_F(SavePreset, IsSelectedInTheListAndItsDescriptionShown) {
    saveUnder(L"plan",
              Script()
                  .then(nameIsSelected(L"Plan"))
                  .look("the rest",
                        [](const View& view) {
                            EXPECT_EQ(SendMessageW(view.control(IDC_LSTATE_SAVE_NAME), CB_GETCURSEL, 0, 0), 1);
                            EXPECT_EQ(view.text(IDC_LSTATE_SAVE_DESCRIPTION), L"All of it");
                            EXPECT_TRUE(view.isEnabled(IDOK));
                            EXPECT_THAT(instruments::trace(),
                                        ElementsAreArray(openingWith(
                                            {"getLayerStateDescription(\"plan\") = 0, description=\"All of it\"",
                                             "keldbFree(\"All of it\")"})));
                        })
                  .press(VK_ESCAPE));
}

TEST_F(SavePreset, ThatIsntListedIsntShownButItsDescriptionIs) {
    instruments::failCall("getLayerStateNames", 1);
    saveUnder(L"Plan", Script()
                           .look("the fields",
                                 [](const View& view) {
                                     EXPECT_EQ(view.text(IDC_LSTATE_SAVE_NAME), L"");
                                     EXPECT_EQ(view.text(IDC_LSTATE_SAVE_DESCRIPTION), L"All of it");
                                     EXPECT_FALSE(view.isEnabled(IDOK));
                                 })
                           .press(VK_ESCAPE));
}

TEST_F(SavePreset, WhoseDescriptionCantBeReadLeavesTheFieldEmpty) {
    saveUnder(L"Other",
              Script()
                  .look("the fields",
                        [](const View& view) {
                            EXPECT_EQ(view.text(IDC_LSTATE_SAVE_NAME), L"");
                            EXPECT_EQ(view.text(IDC_LSTATE_SAVE_DESCRIPTION), L"");
                            EXPECT_THAT(instruments::trace(),
                                        ElementsAreArray(openingWith({"getLayerStateDescription(\"Other\") = " +
                                                                      std::to_string(Vorn::eKeyNotFound)})));
                        })
                  .press(VK_ESCAPE));
}

TEST_F(SavePreset, WithoutAStateManagerIsNotLookedUp) {
    instruments::failCall("getLayerStateManager", 2); // the first is the list's
    saveUnder(L"Plan", Script()
                           .then(nameIsSelected(L"Plan"))
                           .look("the description",
                                 [](const View& view) { EXPECT_EQ(view.text(IDC_LSTATE_SAVE_DESCRIPTION), L""); })
                           .press(VK_ESCAPE));
}

TEST_F(SavePreset, IsSavedWithoutAnyPropertyUnlessANameIsPicked) {
    EXPECT_EQ(saveUnder(L"Plan", countFromHere().press(VK_RETURN).click(1001)), L"Plan");
    EXPECT_THAT(instruments::trace(), ElementsAreArray(joined({checking("Plan", true),
                                                               asking("Plan", 1001),
                                                               {"deleteLayerState(\"Plan\") = 0"},
                                                               saving("Plan", 0, "All of it")})));
    EXPECT_EQ(stored(L"Plan")->mask, 0u);
}

TEST_F(SavePreset, GivesWayToTheTrimmedNameThatWasSaved) {
    EXPECT_EQ(saveUnder(L"Plan", Script().type(L" New ").press(VK_RETURN)), L"New");
}

} // namespace
