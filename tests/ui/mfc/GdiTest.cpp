// GDI objects and device contexts: who owns them, that they are released, and what they draw.
#include "MfcTestIds.h"
#include "Program.h"

namespace {

class GdiTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        ASSERT_TRUE(context.CreateCompatibleDC(nullptr));
        CClientDC screen(nullptr);
        ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&screen, 40, 30));
        m_before = context.SelectObject(&bitmap);
    }
    void TearDown() override {
        context.SelectObject(m_before);
        MfcTest::TearDown();
    }
    CDC context;
    CBitmap bitmap;

  private:
    CBitmap* m_before = nullptr;
};

bool lives(HGDIOBJ handle) {
    return ::GetObjectType(handle) != 0;
}

TEST_F(GdiTest, ObjectsAreDeletedWithTheirObjects) {
    HGDIOBJ handles[5] = {};
    {
        CPen pen(PS_SOLID, 1, RGB(255, 0, 0));
        CBrush brush(RGB(0, 255, 0));
        CFont font;
        font.CreatePointFont(90, L"Arial");
        CBitmap picture;
        picture.CreateBitmap(8, 8, 1, 1, nullptr);
        CRgn region;
        region.CreateRectRgn(0, 0, 5, 5);
        const CGdiObject* const objects[] = {&pen, &brush, &font, &picture, &region};
        for (int i = 0; i < 5; ++i) {
            handles[i] = objects[i]->m_hObject;
            EXPECT_TRUE(lives(handles[i])) << i;
        }
    }
    for (const HGDIOBJ handle : handles)
        EXPECT_FALSE(lives(handle));
}

TEST_F(GdiTest, MoreThanTheSystemHasRoomForLeaveNoneBehind) {
    // There is room for 65536 at a time. Wine doesn't count them, so only running out would show there.
    const DWORD before = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    for (int i = 0; i < 66000; ++i) {
        CPen pen;
        CBrush brush;
        CFont font;
        ASSERT_TRUE(pen.CreatePen(PS_SOLID, 1, RGB(i & 255, 0, 0))) << i;
        ASSERT_TRUE(brush.CreateSolidBrush(RGB(0, i & 255, 0))) << i;
        LOGFONT description = {};
        description.lfHeight = -12;
        ASSERT_TRUE(font.CreateFontIndirect(&description)) << i;
    }
    EXPECT_EQ(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS), before);
}

TEST_F(GdiTest, DetachedLivesOn) {
    CPen pen(PS_SOLID, 1, 0);
    const HGDIOBJ handle = pen.Detach();
    EXPECT_EQ(pen.m_hObject, nullptr);
    EXPECT_EQ(pen.Detach(), nullptr);
    EXPECT_TRUE(lives(handle));
    CPen other;
    EXPECT_TRUE(other.Attach(handle));
    EXPECT_EQ(CGdiObject::FromHandle(handle), &other);
    EXPECT_TRUE(other.DeleteObject());
    EXPECT_FALSE(lives(handle));
    EXPECT_FALSE(other.DeleteObject());
}

TEST_F(GdiTest, TemporaryObjectsAreOfTheirHandlesKind) {
    EXPECT_TRUE(CGdiObject::FromHandle(::GetStockObject(WHITE_PEN))->IsKindOf(RUNTIME_CLASS(CPen)));
    EXPECT_TRUE(CGdiObject::FromHandle(::GetStockObject(WHITE_BRUSH))->IsKindOf(RUNTIME_CLASS(CBrush)));
    EXPECT_TRUE(CGdiObject::FromHandle(::GetStockObject(SYSTEM_FONT))->IsKindOf(RUNTIME_CLASS(CFont)));
    const HRGN region = ::CreateRectRgn(0, 0, 1, 1);
    EXPECT_TRUE(CGdiObject::FromHandle(region)->IsKindOf(RUNTIME_CLASS(CRgn)));
    ::DeleteObject(region);
    EXPECT_TRUE(CGdiObject::FromHandle(bitmap.m_hObject)->IsKindOf(RUNTIME_CLASS(CBitmap)));
}

TEST_F(GdiTest, AStockObjectSurvivesItsObject) {
    const HGDIOBJ white = ::GetStockObject(WHITE_BRUSH);
    {
        CBrush first;
        CBrush second;
        ASSERT_TRUE(first.CreateStockObject(WHITE_BRUSH));
        ASSERT_TRUE(second.CreateStockObject(WHITE_BRUSH));
    }
    EXPECT_TRUE(lives(white));
}

TEST_F(GdiTest, ConstructorsThrowWhenGdiRefuses) {
    CBitmap none;
    EXPECT_THROW(
        {
            try {
                CBrush brush(&none);
            } catch (CResourceException* exception) {
                exception->Delete();
                throw 1;
            }
        },
        int);
}

TEST_F(GdiTest, SelectionAnswersTheObjectBefore) {
    CPen red(PS_SOLID, 1, RGB(255, 0, 0));
    CPen blue(PS_SOLID, 1, RGB(0, 0, 255));
    CPen* const before = context.SelectObject(&red);
    EXPECT_EQ(static_cast<HPEN>(*before), ::GetStockObject(BLACK_PEN));
    EXPECT_EQ(context.SelectObject(&blue), &red);
    EXPECT_EQ(context.GetCurrentPen(), &blue);
    EXPECT_EQ(context.SelectStockObject(BLACK_PEN), &blue);
    EXPECT_EQ(context.GetCurrentBitmap(), &bitmap);
}

TEST_F(GdiTest, SavedStateComesBack) {
    CPen red(PS_SOLID, 1, RGB(255, 0, 0));
    const int saved = context.SaveDC();
    context.SelectObject(&red);
    EXPECT_EQ(context.SetTextColor(RGB(1, 2, 3)), RGB(0, 0, 0));
    EXPECT_TRUE(context.RestoreDC(saved));
    EXPECT_EQ(static_cast<HPEN>(*context.GetCurrentPen()), ::GetStockObject(BLACK_PEN));
    EXPECT_EQ(context.GetTextColor(), RGB(0, 0, 0));
}

TEST_F(GdiTest, DrawsInTheBitmapThatIsSelected) {
    context.FillSolidRect(CRect(0, 0, 40, 30), RGB(10, 20, 30));
    EXPECT_EQ(context.GetPixel(5, 5), RGB(10, 20, 30));
    EXPECT_EQ(context.GetBkColor(), RGB(10, 20, 30));
    context.FillSolidRect(1, 2, 3, 4, RGB(200, 0, 0));
    EXPECT_EQ(context.GetPixel(3, 5), RGB(200, 0, 0));
    EXPECT_EQ(context.GetPixel(4, 5), RGB(10, 20, 30));
    CPen pen(PS_SOLID, 1, RGB(0, 200, 0));
    CPen* const before = context.SelectObject(&pen);
    context.MoveTo(0, 20);
    EXPECT_TRUE(context.LineTo(10, 20));
    EXPECT_EQ(context.GetCurrentPosition(), CPoint(10, 20));
    EXPECT_EQ(context.MoveTo(0, 0), CPoint(10, 20));
    EXPECT_EQ(context.GetPixel(9, 20), RGB(0, 200, 0));
    EXPECT_EQ(context.GetPixel(10, 20), RGB(10, 20, 30));
    context.SelectObject(before);
}

TEST_F(GdiTest, AThreeDimensionalFrameHasTwoColors) {
    context.FillSolidRect(CRect(0, 0, 40, 30), RGB(255, 255, 255));
    context.Draw3dRect(CRect(2, 3, 12, 13), RGB(255, 0, 0), RGB(0, 0, 255));
    EXPECT_EQ(context.GetPixel(2, 3), RGB(255, 0, 0));
    EXPECT_EQ(context.GetPixel(6, 3), RGB(255, 0, 0));
    EXPECT_EQ(context.GetPixel(2, 8), RGB(255, 0, 0));
    EXPECT_EQ(context.GetPixel(11, 8), RGB(0, 0, 255));
    EXPECT_EQ(context.GetPixel(6, 12), RGB(0, 0, 255));
    EXPECT_EQ(context.GetPixel(11, 12), RGB(0, 0, 255));
    EXPECT_EQ(context.GetPixel(6, 6), RGB(255, 255, 255));
    EXPECT_EQ(context.GetPixel(12, 13), RGB(255, 255, 255));
}

TEST_F(GdiTest, OriginsAnswerTheFormerOne) {
    EXPECT_EQ(context.SetViewportOrg(3, 4), CPoint(0, 0));
    EXPECT_EQ(context.OffsetViewportOrg(1, 1), CPoint(3, 4));
    EXPECT_EQ(context.GetViewportOrg(), CPoint(4, 5));
    EXPECT_EQ(context.SetWindowOrg(CPoint(7, 8)), CPoint(0, 0));
    EXPECT_EQ(context.GetWindowOrg(), CPoint(7, 8));
    CPoint point(7, 8);
    context.LPtoDP(&point);
    EXPECT_EQ(point, CPoint(4, 5));
    EXPECT_EQ(context.SetBrushOrg(1, 2), CPoint(0, 0));
    EXPECT_EQ(context.SetBrushOrg(0, 0), CPoint(1, 2));
}

TEST_F(GdiTest, TextIsMeasuredAndDrawn) {
    const CSize one = context.GetTextExtent(L"M");
    const CSize two = context.GetTextExtent(L"MM", 2);
    EXPECT_GT(one.cx, 0);
    EXPECT_EQ(two.cx, 2 * one.cx);
    TEXTMETRIC metrics;
    ASSERT_TRUE(context.GetTextMetrics(&metrics));
    EXPECT_EQ(one.cy, metrics.tmHeight);
    CRect rect(0, 0, 0, 0);
    context.DrawText(CString(L"MM"), rect, DT_CALCRECT);
    EXPECT_EQ(rect.Width(), two.cx);
}

TEST_F(GdiTest, ClippingKeepsTheRestUntouched) {
    context.FillSolidRect(CRect(0, 0, 40, 30), RGB(255, 255, 255));
    CRgn region;
    ASSERT_TRUE(region.CreateRectRgn(0, 0, 10, 10));
    EXPECT_EQ(context.SelectClipRgn(&region), SIMPLEREGION);
    EXPECT_EQ(context.ExcludeClipRect(0, 0, 5, 10), SIMPLEREGION);
    context.FillSolidRect(CRect(0, 0, 40, 30), RGB(1, 1, 1));
    EXPECT_EQ(context.GetPixel(7, 5), RGB(1, 1, 1));
    context.SelectClipRgn(nullptr);
    EXPECT_EQ(context.GetPixel(2, 5), RGB(255, 255, 255));
    EXPECT_EQ(context.GetPixel(12, 5), RGB(255, 255, 255));
}

TEST_F(GdiTest, PointSizesAreInTenths) {
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(120, L"Arial"));
    LOGFONT description;
    ASSERT_TRUE(font.GetLogFont(&description));
    CClientDC screen(nullptr);
    EXPECT_EQ(description.lfHeight, -::MulDiv(12, screen.GetDeviceCaps(LOGPIXELSY), 72));
    EXPECT_STREQ(description.lfFaceName, L"Arial");
}

TEST_F(GdiTest, ContextsOfWindowsAreGivenBack) {
    Frame frame;
    ASSERT_TRUE(frame.Create());
    HDC client = nullptr;
    {
        CClientDC dc(&frame);
        client = dc.m_hDC;
        EXPECT_EQ(dc.GetWindow(), &frame);
        CWindowDC whole(&frame);
        EXPECT_EQ(::WindowFromDC(whole), frame.m_hWnd);
    }
    EXPECT_EQ(::WindowFromDC(client), nullptr);
}

TEST_F(GdiTest, MemoryContextsAreDeletedWithTheirObjects) {
    HDC handle = nullptr;
    {
        CDC memory;
        ASSERT_TRUE(memory.CreateCompatibleDC(&context));
        handle = memory.m_hDC;
        EXPECT_EQ(CDC::FromHandle(handle), &memory);
        EXPECT_EQ(memory.m_hAttribDC, handle);
    }
    EXPECT_FALSE(lives(handle));
}

TEST_F(GdiTest, PaintContextsValidateTheWindow) {
    struct Painted : Frame {
        CRect area;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message != WM_PAINT)
                return Frame::WindowProc(message, wParam, lParam);
            CPaintDC dc(this);
            area = dc.m_ps.rcPaint;
            return 0;
        }
    } window;
    ASSERT_TRUE(window.Create());
    runUntilIdle();
    window.InvalidateRect(CRect(1, 2, 30, 40));
    window.UpdateWindow();
    EXPECT_EQ(window.area, CRect(1, 2, 30, 40));
    EXPECT_FALSE(window.GetUpdateRect(nullptr));
}

} // namespace
