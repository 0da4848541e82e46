// Export and import: states go into a file, and come from another drawing and from a file.
#include "ManagerVisit.h"

#include "Input.h"
#include "StateListColumns.h"
#include "resource.h"

#include <dlgs.h>

#include <algorithm>

namespace tour {

namespace {

/// The first of the large buttons of a task dialog; src/host names it too, with MFC around it.
constexpr int kFirstCommand = 1001;

} // namespace

void ManagerVisit::exportTo(const std::wstring& path) {
    say(L"Export: " + selectedName() + L" to " + fileNameOf(path));
    DeleteFileW(path.c_str()); // or the file dialog asks whether to write over it
    chooseFile(IDC_LSTATE_RES_EXPORT, path, L"exporting");
    m_program.waitUntil("the file is there and the manager can be used", [&] {
        return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES && IsWindowEnabled(m_manager);
    });
}

void ManagerVisit::importFromDrawing(const std::wstring& path, const std::wstring& replaced) {
    say(L"Import from " + fileNameOf(path));
    const std::wstring before = description(replaced);
    chooseFile(IDC_LSTATE_RES_IMPORT, path, L"importing");
    // The manager has controls of the same numbers, but no Help button.
    const HWND dialog = m_program.waitForWindow("the choice of layer states",
                                                [](HWND window) { return GetDlgItem(window, IDHELP) != nullptr; });
    const std::vector<std::wstring> chosen = chooseStates(dialog, replaced);
    const HWND question = m_program.waitForTitle(L"Name Exists");
    say(L"Replace: " + replaced);
    m_pictures.take(L"clash");
    clickControl(m_program, question, kFirstCommand);
    m_program.waitUntil("all that was chosen is in the list", [&] {
        return IsWindowEnabled(m_manager) &&
               std::ranges::all_of(chosen, [&](const std::wstring& name) { return m_list.rowOf(name) >= 0; });
    });
    if (description(replaced) == before)
        throw Disappointment("the state \"" + narrow(replaced) + "\" hasn't been replaced");
    m_pictures.take(L"imported");
}

void ManagerVisit::importAndRestore(const std::wstring& path) {
    say(L"Import and restore: " + fileNameOf(path));
    chooseFile(IDC_LSTATE_RES_IMPORT, path, L"importing");
    const HWND success = m_program.waitForTitle(L"Import Layer State");
    m_pictures.take(L"success");
    clickControl(m_program, success, kFirstCommand);
    m_program.waitUntil("the manager closes", [this] { return !IsWindow(m_manager); });
}

void ManagerVisit::chooseFile(int button, const std::wstring& path, const std::wstring& picture) {
    clickControl(m_program, m_manager, button);
    const HWND dialog =
        m_program.waitForWindow("the file dialog", [](HWND window) { return GetDlgItem(window, cmb13) != nullptr; });
    typeInto(m_program, GetDlgItem(dialog, cmb13), path);
    m_pictures.take(picture);
    ui::pressKey(VK_RETURN);
    m_program.waitUntil("the file dialog closes", [dialog] { return !IsWindow(dialog); });
}

std::vector<std::wstring> ManagerVisit::chooseStates(HWND dialog, const std::wstring& ticked) {
    const RemoteList list(GetDlgItem(dialog, IDC_LSTATE_IMPORT_LIST));
    const std::optional<RECT> name = list.cellRect(list.rowOf(ticked), nameColumn);
    if (!name)
        throw Disappointment("the row of \"" + narrow(ticked) + "\" can't be found on the screen");
    constexpr LONG kIntoBox = 8; // the boxes stand right before the names
    movePointer({name->left - kIntoBox, (name->top + name->bottom) / 2});
    ui::click();
    m_program.waitUntil("the row is ticked", [&] { return list.isTicked(list.rowOf(ticked)); });
    std::vector<std::wstring> chosen;
    for (int row = 0; row < list.rowCount(); ++row) {
        if (!list.isTicked(row))
            continue;
        chosen.push_back(list.text(row, nameColumn));
        say(L"Choose: " + chosen.back());
    }
    m_pictures.take(L"choosing");
    clickControl(m_program, dialog, IDOK);
    return chosen;
}

std::wstring ManagerVisit::description(const std::wstring& name) const {
    return m_list.text(m_list.rowOf(name), descriptionColumn);
}

} // namespace tour
