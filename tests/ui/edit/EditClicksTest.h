// Tests of editing in the grid: the dialog's class in the test program itself, where its inner state can be seen
// between two steps of real input.
#pragma once

#include <afxwin.h>

#include "CEditLayerStateDlg.h"
#include "CLayerRcd.h"
#include "EditTest.h"
#include "GridColumns.h"

#include <functional>
#include <string>
#include <vector>

/// The dialog, showing its inner state.
class OpenEditDialog : public CEditLayerStateDlg {
  public:
    using CEditLayerStateDlg::CEditLayerStateDlg;
    using CEditLayerStateDlg::m_columnWidths;
    using CEditLayerStateDlg::m_keepSelection;
    using CEditLayerStateDlg::m_layerGrid;
    using CEditLayerStateDlg::m_layers;
    using CEditLayerStateDlg::m_selectedRows;
    using CEditLayerStateDlg::m_sortKey;

    CLayerRcd& recordAt(int row) const;

    /// The codes of the keys that the grid has got.
    std::vector<WORD> keysOfGrid;
    /// The codes of the notifications since this was last emptied.
    std::vector<UINT> notifications;
    /// How often the dialog itself, and how often a row of its grid has been drawn since this was last set to 0.
    int paints = 0;
    int drawnRows = 0;

  protected:
    BOOL OnNotify(WPARAM control, LPARAM header, LRESULT* result) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

class EditClicksTest : public EditTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Ten layers, named by the rows that they have in the grid: "Row 0" to "Row 8", and Base, the current layer, in
    /// row 9. All have flags that are off, but for being plotted; the one state is named "State".
    static ui::TestDrawing tenRows();
    /// The same with a change of the state's values.
    static ui::TestDrawing tenRows(const std::function<void(zdr::LayerColumns&)>& change);
    /// The index of a row's layer in the columns of the drawing and its state.
    static std::size_t indexOfRow(int row);

    /// Opens the dialog on a state and runs the script in it. A script that leaves the dialog open is
    /// followed by Escape.
    bool run(ui::Script script, const wchar_t* state = L"State");
    /// Runs `see` in the open dialog.
    static ui::Script look(std::string what, std::function<void()> see);
    /// Selects rows by clicks on their names, the first one alone and the others with Control held, or none by a click
    /// on the empty space.
    static ui::Script select(const std::vector<int>& rows);
    static ui::Script expectSelected(const std::vector<int>& rows);

    /// The open dialog.
    OpenEditDialog& dialog() const { return *m_dialog; }
    CLayerRcd& record(int row) const { return m_dialog->recordAt(row); }
    /// The rows whose records are marked as changed.
    std::vector<int> markedRows() const;
    /// The rows whose records have that flag.
    std::vector<int> rowsWith(bool CLayerRcd::*flag) const;
    /// The rows whose cell of that column holds that text.
    std::vector<int> rowsShowing(int column, const std::wstring& text) const;

    /// Waits until nothing more is drawn, and counts paints from there.
    ui::Script countPaintsFromRest();
    /// Waits until the dialog and all rows of its grid have been drawn again.
    ui::Script wholeDialogIsDrawn();
    ui::Script dialogIsNotDrawn();
    /// The calls since the trace was last cleared, but for the cheap reads of drawing rows and what a moving pointer
    /// asks for.
    static Calls callsBesideDrawing();
    /// The colours of a cell as it stands on the screen, without its last line, into which the next row's images reach.
    static std::vector<COLORREF> cellPixels(const ui::View& view, int row, int column);
    /// The colours of a row's mark, in front of its name, as it stands on the screen.
    static std::vector<COLORREF> markPixels(const ui::View& view, int row);
    /// A message with that text and the exclamation icon, whose only button is OK, is shown over the dialog; then it is
    /// answered.
    static ui::Script refusalIsShown(unsigned int textId);

  private:
    std::vector<int> rowsOf(const std::function<bool(int row)>& has) const;
    OpenEditDialog* m_dialog = nullptr;
};
