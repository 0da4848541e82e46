// Tests of import and export: the manager with files in a folder of the test's own, and the system's file dialog.
#pragma once

#include "ActionTest.h"
#include "TemporaryFolder.h"

class TransferTest : public ActionTest {
  protected:
    /// The path of a file in the test's folder.
    std::wstring file(const std::wstring& name) const { return m_folder.file(name); }
    /// Saves the drawing as a file of that name.
    void saveDrawing(const std::wstring& name, const ui::TestDrawing& drawing) const { drawing.save(file(name)); }
    /// Exports a state of the drawing, which isn't opened, to a layer states file of that name.
    void saveStateFile(const std::wstring& name, const ui::TestDrawing& drawing, const wchar_t* state) const;

    /// @name What the host is asked for
    /// @{
    /// The file dialog of Import, answered with the path.
    static Calls callsOfImportDialog(const std::wstring& path);
    /// The beginning of restoreOrImport: the transaction, and the service.
    static Calls callsOfStart();
    /// The end of the transaction.
    static Calls callsOfEnd();
    static Calls callsOfPublishing();
    /// The search for what has come; `names` as the trace shows it.
    static Calls callsOfSearch(const std::string& names);
    /// The new state's record is copied and, after the transaction's end, entered again. Its ids before and after are
    /// the drawing's next handles.
    static Calls callsOfEntering(const std::string& name, LayerStateMask mask, const char* id, const char* newId);
    /// The list is filled with states that are as the drawing is, without descriptions; their mask is the colour.
    static Calls callsOfList(const std::vector<std::string>& names);
    static Calls callsOfQuestion(const std::string& name, int answer);
    /// The other drawing is read.
    static Calls callsOfReading(const std::wstring& path);
    /// @}

    /// @name Steps
    /// @{
    /// Presses Import or Export, waits for the file dialog and answers it with that path. From the press on the calls
    /// count.
    static ui::Script choose(int button, const std::wstring& path);
    ui::Script import(const std::wstring& name) const { return choose(IDC_LSTATE_RES_IMPORT, file(name)); }
    ui::Script exportTo(const std::wstring& name) const { return choose(IDC_LSTATE_RES_EXPORT, file(name)); }
    /// Disables the list, as another program might.
    static ui::Script disableList();
    /// Waits for the import selection, and imports what is ticked there.
    static ui::Script takeTicked();
    /// Waits for the import selection, and ticks all that it shows.
    static ui::Script tickAll();
    /// Waits for the message box with that text of the resources, and answers it. Its icon is one of the system's.
    static ui::Script answerMessage(const std::wstring& text, const wchar_t* icon = IDI_EXCLAMATION);
    /// Waits for the task dialog with that text, and closes it by Escape.
    static ui::Script leaveTaskDialog(const std::wstring& text);
    /// Waits for the question about that name, and answers it.
    static ui::Script answerQuestion(const std::wstring& name, bool replace);
    /// Waits for the manager, looks at it and leaves it by Escape.
    static ui::Script backInManager(std::function<void(const ui::View&)> see);
    /// The same: the list shows these states and, of them, this one is selected; an empty name stands for none.
    static ui::Script backInManager(const Texts& names, const std::wstring& selected);
    /// @}

    static constexpr const wchar_t* kImported = L"The layer state was imported.";
    static constexpr const wchar_t* kCannotRestore = L"The layer state could not be restored.";
    static constexpr const wchar_t* kNameTaken = L"A layer state of this name is in the drawing already.";
    static constexpr const wchar_t* kNoneFound = L"The selected drawing has no layer states.";

    /// A control of the manager's whose id no other window here has. The message of a success has one with the list's.
    static constexpr int kManagersOwn = IDC_LSTATE_RES_EXPAND;

  private:
    TemporaryFolder m_folder;
};
