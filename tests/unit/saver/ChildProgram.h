// A program that a test starts in order to kill it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class ChildProgram {
  public:
    /// Starts a program of the build's bin folder, by its name without an extension. Throws when it can't be started.
    ChildProgram(const std::string& name, const std::vector<std::wstring>& arguments);
    /// Kills it if it still runs.
    ~ChildProgram();
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    /// How it has ended by itself, in words; nothing while it runs.
    std::string end();
    /// Ends it at once, wherever it is, and waits until it is gone. False when it had ended by itself.
    bool kill();

  private:
    std::intptr_t m_process = 0;
};
