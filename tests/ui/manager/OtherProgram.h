// Another program, which takes the input away from the tests' windows.
#pragma once

#include <windows.h>

/// A program of the system with a window of its own.
class OtherProgram {
  public:
    OtherProgram() = default;
    ~OtherProgram() { end(); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    /// False when it can't be started.
    bool start();
    /// Gives its window the input. To be called again until that has shown effect: the window takes a while to appear,
    /// and the scripted person takes the input back whenever it has a step to do.
    void takeInput();
    /// Ends it, so that its window no longer stands before the tests' ones.
    void end();

  private:
    PROCESS_INFORMATION m_process{};
};
