// The tips of the pickers' controls, as the pointer brings them up.

#include "PickerFixture.h"

#include "OrvUiPickers.h"
#include "dialogs/TipFile.h"
#include "pickers/PickerIds.h"

namespace {

class PickerTips : public PickerFixture {
  protected:
    void SetUp() override { open(ui::TestDrawing().linetype(L"Dashed").drawing()); }

    static framework::TipTexts tipsOf(const wchar_t* dialog) {
        return framework::readTips(framework::kTipFile, dialog, framework::kTipPrefix);
    }
    /// Brings the pointer to each control that has a tip and is shown, and waits for that tip; then cancels.
    /// @param tips the tips that were seen are taken out
    static ui::Script seeEach(framework::TipTexts& tips, const std::vector<int>& controls) {
        ui::Script script;
        for (const int control : controls) {
            script.hover(control).waitUntil("the tip of control " + std::to_string(control),
                                            [&tips, control](const ui::View&) {
                                                const auto tip = tips.find(control);
                                                return tip != tips.end() && ui::shownTip() == tip->second;
                                            });
            script.look("seen", [&tips, control](const ui::View&) { tips.erase(control); });
        }
        return script;
    }
};

TEST_F(PickerTips, ofTheColorsPagesAndButtonsAreShown) {
    framework::TipTexts tips = tipsOf(L"Workbench:SelectColor");
    KelCmColor color;
    ui::Script script = seeEach(tips, {IDC_COLOR_PALETTE, IDC_COLOR_BYLAYER, IDC_COLOR_BYBLOCK, IDOK, IDCANCEL});
    script.press(VK_TAB, ui::holdControl)
        .then(seeEach(tips, {IDC_COLOR_RED, IDC_COLOR_GREEN, IDC_COLOR_BLUE, IDC_COLOR_MORE}))
        .press(VK_ESCAPE);
    answer(script, [&] { keledSetColorDialogTrueColor(color, true, color, 7); });
    EXPECT_TRUE(tips.empty()) << "the file has tips of controls that aren't there";
}

TEST_F(PickerTips, ofTheListsButtonsAreShown) {
    wchar_t* name = nullptr;
    KelDbObjectId id;
    int weight = 0;
    struct Case {
        const wchar_t* dialog;
        std::function<void()> pick;
    };
    const Case cases[] = {
        {L"Workbench:SelectLinetype", [&] { keledLinetypeDialog(linetypeId(L"Dashed"), false, name, id); }},
        {L"Workbench:SelectLineweight", [&] { keledLineWeightDialog(25, false, weight); }},
        {L"Workbench:SelectPlotStyle", [&] { keledPlotstyleDialog(L"Normal", false, name); }},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(ui::narrow(each.dialog));
        framework::TipTexts tips = tipsOf(each.dialog);
        answer(seeEach(tips, {IDOK, IDCANCEL}).press(VK_ESCAPE), each.pick);
        EXPECT_TRUE(tips.empty());
    }
}

} // namespace
