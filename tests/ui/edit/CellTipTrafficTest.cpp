// What the dialog tells its cell tip and its other tips at each message of the mouse.

#include "GridColumns.h"
#include "OwnDialog.h"

#include <commctrl.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

const Calls kKeptOut = {"SetUseTips(0)", "SetUseTips(1)"};

/// A dialog whose cell tip notes what it is told.
class NotesTraffic : public OwnDialog {
  public:
    std::vector<std::string> told;

    BOOL OnInitDialog() override {
        const BOOL answer = OwnDialog::OnInitDialog();
        SetWindowSubclass(m_cellTip.m_hWnd, note, 1, reinterpret_cast<DWORD_PTR>(this));
        return answer;
    }
    /// Has the dialog filter a message of that point of the screen.
    void filter(HWND window, UINT number, CPoint screen) {
        CPoint client = screen;
        ::ScreenToClient(window, &client);
        MSG message{};
        message.hwnd = window;
        message.message = number;
        message.pt = screen;
        message.lParam = MAKELPARAM(client.x, client.y);
        told.clear();
        instruments::clearTrace();
        PreTranslateMessage(&message);
    }
    void move(CPoint screen) { filter(m_layerGrid.m_hWnd, WM_MOUSEMOVE, screen); }
    /// The middle of a cell on the screen.
    CPoint middleOf(int row, int column) const {
        RECT cell = {};
        ListView_GetSubItemRect(m_layerGrid.m_hWnd, row, column, LVIR_BOUNDS, &cell);
        CPoint middle(cell.left + m_layerGrid.GetColumnWidth(column) / 2, (cell.top + cell.bottom) / 2);
        m_layerGrid.ClientToScreen(&middle);
        return middle;
    }

  private:
    static LRESULT CALLBACK note(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR dialog) {
        auto& told = reinterpret_cast<NotesTraffic*>(dialog)->told;
        if (message == TTM_POP)
            told.push_back("pop");
        else if (message == TTM_UPDATE)
            told.push_back("update");
        else if (message == TTM_GETTEXTW)
            told.push_back("ask");
        else if (message == TTM_RELAYEVENT)
            told.push_back("relay");
        return DefSubclassProc(window, message, wParam, lParam);
    }
};

class CellTipTraffic : public OwnDialogTest {
  protected:
    /// Opens the dialog with its names cut off and the pointer over a cell, and lets `see` send messages from there.
    static void over(NotesTraffic& dialog, int row, int column, const std::function<void()>& see) {
        run(dialog, Script()
                        .look("the names are cut off",
                              [&dialog](const View&) {
                                  dialog.m_layerGrid.SetColumnWidth(nameGridColumn, 30);
                                  dialog.m_layerGrid.UpdateWindow();
                              })
                        .pointAt([&dialog, row, column] { return dialog.middleOf(row, column); })
                        .waitUntil("the dialog has seen the pointer there",
                                   [&dialog, row, column](const View&) {
                                       return dialog.m_lastMousePos == dialog.middleOf(row, column);
                                   })
                        .look("the messages", [see](const View&) { see(); }));
    }
};

TEST_F(CellTipTraffic, AMoveWithinACellWithATextIsPassedOn) {
    NotesTraffic dialog;
    over(dialog, 1, nameGridColumn, [&dialog] {
        const CPoint beside = dialog.middleOf(1, nameGridColumn) + CSize(2, 1);
        dialog.move(beside);
        EXPECT_THAT(dialog.told, ElementsAre("ask", "relay"));
        EXPECT_EQ(instruments::trace(), kKeptOut);
        EXPECT_EQ(dialog.m_lastMousePos, beside);
    });
}

TEST_F(CellTipTraffic, AMoveToAnotherCellWithATextEndsTheFormerTipFirst) {
    NotesTraffic dialog;
    over(dialog, 1, nameGridColumn, [&dialog] {
        for (const auto& [row, column] : {std::pair{2, 0}, {1, 0}, {1, 1}, {1, 0}}) {
            dialog.move(dialog.middleOf(row, column));
            EXPECT_THAT(dialog.told, ElementsAre("ask", "pop", "update", "relay")) << row << ' ' << column;
            EXPECT_EQ(instruments::trace(), kKeptOut);
        }
    });
}

TEST_F(CellTipTraffic, AMoveToWhereThereIsNoTextEndsTheTipAndIsNotPassedOn) {
    NotesTraffic dialog;
    over(dialog, 1, onGridColumn, [&dialog] {
        for (const CSize& step : {CSize(2, 1), CSize(0, 40)}) {
            const CPoint point = dialog.middleOf(1, onGridColumn) + step;
            dialog.move(point);
            EXPECT_THAT(dialog.told, ElementsAre("ask", "pop", "update"));
            EXPECT_EQ(instruments::trace(), kKeptOut);
            EXPECT_EQ(dialog.m_lastMousePos, point);
        }
    });
}

TEST_F(CellTipTraffic, AMoveAtTheSamePlaceIsOnlyPassedOn) {
    NotesTraffic dialog;
    for (const int column : {nameGridColumn, onGridColumn})
        over(dialog, 1, column, [&dialog, column] {
            dialog.move(dialog.middleOf(1, column));
            EXPECT_THAT(dialog.told, ElementsAre("relay"));
            EXPECT_EQ(instruments::trace(), kKeptOut);
            EXPECT_EQ(dialog.m_lastMousePos, dialog.middleOf(1, column));
        });
}

TEST_F(CellTipTraffic, OfOtherWindowsMovesItHearsNothing) {
    NotesTraffic dialog;
    over(dialog, 1, nameGridColumn, [&dialog] {
        const CPoint last = dialog.m_lastMousePos;
        for (const HWND window :
             {dialog.m_hWnd, dialog.GetDlgItem(IDOK)->m_hWnd, dialog.m_layerGrid.GetHeaderCtrl()->m_hWnd}) {
            dialog.filter(window, WM_MOUSEMOVE, last + CSize(3, 0));
            EXPECT_THAT(dialog.told, IsEmpty());
            EXPECT_THAT(instruments::trace(), IsEmpty());
            EXPECT_EQ(dialog.m_lastMousePos, last);
        }
    });
}

TEST_F(CellTipTraffic, EachPressAndReleaseIsPassedOnWhereverItFalls) {
    NotesTraffic dialog;
    over(dialog, 1, nameGridColumn, [&dialog] {
        const HWND label = ::GetWindow(dialog.m_hWnd, GW_CHILD);
        for (const HWND window : {dialog.m_hWnd, label}) {
            for (const UINT number :
                 {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_MBUTTONDOWN, WM_MBUTTONUP}) {
                dialog.filter(window, number, dialog.m_lastMousePos);
                EXPECT_THAT(dialog.told, ElementsAre("relay")) << number;
                EXPECT_THAT(instruments::trace(), IsEmpty());
            }
            for (const UINT number : {WM_MOUSEWHEEL, WM_KEYUP, WM_NCMOUSEMOVE, WM_TIMER}) {
                dialog.filter(window, number, dialog.m_lastMousePos);
                EXPECT_THAT(dialog.told, IsEmpty()) << number;
            }
        }
        dialog.filter(dialog.m_layerGrid.m_hWnd, WM_RBUTTONUP, dialog.m_lastMousePos);
        EXPECT_THAT(dialog.told, ElementsAre("relay"));
    });
}

TEST_F(CellTipTraffic, TheLastCellIsTheOneThatAnyDialogHasSeen) {
    const auto comeTo = [](const std::vector<std::string>& expected) {
        NotesTraffic dialog;
        over(dialog, 1, nameGridColumn, [&dialog, &expected] {
            dialog.move(dialog.middleOf(1, nameGridColumn) + CSize(1, 1));
            EXPECT_EQ(dialog.told, expected);
        });
    };
    comeTo({"ask", "relay"});
    NotesTraffic next;
    over(next, 1, nameGridColumn, [&next] {
        EXPECT_THAT(next.told, testing::Contains("relay"));
        EXPECT_THAT(next.told, testing::Not(testing::Contains("pop"))) << "it isn't another cell";
    });
}

TEST_F(CellTipTraffic, HiddenTheDialogHasNoTipsOfItsOwnAndShownItHas) {
    class CountsHits : public OwnDialog {
      public:
        mutable int hits = 0;
        INT_PTR OnToolHitTest(CPoint point, TOOLINFO* tool) const override {
            ++hits;
            return OwnDialog::OnToolHitTest(point, tool);
        }
        /// @return how often a move over the dialog asks what is there
        int asked() {
            hits = 0;
            MSG message{};
            message.hwnd = m_hWnd;
            message.message = WM_MOUSEMOVE;
            PreTranslateMessage(&message);
            return hits;
        }
    };
    CountsHits dialog;
    look(dialog, [&dialog] {
        EXPECT_EQ(dialog.asked(), 1);
        dialog.ShowWindow(SW_HIDE);
        EXPECT_EQ(dialog.asked(), 0);
        dialog.ShowWindow(SW_SHOW);
        EXPECT_EQ(dialog.asked(), 1);
    });
}

TEST_F(CellTipTraffic, TheListOffersATipWhereverThereIsACell) {
    NotesTraffic dialog;
    const auto offers = [&dialog](bool offered) {
        return Script().look("what it offers", [&dialog, offered](const View&) {
            CRect rect;
            EXPECT_EQ(dialog.m_layerGrid.OnGetTipRect(rect), offered ? 1 : 0);
            EXPECT_EQ(rect.IsRectEmpty(), !offered) << "the cell";
        });
    };
    run(dialog, Script()
                    .pointAt([&dialog] { return dialog.middleOf(1, nameGridColumn); })
                    .then(offers(true))
                    .pointAt([&dialog] { return dialog.middleOf(1, onGridColumn); })
                    .then(offers(true))
                    .pointAt([&dialog] { return dialog.middleOf(3, nameGridColumn) + CSize(0, 40); })
                    .then(offers(false)));
}

TEST_F(CellTipTraffic, WithoutATipWindowTheMovesAndPressesDoNothing) {
    NotesTraffic dialog;
    over(dialog, 1, nameGridColumn, [&dialog] {
        dialog.m_cellTip.DestroyWindow();
        const CPoint last = dialog.m_lastMousePos;
        dialog.move(last + CSize(3, 0));
        EXPECT_EQ(instruments::trace(), kKeptOut);
        dialog.filter(dialog.m_hWnd, WM_RBUTTONUP, last);
        EXPECT_THAT(dialog.told, IsEmpty());
    });
}

} // namespace
