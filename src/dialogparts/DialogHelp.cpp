#include "DialogHelp.h"

#include "OrvUiDialog.h"
#include "OrvUiServices.h"

namespace {

constexpr const wchar_t* kContextHelpPrefix = L"LAST";
constexpr const wchar_t* kContextHelpFile = L"/KelDialogToolTips;Component/DialogToolTips.xaml";
constexpr int kTipsOn = 2;

} // namespace

void setUpTips(COrvUiBaseDialog& dialog) {
    dialog.SetContextHelpPrefix(kContextHelpPrefix);
    dialog.SetContextHelpFileName(kContextHelpFile);
    dialog.SetUseTips(kTipsOn);
}

void openHelp(const wchar_t* topic) {
    wchar_t buffer[MAX_PATH];
    lstrcpynW(buffer, topic, MAX_PATH);
    keledHelp(nullptr, buffer, 0);
}
