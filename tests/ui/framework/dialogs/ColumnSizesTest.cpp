// The widths of columns, from one run to the next.

#include "DialogFixture.h"

#include <numeric>

using testing::ElementsAre;

namespace {

class ColumnSizes : public DialogFixture {
  protected:
    const std::wstring group = kept(L"\\Columns 1104");

    /// Opens a dialog with a list of three columns of 50, lets the framework apply what it kept, and answers the
    /// widths. Then, unless `widths` is empty, gives the columns those widths and has them kept.
    std::vector<int> open(const std::vector<int>& widths = {}, int columns = 3) {
        TestDialog dialog{IDD_FIXED};
        CListCtrl list;
        std::vector<int> found;
        dialog.setUp = [&] {
            list.Attach(dialog.control(IDC_TEST_LIST));
            for (int column = 0; column < columns; ++column)
                list.InsertColumn(column, L"Column", LVCFMT_LEFT, 50, column);
            dialog.GetColumnSizes(&list);
            for (int column = 0; column < columns; ++column)
                found.push_back(list.GetColumnWidth(column));
            for (std::size_t column = 0; column < widths.size(); ++column)
                list.SetColumnWidth(static_cast<int>(column), widths[column]);
            if (!widths.empty())
                dialog.SaveColumnSizes(&list);
            list.Detach();
        };
        dialog.run();
        return found;
    }
};

TEST_F(ColumnSizes, withNothingSavedTheWidthsStand) {
    EXPECT_THAT(open(), ElementsAre(50, 50, 50));
}

TEST_F(ColumnSizes, savedWidthsComeBack) {
    open({30, 80, 0});
    EXPECT_THAT(open(), ElementsAre(30, 80, 0));
}

TEST_F(ColumnSizes, widthsOfAListWithAnotherNumberOfColumnsAreNotApplied) {
    open({30, 80, 20});
    EXPECT_THAT(open({}, 2), ElementsAre(50, 50));
    EXPECT_THAT(open({}, 4), ElementsAre(50, 50, 50, 50));
}

TEST_F(ColumnSizes, aListThatLostColumnsLeavesNoneBehind) {
    open({30, 80, 20});
    open({40, 60}, 2);
    EXPECT_THAT(open({}, 2), ElementsAre(40, 60));
}

TEST_F(ColumnSizes, valuesOfAnotherTypeOrBeyondReasonAreNotApplied) {
    open({30, 80, 20});
    writeValue(group, L"1", REG_SZ, L"80", 6);
    EXPECT_THAT(open(), ElementsAre(50, 50, 50));
    writeNumber(group, L"1", 0xFFFFFFFF);
    EXPECT_THAT(open(), ElementsAre(50, 50, 50));
}

} // namespace
