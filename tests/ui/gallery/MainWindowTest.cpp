// The main window, and the layer states manager over it.

#include "GalleryTest.h"

#include "Documents.h"
#include "KelDbDatabase.h"
#include "SavedRecentFiles.h"
#include "WorkbenchIds.h"
#include "engine/DatabaseAccess.h"
#include "resources/resource.h"

#include <commctrl.h>

#include <cmath>

using gallery::GalleryTest;
using ui::Script;

namespace {

class MainWindow : public GalleryTest {
  protected:
    /// A step that looks at the window's size; in pixels of 96 an inch.
    static Script sizeIs(int width, int height) {
        Script script;
        script.look("its size", [width, height](const ui::View& view) {
            const int dpi = static_cast<int>(GetDpiForSystem());
            const RECT rect = view.rect();
            EXPECT_EQ(rect.right - rect.left, MulDiv(width, dpi, 96));
            EXPECT_EQ(rect.bottom - rect.top, MulDiv(height, dpi, 96));
        });
        return script;
    }
};

class Manager : public GalleryTest {};

/// The smallest rectangle of a control's pixels that are much darker than its corner.
SIZE inkOf(const ui::View& view, int control) {
    const RECT rect = view.rect(control);
    const std::vector<COLORREF> pixels = view.pixels(control);
    const LONG width = rect.right - rect.left;
    RECT ink{width, rect.bottom - rect.top, -1, -1};
    for (std::size_t i = 0; i < pixels.size(); ++i)
        if (GetGValue(pixels[i]) + 60 < GetGValue(pixels.front())) {
            const LONG x = static_cast<LONG>(i) % width, y = static_cast<LONG>(i) / width;
            ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x), std::max(ink.bottom, y)};
        }
    return {ink.right - ink.left + 1, ink.bottom - ink.top + 1};
}

/// Where a tip shows; empty when none does.
RECT shownTip() {
    RECT rect{};
    for (HWND tip = nullptr; (tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr));)
        if (IsWindowVisible(tip))
            GetWindowRect(tip, &rect);
    return rect;
}

/// What is drawn in a part of the status line: the smallest rectangle of the pixels that differ from its background, in
/// pixels of the line. The lines around the field aren't looked at.
RECT inkInStatusLine(const ui::View& view, const workbench::StatusSpan& span) {
    const RECT rect = view.rect(IDC_STATUS_LINE);
    const LONG width = rect.right - rect.left;
    const LONG height = rect.bottom - rect.top;
    const std::vector<COLORREF> pixels = view.pixels(IDC_STATUS_LINE);
    const auto at = [&](LONG x, LONG y) { return pixels[static_cast<std::size_t>(y * width + x)]; };
    RECT ink{width, height, -1, -1};
    for (LONG y = 1; y < height; ++y)
        for (LONG x = span.left + 1; x < span.right; ++x)
            if (at(x, y) != at(span.left + 2, 2))
                ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x), std::max(ink.bottom, y)};
    return ink;
}

/// One of the parts between the bars of the status line's text.
std::wstring partOf(std::wstring text, int index) {
    const std::wstring bar = L" | ";
    for (; index > 0; --index)
        text.erase(0, text.find(bar) + bar.size());
    return text.substr(0, text.find(bar));
}

/// How wide the text is when it is drawn in the font of the main window, in pixels from the first to the last that is
/// drawn. What the system measures may be more: it draws some letters from bitmaps that are narrower.
int inkWidthOf(const std::wstring& text) {
    workbench::WindowLook look;
    look.update(static_cast<int>(GetDpiForSystem()));
    CClientDC screen(nullptr);
    CDC dc;
    dc.CreateCompatibleDC(&screen);
    CFont* const formerFont = dc.SelectObject(&look.font());
    const CSize size = dc.GetTextExtent(text.c_str(), static_cast<int>(text.size()));
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(&screen, 2 * size.cx, size.cy);
    CBitmap* const formerBitmap = dc.SelectObject(&bitmap);
    dc.FillSolidRect(0, 0, 2 * size.cx, size.cy, RGB(255, 255, 255));
    dc.SetTextColor(RGB(0, 0, 0));
    CRect rect(size.cx / 2, 0, 2 * size.cx, size.cy);
    dc.DrawText(text.c_str(), -1, rect, DT_SINGLELINE | DT_NOPREFIX);
    int left = 2 * size.cx;
    int right = 0;
    for (int y = 0; y < size.cy; ++y)
        for (int x = 0; x < 2 * size.cx; ++x)
            if (GetPixel(dc.m_hDC, x, y) != RGB(255, 255, 255)) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
    dc.SelectObject(formerBitmap);
    dc.SelectObject(formerFont);
    return right - left;
}

workbench::StatusLine& statusLine(const workbench::MainWindow& window) {
    return *static_cast<workbench::StatusLine*>(CWnd::FromHandlePermanent(GetDlgItem(window.m_hWnd, IDC_STATUS_LINE)));
}

int scaled(int pixels) {
    return MulDiv(pixels, static_cast<int>(GetDpiForSystem()), 96);
}

} // namespace

TEST_F(MainWindow, showsTheModel) {
    run(L"LAYER LIST P*");
    useWorkbench(picture("workbench"));
}

TEST_F(MainWindow, showsALayoutWithAViewportMadeCurrent) {
    run(L"LAYOUT \"A1 sheet\"");
    run(L"VPORT 2");
    run(L"VPLAYER FREEZE L-*,A-FURN*");
    run(L"VPLAYER COLOR red A-WALL*");
    useWorkbench(picture("workbench-layout"));
}

TEST_F(MainWindow, showsWhereThePointerIsAndTheNumberOfTheViewportBelowIt) {
    KelDbDatabase& database = runtime::currentDocument()->data();
    zdr::Drawing drawing = engine::drawingOf(database);
    drawing.references.at(0).drawing = nullptr;
    engine::replaceDrawing(database, std::move(drawing));
    run(L"LAYOUT \"A1 sheet\"");
    run(L"VPORT 2");
    run(L"LAYER SET P-SANR-PIPE");
    const auto middleOfTheFirst = [this](const ui::View& view) {
        const zdr::Viewport& first = window().session().drawing().layouts[0].viewports[0];
        auto* drawing = static_cast<workbench::DrawingView*>(CWnd::FromHandlePermanent(view.control(IDC_DRAWING_VIEW)));
        const zdr::Point pixel =
            drawing->view().toScreen({first.corner.x + first.width / 2, first.corner.y + first.height / 2});
        const RECT rect = view.rect(IDC_DRAWING_VIEW);
        return POINT{rect.left + static_cast<LONG>(pixel.x), rect.top + static_cast<LONG>(pixel.y)};
    };
    Script script;
    script.pointAt([this, middleOfTheFirst] { return middleOfTheFirst(ui::View(window().m_hWnd)); })
        .waitUntil("the status line tells the place",
                   [](const ui::View& view) {
                       return view.text(IDC_STATUS_LINE).find(L" mm | 1 reference, 1 missing | ") != std::wstring::npos;
                   })
        .then(still())
        .look("the fields",
              [this](const ui::View& view) {
                  const workbench::StatusSpans spans = statusLine(window()).spans();
                  const int padding = scaled(8);
                  const std::wstring text = view.text(IDC_STATUS_LINE);
                  for (const bool ofPlace : {true, false}) {
                      const workbench::StatusSpan& span = ofPlace ? spans.place : spans.references;
                      const RECT ink = inkInStatusLine(view, span);
                      const RECT line = view.rect(IDC_STATUS_LINE);
                      EXPECT_NEAR(ink.right - ink.left, inkWidthOf(partOf(text, ofPlace ? 2 : 3)), 1)
                          << "all of the text is there";
                      EXPECT_GE(ink.left, span.left + padding - 1) << "nothing is cut at the left";
                      EXPECT_LE(ink.right, span.right - padding + 1) << "nor at the right";
                      EXPECT_GE(ink.top, 2);
                      EXPECT_LE(ink.bottom, line.bottom - line.top - 2);
                  }
                  EXPECT_GE(inkInStatusLine(view, spans.place).right, spans.place.right - padding - scaled(3))
                      << "the place stands at the right end of its field";
                  EXPECT_LE(inkInStatusLine(view, spans.references).left, spans.references.left + padding + scaled(3));
                  EXPECT_EQ(spans.references.right, view.rect(IDC_STATUS_LINE).right - view.rect(IDC_STATUS_LINE).left);
              })
        .look("take the picture workbench-pointer",
              [](const ui::View& view) { savePicture("workbench-pointer", view.rect()); });
    useWorkbench(std::move(script));
}

TEST_F(MainWindow, showsTabsThatDontFit) {
    KelDbDatabase& database = runtime::currentDocument()->data();
    zdr::Drawing drawing = engine::drawingOf(database);
    for (int number = 2; number <= 40; ++number) {
        zdr::Layout sheet;
        sheet.paperWidth = 420;
        sheet.paperHeight = 297;
        sheet.name = (number % 5 ? L"Sheet " : L"Sheet with quite a long name, number ") + std::to_wstring(number);
        drawing.layouts.push_back(std::move(sheet));
    }
    engine::replaceDrawing(database, std::move(drawing));
    run(L"LAYOUT \"Sheet 21\"");
    useWorkbench(picture("workbench-tabs"));
}

TEST_F(MainWindow, opensItsMenus) {
    Script script;
    script.press(VK_F10).press(VK_DOWN).then(picture("workbench-menu")).press(VK_ESCAPE).press(VK_ESCAPE);
    useWorkbench(std::move(script));
}

TEST_F(MainWindow, listsRecentFilesWithPathsOfAnyLength) {
    workbench::RecentFiles files;
    for (int number = 9; number > 0; --number)
        files.add(L"C:\\Users\\Public\\Documents\\" + std::wstring(static_cast<std::size_t>(number * number), L'p') +
                  L"\\R&D, floor " + std::to_wstring(number) + L".zdr");
    workbench::saveRecentFiles(files);
    Script script;
    script.pressAlt(L'f').then(picture("workbench-recent-files")).press(VK_ESCAPE).press(VK_ESCAPE);
    useWorkbench(std::move(script));
}

TEST_F(MainWindow, tellsAboutItself) {
    Script script;
    script.waitUntil("the box", [](const ui::View& view) { return view.title() == L"About Kel Workbench"; })
        .then(picture("about"))
        .look("it is all on the screen",
              [](const ui::View& view) {
                  const RECT box = view.rect();
                  EXPECT_GE(box.top, 0);
                  EXPECT_LE(box.right, GetSystemMetrics(SM_CXSCREEN));
                  EXPECT_LE(box.bottom, GetSystemMetrics(SM_CYSCREEN));
              })
        .press(VK_ESCAPE);
    showDialog(std::move(script), [this] { run(L"ABOUT"); });
}

TEST_F(MainWindow, showsARubberBandOfOnePixelOfTheScaling) {
    const auto pointOfView = [](double right, double down) {
        return [right, down](const ui::View& view) {
            const RECT rect = view.rect(IDC_DRAWING_VIEW);
            return std::optional(POINT{rect.left + std::lround(right * (rect.right - rect.left)),
                                       rect.top + std::lround(down * (rect.bottom - rect.top))});
        };
    };
    run(L"ZOOM WINDOW");
    Script script;
    script.clickPoint("one corner", pointOfView(0.25, 0.25))
        .step("point at the opposite one",
              [pointOfView](const ui::View& view) -> ui::Obstacle {
                  if (!ui::pointerRestsAt(*pointOfView(0.75, 0.75)(view)))
                      return "the pointer is under way";
                  return std::nullopt;
              })
        .waitUntil("the upper edge, as high as a pixel of 96 an inch",
                   [](const ui::View& view) {
                       const std::vector<COLORREF> pixels = view.pixels(IDC_DRAWING_VIEW);
                       const RECT rect = view.rect(IDC_DRAWING_VIEW);
                       const std::size_t width = static_cast<std::size_t>(rect.right - rect.left);
                       const std::size_t half = pixels.size() / width / 2 * width;
                       int high = 0;
                       for (std::size_t at = width / 2; at < half; at += width)
                           high += pixels[at] == workbench::colors::kAccent ? 1 : 0;
                       return high == MulDiv(1, static_cast<int>(GetDpiForSystem()), 96);
                   })
        .look("the picture", [](const ui::View& view) { savePicture("workbench-zoom-window", view.rect()); })
        .press(VK_ESCAPE);
    useWorkbench(std::move(script));
}

TEST_F(MainWindow, asksBeforeChangesAreLost) {
    run(L"LAYER OFF L-*");
    Script script;
    script.press(VK_F4, ui::holdAlt).waitForControl(IDNO).then(picture("unsaved-changes")).click(IDNO);
    ui::perform(std::move(script), [this] {
        window().showAtSavedPlace(SW_SHOWNORMAL);
        AfxGetApp()->Run();
    });
}

TEST_F(MainWindow, isAsLargeAsTheScalingAsksFor) {
    useWorkbench(sizeIs(1100, 760));
}

TEST_F(MainWindow, closedOnAnotherScalingItOpensAsLargeForTheEye) {
    // As the window keeps it: left, top, right, bottom, whether it filled the screen, dots an inch.
    const DWORD kept[] = {10, 10, 10 + 1600, 10 + 1200, 0, 192};
    RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\KelWorkbench\\Window", L"Placement", REG_BINARY, kept, sizeof kept);
    useWorkbench(sizeIs(800, 600));
    DWORD again[6] = {}, size = sizeof again;
    RegGetValueW(HKEY_CURRENT_USER, L"Software\\KelWorkbench\\Window", L"Placement", RRF_RT_REG_BINARY, nullptr, again,
                 &size);
    EXPECT_EQ(again[5], GetDpiForSystem()) << "what it keeps then is of this display";
}

TEST_F(Manager, showsTheStatesAndTheProperties) {
    Script script;
    script.waitForControl(IDC_LSTATE_RES_LIST)
        .clickCell(IDC_LSTATE_RES_LIST, 1, 0)
        .then(pictureOfOurs("manager"))
        .then(pictureOfAll("workbench-manager"))
        .hover(IDC_LSTATE_RES_NEW)
        .waitUntil("a tip", [](const ui::View&) { return shownTip().right > 0; })
        .look("the tip's picture",
              [](const ui::View& view) {
                  RECT both{};
                  const RECT dialog = view.rect(), tip = shownTip();
                  UnionRect(&both, &dialog, &tip);
                  savePicture("manager-tip", both);
              })
        .click(IDC_LSTATE_RES_EXPAND)
        .then(pictureOfOurs("manager-other-panel"))
        .click(IDC_LSTATE_RES_CLOSE);
    showDialog(std::move(script), [this] { run(L"LAYERSTATE"); });
}

TEST_F(Manager, theChevronIsDrawnAtTheDisplaysScaling) {
    Script script;
    script.waitForControl(IDC_LSTATE_RES_EXPAND)
        .then(settled())
        .look("its picture",
              [](const ui::View& view) {
                  const int dpi = static_cast<int>(GetDpiForSystem());
                  const SIZE ink = inkOf(view, IDC_LSTATE_RES_EXPAND);
                  EXPECT_NEAR(ink.cx, MulDiv(12, dpi, 96), 1);
                  EXPECT_NEAR(ink.cy, MulDiv(12, dpi, 96), 1);
              })
        .click(IDC_LSTATE_RES_CLOSE);
    showDialog(std::move(script), [this] { run(L"LAYERSTATE"); });
}
