// Modal loop, tips and context help of the host's dialogs.

#include "OrvUiDialog.h"

#include "base/OutOfMemory.h"
#include "dialogs/DialogTips.h"
#include "instruments/HostCalls.h"

#include <memory>

using instruments::HostCall;

namespace {

/// Makes a module's resources the current ones for the life of the guard; null leaves them as they are.
class CurrentResources {
  public:
    explicit CurrentResources(HINSTANCE resources) : m_previous(resources ? AfxGetResourceHandle() : nullptr) {
        if (resources)
            AfxSetResourceHandle(resources);
    }
    ~CurrentResources() {
        if (m_previous)
            AfxSetResourceHandle(m_previous);
    }
    CurrentResources(const CurrentResources&) = delete;
    CurrentResources& operator=(const CurrentResources&) = delete;

  private:
    HINSTANCE m_previous;
};

} // namespace

struct COrvUiBaseDialog::Tips {
    std::unique_ptr<framework::DialogTips> window; // null until tips are turned on
};

BEGIN_MESSAGE_MAP(COrvUiBaseDialog, CDialog)
ON_WM_DESTROY()
ON_WM_HELPINFO()
ON_MESSAGE(WM_DPICHANGED, OnDpiChanged)
END_MESSAGE_MAP()

COrvUiBaseDialog::COrvUiBaseDialog(UINT templateId, CWnd* parent, HINSTANCE resources)
    : CDialog(templateId, parent), m_tips(new Tips), m_templateModule(resources) {}

COrvUiBaseDialog::~COrvUiBaseDialog() {
    delete m_tips;
}

INT_PTR COrvUiBaseDialog::DoModal() {
    const CurrentResources scope(m_templateModule);
    const INT_PTR answer = framework::answerOr(INT_PTR{-1}, [this] { return CDialog::DoModal(); });
    return answer == -1 ? IDCANCEL : answer;
}

void COrvUiBaseDialog::SetContextHelpPrefix(const wchar_t* prefix) {
    framework::asFarAsMemoryLasts([&] {
        HostCall call("SetContextHelpPrefix", prefix);
        m_contextHelpPrefix = prefix;
    });
}

void COrvUiBaseDialog::SetContextHelpFileName(const wchar_t* fileName) {
    framework::asFarAsMemoryLasts([&] {
        HostCall call("SetContextHelpFileName", fileName);
        m_contextHelpFileName = fileName;
    });
}

void COrvUiBaseDialog::SetUseTips(int use) {
    framework::asFarAsMemoryLasts([&] {
        HostCall call("SetUseTips", use);
        if (use == 2 && GetSafeHwnd()) {
            const auto texts = framework::readTips(m_contextHelpFileName.GetString(), tipScope().GetString(),
                                                   m_contextHelpPrefix.GetString());
            m_tips->window = std::make_unique<framework::DialogTips>(GetSafeHwnd(), texts);
        } else if (m_tips->window) {
            m_tips->window->allow(use != 0);
        }
    });
}

BOOL COrvUiBaseDialog::PreTranslateMessage(MSG* message) {
    if (m_tips->window)
        framework::asFarAsMemoryLasts([&] { m_tips->window->relay(*message); });
    return CDialog::PreTranslateMessage(message);
}

BOOL COrvUiBaseDialog::OnInitDialog() {
    return CDialog::OnInitDialog();
}

void COrvUiBaseDialog::OnDialogHelp() {}

void COrvUiBaseDialog::onHelpCommand() {
    OnDialogHelp();
}

CString COrvUiBaseDialog::tipScope() const {
    return CString();
}

// F1 comes here from the control with the focus. The commands are asked for in the dialog's own message map alone: a
// dialog without help must not open that of the dialog behind it, which the system's default handling would ask.
BOOL COrvUiBaseDialog::OnHelpInfo(HELPINFO*) {
    for (const UINT command : {UINT{ID_HELP}, UINT{IDHELP}})
        if (CCmdTarget::OnCmdMsg(command, CN_COMMAND, nullptr, nullptr))
            break;
    return TRUE;
}

// DefWindowProc gives the dialog its new size and font and moves its controls; the tips are left to do here.
LRESULT COrvUiBaseDialog::OnDpiChanged(WPARAM dpi, LPARAM place) {
    const LRESULT answer = DefWindowProc(WM_DPICHANGED, dpi, place);
    if (m_tips->window)
        m_tips->window->fitToScaling(HIWORD(dpi));
    return answer;
}

void COrvUiBaseDialog::OnDestroy() {
    m_tips->window.reset();
    CDialog::OnDestroy();
}
