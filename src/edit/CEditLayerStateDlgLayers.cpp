// Bringing layers into the edited state, and taking them out.
#include "CAddLayerFromZDRDlg.h"
#include "CEditLayerStateDlg.h"
#include "KelDbDatabase.h"
#include "LayerRecords.h"
#include "ListRedrawLock.h"
#include "StateReading.h"

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
    const ListRedrawLock quiet(m_layerGrid);
    // The next painting measures what is left.
    zeroWidths(m_columnWidths);
    for (int row = firstSelectedRow(); row >= 0; row = m_layerGrid.GetNextItem(row - 1, LVNI_SELECTED)) {
        if (CLayerRcd* record = recordOf(row))
            record->markRemoved();
        if (!m_layerGrid.DeleteItem(row))
            return;
    }
}
