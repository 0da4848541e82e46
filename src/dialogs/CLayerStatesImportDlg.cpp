#include "CLayerStatesImportDlg.h"

#include "CResourceScope.h"
#include "DialogHelp.h"
#include "FlagForLife.h"
#include "HostPrompts.h"
#include "ListSelection.h"
#include "SideDrawing.h"
#include "WorkingDatabase.h"
#include "resource.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr const wchar_t* kDialogName = L"KelLayerApps:ImportLayerStates";
constexpr const wchar_t* kHelpTopic = L"IMPORTLAYERSTATESDIALOG";
constexpr const wchar_t* kNoneSelectedKey = L"KelLayerApps.LayerStateNoneSelected";

constexpr ListColumn kColumns[] = {
    {IDS_LSTATE_COLUMN_NAME, 0.4}, {IDS_LSTATE_COLUMN_SPACE, 0.19}, {IDS_LSTATE_COLUMN_DESCRIPTION, 0.4}};

/// Whether a state of a row has its tick: 1 ticked, 0 not, also for a row that has no box yet.
int tickOf(UINT rowState) {
    constexpr int kImageShift = 12;
    return std::max(0, static_cast<int>((rowState & LVIS_STATEIMAGEMASK) >> kImageShift) - 1);
}

bool isHeld(int key) {
    return HIBYTE(::GetKeyState(key)) != 0;
}

} // namespace

BEGIN_MESSAGE_MAP(CLayerStatesImportDlg, CKelUiDialog)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_LSTATE_IMPORT_LIST, &CLayerStatesImportDlg::OnItemChanged)
ON_COMMAND(IDHELP, &CLayerStatesImportDlg::onHelpCommand)
END_MESSAGE_MAP()

CLayerStatesImportDlg::CLayerStatesImportDlg(CWnd* parent, const wchar_t* filePath)
    : CKelUiDialog(IDD_LSTATE_IMPORT, parent), m_filePath(filePath), m_selectedNames(0, 8), m_ticking(false) {}

CLayerStatesImportDlg::~CLayerStatesImportDlg() = default;

void CLayerStatesImportDlg::DoDataExchange(CDataExchange* exchange) {
    CKelUiDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_LSTATE_IMPORT_LIST, m_stateList);
}

BOOL CLayerStatesImportDlg::OnInitDialog() {
    SetDialogName(kDialogName);
    CKelUiDialog::OnInitDialog();
    setUpTips(*this);
    m_stateList.m_cellEditEnabled = 0; // nothing is edited in this list
    m_stateList.SetExtendedStyle(m_stateList.GetExtendedStyle() | LVS_EX_GRIDLINES | LVS_EX_CHECKBOXES |
                                 LVS_EX_FULLROWSELECT);
    m_stateList.InsertColumns(kColumns);
    LoadStatesFromFile(); // what can't be read is shown as an empty list
    // The first row has the focus and isn't selected. Without a focused row nobody sees that Tab has come to the list,
    // and Shift with End would do nothing.
    m_stateList.SetItemState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    GetColumnSizes(&m_stateList);
    static _dlgControlTag layout[] = {
        {IDC_LSTATE_IMPORT_LIST, kOrvUiResizeStretch, 100},
        {IDOK, kOrvUiResizeFollowCorner, 100},
        {IDCANCEL, kOrvUiResizeFollowCorner, 100},
        {IDHELP, kOrvUiResizeFollowCorner, 100},
    };
    SetControlProperty(layout, static_cast<unsigned long>(std::size(layout)));
    SetPersistency(1);
    return TRUE;
}

bool CLayerStatesImportDlg::LoadStatesFromFile() {
    const SideDrawing source = readSideDrawing(m_filePath);
    if (!source.database)
        return false;
    const bool hasRows = m_stateList.PopulateStates(source.database.get(), true, false);
    tickMissingStates();
    return hasRows;
}

void CLayerStatesImportDlg::tickMissingStates() {
    KelDbLayerStateManager* states = workingStates();
    if (!states)
        return;
    for (int row = 0; row < m_stateList.GetItemCount(); ++row)
        if (!states->hasLayerState(m_stateList.StateName(row)))
            m_stateList.SetCheck(row, TRUE);
}

bool CLayerStatesImportDlg::hasTickedRow() const {
    for (int row = 0; row < m_stateList.GetItemCount(); ++row)
        if (m_stateList.GetCheck(row))
            return true;
    return false;
}

void CLayerStatesImportDlg::OnOK() {
    m_selectedNames.setLogicalLength(0);
    SaveColumnSizes(&m_stateList);
    if (!hasTickedRow()) {
        static_cast<void>(showTaskDialog(kNoneSelectedKey));
        return;
    }
    for (int row = 0; row < m_stateList.GetItemCount(); ++row) {
        const CString name = m_stateList.StateName(row);
        if (m_stateList.GetCheck(row) && !name.IsEmpty())
            m_selectedNames.append(name.GetString());
    }
    CKelUiDialog::OnOK();
}

void CLayerStatesImportDlg::OnItemChanged(NMHDR* header, LRESULT* result) {
    *result = 0;
    const auto& change = *reinterpret_cast<const NMLISTVIEW*>(header);
    if (m_ticking)
        return;
    const int tick = tickOf(change.uNewState);
    if (tick == tickOf(change.uOldState) || !m_stateList.GetItemState(change.iItem, LVIS_SELECTED))
        return;
    // One box of several selected rows ticks or clears them all.
    const FlagForLife ticking(m_ticking);
    for (int row = 0; row < m_stateList.GetItemCount(); ++row)
        if (m_stateList.GetItemState(row, LVIS_SELECTED))
            m_stateList.SetCheck(row, tick != 0);
}

BOOL CLayerStatesImportDlg::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && selectByKey(message->wParam))
        return TRUE;
    return CKelUiDialog::PreTranslateMessage(message);
}

bool CLayerStatesImportDlg::selectByKey(WPARAM key) {
    const bool control = isHeld(VK_CONTROL);
    if (key != VK_HOME && key != VK_END && !(key == L'A' && control))
        return false;
    const int rows = m_stateList.GetItemCount();
    if (control) {
        m_stateList.SetFocus();
        deselectAllRows(m_stateList);
        if (rows == 0)
            return true;
        if (key == L'A')
            selectAllRows(m_stateList);
        else
            selectRow(key == VK_HOME ? 0 : rows - 1);
        return true;
    }
    if (!isHeld(VK_SHIFT))
        return false;
    const int step = key == VK_HOME ? -1 : 1;
    for (int row = m_stateList.GetNextItem(-1, LVNI_FOCUSED); row >= 0 && row < m_stateList.GetItemCount(); row += step)
        selectRow(row);
    return true;
}

void CLayerStatesImportDlg::selectRow(int row) {
    m_stateList.SetItemState(row, kSelectedAndFocused, kSelectedAndFocused);
    m_stateList.EnsureVisible(row, FALSE);
}

void CLayerStatesImportDlg::OnDialogHelp() {
    openHelp(kHelpTopic);
}
