// The Workbench's main window with the module, and a file "states.zdr" with three layer states.
#pragma once

#include "ModuleLoader.h"
#include "WorkbenchFixture.h"

class LayerStatesTest : public WorkbenchTest {
  protected:
    LayerStatesTest();
    ~LayerStatesTest() override;

    /// Opens the drawing, and the manager over it.
    ui::Script openManager() const;

  private:
    /// Layer "Red" is on; in the state "Without red" it is off, and in "Attic" and "Cellar" as well.
    void writeDrawingWithState() const;

    runtime::ModuleLoader m_modules;
};
