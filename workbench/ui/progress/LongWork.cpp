#include "LongWork.h"

#include "base/OutOfMemory.h"

#include <algorithm>
#include <utility>

namespace framework {
namespace {

using std::chrono::duration_cast;
using std::chrono::milliseconds;

// As often as an eye can follow a number.
constexpr milliseconds kBetweenRefreshes{100};

milliseconds g_delay = kUsualDelay;

} // namespace

LongWork::LongWork(const wchar_t* title, std::wstring text, const wchar_t* beginning)
    : m_facts{title, std::move(text), beginning} {}

LongWork::~LongWork() = default;

void LongWork::setDelay(milliseconds delay) {
    g_delay = delay;
}

bool LongWork::advance(std::uint64_t done, std::uint64_t total) {
    m_facts.done = done;
    m_facts.total = total;
    if (Clock::now() - m_lastRefresh >= kBetweenRefreshes)
        refresh();
    return !isCancelled();
}

LongWork::Waited LongWork::waitFor(HANDLE end, milliseconds bound) {
    const Clock::time_point last = Clock::now() + bound;
    while (!isCancelled()) {
        // Who waits for one short thing after the other has to see the user's input too.
        if (Clock::now() - m_lastRefresh >= kBetweenRefreshes)
            refresh();
        const auto left = std::max(duration_cast<milliseconds>(last - Clock::now()), milliseconds{0});
        const auto slice = static_cast<DWORD>(std::min(left, kBetweenRefreshes).count());
        const DWORD waited = m_window ? MsgWaitForMultipleObjectsEx(1, &end, slice, QS_ALLINPUT, MWMO_INPUTAVAILABLE)
                                      : WaitForSingleObject(end, slice);
        if (waited == WAIT_OBJECT_0)
            return isCancelled() ? Waited::Cancelled : Waited::Signalled;
        if (waited == WAIT_OBJECT_0 + 1)
            m_window->handleMessages();
        if (left == milliseconds{0})
            return Waited::TooLong;
    }
    return Waited::Cancelled;
}

void LongWork::refresh() {
    m_lastRefresh = Clock::now();
    m_facts.elapsed = duration_cast<milliseconds>(m_lastRefresh - m_start);
    // Without memory for its texts the work goes on without being shown.
    asFarAsMemoryLasts([this] {
        if (m_window)
            m_window->show(m_facts);
        else if (m_facts.elapsed >= g_delay && !std::exchange(m_hasTried, true))
            m_window = std::make_unique<ProgressWindow>(m_facts);
        if (m_window && !m_window->isOpen())
            m_window.reset(); // the work goes on unseen
    });
    if (m_window)
        m_window->handleMessages();
}

} // namespace framework
