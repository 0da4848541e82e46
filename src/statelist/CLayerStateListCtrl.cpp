#include "CLayerStateListCtrl.h"

#include "CResourceScope.h"
#include "KelEditor.h"
#include "ListRedrawLock.h"
#include "StateDescription.h"
#include "resource.h"

namespace {

/// How many characters of a name a row is read with, the terminating null included.
constexpr int kNameBufferSize = 259;
/// The id that a list view gives its header.
constexpr UINT kHeaderId = 0;
/// Number of the host's word for model space.
constexpr int kModelSpaceWord = 10;

/// Where the state was saved: from a reference, with a viewport, or in model space.
CString spaceText(KelDbLayerStateManager& states, const wchar_t* name) {
    if (states.isDependentLayerState(name))
        return loadResourceString(IDS_LSTATE_SPACE_REFERENCE);
    if (states.layerStateHasViewportData(name))
        return loadResourceString(IDS_LSTATE_SPACE_VIEWPORT);
    return keldbGetReservedString(kModelSpaceWord, true);
}

} // namespace

BEGIN_MESSAGE_MAP(CLayerStateListCtrl, CCustomListCtrl)
ON_NOTIFY(HDN_ITEMCLICKA, kHeaderId, &CLayerStateListCtrl::OnHeaderClick)
ON_NOTIFY(HDN_ITEMCLICKW, kHeaderId, &CLayerStateListCtrl::OnHeaderClick)
ON_MESSAGE(LVM_EDITLABELW, &CLayerStateListCtrl::OnEditLabel)
ON_NOTIFY_REFLECT(LVN_BEGINLABELEDITW, &CLayerStateListCtrl::OnBeginLabelEdit)
ON_NOTIFY_REFLECT(LVN_ENDLABELEDITW, &CLayerStateListCtrl::OnEndLabelEdit)
ON_NOTIFY_REFLECT(NM_CLICK, &CLayerStateListCtrl::OnClick)
ON_NOTIFY_REFLECT_EX(LVN_ITEMCHANGED, &CLayerStateListCtrl::OnItemChanged)
ON_NOTIFY_REFLECT(LVN_DELETEITEM, &CLayerStateListCtrl::OnDeleteItem)
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_MOUSEWHEEL()
ON_MESSAGE(WM_MOUSEHWHEEL, &CLayerStateListCtrl::OnMouseHWheel)
ON_NOTIFY(kInPlaceEditLeft, IDC_LSTATE_INPLACE_EDIT, &CLayerStateListCtrl::OnCellEditLeft)
ON_NOTIFY(kInPlaceEditCancelled, IDC_LSTATE_INPLACE_EDIT, &CLayerStateListCtrl::OnCellEditCancelled)
END_MESSAGE_MAP()

CLayerStateListCtrl::CLayerStateListCtrl()
    : m_labelEditActive(0), m_trackedRow(-1), m_labelEditRetry(0), m_cellEditEnabled(1), m_sortColumn(-1),
      m_sortAscending(1), m_activeEdit(nullptr), m_editRow(-1), m_editColumn(-1), m_severalSelected(false),
      m_checkingName(false), m_sorting(false) {}

CLayerStateListCtrl::~CLayerStateListCtrl() = default;

void CLayerStateListCtrl::InsertColumns(std::span<const ListColumn> columns) {
    CRect window;
    GetWindowRect(&window);
    int index = 0;
    for (const ListColumn& column : columns) {
        const CString heading = loadResourceString(column.headingId);
        InsertColumn(index, heading, LVCFMT_LEFT, columnWidth(window.Width(), column.fraction), index);
        ++index;
    }
}

CString CLayerStateListCtrl::StateName(int row) const {
    wchar_t name[kNameBufferSize] = {};
    GetItemText(row, nameColumn, name, kNameBufferSize);
    return name;
}

int CLayerStateListCtrl::FindState(const wchar_t* name) const {
    const int rows = GetItemCount();
    for (int row = 0; row < rows; ++row) {
        const CString candidate = StateName(row);
        if (!candidate.IsEmpty() && candidate.CompareNoCase(name) == 0)
            return row;
    }
    return -1;
}

bool CLayerStateListCtrl::PopulateStates(KelDbDatabase* database, bool includeDependent, bool compareToDrawing) {
    ListRedrawLock quiet(*this);
    DeleteAllItems();
    m_labelEditActive = 0; // the row is gone
    m_labelEditRetry = 0;
    KelDbLayerStateManager* states = database ? database->getLayerStateManager() : nullptr;
    if (!states)
        return false;
    AppendNames(*states, includeDependent);
    const int rows = GetItemCount();
    for (int row = 0; row < rows; ++row)
        FillRow(*states, row, compareToDrawing);
    return rows >= 1;
}

void CLayerStateListCtrl::AppendNames(KelDbLayerStateManager& states, bool includeDependent) {
    KelArray<KelString> names(0, 8);
    // A failure isn't reported: the list stays empty.
    if (states.getLayerStateNames(names, false, includeDependent) != Vorn::eOk)
        return;
    for (int index = 0; index < names.length(); ++index)
        InsertItem(LVIF_TEXT, index, names[index].kwszPtr(), 0, 0, 0, 0);
}

void CLayerStateListCtrl::FillRow(KelDbLayerStateManager& states, int row, bool compareToDrawing) {
    const CString name = StateName(row);
    if (name.IsEmpty())
        return;
    LayerStateMask mask = 0;
    static_cast<void>(states.getLayerStateMask(name, mask)); // a failure leaves 0; nothing reads the item data
    SetItemData(row, static_cast<DWORD_PTR>(static_cast<INT_PTR>(static_cast<std::int32_t>(mask))));
    SetItemText(row, spaceColumn, spaceText(states, name));
    if (compareToDrawing) {
        const bool same = states.compareLayerStateToDb(name, keledGetCurViewportObjectId());
        SetItemText(row, sameColumn, loadResourceString(same ? IDS_LSTATE_YES : IDS_LSTATE_NO));
    }
    if (const std::optional<CString> description = stateDescription(states, name))
        SetItemText(row, compareToDrawing ? descriptionColumn : sameColumn, *description);
}
