// Opening and closing objects: who may have what open at the same time.

#include "EngineTest.h"
#include "KelDbPointers.h"

using testing::ElementsAre;
using testing::IsEmpty;

class ObjectOpening : public EngineTest {
  protected:
    KelDbObject* open(int mode, Vorn::ErrorStatus expected = Vorn::eOk) {
        KelDbObject* object = nullptr;
        EXPECT_EQ(keldbOpenKelDbObject(object, m_walls, mode, false), expected);
        return object;
    }
    const KelDbObjectId m_walls = layerId(L"Walls");
};

TEST_F(ObjectOpening, ManyMayReadAtOnce) {
    KelDbObject* first = open(KelDb::kForRead);
    KelDbObject* second = open(KelDb::kForRead);
    EXPECT_EQ(first->objectId(), m_walls);
    EXPECT_EQ(first->close(), Vorn::eOk);
    EXPECT_EQ(second->close(), Vorn::eOk);
}

TEST_F(ObjectOpening, WritingIsRefusedWhileSomeoneReads) {
    KelDbObject* reader = open(KelDb::kForRead);
    EXPECT_EQ(open(KelDb::kForWrite, Vorn::eWasOpenForRead), nullptr);
    reader->close();
    open(KelDb::kForWrite)->close();
}

TEST_F(ObjectOpening, NobodyElseMayOpenWhatIsOpenForWriting) {
    KelDbObject* writer = open(KelDb::kForWrite);
    EXPECT_EQ(open(KelDb::kForRead, Vorn::eWasOpenForWrite), nullptr);
    EXPECT_EQ(open(KelDb::kForWrite, Vorn::eWasOpenForWrite), nullptr);
    writer->close();
    open(KelDb::kForRead)->close();
}

TEST_F(ObjectOpening, ASingleReaderMayBecomeTheWriter) {
    KelDbObject* object = open(KelDb::kForRead);
    EXPECT_EQ(object->upgradeOpen(), Vorn::eOk);
    EXPECT_EQ(object->upgradeOpen(), Vorn::eWasOpenForWrite);
    open(KelDb::kForRead, Vorn::eWasOpenForWrite);
    object->close();
}

TEST_F(ObjectOpening, OneReaderOfSeveralMayNotBecomeTheWriter) {
    KelDbObject* object = open(KelDb::kForRead);
    KelDbObject* other = open(KelDb::kForRead);
    EXPECT_EQ(object->upgradeOpen(), Vorn::eWasOpenForRead);
    other->close();
    EXPECT_EQ(object->upgradeOpen(), Vorn::eOk);
    object->close();
}

TEST_F(ObjectOpening, AWriterMayBecomeAReader) {
    KelDbObject* object = open(KelDb::kForWrite);
    EXPECT_EQ(object->downgradeOpen(), Vorn::eOk);
    EXPECT_EQ(object->downgradeOpen(), Vorn::eNotOpenForWrite);
    open(KelDb::kForRead)->close();
    object->close();
}

TEST_F(ObjectOpening, TheNullIdAndErasedObjectsAreRefused) {
    KelDbObject* object = nullptr;
    EXPECT_EQ(keldbOpenKelDbObject(object, {}, KelDb::kForRead, false), Vorn::eNullObjectId);
    ASSERT_EQ(engine::removeLayer(m_database, layer(L"Walls")), Vorn::eOk);
    open(KelDb::kForRead, Vorn::eWasErased);
    EXPECT_TRUE(m_walls.isErased());
    EXPECT_TRUE(m_walls.isValid());
    ASSERT_EQ(keldbOpenKelDbObject(object, m_walls, KelDb::kForRead, true), Vorn::eOk);
    object->close();
}

TEST_F(ObjectOpening, AnErasedLayerReadsAsNothingAndCannotBeWritten) {
    KelDbLayerTableRecord* record = nullptr;
    ASSERT_EQ(keldbOpenObject(record, m_walls, KelDb::kForWrite), Vorn::eOk);
    ASSERT_EQ(engine::removeLayer(m_database, layer(L"Walls")), Vorn::eOk);
    EXPECT_EQ(record->setLineWeight(25), Vorn::eNotOpenForWrite);
    EXPECT_FALSE(record->isFrozen());
    const wchar_t* name = nullptr;
    EXPECT_EQ(record->getName(name), Vorn::eNotApplicable);
    record->close();
}

TEST_F(ObjectOpening, AnObjectOfAnotherClassIsRefused) {
    KelDbXrecord* record = nullptr;
    EXPECT_EQ(keldbOpenObject(record, m_walls, KelDb::kForRead), Vorn::eNotThatKindOfClass);
    EXPECT_EQ(record, nullptr);
    KelDbSymbolTableRecord* base = nullptr;
    EXPECT_EQ(keldbOpenObject(base, m_walls, KelDb::kForRead), Vorn::eOk);
    EXPECT_STREQ(base->isA()->name(), L"KelDbLayerTableRecord");
    base->close();
}

TEST_F(ObjectOpening, TheLedgerKnowsWhatIsOpen) {
    KelDbObject* object = open(KelDb::kForRead);
    open(KelDb::kForRead);
    EXPECT_THAT(instruments::ledger(), ElementsAre("open for read " + instruments::describe(m_walls) + " (2 times)"));
    object->close();
    object->close();
    EXPECT_THAT(instruments::ledger(), IsEmpty());
}

TEST_F(ObjectOpening, ACloseThatIsMadeToFailStillEndsTheOpen) {
    KelDbObject* object = open(KelDb::kForWrite);
    instruments::failCall("close", 1, Vorn::eInvalidInput);
    EXPECT_EQ(object->close(), Vorn::eInvalidInput);
    EXPECT_THAT(instruments::ledger(), IsEmpty());
    open(KelDb::kForWrite)->close();
}

TEST_F(ObjectOpening, AnObjectInMemoryHasNoIdAndNothingToClose) {
    auto* record = new KelDbLayerTableRecord;
    EXPECT_TRUE(record->objectId().isNull());
    EXPECT_EQ(record->close(), Vorn::eNotApplicable);
    EXPECT_EQ(record->upgradeOpen(), Vorn::eNotApplicable);
    EXPECT_EQ(record->downgradeOpen(), Vorn::eNotApplicable);
    EXPECT_THAT(instruments::ledger(), ElementsAre("object in memory"));
    delete record;
}

TEST_F(ObjectOpening, PointersCloseWhatIsInADatabaseAndDeleteWhatIsNot) {
    {
        KelDbObjectPointer<KelDbLayerTableRecord> open(m_walls, KelDb::kForWrite);
        EXPECT_EQ(open.openStatus(), Vorn::eOk);
        KelDbObjectPointer<KelDbLayerTableRecord> refused;
        EXPECT_EQ(refused.open(m_walls, KelDb::kForRead), Vorn::eWasOpenForWrite);
        EXPECT_EQ(refused.openStatus(), Vorn::eNoDatabase) << "it has opened nothing yet";
        EXPECT_EQ(refused.object(), nullptr);
        KelDbObjectPointer<KelDbLayerTableRecord> inMemory;
        EXPECT_EQ(inMemory.openStatus(), Vorn::eNoDatabase);
        inMemory.create();
        EXPECT_EQ(instruments::ledger().size(), 2u);
    }
    EXPECT_THAT(instruments::ledger(), IsEmpty());
}

TEST_F(ObjectOpening, APointerClosesBeforeItOpensAnew) {
    const std::string walls = instruments::describe(m_walls);
    {
        KelDbObjectPointer<KelDbLayerTableRecord> pointer(m_walls, KelDb::kForWrite);
        EXPECT_EQ(pointer.open(m_walls, KelDb::kForWrite), Vorn::eOk);
        EXPECT_EQ(pointer.open({}, KelDb::kForRead), Vorn::eNullObjectId);
        EXPECT_EQ(pointer.openStatus(), Vorn::eNoDatabase);
    }
    EXPECT_THAT(instruments::trace(), ElementsAre("openObject(" + walls + ", 1, false) = 0", "close(" + walls + ") = 0",
                                                  "openObject(" + walls + ", 1, false) = 0", "close(" + walls + ") = 0",
                                                  "openObject(null, 0, false) = 16"));
}

TEST_F(ObjectOpening, APointersCloseMayFailUnseen) {
    instruments::failCall("close", 1, Vorn::eInvalidInput);
    { KelDbObjectPointer<KelDbLayerTableRecord> pointer(m_walls, KelDb::kForWrite); }
    EXPECT_TRUE(instruments::faultStruck());
    open(KelDb::kForWrite)->close();
}

TEST_F(ObjectOpening, ThereAreTwoModes) {
    KelDbObject* object = nullptr;
    for (const int mode : {-1, 2})
        EXPECT_EQ(keldbOpenKelDbObject(object, m_walls, mode, false), Vorn::eInvalidInput) << mode;
    EXPECT_EQ(object, nullptr);
}

TEST_F(ObjectOpening, WhatCannotBeOutsideOfItsDrawingHasNoCopy) {
    KelDbObjectPointer<KelDbObject> table(m_database.layerTableId(), KelDb::kForRead);
    EXPECT_EQ(table->clone(), nullptr);
    KelDbObjectPointer<KelDbObject> seen(viewportId(), KelDb::kForRead);
    EXPECT_EQ(seen->clone(), nullptr);
}

TEST_F(ObjectOpening, ATablePointerOfNoDatabaseAnswersSo) {
    KelDbSymbolTablePointer<KelDbLayerTable> none(nullptr, KelDb::kForRead);
    EXPECT_EQ(none.openStatus(), Vorn::eNoDatabase);
    KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForRead);
    EXPECT_EQ(table->objectId(), m_database.layerTableId());
}
