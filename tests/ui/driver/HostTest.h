// A test in a fresh host: an empty runtime with its instruments on, dialogs that have never been run, and at the end
// nothing open and nothing that was handed out and not given back. The module is the real one, loaded as the host loads
// it.
#pragma once

#include "KelDbDatabase.h"
#include "ModuleLoader.h"
#include "TestDrawing.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace ui {

/// The lines of a trace that are calls of `operation`, in order.
std::vector<std::string> callsOf(const std::string& operation, const std::vector<std::string>& trace);
/// The same among all calls so far.
std::vector<std::string> callsOf(const std::string& operation);

/// The folder of the running program, where the module lies too.
std::filesystem::path programFolder();

class HostTest : public testing::Test {
  protected:
    HostTest();
    ~HostTest() override;
    void SetUp() override;
    void TearDown() override;

    /// Loads KelLayerApps.xmod; the test fails when that isn't possible.
    void loadModule();
    /// Opens the drawing as the current document.
    void open(const TestDrawing& drawing);
    /// The database of the open document.
    KelDbDatabase& database() const;
    KelDbLayerStateManager& states() const;
    /// Runs a registered command as the command line does.
    void runCommand(const std::wstring& name);

    /// A text of the module's resources, in the language in which the module shows it.
    static std::wstring resourceText(unsigned int id);

    /// What a dialog has kept under its name; -1 when it has kept nothing of that key.
    static long kept(const std::wstring& dialog, const std::wstring& key);
    /// Deletes what all dialogs have kept, so that each is as before its first run.
    static void forgetDialogs();
    static void keep(const std::wstring& dialog, const std::wstring& key, unsigned long value);

  private:
    std::unique_ptr<runtime::ModuleLoader> m_modules;
};

} // namespace ui
