// Why a file couldn't be read or written for a module, which learns no more than a status. The engine has no command
// line: the part of the host that has one tells the user.
#pragma once

#include "KelExport.h"

#include <string>

namespace zdr {

/// Tells a sentence that names the file and the reason. Throws nothing.
using ProblemTeller = void (*)(const std::wstring& sentence);
/// Sets the one that is used from now on; null for none.
KELDB_API void setProblemTeller(ProblemTeller teller);
void tellProblem(const std::wstring& sentence);

} // namespace zdr
