// Tips and help through the host.
#include "DialogHelp.h"

#include "OrvUiDialog.h"
#include "OrvUiServices.h"

namespace {

constexpr const wchar_t* contextHelpPrefix = L"LAST";
constexpr const wchar_t* contextHelpFile = L"/KelDialogToolTips;Component/DialogToolTips.xaml";
constexpr int tipsOn = 2;

} // namespace

void setUpTips(COrvUiBaseDialog& dialog) {
    dialog.SetContextHelpPrefix(contextHelpPrefix);
    dialog.SetContextHelpFileName(contextHelpFile);
    dialog.SetUseTips(tipsOn);
}

void openHelp(const wchar_t* topic) {
    wchar_t buffer[MAX_PATH];
    lstrcpynW(buffer, topic, MAX_PATH);
    keledHelp(nullptr, buffer, 0);
}
