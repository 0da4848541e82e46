// The calls by which files are read and written, by which saving keeps what belongs to a file and waits for the disk,
// failing on request. This program's own functions of these names stand in the place of the system's, and pass on every
// call that isn't to fail.
#pragma once

#include <functional>
#include <optional>
#include <string>

/// While it lives, the calls of one function fail with an error; with 0 they answer that they went well, and do
/// nothing, as some file systems do. Only one may live for each function.
class FailingCalls {
  public:
    FailingCalls(const std::string& function, int error);
    /// `error` is asked at each call; with none the system is.
    FailingCalls(const std::string& function, std::function<std::optional<int>()> error);
    ~FailingCalls();
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;
    int count() const;

  private:
    std::string m_function;
};

/// An error at the nth call alone, from 1.
std::function<std::optional<int>()> failingAt(int nth, int error);
