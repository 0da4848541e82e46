// One layer's properties in memory, with what has been done to them since they were read.
#pragma once

#include "KelCmColor.h"
#include "KelDbObjectId.h"

#include <afx.h>

/// A row of the grid in which a state is edited. The list of the dialog owns its records, and none is taken out of it
/// while the dialog lives; the rows of the grid only refer to them. The dialog that adds layers fills the name, the id
/// and the description alone.
class CLayerRcd : public CObject {
  public:
    CLayerRcd();
    ~CLayerRcd() override;
    CLayerRcd(const CLayerRcd&) = delete;
    CLayerRcd& operator=(const CLayerRcd&) = delete;

    KelDbObjectId m_layerId; ///< Null for a layer that the state held from the start.
    KelDbObjectId m_linetypeId;
    KelDbObjectId m_plotStyleId; ///< Null in a drawing with colour-dependent plot styles.
    KelCmColor m_color;
    int m_lineWeight; ///< Hundredths of a millimetre; -1 by layer, -2 by block, -3 the drawing's default.
    CString m_name;
    CString m_linetypeName;
    CString m_plotStyleName; ///< Empty in a drawing with colour-dependent plot styles.
    CString m_description;
    bool m_isFrozen;
    bool m_isLocked;
    bool m_isOff;
    bool m_isNewVpFrozen;
    bool m_isPlottable;
    bool m_isCurrent; ///< The state's current layer; at most one record of a dialog is.
    bool m_isDependent;
    // What has been done to the row. A removed record has no row, and neither of the other marks.
    bool m_isAdded;
    bool m_isRemoved;
    bool m_isModified;

    /// A property has been changed.
    void markModified() {
        m_isModified = true;
        m_isRemoved = false;
    }
    /// The row has been taken out of the state.
    void markRemoved() {
        m_isRemoved = true;
        m_isAdded = false;
        m_isModified = false;
    }
};
