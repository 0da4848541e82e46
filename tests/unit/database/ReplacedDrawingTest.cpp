// Objects that are still open when another drawing takes the place of theirs: they read as nothing and change nothing.

#include "EngineTest.h"
#include "KelDbPointers.h"

#include <memory>

using ReplacedDrawing = EngineTest;

namespace {

template <class T> KelDbObjectPointer<T> opened(KelDbObjectId id, int mode = KelDb::kForRead) {
    return KelDbObjectPointer<T>(id, mode);
}

} // namespace

TEST_F(ReplacedDrawing, LeavesTablesThatCannotBeWalkedOrFilled) {
    KelDbSymbolTablePointer<KelDbLayerTable> layers(&m_database, KelDb::kForWrite);
    KelDbSymbolTablePointer<KelDbLinetypeTable> linetypes(&m_database, KelDb::kForRead);
    use(makeDrawing({{L"Walls"}}));
    KelDbLayerTableIterator* layer = nullptr;
    EXPECT_EQ(layers->newIterator(layer, true, true), Vorn::eNotApplicable);
    EXPECT_EQ(layer, nullptr);
    KelDbLinetypeTableIterator* linetype = nullptr;
    EXPECT_EQ(linetypes->newIterator(linetype, true, true), Vorn::eNotApplicable);
    EXPECT_EQ(linetype, nullptr);
    EXPECT_FALSE(layers->has(L"Walls"));
    KelDbObjectId id;
    EXPECT_EQ(linetypes->getAt(L"Dashed", id, false), Vorn::eKeyNotFound);
    KelDbLayerTableRecord roof;
    roof.setName(L"Roof");
    EXPECT_EQ(layers->add(id, &roof), Vorn::eNotOpenForWrite);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(drawing().layers.size(), 2u);
}

TEST_F(ReplacedDrawing, LeavesDictionariesThatCannotBeWalkedOrFilled) {
    KelDbDictionaryWithDefault* styles = nullptr;
    ASSERT_EQ(m_database.getPlotStyleNameDictionary(styles, KelDb::kForWrite), Vorn::eOk);
    EXPECT_FALSE(styles->defaultId().isNull());
    use(makeDrawing());
    KelDbDictionaryIterator* iterator = nullptr;
    EXPECT_EQ(styles->newIterator(iterator), Vorn::eNotApplicable);
    EXPECT_EQ(iterator, nullptr);
    KelDbObjectId id;
    EXPECT_EQ(styles->getAt(L"Normal", id), Vorn::eKeyNotFound);
    KelDbPlaceHolder style;
    EXPECT_EQ(styles->setAt(L"Coarse", &style, id), Vorn::eNotApplicable);
    EXPECT_TRUE(styles->defaultId().isNull());
    EXPECT_EQ(drawing().plotStyles.size(), 2u);
    EXPECT_EQ(styles->close(), Vorn::eOk);
}

TEST_F(ReplacedDrawing, LeavesRecordsThatTellNothing) {
    const auto layer = opened<KelDbLayerTableRecord>(layerId(L"Walls"));
    const auto linetype = opened<KelDbLinetypeTableRecord>(engine::objectId(m_database, drawing().linetypes[1].handle));
    ASSERT_EQ(linetype->numDashes(), 2);
    use(makeDrawing());
    EXPECT_EQ(layer->clone(), nullptr);
    EXPECT_FALSE(layer->isDependent());
    EXPECT_TRUE(layer->isResolved());
    EXPECT_EQ(linetype->description(), nullptr);
    EXPECT_EQ(linetype->numDashes(), 0);
    EXPECT_EQ(linetype->dashLengthAt(0), 0.0);
    wchar_t* copy = nullptr;
    EXPECT_EQ(linetype->getName(copy), Vorn::eNotApplicable);
    EXPECT_EQ(copy, nullptr);
}

TEST_F(ReplacedDrawing, LeavesViewportsThatShowNothing) {
    const auto seen = opened<KelDbViewport>(viewportId());
    const KelDbObjectId walls = layerId(L"Walls");
    engine::setFrozenInViewport(m_database, viewport().handle, layer(L"Walls"), true);
    ASSERT_TRUE(seen->isLayerFrozenInViewport(walls));
    use(makeDrawing({{L"Walls"}}));
    EXPECT_EQ(seen->number(), -1);
    EXPECT_FALSE(seen->isLayerFrozenInViewport(walls));
    EXPECT_FALSE(seen->isLayerFrozenInViewport(layerId(L"Walls")));
}

TEST_F(ReplacedDrawing, LeavesStatesWhoseCopiesAreEmpty) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    const KelDbObjectPointer<KelDbDictionary> dictionary(states().layerStatesDictionaryId(true), KelDb::kForRead);
    KelDbObjectId plan;
    ASSERT_EQ(dictionary->getAt(L"Plan", plan), Vorn::eOk);
    const auto record = opened<KelDbXrecord>(plan);
    use(makeDrawing());
    KelDbObjectPointer<KelDbObject> copy;
    copy.acquire(record->clone());
    const KelDbObjectPointer<KelDbDictionary> now(states().layerStatesDictionaryId(true), KelDb::kForWrite);
    KelDbObjectId id;
    EXPECT_EQ(now->setAt(L"Plan", copy, id), Vorn::eInvalidInput);
    EXPECT_TRUE(id.isNull());
    EXPECT_TRUE(drawing().states.empty());
}
