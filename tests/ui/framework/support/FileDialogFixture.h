// What the tests of the file dialog share: a folder with one layer states file, and the dialog as a person answers it.
#pragma once

#include "DialogFixture.h"

#include "FileDialogSteps.h"
#include "OrvUiPickers.h"

class FileDialog : public DialogFixture {
  protected:
    ResultBuffer* chain = nullptr;
    std::wstring folder;
    /// What the dialog is opened with.
    const wchar_t* title = L"Pick";
    const wchar_t* extensions = L"las;zdr";
    const wchar_t* key = L"FrameworkTestsFileDialog";

    FileDialog();
    ~FileDialog() override;

    /// Makes an empty file in the folder, which is deleted at the end of the test.
    void makeFile(const std::wstring& name);
    /// Waits until the dialog is there again, after something that stood in front of it.
    static void untilDialogAgain(ui::Script& script);
    /// Opens the dialog, answers it by the script, and returns what the call answers. First releases the chain of the
    /// call before.
    int ask(int flags, const ui::Script& script, const wchar_t* name = nullptr);
    /// The path in the chain; empty when there is none.
    std::wstring chosen() const;
    /// The folder that is kept under a key; none when none is.
    static std::optional<std::wstring> keptFolder(const wchar_t* key);

  private:
    std::vector<std::wstring> m_files;
};
