// What assistive programs, such as screen readers, are told about the grid in which a state is edited.
#pragma once

#include "StandardAccessible.h"

class CLayerStateList;

/// Names a row by its layer and describes it by its cells in words. Everything else, such as which rows are selected,
/// is what the system answers for any list.
class GridAccessible final : public StandardAccessible {
  public:
    /// @return an object with one reference, which is the caller's; null when the system has none for the grid
    static GridAccessible* make(const CLayerStateList& grid);

    void disconnect() override;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override;

  private:
    GridAccessible(const CLayerStateList& grid, AccessibleHolder standard)
        : StandardAccessible(std::move(standard)), m_grid(&grid) {}

    const CLayerStateList* m_grid;
};

/// A grid's object, with the grid's thread taking part in COM for as long.
class GridAccessibility {
  public:
    explicit GridAccessibility(const CLayerStateList& grid);
    /// Whoever still holds the object is told from now on that the grid is gone.
    ~GridAccessibility();
    GridAccessibility(const GridAccessibility&) = delete;
    GridAccessibility& operator=(const GridAccessibility&) = delete;

    /// @return what WM_GETOBJECT is answered, below 0 for a failure
    LRESULT answer(WPARAM asked) const;

  private:
    bool m_inCom;
    GridAccessible* m_object;
};
