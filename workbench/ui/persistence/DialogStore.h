// What dialogs keep from one run to the next: numbers and texts under the dialog's name in the user's part of the
// registry.
#pragma once

#include "KelExport.h"

#include <optional>
#include <string>
#include <string_view>

namespace framework {

/// What one dialog keeps, or one group of that. Everything is below HKEY_CURRENT_USER.
class KELUI_API DialogStore {
  public:
    /// An empty name stands for a dialog that keeps nothing: reads find nothing, writes fail.
    explicit DialogStore(std::wstring_view dialogName, std::wstring_view group = {});

    /// The number; nothing when it is missing, of another type or of another size.
    std::optional<unsigned long> number(const std::wstring& name) const;
    [[nodiscard]] bool setNumber(const std::wstring& name, unsigned long value) const;
    /// The text; nothing when it is missing, of another type or longer than 32767 characters.
    std::optional<std::wstring> text(const std::wstring& name) const;
    [[nodiscard]] bool setText(const std::wstring& name, const std::wstring& value) const;
    /// Removes a value. False when there was none, or it stays.
    bool remove(const std::wstring& name) const;

    /// The path below HKEY_CURRENT_USER under which the stores of all dialogs stand.
    static std::wstring root();
    /// Moves that path, for tests; empty brings the Workbench's own back.
    static void setRoot(std::wstring_view path);

  private:
    std::wstring m_path; // empty: keeps nothing
};

} // namespace framework
