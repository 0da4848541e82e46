#include "PickingTest.h"

#include "engine/DatabaseAccess.h"

void PickingTest::openDrawing(bool colorDependentPlotStyles) {
    constexpr zdr::Handle kFine = 0xF8;
    open(tenRows());
    zdr::Drawing drawing = ui::TestDrawing(tenRows()).linetype(L"Dashed").drawing();
    drawing.plotStyles.push_back({drawing.names.intern(L"Fine"), kFine});
    drawing.colorDependentPlotStyles = colorDependentPlotStyles;
    engine::replaceDrawing(database(), drawing);
    instruments::clearTrace();
}

void PickingTest::expectValuesAsRead(int row) const {
    EXPECT_EQ(record(row).m_color.colorIndex(), 7);
    EXPECT_EQ(record(row).m_linetypeName, L"Continuous");
    EXPECT_EQ(record(row).m_lineWeight, -3);
    EXPECT_EQ(record(row).m_plotStyleName, L"Normal");
    EXPECT_EQ(instruments::describe(record(row).m_linetypeId), "#E0");
    EXPECT_EQ(instruments::describe(record(row).m_plotStyleId), "#E8");
}

std::string PickingTest::lineOf(const std::string& operation) {
    const Calls lines = ui::callsOf(operation);
    return lines.size() == 1 ? lines.front() : std::to_string(lines.size()) + " calls";
}
