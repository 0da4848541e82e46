// Base of tests of what is on view: a drawing with a line on a layer of its own, and what the window shows of it.
#pragma once

#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

class ShownDrawingTest : public WorkbenchTest {
  protected:
    /// Writes line.zdr: the layer Red with a red line from 0,0 to 1000,0, and the layer Empty.
    ShownDrawingTest();

    ui::Script open() { return command(L"OPEN " + path("line.zdr")).then(said(L"Opened ")); }
    const workbench::ViewTransform& view() const { return shown().view(); }
    /// A step that keeps what is on view in `place`.
    ui::Script note(workbench::ViewTransform& place);
    /// A step that looks whether just that is on view.
    ui::Script isShown(const workbench::ViewTransform& place, const std::string& when);

    /// Steps: the pointer to a pixel of the view, and then what it does there.
    static ui::Script pointAt(POINT pixel);
    static ui::Script click(POINT pixel);
    static ui::Script press(POINT pixel);
    static ui::Script release(POINT pixel);
    static ui::Script turnWheel(POINT pixel, int delta);
    /// A step that waits until the history ends with the text.
    static ui::Script answered(const std::wstring& text);

  private:
    static ui::Script mouse(const std::string& what, POINT pixel, std::function<void()> act);
};
