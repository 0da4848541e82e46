// A list of which one column shows drawn samples instead of texts.
#pragma once

#include "OrvUiControls.h"

#include <functional>

namespace framework {

/// Draws the sample of a row into `area`, in the colour that its text would have.
using DrawSample = std::function<void(HDC dc, const RECT& area, int row, COLORREF color)>;

class SampleList : public COrvUiListCtrl {
  public:
    /// Names the column and what draws it; before the list is shown.
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
