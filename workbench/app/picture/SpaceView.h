// What is on view in one space, and what was before.
#pragma once

#include "Geometry.h"

#include <deque>

namespace workbench {

class SpaceView {
  public:
    /// So many earlier views are kept; the oldest ones are forgotten.
    static constexpr std::size_t kMostEarlier = 50;

    explicit SpaceView(const ViewTransform& view) : m_view(view) {}

    const ViewTransform& view() const { return m_view; }
    /// Shows something else, and keeps what was on view.
    /// @param byHand by wheel, drag or key: many such little changes, one behind the other, are gone back over at once
    void show(const ViewTransform& next, bool byHand);
    /// Goes back to what was on view before; false when nothing was.
    bool showPrevious();
    /// To be called when the window has grown by that many pixels.
    void resize(double dx, double dy);

  private:
    ViewTransform m_view;
    std::deque<ViewTransform> m_earlier;
    bool m_isByHand = false; // how the view on view came about
};

} // namespace workbench
