#include "CLayerStatesSaveDlg.h"

#include "CResourceScope.h"
#include "DialogHelp.h"
#include "HostPrompts.h"
#include "KelEditor.h"
#include "MessageBoxes.h"
#include "OrvUiServices.h"
#include "StateDescription.h"
#include "StateNames.h"
#include "WorkingDatabase.h"
#include "resource.h"

namespace {

constexpr const wchar_t* kDialogName = L"KelLayerApps:SaveLayerStatesDialog";
constexpr const wchar_t* kHelpTopic = L"NEWLAYERSTATEDIALOG";

} // namespace

BEGIN_MESSAGE_MAP(CLayerStatesSaveDlg, CKelUiDialog)
ON_CBN_CLOSEUP(IDC_LSTATE_SAVE_NAME, &CLayerStatesSaveDlg::OnNameListClosed)
ON_CBN_SELCHANGE(IDC_LSTATE_SAVE_NAME, &CLayerStatesSaveDlg::OnNameSelected)
ON_CBN_EDITCHANGE(IDC_LSTATE_SAVE_NAME, &CLayerStatesSaveDlg::OnTextChanged)
ON_EN_CHANGE(IDC_LSTATE_SAVE_DESCRIPTION, &CLayerStatesSaveDlg::OnTextChanged)
ON_COMMAND(ID_HELP, &CLayerStatesSaveDlg::onHelpCommand)
END_MESSAGE_MAP()

CLayerStatesSaveDlg::CLayerStatesSaveDlg(CWnd* parent, bool calledFromEntry)
    : CKelUiDialog(IDD_LSTATE_SAVE, parent), m_parent(parent), m_stateMask(0), m_nameCombo(nullptr),
      m_calledFromEntry(calledFromEntry) {}

CLayerStatesSaveDlg::~CLayerStatesSaveDlg() = default;

CString CLayerStatesSaveDlg::GetStateName() const {
    return m_stateName;
}

void CLayerStatesSaveDlg::DoDataExchange(CDataExchange* exchange) {
    CKelUiDialog::DoDataExchange(exchange);
}

BOOL CLayerStatesSaveDlg::OnInitDialog() {
    SetDialogName(kDialogName);
    CKelUiDialog::OnInitDialog();
    setUpTips(*this);
    m_nameCombo = static_cast<CComboBox*>(GetDlgItem(IDC_LSTATE_SAVE_NAME));
    m_nameCombo->LimitText(stateNameLimit());
    fillNames();
    if (m_stateName.IsEmpty())
        m_stateMask = MaskAllProperties;
    else
        showPreset();
    allowOkByName();
    m_nameCombo->SetFocus();
    m_nameCombo->SetEditSel(0, -1);
    return FALSE; // the focus stays where it was put
}

void CLayerStatesSaveDlg::fillNames() {
    KelDbLayerStateManager* states = workingStates();
    if (!states)
        return;
    KelArray<KelString> names(0, 8);
    if (states->getLayerStateNames(names, true, true) != Vorn::eOk)
        return;
    for (int index = 0; index < names.length(); ++index)
        m_nameCombo->AddString(names[index].kwszPtr());
}

void CLayerStatesSaveDlg::showPreset() {
    const int item = m_nameCombo->FindStringExact(-1, m_stateName);
    if (item >= 0)
        m_nameCombo->SetCurSel(item);
    if (KelDbLayerStateManager* states = workingStates())
        showDescription(*states, m_stateName);
}

void CLayerStatesSaveDlg::showDescription(KelDbLayerStateManager& states, const wchar_t* name) {
    const std::optional<CString> description = stateDescription(states, name);
    if (!description)
        return;
    m_stateDescription = *description;
    SetDlgItemText(IDC_LSTATE_SAVE_DESCRIPTION, m_stateDescription);
}

CString CLayerStatesSaveDlg::typedName() const {
    CString name;
    GetDlgItemText(IDC_LSTATE_SAVE_NAME, name);
    name.Trim();
    return name;
}

void CLayerStatesSaveDlg::allowOkByName() {
    GetDlgItem(IDOK)->EnableWindow(!typedName().IsEmpty());
}

void CLayerStatesSaveDlg::OnTextChanged() {
    allowOkByName();
}

void CLayerStatesSaveDlg::OnNameSelected() {
    // The arrow keys and the wheel put a name into the edit field with the list closed, and nothing else tells of it.
    // At this time the field may still hold the old text.
    m_nameCombo = static_cast<CComboBox*>(GetDlgItem(IDC_LSTATE_SAVE_NAME));
    if (m_nameCombo->GetCurSel() >= 0)
        GetDlgItem(IDOK)->EnableWindow(TRUE);
}

void CLayerStatesSaveDlg::OnNameListClosed() {
    // The text that the list's entry shows; the edit field still holds the old one.
    m_nameCombo = static_cast<CComboBox*>(GetDlgItem(IDC_LSTATE_SAVE_NAME));
    const int item = m_nameCombo->GetCurSel();
    if (item < 0)
        return;
    CString name;
    m_nameCombo->GetLBText(item, name);
    KelDbLayerStateManager* states = workingStates();
    LayerStateMask mask = 0;
    if (!states || states->getLayerStateMask(name, mask) != Vorn::eOk)
        return;
    m_stateName = name;
    m_stateMask = mask;
    showDescription(*states, name);
    GetDlgItem(IDOK)->EnableWindow(TRUE);
}

void CLayerStatesSaveDlg::OnOK() {
    m_nameCombo = static_cast<CComboBox*>(GetDlgItem(IDC_LSTATE_SAVE_NAME));
    const CString name = typedName();
    m_nameCombo->SetWindowText(name);
    if (!CheckStateName(name)) {
        askForOtherName();
        return;
    }
    KelDbLayerStateManager* states = workingStates();
    if (!states)
        return;
    if (states->hasLayerState(name) && !replaceState(*states, name)) {
        askForOtherName();
        return;
    }
    // Whatever the host refuses from here on, the user is told and the dialog goes on and ends; kept on purpose.
    GetDlgItemText(IDC_LSTATE_SAVE_DESCRIPTION, m_stateDescription);
    tellWhenRefused(states->saveLayerState(name, m_stateMask, keledGetCurViewportObjectId()));
    tellWhenRefused(states->setLayerStateDescription(name, m_stateDescription));
    m_stateName = name;
    CKelUiDialog::OnOK();
}

bool CLayerStatesSaveDlg::replaceState(KelDbLayerStateManager& states, const wchar_t* name) {
    const unsigned int answer = CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog(
        loadResourceString(IDS_LSTATE_KIND), name, threadMainWindow());
    if (answer == IDCANCEL)
        return false;
    tellWhenRefused(states.deleteLayerState(name));
    return true;
}

void CLayerStatesSaveDlg::askForOtherName() {
    m_nameCombo->SetFocus();
    m_nameCombo->SetEditSel(0, -1);
}

void CLayerStatesSaveDlg::tellWhenRefused(int status) {
    if (status != Vorn::eOk)
        showFailure(*this, loadResourceString(IDS_LSTATE_NOT_SAVED));
}

void CLayerStatesSaveDlg::OnCancel() {
    CKelUiDialog::OnCancel();
}

void CLayerStatesSaveDlg::OnDialogHelp() {
    openHelp(kHelpTopic);
}
