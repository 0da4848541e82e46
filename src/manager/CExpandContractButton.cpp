// The expand button has nothing but its type.
#include "CExpandContractButton.h"

CExpandContractButton::~CExpandContractButton() = default;
