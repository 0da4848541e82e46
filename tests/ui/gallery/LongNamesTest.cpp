// Dialogs that show the name of a layer state, with the longest names that there are.

#include "GalleryTest.h"

#include "KelDbDatabase.h"
#include "resources/resource.h"

using gallery::GalleryTest;
using ui::Script;

namespace {

constexpr std::size_t longestName = 255;

class LongNames : public GalleryTest {
  protected:
    void save(const std::wstring& name) {
        EXPECT_EQ(window().session().database().getLayerStateManager()->saveLayerState(name.c_str(), 1), Vorn::eOk);
    }
};

TEST_F(LongNames, inTheConfirmationOfADelete) {
    const std::wstring word(longestName, L'W');
    std::wstring words;
    while (words.size() < longestName)
        words += L"Ground floor, ";
    words.resize(longestName);
    save(word);
    save(words);
    Script script;
    script
        .click(IDC_LSTATE_RES_HIDEXREFS) // the drawing's own states stand last then
        .clickCell(IDC_LSTATE_RES_LIST, 0, 0)
        .press(VK_END)
        .press(VK_UP, ui::holdShift)
        .click(IDC_LSTATE_RES_DELETE)
        .waitForControl(IDC_LSTATE_DEL_ALL)
        .then(pictureOfOurs("delete-states-long-word"))
        .click(IDC_LSTATE_DEL_THIS)
        .waitForControl(IDC_LSTATE_DEL_ALL)
        .then(pictureOfOurs("delete-states-long-name"))
        .press(VK_ESCAPE)
        .click(IDC_LSTATE_RES_CLOSE);
    showDialog(std::move(script), [this] { run(L"LAYERSTATE"); });
}

} // namespace
