// The list view, its header and its images.
#include "Program.h"

namespace {

using testing::ElementsAre;

constexpr UINT kList = 400;

int CALLBACK byDataDescending(LPARAM one, LPARAM other, LPARAM sign) {
    return static_cast<int>(sign) * static_cast<int>(other - one);
}

class ListCtrlTest : public MfcTest {
  protected:
    void SetUp() override {
        MfcTest::SetUp();
        ASSERT_TRUE(frame.Create());
        ASSERT_TRUE(list.Create(LVS_REPORT | LVS_SHOWSELALWAYS | LVS_EDITLABELS | WS_VISIBLE, CRect(0, 0, 350, 250),
                                &frame, kList));
        list.InsertColumn(0, L"Name", LVCFMT_LEFT, 120);
        list.InsertColumn(1, L"Color", LVCFMT_RIGHT, 80, 1);
        list.InsertItem(0, L"Walls");
        list.InsertItem(1, L"Doors");
        list.InsertItem(2, L"Windows");
    }
    void TearDown() override {
        frame.DestroyWindow();
        MfcTest::TearDown();
    }
    std::vector<CString> names() const {
        std::vector<CString> all;
        for (int i = 0; i < list.GetItemCount(); ++i)
            all.push_back(list.GetItemText(i, 0));
        return all;
    }
    Frame frame;
    CListCtrl list;
};

TEST_F(ListCtrlTest, TextsOfItemsAndSubitemsAreSetAndRead) {
    EXPECT_TRUE(list.SetItemText(1, 1, L"red"));
    EXPECT_EQ(list.GetItemText(1, 1), L"red");
    EXPECT_EQ(list.GetItemText(0, 1), L"");
    EXPECT_EQ(list.GetItemText(9, 0), L"");
    wchar_t buffer[4];
    EXPECT_EQ(list.GetItemText(2, 0, buffer, 4), 3);
    EXPECT_STREQ(buffer, L"Win");
}

TEST_F(ListCtrlTest, LongTextsAreReadWhole) {
    for (const int length : {126, 127, 128, 250, 255, 256, 257}) {
        list.SetItemText(0, 0, CString(L'x', length));
        EXPECT_EQ(list.GetItemText(0, 0).GetLength(), length);
    }
}

TEST_F(ListCtrlTest, DataFollowsTheItemWhenItIsSorted) {
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(list.SetItemData(i, static_cast<DWORD_PTR>(i * 10)));
    EXPECT_TRUE(list.SortItems(byDataDescending, 1));
    EXPECT_THAT(names(), ElementsAre(CString(L"Windows"), CString(L"Doors"), CString(L"Walls")));
    EXPECT_EQ(list.GetItemData(0), 20u);
    EXPECT_EQ(list.GetItemData(2), 0u);
    EXPECT_EQ(list.GetItemData(9), 0u);
}

TEST_F(ListCtrlTest, TheSelectionIsGoneThroughByPositions) {
    EXPECT_EQ(list.GetFirstSelectedItemPosition(), nullptr);
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    list.SetItemState(2, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    EXPECT_EQ(list.GetSelectedCount(), 2u);
    std::vector<int> selected;
    for (POSITION at = list.GetFirstSelectedItemPosition(); at;)
        selected.push_back(list.GetNextSelectedItem(at));
    EXPECT_THAT(selected, ElementsAre(0, 2));
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 2);
    EXPECT_EQ(list.GetItemState(2, LVIS_SELECTED), static_cast<UINT>(LVIS_SELECTED));
    EXPECT_EQ(list.GetItemState(1, LVIS_SELECTED), 0u);
}

TEST_F(ListCtrlTest, ChecksAreSetAndRead) {
    list.SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
    EXPECT_TRUE(list.GetExtendedStyle() & LVS_EX_CHECKBOXES);
    EXPECT_FALSE(list.GetCheck(1));
    EXPECT_TRUE(list.SetCheck(1));
    EXPECT_TRUE(list.GetCheck(1));
    list.SetCheck(1, FALSE);
    EXPECT_FALSE(list.GetCheck(1));
}

TEST_F(ListCtrlTest, ItemsAreInsertedWithAllTheirPartsAndDeleted) {
    EXPECT_EQ(list.InsertItem(LVIF_TEXT | LVIF_PARAM | LVIF_STATE, 1, L"Roof", LVIS_SELECTED, LVIS_SELECTED, 0, 77), 1);
    EXPECT_EQ(list.GetItemData(1), 77u);
    EXPECT_EQ(list.GetSelectedCount(), 1u);
    EXPECT_TRUE(list.SetItem(1, 1, LVIF_TEXT, L"blue", 0, 0, 0, 0));
    EXPECT_EQ(list.GetItemText(1, 1), L"blue");
    EXPECT_TRUE(list.DeleteItem(0));
    EXPECT_THAT(names(), ElementsAre(CString(L"Roof"), CString(L"Doors"), CString(L"Windows")));
    LVFINDINFO find{};
    find.flags = LVFI_STRING;
    find.psz = L"Doors";
    EXPECT_EQ(list.FindItem(&find), 1);
    EXPECT_TRUE(list.DeleteAllItems());
    EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(ListCtrlTest, ColumnsHaveWidthsFormatsAndAnOrder) {
    EXPECT_EQ(list.GetColumnWidth(0), 120);
    LVCOLUMN column{};
    column.mask = LVCF_FMT;
    ASSERT_TRUE(list.GetColumn(1, &column));
    EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
    EXPECT_EQ(list.InsertColumn(2, L"Plot"), 2);
    EXPECT_TRUE(list.SetColumnWidth(2, 55));
    EXPECT_EQ(list.GetColumnWidth(2), 55);
    int order[3] = {2, 0, 1};
    EXPECT_TRUE(list.SetColumnOrderArray(3, order));
    int read[3] = {};
    EXPECT_TRUE(list.GetColumnOrderArray(read));
    EXPECT_THAT(read, ElementsAre(2, 0, 1));
    EXPECT_EQ(list.GetHeaderCtrl()->OrderToIndex(0), 2);
    EXPECT_TRUE(list.DeleteColumn(2));
    EXPECT_EQ(list.GetHeaderCtrl()->GetItemCount(), 2);
}

TEST_F(ListCtrlTest, HeaderItemsAreReadAndMarked) {
    CHeaderCtrl* const header = list.GetHeaderCtrl();
    ASSERT_TRUE(header);
    HDITEM item{};
    wchar_t text[20] = {};
    item.mask = HDI_TEXT | HDI_FORMAT;
    item.pszText = text;
    item.cchTextMax = 20;
    ASSERT_TRUE(header->GetItem(1, &item));
    EXPECT_STREQ(text, L"Color");
    item.mask = HDI_FORMAT;
    item.fmt |= HDF_SORTUP;
    EXPECT_TRUE(header->SetItem(1, &item));
    item.fmt = 0;
    header->GetItem(1, &item);
    EXPECT_TRUE(item.fmt & HDF_SORTUP);
    CRect rect;
    ASSERT_TRUE(header->GetItemRect(1, rect));
    EXPECT_EQ(rect.Width(), 80);
}

TEST_F(ListCtrlTest, PlacesAndHitsAgree) {
    CRect cell;
    ASSERT_TRUE(list.GetSubItemRect(1, 1, LVIR_BOUNDS, cell));
    EXPECT_EQ(cell.Width(), 80);
    LVHITTESTINFO hit{};
    hit.pt = cell.CenterPoint();
    EXPECT_EQ(list.SubItemHitTest(&hit), 1);
    EXPECT_EQ(hit.iSubItem, 1);
    CRect label;
    ASSERT_TRUE(list.GetItemRect(2, label, LVIR_LABEL));
    UINT flags = 0;
    EXPECT_EQ(list.HitTest(label.CenterPoint(), &flags), 2);
    EXPECT_TRUE(flags & LVHT_ONITEMLABEL);
    EXPECT_EQ(list.HitTest(CPoint(5, 240)), -1);
}

TEST_F(ListCtrlTest, ALabelIsEditedInAControlOfItsOwn) {
    list.SetFocus();
    CEdit* const edit = list.EditLabel(1);
    ASSERT_TRUE(edit);
    CString text;
    edit->GetWindowText(text);
    EXPECT_EQ(text, L"Doors");
    EXPECT_EQ(list.GetEditControl(), edit);
    list.CancelEditLabel();
    EXPECT_EQ(list.GetEditControl(), nullptr);
}

TEST_F(ListCtrlTest, ImageListsAreSharedOrNot) {
    list.ModifyStyle(0, LVS_SHAREIMAGELISTS);
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32 | ILC_MASK, 2, 2));
    EXPECT_EQ(images.Add(::LoadIcon(nullptr, IDI_WARNING)), 0);
    EXPECT_EQ(images.GetImageCount(), 1);
    EXPECT_EQ(list.SetImageList(&images, LVSIL_SMALL), nullptr);
    EXPECT_EQ(list.GetImageList(LVSIL_SMALL), &images);
    EXPECT_EQ(list.SetImageList(nullptr, LVSIL_SMALL), &images);
    EXPECT_TRUE(images.Remove(0));
    EXPECT_EQ(images.GetImageCount(), 0);
}

TEST_F(ListCtrlTest, AnImageListIsDestroyedWithItsObjectUnlessDetached) {
    HIMAGELIST handle = nullptr;
    {
        CImageList images;
        ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 1, 1));
        handle = images.Detach();
        EXPECT_EQ(images.m_hImageList, nullptr);
        EXPECT_FALSE(images.DeleteImageList());
    }
    EXPECT_EQ(::ImageList_GetImageCount(handle), 0);
    CImageList owner;
    ASSERT_TRUE(owner.Attach(handle));
    EXPECT_EQ(CImageList::FromHandlePermanent(handle), &owner);
    EXPECT_TRUE(owner.DeleteImageList());
    EXPECT_EQ(CImageList::FromHandlePermanent(handle), nullptr);
}

} // namespace
