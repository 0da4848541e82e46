// The pages of the colour dialog: the palette, and red, green and blue. They tell the dialog what the user chooses, and
// show what is chosen.
#pragma once

#include "PaletteField.h"

#include "pickers/model/ColorChoice.h"

#include <array>
#include <functional>

namespace framework {

/// A page. It is a child of the dialog, whose keys and buttons stay the dialog's.
class ColorPage : public CDialog {
  public:
    ColorPage(UINT templateId, pickers::ColorChoice& choice) : m_choice(choice), m_templateId(templateId) {}

    bool create(CWnd* dialog) { return Create(m_templateId, dialog) != FALSE; }
    /// Shows the choice.
    virtual void showChoice() = 0;
    /// Whether the page holds a whole choice: the fields of the true colour may be empty or wrong.
    virtual bool isComplete() const { return true; }

    std::function<void()> onChanged;  ///< the choice, or whether the page is complete, has changed
    std::function<void()> onAccepted; ///< the choice is final

    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnInitDialog() override;

  protected:
    void OnOK() override {}
    void OnCancel() override {}

    pickers::ColorChoice& m_choice;

  private:
    UINT m_templateId;
};

class PalettePage : public ColorPage {
  public:
    PalettePage(pickers::ColorChoice& choice, bool byReference);
    void showChoice() override;
    BOOL OnInitDialog() override;

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnMarked();
    afx_msg void OnAccepted();
    afx_msg void OnByLayer();
    afx_msg void OnByBlock();

  private:
    void choose(int index);

    PaletteField m_field;
    bool m_byReference;
};

class TrueColorPage : public ColorPage {
  public:
    TrueColorPage(pickers::ColorChoice& choice, bool systemDialog);
    void showChoice() override;
    bool isComplete() const override { return m_complete; }
    BOOL OnInitDialog() override;

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnFieldChanged(UINT id);
    afx_msg void OnMore();

  private:
    std::array<std::wstring, 3> fields() const;

    bool m_systemDialog;
    bool m_showing = false;
    bool m_complete = true;
};

} // namespace framework
