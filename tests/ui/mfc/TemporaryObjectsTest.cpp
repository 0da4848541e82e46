// Temporary objects: one for each handle, gone when the loop that made them is idle, and with them nothing else.
#include "MfcTestIds.h"
#include "Program.h"

namespace {

class TemporaryObjectsTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        ASSERT_TRUE(frame.Create());
        child = ::CreateWindow(L"EDIT", L"", WS_CHILD, 0, 0, 10, 10, frame.m_hWnd, nullptr, nullptr, nullptr);
        runUntilIdle();
    }
    Frame frame;
    HWND child = nullptr;
};

TEST_F(TemporaryObjectsTest, AreTheSameForOneHandleUntilIdle) {
    CWnd* const first = CWnd::FromHandle(child);
    EXPECT_EQ(CWnd::FromHandle(child), first);
    EXPECT_EQ(first->m_hWnd, child);
    EXPECT_EQ(CWnd::FromHandlePermanent(child), nullptr);
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
}

TEST_F(TemporaryObjectsTest, AreGoneAfterIdleAndLeaveTheirWindowsAlone) {
    CWnd* const before = CWnd::FromHandle(child);
    before->m_nFlags = 12345;
    runUntilIdle();
    EXPECT_NE(CWnd::FromHandle(child)->m_nFlags, 12345);
    EXPECT_TRUE(::IsWindow(child));
}

TEST_F(TemporaryObjectsTest, GiveWayToAPermanentOne) {
    CWnd* const temporary = CWnd::FromHandle(child);
    CEdit edit;
    ASSERT_TRUE(edit.Attach(child));
    EXPECT_EQ(CWnd::FromHandle(child), &edit);
    EXPECT_NE(CWnd::FromHandle(child), temporary);
    edit.Detach();
}

TEST_F(TemporaryObjectsTest, OfMenusContextsAndGdiObjectsGoWithoutTheirHandles) {
    const HMENU menu = ::CreatePopupMenu();
    const HDC context = ::CreateCompatibleDC(nullptr);
    const HPEN pen = ::CreatePen(PS_SOLID, 1, RGB(1, 2, 3));
    const HIMAGELIST images = ::ImageList_Create(16, 16, ILC_COLOR, 1, 1);
    EXPECT_EQ(CMenu::FromHandle(menu), CMenu::FromHandle(menu));
    EXPECT_EQ(CDC::FromHandle(context), CDC::FromHandle(context));
    EXPECT_EQ(CPen::FromHandle(pen), CPen::FromHandle(pen));
    EXPECT_EQ(CImageList::FromHandle(images), CImageList::FromHandle(images));
    EXPECT_EQ(CDC::FromHandle(context)->m_hAttribDC, context);
    // What is still there after idle is known by the handle that it lacks.
    CMenu::FromHandle(menu)->m_hMenu = nullptr;
    CDC::FromHandle(context)->m_hAttribDC = nullptr;
    CPen::FromHandle(pen)->m_hObject = nullptr;
    CImageList::FromHandle(images)->m_hImageList = nullptr;
    runUntilIdle();
    EXPECT_EQ(CMenu::FromHandle(menu)->m_hMenu, menu);
    EXPECT_EQ(CDC::FromHandle(context)->m_hAttribDC, context);
    EXPECT_EQ(CPen::FromHandle(pen)->m_hObject, pen);
    EXPECT_EQ(CImageList::FromHandle(images)->m_hImageList, images);
    EXPECT_TRUE(::IsMenu(menu));
    EXPECT_EQ(::GetObjectType(context), static_cast<DWORD>(OBJ_MEMDC));
    EXPECT_EQ(::GetObjectType(pen), static_cast<DWORD>(OBJ_PEN));
    EXPECT_EQ(::ImageList_GetImageCount(images), 0);
    EXPECT_TRUE(::DestroyMenu(menu));
    EXPECT_TRUE(::DeleteDC(context));
    EXPECT_TRUE(::DeleteObject(pen));
    EXPECT_TRUE(::ImageList_Destroy(images));
}

TEST_F(TemporaryObjectsTest, OfANullHandleAreNone) {
    EXPECT_EQ(CMenu::FromHandle(nullptr), nullptr);
    EXPECT_EQ(CDC::FromHandle(nullptr), nullptr);
    EXPECT_EQ(CGdiObject::FromHandle(nullptr), nullptr);
    EXPECT_EQ(CImageList::FromHandle(nullptr), nullptr);
}

/// Ends by itself when it has been idle for a while.
class IdleDialog : public CDialog {
  public:
    explicit IdleDialog(CWnd* parent) : CDialog(IDD_NESTED, parent) {}
    int marked = 0;

  protected:
    LRESULT OnKickIdle(WPARAM, LPARAM) {
        // The second time the object that was made at the first is gone.
        CWnd* const open = GetDlgItem(IDC_OPEN);
        marked = m_turns == 0 ? 0 : open->m_nFlags;
        open->m_nFlags = 777;
        if (++m_turns == 3)
            EndDialog(IDOK);
        else
            PostMessage(WM_NULL);
        return FALSE;
    }
    DECLARE_MESSAGE_MAP()

  private:
    int m_turns = 0;
};

// clang-format off
BEGIN_MESSAGE_MAP(IdleDialog, CDialog)
    ON_MESSAGE(WM_KICKIDLE, &IdleDialog::OnKickIdle)
END_MESSAGE_MAP()
// clang-format on

TEST_F(TemporaryObjectsTest, OfAnOuterLoopOutliveAModalDialogsIdleTime) {
    CWnd* const outer = CWnd::FromHandle(child);
    outer->m_nFlags = 4321;
    CPen* const pen = CPen::FromHandle(static_cast<HPEN>(::GetStockObject(BLACK_PEN)));
    IdleDialog dialog(&frame);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(CWnd::FromHandle(child), outer);
    EXPECT_EQ(outer->m_hWnd, child);
    EXPECT_EQ(outer->m_nFlags, 4321);
    EXPECT_EQ(static_cast<HPEN>(*pen), ::GetStockObject(BLACK_PEN));
}

TEST_F(TemporaryObjectsTest, OfAModalLoopAreGoneWhenThatIsIdle) {
    IdleDialog dialog(&frame);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.marked, 0);
}

} // namespace
