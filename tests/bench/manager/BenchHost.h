// The host around a measurement: a drawing that was read from a file, and the module in it.
#pragma once

#include "KelRuntime.h"
#include "ModuleLoader.h"
#include "model/Drawing.h"

#include <chrono>

namespace bench {

using Clock = std::chrono::steady_clock;

double milliseconds(Clock::duration duration);

/// Ends the program with a word on what went wrong.
[[noreturn]] void fail(const char* what);

/// Writes the drawing to a file, reads it back as the working drawing, and removes the file.
void openDrawing(const zdr::Drawing& drawing);

/// Loads the module, and answers its command.
const KelEdCommand& loadLayerStateCommand(runtime::ModuleLoader& modules);

} // namespace bench
