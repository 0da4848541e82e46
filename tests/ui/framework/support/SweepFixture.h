// Replays what the framework does with each of its host calls and each of its system calls failing once, and looks each
// time whether anything is left: nothing crashes or hangs, no window is left and the owner can be used, nothing is kept
// open or lost from what was kept before, and the operation answers what it answers for a failure.
#pragma once

#include "PickerFixture.h"

#include <map>
#include <memory>
#include <new>
#include <set>

// Of each function all calls up to this number are made to fail, and fewer and fewer of the calls after them.
inline constexpr int kEveryCall = 1000;
inline constexpr int kManyCalls = 6;
inline constexpr int kFewCalls = 4;

/// The name for all host calls in the set of functions that sweep() answers.
inline constexpr const char* kHostCall = "host call";

/// Makes an object of the framework; null when its constructor throws because memory runs out.
template <class Made, class... Arguments> std::unique_ptr<Made> made(Arguments&&... arguments) {
    try {
        return std::make_unique<Made>(std::forward<Arguments>(arguments)...);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

class FrameworkSweep : public PickerFixture {
  protected:
    /// What is replayed. It answers whether all was done, and asserts what must hold in either case.
    std::function<bool()> scenario;
    /// Whose calls of the system are made to fail; loaded when sweep() is called.
    std::vector<std::wstring> libraries = {L"kelui.dll", L"kelmfc.dll"};
    /// True for a scenario with a dialog of the system that keeps a handle each time that it opens.
    bool systemKeepsHandles = false;

    void SetUp() override;
    void TearDown() override;

    /// Runs an action that opens windows, and answers them by Enter, or by Escape when Enter does nothing.
    static void answered(const std::function<void()>& action);

    /// Replays the scenario. @return the functions of which a call was made to fail, each in a run of its own
    std::set<std::string> sweep(int mostCallsOfAFunction);

  private:
    /// What has to be the same after a run as before it.
    struct Held {
        int windows = 0;
        int drawing = 0;
        unsigned handles = 0;
        std::set<std::wstring> kept;
    };
    static Held heldNow();

    int callsOf(const std::string& function);
    bool failsHostCall(int nth);
    void run(const std::string& what, const char* function, int nth);
    void runOnce(const char* function, int nth);
    bool hasGrown(const Held& now) const;
    void expectNothingLeft(const Held& after);

    CWnd m_owner;
    Held m_held;
    std::map<std::string, int> m_calls;
};
