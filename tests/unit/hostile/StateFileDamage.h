// Layer states files that lie: a good one with one thing changed, texts that are none, and pieces of the good one.
// Tests of the engine import all of them, and tests of the module some.
#pragma once

#include "VornStatus.h"

#include <string>
#include <vector>

struct StateFileDamage {
    std::string name;
    std::string text;   ///< of the file
    std::string reason; ///< part of the sentence that tells why it is refused
    Vorn::ErrorStatus status;
};

/// The text of the good one, which the first version wrote.
std::string goodStateFile();
std::vector<StateFileDamage> damagedStateFiles();
/// The good one cut off behind each line and each bracket.
std::vector<StateFileDamage> cutStateFiles();
