// The program has a main of its own, so it starts the library itself.
#include "Program.h"

namespace {

Program g_program;

} // namespace

void PrintTo(const CString& text, std::ostream* out) {
    *out << testing::PrintToString(std::wstring(text.GetString()));
}

Program& theProgram() {
    return g_program;
}

int Program::DoMessageBox(LPCTSTR prompt, UINT type, UINT helpId) {
    prompts.push_back(prompt);
    return showsPrompts ? CWinApp::DoMessageBox(prompt, type, helpId) : IDOK;
}

BOOL Program::OnIdle(LONG count) {
    ++idleCalls;
    return CWinApp::OnIdle(count);
}

BOOL Program::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) {
    if (code == CN_COMMAND && id == command && command != 0) {
        ++commandCount;
        return TRUE;
    }
    return CWinApp::OnCmdMsg(id, code, extra, info);
}

void runUntilIdle() {
    MSG message;
    while (::PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE))
        theProgram().PumpMessage();
    theProgram().OnIdle(0);
}

void MfcTest::SetUp() {
    theProgram().prompts.clear();
    theProgram().showsPrompts = false;
    theProgram().command = 0;
    theProgram().commandCount = 0;
}

void MfcTest::TearDown() {
    theProgram().m_pMainWnd = nullptr;
    AfxSetResourceHandle(nullptr);
    runUntilIdle();
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    AfxWinInit(::GetModuleHandle(nullptr), nullptr, ::GetCommandLine(), SW_SHOWNORMAL);
    return RUN_ALL_TESTS();
}
