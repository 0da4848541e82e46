// A list view of another process. Its messages carry addresses, which have to be valid in that process, so everything
// goes through a piece of memory allocated there.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace tour {

class RemoteList {
  public:
    explicit RemoteList(HWND list);
    ~RemoteList();
    RemoteList(const RemoteList&) = delete;
    RemoteList& operator=(const RemoteList&) = delete;

    int rowCount() const;
    std::wstring text(int row, int column) const;
    /// The row whose first cell has that text, -1 for none.
    int rowOf(const std::wstring& text) const;
    /// The selected row; -1 when none is, or more than one.
    int selectedRow() const;
    /// Whether the box before a row is ticked.
    bool isTicked(int row) const;
    /// What can be seen of a cell, in screen coordinates; none when nothing can.
    std::optional<RECT> cellRect(int row, int column) const;
    /// The same of a column's heading.
    std::optional<RECT> headingRect(int column) const;
    /// The box in which a row's first cell is being edited; null when none is.
    HWND labelEditor() const;
    void scrollTo(int row) const;

  private:
    static constexpr std::size_t roomForText = 512;

    /// Sends a message that reads a rectangle and answers one in its place, in coordinates of `window`: the list or its
    /// header. Answers what of it can be seen, on the screen.
    std::optional<RECT> rectFrom(HWND window, UINT message, int index, RECT rect) const;

    HWND m_list;
    HANDLE m_process = nullptr;
    char* m_memory = nullptr;
};

} // namespace tour
