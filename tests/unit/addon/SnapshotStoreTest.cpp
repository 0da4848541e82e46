// Layer snapshots in the extended data of the layers.

#include "LayerSnapshotStore.h"

#include "DomainTest.h"

#include <functional>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class SnapshotStore : public DomainTest {
  protected:
    SnapshotStore() { use(makeDrawing({{L"Walls"}, {L"Doors"}})); }
    static std::vector<std::wstring> names() {
        KelArray<KelString> found;
        EXPECT_EQ(getSnapshotNames(found), Vorn::eOk);
        return toVector(found);
    }
    void setData(const wchar_t* layerName, const zdr::ExtendedValues& values) {
        zdr::Drawing changed = drawing();
        changed.applications.push_back(L"TREL_SNAPSHOTS");
        changed.extendedData.push_back({changed.layers.at(layer(layerName)).handle, L"TREL_SNAPSHOTS", values});
        use(std::move(changed));
    }
};

TEST_F(SnapshotStore, HasNoneAtFirst) {
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(SnapshotStore, BringsBackEveryPropertyOfALayer) {
    const engine::LayerValues before = values(L"Walls");
    change(L"Walls", [this](engine::LayerValues& wall) {
        wall.flags = zdr::kLayerFrozen | zdr::kLayerLocked | zdr::kLayerNewViewportFrozen; // off, and not plotted
        wall.color = 0xC2102030;
        wall.linetype = nameId(L"Dashed");
        wall.lineWeight = 50;
        wall.plotStyle = nameId(L"Fine");
    });
    const engine::LayerValues taken = values(L"Walls");
    ASSERT_EQ(saveSnapshot(L"Plan"), Vorn::eOk);
    change(L"Walls", [&before](engine::LayerValues& wall) { wall = before; });
    ASSERT_EQ(restoreSnapshot(L"Plan"), Vorn::eOk);
    const engine::LayerValues now = values(L"Walls");
    EXPECT_EQ(now.flags, taken.flags);
    EXPECT_EQ(now.color, taken.color);
    EXPECT_EQ(now.linetype, taken.linetype);
    EXPECT_EQ(now.lineWeight, taken.lineWeight);
    EXPECT_EQ(now.plotStyle, taken.plotStyle);
    ASSERT_EQ(saveSnapshot(L"Later"), Vorn::eOk);
    change(L"Walls", [&before](engine::LayerValues& wall) { wall = before; });
    ASSERT_EQ(saveSnapshot(L"Plain"), Vorn::eOk);
    ASSERT_EQ(restoreSnapshot(L"Later"), Vorn::eOk);
    ASSERT_EQ(restoreSnapshot(L"Plain"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").flags, before.flags);
}

TEST_F(SnapshotStore, KeepsSeveralApartByNameAndCase) {
    for (const auto& [name, color] : {std::pair{L"Plan", 1}, {L"plan", 2}, {L"A|B", 3}}) {
        setColor(L"Doors", static_cast<std::uint32_t>(color));
        ASSERT_EQ(saveSnapshot(name), Vorn::eOk);
    }
    EXPECT_THAT(names(), ElementsAre(L"Plan", L"plan", L"A|B"));
    ASSERT_EQ(restoreSnapshot(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"Doors").color, 1u);
    ASSERT_EQ(restoreSnapshot(L"A|B"), Vorn::eOk);
    EXPECT_EQ(values(L"Doors").color, 3u);
}

TEST_F(SnapshotStore, TakesTheNewOneOfANameInThePlaceOfTheOld) {
    ASSERT_EQ(saveSnapshot(L"Plan"), Vorn::eOk);
    ASSERT_EQ(saveSnapshot(L"Site"), Vorn::eOk);
    setColor(L"Walls", 5);
    ASSERT_EQ(saveSnapshot(L"Plan"), Vorn::eOk);
    setColor(L"Walls", 6);
    EXPECT_THAT(names(), ElementsAre(L"Plan", L"Site"));
    ASSERT_EQ(restoreSnapshot(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").color, 5u);
}

TEST_F(SnapshotStore, LeavesNothingOfTheLastOneThatIsDeleted) {
    ASSERT_EQ(saveSnapshot(L"Plan"), Vorn::eOk);
    ASSERT_EQ(saveSnapshot(L"Site"), Vorn::eOk);
    ASSERT_EQ(deleteSnapshot(L"Plan"), Vorn::eOk);
    EXPECT_THAT(names(), ElementsAre(L"Site"));
    ASSERT_EQ(deleteSnapshot(L"Site"), Vorn::eOk);
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_THAT(drawing().extendedData, IsEmpty());
}

TEST_F(SnapshotStore, DoesntTouchALayerThatTookNoPart) {
    setData(L"Walls", {{kExtendedString, L"Plan"},
                       {kExtendedInt16, 1},
                       {kExtendedInt32, 3},
                       {kExtendedHandle, L"0"},
                       {kExtendedInt32, 25},
                       {kExtendedHandle, L"0"}});
    ASSERT_EQ(restoreSnapshot(L"Plan"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").color, 3u);
    EXPECT_EQ(values(L"Walls").lineWeight, 25);
    EXPECT_FALSE(hasFlag(L"Walls", zdr::kLayerOn));
    EXPECT_EQ(drawing().names.text(values(L"Walls").linetype), L"Continuous") << "its own is gone";
    EXPECT_THAT(instruments::trace(), Contains(StartsWith("getKelDbObjectId(false, 0, 0)")).Times(2))
        << "and isn't made";
    EXPECT_EQ(values(L"Doors").color, 7u);
    EXPECT_TRUE(hasFlag(L"Doors", zdr::kLayerOn));
}

TEST_F(SnapshotStore, LeavesTheCurrentLayerThawed) {
    ASSERT_EQ(m_database.setClayer(layerId(L"Doors")), Vorn::eOk);
    setFlag(L"Base", zdr::kLayerFrozen, true);
    ASSERT_EQ(saveSnapshot(L"Plan"), Vorn::eOk);
    setFlag(L"Base", zdr::kLayerFrozen, false);
    ASSERT_EQ(m_database.setClayer(layerId(L"Base")), Vorn::eOk);
    EXPECT_EQ(restoreSnapshot(L"Plan"), Vorn::eOk);
    EXPECT_FALSE(hasFlag(L"Base", zdr::kLayerFrozen));
}

TEST_F(SnapshotStore, RefusesNamesThatAreEmptyTooLongOrUnknown) {
    const std::wstring longest(255, L'x'), tooLong(256, L'x');
    for (const auto operation : {saveSnapshot, restoreSnapshot, deleteSnapshot}) {
        EXPECT_EQ(operation(L""), Vorn::eInvalidInput);
        EXPECT_EQ(operation(nullptr), Vorn::eInvalidInput);
        EXPECT_EQ(operation(tooLong.c_str()), Vorn::eNameTooLong);
    }
    EXPECT_EQ(restoreSnapshot(L"Plan"), Vorn::eKeyNotFound);
    EXPECT_EQ(deleteSnapshot(L"Plan"), Vorn::eKeyNotFound);
    EXPECT_EQ(saveSnapshot(longest.c_str()), Vorn::eOk);
    EXPECT_THAT(names(), ElementsAre(longest));
}

TEST_F(SnapshotStore, LeavesDataOfAnotherFormAlone) {
    setData(L"Walls", {{kExtendedString, L"Plan"}, {kExtendedInt32, 1}});
    KelArray<KelString> found;
    EXPECT_EQ(getSnapshotNames(found), Vorn::eInvalidInput);
    EXPECT_EQ(saveSnapshot(L"Site"), Vorn::eInvalidInput);
    EXPECT_EQ(restoreSnapshot(L"Plan"), Vorn::eInvalidInput);
    EXPECT_EQ(deleteSnapshot(L"Plan"), Vorn::eInvalidInput);
    const zdr::Handle walls = drawing().layers.at(layer(L"Walls")).handle;
    for (const zdr::ExtendedData& each : drawing().extendedData)
        if (each.object == walls) {
            ASSERT_EQ(each.values.size(), 2u);
            EXPECT_EQ(*each.values.begin(), (zdr::ExtendedValue{kExtendedString, L"Plan"}));
        }
}

TEST_F(SnapshotStore, AnswersThatThereIsNoDrawing) {
    makeCurrent(nullptr);
    KelArray<KelString> found;
    EXPECT_EQ(getSnapshotNames(found), Vorn::eNoDatabase);
    EXPECT_EQ(saveSnapshot(L"Plan"), Vorn::eNoDatabase);
    EXPECT_EQ(restoreSnapshot(L"Plan"), Vorn::eNoDatabase);
    EXPECT_EQ(deleteSnapshot(L"Plan"), Vorn::eNoDatabase);
    makeCurrent(&m_database);
}

TEST_F(SnapshotStore, AnswersTheFailureOfEachCallThatItRestsOn) {
    ASSERT_EQ(saveSnapshot(L"Plan"), Vorn::eOk);
    for (const char* call : {"getLayerTable", "layerTable.newIterator", "iterator.getRecordId", "openObject"}) {
        instruments::failCall(call, 1, Vorn::eOutOfMemory);
        EXPECT_EQ(restoreSnapshot(L"Plan"),
                  call == std::string("getLayerTable") ? Vorn::eNoDatabase : Vorn::eOutOfMemory)
            << call;
        EXPECT_TRUE(instruments::faultStruck()) << call;
    }
    instruments::failCall("setExtendedData", 2, Vorn::eWasErased);
    EXPECT_EQ(deleteSnapshot(L"Plan"), Vorn::eWasErased);
    EXPECT_THAT(names(), ElementsAre(L"Plan")) << "the layers behind the one that failed have it still";
    instruments::failCall("kelutNewRb", 3);
    EXPECT_EQ(saveSnapshot(L"Site"), Vorn::eOutOfMemory);
    instruments::clearFaults();
}

} // namespace
