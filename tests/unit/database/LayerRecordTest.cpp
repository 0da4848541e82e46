// A layer's values, read and written through its record, open or in memory.

#include "EngineTest.h"
#include "KelDbPointers.h"

#include <cstdlib>

using Record = KelDbObjectPointer<KelDbLayerTableRecord>;
using LayerRecord = EngineTest;

namespace {

std::wstring take(wchar_t* text) {
    std::wstring taken = text ? text : L"(null)";
    std::free(text);
    return taken;
}

KelCmColor colorOf(unsigned short index) {
    KelCmColor color;
    color.setColorIndex(index);
    return color;
}

} // namespace

TEST_F(LayerRecord, IsWrittenThroughToTheDrawing) {
    Record record(layerId(L"Walls"), KelDb::kForWrite);
    EXPECT_EQ(record->setIsFrozen(true), Vorn::eOk);
    record->setIsOff(true);
    record->setIsLocked(true);
    record->setVPDFLT(true);
    EXPECT_EQ(record->setIsPlottable(false), Vorn::eOk);
    record->setColor(colorOf(5));
    EXPECT_EQ(record->setLineWeight(211), Vorn::eOk);
    EXPECT_EQ(record->setPlotStyleName(L"FINE"), Vorn::eOk);
    EXPECT_EQ(record->setDescription(L"bearing"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").flags, zdr::kLayerFrozen | zdr::kLayerLocked | zdr::kLayerNewViewportFrozen);
    EXPECT_EQ(values(L"Walls").color, 5u);
    EXPECT_EQ(values(L"Walls").lineWeight, 211);
    EXPECT_EQ(values(L"Walls").plotStyle, nameId(L"Fine"));
    EXPECT_EQ(drawing().layers[layer(L"Walls")].description, L"bearing");
}

TEST_F(LayerRecord, ReadsWhatTheDrawingHolds) {
    change(L"Walls", [this](engine::LayerValues& wall) {
        wall = {zdr::kLayerFrozen, 4, nameId(L"Dashed"), -2, nameId(L"Fine")};
    });
    Record record(layerId(L"Walls"), KelDb::kForRead);
    EXPECT_TRUE(record->isFrozen());
    EXPECT_TRUE(record->isOff());
    EXPECT_FALSE(record->isLocked());
    EXPECT_FALSE(record->VPDFLT());
    EXPECT_FALSE(record->isPlottable());
    EXPECT_EQ(record->color().colorIndex(), 4);
    EXPECT_EQ(record->lineWeight(), -2);
    EXPECT_EQ(take(record->plotStyleName()), L"Fine");
    EXPECT_EQ(record->linetypeObjectId().handle().value(), drawing().linetypes[1].handle);
    EXPECT_EQ(record->plotStyleNameId().handle().value(), drawing().plotStyles[1].handle);
    EXPECT_FALSE(record->isDependent());
    EXPECT_TRUE(record->isResolved());
}

TEST_F(LayerRecord, OpenForReadingItCannotBeWritten) {
    const engine::LayerValues before = values(L"Walls");
    Record record(layerId(L"Walls"), KelDb::kForRead);
    EXPECT_EQ(record->setIsFrozen(true), Vorn::eNotOpenForWrite);
    EXPECT_EQ(record->setIsPlottable(false), Vorn::eNotOpenForWrite);
    EXPECT_EQ(record->setLineWeight(25), Vorn::eNotOpenForWrite);
    EXPECT_EQ(record->setName(L"Masonry"), Vorn::eNotOpenForWrite);
    EXPECT_EQ(record->setPlotStyleName(L"Fine"), Vorn::eNotOpenForWrite);
    EXPECT_EQ(record->setDescription(L"x"), Vorn::eNotOpenForWrite);
    record->setIsOff(true);
    record->setIsLocked(true);
    record->setVPDFLT(true);
    record->setColor(colorOf(1));
    record->setLinetypeObjectId(engine::objectId(m_database, drawing().linetypes[1].handle));
    EXPECT_EQ(values(L"Walls"), before);
}

TEST_F(LayerRecord, TheCurrentLayerIsNotFrozen) {
    Record record(layerId(L"Base"), KelDb::kForWrite);
    EXPECT_EQ(record->setIsFrozen(true), Vorn::eCannotFreezeCurrentLayer);
    EXPECT_FALSE(record->isFrozen());
    EXPECT_EQ(record->setIsFrozen(false), Vorn::eOk);
}

TEST_F(LayerRecord, OnlyTheTwentyFourWidthsAndThreeWordsAreLineweights) {
    Record record(layerId(L"Walls"), KelDb::kForWrite);
    int allowed = 0;
    for (int weight = -10; weight <= 300; ++weight)
        allowed += record->setLineWeight(weight) == Vorn::eOk ? 1 : 0;
    EXPECT_EQ(allowed, 27);
    EXPECT_EQ(record->setLineWeight(24), Vorn::eInvalidInput);
    EXPECT_EQ(record->lineWeight(), 211);
}

TEST_F(LayerRecord, LinetypesAreSetById) {
    Record record(layerId(L"Walls"), KelDb::kForWrite);
    const KelDbObjectId dotted = engine::objectId(m_database, drawing().linetypes[2].handle);
    record->setLinetypeObjectId(dotted);
    EXPECT_EQ(record->linetypeObjectId(), dotted);
    record->setLinetypeObjectId({});
    record->setLinetypeObjectId(layerId(L"Doors"));
    EXPECT_EQ(record->linetypeObjectId(), dotted);
}

TEST_F(LayerRecord, ALinetypeOfAnotherDrawingIsNotTaken) {
    KelDbDatabase other(true, true);
    Record record(layerId(L"Walls"), KelDb::kForWrite);
    const KelDbObjectId before = record->linetypeObjectId();
    record->setLinetypeObjectId(engine::objectId(other, engine::drawingOf(other).linetypes[0].handle));
    EXPECT_EQ(record->linetypeObjectId(), before);
}

TEST_F(LayerRecord, PlotStylesAreSetByIdAndByName) {
    Record record(layerId(L"Walls"), KelDb::kForWrite);
    const KelDbObjectId fine = engine::objectId(m_database, drawing().plotStyles[1].handle);
    EXPECT_EQ(record->setPlotStyleName(fine), Vorn::eOk);
    EXPECT_EQ(record->plotStyleNameId(), fine);
    EXPECT_EQ(record->setPlotStyleName(L"normal"), Vorn::eOk);
    EXPECT_EQ(take(record->plotStyleName()), L"Normal");
    EXPECT_EQ(record->setPlotStyleName(L"Bold"), Vorn::eKeyNotFound);
    EXPECT_EQ(record->setPlotStyleName(L""), Vorn::eInvalidInput);
    EXPECT_EQ(record->setPlotStyleName(layerId(L"Doors")), Vorn::eInvalidInput);
}

TEST_F(LayerRecord, APlotStyleOfAnotherDrawingIsNotTaken) {
    KelDbDatabase other(true, true);
    Record record(layerId(L"Walls"), KelDb::kForWrite);
    const KelDbObjectId before = record->plotStyleNameId();
    const KelDbObjectId theirs = engine::objectId(other, engine::drawingOf(other).plotStyles[0].handle);
    EXPECT_EQ(record->setPlotStyleName(theirs), Vorn::eInvalidInput);
    EXPECT_EQ(record->plotStyleNameId(), before);
}

TEST_F(LayerRecord, StylesThatTheDrawingLacksHaveNoIds) {
    zdr::Drawing lacking = drawing();
    const zdr::NameId wavy = lacking.names.intern(L"Wavy"), bold = lacking.names.intern(L"Bold");
    use(std::move(lacking));
    change(L"Walls", [=](engine::LayerValues& wall) {
        wall.linetype = wavy;
        wall.plotStyle = bold;
    });
    Record record(layerId(L"Walls"), KelDb::kForRead);
    EXPECT_TRUE(record->linetypeObjectId().isNull());
    EXPECT_TRUE(record->plotStyleNameId().isNull());
    EXPECT_EQ(take(record->plotStyleName()), L"Bold");
    KelDbObjectPointer<KelDbObject> copy;
    copy.acquire(record->clone());
    const auto* inMemory = kelrtCast<KelDbLayerTableRecord>(copy.object());
    ASSERT_TRUE(inMemory);
    EXPECT_TRUE(inMemory->linetypeObjectId().isNull());
    EXPECT_TRUE(inMemory->plotStyleNameId().isNull());
    EXPECT_EQ(take(inMemory->plotStyleName()), L"Bold");
}

TEST_F(LayerRecord, PlotStylesAreNotSetWhereTheyDependOnColours) {
    zdr::Drawing colorDependent = makeDrawing({{L"Walls"}});
    colorDependent.colorDependentPlotStyles = true;
    use(std::move(colorDependent));
    EXPECT_TRUE(m_database.plotStyleMode());
    Record record(layerId(L"Walls"), KelDb::kForWrite);
    EXPECT_EQ(record->setPlotStyleName(L"Fine"), Vorn::eNotNamedPlotStyles);
    EXPECT_EQ(record->setPlotStyleName(engine::objectId(m_database, drawing().plotStyles[1].handle)),
              Vorn::eNotNamedPlotStyles);
}

TEST_F(LayerRecord, NamesAndDescriptionsAreHandedOutAsCopies) {
    Record record(layerId(L"Walls"), KelDb::kForRead);
    wchar_t* name = nullptr;
    EXPECT_EQ(record->getName(name), Vorn::eOk);
    EXPECT_STREQ(name, L"Walls");
    wchar_t* description = record->description();
    EXPECT_STREQ(description, L"");
    EXPECT_EQ(instruments::ledger().size(), 3u);
    kelutDelBuffer(name);
    kelutDelBuffer(description);
    EXPECT_EQ(name, nullptr);
}

TEST_F(LayerRecord, InMemoryItHoldsTheValuesOfANewLayer) {
    KelDbLayerTableRecord record;
    EXPECT_FALSE(record.isFrozen());
    EXPECT_FALSE(record.isOff());
    EXPECT_FALSE(record.isLocked());
    EXPECT_FALSE(record.VPDFLT());
    EXPECT_TRUE(record.isPlottable());
    EXPECT_EQ(record.color().colorIndex(), 7);
    EXPECT_EQ(record.lineWeight(), -3);
    EXPECT_TRUE(record.linetypeObjectId().isNull());
    EXPECT_TRUE(record.plotStyleNameId().isNull());
    EXPECT_EQ(record.plotStyleName(), nullptr);
    EXPECT_FALSE(record.isDependent());
    EXPECT_TRUE(record.isResolved());
}

TEST_F(LayerRecord, InMemoryItTakesWhateverItIsGiven) {
    KelDbLayerTableRecord record;
    EXPECT_EQ(record.setName(L"plan!Walls"), Vorn::eOk);
    EXPECT_EQ(record.setName(L""), Vorn::eInvalidInput);
    EXPECT_EQ(record.setIsFrozen(true), Vorn::eOk);
    EXPECT_EQ(record.setPlotStyleName(L"Bold"), Vorn::eOk);
    EXPECT_TRUE(record.plotStyleNameId().isNull());
    const KelDbObjectId fine = engine::objectId(m_database, drawing().plotStyles[1].handle);
    EXPECT_EQ(record.setPlotStyleName(fine), Vorn::eOk);
    EXPECT_EQ(take(record.plotStyleName()), L"Fine");
    const wchar_t* name = nullptr;
    EXPECT_EQ(record.getName(name), Vorn::eOk);
    EXPECT_STREQ(name, L"plan!Walls");
    EXPECT_EQ(record.setDescription(L"bearing"), Vorn::eOk);
    wchar_t* description = record.description();
    EXPECT_STREQ(description, L"bearing");
    kelutDelBuffer(description);
}

TEST_F(LayerRecord, ACloneHoldsTheValuesInMemory) {
    setColor(L"Walls", 3);
    Record record(layerId(L"Walls"), KelDb::kForRead);
    auto* copy = kelrtCast<KelDbLayerTableRecord>(record->clone());
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->objectId().isNull());
    EXPECT_EQ(copy->color().colorIndex(), 3);
    EXPECT_EQ(copy->linetypeObjectId(), record->linetypeObjectId());
    EXPECT_EQ(copy->plotStyleNameId(), record->plotStyleNameId());
    delete copy;
}

TEST_F(LayerRecord, RenamingThroughTheRecordFollowsTheRules) {
    Record record(layerId(L"Walls"), KelDb::kForWrite);
    EXPECT_EQ(record->setName(L"Doors"), Vorn::eDuplicateRecordName);
    EXPECT_EQ(record->setName(nullptr), Vorn::eInvalidInput);
    EXPECT_EQ(record->setName(L"Masonry"), Vorn::eOk);
    EXPECT_EQ(drawing().names.text(drawing().layers[1].name), L"Masonry");
    KelDbObjectPointer<KelDbLinetypeTableRecord> linetype(engine::objectId(m_database, drawing().linetypes[1].handle),
                                                          KelDb::kForWrite);
    EXPECT_EQ(linetype->setName(L"Stroked"), Vorn::eNotApplicable);
}

TEST_F(LayerRecord, TextsForWhichThereIsNoMemoryAreNotHandedOut) {
    KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"Walls"), KelDb::kForRead);
    wchar_t* name = nullptr;
    instruments::failAllocation(1);
    EXPECT_EQ(record->getName(name), Vorn::eOutOfMemory);
    EXPECT_EQ(name, nullptr);
    instruments::failAllocation(1);
    EXPECT_EQ(record->description(), nullptr);
    instruments::failAllocation(1);
    EXPECT_EQ(record->plotStyleName(), nullptr);
    instruments::failAllocation(1);
    EXPECT_EQ(kelutNewRb(kExtendedInt16), nullptr);
}
