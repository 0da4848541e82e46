// Another program, which takes the input away from the tests' windows.
#pragma once

#include <windows.h>

#include <thread>

/// A program of the system with a window of its own.
class OtherProgram {
  public:
    OtherProgram();
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    /// Starts it. From when its window stands it takes the input again and again, since the scripted person takes it
    /// back.
    /// @return false when it can't be started
    bool start();
    /// Ends it, so that its window no longer stands before the tests' ones.
    void end();

  private:
    PROCESS_INFORMATION m_process{};
    HANDLE m_over;
    // Not the thread of the tests' windows, which would deal with the loss of the input inside the call that takes it.
    std::thread m_thread;
};
