// What OnToolHitTest is given and what becomes of its answer: places, ids, and texts that are freed.
#include "ImportFaults.h"
#include "ImportTable.h"
#include "ToolTipFixture.h"

#include <map>

namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::Ge;
using testing::Pair;
using testing::SizeIs;
using ui::Script;
using ui::View;

/// Makes texts, and counts how often the library frees each. They stay in memory until this one goes, so that no two
/// have one address.
class TextCounter {
  public:
    TextCounter() {
        s_current = this;
        forEachImport(::GetModuleHandle(L"kelmfc.dll"), [this](const char* name, void** entry) {
            if (std::string_view(name) != "free")
                return;
            m_entry = entry;
            m_before = *entry;
            writeImport(entry, reinterpret_cast<void*>(&count));
        });
    }
    ~TextCounter() {
        writeImport(m_entry, m_before);
        for (const auto& [text, times] : freed)
            std::free(text);
        s_current = nullptr;
    }
    TextCounter(const TextCounter&) = delete;
    TextCounter& operator=(const TextCounter&) = delete;

    wchar_t* make(const wchar_t* text) {
        wchar_t* const made = _wcsdup(text);
        freed[made] = 0;
        return made;
    }

    std::map<void*, int> freed;
    int strangeAddresses = 0; ///< how often no text was freed, but a number in the place of one

  private:
    static void count(void* memory) {
        const auto found = s_current->freed.find(memory);
        if (found != s_current->freed.end())
            ++found->second;
        else if (memory == LPSTR_TEXTCALLBACK || (memory && IS_INTRESOURCE(memory)))
            ++s_current->strangeAddresses;
        else
            std::free(memory);
    }
    static inline TextCounter* s_current = nullptr;
    void** m_entry = nullptr;
    void* m_before = nullptr;
};

// Where the areas of the dialog below begin, in its client area; they are 40 wide.
constexpr int kBlank = 0;
constexpr int kOwned = 40;
constexpr int kNeighbour = 80;
constexpr int kResource = 120;
constexpr int kCallback = 160;

/// Has areas instead of controls: one without a tip that makes a text all the same, two with texts of its own, one with
/// a text of the resources, and one that asks for its text.
class AreasDialog : public CDialog {
  public:
    explicit AreasDialog(TextCounter& texts) : CDialog(IDD_NESTED), m_texts(texts) {}
    mutable int calls = 0;

    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        for (const int control : {IDC_OPEN, IDOK, IDCANCEL})
            GetDlgItem(control)->ShowWindow(SW_HIDE);
        return EnableToolTips();
    }
    INT_PTR OnToolHitTest(CPoint point, TOOLINFO* tool) const override {
        ++calls;
        seeThatItIsEmpty(point, *tool);
        const int area = point.x / kOwned * kOwned;
        tool->hwnd = m_hWnd;
        tool->uId = static_cast<UINT_PTR>(area);
        tool->rect = CRect(area, 0, area + kOwned, 100);
        switch (area) {
        case kOwned:
            tool->lpszText = m_texts.make(L"owned");
            return area;
        case kNeighbour:
            tool->lpszText = m_texts.make(L"neighbour");
            return area;
        case kResource:
            tool->hinst = AfxGetInstanceHandle();
            tool->lpszText = MAKEINTRESOURCE(IDS_PLAIN);
            return area;
        case kCallback:
            tool->lpszText = LPSTR_TEXTCALLBACK;
            return area;
        default:
            tool->lpszText = m_texts.make(L"nobody sees it");
            return -1;
        }
    }
    Script& pointAt(Script& script, int area, int right = 0) {
        return script.pointAt([this, area, right] {
            CPoint point(area + 10 + right, 20);
            ClientToScreen(&point);
            return point;
        });
    }

  protected:
    BOOL OnNeedText(UINT, NMHDR* header, LRESULT*) {
        EXPECT_EQ(header->idFrom, UINT_PTR{kCallback});
        ::lstrcpy(reinterpret_cast<NMTTDISPINFO*>(header)->szText, L"asked for");
        return TRUE;
    }
    DECLARE_MESSAGE_MAP()

  private:
    void seeThatItIsEmpty(CPoint point, const TOOLINFO& tool) const {
        CRect client;
        GetClientRect(client);
        EXPECT_TRUE(client.PtInRect(point)) << point.x << " " << point.y;
        TOOLINFO empty{};
        empty.cbSize = TTTOOLINFOW_V1_SIZE;
        EXPECT_EQ(std::memcmp(&tool, &empty, sizeof tool), 0);
    }
    TextCounter& m_texts;
};

// clang-format off
BEGIN_MESSAGE_MAP(AreasDialog, CDialog)
    ON_NOTIFY_EX(TTN_NEEDTEXT, 0, &AreasDialog::OnNeedText)
END_MESSAGE_MAP()
// clang-format on

class ToolTipTextTest : public ToolTipFixture {
  protected:
    static std::vector<UINT_PTR> tools() {
        std::vector<UINT_PTR> ids;
        const std::vector<HWND> windows = tipWindows();
        for (int i = 0; !windows.empty(); ++i) {
            TOOLINFO tool{};
            tool.cbSize = TTTOOLINFOW_V1_SIZE;
            if (!::SendMessage(windows[0], TTM_ENUMTOOLS, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&tool)))
                break;
            ids.push_back(tool.uId);
        }
        return ids;
    }
    TextCounter texts;
    AreasDialog dialog{texts};
    Script script;
};

TEST_F(ToolTipTextTest, EachAreaWithAnIdOfItsOwnHasItsTipAndOneToolIsThereAtATime) {
    struct Case {
        int area;
        const wchar_t* text;
    };
    for (const Case& each : {Case{kOwned, L"owned"},
                             {kNeighbour, L"neighbour"},
                             {kResource, L"A plain text."},
                             {kCallback, L"asked for"},
                             {kNeighbour, L"neighbour"}}) {
        dialog.pointAt(script, each.area).waitForTip(each.text);
        act(script, [each] { EXPECT_THAT(tools(), testing::ElementsAre(each.area)); });
    }
    dialog.pointAt(script, kBlank).waitForTip(L"");
    act(script, [] { EXPECT_THAT(tools(), testing::IsEmpty()); });
    run(dialog, dialog.pointAt(script, kNeighbour).waitForTip(L"neighbour"));
}

TEST_F(ToolTipTextTest, EveryTextIsFreedOnce) {
    for (const int area : {kBlank, kOwned, kNeighbour, kOwned, kBlank, kResource})
        for (const int right : {0, 4, 8, 12})
            dialog.pointAt(script, area, right);
    run(dialog, script);
    EXPECT_THAT(texts.freed, AllOf(SizeIs(Ge(20u)), Each(Pair(testing::_, 1))));
}

TEST_F(ToolTipTextTest, ATipWindowThatCantBeMadeIsTriedAgainAtTheNextMove) {
    for (const char* function : {"CreateWindowExW", "SetWindowsHookExW"}) {
        SCOPED_TRACE(function);
        const ImportFaults faults({L"kelmfc.dll"});
        Script each;
        act(each, [function] { ImportFaults::begin(function, 1); });
        dialog.pointAt(each, kOwned).waitUntil("it fails", [](const View&) { return ImportFaults::struck(); });
        run(dialog, dialog.pointAt(each, kOwned, 5).waitForTip(L"owned"));
    }
    EXPECT_THAT(texts.freed, Each(Pair(testing::_, 1)));
}

TEST_F(ToolTipTextTest, WhatIsNoTextIsNotFreed) {
    for (const int area : {kResource, kCallback})
        for (const int right : {0, 4, 8})
            dialog.pointAt(script, area, right);
    run(dialog, script);
    EXPECT_GE(dialog.calls, 6);
    EXPECT_EQ(texts.strangeAddresses, 0);
}

} // namespace
