// The edit dialog by real input: it opens from the manager, and OK writes the state.

#include "ManagerTest.h"

namespace {

using testing::ElementsAre;
using ui::Script;
using ui::View;

class Edit : public ManagerTest {};

TEST_F(Edit, ShowsTheStatesLayersLastFirst) {
    open(house());
    manage(Script()
               .click(IDC_LSTATE_RES_EDIT)
               .waitForControl(IDC_LAYER_GRID)
               .look("the rows",
                     [](const View& view) {
                         std::vector<std::wstring> names;
                         for (int row = 0; row < view.rowCount(IDC_LAYER_GRID); ++row)
                             names.push_back(view.cell(IDC_LAYER_GRID, row, 0));
                         EXPECT_THAT(names, ElementsAre(L"Pipes", L"Doors", L"Walls", L"Base"));
                     })
               .press(VK_ESCAPE)
               .press(VK_ESCAPE));
}

} // namespace
