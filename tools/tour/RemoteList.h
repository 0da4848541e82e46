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
    bool isSelected(int row) const;
    /// The row's first cell on the screen; none when it can't be had.
    std::optional<RECT> rectOf(int row) const;
    void scrollTo(int row) const;

  private:
    static constexpr std::size_t roomForText = 512;

    HWND m_list;
    HANDLE m_process = nullptr;
    char* m_memory = nullptr;
};

} // namespace tour
