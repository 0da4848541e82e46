// The dialogs in which a property or a file is picked.

#include "GalleryTest.h"

#include "Documents.h"
#include "KelDbDatabase.h"
#include "OrvUiPickers.h"
#include "engine/DatabaseAccess.h"
#include "pickers/PickerIds.h"

using gallery::GalleryTest;
using ui::Script;

namespace {

class Pickers : public GalleryTest {
  protected:
    /// Opens a picker, looks at it, and cancels it.
    void pick(const std::string& name, const std::function<void()>& open) {
        Script script;
        script.then(pictureOfOurs(name)).press(VK_ESCAPE);
        showDialog(std::move(script), open);
    }
};

KelCmColor paletteColor(int index) {
    KelCmColor color;
    color.setColorIndex(static_cast<std::uint16_t>(index));
    return color;
}

/// The dark pixels one below the other in the middle of a part of the screen.
int inkInColumn(const RECT& part) {
    const HDC screen = GetDC(nullptr);
    int ink = 0;
    for (LONG y = part.top; y < part.bottom; ++y)
        ink += GetPixel(screen, (part.left + part.right) / 2, y) == GetSysColor(COLOR_WINDOWTEXT);
    ReleaseDC(nullptr, screen);
    return ink;
}

TEST_F(Pickers, thePaletteOfColours) {
    KelCmColor chosen;
    pick("select-color", [&] { keledSetColorDialogTrueColor(chosen, true, paletteColor(30), 7); });
}

TEST_F(Pickers, theTrueColours) {
    KelCmColor chosen, current;
    current.setRGB(70, 130, 180);
    pick("select-color-true", [&] { keledSetColorDialogTrueColor(chosen, true, current, 7); });
}

TEST_F(Pickers, theLinetypes) {
    wchar_t* name = nullptr;
    KelDbObjectId chosen;
    pick("select-linetype", [&] { keledLinetypeDialog(KelDbObjectId(), true, name, chosen); });
    kelutDelBuffer(name);
}

TEST_F(Pickers, theLineweights) {
    int chosen = 0;
    pick("select-lineweight", [&] { keledLineWeightDialog(35, true, chosen); });
}

TEST_F(Pickers, theBarOfALineweightIsAsThickAsTheLineOnThisDisplay) {
    int chosen = 0, thickness = 0;
    Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .then(settled())
        .look("the bar of 2.00 mm",
              [&](const ui::View& view) {
                  const int row = view.rowOf(IDC_PICKER_LIST, L"2.00 mm");
                  const auto cell = view.cellRect(IDC_PICKER_LIST, row, 1);
                  ASSERT_TRUE(cell);
                  thickness = inkInColumn(*cell);
              })
        .press(VK_ESCAPE);
    showDialog(std::move(script), [&] { keledLineWeightDialog(211, false, chosen); });
    EXPECT_NEAR(thickness, 2.0 / 25.4 * GetDpiForSystem(), 1);
}

TEST_F(Pickers, thePlotStyles) {
    wchar_t* chosen = nullptr;
    pick("select-plot-style", [&] { keledPlotstyleDialog(nullptr, true, chosen); });
    kelutDelBuffer(chosen);
}

TEST_F(Pickers, theFiles) {
    ResultBuffer* result = nullptr;
    Script script;
    script.waitUntil("the dialog", [](const ui::View& view) { return view.title() == L"Import layer state"; })
        .then(picture("file-dialog"))
        .press(VK_ESCAPE);
    showDialog(std::move(script), [&] {
        keledGetFileNavDialog(L"Import layer state", nullptr, L"zdr;zds;zdt;las", L"LayerStatesFileDialog", 0, &result);
    });
    kelutRelRb(result);
}

} // namespace
