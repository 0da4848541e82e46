// Walking the dictionaries: the plot style names as a picker reads them, and the records of the states.

#include "EngineTest.h"
#include "KelDbPointers.h"

#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;

class Dictionary : public EngineTest {
  protected:
    /// The plot style names, open for read; the caller closes it.
    KelDbDictionaryWithDefault* openPlotStyles() {
        KelDbDictionaryWithDefault* dictionary = nullptr;
        EXPECT_EQ(m_database.getPlotStyleNameDictionary(dictionary, KelDb::kForRead), Vorn::eOk);
        return dictionary;
    }
    std::vector<std::wstring> entries(const KelDbDictionary& dictionary) {
        KelDbDictionaryIterator* raw = nullptr;
        EXPECT_EQ(dictionary.newIterator(raw), Vorn::eOk);
        const std::unique_ptr<KelDbDictionaryIterator> iterator(raw);
        std::vector<std::wstring> names;
        for (; !iterator->done(); iterator->next()) {
            names.emplace_back(iterator->name());
            KelDbObjectId id;
            EXPECT_EQ(dictionary.getAt(iterator->name(), id), Vorn::eOk);
            EXPECT_EQ(iterator->objectId(), id);
        }
        iterator->next();
        EXPECT_TRUE(iterator->done());
        EXPECT_EQ(iterator->name(), nullptr);
        EXPECT_TRUE(iterator->objectId().isNull());
        return names;
    }
};

TEST_F(Dictionary, PlotStyleNamesAreWalkedInOrder) {
    KelDbDictionaryWithDefault* dictionary = openPlotStyles();
    EXPECT_THAT(entries(*dictionary), ElementsAre(L"Normal", L"Fine"));
    dictionary->close();
}

TEST_F(Dictionary, StatesAreWalkedWithoutThoseOfReferences) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    states().saveLayerState(L"Section", MaskAllProperties);
    zdr::Drawing attached = makeDrawing();
    attached.states.push_back({.name = L"Theirs", .mask = MaskAllProperties});
    zdr::Drawing drawing = this->drawing();
    drawing.references.push_back(
        {.name = L"Site", .path = L"site.zdr", .drawing = std::make_shared<const zdr::Drawing>(std::move(attached))});
    use(std::move(drawing));
    ASSERT_THAT(stateNames(), ElementsAre(L"Plan", L"Section", L"Site!Theirs"));
    KelDbObjectPointer<KelDbDictionary> dictionary(states().layerStatesDictionaryId(true), KelDb::kForRead);
    EXPECT_THAT(entries(*dictionary), ElementsAre(L"Plan", L"Section"));
}

TEST_F(Dictionary, AnEmptyOneIsDoneAtOnce) {
    KelDbObjectPointer<KelDbDictionary> dictionary(states().layerStatesDictionaryId(true), KelDb::kForRead);
    EXPECT_THAT(entries(*dictionary), IsEmpty());
}

TEST_F(Dictionary, AnIteratorStaysInTheLedgerUntilItIsDeleted) {
    KelDbDictionaryWithDefault* dictionary = openPlotStyles();
    KelDbDictionaryIterator* iterator = nullptr;
    EXPECT_EQ(dictionary->newIterator(iterator), Vorn::eOk);
    dictionary->close();
    EXPECT_THAT(instruments::ledger(), ElementsAre("iterator of a dictionary"));
    delete iterator;
}

TEST_F(Dictionary, AFailedWalkHandsNothingOut) {
    KelDbDictionaryWithDefault* dictionary = openPlotStyles();
    KelDbDictionaryIterator* iterator = nullptr;
    instruments::failCall("dictionary.newIterator", 1, Vorn::eInvalidInput);
    EXPECT_EQ(dictionary->newIterator(iterator), Vorn::eInvalidInput);
    EXPECT_EQ(iterator, nullptr);
    dictionary->close();
}
