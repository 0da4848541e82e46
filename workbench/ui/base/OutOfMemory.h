// Where memory runs out inside an operation of the host: the callers know answers and no exceptions.
#pragma once

#include <new>

namespace framework {

/// Does the work, or answers `failure` where memory runs out.
template <class Answer, class Work> Answer answerOr(const Answer& failure, const Work& work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return failure;
    }
}

/// Does the work, which is a courtesy, as far as memory lasts.
template <class Work> void asFarAsMemoryLasts(const Work& work) {
    try {
        work();
    } catch (const std::bad_alloc&) {
        return;
    }
}

} // namespace framework
