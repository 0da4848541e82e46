// What a test wants a person to do and to look at: a list of steps that is put together before the dialog opens. Each
// step waits, within a bound, until it can be done, as a person would: until the control is there, shown and enabled.
#pragma once

#include "Input.h"
#include "View.h"

#include <chrono>
#include <deque>
#include <functional>
#include <optional>
#include <string>

namespace ui {

/// Why a step can't be done yet; none when it is done.
using Obstacle = std::optional<std::string>;

/// The line of a test that a step was written in. Clang 14 can't compile the library's std::source_location.
struct Where {
    static Where current(const char* file = __builtin_FILE(), int line = __builtin_LINE()) { return {file, line}; }
    const char* file;
    int line;
};

struct Step {
    std::string what;
    std::function<Obstacle(const View&)> act;
    std::chrono::milliseconds bound;
    Where where;
    /// Only done when a window is still open; otherwise passed over.
    bool optional = false;
};

class Script {
  public:
    /// @name Doing
    /// @{
    /// Clicks the middle of a control, once it is enabled.
    Script& click(int control, Where where = Where::current());
    /// Clicks the middle of a control, even when it is disabled.
    Script& clickDisabled(int control, Where where = Where::current());
    /// Clicks the control with that text; for the buttons of task dialogs.
    Script& clickText(std::wstring text, Where where = Where::current());
    Script& clickCell(int list, int row, int column, unsigned held = holdNothing, Where where = Where::current());
    Script& doubleClickCell(int list, int row, int column, unsigned held = holdNothing, Where where = Where::current());
    /// Clicks the first cell of the row with that text.
    Script& clickCellOf(int list, std::wstring text, unsigned held = holdNothing, Where where = Where::current());
    /// Presses the button over a cell and leaves it down. The keys are only held for the press.
    Script& pressCell(int list, int row, int column, unsigned held = holdNothing, Where where = Where::current());
    /// Moves the pointer over a cell, and releases the button there.
    Script& releaseOverCell(int list, int row, int column, Where where = Where::current());
    Script& clickHeading(int list, int column, Where where = Where::current());
    Script& clickHeading(int list, int column, OtherButton button, Where where = Where::current());
    /// Clicks a point of the screen, once there is one.
    Script& clickPoint(std::string what, std::function<std::optional<POINT>(const View&)> point,
                       Where where = Where::current());
    /// Double clicks a point of the screen, once there is one.
    Script& doubleClickPoint(std::string what, std::function<std::optional<POINT>(const View&)> point,
                             Where where = Where::current());
    /// Turns the wheel over a point of the screen, once there is one; WHEEL_DELTA is one step away from the user.
    Script& turnWheel(std::string what, std::function<std::optional<POINT>(const View&)> point, int delta,
                      Where where = Where::current());
    /// Double clicks the middle of a control.
    Script& doubleClick(int control, Where where = Where::current());
    /// Brings the pointer to rest over a control.
    Script& hover(int control, Where where = Where::current());
    /// Drags the window by the left end of its caption, which must be on the screen, and waits until it has moved as
    /// far.
    Script& dragWindow(LONG right, LONG down, Where where = Where::current());
    /// Brings the pointer to rest on a point of the screen. `target` is asked for it when the step's turn comes.
    Script& pointAt(std::function<POINT()> target, Where where = Where::current());
    /// Brings the pointer to rest where no window is.
    Script& pointAway(Where where = Where::current());
    Script& clickEmptySpace(int list, Where where = Where::current());
    Script& doubleClickEmptySpace(int list, Where where = Where::current());
    Script& press(WORD key, unsigned held = holdNothing, Where where = Where::current());
    /// Alt and the character: a control's mnemonic, or a short cut of the dialog.
    Script& pressAlt(wchar_t character, Where where = Where::current());
    /// Alt and the character that a control's text marks.
    Script& pressMnemonicOf(int control, Where where = Where::current());
    Script& type(std::wstring text, Where where = Where::current());
    /// @}

    /// @name Seeing
    /// @{
    /// Runs `see`, which makes assertions, once. A fatal failure ends the script.
    Script& look(std::string what, std::function<void(const View&)> see, Where where = Where::current());
    /// Waits until `seen` answers true.
    Script& waitUntil(std::string what, std::function<bool(const View&)> seen,
                      std::chrono::milliseconds bound = std::chrono::seconds(5), Where where = Where::current());
    /// Waits for a window that shows `text` among its texts: a message box, or a task dialog.
    Script& waitForText(std::wstring text, Where where = Where::current());
    /// Waits for a window with that control.
    Script& waitForControl(int control, Where where = Where::current());
    /// Waits for the tip with that text; with an empty one, until no tip is shown any more.
    Script& waitForTip(std::wstring text, Where where = Where::current());
    /// Sees for longer than a tip takes to come that none is shown.
    Script& seeNoTip(Where where = Where::current());
    /// @}

    /// Presses Enter for every window that opens over the one with that control, until that one has the input again or
    /// is gone.
    Script& answerAllUntil(int control, Where where = Where::current());
    /// The steps added from here on are only done while a window is still open.
    Script& ifStillOpen();

    /// Adds any other step. `act` is called again and again until it answers no obstacle.
    Script& step(std::string what, std::function<Obstacle(const View&)> act,
                 std::chrono::milliseconds bound = std::chrono::seconds(5), Where where = Where::current());
    /// Appends the steps of another script.
    Script& then(const Script& other);

    std::deque<Step>& steps() { return m_steps; }

  private:
    std::deque<Step> m_steps;
    bool m_optional = false;
};

} // namespace ui
