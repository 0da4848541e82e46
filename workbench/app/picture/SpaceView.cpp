#include "SpaceView.h"

namespace workbench {

void SpaceView::show(const ViewTransform& next, bool byHand) {
    if (next == m_view)
        return;
    if (!byHand || !m_isByHand)
        m_earlier.push_back(m_view);
    if (m_earlier.size() > kMostEarlier)
        m_earlier.pop_front();
    m_view = next;
    m_isByHand = byHand;
}

bool SpaceView::showPrevious() {
    if (m_earlier.empty())
        return false;
    m_view = m_earlier.back();
    m_earlier.pop_back();
    m_isByHand = false;
    return true;
}

void SpaceView::resize(double dx, double dy) {
    m_view.resize(dx, dy);
    for (ViewTransform& earlier : m_earlier)
        earlier.resize(dx, dy);
}

} // namespace workbench
