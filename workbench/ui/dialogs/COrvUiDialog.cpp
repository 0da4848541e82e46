// Persistence and resizing of the host's dialogs.

#include "OrvUiDialog.h"

#include "base/OutOfMemory.h"
#include "dialogs/ResizeTable.h"
#include "instruments/HostCalls.h"
#include "persistence/ColumnSizes.h"
#include "persistence/DialogStore.h"
#include "persistence/Placement.h"

#include <utility>

using framework::DialogStore;
using instruments::HostCall;

struct COrvUiDialog::Layout {
    framework::ResizeTable table;
    std::optional<framework::KeptPlacement> kept; // of the dialog that was closed last under this name
    bool wasShown = false;
};

BEGIN_MESSAGE_MAP(COrvUiDialog, COrvUiBaseDialog)
ON_WM_DESTROY()
ON_MESSAGE(WM_DPICHANGED, OnDpiChanged)
ON_WM_SHOWWINDOW()
ON_WM_SIZE()
ON_WM_GETMINMAXINFO()
END_MESSAGE_MAP()

COrvUiDialog::COrvUiDialog(UINT templateId, CWnd* parent, HINSTANCE resources)
    : COrvUiBaseDialog(templateId, parent, resources), m_layout(new Layout), m_persistency(0) {}

COrvUiDialog::~COrvUiDialog() {
    delete m_layout;
}

void COrvUiDialog::SetDialogName(const wchar_t* name) {
    framework::asFarAsMemoryLasts([&] {
        HostCall call("SetDialogName", name);
        m_dialogName = name;
    });
}

void COrvUiDialog::SetPersistency(int on) {
    framework::asFarAsMemoryLasts([&] {
        HostCall call("SetPersistency", on);
        m_persistency = on;
    });
}

BOOL COrvUiDialog::GetDialogData(const wchar_t* key, unsigned long& value) {
    return framework::answerOr(FALSE, [&] {
        HostCall call("GetDialogData", key);
        const auto kept = call.fault() ? std::nullopt : DialogStore(m_dialogName.GetString()).number(key);
        if (kept) {
            value = *kept;
            call.out("value", value);
        }
        return call.answer(kept.has_value());
    });
}

BOOL COrvUiDialog::SetDialogData(const wchar_t* key, unsigned long value) {
    return framework::answerOr(FALSE, [&] {
        HostCall call("SetDialogData", key, value);
        return call.answer(!call.fault() && DialogStore(m_dialogName.GetString()).setNumber(key, value));
    });
}

void COrvUiDialog::GetColumnSizes(CListCtrl* list) {
    framework::asFarAsMemoryLasts([&] {
        HostCall call("GetColumnSizes", list->GetDlgCtrlID());
        framework::restoreColumnSizes(m_dialogName.GetString(), list->GetSafeHwnd());
    });
}

void COrvUiDialog::SaveColumnSizes(CListCtrl* list) {
    framework::asFarAsMemoryLasts([&] {
        HostCall call("SaveColumnSizes", list->GetDlgCtrlID());
        framework::keepColumnSizes(m_dialogName.GetString(), list->GetSafeHwnd());
    });
}

void COrvUiDialog::SetControlProperty(_dlgControlTag* rows, unsigned long count) {
    framework::asFarAsMemoryLasts([&] {
        HostCall call("SetControlProperty", count);
        m_layout->table.setRows(rows, count);
        if (GetSafeHwnd())
            m_layout->table.apply(GetSafeHwnd()); // the base OnInitDialog may have restored another size already
    });
}

BOOL COrvUiDialog::OnInitDialog() {
    HostCall call("OnInitDialog");
    const BOOL answer = COrvUiBaseDialog::OnInitDialog();
    framework::asFarAsMemoryLasts([&] {
        m_layout->table.remember(GetSafeHwnd());
        if (!(GetStyle() & WS_CHILD)) // one that is part of another window has no place of its own
            m_layout->kept = framework::keptPlacement(m_dialogName.GetString());
        if (m_layout->kept)
            framework::restorePlacement(GetSafeHwnd(), *m_layout->kept);
    });
    return answer;
}

CString COrvUiDialog::tipScope() const {
    return m_dialogName;
}

// OnInitDialog could bring the dialog into view only with the size that it had then, and a dialog may change its size
// while it sets itself up: the manager closes its panel. And one that stood just where its template has it was centred
// after OnInitDialog.
void COrvUiDialog::OnShowWindow(BOOL show, UINT status) {
    COrvUiBaseDialog::OnShowWindow(show, status);
    if (!show || m_layout->wasShown)
        return;
    m_layout->wasShown = true;
    if (m_layout->kept)
        framework::asFarAsMemoryLasts([&] { framework::restorePosition(GetSafeHwnd(), m_layout->kept->corner); });
}

// A dialog that was never shown stands where nobody has put it.
void COrvUiDialog::OnDestroy() {
    if (std::exchange(m_layout->wasShown, false) && !(GetStyle() & WS_CHILD))
        framework::asFarAsMemoryLasts([&] {
            framework::keepPlacement(m_dialogName.GetString(), GetSafeHwnd(),
                                     m_persistency ? framework::Keep::PositionAndSize : framework::Keep::Position);
        });
    COrvUiBaseDialog::OnDestroy();
}

LRESULT COrvUiDialog::OnDpiChanged(WPARAM dpi, LPARAM place) {
    const LRESULT answer = COrvUiBaseDialog::OnDpiChanged(dpi, place);
    const int before = m_layout->table.rescale(HIWORD(dpi));
    m_layout->table.apply(GetSafeHwnd());
    framework::scaleColumns(GetSafeHwnd(), before, HIWORD(dpi));
    return answer;
}

void COrvUiDialog::OnSize(UINT type, int width, int height) {
    COrvUiBaseDialog::OnSize(type, width, height);
    m_layout->table.apply(GetSafeHwnd());
}

void COrvUiDialog::OnGetMinMaxInfo(MINMAXINFO* info) {
    COrvUiBaseDialog::OnGetMinMaxInfo(info);
    // This is called from the base OnInitDialog on, where a kept placement is restored, so also before there is a
    // table.
    const SIZE smallest = m_layout->table.smallestWindow();
    if (smallest.cx == 0 || !(GetStyle() & WS_THICKFRAME))
        return;
    info->ptMinTrackSize = {smallest.cx, smallest.cy};
}
