// The linetype table as a picker of linetypes reads it: walking it, and what each linetype says of itself.

#include "EngineTest.h"
#include "KelDbPointers.h"

#include <memory>

using testing::ElementsAre;

class LinetypeTable : public EngineTest {
  protected:
    std::unique_ptr<KelDbLinetypeTableIterator> iterate(bool atBeginning) {
        KelDbSymbolTablePointer<KelDbLinetypeTable> table(&m_database, KelDb::kForRead);
        KelDbLinetypeTableIterator* iterator = nullptr;
        EXPECT_EQ(table->newIterator(iterator, atBeginning, true), Vorn::eOk);
        return std::unique_ptr<KelDbLinetypeTableIterator>(iterator);
    }
    KelDbObjectId linetypeId(const wchar_t* name) {
        KelDbSymbolTablePointer<KelDbLinetypeTable> table(&m_database, KelDb::kForRead);
        KelDbObjectId id;
        EXPECT_EQ(table->getAt(name, id, false), Vorn::eOk);
        return id;
    }
    static std::wstring nameAt(const KelDbLinetypeTableIterator& iterator) {
        KelDbLinetypeTableRecord* record = nullptr;
        EXPECT_EQ(iterator.getRecord(record, KelDb::kForRead, false), Vorn::eOk);
        const wchar_t* name = L"";
        EXPECT_EQ(record->getName(name), Vorn::eOk);
        const std::wstring copy = name;
        EXPECT_EQ(record->close(), Vorn::eOk);
        return copy;
    }
};

TEST_F(LinetypeTable, IsWalkedInTableOrder) {
    std::vector<std::wstring> names;
    const auto iterator = iterate(true);
    for (; !iterator->done(); iterator->step(true, true))
        names.push_back(nameAt(*iterator));
    EXPECT_THAT(names, ElementsAre(L"Continuous", L"Dashed", L"Dotted"));
    KelDbLinetypeTableRecord* record = nullptr;
    EXPECT_EQ(iterator->getRecord(record, KelDb::kForRead, false), Vorn::eNotApplicable);
    KelDbObjectId id;
    EXPECT_EQ(iterator->getRecordId(id), Vorn::eNotApplicable);
}

TEST_F(LinetypeTable, IsWalkedBackwardsFromTheEnd) {
    std::vector<std::wstring> names;
    const auto iterator = iterate(false);
    for (; !iterator->done(); iterator->step(false, true))
        names.push_back(nameAt(*iterator));
    EXPECT_THAT(names, ElementsAre(L"Dotted", L"Dashed", L"Continuous"));
}

TEST_F(LinetypeTable, AWalkIsTheseCalls) {
    zdr::Drawing one = engine::makeNewDrawing();
    use(std::move(one));
    const std::string id = instruments::describe(linetypeId(L"Continuous"));
    instruments::clearTrace();
    for (const auto iterator = iterate(true); !iterator->done(); iterator->step(true, true))
        nameAt(*iterator);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("getLinetypeTable(0) = 0", "linetypeTable.newIterator(true, true) = 0",
                            "close(#linetypeTable) = 0", "iterator.done() = false",
                            "iterator.getRecord(0, false) = 0, id=" + id,
                            "record.getName(" + id + ") = 0, name=\"Continuous\"", "close(" + id + ") = 0",
                            "iterator.step(true, true)", "iterator.done() = true", "iterator.delete()"));
}

TEST_F(LinetypeTable, AnIteratorStaysInTheLedgerUntilItIsDeleted) {
    const auto iterator = iterate(true);
    EXPECT_THAT(instruments::ledger(), ElementsAre("iterator of the linetype table"));
}

TEST_F(LinetypeTable, AFailedWalkHandsNothingOut) {
    KelDbSymbolTablePointer<KelDbLinetypeTable> table(&m_database, KelDb::kForRead);
    KelDbLinetypeTableIterator* iterator = nullptr;
    instruments::failCall("linetypeTable.newIterator", 1, Vorn::eInvalidInput);
    EXPECT_EQ(table->newIterator(iterator, true, true), Vorn::eInvalidInput);
    EXPECT_EQ(iterator, nullptr);
    EXPECT_THAT(instruments::ledger(), ElementsAre("open for read #linetypeTable"));
}

TEST_F(LinetypeTable, ALinetypeTellsItsDescriptionAndItsPattern) {
    zdr::Drawing drawing = makeDrawing();
    drawing.linetypes.push_back(
        {drawing.names.intern(L"Center"), drawing.nextHandle++, L"____ _ ____", {12, -3, 0, -3}});
    use(std::move(drawing));
    KelDbObjectPointer<KelDbLinetypeTableRecord> center(linetypeId(L"Center"), KelDb::kForRead);
    wchar_t* description = center->description();
    EXPECT_STREQ(description, L"____ _ ____");
    EXPECT_THAT(instruments::ledger(), testing::SizeIs(2));
    kelutDelBuffer(description);
    ASSERT_EQ(center->numDashes(), 4);
    EXPECT_EQ(center->dashLengthAt(0), 12);
    EXPECT_EQ(center->dashLengthAt(1), -3);
    EXPECT_EQ(center->dashLengthAt(2), 0);
    EXPECT_EQ(center->dashLengthAt(3), -3);
    EXPECT_EQ(center->dashLengthAt(4), 0);
    EXPECT_EQ(center->dashLengthAt(-1), 0);
    KelDbObjectPointer<KelDbLinetypeTableRecord> continuous(linetypeId(L"Continuous"), KelDb::kForRead);
    EXPECT_EQ(continuous->numDashes(), 0);
}
