#include "DialogFixture.h"

#include "instruments/HostCalls.h"
#include "persistence/DialogStore.h"

#include <commctrl.h>

namespace {

constexpr const wchar_t* kTestRoot = L"Software\\KelWorkbenchTests\\Dialogs";

} // namespace

TestDialog::TestDialog(UINT templateId, const wchar_t* name, CWnd* parent)
    : CKelUiDialog(templateId, parent), m_name(name) {}

BOOL TestDialog::OnInitDialog() {
    SetDialogName(m_name);
    CKelUiDialog::OnInitDialog();
    if (setUp)
        setUp();
    return TRUE;
}

INT_PTR TestDialog::run(const ui::Script& script) {
    ui::Script whole;
    whole.waitUntil("the dialog is shown", [this](const ui::View&) { return IsWindowVisible() != FALSE; });
    whole.then(script).look("close the dialog", [this](const ui::View&) { EndDialog(IDOK); });
    // Done before the dialog opens, so that it never opens under the pointer.
    ui::bringPointerAway();
    INT_PTR answer = 0;
    ui::perform(whole, [&] { answer = DoModal(); });
    return answer;
}

BOOL TestDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (onCommand && HIWORD(wParam) == BN_CLICKED)
        onCommand(LOWORD(wParam));
    return CKelUiDialog::OnCommand(wParam, lParam);
}

ui::Script look(std::string what, std::function<void()> see) {
    ui::Script script;
    script.look(std::move(what), [see](const ui::View&) { see(); });
    return script;
}

RECT screenRect(HWND window) {
    RECT rect = {};
    GetWindowRect(window, &rect);
    return rect;
}

DialogFixture::DialogFixture() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kTestRoot);
    framework::DialogStore::setRoot(kTestRoot);
    instruments::watch(true);
}

DialogFixture::~DialogFixture() {
    EXPECT_THAT(instruments::ledger(), testing::IsEmpty());
    instruments::watch(false);
    framework::DialogStore::setRoot({});
    RegDeleteTreeW(HKEY_CURRENT_USER, kTestRoot);
}

std::wstring DialogFixture::kept(const std::wstring& below) {
    return std::wstring(kTestRoot) + L"\\FrameworkTests:Dialog" + below;
}

void DialogFixture::writeValue(const std::wstring& path, const wchar_t* name, DWORD type, const void* data,
                               DWORD size) {
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), name, type, data, size), ERROR_SUCCESS);
}

void DialogFixture::writeNumber(const std::wstring& path, const wchar_t* name, DWORD value) {
    writeValue(path, name, REG_DWORD, &value, sizeof value);
}
