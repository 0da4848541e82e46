#include "CAddLayerFromZDRDlg.h"

#include "CResourceScope.h"
#include "DialogHelp.h"
#include "EditDialogLayout.h"
#include "HostOwners.h"
#include "HostPrompts.h"
#include "KelDbPointers.h"
#include "LayerOrder.h"
#include "LayerRecords.h"
#include "LayerRows.h"
#include "NewOrNull.h"
#include "resource.h"

#include <memory>
#include <set>
#include <string_view>

namespace {

constexpr const wchar_t* kDialogName = L"KelLayerApps:LayerStatesAddLayers";
constexpr const wchar_t* kHelpTopic = L"SELECTLAYERSTOADDDIALOG";
constexpr const wchar_t* kNothingToAddKey = L"KelLayerApps.LayerStateAddLayer";
constexpr int kListBlock = 10;

} // namespace

BEGIN_MESSAGE_MAP(CAddLayerFromZDRDlg, CKelUiDialog)
ON_NOTIFY(LVN_COLUMNCLICK, IDC_LAYER_GRID, &CAddLayerFromZDRDlg::OnHeadingClick)
ON_COMMAND(ID_HELP, &CAddLayerFromZDRDlg::onHelpCommand)
END_MESSAGE_MAP()

CAddLayerFromZDRDlg::CAddLayerFromZDRDlg(CWnd* parent)
    : CKelUiDialog(IDD_ADD_LAYERS, parent), m_existingNames(0, 8), m_selectedIds(0, 8), m_database(nullptr),
      m_layers(kListBlock), m_sortKey(0) {}

CAddLayerFromZDRDlg::~CAddLayerFromZDRDlg() {
    deleteRecords(m_layers);
}

void CAddLayerFromZDRDlg::DoDataExchange(CDataExchange* exchange) {
    CKelUiDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_LAYER_GRID, m_layerGrid);
}

BOOL CAddLayerFromZDRDlg::OnInitDialog() {
    SetDialogName(kDialogName);
    CKelUiDialog::OnInitDialog();
    setEditDialogLayout(*this);
    setUpTips(*this);
    insertColumns();
    const KelDbSymbolTablePointer<KelDbLayerTable> table(m_database, KelDb::kForRead);
    if (table.openStatus() == Vorn::eOk)
        readLayers(*table.object());
    else
        EndDialog(IDOK);
    fillRows(m_layerGrid, m_layers,
             [this](int row, const CLayerRcd& record) { m_layerGrid.SetItemText(row, 1, record.m_description); });
    m_layerGrid.SetItemState(0, LVIS_FOCUSED, LVIS_FOCUSED); // shows where the keyboard begins
    if (m_layerGrid.GetItemCount() == 0) {
        EndDialog(IDOK);
        static_cast<void>(showTaskDialog(kNothingToAddKey, nullptr, 1));
    }
    GetColumnSizes(&m_layerGrid);
    SetPersistency(1);
    return TRUE;
}

void CAddLayerFromZDRDlg::insertColumns() {
    CRect client;
    m_layerGrid.GetClientRect(&client);
    const int third = client.Width() / 3;
    m_layerGrid.InsertColumn(0, loadResourceString(IDS_LSTATE_COLUMN_NAME), LVCFMT_LEFT, third - 1, 0);
    // Any number behind the last column makes the next one.
    constexpr int kBehindAll = 11;
    m_layerGrid.InsertColumn(kBehindAll, loadResourceString(IDS_LSTATE_COLUMN_DESCRIPTION), LVCFMT_LEFT,
                             2 * (third - 1), 1);
}

void CAddLayerFromZDRDlg::readLayers(const KelDbLayerTable& table) {
    KelDbLayerTableIterator* found = nullptr;
    if (table.newIterator(found, true, true) != Vorn::eOk) {
        EndDialog(IDOK);
        return;
    }
    const std::unique_ptr<KelDbLayerTableIterator> iterator(found);
    // Equal names are those that KelString finds equal: the same characters. Names may be chosen to have equal hashes.
    std::set<std::wstring_view> inState;
    for (const KelString& existing : m_existingNames)
        inState.insert(existing.kwszPtr());
    for (; !iterator->done(); iterator->step(true, true)) {
        KelDbObjectId id;
        if (iterator->getRecordId(id) != Vorn::eOk)
            continue;
        const KelDbObjectPointer<KelDbLayerTableRecord> layer(id, KelDb::kForRead);
        const wchar_t* name = nullptr;
        if (layer.openStatus() != Vorn::eOk || layer->getName(name) != Vorn::eOk || inState.contains(name))
            continue;
        std::unique_ptr<CLayerRcd> record = newOrNull<CLayerRcd>();
        if (!record)
            return;
        record->m_name = name;
        record->m_layerId = id;
        if (const HostText description{layer->description()})
            record->m_description = description.get();
        m_layers.AddTail(record.get());
        record.release();
    }
}

void CAddLayerFromZDRDlg::OnHeadingClick(NMHDR* header, LRESULT* result) {
    sortRows<compareAddLayerRows>(m_layerGrid, m_sortKey, reinterpret_cast<const NMLISTVIEW*>(header)->iSubItem);
    *result = 0;
}

void CAddLayerFromZDRDlg::OnOK() {
    SaveColumnSizes(&m_layerGrid);
    m_selectedIds.setLogicalLength(0);
    for (int row = -1; (row = m_layerGrid.GetNextItem(row, LVNI_SELECTED)) >= 0;)
        if (const auto* record = reinterpret_cast<const CLayerRcd*>(m_layerGrid.GetItemData(row)))
            m_selectedIds.append(record->m_layerId);
    CKelUiDialog::OnOK();
}

void CAddLayerFromZDRDlg::OnDialogHelp() {
    openHelp(kHelpTopic);
}
