// What a screen reader says of a row of the grid.

#include "RowDescription.h"

#include "DomainTest.h"
#include "GridColumns.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::pair<unsigned int, const wchar_t*> kTexts[] = {
    {IDS_LSTATE_COLUMN_ON, L"On"},
    {IDS_LSTATE_COLUMN_FREEZE, L"Freeze"},
    {IDS_LSTATE_COLUMN_LOCK, L"Lock"},
    {IDS_LSTATE_COLUMN_COLOR, L"Color"},
    {IDS_LSTATE_COLUMN_LINETYPE, L"Linetype"},
    {IDS_LSTATE_COLUMN_LINEWEIGHT, L"Lineweight"},
    {IDS_LSTATE_COLUMN_PLOTSTYLE, L"Plot style"},
    {IDS_LSTATE_COLUMN_PLOT, L"Plot"},
    {IDS_LSTATE_COLUMN_NEWVPFREEZE, L"New"},
    {IDS_LSTATE_COLOR_STYLE, L"Color_%d"},
    {IDS_LSTATE_WORD_ON, L"on"},
    {IDS_LSTATE_WORD_OFF, L"off"},
    {IDS_LSTATE_WORD_FROZEN, L"frozen"},
    {IDS_LSTATE_WORD_THAWED, L"thawed"},
    {IDS_LSTATE_WORD_LOCKED, L"locked"},
    {IDS_LSTATE_WORD_UNLOCKED, L"unlocked"},
    {IDS_LSTATE_WORD_PLOTTED, L"plotted"},
    {IDS_LSTATE_WORD_NOT_PLOTTED, L"not plotted"},
    {IDS_LSTATE_WORD_CURRENT_LAYER, L"current layer"},
};

CString text(unsigned int id) {
    const auto* const found = std::ranges::find(kTexts, id, &std::pair<unsigned int, const wchar_t*>::first);
    return found == std::end(kTexts) ? L"?" : found->second;
}

class RowDescription : public DomainTest {
  protected:
    RowDescription() {
        m_record.m_name = L"Walls";
        m_record.m_color.setColorIndex(3);
        m_record.m_linetypeName = L"Dashed";
        m_record.m_lineWeight = 53;
        m_record.m_plotStyleName = L"Fine";
        m_record.m_isPlottable = true;
    }
    std::wstring said() const { return rowDescription(m_record, text).GetString(); }

    CLayerRcd m_record;
};

TEST_F(RowDescription, NamesTheValueOfEachColumnInWords) {
    EXPECT_EQ(said(), L"On: on; Freeze: thawed; Lock: unlocked; Color: Green; Linetype: Dashed; Lineweight: 0.53 mm; "
                      L"Plot style: Fine; Plot: plotted; New: thawed");
}

TEST_F(RowDescription, SaysTheOtherWordForEachFlag) {
    m_record.m_isOff = m_record.m_isFrozen = m_record.m_isLocked = m_record.m_isNewVpFrozen = true;
    m_record.m_isPlottable = false;
    EXPECT_EQ(said(), L"On: off; Freeze: frozen; Lock: locked; Color: Green; Linetype: Dashed; Lineweight: 0.53 mm; "
                      L"Plot style: Fine; Plot: not plotted; New: frozen");
}

TEST_F(RowDescription, TellsEachFlagByItself) {
    const struct {
        bool CLayerRcd::*flag;
        const wchar_t* told;
    } rows[] = {{&CLayerRcd::m_isOff, L"On: off; Freeze: thawed; Lock: unlocked"},
                {&CLayerRcd::m_isFrozen, L"On: on; Freeze: frozen; Lock: unlocked"},
                {&CLayerRcd::m_isLocked, L"On: on; Freeze: thawed; Lock: locked"}};
    for (const auto& row : rows) {
        m_record.*row.flag = true;
        EXPECT_THAT(said(), testing::StartsWith(std::wstring(row.told) + L"; Color"));
        EXPECT_THAT(said(), testing::EndsWith(L"New: thawed"));
        m_record.*row.flag = false;
    }
}

TEST_F(RowDescription, BeginsWithTheCurrentLayer) {
    m_record.m_isCurrent = true;
    EXPECT_THAT(said(), testing::StartsWith(L"current layer; On: on; "));
}

TEST_F(RowDescription, GivesTheColoursPlotStyleToALayerWithoutOneOfItsOwn) {
    m_record.m_plotStyleName.Empty();
    EXPECT_THAT(said(), testing::HasSubstr(L"Lineweight: 0.53 mm; Plot style: Color_3; Plot: plotted"));
}

} // namespace
