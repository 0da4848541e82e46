// Editing a description in its cell, step by step: what opens, what is asked of the host, and what stays when the host
// refuses.
#include "ImportFaults.h"
#include "ListTest.h"

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

namespace {

using Texts = std::vector<std::wstring>;

const Calls kAsked = {"isDependentLayerState(\"Beta\") = false"};

class CellEdit : public ListTest {
  protected:
    void SetUp() override {
        ListTest::SetUp();
        open(fourStates());
    }
    /// Opens the editor over the description of "Beta", and counts the calls from then on.
    Script openEditor() {
        return openCell(1, descriptionColumn)
            .waitUntil("the editor is open", [this](const View&) { return m_list.isEditorShown(); })
            .then(look("from here", [] { instruments::clearTrace(); }));
    }
    /// From here on the host refuses every description for "Beta", which is gone from the drawing.
    Script beginRefusing() {
        return look("the host refuses", [this] { ASSERT_EQ(states().deleteLayerState(L"Beta"), Vorn::eOk); });
    }
    Script endRefusing() {
        return look("the host accepts again",
                    [this] { ASSERT_EQ(states().saveLayerState(L"Beta", MaskColor), Vorn::eOk); });
    }
    /// The editor is open with that text and the focus.
    void expectOpen(const wchar_t* text) {
        EXPECT_TRUE(m_list.isEditorShown());
        EXPECT_STREQ(m_list.editorText(), text);
        EXPECT_EQ(::GetFocus(), m_list.m_inPlaceEdit.m_hWnd);
        EXPECT_EQ(m_list.m_editRow, 1);
        EXPECT_EQ(m_list.m_editColumn, descriptionColumn);
    }
    /// The editor is closed, and the list has the focus.
    void expectClosed() {
        EXPECT_FALSE(m_list.isEditorShown());
        EXPECT_EQ(::GetFocus(), m_list.m_hWnd);
        EXPECT_EQ(m_list.m_editRow, -1);
        EXPECT_EQ(m_list.m_editColumn, -1);
    }
    CRect placeInList(CWnd& window) const {
        CRect place;
        window.GetWindowRect(&place);
        m_list.ScreenToClient(&place);
        return place;
    }
    /// Whether all of the list is to be drawn again, its background included.
    bool drawsItselfWhole(const std::function<void()>& action) {
        m_list.RedrawWindow(nullptr, nullptr, RDW_VALIDATE);
        action();
        CRect client;
        m_list.GetClientRect(&client);
        CRect update;
        const bool whole = m_list.GetUpdateRect(&update) && update == client;
        int erased = 0;
        m_list.onMessage = [&erased](UINT message, WPARAM, LPARAM) { erased += message == WM_ERASEBKGND; };
        m_list.UpdateWindow();
        m_list.onMessage = [](UINT, WPARAM, LPARAM) {};
        return whole && erased > 0;
    }
    std::wstring described(const wchar_t* state) const {
        wchar_t* text = nullptr;
        if (states().getLayerStateDescription(state, text) != Vorn::eOk)
            return L"(none)";
        std::wstring found(text);
        keldbFree(text);
        return found;
    }
};

} // namespace

TEST_F(CellEdit, OpensOverTheCellTwoPixelsHigherAndLowerWithItsTextSelected) {
    show(openEditor().then(look("the editor", [this] {
        expectOpen(L"for the plan");
        CRect cell;
        m_list.GetSubItemRect(1, descriptionColumn, LVIR_BOUNDS, cell);
        cell.InflateRect(0, 2);
        EXPECT_EQ(placeInList(m_list.m_inPlaceEdit), cell);
        EXPECT_EQ(m_list.m_inPlaceEdit.SendMessage(WM_GETFONT), m_list.SendMessage(WM_GETFONT));
        int start = 0;
        int end = 0;
        m_list.m_inPlaceEdit.GetSel(start, end);
        EXPECT_EQ(start, 0);
        EXPECT_EQ(end, 12);
        EXPECT_EQ(m_list.m_activeEdit, &m_list.m_inPlaceEdit);
    })));
}

TEST_F(CellEdit, AsksWhetherTheStateIsDependentAndThenDrawsTheListAgain) {
    show(look("opened", [this] {
        EXPECT_TRUE(drawsItselfWhole([this] { m_list.BeginCellEdit(1, descriptionColumn); }));
        EXPECT_EQ(instruments::trace(), withService(kAsked));
        expectOpen(L"for the plan");
    }));
}

TEST_F(CellEdit, UsesOneEditorForAllCells) {
    show(look("opened twice", [this] {
        EXPECT_EQ(m_list.m_inPlaceEdit.m_hWnd, nullptr);
        m_list.BeginCellEdit(1, spaceColumn);
        EXPECT_EQ(m_list.m_inPlaceEdit.m_hWnd, nullptr) << "not before it is needed";
        m_list.BeginCellEdit(1, descriptionColumn);
        const HWND first = m_list.m_inPlaceEdit.m_hWnd;
        m_list.EndCellEdit(true);
        m_list.BeginCellEdit(2, descriptionColumn);
        EXPECT_EQ(m_list.m_inPlaceEdit.m_hWnd, first);
        EXPECT_STREQ(m_list.editorText(), L"");
        EXPECT_EQ(m_list.m_editRow, 2);
        m_list.EndCellEdit(true);
    }));
}

TEST_F(CellEdit, StaysClosedOverACellWithoutAnArea) {
    show(look("a column without a width", [this] {
        m_list.SetColumnWidth(descriptionColumn, 0);
        m_list.BeginCellEdit(1, descriptionColumn);
        EXPECT_FALSE(m_list.isEditorShown());
        EXPECT_EQ(::GetFocus(), m_list.m_hWnd);
    }));
}

TEST_F(CellEdit, StaysClosedWhenTheEditorsWindowCantBeMade) {
    const ImportFaults faults;
    show(openCell(1, nameColumn)
             .then(look("windows fail", [] { ImportFaults::begin("CreateWindowExW", 1); }))
             .clickCell(IDC_TEST_LIST, 1, descriptionColumn)
             .then(look("closed",
                        [this] {
                            EXPECT_TRUE(ImportFaults::struck());
                            ImportFaults::end();
                            EXPECT_EQ(m_list.m_inPlaceEdit.m_hWnd, nullptr);
                            EXPECT_EQ(m_list.m_activeEdit, nullptr);
                            EXPECT_EQ(::GetFocus(), m_list.m_hWnd);
                        }))
             .clickCell(IDC_TEST_LIST, 1, descriptionColumn)
             .then(look("it can be tried again", [this] { EXPECT_TRUE(m_list.isEditorShown()); })));
}

TEST_F(CellEdit, OpensWithoutAStateServiceButKeepsNothingThen) {
    show(look("no service", [this] {
        instruments::failCall("getLayerStateManager", 1);
        m_list.BeginCellEdit(1, descriptionColumn);
        expectOpen(L"for the plan");
        instruments::failCall("getLayerStateManager", 1);
        m_list.EndCellEdit(false);
        expectOpen(L"for the plan");
        EXPECT_THAT(ui::callsOf("setLayerStateDescription"), IsEmpty());
        m_list.EndCellEdit(true);
    }));
}

TEST_F(CellEdit, KeepsTheTextInTheDrawingAndInTheCellAndDrawsTheListAgain) {
    show(openEditor().type(L"as built").then(look("kept", [this] {
        EXPECT_TRUE(drawsItselfWhole([this] { m_list.EndCellEdit(false); }));
        expectClosed();
        EXPECT_EQ(instruments::trace(), withService({"setLayerStateDescription(\"Beta\", \"as built\") = 0"}));
        EXPECT_EQ(m_list.column(descriptionColumn), (Texts{L"", L"as built", L"", L""}));
        EXPECT_EQ(described(L"Beta"), L"as built");
        EXPECT_THAT(m_list.editorCodes, IsEmpty()) << "the editor was hidden before it lost the focus";
    })));
}

TEST_F(CellEdit, DropsTheTextAndDrawsTheListAgain) {
    show(openEditor().type(L"as built").then(look("dropped", [this] {
        EXPECT_TRUE(drawsItselfWhole([this] { m_list.EndCellEdit(true); }));
        expectClosed();
        EXPECT_THAT(instruments::trace(), IsEmpty());
        EXPECT_EQ(m_list.column(descriptionColumn), (Texts{L"", L"for the plan", L"", L""}));
        EXPECT_THAT(m_list.editorCodes, IsEmpty());
    })));
}

TEST_F(CellEdit, ReportsEachEndOnce) {
    show(openEditor()
             .press(VK_RETURN)
             .then(look("Enter", [this] { EXPECT_THAT(m_list.editorCodes, ElementsAre(kInPlaceEditLeft)); }))
             .then(openEditor())
             .press(VK_ESCAPE)
             .then(look("Esc", [this] {
                 EXPECT_THAT(m_list.editorCodes, ElementsAre(kInPlaceEditLeft, kInPlaceEditCancelled));
             })));
}

TEST_F(CellEdit, DropsAnEditWithoutAnEditorByForgettingTheCell) {
    show(look("no editor", [this] {
        m_list.BeginCellEdit(1, nameColumn);
        m_list.GetParent()->GetDlgItem(IDC_TEST_BUTTON)->SetFocus();
        const HWND focus = ::GetFocus();
        m_list.EndCellEdit(true);
        EXPECT_EQ(m_list.m_editRow, -1);
        EXPECT_EQ(m_list.m_editColumn, -1);
        EXPECT_EQ(::GetFocus(), focus);
    }));
}

TEST_F(CellEdit, HasNothingToKeepForACellThatMayNotBeEdited) {
    show(look("no editor", [this] {
        m_list.BeginCellEdit(1, descriptionColumn);
        m_list.EndCellEdit(true);
        m_list.BeginCellEdit(1, nameColumn);
        EXPECT_EQ(m_list.m_activeEdit, nullptr);
        instruments::clearTrace();
        m_list.EndCellEdit(false);
        EXPECT_THAT(instruments::trace(), IsEmpty());
    }));
}

TEST_F(CellEdit, StaysOpenWithItsTextAndTheFocusWhenTheHostRefuses) {
    show(openEditor()
             .type(L"as built")
             .then(look("refused",
                        [this] {
                            instruments::failCall("setLayerStateDescription", 1);
                            m_list.SetFocus();
                            expectOpen(L"as built");
                            EXPECT_EQ(instruments::trace(),
                                      withService({"setLayerStateDescription(\"Beta\", \"as built\") = 3"}));
                            EXPECT_THAT(m_list.editorCodes, ElementsAre(kInPlaceEditLeft));
                            EXPECT_EQ(m_list.column(descriptionColumn), (Texts{L"", L"for the plan", L"", L""}));
                            EXPECT_EQ(described(L"Beta"), L"for the plan");
                        }))
             .type(L", mended")
             .press(VK_RETURN)
             .then(look("accepted", [this] {
                 expectClosed();
                 EXPECT_EQ(described(L"Beta"), L"as built, mended");
             })));
}

TEST_F(CellEdit, DoesntTakeTheFocusAnewWhenItIsInTheEditorAlready) {
    show(openEditor().then(look("refused", [this] {
        CEdit inside;
        ASSERT_TRUE(inside.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 20, 10), &m_list.m_inPlaceEdit, 1));
        for (CWnd* const holder : {static_cast<CWnd*>(&m_list.m_inPlaceEdit), static_cast<CWnd*>(&inside)}) {
            holder->SetFocus();
            instruments::failCall("setLayerStateDescription", 1);
            m_list.EndCellEdit(false);
            EXPECT_EQ(::GetFocus(), holder->m_hWnd);
        }
        inside.DestroyWindow();
        m_list.m_inPlaceEdit.SetFocus();
    })));
}

TEST_F(CellEdit, EscDropsATextThatTheHostHasRefused) {
    show(openEditor()
             .type(L"as built")
             .then(look("refused",
                        [this] {
                            instruments::failCall("setLayerStateDescription", 1);
                            m_list.SetFocus();
                            instruments::clearTrace();
                        }))
             .press(VK_ESCAPE)
             .then(look("dropped", [this] {
                 expectClosed();
                 EXPECT_THAT(instruments::trace(), IsEmpty());
                 EXPECT_EQ(m_list.column(descriptionColumn), (Texts{L"", L"for the plan", L"", L""}));
             })));
}

TEST_F(CellEdit, StaysOverItsCellAtClicksOnAnotherOneWhileTheHostRefuses) {
    show(openEditor()
             .type(L"as built")
             .then(beginRefusing())
             .clickCell(IDC_TEST_LIST, 2, descriptionColumn)
             .then(look("refused",
                        [this] {
                            expectOpen(L"as built");
                            EXPECT_EQ(m_list.m_trackedRow, 2);
                        }))
             .clickCell(IDC_TEST_LIST, 2, descriptionColumn)
             .then(look("refused, although that row is the tracked one now", [this] { expectOpen(L"as built"); }))
             .then(endRefusing())
             .press(VK_RETURN)
             .then(look("accepted, for the row that it was typed for", [this] {
                 expectClosed();
                 EXPECT_EQ(m_list.column(descriptionColumn), (Texts{L"", L"as built", L"", L""}));
                 EXPECT_EQ(described(L"Beta"), L"as built");
                 EXPECT_EQ(described(L"gamma"), L"");
             })));
}

TEST_F(CellEdit, IsKeptForItsRowBeforeAClickOnAHeadingMovesIt) {
    show(openEditor()
             .type(L"as built")
             .then(look("from here", [] { instruments::clearTrace(); }))
             .clickHeading(IDC_TEST_LIST, nameColumn)
             .then(look("kept, then sorted", [this] {
                 expectClosed();
                 Calls calls = withService({"setLayerStateDescription(\"Beta\", \"as built\") = 0"});
                 calls.insert(calls.begin(), "DoWaitCursor(1)");
                 calls.push_back("DoWaitCursor(-1)");
                 EXPECT_EQ(instruments::trace(), calls);
                 EXPECT_EQ(m_list.column(nameColumn), (Texts{L"Beta", L"alpha", L"gamma", L"site!Survey"}));
                 EXPECT_EQ(m_list.column(descriptionColumn), (Texts{L"as built", L"", L"", L""}));
             })));
}

TEST_F(CellEdit, KeepsTheRowsWhereTheyAreAtAClickOnAHeadingWhileTheHostRefuses) {
    show(openEditor()
             .type(L"as built")
             .then(beginRefusing())
             .clickHeading(IDC_TEST_LIST, nameColumn)
             .then(look("refused, and not sorted",
                        [this] {
                            expectOpen(L"as built");
                            EXPECT_EQ(m_list.column(nameColumn), (Texts{L"alpha", L"Beta", L"gamma", L"site!Survey"}));
                            EXPECT_EQ(m_list.m_sortColumn, -1);
                            EXPECT_EQ(m_list.m_sortAscending, 1);
                        }))
             .press(VK_ESCAPE));
}

TEST_F(CellEdit, IsDroppedWhenTheListIsFilledAnewWhileTheHostRefuses) {
    show(openEditor().type(L"as built").then(beginRefusing()).then(look("refused, then filled", [this] {
        m_list.SetFocus();
        expectOpen(L"as built");
        instruments::clearTrace();
        m_list.PopulateStates(&database(), true, true);
        expectClosed();
        EXPECT_THAT(ui::callsOf("setLayerStateDescription"), IsEmpty());
        EXPECT_EQ(m_list.column(descriptionColumn), (Texts{L"", L"", L""}));
    })));
}

TEST_F(CellEdit, IsDroppedWhenARowGoesWhileTheHostRefuses) {
    for (const int row : {0, 1, 2}) {
        SCOPED_TRACE(row);
        open(fourStates());
        show(openEditor().type(L"as built").then(beginRefusing()).then(look("refused, then a row goes", [=, this] {
            m_list.SetFocus();
            expectOpen(L"as built");
            instruments::clearTrace();
            m_list.DeleteItem(row);
            expectClosed();
            EXPECT_THAT(instruments::trace(), IsEmpty());
        })));
    }
}

TEST_F(CellEdit, StaysAloneWhenARenameIsAskedForWhileTheHostRefuses) {
    show(openEditor()
             .type(L"as built")
             .then(beginRefusing())
             .then(look("asked",
                        [this] {
                            EXPECT_EQ(m_list.EditLabel(1), nullptr);
                            expectOpen(L"as built");
                            EXPECT_EQ(m_list.m_labelEditActive, 0);
                        }))
             .look("no box over the name",
                   [](const View& view) { EXPECT_EQ(view.labelEditorText(IDC_TEST_LIST), std::nullopt); })
             .press(VK_ESCAPE));
}

TEST_F(CellEdit, IsKeptBeforeARenameOpens) {
    show(openEditor()
             .type(L"as built")
             .then(look("asked",
                        [this] {
                            instruments::clearTrace();
                            EXPECT_NE(m_list.EditLabel(1), nullptr);
                            EXPECT_FALSE(m_list.isEditorShown());
                            EXPECT_EQ(m_list.m_labelEditActive, 1);
                            Calls calls = instruments::trace();
                            const Calls kept = withService({"setLayerStateDescription(\"Beta\", \"as built\") = 0"});
                            ASSERT_GE(calls.size(), kept.size());
                            calls.resize(kept.size());
                            EXPECT_EQ(calls, kept) << "before anything is asked for the rename";
                        }))
             .look("the box over the name",
                   [](const View& view) { EXPECT_EQ(view.labelEditorText(IDC_TEST_LIST), L"Beta"); })
             .press(VK_ESCAPE));
}

TEST_F(CellEdit, IsKeptWhenNoWindowHasTheFocusAnyMore) {
    show(openEditor().type(L"as built").then(look("the focus goes", [this] {
        ::SetFocus(nullptr);
        expectClosed();
        EXPECT_EQ(described(L"Beta"), L"as built");
    })));
}

TEST_F(CellEdit, IsKeptBeforeTheListScrolls) {
    ui::TestDrawing drawing;
    for (int number = 10; number < 40; ++number)
        drawing.state(std::to_wstring(number), MaskColor);
    // A turn of the sideways wheel scrolls nothing here, but other versions of the control heed it.
    const struct {
        UINT message;
        WPARAM wParam;
        bool scrolls;
    } rows[] = {{WM_VSCROLL, SB_LINEDOWN, true},
                {WM_HSCROLL, SB_LINERIGHT, true},
                {WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), true},
                {WM_MOUSEHWHEEL, MAKEWPARAM(0, WHEEL_DELTA), false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.message);
        open(drawing);
        const auto position = [this] { return m_list.GetTopIndex() + GetScrollPos(m_list.m_hWnd, SB_HORZ); };
        int positionWhenKept = -1;
        show(look("a wide column", [this] { m_list.SetColumnWidth(descriptionColumn, 200); })
                 .then(openEditor())
                 .type(L"as built")
                 .then(look("scrolled", [&, this] {
                     m_list.onMessage = [&](UINT message, WPARAM, LPARAM) {
                         if (message == WM_NOTIFY && positionWhenKept < 0)
                             positionWhenKept = position();
                     };
                     m_list.SendMessage(row.message, row.wParam);
                     m_list.onMessage = [](UINT, WPARAM, LPARAM) {};
                     expectClosed();
                     EXPECT_EQ(positionWhenKept, 0);
                     EXPECT_EQ(position() > 0, row.scrolls);
                     EXPECT_EQ(described(L"11"), L"as built");
                 })));
    }
}

TEST_F(CellEdit, AScrollTakesTheFocusFromAnyOtherControl) {
    show(look("scrolled", [this] {
        CWnd* const button = m_list.GetParent()->GetDlgItem(IDC_TEST_BUTTON);
        for (const UINT message : {WM_VSCROLL, WM_HSCROLL, WM_MOUSEWHEEL, WM_MOUSEHWHEEL}) {
            button->SetFocus();
            m_list.SendMessage(message, 0);
            EXPECT_EQ(::GetFocus(), m_list.m_hWnd) << message;
        }
    }));
}
