#include "ListPicker.h"

#include "KelEditor.h"
#include "OrvUiDialog.h"
#include "base/FrameworkModule.h"
#include "dialogs/TipFile.h"
#include "pickers/PickerIds.h"

#include <iterator>

namespace framework {
namespace {

class ListPicker : public COrvUiDialog {
  public:
    explicit ListPicker(const PickerList& shown)
        : COrvUiDialog(shown.templateId, CWnd::GetActiveWindow(), frameworkModule()), m_shown(shown) {}

    std::optional<std::size_t> picked() const { return m_picked; }

  protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;

    DECLARE_MESSAGE_MAP()
    afx_msg void OnRowChanged(NMHDR*, LRESULT*);
    afx_msg void OnRowDoubleClicked(NMHDR* header, LRESULT*);

  private:
    void addColumns();
    void addRows();
    void selectRow(int row);
    int selectedRow() const { return m_list.GetNextItem(-1, LVNI_SELECTED); }
    void enableOk() { GetDlgItem(IDOK)->EnableWindow(selectedRow() >= 0); }

    const PickerList& m_shown;
    SampleList m_list;
    std::optional<std::size_t> m_picked;
};

BEGIN_MESSAGE_MAP(ListPicker, COrvUiDialog)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_PICKER_LIST, OnRowChanged)
ON_NOTIFY(NM_DBLCLK, IDC_PICKER_LIST, OnRowDoubleClicked)
END_MESSAGE_MAP()

BOOL ListPicker::OnInitDialog() {
    SetDialogName(m_shown.dialogName);
    m_list.SubclassDlgItem(IDC_PICKER_LIST, this);
    COrvUiDialog::OnInitDialog();
    _dlgControlTag resizing[] = {
        {IDC_PICKER_LIST, kOrvUiResizeStretch, 100},
        {IDC_PICKER_NOTE, kOrvUiResizeFollowBottom, 100},
        {IDOK, kOrvUiResizeFollowCorner, 100},
        {IDCANCEL, kOrvUiResizeFollowCorner, 100},
    };
    SetControlProperty(resizing, std::size(resizing));
    SetContextHelpPrefix(kTipPrefix);
    SetContextHelpFileName(kTipFile);
    SetUseTips(2);
    SetDlgItemText(IDC_PICKER_NOTE, m_shown.note.c_str());
    addColumns();
    addRows();
    GetColumnSizes(&m_list);
    SetPersistency(1);
    m_list.SetFocus();
    return FALSE;
}

void ListPicker::addColumns() {
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    for (const PickerColumn& column : m_shown.columns) {
        CRect width(0, 0, column.width, 0);
        MapDialogRect(width);
        m_list.InsertColumn(static_cast<int>(&column - m_shown.columns.data()), column.heading, LVCFMT_LEFT,
                            width.Width());
    }
}

void ListPicker::addRows() {
    m_list.setSamples(m_shown.sampleColumn, m_shown.drawSample);
    m_list.SetRedraw(FALSE);
    for (const auto& texts : m_shown.rows) {
        const int row = m_list.InsertItem(m_list.GetItemCount(), texts.front().c_str());
        for (std::size_t column = 1; column < texts.size(); ++column)
            m_list.SetItemText(row, static_cast<int>(column), texts[column].c_str());
    }
    m_list.SetRedraw(TRUE);
    if (m_shown.selected)
        selectRow(static_cast<int>(*m_shown.selected));
    enableOk();
}

void ListPicker::selectRow(int row) {
    m_list.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    m_list.EnsureVisible(row, FALSE);
}

void ListPicker::OnOK() {
    const int row = selectedRow();
    if (row < 0)
        return; // Enter arrives here even while the button is disabled
    m_picked = static_cast<std::size_t>(row);
    SaveColumnSizes(&m_list);
    COrvUiDialog::OnOK();
}

void ListPicker::OnCancel() {
    SaveColumnSizes(&m_list);
    COrvUiDialog::OnCancel();
}

void ListPicker::OnRowChanged(NMHDR*, LRESULT*) {
    enableOk();
}

void ListPicker::OnRowDoubleClicked(NMHDR* header, LRESULT*) {
    if (reinterpret_cast<const NMITEMACTIVATE*>(header)->iItem >= 0)
        OnOK();
}

} // namespace

std::optional<std::size_t> pickFromList(const PickerList& list) {
    ListPicker dialog(list);
    return dialog.DoModal() == IDOK ? dialog.picked() : std::nullopt;
}

std::wstring hostWord(int which) {
    const wchar_t* word = keldbGetReservedString(which, true);
    return word ? word : L"";
}

} // namespace framework
