// The tests' program object, and what all tests of windows share: a log, a frame window, and the message loop by hand.
#pragma once

#include <afxcmn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

/// Lets GoogleTest print what CString holds.
void PrintTo(const CString& text, std::ostream* out);

/// The program: writes down the message boxes that the library wants to show, and answers them itself.
class Program : public CWinApp {
  public:
    Program() : CWinApp(L"MFC tests") {}

    int DoMessageBox(LPCTSTR prompt, UINT type, UINT helpId) override;
    BOOL OnIdle(LONG count) override;
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

    std::vector<CString> prompts;
    bool showsPrompts = false;
    /// A command that the program itself handles, 0 for none, and how often it came.
    UINT command = 0;
    int commandCount = 0;
    LONG idleCalls = 0;
};

Program& theProgram();

/// Takes messages, the way the program's loop does, until none waits; then is idle once.
void runUntilIdle();

/// A top-level window for others to stand in.
class Frame : public CWnd {
  public:
    BOOL Create() { return CreateAt(CRect(100, 100, 500, 400)); }
    BOOL CreateAt(const CRect& rect) {
        return CreateEx(0,
                        AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW),
                                            reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1)),
                        L"Frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, rect, nullptr, 0);
    }
};

/// What happened, in the order in which it happened.
using Log = std::vector<std::string>;

class MfcTest : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    Log log;
};
