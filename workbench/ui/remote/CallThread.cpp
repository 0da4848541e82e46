#include "CallThread.h"

#include "HttpExchange.h"
#include "RemoteProblem.h"

#include <atomic>
#include <exception>
#include <string>
#include <utility>

namespace remote {
namespace {

HANDLE newEvent() {
    return CreateEventW(nullptr, FALSE, FALSE, nullptr);
}

struct CloseHandleOf {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<void, CloseHandleOf>;

[[noreturn]] void throwNoThread() {
    throw RemoteFailure{eInetSystemFailed, L"wasn't transferred: the system gives no thread, with error " +
                                               std::to_wstring(GetLastError())};
}

} // namespace

/// What both threads know. The one that waits sets `call` before `begin`, the other one `thrown` before `end`.
struct CallThread::Shared {
    OwnedHandle begin{newEvent()};
    OwnedHandle end{newEvent()};
    std::function<void()> call;
    std::exception_ptr thrown;
    std::atomic<bool> isOver = false; ///< no more calls come
};

CallThread::CallThread(framework::LongWork& work) : m_work(work), m_shared(std::make_shared<Shared>()) {
    if (!m_shared->begin || !m_shared->end)
        throwNoThread();
    auto forThread = std::make_unique<std::shared_ptr<Shared>>(m_shared);
    m_thread = CreateThread(nullptr, 0, threadMain, forThread.get(), 0, nullptr);
    if (!m_thread)
        throwNoThread();
    static_cast<void>(forThread.release()); // the thread's now
}

CallThread::~CallThread() {
    m_shared->isOver = true;
    SetEvent(m_shared->begin.get());
    if (!m_isLeftBehind)
        WaitForSingleObject(m_thread, INFINITE);
    CloseHandle(m_thread);
}

void CallThread::run(std::function<void()> call, std::chrono::milliseconds bound) {
    m_shared->call = std::move(call);
    SetEvent(m_shared->begin.get());
    const auto waited = m_work.waitFor(m_shared->end.get(), bound);
    m_isLeftBehind = waited != framework::LongWork::Waited::Signalled;
    if (waited == framework::LongWork::Waited::Cancelled)
        throwCancelled();
    if (waited == framework::LongWork::Waited::TooLong)
        throwTimedOut();
    if (const std::exception_ptr thrown = std::exchange(m_shared->thrown, nullptr))
        std::rethrow_exception(thrown);
}

DWORD WINAPI CallThread::threadMain(void* parameter) {
    const std::unique_ptr<std::shared_ptr<Shared>> owned(static_cast<std::shared_ptr<Shared>*>(parameter));
    Shared& shared = **owned;
    while (WaitForSingleObject(shared.begin.get(), INFINITE) == WAIT_OBJECT_0 && !shared.isOver) {
        try {
            shared.call();
        } catch (...) {
            shared.thrown = std::current_exception();
        }
        shared.call = nullptr;
        SetEvent(shared.end.get());
    }
    return 0;
}

} // namespace remote
