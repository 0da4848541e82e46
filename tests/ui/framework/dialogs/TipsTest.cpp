// Tips: of controls, of buttons without room for their text, of cut-off cells.

#include "DialogFixture.h"

#include "dialogs/TipFile.h"

#include <commctrl.h>

using framework::readTips;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

namespace {

constexpr const wchar_t* kTipFile = L"framework-tips.xaml";

class Tips : public DialogFixture {
  protected:
    TestDialog dialog{IDD_FIXED};
    COrvUiBitmapButton button;
    COrvUiListCtrl list;

    Tips() {
        write("<DialogToolTips>"
              "<Dialog Name='FrameworkTests:Dialog' Prefix='LAST'>"
              "<Tip Control='1101'>What the\n   button does</Tip><Tip Control='x'>No id</Tip>"
              "<Tip Control='1'></Tip></Dialog>"
              "<Dialog Name='FrameworkTests:Dialog' Prefix='FIRST'><Tip Control='1101'>Other</Tip></Dialog>"
              "<Dialog Name='FrameworkTests:Other' Prefix='LAST'><Tip Control='1101'>Another</Tip></Dialog>"
              "</DialogToolTips>");
        dialog.setUp = [this] {
            button.SubclassDlgItem(IDC_TEST_FACE, &dialog);
            list.SubclassDlgItem(IDC_TEST_LIST, &dialog);
            list.InsertColumn(0, L"Name", LVCFMT_LEFT, 60, 0);
            list.InsertItem(0, L"A name that is far too long for its column");
            list.InsertItem(1, L"Short");
            useTips(kTipFile);
        };
    }
    ~Tips() override { DeleteFileW(kTipFile); }

    static void write(const char* content) {
        const HANDLE file = CreateFileW(kTipFile, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        WriteFile(file, content, static_cast<DWORD>(strlen(content)), &written, nullptr);
        CloseHandle(file);
    }
    void useTips(const wchar_t* file) {
        dialog.SetContextHelpPrefix(L"LAST");
        dialog.SetContextHelpFileName(file);
        dialog.SetUseTips(2);
    }
    ui::Script& pointAtControl(ui::Script& script, int id) {
        return script.pointAt([this, id] { return ui::middleOf(screenRect(dialog.control(id))); });
    }
    ui::Script& pointAtRow(ui::Script& script, int row) {
        return script.pointAt([this, row] {
            RECT label = {};
            ListView_GetItemRect(list.GetSafeHwnd(), row, &label, LVIR_LABEL);
            POINT point = {label.left + 20, (label.top + label.bottom) / 2};
            ClientToScreen(list.GetSafeHwnd(), &point);
            return point;
        });
    }
};

TEST_F(Tips, aFileHoldsThemByDialogPrefixAndControl) {
    EXPECT_THAT(readTips(kTipFile, L"FrameworkTests:Dialog", L"LAST"),
                UnorderedElementsAre(Pair(1101, L"What the button does")));
    EXPECT_THAT(readTips(kTipFile, L"FrameworkTests:Dialog", L"NONE"), IsEmpty());
    EXPECT_THAT(readTips(kTipFile, L"", L"LAST"), IsEmpty());
}

TEST_F(Tips, aMissingOrBrokenFileHoldsNone) {
    EXPECT_THAT(readTips(L"/X;Component/NoSuchFile.xaml", L"FrameworkTests:Dialog", L"LAST"), IsEmpty());
    write("<DialogToolTips><Dialog Name='FrameworkTests:Dialog' Prefix='LAST'><Tip Control='1101'>x</Tip></Dial");
    EXPECT_THAT(readTips(kTipFile, L"FrameworkTests:Dialog", L"LAST"), IsEmpty());
}

TEST_F(Tips, theManagersStandInTheFileOfTheFramework) {
    const auto tips =
        readTips(L"/KelDialogToolTips;Component/DialogToolTips.xaml", L"KelLayerApps:LayerStatesManager", L"LAST");
    EXPECT_EQ(tips.count(1021), 1u);
}

TEST_F(Tips, thePointerOverAControlShowsItsTip) {
    ui::Script script;
    pointAtControl(script, IDC_TEST_BUTTON);
    script.waitForTip(L"What the button does");
    pointAtControl(script, IDCANCEL);
    script.waitForTip(L"");
    dialog.run(script);
}

TEST_F(Tips, thePointerOverTheEditFieldOfAComboBoxShowsTheTipOfTheBox) {
    dialog.setUp = [this] {
        // In the place of a button, whose id it takes with it.
        DestroyWindow(dialog.control(IDC_TEST_BUTTON));
        CreateWindowExW(0, WC_COMBOBOXW, L"", WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, 10, 10, 90, 100,
                        dialog.GetSafeHwnd(), reinterpret_cast<HMENU>(INT_PTR{IDC_TEST_BUTTON}), nullptr, nullptr);
        useTips(kTipFile);
    };
    ui::Script script;
    pointAtControl(script, IDC_TEST_BUTTON);
    script.look("the pointer is over the field", [this](const ui::View&) {
        POINT point = {};
        GetCursorPos(&point);
        EXPECT_EQ(GetParent(WindowFromPoint(point)), dialog.control(IDC_TEST_BUTTON));
    });
    script.waitForTip(L"What the button does");
    dialog.run(script);
}

TEST_F(Tips, whileKeptOutNoTipShows) {
    ui::Script script = look("keep out", [&] { dialog.SetUseTips(0); });
    pointAtControl(script, IDC_TEST_BUTTON);
    script.seeNoTip();
    script.look("let in", [&](const ui::View&) { dialog.SetUseTips(1); });
    pointAtControl(script, IDCANCEL);
    pointAtControl(script, IDC_TEST_BUTTON);
    script.waitForTip(L"What the button does");
    script.look("keep out again", [&](const ui::View&) { dialog.SetUseTips(0); });
    script.waitForTip(L"");
    dialog.run(script);
}

TEST_F(Tips, withoutAFileTheDialogWorksWithoutTips) {
    dialog.setUp = [this] { useTips(L"/X;Component/NoSuchFile.xaml"); };
    ui::Script script;
    pointAtControl(script, IDC_TEST_BUTTON);
    script.seeNoTip();
    dialog.run(script);
}

TEST_F(Tips, withABrokenFileOrOneThatLacksTheDialogItWorksWithoutTips) {
    for (const char* content :
         {"<DialogToolTips><Dialog Name='FrameworkTests:Dialog' Prefix='LAST'><Tip Control='1101'>x", "", "no XML",
          "<DialogToolTips/>", "<Other><Tip Control='1101'>x</Tip></Other>"}) {
        write(content);
        dialog.setUp = [this] { useTips(kTipFile); };
        ui::Script script;
        pointAtControl(script, IDC_TEST_BUTTON);
        script.seeNoTip();
        EXPECT_EQ(dialog.run(script), IDOK) << content;
    }
}

TEST_F(Tips, ofControlsThatAreNoNumbersOrAbsentAreLeftOut) {
    write("<DialogToolTips><Dialog Name='FrameworkTests:Dialog' Prefix='LAST'><Tip>x</Tip><Tip Control=''>x</Tip>"
          "<Tip Control='-1'>x</Tip><Tip Control='0'>x</Tip><Tip Control='65536'>x</Tip>"
          "<Tip Control='99999999999999999999'>x</Tip><Hint Control='1101'>x</Hint><Tip Control='7777'>x</Tip>"
          "</Dialog></DialogToolTips>");
    EXPECT_THAT(readTips(kTipFile, L"FrameworkTests:Dialog", L"LAST"), UnorderedElementsAre(Pair(7777, L"x")));
    EXPECT_EQ(dialog.run(), IDOK);
}

TEST_F(Tips, aButtonWithoutRoomForItsTextSaysItInItsTipAlsoAfterAChange) {
    ui::Script script = look("a text", [&] { button.SetWindowText(L"Show the properties"); });
    pointAtControl(script, IDC_TEST_FACE);
    script.waitForTip(L"Show the properties");
    pointAtControl(script, IDCANCEL);
    script.waitForTip(L"");
    script.look("another text", [&](const ui::View&) { button.SetWindowText(L"Hide the properties"); });
    pointAtControl(script, IDC_TEST_FACE);
    script.waitForTip(L"Hide the properties");
    dialog.run(script);
}

TEST_F(Tips, aCutOffCellIsShownInFullAndAShortOneIsNot) {
    ui::Script script;
    pointAtRow(script, 0);
    script.waitForTip(L"A name that is far too long for its column");
    pointAtRow(script, 1);
    script.waitForTip(L"");
    script.seeNoTip();
    dialog.run(script);
}

/// Has a tip of its own over one control, as MFC brings it, beside those of the framework.
class TipsOfBothKinds : public TestDialog {
  public:
    TipsOfBothKinds() : TestDialog(IDD_FIXED) {
        setUp = [this] {
            SetContextHelpPrefix(L"LAST");
            SetContextHelpFileName(kTipFile);
            SetUseTips(2);
            EnableToolTips();
        };
    }
    INT_PTR OnToolHitTest(CPoint point, TOOLINFO* tool) const override {
        const CWnd* const button = GetDlgItem(IDCANCEL);
        CRect place;
        button->GetWindowRect(place);
        ScreenToClient(place);
        if (!place.PtInRect(point))
            return -1;
        tool->hwnd = button->m_hWnd;
        button->GetClientRect(&tool->rect);
        tool->lpszText = _wcsdup(L"Ends the dialog");
        return IDCANCEL;
    }
    /// Both kinds are switched off and on at once.
    void use(bool on) {
        SetUseTips(on);
        EnableToolTips(on);
    }
};

TEST_F(Tips, ofADialogsOwnStandBesideThem) {
    TipsOfBothKinds both;
    const auto switched = [&](bool on) { return look("switched", [&both, on] { both.use(on); }); };
    ui::Script script;
    for (int time = 0; time < 2; ++time)
        script.hover(IDC_TEST_BUTTON)
            .waitForTip(L"What the button does")
            .hover(IDCANCEL)
            .waitForTip(L"Ends the dialog")
            .then(switched(false))
            .waitForTip(L"")
            .hover(IDC_TEST_BUTTON)
            .seeNoTip()
            .hover(IDCANCEL)
            .seeNoTip()
            .then(switched(true));
    both.run(script);
}

} // namespace
