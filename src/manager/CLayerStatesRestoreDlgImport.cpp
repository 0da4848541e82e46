// Import: states come from a layer states file or from another drawing.
#include "CLayerStatesImportDlg.h"
#include "CLayerStatesRestoreDlg.h"
#include "CResourceScope.h"
#include "FileChoice.h"
#include "FilePaths.h"
#include "HostPrompts.h"
#include "ImportedStates.h"
#include "MessageBoxes.h"
#include "OrvUiServices.h"
#include "SideDrawing.h"
#include "WorkingDatabase.h"
#include "resource.h"

namespace {

constexpr const wchar_t* kNoneFoundKey = L"KelLayerApps.LayerStateNoneFound";
constexpr const wchar_t* kDuplicatesKey = L"KelLayerApps.LayerStateDuplicates";
constexpr const wchar_t* kImportedKey = L"KelLayerApps.LayerStateSuccessfulImport";

bool isStateFile(const wchar_t* path) {
    wchar_t normalized[kPathLength];
    normalizePath(normalized, path);
    return extensionOf(normalized).CompareNoCase(kStateFileExtension) == 0;
}

/// Whether the user wants the state of that name replaced.
bool askReplace(const wchar_t* name) {
    return CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog(loadResourceString(IDS_LSTATE_KIND), name,
                                                                        threadMainWindow()) == kTaskDialogFirstCommand;
}

CString unreadableText(const wchar_t* path, Vorn::ErrorStatus status) {
    CString text;
    if (status == Vorn::eFileUnreadable)
        text.Format(loadResourceString(IDS_LSTATE_DRAWING_UNOPENED), path);
    else
        text.Format(loadResourceString(IDS_LSTATE_DRAWING_UNREADABLE), path, vornErrorStatusText(status));
    return text;
}

} // namespace

void CLayerStatesRestoreDlg::OnImport() {
    // Unlike Export, this asks for its file also during a rename. The file dialog ends the rename; while the name is
    // refused, restoreOrImport() imports nothing, and the user is told so.
    constexpr int kOpen = 0;
    const CString path =
        chooseFile(IDS_LSTATE_IMPORT_TITLE, nullptr, CString(L"zdr;zds;zdt;") + kStateFileExtension, kOpen);
    SetFocus();
    if (path.IsEmpty())
        return;
    if (isStateFile(path))
        importFromFile(path);
    else
        importFromDrawing(path);
}

void CLayerStatesRestoreDlg::noteRowsBeforeImport() {
    m_rowsBeforeImport = {};
    for (int row = 0; row < m_stateList.GetItemCount(); ++row)
        m_rowsBeforeImport.add(m_stateList.StateName(row));
}

void CLayerStatesRestoreDlg::importFromFile(const wchar_t* path) {
    noteRowsBeforeImport();
    CString name;
    if (restoreOrImport(0, name, path, nullptr))
        afterImport(name, path, true);
    else
        tellNotImported();
}

void CLayerStatesRestoreDlg::importFromDrawing(const wchar_t* path) {
    if (!checkDrawingForStates(path))
        return;
    KelArray<KelString> names(0, 8);
    {
        CLayerStatesImportDlg dialog(this, path);
        if (dialog.DoModal() != IDOK)
            return;
        names = dialog.m_selectedNames;
    }
    if (names.isEmpty())
        return;
    if (importStates(path, names))
        afterImport(L"", path, false);
    else
        tellNotImported();
}

bool CLayerStatesRestoreDlg::importStates(const wchar_t* path, const KelArray<KelString>& names) {
    const SideDrawing source = readSideDrawing(path);
    if (!source.database)
        return false;
    noteRowsBeforeImport();
    for (const KelString& each : names) {
        CString name = each.kwszPtr();
        if (!restoreOrImport(0, name, nullptr, source.database.get()))
            return false; // what has come so far stays
    }
    return true;
}

bool CLayerStatesRestoreDlg::checkDrawingForStates(const wchar_t* path) {
    const SideDrawing source = readSideDrawing(path);
    if (!source.database) {
        showFailure(*this, unreadableText(path, source.status));
        return false;
    }
    KelDbLayerStateManager* states = source.database->getLayerStateManager();
    if (!states)
        return false;
    KelArray<KelString> names(0, 8);
    if (states->getLayerStateNames(names, true, true) == Vorn::eOk && !names.isEmpty())
        return true;
    static_cast<void>(showTaskDialog(kNoneFoundKey));
    return false;
}

void CLayerStatesRestoreDlg::tellNotImported() {
    showFailure(*this, loadResourceString(IDS_LSTATE_NOT_IMPORTED));
}

void CLayerStatesRestoreDlg::importState(KelDbLayerStateManager& states, const wchar_t* name, const wchar_t* fileName,
                                         KelDbDatabase* source) {
    KelString foundName;
    for (;;) {
        const Vorn::ErrorStatus status =
            source ? states.importLayerStateFromDb(name, source) : states.importLayerState(fileName, foundName);
        if (status != Vorn::eDuplicateRecordName) {
            reportRestoreFailure(static_cast<unsigned int>(status));
            return;
        }
        const CString taken = source ? name : foundName.kwszPtr();
        if (taken.IsEmpty() && !source)
            static_cast<void>(showTaskDialog(kDuplicatesKey)); // the question comes all the same; kept on purpose
        if (!askReplace(taken))
            return;
        if (states.deleteLayerState(taken) != Vorn::eOk) {
            ::MessageBoxW(m_hWnd, loadResourceString(IDS_LSTATE_NOT_IMPORTED), nullptr, MB_OK | MB_ICONINFORMATION);
            return;
        }
    }
}

int CLayerStatesRestoreDlg::findNewState(CString& name, LayerStateMask& mask) {
    KelDbLayerStateManager* states = workingStates();
    if (!states)
        return 0;
    return findStateWithoutRow(*states, m_rowsBeforeImport, name, mask);
}

std::unique_ptr<KelDbXrecord> CLayerStatesRestoreDlg::newStateRecord(CString& name) {
    LayerStateMask mask = 0;
    if (!findNewState(name, mask))
        return nullptr;
    std::unique_ptr<KelDbXrecord> record(copyStateRecord(kCloneRecord, name, nullptr));
    return name.IsEmpty() ? nullptr : std::move(record);
}

void CLayerStatesRestoreDlg::afterImport(const wchar_t* name, const wchar_t* path, bool ask) {
    m_stateList.EnableWindow(TRUE);
    repopulate();
    const int row = m_stateList.FindState(name);
    if (row < 0)
        return;
    m_stateList.SelectRow(row);
    m_stateList.EnsureVisible(row, FALSE);
    if (!ask)
        return;
    const TASKDIALOG_KEYVALUE pairs[] = {{L"FileName", path}};
    if (showTaskDialog(kImportedKey, pairs, 1) == kTaskDialogFirstCommand)
        OnRestore();
}
