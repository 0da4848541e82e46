// A list of which one column shows drawn samples instead of texts.
#pragma once

#include "OrvUiControls.h"

#include <functional>

namespace framework {

/// The place and the look of one sample.
struct SampleCell {
    HDC dc;
    RECT area;
    COLORREF color; ///< the one that the row's text would have
    int dpi;        ///< dots per inch of the display that shows the list
};

/// Draws the sample of a row.
using DrawSample = std::function<void(const SampleCell& cell, int row)>;

class SampleList : public COrvUiListCtrl {
  public:
    /// Tells which column shows samples and what draws them. To be called before the list is shown.
    void setSamples(int column, DrawSample draw);

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnCustomDraw(NMHDR* header, LRESULT* result);

  private:
    void drawSampleOf(const NMLVCUSTOMDRAW& drawing);

    int m_column = -1;
    DrawSample m_draw;
};

} // namespace framework
