// Failures of the framework, which has no instruments of its own: the linker sends this program's calls of three of its
// functions through here.
#pragma once

enum class FrameworkCall { none, initExtensionModule, makeLinkObject, loadString };

/// The two exceptions for lack of memory: the language's std::bad_alloc and the framework's CMemoryException.
enum class LackOfMemory { ofLanguage, ofFramework };

/// Makes the next call of that function fail as it fails when memory runs out: the first answers FALSE, the others
/// throw.
void failFramework(FrameworkCall call, LackOfMemory thrown = LackOfMemory::ofLanguage);
/// How many link objects this program has made.
int linkObjectsMade();
