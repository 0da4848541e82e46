// A thread for calls that block for as long as a server likes, so that the user can be shown how far a transfer is, and
// can cancel it, meanwhile.
#pragma once

#include "progress/LongWork.h"

#include <windows.h>

#include <chrono>
#include <functional>
#include <memory>

namespace remote {

class CallThread {
  public:
    /// Throws a RemoteFailure when the system gives no thread.
    explicit CallThread(framework::LongWork& work);
    /// A call that was left behind goes on until it ends by itself; what it has captured is let go then.
    ~CallThread();
    CallThread(const CallThread&) = delete;
    CallThread& operator=(const CallThread&) = delete;

    /// Does the call in the thread, waits for its end, and throws what it throws. Where the user cancels, or it takes
    /// longer than `bound`, it is left behind and a RemoteFailure is thrown; nothing more may be run then.
    /// @param call has to own all that it uses, since it may outlive whoever calls
    void run(std::function<void()> call, std::chrono::milliseconds bound);

  private:
    struct Shared;
    static DWORD WINAPI threadMain(void* parameter);

    framework::LongWork& m_work;
    std::shared_ptr<Shared> m_shared;
    HANDLE m_thread = nullptr;
    bool m_isLeftBehind = false;
};

} // namespace remote
