// Export: the selected state goes into a layer states file, also on a server.
#include "CLayerStatesRestoreDlg.h"
#include "CResourceScope.h"
#include "FileChoice.h"
#include "KelDbLayerStateManager.h"
#include "MessageBoxes.h"
#include "OrvUiInternet.h"
#include "WorkingDatabase.h"
#include "resource.h"

namespace {

constexpr int kSave = 1;
constexpr int kTransferFlags = 1;

/// Writes the state to the file, or to a temporary one that then goes to the address.
bool exportTo(KelDbLayerStateManager& states, const wchar_t* name, const wchar_t* path) {
    CProxyInet* internet = CProxyInet::GetProxyInet();
    OrvXREFString local;
    // A server that has no such file yet is what tells an address that can be written to.
    const bool upload =
        internet && internet->TransferFile(path, local, kInetFetch, kTransferFlags) == eInetTargetAbsent;
    if (upload)
        internet->CreateInternetTempFile(path, local);
    if (states.exportLayerState(name, upload ? static_cast<const wchar_t*>(local) : path) != Vorn::eOk)
        return false;
    return !upload || internet->TransferFile(path, local, kInetUpload, kTransferFlags) == eInetOk;
}

} // namespace

void CLayerStatesRestoreDlg::OnExport() {
    if (m_stateList.m_labelEditActive)
        return;
    const int row = m_stateList.FirstSelectedRow();
    const CString name = row < 0 ? CString() : m_stateList.StateName(row);
    KelDbLayerStateManager* states = name.IsEmpty() ? nullptr : workingStates();
    if (!states)
        return;
    const CString path = chooseFile(IDS_LSTATE_EXPORT_TITLE, name, kStateFileExtension, kSave);
    SetFocus();
    if (path.IsEmpty())
        return;
    m_stateList.EnableWindow(TRUE);
    if (!exportTo(*states, name, path))
        showFailure(*this, loadResourceString(IDS_LSTATE_EXPORT_FAILED));
}
