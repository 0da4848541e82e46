// What the fuzzers share.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "model/Drawing.h"

/// Ends the program, which libFuzzer takes for a finding, unless the rule holds.
void stopUnless(bool holds, const char* rule, const std::string& details = {});

/// Stops unless the drawing can be saved, and what was saved read again with nothing lost. Answers what was read.
zdr::Drawing savedAndRead(const zdr::Drawing& drawing);
