// What the tests of tool tips share: a dialog with tips, and the fixture that opens it for a script.
#pragma once

#include "Driver.h"
#include "MfcTestIds.h"
#include "Program.h"

#include <functional>

/// A dialog with tips enabled. It leaves to the base what is under the pointer, and says "tip 1010" for its control
/// 1010.
class TipDialog : public CDialog {
  public:
    explicit TipDialog(UINT templateId = IDD_KEYS, CWnd* parent = nullptr) : CDialog(templateId, parent) {}

    /// Called at the end of OnInitDialog.
    std::function<void()> setUp;
    /// Called when IDC_OPEN is clicked.
    std::function<void()> open;
    /// What OnToolHitTest has answered, call by call.
    mutable std::vector<INT_PTR> hits;
    /// With which ids of the tip window texts were asked for.
    std::vector<UINT> askedBy;

    BOOL OnInitDialog() override;
    INT_PTR OnToolHitTest(CPoint point, TOOLINFO* tool) const override;

  protected:
    BOOL OnNeedText(UINT id, NMHDR* header, LRESULT* result);
    void OnOpen() { open(); }
    DECLARE_MESSAGE_MAP()
};

class ToolTipFixture : public MfcTest {
  protected:
    /// Opens a dialog with the pointer away from it, runs the script and presses Escape.
    static void run(CDialog& dialog, ui::Script script);
    /// Appends a movement to the middle of a control, a little to the right of it with `right`.
    static ui::Script& pointAt(ui::Script& script, const CWnd& window, int control, int right = 0);
    static ui::Script& act(ui::Script& script, std::function<void()> action);
    /// The windows of tips that there are, shown or not.
    static std::vector<HWND> tipWindows();
};
