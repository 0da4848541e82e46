// The tools that the dialog answers for its tips: one for each column and each button.

#include "GridColumns.h"
#include "ImportTable.h"
#include "OwnDialog.h"

#include <array>
#include <map>

namespace {

using testing::Each;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Pair;
using ui::Script;
using ui::View;

constexpr INT_PTR kNoTool = -1;

/// What the dialog answers for a point, and frees its text.
struct Tool {
    INT_PTR hit = kNoTool;
    TOOLINFO info{};
    std::wstring text;
};

Tool toolAt(const OwnDialog& dialog, CPoint point, UINT flags = 0) {
    Tool tool;
    tool.info.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.info.uFlags = flags;
    tool.hit = dialog.OnToolHitTest(point, &tool.info);
    if (tool.info.lpszText)
        tool.text = tool.info.lpszText;
    std::free(tool.info.lpszText);
    return tool;
}

std::array<LONG, 4> edges(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

/// The middle of a cell, in the grid's coordinates.
CPoint middleOf(const OwnDialog& dialog, int row, int column) {
    RECT cell = {};
    ListView_GetSubItemRect(dialog.m_layerGrid.m_hWnd, row, column, LVIR_BOUNDS, &cell);
    return {cell.left + dialog.m_layerGrid.GetColumnWidth(column) / 2, (cell.top + cell.bottom) / 2};
}

CRect boundsOf(const OwnDialog& dialog, int row) {
    CRect bounds;
    dialog.m_layerGrid.GetItemRect(row, &bounds, LVIR_BOUNDS);
    return bounds;
}

class ColumnTips : public OwnDialogTest {};

TEST_F(ColumnTips, EachColumnIsAToolThatSaysItsHeading) {
    OwnDialog dialog;
    look(dialog, [&] {
        int left = 0;
        for (int column = 0; column < gridColumnCount; ++column) {
            const int width = dialog.m_layerGrid.GetColumnWidth(column);
            const Tool tool = toolAt(dialog, middleOf(dialog, 1, column));
            EXPECT_EQ(tool.hit, column);
            EXPECT_EQ(tool.info.uId, static_cast<UINT_PTR>(column));
            EXPECT_EQ(tool.info.hwnd, dialog.m_layerGrid.m_hWnd);
            EXPECT_EQ(tool.text, resourceText(kGridColumns[column].headingId));
            EXPECT_EQ(edges(tool.info.rect), edges({left, 0, left + width, 20000})) << column;
            left += width;
        }
    });
}

TEST_F(ColumnTips, AColumnReachesFromItsLeftEdgeToTheOneBeforeTheNext) {
    OwnDialog dialog;
    look(dialog, [&] {
        const int y = middleOf(dialog, 0, 0).y;
        const int name = dialog.m_layerGrid.GetColumnWidth(nameGridColumn);
        EXPECT_EQ(toolAt(dialog, {0, y}).hit, nameGridColumn);
        EXPECT_EQ(toolAt(dialog, {name - 1, y}).hit, nameGridColumn);
        EXPECT_EQ(toolAt(dialog, {name, y}).hit, onGridColumn);
    });
}

TEST_F(ColumnTips, TheToolsFlagsStayAndATipIsShownOverAnInactiveWindowToo) {
    OwnDialog dialog;
    look(dialog, [&] {
        EXPECT_EQ(toolAt(dialog, middleOf(dialog, 0, 0), TTF_CENTERTIP).info.uFlags, 0x40000000u | TTF_CENTERTIP);
    });
}

TEST_F(ColumnTips, WhoWantsNoToolHearsTheColumnAlone) {
    OwnDialog dialog;
    look(dialog,
         [&] { EXPECT_EQ(dialog.OnToolHitTest(middleOf(dialog, 0, lockGridColumn), nullptr), lockGridColumn); });
}

TEST_F(ColumnTips, TheDialogsPointCountsAsIfItWereTheGrids) {
    OwnDialog dialog;
    look(dialog, [&] {
        const CPoint point = middleOf(dialog, 0, onGridColumn);
        EXPECT_EQ(toolAt(dialog, point).hit, onGridColumn);
        CPoint screen = point;
        dialog.ClientToScreen(&screen);
        int row = 0, column = 0;
        dialog.m_layerGrid.GetItemAtPoint(screen, row, column);
        EXPECT_EQ(row, -1) << "the heading is there, which is taken for a row";
        CPoint lastRow = middleOf(dialog, 3, onGridColumn);
        dialog.m_layerGrid.ClientToScreen(&lastRow);
        dialog.ScreenToClient(&lastRow);
        EXPECT_EQ(toolAt(dialog, lastRow).hit, kNoTool) << "the last row is taken for the space below it";
    });
}

TEST_F(ColumnTips, AboveTheRowsBelowThemAndBesideTheColumnsThereIsNoTool) {
    OwnDialog dialog;
    look(dialog, [&] {
        const int x = middleOf(dialog, 0, 0).x;
        EXPECT_EQ(toolAt(dialog, {x, boundsOf(dialog, 0).top}).hit, nameGridColumn);
        EXPECT_EQ(toolAt(dialog, {x, boundsOf(dialog, 0).top - 1}).hit, kNoTool);
        EXPECT_EQ(toolAt(dialog, {boundsOf(dialog, 0).right + 1, boundsOf(dialog, 0).top}).hit, kNoTool);
        EXPECT_EQ(toolAt(dialog, {-1, boundsOf(dialog, 0).top}).hit, kNoTool) << "left of the rows";
        TOOLINFO untouched{};
        EXPECT_EQ(dialog.OnToolHitTest({x, 0}, &untouched), kNoTool);
        EXPECT_EQ(untouched.lpszText, nullptr);
        EXPECT_EQ(untouched.uFlags, 0u);
    });
}

TEST_F(ColumnTips, AnEmptyGridHasNoColumnsTool) {
    OwnDialog dialog;
    dialog.m_stateName = L"None such";
    look(dialog, [&] { EXPECT_EQ(toolAt(dialog, {20, 40}).hit, kNoTool); });
}

TEST_F(ColumnTips, ScrolledToTheSideAColumnIsFoundWhereItStandsNow) {
    OwnDialog dialog;
    look(dialog, [&] {
        dialog.m_layerGrid.SetColumnWidth(nameGridColumn, 700);
        dialog.m_layerGrid.SetColumnWidth(linetypeGridColumn, 100);
        ListView_Scroll(dialog.m_layerGrid.m_hWnd, 300, 0);
        const int scrolled = GetScrollPos(dialog.m_layerGrid.m_hWnd, SB_HORZ);
        ASSERT_GT(scrolled, 0);
        const int y = middleOf(dialog, 0, 0).y;
        const Tool name = toolAt(dialog, {10, y});
        EXPECT_EQ(name.hit, nameGridColumn);
        EXPECT_EQ(edges(name.info.rect), edges({0, 0, 700, 20000})) << "its left edge is out of sight";
        const int edge = 700 - scrolled;
        EXPECT_EQ(toolAt(dialog, {edge - 1, y}).hit, nameGridColumn);
        const Tool on = toolAt(dialog, {edge, y});
        EXPECT_EQ(on.hit, onGridColumn);
        const int width = dialog.m_layerGrid.GetColumnWidth(onGridColumn);
        EXPECT_EQ(edges(on.info.rect), edges({edge, 0, edge + width, 20000}));
    });
}

TEST_F(ColumnTips, AColumnBeyondTheRightEdgeIsNotFound) {
    OwnDialog dialog;
    look(dialog, [&] {
        CRect client;
        dialog.m_layerGrid.GetClientRect(&client);
        dialog.m_layerGrid.SetColumnWidth(nameGridColumn, client.right - 10);
        const int y = middleOf(dialog, 0, 0).y;
        const int on = dialog.m_layerGrid.GetColumnWidth(onGridColumn);
        EXPECT_EQ(toolAt(dialog, {client.right - 10 + on - 1, y}).hit, onGridColumn) << "it begins before the edge";
        EXPECT_EQ(toolAt(dialog, {client.right - 10 + on, y}).hit, kNoTool) << "it begins behind the edge";
    });
}

TEST_F(ColumnTips, ScrolledDownTheRowsInViewCount) {
    open(towerOf(60));
    OwnDialog tall;
    look(tall, [&tall] {
        tall.m_layerGrid.EnsureVisible(60, FALSE);
        const int top = tall.m_layerGrid.GetTopIndex();
        ASSERT_GT(top, 0);
        const int last = top + tall.m_layerGrid.GetCountPerPage() - 1;
        EXPECT_EQ(toolAt(tall, middleOf(tall, top, 0)).hit, nameGridColumn);
        EXPECT_EQ(toolAt(tall, middleOf(tall, last, plotGridColumn)).hit, plotGridColumn);
        EXPECT_EQ(toolAt(tall, {10, boundsOf(tall, top).top - 1}).hit, kNoTool);
        EXPECT_EQ(toolAt(tall, {10, boundsOf(tall, last).bottom}).hit, kNoTool);
    });
}

TEST_F(ColumnTips, EachButtonIsAToolOfItsOwnSize) {
    OwnDialog dialog;
    look(dialog, [&] {
        const auto onButton = [&](int button) {
            CRect place;
            dialog.GetDlgItem(button)->GetWindowRect(&place);
            CPoint middle = place.CenterPoint();
            dialog.ScreenToClient(&middle);
            return toolAt(dialog, middle);
        };
        const Tool add = onButton(IDC_ADD_LAYERS), remove = onButton(IDC_REMOVE_LAYERS);
        EXPECT_EQ(add.text, resourceText(IDS_LSTATE_ADD_LAYERS_TIP));
        EXPECT_EQ(remove.text, resourceText(IDS_LSTATE_REMOVE_LAYERS_TIP));
        for (const auto& [tool, button] : {std::pair{add, IDC_ADD_LAYERS}, std::pair{remove, IDC_REMOVE_LAYERS}}) {
            CRect client;
            dialog.GetDlgItem(button)->GetClientRect(&client);
            EXPECT_EQ(tool.info.hwnd, dialog.GetDlgItem(button)->m_hWnd);
            EXPECT_EQ(edges(tool.info.rect), edges(client));
            EXPECT_EQ(tool.info.uFlags, 0x40000000u);
            EXPECT_EQ(tool.hit, static_cast<INT_PTR>(tool.info.uId));
            EXPECT_GE(tool.hit, gridColumnCount) << "no column's";
        }
        EXPECT_NE(add.hit, remove.hit);
        for (const int other : {IDOK, IDCANCEL, ID_HELP})
            EXPECT_EQ(onButton(other).hit, kNoTool) << other;
    });
}

/// Notes the texts that the dialog hands over, and how often the library frees each of them.
class NotesTexts : public OwnDialog {
  public:
    NotesTexts() {
        s_here = this;
        forEachImport(GetModuleHandleW(L"kelmfc.dll"), [this](const char* name, void** entry) {
            if (std::string_view(name) != "free")
                return;
            m_entry = entry;
            m_before = *entry;
            writeImport(entry, reinterpret_cast<void*>(&noteFree));
        });
    }
    ~NotesTexts() override {
        writeImport(m_entry, m_before);
        for (const auto& [text, times] : freed)
            std::free(text);
    }
    INT_PTR OnToolHitTest(CPoint point, TOOLINFO* tool) const override {
        const INT_PTR hit = OwnDialog::OnToolHitTest(point, tool);
        hits.push_back(hit);
        if (tool && tool->lpszText)
            freed[tool->lpszText] = 0;
        return hit;
    }
    mutable std::vector<INT_PTR> hits;
    /// They stay in memory until the end, so that no two have one address.
    mutable std::map<void*, int> freed;

  private:
    static void noteFree(void* memory) {
        const auto text = s_here->freed.find(memory);
        if (text != s_here->freed.end())
            ++text->second;
        else
            std::free(memory);
    }
    static inline NotesTexts* s_here = nullptr;
    void** m_entry = nullptr;
    void* m_before = nullptr;
};

TEST_F(ColumnTips, EachTextThatIsHandedOverIsFreedOnce) {
    NotesTexts notes;
    const auto overHeading = [&notes](int column) {
        return [&notes, column] {
            CRect place;
            Header_GetItemRect(notes.m_layerGrid.GetHeaderCtrl()->m_hWnd, column, &place);
            CPoint point = place.CenterPoint();
            notes.m_layerGrid.ClientToScreen(&point);
            return point;
        };
    };
    run(notes, Script()
                   .hover(IDC_ADD_LAYERS)
                   .waitForTip(resourceText(IDS_LSTATE_ADD_LAYERS_TIP))
                   .hover(IDC_REMOVE_LAYERS)
                   .waitForTip(resourceText(IDS_LSTATE_REMOVE_LAYERS_TIP))
                   .pointAt(overHeading(nameGridColumn))
                   .waitForTip(L"")
                   .pointAt(overHeading(linetypeGridColumn))
                   .seeNoTip() // the tool is the grid, and the headings are a window of their own
                   .hover(IDOK));
    EXPECT_THAT(notes.hits, IsSupersetOf({INT_PTR{nameGridColumn}, INT_PTR{linetypeGridColumn}}));
    EXPECT_GE(notes.freed.size(), 4u);
    EXPECT_THAT(notes.freed, Each(Pair(testing::_, 1)));
}

TEST_F(ColumnTips, OverTheGridsCellsNobodyAsksForThem) {
    NotesTexts notes;
    const auto overName = [&notes](int row) {
        return [&notes, row] {
            CPoint point = middleOf(notes, row, nameGridColumn);
            notes.m_layerGrid.ClientToScreen(&point);
            return point;
        };
    };
    run(notes, Script()
                   .pointAt(overName(0))
                   .look("the calls so far are forgotten", [&notes](const View&) { notes.hits.clear(); })
                   .pointAt(overName(2))
                   .seeNoTip()
                   .look("the calls", [&notes](const View&) { EXPECT_THAT(notes.hits, IsEmpty()); }));
}

TEST_F(ColumnTips, OverTheGridsScrollBarTheDialogIsAsked) {
    // The bar isn't the grid's client area, whose moves keep these tips out; and a column that is cut off by the right
    // edge goes on under it. The tip window shows none there, since it passes over moves outside of client areas.
    open(towerOf(60));
    NotesTexts notes;
    run(notes, Script()
                   .look("a name too wide", [&notes](const View&) { notes.m_layerGrid.SetColumnWidth(0, 2000); })
                   .pointAt([&notes] {
                       CPoint point(0, middleOf(notes, 2, 0).y);
                       notes.m_layerGrid.ClientToScreen(&point);
                       CRect place;
                       notes.m_layerGrid.GetWindowRect(&place);
                       point.x = place.right - GetSystemMetrics(SM_CXVSCROLL) / 2;
                       return point;
                   })
                   .seeNoTip());
    EXPECT_THAT(notes.hits, testing::Contains(INT_PTR{nameGridColumn}));
    EXPECT_THAT(notes.freed, Each(Pair(testing::_, 1)));
}

} // namespace
