// A flag that is set while something goes on.
#pragma once

/// Sets the flag for its life.
class FlagForLife {
  public:
    explicit FlagForLife(bool& flag) : m_flag(flag) { m_flag = true; }
    ~FlagForLife() { m_flag = false; }
    FlagForLife(const FlagForLife&) = delete;
    FlagForLife& operator=(const FlagForLife&) = delete;

  private:
    bool& m_flag;
};
