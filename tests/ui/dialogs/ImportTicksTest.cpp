// The ticks of the import selection: what a box does to the selected rows, against a model, and that ticks stay with
// their states when the list is sorted.

#include "ImportDialogTest.h"

#include <algorithm>
#include <chrono>
#include <random>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

/// The rule, on plain values: a box of a selected row ticks or clears all of them, another one its own row alone.
struct Ticks {
    std::vector<bool> selected;
    std::vector<bool> ticked;

    void set(std::size_t row, bool on) {
        if (ticked[row] == on)
            return;
        ticked[row] = on;
        for (std::size_t other = 0; selected[row] && other < ticked.size(); ++other)
            if (selected[other])
                ticked[other] = on;
    }
    std::vector<int> rows() const { return indexesOf(ticked); }
    std::vector<int> selectedRows() const { return indexesOf(selected); }

  private:
    static std::vector<int> indexesOf(const std::vector<bool>& bits) {
        std::vector<int> rows;
        for (std::size_t row = 0; row < bits.size(); ++row)
            if (bits[row])
                rows.push_back(static_cast<int>(row));
        return rows;
    }
};

class ImportTicks : public ImportDialogTest {
  protected:
    void SetUp() override {
        ImportDialogTest::SetUp();
        open(withStates({}));
    }
};

TEST_F(ImportTicks, ClicksOnARowAskTheHostForNothing) {
    Script script = look("the calls count from here", [](const View&) { instruments::clearTrace(); });
    for (int click = 0; click < 3; ++click) // by the second one the row is selected, and the focus is on it
        for (int column = 1; column < 3; ++column)
            script.clickCell(kList, 1, column);
    script.look("no calls", [](const View& view) {
        EXPECT_THAT(view.selectedRows(kList), ElementsAre(1));
        EXPECT_THAT(instruments::trace(), IsEmpty());
    });
    choose(withStates(numbered(2)), script.press(VK_ESCAPE));
}

TEST_F(ImportTicks, OneBoxOfThreeSelectedRowsTicksAndClearsAllThree) {
    Script script = look("three rows", [](const View& view) { select(view, {0, 2, 3}, 3); });
    script.then(clickBox(2))
        .then(expectTicked({1, 4}))
        .then(clickBox(3))
        .then(expectTicked({0, 1, 2, 3, 4}))
        .look("the selection stays",
              [](const View& view) { EXPECT_THAT(view.selectedRows(kList), ElementsAre(0, 2, 3)); });
    choose(withStates(numbered(5)), script.press(VK_ESCAPE));
}

TEST_F(ImportTicks, TheBoxOfARowThatIsNotSelectedChangesItAlone) {
    Script script = look("two rows", [](const View& view) { select(view, {0, 1}, 1); });
    script.then(clickBox(3)).then(expectTicked({0, 1, 2, 4})).then(clickBox(3)).then(expectTicked({0, 1, 2, 3, 4}));
    choose(withStates(numbered(5)), script.press(VK_ESCAPE));
}

TEST_F(ImportTicks, AMixedSelectionTakesTheTickOfTheBoxThatIsClicked) {
    Script script = look("a mixed selection", [](const View& view) {
        setTick(view, 1, false);
        select(view, {0, 1, 2}, 0);
    });
    script.then(expectTicked({0, 2, 3}))
        .then(clickBox(1))
        .then(expectTicked({0, 1, 2, 3}))
        .then(clickBox(1))
        .then(expectTicked({3}));
    choose(withStates(numbered(4)), script.press(VK_ESCAPE));
}

TEST_F(ImportTicks, SelectingRowsTicksNothing) {
    Script script = look("nothing ticked", [](const View& view) {
        for (int row = 0; row < view.rowCount(kList); ++row)
            setTick(view, row, row == 2);
    });
    script.clickCell(kList, 0, 0)
        .clickCell(kList, 3, 1, ui::holdShift)
        .clickCell(kList, 1, 2, ui::holdControl)
        .press('A', ui::holdControl)
        .then(expectTicked({2}));
    choose(withStates(numbered(5)), script.press(VK_ESCAPE));
}

TEST_F(ImportTicks, FollowTheRuleForAnySelection) {
    constexpr std::size_t kRows = 12;
    const Script script = look("random selections and boxes", [](const View& view) {
        std::mt19937 random(20261122);
        const auto below = [&random](std::size_t end) { return random() % end; };
        Ticks model{std::vector<bool>(kRows), std::vector<bool>(kRows, true)};
        for (int step = 0; step < 400 && !HasFailure(); ++step) {
            if (below(3) == 0) {
                for (std::size_t row = 0; row < kRows; ++row)
                    model.selected[row] = below(3) == 0;
                select(view, model.selectedRows(), static_cast<int>(below(kRows)));
            }
            const std::size_t row = below(kRows);
            const bool on = below(4) == 0 ? model.ticked[row] : !model.ticked[row];
            model.set(row, on);
            setTick(view, static_cast<int>(row), on);
            EXPECT_EQ(tickedRows(view), model.rows()) << "step " << step << ", row " << row;
            EXPECT_EQ(view.selectedRows(kList), model.selectedRows()) << "step " << step;
        }
    });
    choose(withStates(numbered(kRows)), Script(script).press(VK_ESCAPE));
}

TEST_F(ImportTicks, StayWithTheirStatesWhenTheListIsSorted) {
    open(withStates({L"delta", L"beta"}));
    Script script;
    script.then(expectTicked({1, 3}))
        .look("a selection of rows with and without ticks",
              [](const View& view) {
                  select(view, {0, 1}, 1);
              })
        .clickHeading(kList, 0)
        .look("upwards",
              [](const View& view) {
                  EXPECT_THAT(view.column(kList, 0), ElementsAre(L"alpha", L"beta", L"delta", L"gamma"));
                  EXPECT_THAT(tickedNames(view), ElementsAre(L"alpha", L"gamma"));
                  EXPECT_THAT(view.selectedRows(kList), ElementsAre(0, 2));
              })
        .clickHeading(kList, 0)
        .look("downwards", [](const View& view) { EXPECT_THAT(tickedNames(view), ElementsAre(L"gamma", L"alpha")); })
        .click(IDOK);
    EXPECT_EQ(choose(withStates({L"delta", L"alpha", L"beta", L"gamma"}), script), IDOK);
    EXPECT_THAT(chosen, ElementsAre(L"gamma", L"alpha"));
}

TEST_F(ImportTicks, OfThousandSelectedRowsChangeAtOnce) {
    constexpr int kRows = 1000;
    Script script;
    script.press('A', ui::holdControl).look("one box", [](const View& view) {
        ASSERT_EQ(view.selectedRows(kList).size(), static_cast<std::size_t>(kRows));
        const auto start = std::chrono::steady_clock::now();
        setTick(view, kRows / 2, false);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
        EXPECT_THAT(tickedRows(view), IsEmpty());
    });
    choose(withStates(numbered(kRows)), script.press(VK_ESCAPE));
}

} // namespace
