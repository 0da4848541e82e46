// Into which folders outside this computer references may lead, as the user has answered: kept in the user's part of
// the registry.
#pragma once

#include "SessionWindow.h"

namespace workbench {

/// All that are kept and are answers.
std::vector<FolderAnswer> keptAnswers();
/// Keeps one instead of a former one for the folder. One that can't be written isn't kept, and the question comes
/// again.
void keepAnswer(const FolderAnswer& answer);
void forgetAnswer(const std::wstring& folder);

} // namespace workbench
