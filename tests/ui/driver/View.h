// What a person can see of a window: texts, ticks, which controls are enabled and shown, the rows of a list and which
// of them are selected, where the focus is, colours of pixels. Reading only; it changes nothing.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace ui {

/// One window with its controls. A control is named by its id; reading one that isn't there answers empty, false or
/// none.
class View {
  public:
    explicit View(HWND window) : m_window(window) {}
    /// The window that this thread's input goes to; its handle is null when there is none.
    static View facing();

    HWND window() const { return m_window; }
    /// A control of the window, or of the page that it shows.
    HWND control(int id) const;
    bool has(int id) const { return control(id) != nullptr; }
    std::wstring title() const;
    std::wstring text(int id) const;
    bool isEnabled(int id) const;
    bool isVisible(int id) const;
    bool isTicked(int id) const;
    /// The id of the control that has the keyboard focus; 0 when none of this window has it.
    int focusedControl() const;
    /// In screen coordinates.
    RECT rect() const;
    RECT rect(int id) const;
    /// The texts of all visible controls that hold one, in their order.
    std::vector<std::wstring> texts() const;
    /// The character after the & of a control's text; 0 when it has none.
    wchar_t mnemonic(int id) const;
    /// The control with that text, mnemonic marks left out; null when there is none.
    HWND controlWithText(const std::wstring& text) const;
    /// A message box's icon, null for a window without one.
    HICON icon() const;

    int rowCount(int list) const;
    std::vector<std::wstring> headings(int list) const;
    std::vector<int> columnWidths(int list) const;
    std::wstring cell(int list, int row, int column) const;
    std::vector<std::wstring> cells(int list, int row) const;
    std::vector<std::wstring> column(int list, int index) const;
    std::vector<int> selectedRows(int list) const;
    /// The row whose first cell has that text, -1 for none.
    int rowOf(int list, const std::wstring& text) const;
    bool hasFullRowSelection(int list) const;
    /// What stands in the editor over a row's label; none when there is no editor.
    std::optional<std::wstring> labelEditorText(int list) const;
    /// The row with the focus frame, -1 for none.
    int focusedRow(int list) const;
    bool isRowInView(int list, int row) const;
    /// The text of a cell in screen coordinates; none when the list has no such cell.
    std::optional<RECT> cellRect(int list, int row, int column) const;
    /// A heading of the list in screen coordinates; none when the list has no such column.
    std::optional<RECT> headingRect(int list, int column) const;
    /// A point of the list below all rows, in screen coordinates; none when the rows fill it.
    std::optional<POINT> emptySpace(int list) const;

    /// The colours of a control as it stands on the screen, line by line.
    std::vector<COLORREF> pixels(int id) const;

  private:
    HWND m_window;
};

/// The text of any window.
std::wstring textOf(HWND window);
/// A label's or a button's text as it is drawn: an ampersand marks the letter after it, and two are one.
std::wstring withoutMnemonic(const std::wstring& text);
/// The text of the tip that this thread shows; empty when it shows none.
std::wstring shownTip();
/// All that is shown inside a window, at any depth.
std::vector<HWND> visibleControls(HWND window);
/// The text in UTF-8, for the messages of a test.
std::string narrow(const std::wstring& text);

} // namespace ui
