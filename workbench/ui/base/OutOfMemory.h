// What an operation of the host does when memory runs out. Its callers expect an answer and no exception.
#pragma once

#include <new>

namespace framework {

/// Does the work, or answers `failure` when memory runs out.
template <class Answer, class Work> Answer answerOr(const Answer& failure, const Work& work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return failure;
    }
}

/// Does work that nobody has to rely on. When memory runs out, the rest of it is left undone, and nothing is told.
template <class Work> void asFarAsMemoryLasts(const Work& work) {
    try {
        work();
    } catch (const std::bad_alloc&) {
        return;
    }
}

} // namespace framework
