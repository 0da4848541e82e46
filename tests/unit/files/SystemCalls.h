// Between keldb.dll and the file functions of the system: writes down the calls that a save makes, and answers them as
// a Windows would that the tests don't run on.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

/// While it lives; only one at a time.
class SystemCalls {
  public:
    SystemCalls();
    ~SystemCalls();
    SystemCalls(const SystemCalls&) = delete;
    SystemCalls& operator=(const SystemCalls&) = delete;

    /// The calls that open, make, flush, move and remove files, in their order. Files with the ending .tmp are numbered
    /// in the order in which they appear: "CreateFile(#1, new)".
    std::vector<std::string> made() const { return m_made; }
    int count(const std::string& function) const;
    void forget() { m_made.clear(); }

    // What answers in the system's place; what is empty is left to the system. An error is one of GetLastError(), and 0
    // lets the system do it.
    std::function<DWORD(const std::string& call)> error;
    /// Does all that ReplaceFile does, and answers its error.
    std::function<DWORD(const wchar_t* replaced, const wchar_t* replacement, const wchar_t* backup)> replace;
    /// Where a path is a link, and where it leads; nowhere for an empty text.
    std::map<std::wstring, std::wstring> links;
    /// What paths to open files begin with: the letter of a disk, the name of a disk that no letter leads to, or
    /// nothing, because there are none.
    enum class PathForm { Letter, Disk, None };
    PathForm pathForm = PathForm::Letter;
    /// Attributes of a file, if they aren't 0.
    std::function<DWORD(const std::wstring& path)> attributes;
    /// The owner and the access list of a file, in the text form of the system.
    std::function<std::wstring(const std::wstring& path)> security;

    /// The owner and the access list, or "none", and the attributes that the last new file was made with.
    std::wstring newSecurity;
    DWORD newAttributes = 0;

  private:
    struct Stand;
    friend struct Stand;
    std::string nameOf(const std::wstring& path);
    DWORD record(const std::string& call);

    struct Replaced {
        void** entry;
        void* before;
    };
    std::vector<Replaced> m_replaced;
    std::vector<std::string> m_made;
    std::vector<std::wstring> m_temporary;
};
