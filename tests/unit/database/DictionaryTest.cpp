// The dictionaries: walking them as a picker does, and entering plot styles.

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
    zdr::LayerState& theirs = attached.states.emplace_back();
    theirs.name = L"Theirs";
    theirs.mask = MaskAllProperties;
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

class PlotStyles : public Dictionary {
  protected:
    PlotStyles() { EXPECT_EQ(m_database.getPlotStyleNameDictionary(m_styles, KelDb::kForWrite), Vorn::eOk); }
    ~PlotStyles() override { EXPECT_EQ(m_styles->close(), Vorn::eOk); }
    /// Enters a new placeholder under a name and closes it.
    Vorn::ErrorStatus put(const wchar_t* name, KelDbObjectId& id) {
        KelDbObjectPointer<KelDbPlaceHolder> style;
        style.create();
        return m_styles->setAt(name, style, id);
    }
    KelDbDictionaryWithDefault* m_styles = nullptr;
};

TEST_F(PlotStyles, ANewOneIsEnteredAndCanBeUsed) {
    KelDbObjectId id, found;
    EXPECT_EQ(put(L"Coarse", id), Vorn::eOk);
    EXPECT_EQ(m_styles->getAt(L"COARSE", found), Vorn::eOk);
    EXPECT_EQ(found, id);
    EXPECT_THAT(entries(*m_styles), ElementsAre(L"Normal", L"Fine", L"Coarse"));
    KelDbObjectPointer<KelDbLayerTableRecord> walls(layerId(L"Walls"), KelDb::kForWrite);
    EXPECT_EQ(walls->setPlotStyleName(id), Vorn::eOk);
    EXPECT_EQ(walls->plotStyleNameId(), id);
}

TEST_F(PlotStyles, OneOfAUsedNameTakesThePlaceOfTheOther) {
    KelDbObjectId before, id;
    m_styles->getAt(L"Normal", before);
    EXPECT_EQ(put(L"NORMAL", id), Vorn::eOk);
    EXPECT_NE(id, before);
    EXPECT_TRUE(before.isErased());
    EXPECT_THAT(entries(*m_styles), ElementsAre(L"Normal", L"Fine"));
}

TEST_F(PlotStyles, AnObjectThatIsRefusedStaysTheCallers) {
    KelDbObjectId id;
    EXPECT_EQ(put(L"a*b", id), Vorn::eInvalidInput);
    EXPECT_EQ(put(std::wstring(256, L'x').c_str(), id), Vorn::eNameTooLong);
    EXPECT_EQ(put(nullptr, id), Vorn::eInvalidInput);
    EXPECT_EQ(m_styles->setAt(L"Coarse", nullptr, id), Vorn::eInvalidInput);
    KelDbLayerTableRecord layer;
    EXPECT_EQ(m_styles->setAt(L"Coarse", &layer, id), Vorn::eInvalidInput);
    instruments::failCall("dictionary.setAt", 1, Vorn::eInvalidInput);
    EXPECT_EQ(put(L"Coarse", id), Vorn::eInvalidInput);
    EXPECT_TRUE(id.isNull());
    EXPECT_THAT(entries(*m_styles), ElementsAre(L"Normal", L"Fine"));
    EXPECT_EQ(m_styles->downgradeOpen(), Vorn::eOk);
    EXPECT_EQ(put(L"Coarse", id), Vorn::eNotOpenForWrite);
}

TEST_F(PlotStyles, AreCopiedAndUndone) {
    KelDbObjectId fine, id;
    m_styles->getAt(L"Fine", fine);
    {
        KelDbObjectPointer<KelDbPlaceHolder> style(fine, KelDb::kForRead);
        KelDbObjectPointer<KelDbObject> copy;
        copy.acquire(style->clone());
        engine::beginUndoGroup(m_database);
        EXPECT_EQ(m_styles->setAt(L"Finer", copy, id), Vorn::eOk);
        EXPECT_EQ(m_styles->setAt(L"Finest", style, id), Vorn::eInvalidInput) << "it stands in the drawing already";
    }
    setColor(L"Walls", 3);
    engine::endUndoGroup(m_database);
    EXPECT_TRUE(engine::undo(m_database));
    EXPECT_THAT(entries(*m_styles), ElementsAre(L"Normal", L"Fine"));
    EXPECT_EQ(m_styles->getAt(L"Finer", fine), Vorn::eKeyNotFound);
    EXPECT_TRUE(engine::redo(m_database));
    EXPECT_THAT(entries(*m_styles), ElementsAre(L"Normal", L"Fine", L"Finer"));
}
