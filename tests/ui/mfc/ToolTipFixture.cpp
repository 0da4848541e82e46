#include "ToolTipFixture.h"

#include "Input.h"

using ui::Script;
using ui::View;

// clang-format off
BEGIN_MESSAGE_MAP(TipDialog, CDialog)
    ON_NOTIFY_EX(TTN_NEEDTEXT, 0, &TipDialog::OnNeedText)
    ON_BN_CLICKED(IDC_OPEN, &TipDialog::OnOpen)
END_MESSAGE_MAP()
// clang-format on

BOOL TipDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    EnableToolTips();
    if (setUp)
        setUp();
    return TRUE;
}

INT_PTR TipDialog::OnToolHitTest(CPoint point, TOOLINFO* tool) const {
    hits.push_back(CDialog::OnToolHitTest(point, tool));
    return hits.back();
}

BOOL TipDialog::OnNeedText(UINT id, NMHDR* header, LRESULT*) {
    auto& text = *reinterpret_cast<NMTTDISPINFO*>(header);
    if (!(text.uFlags & TTF_IDISHWND))
        return FALSE;
    askedBy.push_back(id);
    const int control = ::GetDlgCtrlID(reinterpret_cast<HWND>(header->idFrom));
    ::wsprintf(text.szText, L"tip %d", control);
    return TRUE;
}

void ToolTipFixture::run(CDialog& dialog, Script script) {
    Script whole;
    whole.waitUntil("the dialog is shown", [&dialog](const View&) { return dialog.IsWindowVisible() != FALSE; });
    whole.then(script).press(VK_ESCAPE);
    ui::bringPointerAway();
    ui::perform(whole, [&dialog] { dialog.DoModal(); });
}

Script& ToolTipFixture::pointAt(Script& script, const CWnd& window, int control, int right) {
    return script.pointAt([&window, control, right] {
        CRect place;
        window.GetDlgItem(control)->GetWindowRect(place);
        return place.CenterPoint() + CSize(right, 0);
    });
}

Script& ToolTipFixture::act(Script& script, std::function<void()> action) {
    return script.look("something happens", [action = std::move(action)](const View&) { action(); });
}

std::vector<HWND> ToolTipFixture::tipWindows() {
    std::vector<HWND> found;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM out) -> BOOL {
            wchar_t name[32] = {};
            ::GetClassName(window, name, 32);
            if (std::wstring_view(name) == TOOLTIPS_CLASS)
                reinterpret_cast<std::vector<HWND>*>(out)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}
