// What stays selected in the list while the user clicks.

#include "ManagerTest.h"

#include <memory>

using testing::ElementsAre;
using ui::Script;
using ui::View;

namespace {

class Selection : public ManagerTest {
  protected:
    /// Waits for longer than the platform waits after a click on a selected row before it would open the name.
    static Script waitOutSlowClick() {
        const auto since = std::make_shared<ULONGLONG>(0);
        return Script()
            .look("from now", [since](const View&) { *since = GetTickCount64(); })
            .waitUntil("the time of a slow click has passed",
                       [since](const View&) { return GetTickCount64() - *since > 5 * GetDoubleClickTime(); });
    }
};

} // namespace

TEST_F(Selection, RowsAddedSoonAfterAClickOnASelectedOneStaySelected) {
    open(house());
    for (const unsigned held : {ui::holdShift, ui::holdControl})
        manage(
            Script()
                .clickCell(IDC_LSTATE_RES_LIST, 0, 0)
                .clickCell(IDC_LSTATE_RES_LIST, 0, 0)
                .clickCell(IDC_LSTATE_RES_LIST, 1, 0, held)
                .then(waitOutSlowClick())
                .look("both rows",
                      [](const View& view) { EXPECT_THAT(view.selectedRows(IDC_LSTATE_RES_LIST), ElementsAre(0, 1)); })
                .click(IDC_LSTATE_RES_CLOSE));
}
