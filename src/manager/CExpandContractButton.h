// The small button that opens and closes the manager's property panel.
#pragma once

#include "OrvUiControls.h"

/// A type of its own for the manager's expand button. It adds nothing to its base: the manager decides which bitmap it
/// shows.
class CExpandContractButton : public COrvUiBitmapStatic {
  public:
    ~CExpandContractButton() override;
};
