#include "ColorDialog.h"

#include "base/FrameworkModule.h"
#include "dialogs/TipFile.h"
#include "pickers/PickerIds.h"

using pickers::ColorChoice;
using pickers::ColorTab;

namespace framework {

void ColorSwatch::show(const KelCmColor& color) {
    m_color = RGB(color.red(), color.green(), color.blue());
    Invalidate(FALSE);
}

void ColorSwatch::DrawItem(LPDRAWITEMSTRUCT item) {
    SetDCBrushColor(item->hDC, m_color);
    FillRect(item->hDC, &item->rcItem, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    FrameRect(item->hDC, &item->rcItem, GetSysColorBrush(COLOR_WINDOWFRAME));
}

BEGIN_MESSAGE_MAP(ColorDialog, COrvUiDialog)
ON_NOTIFY(TCN_SELCHANGE, IDC_COLOR_TABS, OnTabChanged)
END_MESSAGE_MAP()

ColorDialog::ColorDialog(const KelCmColor& current, const pickers::ColorParts& parts)
    : COrvUiDialog(IDD_PICK_COLOR, CWnd::GetActiveWindow(), frameworkModule()), m_choice(current), m_current(current),
      m_parts(parts), m_palettePage(m_choice, parts.byReference), m_trueColorPage(m_choice, parts.systemDialog) {}

BOOL ColorDialog::OnInitDialog() {
    SetDialogName(L"Workbench:SelectColor");
    m_tabControl.SubclassDlgItem(IDC_COLOR_TABS, this);
    m_currentSwatch.SubclassDlgItem(IDC_COLOR_CURRENT_SWATCH, this);
    m_newSwatch.SubclassDlgItem(IDC_COLOR_NEW_SWATCH, this);
    COrvUiDialog::OnInitDialog();
    if (m_parts.palette)
        addTab({L"Palette", ColorTab::palette, &m_palettePage});
    if (m_parts.trueColor)
        addTab({L"True Color", ColorTab::trueColor, &m_trueColorPage});
    // The tabs become the last stop of the Tab key, and the page, which comes first because it has to be in front of
    // them, follows.
    m_tabControl.SetWindowPos(&CWnd::wndBottom, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    SetContextHelpPrefix(kTipPrefix);
    SetContextHelpFileName(kTipFile);
    SetUseTips(2); // for controls that are there already, those of the pages too
    m_currentSwatch.show(m_current);
    SetDlgItemText(IDC_COLOR_CURRENT_TEXT, ColorChoice(m_current).describe().c_str());
    showChoice();
    const ColorTab first = m_choice.firstTab(m_parts);
    showTab(m_tabs.size() > 1 && m_tabs[1].kind == first ? 1 : 0);
    SetPersistency(1);
    return FALSE;
}

void ColorDialog::addTab(const Tab& tab) {
    if (!tab.page->create(this))
        return;
    tab.page->onChanged = [this] { showChoice(); };
    tab.page->onAccepted = [this] { OnOK(); };
    m_tabControl.InsertItem(m_tabControl.GetItemCount(), tab.title);
    placePage(*tab.page);
    tab.page->showChoice();
    m_tabs.push_back(tab);
}

void ColorDialog::placePage(const ColorPage& page) {
    CRect area;
    m_tabControl.GetClientRect(area);
    m_tabControl.AdjustRect(FALSE, area);
    m_tabControl.MapWindowPoints(this, area);
    // In front of the tabs, so that the page isn't painted over, and gets the mouse.
    ::SetWindowPos(page.GetSafeHwnd(), HWND_TOP, area.left, area.top, area.Width(), area.Height(), SWP_NOACTIVATE);
}

void ColorDialog::showTab(int index) {
    m_tabControl.SetCurSel(index);
    for (std::size_t i = 0; i < m_tabs.size(); ++i) {
        // A hidden page is disabled too, or its mnemonics would still be taken.
        const bool front = static_cast<int>(i) == index;
        if (front)
            m_tabs[i].page->showChoice();
        m_tabs[i].page->EnableWindow(front);
        m_tabs[i].page->ShowWindow(front ? SW_SHOW : SW_HIDE);
    }
    showChoice();
    // When the user walks along the tabs with the arrow keys, the focus stays on them.
    const bool onTabs = ::GetFocus() == m_tabControl.GetSafeHwnd();
    if (!onTabs && static_cast<std::size_t>(index) < m_tabs.size())
        focusPage(*m_tabs[static_cast<std::size_t>(index)].page);
}

void ColorDialog::focusPage(const ColorPage& page) {
    // The dialog manager moves the focus, because it also selects the text of an edit box.
    const HWND first = ::GetNextDlgTabItem(page.GetSafeHwnd(), nullptr, FALSE);
    SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first), TRUE);
}

int ColorDialog::tabByKey(const MSG& message) const {
    const bool control = message.message == WM_KEYDOWN && GetKeyState(VK_CONTROL) < 0;
    const bool switches = message.wParam == VK_TAB || message.wParam == VK_PRIOR || message.wParam == VK_NEXT;
    if (!control || !switches || m_tabs.size() < 2)
        return -1;
    return m_tabControl.GetCurSel() == 0 ? 1 : 0;
}

BOOL ColorDialog::PreTranslateMessage(MSG* message) {
    const int tab = tabByKey(*message);
    if (tab < 0)
        return COrvUiDialog::PreTranslateMessage(message);
    showTab(tab);
    return TRUE;
}

void ColorDialog::showChoice() {
    m_newSwatch.show(m_choice.color());
    SetDlgItemText(IDC_COLOR_NEW_TEXT, m_choice.describe().c_str());
    GetDlgItem(IDOK)->EnableWindow(canEnd());
}

bool ColorDialog::canEnd() const {
    const int front = m_tabControl.GetCurSel();
    const bool known = front >= 0 && static_cast<std::size_t>(front) < m_tabs.size();
    return known && m_tabs[static_cast<std::size_t>(front)].page->isComplete() && m_choice.isAllowed(m_parts);
}

void ColorDialog::OnOK() {
    if (canEnd()) // Enter arrives here even while the button is disabled
        COrvUiDialog::OnOK();
}

void ColorDialog::OnTabChanged(NMHDR*, LRESULT*) {
    showTab(m_tabControl.GetCurSel());
}

} // namespace framework
