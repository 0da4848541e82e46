// How the dialog opens, and what it leaves behind when it is cancelled.

#include "EditTest.h"

namespace {

using testing::ElementsAre;
using ui::Script;
using ui::View;

class EditOpening : public EditTest {};

TEST_F(EditOpening, ShowsTheStatesLayersLastFirst) {
    open(house());
    edit(Script()
             .look("the rows",
                   [](const View& view) {
                       EXPECT_THAT(rows(view), ElementsAre(L"Pipes", L"Doors", L"Walls", L"Base"));
                       EXPECT_EQ(view.title(), L"Edit Layer State: Ground floor");
                   })
             .press(VK_ESCAPE));
}

} // namespace
