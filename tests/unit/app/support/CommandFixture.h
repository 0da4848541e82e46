// Base of tests of commands: a session with a window that keeps what it is told, and a folder for files.
#pragma once

#include "CommandDispatch.h"
#include "RuntimeTest.h"
#include "ScriptedWindow.h"
#include "TemporaryFolder.h"

#include <filesystem>

class CommandFixture : public RuntimeTest {
  protected:
    CommandFixture();

    /// Runs a line and answers what it printed, without the echo of the line. `done` tells whether it could be done.
    std::wstring run(const std::wstring& line);
    std::wstring path(const char* name) const;
    void writeBytes(const char* name, const std::string& bytes) const;
    void writeDrawing(const char* name, const zdr::Drawing& drawing) const;

    std::size_t layer(const std::wstring& name) const;
    unsigned flags(const std::wstring& name) const;
    const zdr::Drawing& drawing() const { return session.drawing(); }

    bool done = true;
    TemporaryFolder temporary; // goes after the session, which has a file in it open
    std::filesystem::path folder{temporary.path()};
    ScriptedWindow window;
    workbench::Session session;
};
