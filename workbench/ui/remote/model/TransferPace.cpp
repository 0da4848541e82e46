#include "TransferPace.h"

namespace remote {

bool TransferPace::keepsUp(std::uint64_t done, Clock::time_point now) {
    if (now - m_spanStart < m_least.span)
        return true;
    const double seconds = std::chrono::duration<double>(now - m_spanStart).count();
    const double rate = static_cast<double>(done - m_doneBefore) / seconds;
    m_spanStart = now;
    m_doneBefore = done;
    return rate >= static_cast<double>(m_least.bytesPerSecond);
}

} // namespace remote
