// The recent files in the File menu.
#pragma once

#include <afxwin.h>

#include <optional>
#include <string>
#include <vector>

namespace workbench {

class RecentFilesMenu {
  public:
    /// To be called when a menu opens: puts the files, in a part of their own, before the last part of the File menu.
    /// Leaves other menus alone.
    void fill(HMENU menu);
    /// The path behind an item as it was shown last; none for other items.
    std::optional<std::wstring> pathOf(UINT item) const;

  private:
    std::vector<std::wstring> m_shown;
};

} // namespace workbench
