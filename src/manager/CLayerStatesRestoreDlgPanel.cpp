// The manager's property panel: opening and closing it to the right of the other controls.
#include "CLayerStatesRestoreDlg.h"

#include "CResourceScope.h"
#include "ManagerLayout.h"
#include "PropertyTable.h"

namespace {

/// How far the panel stands out in pixels, measured each time the dialog opens. A global will do: the dialog is modal,
/// so there is only one.
int g_panelWidth = 215;

constexpr const wchar_t* kContractBitmap = L"IDB_LSTATE_RES_CONTRACT";
constexpr const wchar_t* kExpandBitmap = L"IDB_LSTATE_RES_EXPAND";

} // namespace

void CLayerStatesRestoreDlg::setUpPanel() {
    unsigned long expanded = 0;
    if (GetDialogData(L"Expanded", expanded))
        m_expanded = static_cast<int>(expanded);
    // The template is laid out with the panel open.
    g_panelWidth = panelWidthFrom(m_controls.place(kPanelFrame).right, m_controls.place(kBesidePanel).right);
    if (m_expanded)
        setExpandButton(kContractBitmap, IDS_LSTATE_CONTRACT);
    else
        contract();
}

void CLayerStatesRestoreDlg::OnExpandContract() {
    if (m_expanded)
        contract();
    else
        expand();
}

void CLayerStatesRestoreDlg::expand() {
    showPanel(true);
    widen(g_panelWidth);
    setExpandButton(kContractBitmap, IDS_LSTATE_CONTRACT);
    m_expanded = 1;
    // Showing the panel has enabled all its controls; this disables those that don't apply.
    updateControls();
}

void CLayerStatesRestoreDlg::contract() {
    showPanel(false);
    widen(-g_panelWidth);
    setExpandButton(kExpandBitmap, IDS_LSTATE_EXPAND);
    m_expanded = 0;
}

void CLayerStatesRestoreDlg::showPanel(bool show) {
    const auto showControl = [this, show](int control) {
        m_controls.show(control, show);
        m_controls.enable(control, show);
    };
    for (const PropertyBox& box : kPropertyTable)
        showControl(box.control);
    for (const int control : kPanelControls)
        showControl(control);
}

void CLayerStatesRestoreDlg::widen(int by) {
    for (const int control : kEdgeControls)
        m_controls.moveBy(control, by);
    CRect dialog;
    GetWindowRect(&dialog);
    SetWindowPos(nullptr, 0, 0, dialog.Width() + by, dialog.Height(), SWP_NOMOVE | SWP_NOZORDER);
}

void CLayerStatesRestoreDlg::setExpandButton(const wchar_t* bitmap, UINT textId) {
    m_expandButton.OnReload(bitmap);
    m_expandButton.SetWindowText(loadResourceString(textId));
}
