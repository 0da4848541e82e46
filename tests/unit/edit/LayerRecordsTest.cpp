// Records of layers, their marks, and the one that is the current layer.

#include "LayerRecords.h"

#include "EngineTest.h"

namespace {

using testing::ElementsAre;

class LayerRecords : public testing::Test {
  protected:
    ~LayerRecords() override { deleteRecords(m_layers); }
    CLayerRcd& add(const wchar_t* name) {
        auto* record = new CLayerRcd;
        record->m_name = name;
        m_layers.AddTail(record);
        return *record;
    }
    std::vector<std::wstring> seen() {
        std::vector<std::wstring> names;
        forEachRecord(m_layers, [&](const CLayerRcd& record) { names.emplace_back(record.m_name.GetString()); });
        return names;
    }
    CObList m_layers;
};

TEST_F(LayerRecords, StartWithNothingSetAndTheForegroundColour) {
    const CLayerRcd record;
    EXPECT_TRUE(record.m_layerId.isNull() && record.m_linetypeId.isNull() && record.m_plotStyleId.isNull());
    EXPECT_EQ(record.m_color.colorIndex(), 7);
    EXPECT_EQ(record.m_lineWeight, -1);
    EXPECT_TRUE(record.m_name.IsEmpty() && record.m_linetypeName.IsEmpty() && record.m_plotStyleName.IsEmpty() &&
                record.m_description.IsEmpty());
    for (const bool flag :
         {record.m_isFrozen, record.m_isLocked, record.m_isOff, record.m_isNewVpFrozen, record.m_isPlottable,
          record.m_isCurrent, record.m_isDependent, record.m_isAdded, record.m_isRemoved, record.m_isModified})
        EXPECT_FALSE(flag);
}

TEST_F(LayerRecords, AChangeBringsARemovedOneBack) {
    CLayerRcd record;
    record.m_isRemoved = true;
    record.m_isAdded = true;
    record.markModified();
    EXPECT_TRUE(record.m_isModified);
    EXPECT_FALSE(record.m_isRemoved);
    EXPECT_TRUE(record.m_isAdded);
}

TEST_F(LayerRecords, ARemovalClearsTheOtherMarks) {
    CLayerRcd record;
    record.m_isAdded = record.m_isModified = true;
    record.markRemoved();
    EXPECT_TRUE(record.m_isRemoved);
    EXPECT_FALSE(record.m_isAdded);
    EXPECT_FALSE(record.m_isModified);
}

TEST_F(LayerRecords, AreWalkedFromTheHeadUntilANullEntry) {
    add(L"Walls");
    add(L"Doors");
    EXPECT_THAT(seen(), ElementsAre(L"Walls", L"Doors"));
    m_layers.AddTail(static_cast<CObject*>(nullptr));
    add(L"Pipes");
    EXPECT_THAT(seen(), ElementsAre(L"Walls", L"Doors"));
}

TEST_F(LayerRecords, WithRowsAreAllButTheRemoved) {
    add(L"Walls");
    add(L"Doors").markRemoved();
    add(L"Pipes").markModified();
    EXPECT_THAT(toVector(namesWithRows(m_layers)), ElementsAre(L"Walls", L"Pipes"));
}

TEST_F(LayerRecords, HaveOneCurrentLayer) {
    CLayerRcd& walls = add(L"Walls");
    CLayerRcd& doors = add(L"Doors");
    walls.m_isCurrent = true;
    makeCurrent(m_layers, doors);
    EXPECT_FALSE(walls.m_isCurrent);
    EXPECT_FALSE(walls.m_isModified);
    EXPECT_TRUE(doors.m_isCurrent);
    EXPECT_TRUE(doors.m_isModified);
}

TEST_F(LayerRecords, ThatBecomeCurrentAgainStayIt) {
    CLayerRcd& walls = add(L"Walls");
    walls.m_isCurrent = true;
    makeCurrent(m_layers, walls);
    EXPECT_TRUE(walls.m_isCurrent);
}

} // namespace
