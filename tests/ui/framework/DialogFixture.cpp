// See DialogFixture.h.

#include "DialogFixture.h"

#include "instruments/HostCalls.h"
#include "persistence/DialogStore.h"

namespace {

constexpr const wchar_t* kTestRoot = L"Software\\KelWorkbenchTests\\Dialogs";

} // namespace

TestDialog::TestDialog(UINT templateId, const wchar_t* name) : CKelUiDialog(templateId), m_name(name) {}

BOOL TestDialog::OnInitDialog() {
    SetDialogName(m_name);
    CKelUiDialog::OnInitDialog();
    if (setUp)
        setUp();
    return TRUE;
}

Step TestDialog::close() {
    return act("close the dialog", [this] { EndDialog(IDOK); });
}

BOOL TestDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (onCommand && HIWORD(wParam) == BN_CLICKED)
        onCommand(LOWORD(wParam));
    return CKelUiDialog::OnCommand(wParam, lParam);
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
