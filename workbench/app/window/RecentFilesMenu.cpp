#include "RecentFilesMenu.h"

#include "SavedRecentFiles.h"
#include "WorkbenchIds.h"

namespace workbench {

namespace {

constexpr UINT kSeparator = ID_MENU_RECENT_FIRST + RecentFiles::kMost;
constexpr UINT kNotThere = static_cast<UINT>(-1);

} // namespace

void RecentFilesMenu::fill(HMENU menu) {
    if (::GetMenuState(menu, ID_MENU_QUIT, MF_BYCOMMAND) == kNotThere)
        return;
    for (UINT item = ID_MENU_RECENT_FIRST; item <= kSeparator; ++item)
        ::DeleteMenu(menu, item, MF_BYCOMMAND);
    m_shown = savedRecentFiles().paths();
    const auto insert = [menu](UINT flags, UINT item, const wchar_t* text) {
        ::InsertMenuW(menu, ID_MENU_QUIT, MF_BYCOMMAND | flags, item, text);
    };
    for (UINT index = 0; index < m_shown.size(); ++index)
        insert(MF_STRING, ID_MENU_RECENT_FIRST + index, recentFileText(index + 1, m_shown[index]).c_str());
    if (!m_shown.empty())
        insert(MF_SEPARATOR, kSeparator, nullptr);
}

std::optional<std::wstring> RecentFilesMenu::pathOf(UINT item) const {
    if (item < ID_MENU_RECENT_FIRST || item - ID_MENU_RECENT_FIRST >= m_shown.size())
        return std::nullopt;
    return m_shown[item - ID_MENU_RECENT_FIRST];
}

} // namespace workbench
