// What the colour dialog offers, and the colour that is chosen in it so far.
#pragma once

#include "KelCmColor.h"

#include <array>
#include <optional>
#include <string>

namespace pickers {

/// The palette's numbers for a colour that comes from the block or the layer.
inline constexpr int kByBlock = 0;
inline constexpr int kByLayer = 256;

enum class ColorTab { palette, trueColor };

/// Which parts of the dialog a call of keledSetColorDialogTrueColor asks for.
struct ColorParts {
    bool palette = true;
    bool trueColor = false;
    bool systemDialog = false; ///< offered beside the fields of the true colour, so never without them
    bool byReference = false;  ///< by layer and by block, offered beside the palette
};

/// The parts by the call's arguments. A call that asks for neither tab gets the palette.
ColorParts colorParts(int flags, bool byReference);

/// The colour chosen so far. Looking at a tab changes nothing; only a choice does.
class ColorChoice {
  public:
    explicit ColorChoice(const KelCmColor& current) : m_color(current) {}

    const KelCmColor& color() const { return m_color; }
    /// An index from 0 (by block) to 256 (by layer); others change nothing.
    void chooseIndex(int index);
    void chooseRgb(int red, int green, int blue);
    /// Red, green and blue as they stand in the three fields. Answers whether all three are numbers from 0 to 255; if
    /// not, the choice stays as it was.
    bool chooseFields(const std::array<std::wstring, 3>& fields);

    /// The index that the palette marks: the chosen one from 1 to 255; none of a true colour, by layer or by block.
    std::optional<int> markedIndex() const;
    /// What stands in the three fields.
    std::array<int, 3> rgb() const;
    /// Whether OK may take it: by layer and by block only where they are offered.
    bool isAllowed(const ColorParts& parts) const;
    /// The tab to begin with: the one that can show the colour, if it is offered.
    ColorTab firstTab(const ColorParts& parts) const;
    /// For people: "Color 30 (255,127,0)", "Red (255,0,0)", "ByLayer", "True color 1,2,3", or a named colour's own
    /// name.
    std::wstring describe() const;

  private:
    KelCmColor m_color;
};

} // namespace pickers
