// The main window, and the layer states manager over it.

#include "GalleryTest.h"

#include "Documents.h"
#include "KelDbDatabase.h"
#include "WorkbenchIds.h"
#include "engine/DatabaseAccess.h"
#include "resources/resource.h"

#include <commctrl.h>

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
