// Failures of the framework, which has no instruments of its own: the linker sends this program's calls of three of its
// functions through here.
#pragma once

enum class FrameworkCall { none, initExtensionModule, makeLinkObject, loadString };

/// Makes the next call of that function fail as it fails when memory runs out: the first answers FALSE, the others
/// throw std::bad_alloc.
void failFramework(FrameworkCall call);
/// How many link objects this program has made.
int linkObjectsMade();
