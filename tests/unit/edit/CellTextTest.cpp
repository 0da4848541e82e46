// What the tip of a cell says.

#include "CellText.h"

#include "DomainTest.h"
#include "GridColumns.h"

#include <array>

namespace {

using testing::Each;

constexpr const wchar_t* kStyleFormat = L"Color_%d";

class CellText : public DomainTest {
  protected:
    CellText() {
        m_record.m_name = L"Walls";
        m_record.m_color.setColorIndex(3);
        m_record.m_linetypeName = L"Dashed";
        m_record.m_lineWeight = 53;
        m_record.m_plotStyleName = L"Fine";
        m_record.m_description = L"Load bearing";
        m_record.m_isFrozen = m_record.m_isLocked = m_record.m_isOff = m_record.m_isNewVpFrozen = true;
        m_record.m_isPlottable = true;
    }
    std::wstring text(int column) const { return cellText(m_record, column, kStyleFormat).GetString(); }
    CLayerRcd m_record;
};

TEST_F(CellText, IsThePropertyAsItIsShown) {
    EXPECT_EQ(text(nameGridColumn), L"Walls");
    EXPECT_EQ(text(colorGridColumn), L"Green");
    EXPECT_EQ(text(linetypeGridColumn), L"Dashed");
    EXPECT_EQ(text(lineWeightGridColumn), L"0.53 mm");
}

TEST_F(CellText, OfAPlotStyleIsThatOfTheColourWhateverStyleTheLayerHas) {
    EXPECT_EQ(text(plotStyleGridColumn), L"Color_3");
}

TEST_F(CellText, IsEmptyWhereThereIsAnImage) {
    for (const int column : {onGridColumn, freezeGridColumn, lockGridColumn, plotGridColumn, newVpFreezeGridColumn})
        EXPECT_EQ(text(column), L"") << column;
    EXPECT_EQ(text(gridColumnCount), L"");
}

TEST_F(CellText, FitsATipUpToOneCharacterLessThanItsRoom) {
    std::array<wchar_t, 80> buffer{};
    const CString fits(L'x', 79);
    copyTipText(fits, buffer.data(), 80);
    EXPECT_EQ(buffer.data(), std::wstring(79, L'x'));
}

TEST_F(CellText, ThatDoesNotFitATipIsLeftOutAndNotCut) {
    std::array<wchar_t, 82> buffer{};
    buffer.fill(L'?');
    const CString tooLong(L'x', 80);
    copyTipText(tooLong, buffer.data(), 80);
    EXPECT_EQ(buffer[0], L'\0');
    buffer[0] = L'?';
    EXPECT_THAT(buffer, Each(L'?')) << "nothing but the end was written";
}

} // namespace
