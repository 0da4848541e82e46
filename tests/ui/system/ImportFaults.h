// Failures of the system: comes between the framework's libraries and the system functions that they import, and makes
// one call fail as the system would.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// Redirects the imports of some libraries through here while it lives. Only one may live at a time.
class ImportFaults {
  public:
    explicit ImportFaults(const std::vector<std::wstring>& libraries = {L"kelui.dll", L"kelmfc.dll"});
    ~ImportFaults();
    ImportFaults(const ImportFaults&) = delete;
    ImportFaults& operator=(const ImportFaults&) = delete;

    /// The name of operator new, by which memory for objects and texts is asked for.
    static constexpr const char* kMemory = "_Znwy";
    /// The functions that can be made to fail.
    static std::vector<std::string> functions();

    /// Counts from now on. The `nth` call of `function`, from 1, fails; with 0 none does.
    static void begin(const std::string& function = {}, int nth = 0);
    /// Nothing is counted and nothing fails until the next begin().
    static void end();
    /// How often a function has been called since begin().
    static int calls(const std::string& function);
    /// Whether the planned call was made.
    static bool struck();
};
