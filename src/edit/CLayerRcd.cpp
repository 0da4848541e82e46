#include "CLayerRcd.h"

CLayerRcd::CLayerRcd()
    : m_lineWeight(-1), m_isFrozen(false), m_isLocked(false), m_isOff(false), m_isNewVpFrozen(false),
      m_isPlottable(false), m_isCurrent(false), m_isDependent(false), m_isAdded(false), m_isRemoved(false),
      m_isModified(false) {
    static_cast<void>(m_color.setColorIndex(7)); // the foreground colour, which every host has
}

CLayerRcd::~CLayerRcd() = default;
