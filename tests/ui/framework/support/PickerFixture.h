// What the tests of the pickers share: a current drawing, and a script that begins once the picker is there.
#pragma once

#include "DialogFixture.h"

#include "KelDbDatabase.h"
#include "TestDrawing.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

class PickerFixture : public DialogFixture {
  protected:
    PickerFixture();
    ~PickerFixture() override;

    /// Opens the drawing as the current document.
    void open(const zdr::Drawing& drawing);
    KelDbDatabase& database() const;
    KelDbObjectId linetypeId(const wchar_t* name) const;

    /// Runs `pick`, which opens a picker, and the script in it, with the pointer away from it at first.
    static void answer(const ui::Script& script, const std::function<void()>& pick);
    /// The calls of the trace by which dialogs set themselves up and keep what they show, without answers.
    static std::vector<std::string> setUpCalls();
    /// The lines of the trace that end the calls of `operation`.
    static std::vector<std::string> tracedCalls(const std::string& operation);
};

/// What setUpCalls() has to be for a picker with a list: `resized` controls follow the dialog's size.
testing::Matcher<std::vector<std::string>> isSetUpOfList(const std::string& name, int resized);

/// Enter once a window is there, and then Escape as long as one still is.
ui::Script confirmOrLeave();

/// Drags the lower right corner of a picker with a list away by that much, sees that the list has grown as much, and
/// cancels.
ui::Script growByItsCorner(LONG right, LONG down);

/// Runs `pick` again and again, with each host call inside it failing once, and confirms by Enter (or cancels, where
/// Enter does nothing) whatever appears. After each run `check` is called, and nothing may be left in the ledger.
/// @return how many calls could fail
int sweepFailures(const std::function<void()>& pick, const std::function<void()>& check);
