// The operations of the host as a sweep calls them, each with every one of its allocations failing once.
#pragma once

#include "KelDbDatabase.h"

#include <functional>
#include <vector>

enum class Answer {
    Done,   ///< what the operation answers when it has memory
    Failed, ///< what it answers without
    Other
};

struct HostOperation {
    const char* name;
    /// Gets ready for one call on the database: what it answers makes the call, and takes no memory of its own. What
    /// was opened for it is closed when it goes.
    std::function<std::function<Answer()>(KelDbDatabase&)> prepare;
    /// Whether the call answers nothing: without memory it leaves things as they were, and counts as done.
    bool isSilent = false;
};

void PrintTo(const HostOperation& operation, std::ostream* out);

/// Of layer states.
std::vector<HostOperation> stateOperations();
/// Of databases, tables, records, dictionaries and values.
std::vector<HostOperation> objectOperations();
/// Of the runtime around the drawings.
std::vector<HostOperation> runtimeOperations();

inline Answer answerOf(Vorn::ErrorStatus status) {
    return status == Vorn::eOk ? Answer::Done : status == Vorn::eOutOfMemory ? Answer::Failed : Answer::Other;
}
inline Answer answerOf(bool done) {
    return done ? Answer::Done : Answer::Failed;
}
/// A name that doesn't fit into a string without memory.
inline constexpr const wchar_t* kLongName = L"A name that is too long for a short string";
