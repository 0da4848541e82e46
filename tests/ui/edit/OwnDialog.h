// The edit dialog's class in the test program itself, for what the module shows to nobody outside.
#pragma once

#include "CEditLayerStateDlg.h"
#include "EditTest.h"

/// Shows a state, with what the tests look at made public.
class OwnDialog : public CEditLayerStateDlg {
  public:
    OwnDialog() : CEditLayerStateDlg(nullptr) { m_stateName = L"Ground floor"; }

    using CEditLayerStateDlg::m_cellTip;
    using CEditLayerStateDlg::m_columnWidths;
    using CEditLayerStateDlg::m_lastMousePos;
    using CEditLayerStateDlg::m_layerGrid;
};

class OwnDialogTest : public EditTest {
  protected:
    void SetUp() override;

    /// Runs the dialog and the script in it, with the pointer away from it at first, and leaves it by Escape.
    static void run(CEditLayerStateDlg& dialog, const ui::Script& script);
    /// The same, with one step that looks at the open dialog.
    static void look(CEditLayerStateDlg& dialog, const std::function<void()>& see);
    /// A house with that many layers, in the state "Ground floor".
    static ui::TestDrawing towerOf(int layers);
};
