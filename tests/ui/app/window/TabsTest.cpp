// The tabs of the spaces when there are more than the bar has room for, and names that are too long for a tab.

#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

using ui::Script;
using ui::View;

namespace {

constexpr std::size_t kLayouts = 40;

workbench::SpaceTabs& tabs(const View& view) {
    return *static_cast<workbench::SpaceTabs*>(CWnd::FromHandlePermanent(view.control(IDC_SPACE_TABS)));
}

/// Whether all of a tab can be seen and clicked.
bool isInSight(const View& view, std::size_t tab) {
    const CRect rect = tabs(view).tabRect(tab);
    const CRect back = tabs(view).scrollRect(false);
    const CRect bar(view.rect(IDC_SPACE_TABS));
    return rect.Width() > 40 && rect.right <= (back.IsRectEmpty() ? bar.Width() : back.left);
}

using Place = std::function<CRect(workbench::SpaceTabs& tabs)>;

Place tab(std::size_t index) {
    return [index](workbench::SpaceTabs& tabs) { return tabs.tabRect(index); };
}

Place scrollButton(bool forward) {
    return [forward](workbench::SpaceTabs& tabs) { return tabs.scrollRect(forward); };
}

/// Moves the pointer to a place of the bar and does something there.
Script at(const Place& place, std::function<void()> act) {
    Script script;
    script.step("use the mouse on the tabs", [=](const View& view) -> ui::Obstacle {
        CRect rect = place(tabs(view));
        if (rect.IsRectEmpty())
            return "there is no such place";
        tabs(view).ClientToScreen(rect);
        if (!ui::pointerRestsAt(ui::middleOf(rect)))
            return "the pointer is under way";
        act();
        return std::nullopt;
    });
    return script;
}

Script clickAt(const Place& place) {
    return at(place, [] { ui::click(); });
}

class TabsTest : public WorkbenchTest {
  protected:
    void makeLayouts(const std::vector<std::wstring>& names) {
        zdr::Drawing drawing = session().drawing();
        drawing.layouts.clear();
        for (const std::wstring& name : names)
            drawing.layouts.push_back({name, 420, 297, {}, {}});
        session().rebuild(drawing);
    }
    void makeManyLayouts() {
        std::vector<std::wstring> names;
        for (std::size_t i = 1; i <= kLayouts; ++i)
            names.push_back(L"Layout" + std::to_wstring(i));
        makeLayouts(names);
    }
    /// Waits until the n-th tab is on top; the model tab is 0.
    Script shows(std::size_t n) {
        Script script;
        script.waitUntil("tab " + std::to_string(n) + " is on top", [this, n](const View&) {
            const auto& active = session().drawing().activeLayout;
            return active ? *active + 1 == n : n == 0;
        });
        return script;
    }
};

} // namespace

TEST_F(TabsTest, FewTabsHaveNoScrollButtons) {
    makeLayouts({L"One", L"Two"});
    Script script;
    script.look("tabs alone", [](const View& view) {
        EXPECT_TRUE(isInSight(view, 2));
        EXPECT_TRUE(tabs(view).scrollRect(true).IsRectEmpty());
        EXPECT_TRUE(tabs(view).scrollRect(false).IsRectEmpty());
    });
    runAndThrowAway(script);
}

TEST_F(TabsTest, ScrollButtonsLeadToEveryTab) {
    makeManyLayouts();
    Script script;
    script.look("the first ones", [](const View& view) {
        EXPECT_TRUE(isInSight(view, 0));
        EXPECT_FALSE(isInSight(view, kLayouts));
    });
    for (std::size_t i = 0; i < kLayouts / 4; ++i)
        script.then(clickAt(scrollButton(true)));
    script.waitUntil("as many tabs further on", [](const View& view) {
        return !isInSight(view, kLayouts / 4 - 1) && isInSight(view, kLayouts / 4);
    });
    script.then(clickAt(tab(kLayouts / 4 + 1))).then(shows(kLayouts / 4 + 1));
    for (std::size_t i = 0; i < kLayouts / 4; ++i)
        script.then(clickAt(scrollButton(false)));
    script.then(clickAt(tab(0))).then(shows(0));
    runAndThrowAway(script);
}

TEST_F(TabsTest, AHeldScrollButtonGoesOnToTheEnd) {
    makeManyLayouts();
    Script script;
    script.then(at(scrollButton(true), [] { ui::pressButton(); }))
        .waitUntil("the last tab", [](const View& view) { return isInSight(view, kLayouts); })
        .look("let go", [](const View&) { ui::releaseButton(); })
        .then(clickAt(tab(kLayouts)))
        .then(shows(kLayouts))
        .then(at(scrollButton(false), [] { ui::pressButton(); }))
        .waitUntil("some way back", [](const View& view) { return isInSight(view, kLayouts / 2); })
        .look("let go", [](const View&) { ui::releaseButton(); });
    runAndThrowAway(script);
}

TEST_F(TabsTest, TheWheelScrollsTheTabsBelowThePointer) {
    makeManyLayouts();
    const auto turn = [](int steps) { return [steps] { ui::turnWheel(steps * WHEEL_DELTA); }; };
    Script script;
    script.then(at(scrollButton(true), turn(-5)))
        .waitUntil("five tabs further on", [](const View& view) { return !isInSight(view, 4) && isInSight(view, 5); })
        .then(at(scrollButton(true), turn(2)))
        .waitUntil("two tabs back", [](const View& view) { return !isInSight(view, 2) && isInSight(view, 3); });
    runAndThrowAway(script);
}

TEST_F(TabsTest, KeysLeadToEveryTabAndBringItIntoSight) {
    makeManyLayouts();
    Script script;
    for (std::size_t i = 1; i <= kLayouts; ++i)
        script.press(VK_NEXT, ui::holdControl).then(shows(i)).look("in sight", [i](const View& view) {
            EXPECT_TRUE(isInSight(view, i)) << i;
        });
    script.press(VK_NEXT, ui::holdControl).then(shows(0)).look("from the last to the first", [](const View& view) {
        EXPECT_TRUE(isInSight(view, 0));
    });
    script.press(VK_PRIOR, ui::holdControl).then(shows(kLayouts)).look("and back", [](const View& view) {
        EXPECT_TRUE(isInSight(view, kLayouts));
        EXPECT_EQ(view.text(IDC_SPACE_TABS), L"Spaces: Layout40");
    });
    runAndThrowAway(script);
}

TEST_F(TabsTest, CommandsLeaveTheTabsWhereTheyWereScrolledTo) {
    makeManyLayouts();
    Script script;
    for (int i = 0; i < 10; ++i)
        script.then(clickAt(scrollButton(true)));
    script.then(command(L"REGEN"))
        .then(said(L"Everything is drawn anew."))
        .look("still there",
              [](const View& view) {
                  EXPECT_TRUE(isInSight(view, 10));
                  EXPECT_FALSE(isInSight(view, 0));
              })
        .then(command(L"MODEL"))
        .then(said(L"Model space is shown."))
        .look("the space on view was on view before", [](const View& view) { EXPECT_FALSE(isInSight(view, 0)); })
        .then(command(L"LAYOUT Layout2"))
        .waitUntil("the new one is in sight", [](const View& view) { return isInSight(view, 2); });
    runAndThrowAway(script);
}

TEST_F(TabsTest, AnotherScalingMakesTabsWiderThoughTheBarKeepsItsSize) {
    makeLayouts({L"One", L"Two"});
    Script script;
    script.look("at another scaling", [this](const View& view) {
        const CRect bar(view.rect(IDC_SPACE_TABS));
        const int before = tabs(view).tabRect(1).Width();
        RECT rect{};
        window->GetWindowRect(&rect);
        // 100 dots an inch instead of 96 are too few more to change the font, and so the height of the bar. Only the
        // room around a name grows.
        window->SendMessage(WM_DPICHANGED, MAKEWPARAM(100, 100), reinterpret_cast<LPARAM>(&rect));
        ASSERT_EQ(CRect(view.rect(IDC_SPACE_TABS)).Size(), bar.Size()) << "the test needs a bar of the same size";
        EXPECT_EQ(tabs(view).tabRect(1).Width(), before + 2);
    });
    runAndThrowAway(script);
}

TEST_F(TabsTest, ALongNameIsShortenedAndToldInFullByATip) {
    const std::wstring name = L"Ground floor, first floor and roof with all dimensions and furniture, for the office";
    makeLayouts({name, L"Short"});
    Script script;
    script
        .look("a tab of modest width",
              [](const View& view) {
                  EXPECT_LT(tabs(view).tabRect(1).Width(), 260);
                  EXPECT_TRUE(isInSight(view, 2));
              })
        .then(at(tab(1), [] {}))
        .waitUntil("the tip tells the name", [name](const View&) { return ui::shownTip() == name; })
        .then(at(tab(2), [] {}))
        .waitUntil("a short name needs none", [](const View&) { return ui::shownTip().empty(); });
    runAndThrowAway(script);
}
