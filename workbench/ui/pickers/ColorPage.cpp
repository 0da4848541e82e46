#include "ColorPage.h"

#include "pickers/PickerIds.h"

#include <commdlg.h>
#include <uxtheme.h>

#include <string>

namespace framework {
namespace {

constexpr int kFields[] = {IDC_COLOR_RED, IDC_COLOR_GREEN, IDC_COLOR_BLUE};
constexpr int kSpins[] = {IDC_COLOR_RED_SPIN, IDC_COLOR_GREEN_SPIN, IDC_COLOR_BLUE_SPIN};
constexpr int kLargest = 255;
constexpr int kDigits = 3;

} // namespace

BOOL ColorPage::PreTranslateMessage(MSG* message) {
    // CDialog would take Tab, Enter and Escape; on a page they belong to the dialog around it.
    return CWnd::PreTranslateMessage(message);
}

BOOL ColorPage::OnInitDialog() {
    CDialog::OnInitDialog();
    EnableThemeDialogTexture(GetSafeHwnd(), ETDT_ENABLETAB);
    return FALSE; // the dialog around decides where the focus is
}

BEGIN_MESSAGE_MAP(PalettePage, ColorPage)
ON_CONTROL(kPaletteMarked, IDC_COLOR_PALETTE, OnMarked)
ON_CONTROL(kPaletteAccepted, IDC_COLOR_PALETTE, OnAccepted)
ON_BN_CLICKED(IDC_COLOR_BYLAYER, OnByLayer)
ON_BN_CLICKED(IDC_COLOR_BYBLOCK, OnByBlock)
END_MESSAGE_MAP()

PalettePage::PalettePage(pickers::ColorChoice& choice, bool byReference)
    : ColorPage(IDD_PICK_COLOR_PALETTE, choice), m_byReference(byReference) {
    PaletteField::registerClass();
}

BOOL PalettePage::OnInitDialog() {
    m_field.SubclassDlgItem(IDC_COLOR_PALETTE, this);
    for (const int id : {IDC_COLOR_BYLAYER, IDC_COLOR_BYBLOCK})
        GetDlgItem(id)->ShowWindow(m_byReference ? SW_SHOW : SW_HIDE);
    return ColorPage::OnInitDialog();
}

void PalettePage::showChoice() {
    m_field.mark(m_choice.markedIndex());
}

void PalettePage::choose(int index) {
    m_choice.chooseIndex(index);
    showChoice();
    onChanged();
}

void PalettePage::OnMarked() {
    choose(m_field.marked().value_or(pickers::kByBlock));
}

void PalettePage::OnAccepted() {
    onAccepted();
}

void PalettePage::OnByLayer() {
    choose(pickers::kByLayer);
}

void PalettePage::OnByBlock() {
    choose(pickers::kByBlock);
}

BEGIN_MESSAGE_MAP(TrueColorPage, ColorPage)
ON_CONTROL_RANGE(EN_CHANGE, IDC_COLOR_RED, IDC_COLOR_BLUE, OnFieldChanged)
ON_BN_CLICKED(IDC_COLOR_MORE, OnMore)
END_MESSAGE_MAP()

TrueColorPage::TrueColorPage(pickers::ColorChoice& choice, bool systemDialog)
    : ColorPage(IDD_PICK_COLOR_TRUE, choice), m_systemDialog(systemDialog) {}

BOOL TrueColorPage::OnInitDialog() {
    for (const int id : kSpins)
        SendDlgItemMessage(id, UDM_SETRANGE32, 0, kLargest);
    for (const int id : kFields)
        SendDlgItemMessage(id, EM_SETLIMITTEXT, kDigits, 0);
    GetDlgItem(IDC_COLOR_MORE)->ShowWindow(m_systemDialog ? SW_SHOW : SW_HIDE);
    return ColorPage::OnInitDialog();
}

std::array<std::wstring, 3> TrueColorPage::fields() const {
    std::array<std::wstring, 3> texts;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        CString text;
        GetDlgItem(kFields[i])->GetWindowText(text);
        texts[i] = text.GetString();
    }
    return texts;
}

void TrueColorPage::showChoice() {
    m_showing = true;
    for (std::size_t i = 0; i < std::size(kFields); ++i)
        SetDlgItemInt(kFields[i], static_cast<UINT>(m_choice.rgb()[i]), FALSE);
    m_showing = false;
    m_complete = true;
}

void TrueColorPage::OnFieldChanged(UINT) {
    // The fields are filled one by one, and the spin buttons write into them before the page is set up.
    if (m_showing || !onChanged)
        return;
    m_complete = m_choice.chooseFields(fields());
    onChanged();
}

void TrueColorPage::OnMore() {
    // The colours that the user mixes in it, kept while the program runs.
    static std::array<COLORREF, 16> mixed = {};
    const auto [red, green, blue] = m_choice.rgb();
    CHOOSECOLORW dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = ::GetParent(GetSafeHwnd());
    dialog.rgbResult = RGB(red, green, blue);
    dialog.lpCustColors = mixed.data();
    dialog.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR;
    if (!ChooseColorW(&dialog))
        return;
    m_choice.chooseRgb(GetRValue(dialog.rgbResult), GetGValue(dialog.rgbResult), GetBValue(dialog.rgbResult));
    showChoice();
    onChanged();
}

} // namespace framework
