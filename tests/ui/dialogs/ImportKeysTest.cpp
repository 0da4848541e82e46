// The keys of the import selection, each with each selection, against what a few lines of the rule say.

#include "ImportDialogTest.h"

#include <algorithm>
#include <set>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

/// Which rows are selected, and which has the focus frame; -1 for none.
struct Selection {
    std::set<int> rows;
    int focused = -1;

    bool operator==(const Selection&) const = default;
};

void PrintTo(const Selection& selection, std::ostream* out) {
    *out << "rows";
    for (const int row : selection.rows)
        *out << ' ' << row;
    *out << ", focus " << selection.focused;
}

struct Key {
    const char* name;
    WORD key;
    unsigned held;
};

constexpr Key kKeys[] = {
    {"Ctrl+Home", VK_HOME, ui::holdControl},
    {"Shift+Home", VK_HOME, ui::holdShift},
    {"Ctrl+End", VK_END, ui::holdControl},
    {"Shift+End", VK_END, ui::holdShift},
    {"Ctrl+A", 'A', ui::holdControl},
    {"Ctrl+Shift+Home", VK_HOME, ui::holdControl | ui::holdShift},
    {"Ctrl+Shift+End", VK_END, ui::holdControl | ui::holdShift},
    {"Ctrl+Shift+A", 'A', ui::holdControl | ui::holdShift},
};

/// What the key makes of a selection in a list of so many rows. Rows are given the focus one after the other, and only
/// the last keeps it.
Selection after(const Key& key, int rows, Selection selection) {
    if (key.held & ui::holdControl) {
        selection = {};
        if (rows == 0)
            return selection;
        if (key.key == 'A') {
            for (int row = 0; row < rows; ++row)
                selection.rows.insert(row);
            selection.focused = rows - 1;
        } else {
            selection.focused = key.key == VK_HOME ? 0 : rows - 1;
            selection.rows = {selection.focused};
        }
        return selection;
    }
    if (selection.focused < 0)
        return selection;
    const int end = key.key == VK_HOME ? 0 : rows - 1;
    for (int row = std::min(selection.focused, end); row <= std::max(selection.focused, end); ++row)
        selection.rows.insert(row);
    selection.focused = end;
    return selection;
}

class ImportKeys : public ImportDialogTest {
  protected:
    static Selection selectionOf(const View& view) {
        const std::vector<int> rows = view.selectedRows(kList);
        return {{rows.begin(), rows.end()}, view.focusedRow(kList)};
    }
    static void set(const View& view, const Selection& selection) {
        select(view, {selection.rows.begin(), selection.rows.end()}, selection.focused);
    }
    /// Presses the key with each of the selections, with the focus in the list or on OK.
    static Script pressWithEach(const Key& key, int rows, const std::vector<Selection>& selections) {
        Script script;
        for (const int focus : {kList, static_cast<int>(IDOK)})
            for (const Selection& before : selections) {
                script
                    .look("a selection",
                          [=](const View& view) {
                              SetFocus(view.control(focus));
                              set(view, before);
                              ASSERT_EQ(selectionOf(view), before);
                          })
                    .press(key.key, key.held)
                    .look("what the key made of it", [=](const View& view) {
                        SCOPED_TRACE(key.name + std::string(", ") + testing::PrintToString(before));
                        EXPECT_EQ(selectionOf(view), after(key, rows, before));
                        const bool takesFocus = (key.held & ui::holdControl) != 0;
                        EXPECT_EQ(view.focusedControl(), takesFocus ? kList : focus);
                    });
            }
        return script;
    }
};

TEST_F(ImportKeys, SelectRowsAndNothingElse) {
    open(withStates({}));
    const std::vector<Selection> selections = {{{}, -1},    {{}, 2},     {{2}, 2},     {{0}, 0}, {{4}, 4},
                                               {{1, 3}, 3}, {{0, 4}, 1}, {{3, 4}, -1}, {{1}, 2}, {{0, 1, 2, 3, 4}, 3}};
    for (const Key& key : kKeys) {
        Script script = pressWithEach(key, 5, selections);
        choose(withStates(numbered(5)), script.then(expectTicked({0, 1, 2, 3, 4})).press(VK_ESCAPE));
    }
}

TEST_F(ImportKeys, CountFromTheFirstRowAtTheOpening) {
    Script script;
    script.press(VK_END, ui::holdShift).look("all rows", [](const View& view) {
        EXPECT_EQ(selectionOf(view), (Selection{{0, 1, 2}, 2}));
    });
    EXPECT_EQ(choose(withStates(numbered(3)), script.press(VK_ESCAPE)), IDCANCEL);
}

TEST_F(ImportKeys, InAListOfOneRow) {
    for (const Key& key : kKeys) {
        Script script = pressWithEach(key, 1, {{{}, -1}, {{}, 0}, {{0}, 0}, {{0}, -1}});
        choose(withStates({L"One"}), script.press(VK_ESCAPE));
    }
}

TEST_F(ImportKeys, InAnEmptyList) {
    for (const Key& key : kKeys) {
        Script script = pressWithEach(key, 0, {{}});
        choose(withStates({}), script.press(VK_ESCAPE));
    }
}

TEST_F(ImportKeys, TheRowAtTheEndIsScrolledIntoView) {
    const auto inView = [](int row) { return [row](const View& view) { return view.isRowInView(kList, row); }; };
    constexpr int kLast = 59;
    Script script;
    script.waitUntil("the first row", inView(0))
        .press(VK_END, ui::holdControl)
        .waitUntil("the last row", inView(kLast))
        .press(VK_HOME, ui::holdShift)
        .waitUntil("the first row", inView(0))
        .press(VK_END, ui::holdShift)
        .waitUntil("the last row", inView(kLast))
        .press(VK_HOME, ui::holdControl)
        .waitUntil("the first row", inView(0))
        .press(VK_ESCAPE);
    EXPECT_EQ(choose(withStates(numbered(kLast + 1)), script), IDCANCEL);
}

TEST_F(ImportKeys, WithNothingHeldAreTheLists) {
    Script script;
    script
        .look("the focus in the list",
              [](const View& view) {
                  SetFocus(view.control(kList));
                  select(view, {1, 2}, 2);
              })
        .press(VK_END)
        .look("the last row alone",
              [](const View& view) {
                  EXPECT_EQ(selectionOf(view), (Selection{{4}, 4}));
              })
        .press(VK_HOME)
        .look("the first row alone",
              [](const View& view) {
                  EXPECT_EQ(selectionOf(view), (Selection{{0}, 0}));
              })
        .press(VK_DOWN, ui::holdShift)
        .look("two rows",
              [](const View& view) {
                  EXPECT_EQ(selectionOf(view), (Selection{{0, 1}, 1}));
              })
        .press(L'B', ui::holdControl)
        .press(L'A', ui::holdShift)
        .look("still two rows", [](const View& view) { EXPECT_THAT(view.selectedRows(kList), ElementsAre(0, 1)); });
    choose(withStates(numbered(5)), script.press(VK_ESCAPE));
}

TEST_F(ImportKeys, SpaceTicksAllThatIsSelected) {
    open(withStates({}));
    Script script;
    script.press(VK_HOME, ui::holdControl).press(VK_DOWN, ui::holdShift).press(VK_SPACE).then(expectTicked({2, 3}));
    choose(withStates(numbered(4)), script.press(VK_ESCAPE));
}

TEST_F(ImportKeys, EnterIsOkAndEscIsCancelAlsoInTheList) {
    const Script inList = look("the focus in the list", [](const View& view) { SetFocus(view.control(kList)); });
    EXPECT_EQ(choose(withStates({L"One"}), Script().then(inList).press(VK_RETURN)), IDOK);
    EXPECT_THAT(chosen, ElementsAre(L"One"));
    EXPECT_EQ(choose(withStates({L"One"}), Script().then(inList).press(VK_ESCAPE)), IDCANCEL);
    EXPECT_THAT(chosen, IsEmpty());
}

} // namespace
