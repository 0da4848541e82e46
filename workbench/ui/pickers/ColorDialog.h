// The colour dialog: one or two pages, the colour to begin with, and the colour chosen so far.
#pragma once

#include "ColorPage.h"

#include "OrvUiDialog.h"

#include <vector>

namespace framework {

/// Shows a colour.
class ColorSwatch : public CStatic {
  public:
    void show(const KelCmColor& color);
    void DrawItem(LPDRAWITEMSTRUCT item) override;

  private:
    COLORREF m_color = 0;
};

class ColorDialog : public COrvUiDialog {
  public:
    ColorDialog(const KelCmColor& current, const pickers::ColorParts& parts);

    const KelCmColor& color() const { return m_choice.color(); }

    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    void OnOK() override;

    DECLARE_MESSAGE_MAP()
    afx_msg void OnTabChanged(NMHDR*, LRESULT*);

  private:
    struct Tab {
        const wchar_t* title;
        pickers::ColorTab kind;
        ColorPage* page;
    };
    void addTab(const Tab& tab);
    void placePage(const ColorPage& page);
    void showTab(int index);
    void focusPage(const ColorPage& page);
    /// The tab that a key leads to, -1 for no such key.
    int tabByKey(const MSG& message) const;
    void showChoice();
    bool canEnd() const;

    pickers::ColorChoice m_choice;
    KelCmColor m_current;
    pickers::ColorParts m_parts;
    PalettePage m_palettePage;
    TrueColorPage m_trueColorPage;
    std::vector<Tab> m_tabs;
    CTabCtrl m_tabControl;
    ColorSwatch m_currentSwatch;
    ColorSwatch m_newSwatch;
};

} // namespace framework
