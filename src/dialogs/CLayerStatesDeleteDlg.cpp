#include "CLayerStatesDeleteDlg.h"

#include "DialogHelp.h"
#include "resource.h"

namespace {

constexpr const wchar_t* kDialogName = L"KelLayerApps:LayerStatesDelete";

} // namespace

BEGIN_MESSAGE_MAP(CLayerStatesDeleteDlg, CKelUiDialog)
ON_BN_CLICKED(IDC_LSTATE_DEL_THIS, &CLayerStatesDeleteDlg::OnDeleteThis)
ON_BN_CLICKED(IDC_LSTATE_DEL_ALL, &CLayerStatesDeleteDlg::OnDeleteAll)
ON_BN_CLICKED(IDC_LSTATE_KEEP_THIS, &CLayerStatesDeleteDlg::OnKeepThis)
END_MESSAGE_MAP()

CLayerStatesDeleteDlg::CLayerStatesDeleteDlg(CWnd* parent)
    : CKelUiDialog(IDD_LSTATE_DEL, parent), m_applyToAll(0), m_deleteThis(1), m_cancelled(0) {}

CLayerStatesDeleteDlg::~CLayerStatesDeleteDlg() = default;

void CLayerStatesDeleteDlg::DoDataExchange(CDataExchange* exchange) {
    CKelUiDialog::DoDataExchange(exchange);
}

BOOL CLayerStatesDeleteDlg::OnInitDialog() {
    SetDialogName(kDialogName);
    CKelUiDialog::OnInitDialog();
    setUpTips(*this);
    if (CWnd* picture = GetDlgItem(IDC_LSTATE_DEL_ICON))
        if (const HICON icon = ::LoadIconW(nullptr, IDI_QUESTION)) // shared: the system keeps it
            picture->SendMessage(STM_SETICON, reinterpret_cast<WPARAM>(icon));
    CString question;
    GetDlgItemText(IDC_LSTATE_DEL_PROMPT, question);
    CString asked;
    asked.Format(question, m_stateName.GetString());
    SetDlgItemText(IDC_LSTATE_DEL_PROMPT, asked);
    return TRUE;
}

void CLayerStatesDeleteDlg::answer(int deleteThis, int applyToAll) {
    m_deleteThis = deleteThis;
    m_applyToAll = applyToAll;
    m_cancelled = 0;
    EndDialog(IDOK);
}

void CLayerStatesDeleteDlg::OnDeleteThis() {
    answer(1, 0);
}

void CLayerStatesDeleteDlg::OnDeleteAll() {
    answer(1, 1);
}

void CLayerStatesDeleteDlg::OnKeepThis() {
    answer(0, 0);
}

void CLayerStatesDeleteDlg::OnCancel() {
    m_applyToAll = 0;
    m_deleteThis = 0;
    m_cancelled = 1;
    CKelUiDialog::OnCancel();
}
