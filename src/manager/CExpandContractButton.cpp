#include "CExpandContractButton.h"

CExpandContractButton::~CExpandContractButton() = default;
