// The edit dialog's message map, set-up and end.
#include "CEditLayerStateDlg.h"

#include "CResourceScope.h"
#include "DialogHelp.h"
#include "EditDialogLayout.h"
#include "GridColumns.h"
#include "LayerOrder.h"
#include "LayerRecords.h"
#include "LayerRows.h"
#include "StateCommit.h"
#include "StateImages.h"
#include "StateReading.h"
#include "WorkingDatabase.h"
#include "resource.h"

namespace {

constexpr const wchar_t* kDialogName = L"KelLayerApps:LayerStatesEdit";
constexpr const wchar_t* kHelpTopic = L"EDITLAYERSTATESDIALOG";
constexpr int kListBlock = 10;

} // namespace

BEGIN_MESSAGE_MAP(CEditLayerStateDlg, CKelUiDialog)
ON_NOTIFY(NM_CLICK, IDC_LAYER_GRID, &CEditLayerStateDlg::OnGridClick)
ON_NOTIFY(NM_DBLCLK, IDC_LAYER_GRID, &CEditLayerStateDlg::OnGridDoubleClick)
ON_NOTIFY(LVN_ITEMCHANGING, IDC_LAYER_GRID, &CEditLayerStateDlg::OnGridItemChanging)
ON_NOTIFY(LVN_COLUMNCLICK, IDC_LAYER_GRID, &CEditLayerStateDlg::OnHeadingClick)
ON_NOTIFY_RANGE(HDN_DIVIDERDBLCLICKW, 0, 0xFFFF, &CEditLayerStateDlg::OnDividerDoubleClick)
ON_WM_DRAWITEM()
ON_NOTIFY_EX_RANGE(TTN_GETDISPINFOW, 0, 0xFFFF, &CEditLayerStateDlg::OnTipText)
ON_WM_SHOWWINDOW()
ON_BN_CLICKED(IDC_ADD_LAYERS, &CEditLayerStateDlg::OnAddLayers)
ON_BN_CLICKED(IDC_REMOVE_LAYERS, &CEditLayerStateDlg::OnRemoveLayers)
ON_COMMAND(ID_HELP, &CEditLayerStateDlg::onHelpCommand)
END_MESSAGE_MAP()

CEditLayerStateDlg::CEditLayerStateDlg(CWnd* parent)
    : CKelUiDialog(IDD_EDIT_LAYER_STATE, parent), m_layers(kListBlock), m_database(workingDatabase()), m_sortKey(0),
      m_keepSelection(false) {
    m_layerGrid.SetOrvUiParent(this);
}

CEditLayerStateDlg::~CEditLayerStateDlg() {
    deleteRecords(m_layers);
}

BOOL CEditLayerStateDlg::OnNotify(WPARAM control, LPARAM header, LRESULT* result) {
    // Past what the framework's dialogs add.
    return CWnd::OnNotify(control, header, result);
}

void CEditLayerStateDlg::DoDataExchange(CDataExchange* exchange) {
    CKelUiDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_LAYER_GRID, m_layerGrid);
}

BOOL CEditLayerStateDlg::OnInitDialog() {
    SetDialogName(kDialogName);
    CKelUiDialog::OnInitDialog();
    setEditDialogLayout(*this);
    setUpTips(*this);
    CString title;
    GetWindowText(title);
    SetWindowText(title + L": " + m_stateName);
    populateLayers(); // an empty state is shown as an empty grid
    loadStateImages();
    m_layerGrid.SetImageList(&g_stateImages, LVSIL_SMALL);
    CClientDC dc(&m_layerGrid);
    m_gridImages.paint(g_stateImages, dc);
    insertColumns();
    setHeadingImages();
    setButtonIcon(IDC_REMOVE_LAYERS, IDI_LSTATE_REMOVE_LAYERS);
    setButtonIcon(IDC_ADD_LAYERS, IDI_LSTATE_ADD_LAYERS);
    EnableToolTips(TRUE);
    rebuildRows();
    m_layerGrid.SetExtendedStyle(m_layerGrid.GetExtendedStyle() | LVS_EX_FULLROWSELECT);
    GetColumnSizes(&m_layerGrid);
    SetPersistency(1);
    m_cellTip.Create(this, 0);
    m_cellTip.AddTool(&m_layerGrid, LPSTR_TEXTCALLBACK, nullptr, 0);
    return TRUE;
}

bool CEditLayerStateDlg::populateLayers() {
    return readStateLayers(m_database, m_stateName, m_layers);
}

void CEditLayerStateDlg::insertColumns() {
    int index = 0;
    for (const GridColumnShape& column : kGridColumns) {
        m_layerGrid.InsertColumn(index, loadResourceString(column.headingId), LVCFMT_LEFT, scaled(column.width), index);
        ++index;
    }
}

void CEditLayerStateDlg::setHeadingImages() {
    CHeaderCtrl* headings = m_layerGrid.GetHeaderCtrl();
    if (!headings || !loadHeadingImages(m_headingImages))
        return; // the texts alone, then
    headings->SetImageList(&m_headingImages);
    constexpr int kMargin = 4; // what is left and right of an image in the middle of a narrow column
    headings->SendMessage(HDM_SETBITMAPMARGIN, static_cast<WPARAM>(scaled(kMargin)));
    for (int column = 0; column < gridColumnCount; ++column) {
        HDITEM item = {};
        item.mask = HDI_FORMAT | HDI_IMAGE;
        item.fmt = HDF_LEFT | HDF_STRING | HDF_IMAGE;
        item.iImage = kGridColumns[column].headingImage;
        if (item.iImage >= 0)
            headings->SetItem(column, &item);
    }
}

void CEditLayerStateDlg::setButtonIcon(int button, UINT icon) {
    constexpr int kIconSide = 16;
    const CResourceScope scope;
    const auto image = static_cast<HICON>(::LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(icon), IMAGE_ICON,
                                                       scaled(kIconSide), scaled(kIconSide), LR_SHARED));
    SendDlgItemMessage(button, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(image));
    ::DestroyIcon(image); // at once, on purpose: the button can go on with it, since the icon is a shared one
}

void CEditLayerStateDlg::rebuildRows() {
    fillRows(m_layerGrid, m_layers, [this](int row, const CLayerRcd& record) {
        for (int column = 0; column < gridColumnCount; ++column)
            if (const auto flag = flagOfKind(columnKind[column]))
                m_layerGrid.SetItemText(row, column, flagText(record.*flag));
        m_layerGrid.SetItemText(row, linetypeGridColumn, record.m_linetypeName);
    });
}

CLayerRcd* CEditLayerStateDlg::recordOf(int row) const {
    return reinterpret_cast<CLayerRcd*>(m_layerGrid.GetItemData(row));
}

void CEditLayerStateDlg::OnHeadingClick(NMHDR* header, LRESULT* result) {
    sortRows<compareLayerRows>(m_layerGrid, m_sortKey, reinterpret_cast<const NMLISTVIEW*>(header)->iSubItem);
    *result = 0;
}

void CEditLayerStateDlg::OnShowWindow(BOOL show, UINT status) {
    CKelUiDialog::OnShowWindow(show, status);
    EnableToolTips(show);
}

void CEditLayerStateDlg::OnOK() {
    KelDbLayerStateManager* states = m_database ? m_database->getLayerStateManager() : nullptr;
    SaveColumnSizes(&m_layerGrid);
    if (states) {
        commitRemovals(*states, m_stateName, m_layers);
        commitAdditions(*states, m_stateName, m_layers);
    }
    if (m_database)
        commitChanges(*m_database, m_stateName, m_layers);
    CKelUiDialog::OnOK();
}

void CEditLayerStateDlg::OnDialogHelp() {
    openHelp(kHelpTopic);
}
