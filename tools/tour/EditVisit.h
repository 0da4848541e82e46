// What the scripted person does in the dialog that edits a layer state, up to the OK that closes it.
#pragma once

#include "DrivenProgram.h"
#include "Pictures.h"
#include "RemoteList.h"

#include <string>
#include <vector>

namespace tour {

/// The edit dialog, open in the driven program. As with the manager, each action is seen to succeed and is
/// photographed.
class EditVisit {
  public:
    EditVisit(DrivenProgram& program, HWND dialog, Pictures& pictures);

    /// Selects the layers' rows and turns all of them off by one click.
    void turnOff(const std::vector<std::wstring>& layers);
    /// Gives a layer the color in the middle of the palette.
    void colorFromPalette(const std::wstring& layer);
    /// Makes it the state's current layer, which is seen in the picture alone: no text says it.
    void makeCurrent(const std::wstring& layer);
    /// Brings a layer of the drawing into the state.
    void addLayer(const std::wstring& layer);
    void pressOk();

  private:
    void clickCell(const RemoteList& list, const std::wstring& layer, int column, unsigned held = 0, int times = 1);
    /// What the cell says; a flag is "1" or "0".
    std::wstring text(const std::wstring& layer, int column) const;

    DrivenProgram& m_program;
    HWND m_dialog;
    RemoteList m_grid;
    Pictures& m_pictures;
};

} // namespace tour
