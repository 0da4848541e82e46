// A screen reader, as far as the tests of the edit dialog need one: it asks windows what they say to those who can't
// see them.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace reader {

/// Initialises COM while it lives.
class ComScope {
  public:
    ComScope() { CoInitialize(nullptr); }
    ~ComScope() { CoUninitialize(); }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;
};

struct Releases {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface> using Holder = std::unique_ptr<Interface, Releases>;

/// What a screen reader asks a window for.
Holder<IAccessible> asked(HWND window);
/// What the system itself says about a window.
Holder<IAccessible> standard(HWND window);
/// A child by its number; CHILDID_SELF is the window.
VARIANT child(long number);

/// An answer in words, or the failure.
struct Said {
    HRESULT status = E_FAIL;
    std::wstring text;
    bool operator==(const Said&) const = default;
};
void PrintTo(const Said& said, std::ostream* stream);

using Question = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);
Said say(IAccessible& object, Question question, VARIANT about);
std::wstring nameOf(IAccessible& object, long row);
std::wstring descriptionOf(IAccessible& object, long row);
/// The answers to all questions but those for the name and the description, each with its status in front.
std::vector<std::string> allElseOf(IAccessible& object, const VARIANT& about);

struct Row {
    std::wstring name;
    std::wstring description;
    bool operator==(const Row&) const = default;
};
void PrintTo(const Row& row, std::ostream* stream);
/// All rows that have names, from the first.
std::vector<Row> rowsOf(IAccessible& object);

/// Of which rows of a list it is told that what they say has changed, for as long as this lives.
class Changes {
  public:
    Changes() { s_here = this; }
    ~Changes() {
        UnhookWinEvent(m_hook);
        s_here = nullptr;
    }
    Changes(const Changes&) = delete;
    Changes& operator=(const Changes&) = delete;

    void listenTo(HWND list);
    std::vector<long> rows;

  private:
    static void CALLBACK hear(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG child, DWORD, DWORD);
    static inline Changes* s_here = nullptr;
    HWND m_list = nullptr;
    HWINEVENTHOOK m_hook = nullptr;
};

} // namespace reader
