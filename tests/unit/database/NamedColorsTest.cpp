// Named colours on layers, in states and in viewports, and on their way from drawing to drawing.

#include "EngineTest.h"
#include "KelDbPointers.h"
#include "model/NamedColors.h"

using testing::ElementsAre;
using testing::HasSubstr;
using zdr::ColorId;

namespace {

KelCmColor named(const wchar_t* name, const wchar_t* book = nullptr, std::uint8_t blue = 140) {
    KelCmColor color;
    EXPECT_EQ(color.setRGB(0, 60, blue), Vorn::eOk);
    EXPECT_EQ(color.setNames(name, book), Vorn::eOk);
    return color;
}

KelCmColor signalBlue() {
    return named(L"Signal Blue", L"House Paints");
}

class NamedColors : public EngineTest {
  protected:
    NamedColors() {
        paint(L"Walls", signalBlue());
        EXPECT_EQ(states().saveLayerState(L"Plan", MaskAllProperties), Vorn::eOk);
    }
    void paint(const wchar_t* name, const KelCmColor& color) { paintIn(m_database, name, color); }
    static void paintIn(KelDbDatabase& database, const wchar_t* name, const KelCmColor& color) {
        const KelDbObjectId id = engine::layerId(database, engine::layerIndex(database, name));
        KelDbObjectPointer<KelDbLayerTableRecord> record(id, KelDb::kForWrite);
        record->setColor(color);
    }
    KelCmColor colorOf(const wchar_t* name) const {
        KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(name), KelDb::kForRead);
        return record->color();
    }
    KelCmColor heldColor(std::size_t state, std::size_t row) const {
        return drawing().namedColors.color(drawing().states.at(state).columns.colors[row]);
    }
    std::size_t knownColors() const { return drawing().namedColors.size(); }
};

/// A drawing whose layer Walls and state "Detail" have named colours, at other places of its table than in the
/// fixture's drawing.
void fillWithColors(KelDbDatabase& database) {
    zdr::Drawing drawing = makeDrawing({{L"Walls"}});
    drawing.namedColors.intern(named(L"Amber"));
    drawing.columns.colors.set(1, drawing.namedColors.intern(named(L"Slate", L"Yacht Paints")));
    engine::replaceDrawing(database, std::move(drawing));
    database.getLayerStateManager()->saveLayerState(L"Detail", MaskColor);
}

} // namespace

TEST(NamedColorTable, onlyColorsWithNamesAreEntered) {
    zdr::NamedColors colors;
    KelCmColor plain;
    plain.setRGB(1, 2, 3);
    EXPECT_EQ(colors.intern(plain), 0xC2010203u);
    EXPECT_EQ(colors.intern(KelCmColor::fromPacked(5)), 5u);
    EXPECT_EQ(colors.size(), 0u);
    const ColorId id = colors.intern(signalBlue());
    EXPECT_TRUE(zdr::isNamedColor(id));
    EXPECT_EQ(colors.size(), 1u);
    EXPECT_EQ(colors.color(id), signalBlue());
    EXPECT_EQ(colors.packed(id), 0xC2003C8Cu);
    EXPECT_EQ(colors.color(5), KelCmColor::fromPacked(5));
    EXPECT_EQ(colors.packed(0xC2010203), 0xC2010203u);
}

TEST(NamedColorTable, noPackedValueLooksLikeANamedColor) {
    for (const ColorId packed : {0u, 1u, 256u, 0xC2000000u, 0xC2FFFFFFu})
        EXPECT_FALSE(zdr::isNamedColor(packed)) << packed;
}

TEST(NamedColorTable, equalColorsHaveOneNumberAndOthersTheirOwn) {
    zdr::NamedColors colors;
    const ColorId id = colors.intern(signalBlue());
    EXPECT_EQ(colors.intern(signalBlue()), id);
    EXPECT_NE(colors.intern(named(L"SIGNAL BLUE", L"House Paints")), id);
    EXPECT_NE(colors.intern(named(L"Signal Blue", L"Yacht Paints")), id);
    EXPECT_NE(colors.intern(named(L"Signal Blue")), id);
    EXPECT_NE(colors.intern(named(nullptr, L"House Paints")), id);
    EXPECT_NE(colors.intern(named(L"Signal Blue", L"House Paints", 141)), id);
    EXPECT_NE(colors.intern(named(L"House Paints", L"Signal Blue")), id);
    EXPECT_EQ(colors.size(), 7u);
}

TEST(NamedColorTable, takesColumnsOfAnotherTable) {
    zdr::NamedColors from, to;
    from.intern(named(L"Amber"));
    const ColorId blue = from.intern(signalBlue());
    const zdr::Column<ColorId> column({7, blue, 0xC2010203, blue});
    const zdr::Column<ColorId> taken = to.take(column, from);
    EXPECT_THAT(taken.values(), ElementsAre(7, to.intern(signalBlue()), 0xC2010203, to.intern(signalBlue())));
    EXPECT_EQ(to.size(), 1u) << "colours that aren't used don't come along";
    const zdr::Column<ColorId> plain({7, 0xC2010203});
    EXPECT_EQ(to.take(plain, from).values().data(), plain.values().data()) << "without named ones it stays shared";
}

TEST_F(NamedColors, AreReadAsTheyWereGiven) {
    EXPECT_EQ(colorOf(L"Walls"), signalBlue());
    EXPECT_EQ(colorOf(L"Doors"), KelCmColor());
    EXPECT_THAT(instruments::trace(), testing::Contains(HasSubstr("rgb 0,60,140 \"Signal Blue\" of \"House Paints\"")));
}

TEST_F(NamedColors, AreKnownOnceHoweverManyLayersHaveThem) {
    paint(L"Doors", signalBlue());
    EXPECT_EQ(values(L"Doors").color, values(L"Walls").color);
    EXPECT_EQ(knownColors(), 1u);
}

TEST_F(NamedColors, AreNotEnteredByARecordThatIsNotOpenForWrite) {
    {
        KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"Walls"), KelDb::kForRead);
        record->setColor(named(L"Amber"));
    }
    EXPECT_EQ(colorOf(L"Walls"), signalBlue());
    EXPECT_EQ(knownColors(), 1u);
}

TEST_F(NamedColors, ComeBackWhenTheyAreUndoneAndDoneAgain) {
    engine::beginUndoGroup(m_database);
    paint(L"Walls", named(L"Amber"));
    engine::endUndoGroup(m_database);
    ASSERT_TRUE(engine::undo(m_database));
    EXPECT_EQ(colorOf(L"Walls"), signalBlue());
    ASSERT_TRUE(engine::redo(m_database));
    EXPECT_EQ(colorOf(L"Walls"), named(L"Amber"));
}

TEST_F(NamedColors, StandOnCopiesOfRecordsAndOnLayersMadeOfThem) {
    KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"Walls"), KelDb::kForRead);
    KelDbObjectPointer<KelDbLayerTableRecord> copy;
    copy.acquire(static_cast<KelDbLayerTableRecord*>(record->clone()));
    EXPECT_EQ(copy->color(), signalBlue());
    copy->setColor(named(L"Amber"));
    copy->setName(L"Roof");
    KelDbSymbolTablePointer<KelDbLayerTable> table(&m_database, KelDb::kForWrite);
    KelDbObjectId id;
    ASSERT_EQ(table->add(id, copy), Vorn::eOk);
    EXPECT_EQ(copy->color(), named(L"Amber"));
    EXPECT_EQ(record->color(), signalBlue());
}

TEST_F(NamedColors, AreRestored) {
    paint(L"Walls", named(L"Amber"));
    EXPECT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(colorOf(L"Walls"), signalBlue());
}

TEST_F(NamedColors, AreRestoredAsOverrides) {
    paint(L"Walls", named(L"Amber"));
    EXPECT_EQ(restore(L"Plan", RestoreFlagAsOverrides, viewportId()), Vorn::eOk);
    EXPECT_EQ(colorOf(L"Walls"), named(L"Amber"));
    const ColorId shown = engine::shownColumns(m_database, &viewport()).colors[layer(L"Walls")];
    EXPECT_EQ(drawing().namedColors.color(shown), signalBlue());
}

TEST_F(NamedColors, CountInComparisonsToTheLetter) {
    EXPECT_TRUE(matches(L"Plan"));
    const KelCmColor others[] = {named(L"Signal Blue"), named(L"SIGNAL BLUE", L"House Paints"),
                                 named(nullptr, L"House Paints"), named(nullptr)};
    for (const KelCmColor& other : others) {
        paint(L"Walls", other);
        EXPECT_FALSE(matches(L"Plan")) << instruments::describe(other);
    }
    paint(L"Walls", signalBlue());
    EXPECT_TRUE(matches(L"Plan"));
    states().setLayerStateMask(L"Plan", MaskAllProperties & ~MaskColor);
    paint(L"Walls", named(L"Amber"));
    EXPECT_TRUE(matches(L"Plan")) << "without the colour's bit names count as little as the colour";
}

TEST_F(NamedColors, AreWrittenIntoALayerOfAState) {
    KelDbLayerTableRecord record;
    record.setName(L"Doors");
    record.setColor(named(L"Amber"));
    ASSERT_TRUE(impStates().updateLayerStateLayer(L"Plan", &record, false));
    EXPECT_EQ(heldColor(0, layer(L"Doors")), named(L"Amber"));
    EXPECT_EQ(colorOf(L"Doors"), KelCmColor());
}

TEST_F(NamedColors, ComeWithAStateOfAnotherDrawing) {
    KelDbDatabase other(false, true);
    fillWithColors(other);
    ASSERT_EQ(states().importLayerStateFromDb(L"Detail", &other), Vorn::eOk);
    EXPECT_EQ(heldColor(1, 1), named(L"Slate", L"Yacht Paints"));
    EXPECT_EQ(knownColors(), 2u) << "what the state doesn't use stays there";
    EXPECT_EQ(restore(L"Detail"), Vorn::eOk);
    EXPECT_EQ(colorOf(L"Walls"), named(L"Slate", L"Yacht Paints"));
}

TEST_F(NamedColors, ComeBackWithACopyOfTheStatesRecord) {
    KelDbObjectPointer<KelDbDictionary> dictionary(states().layerStatesDictionaryId(true), KelDb::kForWrite);
    KelDbObjectId id;
    ASSERT_EQ(dictionary->getAt(L"Plan", id), Vorn::eOk);
    KelDbObjectPointer<KelDbObject> copy;
    {
        KelDbObjectPointer<KelDbXrecord> record(id, KelDb::kForRead);
        copy.acquire(record->clone());
    }
    paint(L"Walls", named(L"Amber"));
    states().saveLayerState(L"Plan", MaskAllProperties);
    EXPECT_EQ(heldColor(0, layer(L"Walls")), named(L"Amber"));
    ASSERT_EQ(dictionary->setAt(L"Plan", copy, id), Vorn::eOk);
    EXPECT_EQ(heldColor(0, layer(L"Walls")), signalBlue());
}

TEST_F(NamedColors, ComeWithTheLayersAndStatesOfAReference) {
    KelDbDatabase other(false, true);
    fillWithColors(other);
    zdr::Drawing withReference = drawing();
    withReference.references.push_back({.name = L"site", .path = L"site.zdr", .insertion = {}, .drawing = nullptr});
    use(std::move(withReference));
    engine::attachReference(m_database, 0, std::make_shared<zdr::Drawing>(engine::drawingOf(other)));
    EXPECT_EQ(colorOf(L"site!Walls"), named(L"Slate", L"Yacht Paints"));
    EXPECT_EQ(colorOf(L"Walls"), signalBlue());
    EXPECT_EQ(heldColor(1, 1), named(L"Slate", L"Yacht Paints"));
    EXPECT_EQ(knownColors(), 2u);
}
