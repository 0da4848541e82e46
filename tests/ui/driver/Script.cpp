#include "Script.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <memory>

namespace ui {

namespace {

constexpr const char* pointerUnderWay = "the pointer doesn't come to rest there";

std::string named(int control) {
    return "control " + std::to_string(control);
}

std::string cellName(int row, int column) {
    return "the cell in row " + std::to_string(row) + ", column " + std::to_string(column);
}

Obstacle clickWhenEnabled(HWND control, const std::string& name) {
    if (!control)
        return "there is no " + name;
    if (!IsWindowVisible(control))
        return name + " isn't shown";
    if (!IsWindowEnabled(control))
        return name + " is disabled";
    if (!pointerRestsAt(middleOf(View(control).rect())))
        return pointerUnderWay;
    ui::click();
    return std::nullopt;
}

/// Does something with the mouse once it rests on the middle of that cell.
Obstacle actAtCell(const View& view, int list, int row, int column, const std::function<void()>& act) {
    const std::optional<RECT> cell = view.cellRect(list, row, column);
    if (!cell)
        return "there is no such cell";
    if (!view.isRowInView(list, row))
        return "the row isn't in view";
    if (!pointerRestsAt(middleOf(*cell)))
        return pointerUnderWay;
    act();
    return std::nullopt;
}

Obstacle clickCellTimes(const View& view, int list, int row, int column, int times, unsigned held) {
    return actAtCell(view, list, row, column, [=] { ui::click(times, held); });
}

Obstacle clickSpaceTimes(const View& view, int list, int times) {
    const std::optional<POINT> point = view.emptySpace(list);
    if (!point)
        return "the list has no empty space";
    if (!pointerRestsAt(*point))
        return pointerUnderWay;
    ui::click(times);
    return std::nullopt;
}

/// Does something with the mouse once it rests at that point.
Obstacle actAt(std::optional<POINT> point, const std::function<void()>& act) {
    if (!point)
        return "there is no such place";
    if (!pointerRestsAt(*point))
        return pointerUnderWay;
    act();
    return std::nullopt;
}

std::optional<POINT> middleOfHeading(const View& view, int list, int column) {
    const std::optional<RECT> heading = view.headingRect(list, column);
    return heading ? std::optional(middleOf(*heading)) : std::nullopt;
}

} // namespace

Script& Script::step(std::string what, std::function<Obstacle(const View&)> act, std::chrono::milliseconds bound,
                     Where where) {
    m_steps.push_back({std::move(what), std::move(act), bound, where, m_optional});
    return *this;
}

Script& Script::click(int control, Where where) {
    return step(
        "click " + named(control),
        [control](const View& view) { return clickWhenEnabled(view.control(control), named(control)); },
        std::chrono::seconds(5), where);
}

Script& Script::clickDisabled(int control, Where where) {
    return step(
        "click " + named(control) + " as it stands",
        [control](const View& view) -> Obstacle {
            if (!view.isVisible(control))
                return named(control) + " isn't shown";
            if (!pointerRestsAt(middleOf(view.rect(control))))
                return pointerUnderWay;
            ui::click();
            return std::nullopt;
        },
        std::chrono::seconds(5), where);
}

Script& Script::clickText(std::wstring text, Where where) {
    const std::string name = "the control with the text \"" + narrow(text) + "\"";
    return step(
        "click " + name, [text, name](const View& view) { return clickWhenEnabled(view.controlWithText(text), name); },
        std::chrono::seconds(5), where);
}

Script& Script::clickCell(int list, int row, int column, unsigned held, Where where) {
    return step(
        "click " + cellName(row, column),
        [=](const View& view) { return clickCellTimes(view, list, row, column, 1, held); }, std::chrono::seconds(5),
        where);
}

Script& Script::doubleClickCell(int list, int row, int column, unsigned held, Where where) {
    return step(
        "double click " + cellName(row, column),
        [=](const View& view) { return clickCellTimes(view, list, row, column, 2, held); }, std::chrono::seconds(5),
        where);
}

Script& Script::clickCellOf(int list, std::wstring text, unsigned held, Where where) {
    return step(
        "click the row \"" + narrow(text) + "\"",
        [=](const View& view) { return clickCellTimes(view, list, view.rowOf(list, text), 0, 1, held); },
        std::chrono::seconds(5), where);
}

Script& Script::pressCell(int list, int row, int column, unsigned held, Where where) {
    return step(
        "press the button over " + cellName(row, column),
        [=](const View& view) { return actAtCell(view, list, row, column, [held] { pressButton(held); }); },
        std::chrono::seconds(5), where);
}

Script& Script::releaseOverCell(int list, int row, int column, Where where) {
    return step(
        "release the button over " + cellName(row, column),
        [=](const View& view) { return actAtCell(view, list, row, column, [] { releaseButton(); }); },
        std::chrono::seconds(5), where);
}

Script& Script::clickHeading(int list, int column, Where where) {
    return clickPoint(
        "the heading of column " + std::to_string(column),
        [=](const View& view) { return middleOfHeading(view, list, column); }, where);
}

Script& Script::clickHeading(int list, int column, OtherButton button, Where where) {
    return step(
        "click the heading of column " + std::to_string(column) + " with another button",
        [=](const View& view) { return actAt(middleOfHeading(view, list, column), [button] { ui::click(button); }); },
        std::chrono::seconds(5), where);
}

Script& Script::clickPoint(std::string what, std::function<std::optional<POINT>(const View&)> point, Where where) {
    return step(
        "click " + std::move(what),
        [point = std::move(point)](const View& view) { return actAt(point(view), [] { ui::click(); }); },
        std::chrono::seconds(5), where);
}

Script& Script::doubleClickPoint(std::string what, std::function<std::optional<POINT>(const View&)> point,
                                 Where where) {
    return step(
        "double click " + std::move(what),
        [point = std::move(point)](const View& view) { return actAt(point(view), [] { ui::click(2); }); },
        std::chrono::seconds(5), where);
}

Script& Script::turnWheel(std::string what, std::function<std::optional<POINT>(const View&)> point, int delta,
                          Where where) {
    return step(
        "turn the wheel over " + std::move(what),
        [point = std::move(point), delta](const View& view) {
            return actAt(point(view), [delta] { ui::turnWheel(delta); });
        },
        std::chrono::seconds(5), where);
}

Script& Script::doubleClick(int control, Where where) {
    return step(
        "double click " + named(control),
        [control](const View& view) -> Obstacle {
            if (!view.isVisible(control))
                return named(control) + " isn't shown";
            if (!pointerRestsAt(middleOf(view.rect(control))))
                return pointerUnderWay;
            ui::click(2);
            return std::nullopt;
        },
        std::chrono::seconds(5), where);
}

Script& Script::hover(int control, Where where) {
    return step(
        "point at " + named(control),
        [control](const View& view) -> Obstacle {
            if (!pointerRestsAt(middleOf(view.rect(control))))
                return pointerUnderWay;
            return std::nullopt;
        },
        std::chrono::seconds(5), where);
}

Script& Script::dragWindow(LONG right, LONG down, Where where) {
    const auto from = std::make_shared<RECT>();
    const auto grip = [from](LONG x, LONG y) -> Obstacle {
        const LONG frame = GetSystemMetrics(SM_CYFIXEDFRAME), middle = frame + GetSystemMetrics(SM_CYCAPTION) / 2;
        if (!pointerRestsAt({from->left + 2 * middle + x, from->top + middle + y}))
            return pointerUnderWay;
        return std::nullopt;
    };
    const auto add = [&](const char* what, std::function<Obstacle(const View&)> act) {
        step(what, std::move(act), std::chrono::seconds(5), where);
    };
    add("point at the caption", [from, grip](const View& view) {
        *from = view.rect();
        return grip(0, 0);
    });
    look(
        "press the button over the caption", [](const View&) { pressButton(); }, where);
    add("drag the caption", [=](const View&) { return grip(right, down); });
    look(
        "let the caption go", [](const View&) { releaseButton(); }, where);
    return waitUntil(
        "the window has moved",
        [=](const View& view) {
            RECT wanted = *from;
            OffsetRect(&wanted, right, down);
            const RECT now = view.rect();
            return EqualRect(&now, &wanted) != FALSE;
        },
        std::chrono::seconds(5), where);
}

Script& Script::pointAt(std::function<POINT()> target, Where where) {
    return step(
        "move the pointer",
        [target = std::move(target)](const View&) -> Obstacle {
            if (!pointerRestsAt(target()))
                return pointerUnderWay;
            return std::nullopt;
        },
        std::chrono::seconds(5), where);
}

Script& Script::pointAway(Where where) {
    return pointAt([] { return emptyCorner; }, where);
}

Script& Script::clickEmptySpace(int list, Where where) {
    return step(
        "click the empty space of the list", [list](const View& view) { return clickSpaceTimes(view, list, 1); },
        std::chrono::seconds(5), where);
}

Script& Script::doubleClickEmptySpace(int list, Where where) {
    return step(
        "double click the empty space of the list", [list](const View& view) { return clickSpaceTimes(view, list, 2); },
        std::chrono::seconds(5), where);
}

Script& Script::press(WORD key, unsigned held, Where where) {
    return step(
        "press the key with code " + std::to_string(key),
        [key, held](const View&) -> Obstacle {
            pressKey(key, held);
            return std::nullopt;
        },
        std::chrono::seconds(5), where);
}

Script& Script::pressAlt(wchar_t character, Where where) {
    return step(
        "press Alt and " + narrow(std::wstring(1, character)),
        [character](const View&) -> Obstacle {
            if (!pressCharacter(character, holdAlt))
                return "the keyboard has no such character";
            return std::nullopt;
        },
        std::chrono::seconds(5), where);
}

Script& Script::pressMnemonicOf(int control, Where where) {
    return step(
        "press the mnemonic of " + named(control),
        [control](const View& view) -> Obstacle {
            const wchar_t character = view.mnemonic(control);
            if (!character)
                return named(control) + " has no mnemonic";
            if (!pressCharacter(static_cast<wchar_t>(towlower(character)), holdAlt))
                return "the keyboard has no such character";
            return std::nullopt;
        },
        std::chrono::seconds(5), where);
}

Script& Script::type(std::wstring text, Where where) {
    return step(
        "type \"" + narrow(text) + "\"",
        [text](const View&) -> Obstacle {
            typeText(text);
            return std::nullopt;
        },
        std::chrono::seconds(5), where);
}

Script& Script::look(std::string what, std::function<void(const View&)> see, Where where) {
    return step(
        std::move(what),
        [see = std::move(see)](const View& view) -> Obstacle {
            see(view);
            return std::nullopt;
        },
        std::chrono::seconds(5), where);
}

Script& Script::waitUntil(std::string what, std::function<bool(const View&)> seen, std::chrono::milliseconds bound,
                          Where where) {
    return step(
        "wait until " + what,
        [seen = std::move(seen)](const View& view) -> Obstacle {
            if (!seen(view))
                return "it hasn't come to that";
            return std::nullopt;
        },
        bound, where);
}

Script& Script::waitForText(std::wstring text, Where where) {
    return step(
        "wait for a window with the text \"" + narrow(text) + "\"",
        [text](const View& view) -> Obstacle {
            const std::vector<std::wstring> texts = view.texts();
            if (std::find(texts.begin(), texts.end(), text) != texts.end())
                return std::nullopt;
            std::string seen;
            for (const std::wstring& each : texts)
                seen += "\n  " + narrow(each);
            return "the window \"" + narrow(view.title()) + "\" shows:" + seen;
        },
        std::chrono::seconds(5), where);
}

Script& Script::waitForControl(int control, Where where) {
    return step(
        "wait for a window with " + named(control),
        [control](const View& view) -> Obstacle {
            if (!view.has(control))
                return "the window \"" + narrow(view.title()) + "\" has none";
            return std::nullopt;
        },
        std::chrono::seconds(5), where);
}

Script& Script::waitForTip(std::wstring text, Where where) {
    return step(
        "wait for the tip \"" + narrow(text) + "\"",
        [text = std::move(text)](const View&) -> Obstacle {
            holdPointer();
            const std::wstring shown = shownTip();
            if (shown != text)
                return "the tip that is shown says \"" + narrow(shown) + "\"";
            return std::nullopt;
        },
        std::chrono::seconds(5), where);
}

Script& Script::seeNoTip(Where where) {
    using Clock = std::chrono::steady_clock;
    const auto end = std::make_shared<Clock::time_point>();
    return step(
        "see no tip",
        [end](const View&) -> Obstacle {
            if (*end == Clock::time_point())
                *end = Clock::now() + std::chrono::milliseconds(3 * GetDoubleClickTime());
            const std::wstring shown = shownTip();
            EXPECT_EQ(shown, L"");
            if (shown.empty() && Clock::now() < *end)
                return "it isn't sure yet that none comes";
            return std::nullopt;
        },
        std::chrono::seconds(5), where);
}

Script& Script::answerAllUntil(int control, Where where) {
    ifStillOpen();
    return step(
        "answer by Enter until " + named(control) + " is back",
        [control](const View& view) -> Obstacle {
            if (view.has(control))
                return std::nullopt;
            pressKey(VK_RETURN);
            return "the window \"" + narrow(view.title()) + "\" stands before it";
        },
        std::chrono::seconds(5), where);
}

Script& Script::ifStillOpen() {
    m_optional = true;
    return *this;
}

Script& Script::then(const Script& other) {
    m_steps.insert(m_steps.end(), other.m_steps.begin(), other.m_steps.end());
    return *this;
}

} // namespace ui
