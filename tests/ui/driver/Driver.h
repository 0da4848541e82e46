// Runs a script while a modal loop waits for input. A modal loop belongs to its dialog (or to the system, for message
// boxes and task dialogs), so the driver lives on a timer of the same thread: the system hands out a timer's message
// only when no other message, input or painting is waiting, and that is when a person would see the program idle.
#pragma once

#include "Script.h"

#include <functional>
#include <string>

namespace ui {

/// Runs `action` and, inside the modal loops that it opens, the steps of the script in order. The test fails when a
/// step can't be done within its bound, when an assertion of a step fails, when steps are left at the end, and when a
/// window is still open after the last step; whatever is open then is closed. A failure of a step saves a screenshot.
/// @return whether all went well
bool perform(Script script, const std::function<void()>& action);

/// Sets what is printed about the host when the program is stuck and has to be ended; each call replaces the one
/// before.
void setLastWords(std::function<std::string()> words);
/// The folder of the screenshots of failures: $KEL_SCREENSHOTS, or `screenshots` beside the folder of the program.
std::wstring screenshotFolder();
/// Saves a screenshot of the running test there, and answers its path.
std::wstring screenshotOfTest();

} // namespace ui
