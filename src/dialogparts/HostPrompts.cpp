#include "HostPrompts.h"

#include "OrvUiServices.h"

namespace {

constexpr const wchar_t* kTaskDialogFile = L"/KelTaskDialogs;component/TaskDialogs.xaml";

} // namespace

CWnd* threadMainWindow() {
    CWinThread* thread = AfxGetThread();
    return thread ? thread->GetMainWnd() : nullptr;
}

std::optional<int> showTaskDialog(const wchar_t* key, const TASKDIALOG_KEYVALUE* pairs, int count) {
    COrvTaskDialog dialog;
    if (!dialog.LoadFromFile(kTaskDialogFile, key, pairs, count))
        return std::nullopt;
    const CWnd* window = threadMainWindow();
    return dialog.ShowDialog(window ? window->m_hWnd : nullptr);
}
