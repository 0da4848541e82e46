// Bringing layers into the edited state, and taking them out.
#include "CAddLayerFromZDRDlg.h"
#include "CEditLayerStateDlg.h"
#include "KelDbDatabase.h"
#include "LayerRecords.h"
#include "ListRedrawLock.h"
#include "ListSelection.h"
#include "StateReading.h"

#include <algorithm>

void CEditLayerStateDlg::OnAddLayers() {
    const KelArray<KelString> names = namesWithRows(m_layers);
    CAddLayerFromZDRDlg dialog(this);
    dialog.m_database = m_database;
    dialog.m_sortKey = 0;
    dialog.m_existingNames = names;
    const INT_PTR answer = dialog.DoModal();
    // The box that tells of nothing to add isn't the dialog's own: when it goes, none of our windows is the active one.
    SetActiveWindow();
    if (answer != IDOK)
        return;
    const KelArray<KelDbObjectId> ids = dialog.m_selectedIds;
    if (ids.isEmpty() || !m_database)
        return;
    for (const KelDbObjectId& id : ids) {
        bool outOfMemory = false;
        std::unique_ptr<CLayerRcd> record = readAddedLayer(*m_database, id, outOfMemory);
        if (outOfMemory)
            break;
        if (!record)
            continue;
        m_layers.AddTail(record.get());
        record.release();
    }
    rebuildRows();
}

void CEditLayerStateDlg::OnRemoveLayers() {
    // The next painting measures what is left.
    zeroWidths(m_columnWidths);
    const std::vector<int> rows = selectedRows();
    const int focused = m_layerGrid.GetNextItem(-1, LVNI_FOCUSED);
    const auto before = std::lower_bound(rows.begin(), rows.end(), focused) - rows.begin();
    const ListRedrawLock quiet(m_layerGrid);
    // With the selection and the focus on them, each row that goes would have the list tell of both and scroll.
    deselectAllRows(m_layerGrid);
    // From the last one up: a list moves all rows behind the one that it gives up.
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        recordOf(*row)->markRemoved();
        m_layerGrid.DeleteItem(*row);
    }
    // The focus stays with its row, or goes to the next one that is left.
    const int left = m_layerGrid.GetItemCount();
    if (focused >= 0 && left > 0)
        m_layerGrid.SetItemState(std::min(focused - static_cast<int>(before), left - 1), LVIS_FOCUSED, LVIS_FOCUSED);
}
