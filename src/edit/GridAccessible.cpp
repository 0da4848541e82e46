#include "GridAccessible.h"

#include "CLayerStateList.h"
#include "CResourceScope.h"
#include "RowDescription.h"

#include <new>
#include <objbase.h>
#include <utility>

namespace {

/// Hands over what `text` answers. What it throws must not reach the system.
template <class Text> HRESULT tell(BSTR* told, Text text) {
    if (!told)
        return E_POINTER;
    *told = nullptr;
    try {
        const CString answer = text();
        *told = ::SysAllocStringLen(answer, static_cast<UINT>(answer.GetLength()));
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (CMemoryException* exception) {
        exception->Delete();
    }
    return *told ? S_OK : E_OUTOFMEMORY;
}

/// The record of a row by the number that assistive programs give it, counted from 1; null for the list itself and for
/// what isn't a row.
const CLayerRcd* recordOf(const CLayerStateList* grid, const VARIANT& child) {
    const bool isRow = grid && child.vt == VT_I4 && child.lVal >= 1 && child.lVal <= grid->GetItemCount();
    return isRow ? reinterpret_cast<const CLayerRcd*>(grid->GetItemData(child.lVal - 1)) : nullptr;
}

} // namespace

GridAccessible* GridAccessible::make(const CLayerStateList& grid) {
    void* made = nullptr;
    if (FAILED(::CreateStdAccessibleObject(grid.m_hWnd, OBJID_CLIENT, __uuidof(IAccessible), &made)))
        return nullptr;
    AccessibleHolder standard(static_cast<IAccessible*>(made));
    return new (std::nothrow) GridAccessible(grid, std::move(standard));
}

void GridAccessible::disconnect() {
    m_grid = nullptr;
    StandardAccessible::disconnect();
}

HRESULT GridAccessible::get_accName(VARIANT child, BSTR* name) {
    const CLayerRcd* const record = recordOf(m_grid, child);
    return record ? tell(name, [record] { return record->m_name; }) : StandardAccessible::get_accName(child, name);
}

HRESULT GridAccessible::get_accDescription(VARIANT child, BSTR* description) {
    const CLayerRcd* const record = recordOf(m_grid, child);
    return record ? tell(description, [record] { return rowDescription(*record, loadResourceString); })
                  : StandardAccessible::get_accDescription(child, description);
}

GridAccessibility::GridAccessibility(const CLayerStateList& grid)
    : m_inCom(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))), m_object(GridAccessible::make(grid)) {}

GridAccessibility::~GridAccessibility() {
    if (m_object) {
        m_object->disconnect();
        m_object->Release();
    }
    if (m_inCom)
        ::CoUninitialize();
}

LRESULT GridAccessibility::answer(WPARAM asked) const {
    return m_object ? ::LresultFromObject(__uuidof(IAccessible), asked, m_object) : E_OUTOFMEMORY;
}
