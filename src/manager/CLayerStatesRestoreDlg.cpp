// The manager's message map, set-up, short cuts and end.
#include "CLayerStatesRestoreDlg.h"

#include "CResourceScope.h"
#include "DialogHelp.h"
#include "KelEditor.h"
#include "ManagerLayout.h"
#include "PropertyTable.h"
#include "WorkingDatabase.h"
#include "resource.h"

namespace {

constexpr const wchar_t* kDialogName = L"KelLayerApps:LayerStatesManager";
constexpr const wchar_t* kHelpTopic = L"RESTORELAYERSTATEDIALOG";

} // namespace

BEGIN_MESSAGE_MAP(CLayerStatesRestoreDlg, CKelUiDialog)
ON_NOTIFY(LVN_ITEMACTIVATE, IDC_LSTATE_RES_LIST, &CLayerStatesRestoreDlg::OnListChanged)
ON_NOTIFY(LVN_ODSTATECHANGED, IDC_LSTATE_RES_LIST, &CLayerStatesRestoreDlg::OnListChanged)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_LSTATE_RES_LIST, &CLayerStatesRestoreDlg::OnListChanged)
ON_BN_CLICKED(IDC_LSTATE_RES_RESTORE, &CLayerStatesRestoreDlg::OnRestore)
ON_BN_CLICKED(IDC_LSTATE_RES_NEW, &CLayerStatesRestoreDlg::OnNew)
ON_BN_CLICKED(IDC_LSTATE_RES_UPDATE, &CLayerStatesRestoreDlg::OnUpdate)
ON_BN_CLICKED(IDC_LSTATE_RES_EDIT, &CLayerStatesRestoreDlg::OnEdit)
ON_BN_CLICKED(IDC_LSTATE_RES_RENAME, &CLayerStatesRestoreDlg::OnRename)
ON_BN_CLICKED(IDC_LSTATE_RES_DELETE, &CLayerStatesRestoreDlg::OnDelete)
ON_BN_CLICKED(IDC_LSTATE_RES_IMPORT, &CLayerStatesRestoreDlg::OnImport)
ON_BN_CLICKED(IDC_LSTATE_RES_EXPORT, &CLayerStatesRestoreDlg::OnExport)
ON_BN_CLICKED(IDC_LSTATE_RES_CLOSE, &CLayerStatesRestoreDlg::OnClose)
ON_COMMAND(ID_HELP, &CLayerStatesRestoreDlg::onHelpCommand)
ON_BN_CLICKED(IDC_LSTATE_RES_HIDEXREFS, &CLayerStatesRestoreDlg::OnHideXrefs)
ON_BN_CLICKED(IDC_LSTATE_RES_LAYERNOTFOUND, &CLayerStatesRestoreDlg::OnLayerNotFound)
ON_CONTROL_RANGE(BN_CLICKED, kFirstOverridableBox, kLastOverridableBox, &CLayerStatesRestoreDlg::OnOverridableProperty)
ON_BN_CLICKED(IDC_LSTATE_RES_OVERRIDES, &CLayerStatesRestoreDlg::OnRestoreAsOverrides)
ON_BN_CLICKED(IDC_LSTATE_RES_SELECTALL, &CLayerStatesRestoreDlg::OnSelectAll)
ON_BN_CLICKED(IDC_LSTATE_RES_CLEARALL, &CLayerStatesRestoreDlg::OnClearAll)
ON_BN_CLICKED(IDC_LSTATE_RES_EXPAND, &CLayerStatesRestoreDlg::OnExpandContract)
END_MESSAGE_MAP()

CLayerStatesRestoreDlg::CLayerStatesRestoreDlg(CWnd* parent, bool fromExport)
    : CKelUiDialog(IDD_LSTATE_RES, parent), m_parent(parent), m_restoreStarted(0), m_stateMask(0), m_overridableMask(0),
      m_layerNotFound(true), m_regenLayers(0, 8), m_expanded(0), m_fromExport(fromExport), m_reportFailure(true),
      m_restoreAsOverrides(true), m_showXrefs(true), m_pressedInRename(false) {}

CLayerStatesRestoreDlg::~CLayerStatesRestoreDlg() = default;

void CLayerStatesRestoreDlg::DoDataExchange(CDataExchange* exchange) {
    CKelUiDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_LSTATE_RES_EXPAND, m_expandButton);
}

BOOL CLayerStatesRestoreDlg::OnInitDialog() {
    // The base restores what was kept under the name.
    SetDialogName(kDialogName);
    CKelUiDialog::OnInitDialog();
    m_controls.find(m_hWnd);
    setUpTips(*this);
    setUpPanel();
    readOptions();
    setUpList();
    repopulate();
    KelString lastRestored;
    showCurrentState(lastRestored);
    selectState(lastRestored.kwszPtr());
    updateControls();
    return TRUE;
}

void CLayerStatesRestoreDlg::readOption(const wchar_t* key, bool& option) {
    unsigned long value = 0;
    if (GetDialogData(key, value))
        option = value != 0;
}

void CLayerStatesRestoreDlg::readOptions() {
    readOption(L"LayerNotFound", m_layerNotFound);
    m_controls.tick(IDC_LSTATE_RES_LAYERNOTFOUND, m_layerNotFound);
    readOption(L"RestoreAsOverrides", m_restoreAsOverrides);
    m_controls.tick(IDC_LSTATE_RES_OVERRIDES, m_restoreAsOverrides);
    readOption(L"ShowXrefs", m_showXrefs);
    m_controls.tick(IDC_LSTATE_RES_HIDEXREFS, !m_showXrefs);
}

void CLayerStatesRestoreDlg::setUpList() {
    m_stateList.SubclassDlgItem(IDC_LSTATE_RES_LIST, this);
    m_stateList.InsertColumns(kManagerColumns);
    m_stateList.SetExtendedStyle(m_stateList.GetExtendedStyle() | LVS_EX_FULLROWSELECT);
}

void CLayerStatesRestoreDlg::showCurrentState(KelString& lastRestored) {
    KelDbLayerStateManager* states = workingStates();
    if (!states)
        return;
    // A state that no longer matches the drawing isn't shown as the current one, but OnInitDialog() still selects it.
    KelDbObjectId restoredId;
    const bool current = states->getLastRestoredLayerState(lastRestored, restoredId) == Vorn::eOk &&
                         states->compareLayerStateToDb(lastRestored.kwszPtr(), keledGetCurViewportObjectId());
    const CString subject = current ? CString(lastRestored.kwszPtr()) : loadResourceString(IDS_LSTATE_NONE);
    CString line;
    line.Format(loadResourceString(IDS_LSTATE_CURRENT_STATE), subject.GetString());
    m_controls.setText(IDC_LSTATE_RES_CURRENT, line);
}

void CLayerStatesRestoreDlg::selectState(const wchar_t* name) {
    const int row = rowToSelect(m_stateList.GetItemCount(), m_stateList.FindState(name));
    if (row < 0)
        return;
    m_stateList.SelectRow(row);
    m_stateList.EnsureVisible(row, FALSE);
    m_stateList.SetFocus();
}

void CLayerStatesRestoreDlg::repopulate() {
    m_stateList.PopulateStates(workingDatabase(), m_showXrefs, true);
}

void CLayerStatesRestoreDlg::OnListChanged(NMHDR*, LRESULT* result) {
    updateControls();
    *result = 0;
}

BOOL CLayerStatesRestoreDlg::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && message->wParam == VK_F2)
        renameByKey();
    // Alt with < or > goes no further, also when the panel needs no change.
    if (message->message == WM_SYSCHAR && message->wParam == L'<') {
        if (m_expanded)
            contract();
        return TRUE;
    }
    if (message->message == WM_SYSCHAR && message->wParam == L'>') {
        if (!m_expanded)
            expand();
        return TRUE;
    }
    if (message->message == WM_LBUTTONDOWN)
        m_pressedInRename = m_stateList.m_labelEditActive != 0;
    if (restoreByDoubleClick(*message))
        return TRUE;
    reopenRefusedRename();
    return CKelUiDialog::PreTranslateMessage(message);
}

void CLayerStatesRestoreDlg::renameByKey() {
    if (m_stateList.m_labelEditActive || m_stateList.GetSelectedCount() != 1)
        return;
    const int row = m_stateList.GetSelectionMark();
    KelDbLayerStateManager* states = workingStates();
    if (row < 0 || !states || states->isDependentLayerState(m_stateList.StateName(row)))
        return;
    m_stateList.SetFocus(); // Windows opens the box only then, Wine always
    m_stateList.EditLabel(row);
}

bool CLayerStatesRestoreDlg::restoreByDoubleClick(const MSG& message) {
    if (message.message != WM_LBUTTONDBLCLK || message.hwnd != m_stateList.m_hWnd || m_stateList.m_labelEditActive)
        return false;
    // The first press has ended the rename by then.
    if (m_pressedInRename)
        return false;
    if (m_stateList.HitTest(CPoint(message.lParam)) < 0)
        return false;
    OnRestore();
    return true;
}

void CLayerStatesRestoreDlg::reopenRefusedRename() {
    // The messages of a dialog that the manager has opened come by here too; the box waits for the end of that dialog.
    if (!m_stateList.m_labelEditRetry || !IsWindowEnabled())
        return;
    m_stateList.m_labelEditRetry = 0;
    // When the press of a button ended the rename, the button has taken the mouse on Wine after the user let go of it.
    ::ReleaseCapture();
    m_stateList.SetFocus();
    if (!m_stateList.EditLabel(m_stateList.m_trackedRow))
        m_stateList.m_labelEditActive = 0; // the row has gone meanwhile
}

void CLayerStatesRestoreDlg::OnClose() {
    if (m_stateList.m_labelEditActive)
        return;
    SetDialogData(L"Expanded", static_cast<unsigned long>(m_expanded));
    EndDialog(IDOK);
}

void CLayerStatesRestoreDlg::OnDialogHelp() {
    openHelp(kHelpTopic);
}
