// What the running command was given on its line.
#pragma once

#include "KelExport.h"

#include <string>

namespace runtime {

/// While it lives, keledCommandArguments answers this text, which has to outlive it; afterwards the one before.
class KELDB_API CommandArguments {
  public:
    explicit CommandArguments(const std::wstring& text);
    ~CommandArguments();
    CommandArguments(const CommandArguments&) = delete;
    CommandArguments& operator=(const CommandArguments&) = delete;

  private:
    const wchar_t* m_before;
};

} // namespace runtime
