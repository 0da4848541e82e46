// Counts what a test program tries, and prints it when the program ends: the figures of docs/testing.md.
#pragma once

#include <cstdio>

class Tally {
  public:
    /// @param what is counted, in the plural; a text that lives as long as the program
    explicit Tally(const char* what) : m_what(what) {}
    ~Tally() {
        if (m_count > 0)
            std::printf("%ld %s\n", m_count, m_what);
    }
    Tally(const Tally&) = delete;
    Tally& operator=(const Tally&) = delete;

    void add(long count) { m_count += count; }

  private:
    const char* m_what;
    long m_count = 0;
};
