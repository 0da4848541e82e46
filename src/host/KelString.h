// The host's wide string, as it crosses the boundary between host and module.
#pragma once

#include <string>
#include <utility>

/// A wide string owned by value.
class KelString {
  public:
    KelString() = default;
    /// Copies `text`; null counts as empty.
    KelString(const wchar_t* text) : m_text(text ? text : L"") {}
    /// Takes the text over, which needs no memory.
    explicit KelString(std::wstring&& text) noexcept : m_text(std::move(text)) {}

    void assign(const wchar_t* text) { m_text = text ? text : L""; }
    /// Character by character, with case significant: negative, 0 or positive.
    int compare(const wchar_t* other) const { return m_text.compare(other ? other : L""); }
    int compare(const KelString& other) const { return m_text.compare(other.m_text); }
    bool isEmpty() const { return m_text.empty(); }
    /// The characters, null-terminated, valid until the string changes.
    const wchar_t* kwszPtr() const { return m_text.c_str(); }

  private:
    std::wstring m_text;
};
