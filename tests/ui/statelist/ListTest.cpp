#include "ListTest.h"

#include "ModuleHandles.h"

using ui::Script;
using ui::TestDrawing;
using ui::View;

namespace {

/// The dialog around the list.
class ListDialog : public CDialog {
  public:
    ListDialog(CLayerStateListCtrl& list, std::function<void()> fill)
        : CDialog(IDD_TEST), m_list(list), m_fill(std::move(fill)) {}

    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        m_list.SubclassDlgItem(IDC_TEST_LIST, this);
        m_fill();
        m_list.SetFocus();
        return FALSE;
    }

  private:
    CLayerStateListCtrl& m_list;
    std::function<void()> m_fill;
};

} // namespace

void PrintTo(const Notification& notification, std::ostream* out) {
    *out << "{code " << static_cast<int>(notification.code) << ", answer " << notification.answer << ", "
         << (notification.ended ? "ended" : "goes on") << '}';
}

CString OpenList::editorText() const {
    CString text;
    m_inPlaceEdit.GetWindowText(text);
    return text;
}

std::vector<std::wstring> OpenList::column(int index) const {
    std::vector<std::wstring> texts;
    for (int row = 0; row < GetItemCount(); ++row)
        texts.emplace_back(GetItemText(row, index).GetString());
    return texts;
}

LRESULT OpenList::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool fromEditor = message == WM_NOTIFY && wParam == IDC_LSTATE_INPLACE_EDIT;
    if (fromEditor) {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        EXPECT_EQ(header.hwndFrom, m_inPlaceEdit.m_hWnd);
        EXPECT_EQ(header.idFrom, wParam);
        editorCodes.push_back(header.code);
    }
    onMessage(message, wParam, lParam);
    const LRESULT answer = CLayerStateListCtrl::WindowProc(message, wParam, lParam);
    EXPECT_TRUE(!fromEditor || answer == 0);
    return answer;
}

BOOL OpenList::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const BOOL ended = CLayerStateListCtrl::OnChildNotify(message, wParam, lParam, result);
    const UINT code = message == WM_NOTIFY ? reinterpret_cast<const NMHDR*>(lParam)->code : 0;
    if (code == NM_CLICK || code == LVN_ITEMCHANGED)
        notifications.push_back({code, *result, ended != FALSE});
    return ended;
}

void ListTest::SetUp() {
    HostTest::SetUp();
    g_resourceModule = LoadLibraryW(L"KelLayerAppsRes.dll");
    ASSERT_NE(g_resourceModule, nullptr);
}

void ListTest::TearDown() {
    FreeLibrary(g_resourceModule);
    g_resourceModule = nullptr;
    HostTest::TearDown();
}

TestDrawing ListTest::fourStates() {
    TestDrawing site;
    site.state(L"Survey", MaskOn);
    TestDrawing drawing;
    drawing.state(L"alpha", MaskOn).state(L"Beta", MaskColor, L"for the plan").state(L"gamma", MaskPlot);
    return drawing.reference(L"site", site);
}

bool ListTest::show(Script script, bool compareToDrawing) {
    const auto fill = [this, compareToDrawing] {
        const int columns = compareToDrawing ? 4 : 3;
        for (int column = 0; column < columns; ++column)
            m_list.InsertColumn(column, (L"Column " + std::to_wstring(column)).c_str(), LVCFMT_LEFT, 110, column);
        m_list.SetExtendedStyle(m_list.GetExtendedStyle() | LVS_EX_FULLROWSELECT);
        m_list.PopulateStates(&database(), true, compareToDrawing);
        instruments::clearTrace();
    };
    return ui::perform(std::move(script.click(IDCANCEL)), [&] { ListDialog(m_list, fill).DoModal(); });
}

void ListTest::lookAt(const TestDrawing& drawing, std::function<void()> see) {
    open(drawing);
    show(look("the list", std::move(see)));
}

Script ListTest::openCell(int row, int column) {
    return Script().clickCell(IDC_TEST_LIST, row, 0).clickCell(IDC_TEST_LIST, row, column);
}

Script ListTest::look(std::string what, std::function<void()> see) {
    return Script().look(std::move(what), [see = std::move(see)](const View&) { see(); });
}

Calls withService(const Calls& calls) {
    Calls all = {"keldbHostApplicationServices()", "workingDatabase() = object", "getLayerStateManager() = object"};
    all.insert(all.end(), calls.begin(), calls.end());
    return all;
}
