// Steps that a test hands over before it opens a modal dialog. Each runs when the modal loop has nothing else to do,
// again and again until it is content, within a bound.
#pragma once

#include <functional>
#include <string>
#include <vector>

/// One step: what it waits for or does, and whether that is done.
struct Step {
    std::string name;
    std::function<bool()> attempt;
};

/// A step that is done at once.
inline Step act(std::string name, std::function<void()> action) {
    return {std::move(name), [action] {
                action();
                return true;
            }};
}

/// A step that does nothing but let time pass, for what must not happen.
Step pause(int milliseconds);

/// Runs the steps while it lives. A step that isn't done in time, or wasn't reached, fails the test; the windows that
/// are open then are closed.
class Steps {
  public:
    explicit Steps(std::vector<Step> steps);
    ~Steps();
    Steps(const Steps&) = delete;
    Steps& operator=(const Steps&) = delete;

    void tick();

  private:
    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    unsigned long long m_since;
    bool m_gaveUp = false;
    unsigned long long m_timer;
};
