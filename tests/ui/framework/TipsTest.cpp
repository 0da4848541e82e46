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

/// The text of the tip that shows, empty when there is none.
std::wstring shownTip() {
    std::wstring text;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            wchar_t name[64] = {};
            GetClassNameW(window, name, 64);
            if (std::wstring_view(name) != TOOLTIPS_CLASSW || !IsWindowVisible(window))
                return TRUE;
            *reinterpret_cast<std::wstring*>(result) = textOf(window);
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&text));
    return text;
}

Step shows(const std::wstring& text) {
    return {"a tip shows", [text] { return shownTip() == text; }};
}

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
            movePointer({1, 1});
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
    Step pointAt(int id) {
        return act("point at " + std::to_string(id), [this, id] { movePointer(centreOf(dialog.control(id))); });
    }
    Step pointAtRow(int row) {
        return act("point at row " + std::to_string(row), [this, row] {
            RECT label = {};
            ListView_GetItemRect(list.GetSafeHwnd(), row, &label, LVIR_LABEL);
            POINT point = {label.left + 20, (label.top + label.bottom) / 2};
            ClientToScreen(list.GetSafeHwnd(), &point);
            movePointer(point);
        });
    }
    void run(std::vector<Step> steps) {
        steps.push_back(dialog.close());
        Steps running(std::move(steps));
        dialog.DoModal();
    }
    Step nothing() {
        return act("no tip", [] { EXPECT_EQ(shownTip(), L""); });
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
    write("<DialogToolTips><Dialog Name='FrameworkTests:Dialog' Prefix='LAST'><Tip Control='1101'>x</Tip></Dialog>");
    EXPECT_THAT(readTips(kTipFile, L"FrameworkTests:Dialog", L"LAST"), IsEmpty());
}

TEST_F(Tips, theManagersStandInTheFileOfTheFramework) {
    const auto tips =
        readTips(L"/KelDialogToolTips;Component/DialogToolTips.xaml", L"KelLayerApps:LayerStatesManager", L"LAST");
    EXPECT_EQ(tips.count(1021), 1u);
}

TEST_F(Tips, thePointerOverAControlShowsItsTip) {
    run({pointAt(IDC_TEST_BUTTON), shows(L"What the button does"), pointAt(IDCANCEL), shows(L"")});
}

TEST_F(Tips, whileKeptOutNoTipShows) {
    run({act("keep out", [&] { dialog.SetUseTips(0); }), pointAt(IDC_TEST_BUTTON), pause(1500), nothing(),
         act("let in", [&] { dialog.SetUseTips(1); }), pointAt(IDCANCEL), pause(100), pointAt(IDC_TEST_BUTTON),
         shows(L"What the button does"), act("keep out again", [&] { dialog.SetUseTips(0); }), shows(L"")});
}

TEST_F(Tips, withoutAFileTheDialogWorksWithoutTips) {
    dialog.setUp = [this] { useTips(L"/X;Component/NoSuchFile.xaml"); };
    run({pointAt(IDC_TEST_BUTTON), pause(1500), nothing()});
}

TEST_F(Tips, aButtonWithoutRoomForItsTextSaysItInItsTipAlsoAfterAChange) {
    run({act("a text", [&] { button.SetWindowText(L"Show the properties"); }), pointAt(IDC_TEST_FACE),
         shows(L"Show the properties"), pointAt(IDCANCEL), shows(L""),
         act("another text", [&] { button.SetWindowText(L"Hide the properties"); }), pointAt(IDC_TEST_FACE),
         shows(L"Hide the properties")});
}

TEST_F(Tips, aCutOffCellIsShownInFullAndAShortOneIsNot) {
    run({pointAtRow(0), shows(L"A name that is far too long for its column"), pointAtRow(1), shows(L""), pause(1200),
         nothing()});
}

} // namespace
