// What a monkey types: lines of the command language with all kinds of arguments, and plain nonsense.
#pragma once

#include <random>
#include <string>

class Nonsense {
  public:
    /// @param folder where its files may go
    Nonsense(std::mt19937& random, std::wstring folder) : m_random(random), m_folder(std::move(folder)) {}

    /// A line for the command line.
    std::wstring line();
    /// A few letters, digits and signs; no path.
    std::wstring word();
    /// A name for a layer state: new, taken in the sample, or refused.
    std::wstring name();

  private:
    std::wstring argument();
    std::wstring optionLine();
    std::size_t below(std::size_t bound) { return std::uniform_int_distribution<std::size_t>(0, bound - 1)(m_random); }
    template <class Items> const wchar_t* oneOf(const Items& items) { return items[below(std::size(items))]; }

    std::mt19937& m_random;
    std::wstring m_folder;
};
