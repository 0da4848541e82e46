// CHeaderCtrl: the header of a list view, or one of its own. Items count from 0 in the order of insertion.
#pragma once

#include "CImageList.h"
#include "CWnd.h"

class AFXMFC_API CHeaderCtrl : public CWnd {
    DECLARE_DYNAMIC(CHeaderCtrl)
  public:
    using CWnd::Create;
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
        return CWnd::Create(WC_HEADER, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    int GetItemCount() const { return static_cast<int>(SendMessage(HDM_GETITEMCOUNT)); }
    BOOL GetItem(int nPos, HDITEM* pHeaderItem) const { return Ask(HDM_GETITEM, nPos, pHeaderItem); }
    BOOL SetItem(int nPos, HDITEM* pHeaderItem) { return Ask(HDM_SETITEM, nPos, pHeaderItem); }
    int InsertItem(int nPos, HDITEM* phdi) { return Ask(HDM_INSERTITEM, nPos, phdi); }
    BOOL DeleteItem(int nPos) { return Ask(HDM_DELETEITEM, nPos, nullptr); }
    BOOL GetItemRect(int nIndex, LPRECT lpRect) const { return Ask(HDM_GETITEMRECT, nIndex, lpRect); }
    int HitTest(LPHDHITTESTINFO phdhti) const { return Ask(HDM_HITTEST, 0, phdhti); }
    int OrderToIndex(int nOrder) const { return Ask(HDM_ORDERTOINDEX, nOrder, nullptr); }
    BOOL GetOrderArray(LPINT piArray, int iCount = -1) const {
        return Ask(HDM_GETORDERARRAY, iCount < 0 ? GetItemCount() : iCount, piArray);
    }
    BOOL SetOrderArray(int iCount, LPINT piArray) { return Ask(HDM_SETORDERARRAY, iCount, piArray); }
    CImageList* SetImageList(CImageList* pImageList) {
        const LPARAM list = reinterpret_cast<LPARAM>(pImageList ? pImageList->m_hImageList : nullptr);
        return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(SendMessage(HDM_SETIMAGELIST, 0, list)));
    }
    CImageList* GetImageList() const {
        return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(SendMessage(HDM_GETIMAGELIST)));
    }

    /// Draws an item with HDF_OWNERDRAW; the base draws nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}

  protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

  private:
    int Ask(UINT message, int index, const void* data) const {
        return static_cast<int>(SendMessage(message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(data)));
    }
};
