// Smaller services of the host's dialog framework: registry access, expanded strings, paths. Windows tier.
#pragma once

#include "KelExport.h"

#include <afxwin.h>

/// A key of the registry, open for reading.
class KELUI_API COrvUiRegistryAccess {
  public:
    /// Opens the key `path` of a hive; it may fail, which IsOpen() tells.
    COrvUiRegistryAccess(HKEY hive, const CString& path);
    ~COrvUiRegistryAccess(); ///< Closes the key.
    COrvUiRegistryAccess(const COrvUiRegistryAccess&) = delete;
    COrvUiRegistryAccess& operator=(const COrvUiRegistryAccess&) = delete;

    bool IsOpen() const { return m_key != nullptr; }
    /// The text of a value; empty when it is missing or no text. Variables in it aren't expanded. An empty name reads
    /// the key's default value.
    CString GetString(const CString& valueName) const;
    /// The number of a value; 0 when it is missing or no 32-bit number.
    unsigned int GetDWord(const CString& valueName) const;
    /// The registry type of a value; 0 when it doesn't exist. `size`, if not null, receives its size in bytes.
    unsigned long ValueType(const CString& valueName, unsigned long* size) const;
    void Close();

  private:
    HKEY m_key;
};

/// Writes the path, below the machine-wide hive, of the product's key. The text is cut to `length` characters, its end
/// included; a failure leaves an empty text.
/// @return the number of characters written, without the end; 0 for a failure, and where there is no room
KELUI_API unsigned int GetProductRegistryRootKey(wchar_t* buffer, unsigned long length);

/// A text in which the host has filled in its own names: "{Product}" becomes the host's product name.
class KELUI_API CKelUiStringExp {
  public:
    CKelUiStringExp() = default;
    explicit CKelUiStringExp(const CString& text);
    /// Loads a string of the current resource module. Non-zero on success; a failure leaves the text empty.
    BOOL LoadString(unsigned int id);
    /// The expanded text.
    operator const wchar_t*() const { return m_text; }
    const CString& GetString() const { return m_text; }

  private:
    CString m_text;
};

/// A path.
class KELUI_API OrvXREFString {
  public:
    OrvXREFString() = default;
    OrvXREFString(const wchar_t* text) : m_text(text) {}
    /// Where there is no memory for the text, the path stays as it was.
    OrvXREFString& operator=(const wchar_t* text);
    operator const wchar_t*() const { return m_text; }
    /// Compares in the order of the user's language, without regard to case: negative, 0 or positive.
    /// Negative, too, where the system can't compare them: what isn't known to be equal isn't.
    int CollateNoCase(const OrvXREFString& other) const;

  private:
    CString m_text;
};
