// LAYER with each of its options, and UNDO of each.

#include "CommandFixture.h"
#include "HandmadeDrawing.h"

#include "engine/DatabaseAccess.h"

#include <gmock/gmock.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class LayerCommandTest : public CommandFixture {
  protected:
    LayerCommandTest() { run(L"LAYER NEW Walls,Windows,\"Ground floor\""); }
    std::wstring current() const { return drawing().names.text(drawing().layers[drawing().currentLayer].name); }
    /// Runs a line that changes the flags of "Walls" to these, and takes it back.
    void expectFlags(const std::wstring& line, unsigned expected, const std::wstring& said) {
        const unsigned before = flags(L"Walls");
        EXPECT_EQ(run(line), said);
        EXPECT_EQ(flags(L"Walls"), expected);
        EXPECT_GT(window.changed, 0) << "the view is told";
        run(L"UNDO");
        EXPECT_EQ(flags(L"Walls"), before) << "after UNDO";
        run(L"REDO");
        EXPECT_EQ(flags(L"Walls"), expected) << "after REDO";
    }
};

constexpr unsigned kFresh = zdr::kLayerOn | zdr::kLayerPlot;

} // namespace

TEST_F(LayerCommandTest, SetMakesALayerCurrent) {
    EXPECT_EQ(run(L"LAYER SET walls"), L"\"Walls\" is the current layer.\n");
    EXPECT_EQ(current(), L"Walls");
    run(L"U");
    EXPECT_EQ(current(), L"Base");
    EXPECT_EQ(run(L"la s \"Ground floor\""), L"\"Ground floor\" is the current layer.\n");
}

TEST_F(LayerCommandTest, SetRefusesAFrozenLayer) {
    run(L"LAYER FREEZE Walls");
    EXPECT_EQ(run(L"LAYER SET Walls"), L"\"Walls\" isn't made current, because it is frozen: thaw it first.\n");
    EXPECT_EQ(current(), L"Base");
}

TEST_F(LayerCommandTest, MakeMakesALayerAndSetsItAsOneStep) {
    EXPECT_EQ(run(L"LAYER MAKE \"First floor\""), L"\"First floor\" is made and is the current layer.\n");
    EXPECT_EQ(current(), L"First floor");
    EXPECT_EQ(flags(L"First floor"), kFresh);
    run(L"UNDO");
    EXPECT_EQ(engine::layerIndex(session.database(), L"First floor"), zdr::kNone);
    EXPECT_EQ(current(), L"Base");
}

TEST_F(LayerCommandTest, MakeOfALayerThatIsThereSetsIt) {
    EXPECT_EQ(run(L"LAYER MAKE walls"), L"\"Walls\" is the current layer.\n");
    EXPECT_EQ(drawing().layers.size(), 4u);
}

TEST_F(LayerCommandTest, NewMakesThoseThatAreMissing) {
    EXPECT_EQ(run(L"LAYER NEW a,Walls,\"b c\" d"), L"3 layers are made.\n");
    layer(L"a"), layer(L"b c"), layer(L"d");
    EXPECT_EQ(current(), L"Base");
    run(L"UNDO");
    EXPECT_EQ(drawing().layers.size(), 4u) << "one step";
}

TEST_F(LayerCommandTest, TurnsFlagsOnAndOff) {
    expectFlags(L"LAYER OFF Walls", zdr::kLayerPlot, L"1 layer is off.\n");
    expectFlags(L"LAYER ON Walls", kFresh, L"1 layer is on.\n");
    expectFlags(L"LAYER FREEZE Walls", kFresh | zdr::kLayerFrozen, L"1 layer is frozen.\n");
    expectFlags(L"LAYER THAW Walls", kFresh, L"1 layer is thawed.\n");
    expectFlags(L"LAYER LOCK Walls", kFresh | zdr::kLayerLocked, L"1 layer is locked.\n");
    expectFlags(L"LAYER UNLOCK Walls", kFresh, L"1 layer is unlocked.\n");
    expectFlags(L"LAYER PLOT no Walls", zdr::kLayerOn, L"1 layer is not plotted.\n");
    expectFlags(L"LAYER PLOT yes Walls", kFresh, L"1 layer is plotted.\n");
    expectFlags(L"LAYER NEWVIEWPORTS no Walls", kFresh | zdr::kLayerNewViewportFrozen,
                L"1 layer is frozen in new viewports.\n");
    expectFlags(L"LAYER NEWVP yes Walls", kFresh, L"1 layer is shown in new viewports.\n");
}

TEST_F(LayerCommandTest, TakesPatternsAndListsAndCountsEachLayerOnce) {
    EXPECT_EQ(run(L"LAYER OFF w*,?alls \"ground floor\""), L"3 layers are off.\n");
    EXPECT_FALSE(flags(L"Windows") & zdr::kLayerOn);
    EXPECT_FALSE(flags(L"Ground floor") & zdr::kLayerOn);
    EXPECT_TRUE(flags(L"Base") & zdr::kLayerOn);
    run(L"UNDO");
    EXPECT_TRUE(flags(L"Windows") & zdr::kLayerOn);
    EXPECT_TRUE(flags(L"Walls") & zdr::kLayerOn);
}

TEST_F(LayerCommandTest, ChangesNothingWhenOneOfTheNamesIsUnknown) {
    EXPECT_EQ(run(L"LAYER OFF Walls Doors"),
              L"No layer is called \"Doors\": LAYER LIST shows the names; one with blanks goes in quotes.\n");
    EXPECT_TRUE(flags(L"Walls") & zdr::kLayerOn);
}

TEST_F(LayerCommandTest, NeverFreezesTheCurrentLayer) {
    EXPECT_EQ(run(L"LAYER FREEZE *"), L"3 layers are frozen; \"Base\" is the current layer, which can't be frozen: "
                                      L"make another one current first.\n");
    EXPECT_FALSE(flags(L"Base") & zdr::kLayerFrozen);
    EXPECT_TRUE(flags(L"Windows") & zdr::kLayerFrozen);
}

TEST_F(LayerCommandTest, GivesValuesToLayersOrToTheCurrentOne) {
    const std::size_t walls = layer(L"Walls");
    EXPECT_EQ(run(L"LAYER COLOUR red Walls,Windows"), L"2 layers are given the color red.\n");
    EXPECT_EQ(drawing().columns.colors[walls], 1u);
    EXPECT_EQ(run(L"LAYER COLOR 10,20,30 Walls"), L"1 layer is given the color 10,20,30.\n");
    EXPECT_EQ(drawing().columns.colors[walls], 0xC20A141Eu);
    run(L"UNDO");
    EXPECT_EQ(drawing().columns.colors[walls], 1u);
    EXPECT_EQ(run(L"LAYER LINEWEIGHT 0.5 Walls"), L"1 layer is given the lineweight 0.5.\n");
    EXPECT_EQ(drawing().columns.lineWeights[walls], 50);
    run(L"LAYER LWEIGHT 1.06");
    EXPECT_EQ(drawing().columns.lineWeights[0], 106) << "the current layer";
    run(L"LAYER LWEIGHT default");
    EXPECT_EQ(drawing().columns.lineWeights[0], -3);
}

TEST_F(LayerCommandTest, GivesStylesOfTheDrawing) {
    zdr::Drawing styled = drawing();
    styled.linetypes.push_back({styled.names.intern(L"Dash dot"), 0, L"", {6, -3, 0, -3}});
    styled.plotStyles.push_back({styled.names.intern(L"Grey"), 0});
    session.rebuild(styled);
    EXPECT_EQ(run(L"LAYER LTYPE \"dash dot\" Walls"), L"1 layer is given the linetype dash dot.\n");
    EXPECT_EQ(drawing().names.text(drawing().columns.linetypes[layer(L"Walls")]), L"Dash dot");
    run(L"LAYER PSTYLE grey Walls");
    EXPECT_EQ(drawing().names.text(drawing().columns.plotStyles[layer(L"Walls")]), L"Grey");
    EXPECT_EQ(run(L"LAYER LTYPE Walls"),
              L"The drawing has no linetype \"Walls\": give one of Continuous, \"Dash dot\".\n")
        << "a name that only a layer bears is no linetype";
}

TEST_F(LayerCommandTest, RefusesPlotStylesWhereColoursDecide) {
    zdr::Drawing coloured = drawing();
    coloured.colorDependentPlotStyles = true;
    session.rebuild(coloured);
    EXPECT_EQ(run(L"LAYER PSTYLE Normal Walls"),
              L"The drawing takes its plot styles from colors: change the color instead.\n");
}

TEST_F(LayerCommandTest, DescribesLayers) {
    EXPECT_EQ(run(L"LAYER DESCRIPTION \"bearing walls\" Walls"), L"1 layer is described.\n");
    EXPECT_EQ(drawing().layers[layer(L"Walls")].description, L"bearing walls");
    run(L"UNDO");
    EXPECT_EQ(drawing().layers[layer(L"Walls")].description, L"");
}

TEST_F(LayerCommandTest, RenamesAndDeletes) {
    EXPECT_EQ(run(L"LAYER RENAME walls \"Outer walls\""), L"\"Walls\" is called \"Outer walls\" now.\n");
    layer(L"Outer walls");
    run(L"UNDO");
    layer(L"Walls");
    EXPECT_EQ(run(L"LAYER DELETE W*"), L"2 layers are deleted.\n");
    EXPECT_EQ(drawing().layers.size(), 2u);
    run(L"UNDO");
    EXPECT_EQ(drawing().layers.size(), 4u);
    EXPECT_EQ(run(L"LAYER DELETE *"),
              L"3 layers are deleted; \"Base\" stays, because every drawing keeps that layer: choose another one.\n");
}

TEST_F(LayerCommandTest, DeletingTellsOfAllLayersThatStayAndWhy) {
    zdr::Drawing site = handmade::emptyDrawing();
    for (const wchar_t* name : {L"Base", L"Trees", L"Paths"})
        handmade::addLayer(site, name);
    writeDrawing("site.zdr", site);
    zdr::Drawing house = handmade::emptyDrawing();
    for (const wchar_t* name : {L"Base", L"Walls", L"Free", L"Windows"})
        handmade::addLayer(house, name);
    handmade::addLine(house, 1);
    handmade::addLine(house, 3);
    writeDrawing("house.zdr", house);
    window.saveAnswer = workbench::SaveAnswer::Discard;
    run(L"OPEN \"" + path("house.zdr") + L"\"");
    run(L"ATTACH \"" + path("site.zdr") + L"\"");
    EXPECT_EQ(
        run(L"LAYER DELETE *"),
        L"1 layer is deleted; "
        L"3 layers stay, because they belong to attached drawings: \"site!Base\", \"site!Trees\", \"site!Paths\"; "
        L"2 layers stay, because something lies on them or one is the current layer: \"Walls\", \"Windows\"; "
        L"\"Base\" stays, because every drawing keeps that layer: choose another one.\n");
    EXPECT_EQ(run(L"LAYER DELETE Walls,Windows"), L"2 layers stay, because something lies on them or one is the "
                                                  L"current layer: \"Walls\", \"Windows\".\n");
}

TEST_F(LayerCommandTest, ListsLayersWithTheirProperties) {
    run(L"LAYER LOCK Walls");
    run(L"LAYER COLOUR 30 Walls");
    run(L"LAYER LINEWEIGHT 0.05 Walls");
    run(L"LAYER DESCRIPTION bearing Walls");
    EXPECT_EQ(run(L"LAYER LIST wa*"), L"Walls: on, locked, 30, Continuous, 0.05 mm - bearing\n");
    EXPECT_THAT(run(L"LAYER ?"), HasSubstr(L"Base: on, White, Continuous, default (current)\n"));
}

TEST_F(LayerCommandTest, ListsANamedColourByItsName) {
    session.change([](KelDbDatabase& database) {
        KelCmColor color;
        color.setRGB(0, 60, 140);
        color.setNames(L"Signal Blue", L"House Paints");
        engine::LayerValues values = engine::layerValues(database, 1);
        values.color = engine::colorId(database, color);
        EXPECT_EQ(engine::setLayerValues(database, 1, values), Vorn::eOk);
    });
    EXPECT_EQ(run(L"LAYER LIST Walls"), L"Walls: on, Signal Blue (House Paints), Continuous, default\n");
}

TEST_F(LayerCommandTest, ListsNoMoreThanCanBeRead) {
    std::wstring names;
    for (int i = 0; i < 300; ++i)
        names += L"L" + std::to_wstring(i) + L",";
    run(L"LAYER NEW " + names);
    const std::wstring text = run(L"LAYER LIST L*");
    EXPECT_EQ(std::count(text.begin(), text.end(), L'\n'), 201);
    EXPECT_THAT(text, testing::EndsWith(L"100 more: a pattern such as A* shows fewer.\n"));
}

TEST_F(LayerCommandTest, AFailingTransactionIsToldAndChangesNothing) {
    for (const wchar_t* line : {L"LAYER OFF Walls", L"LAYER SET Walls", L"LAYER MAKE Attic", L"LAYER NEW Attic,Cellar",
                                L"LAYER RENAME Walls Mauern", L"LAYER DELETE Walls", L"LAYER DESCRIPTION x Walls"}) {
        instruments::failCall("startTransaction", 1);
        EXPECT_EQ(run(line), L"The drawing can't be changed now: end what is under way and try again.\n");
        EXPECT_TRUE(flags(L"Walls") & zdr::kLayerOn);
        instruments::clearFaults();
    }
}

TEST_F(LayerCommandTest, AFailingDescriptionIsTold) {
    instruments::failCall("record.setDescription", 1);
    EXPECT_THAT(run(L"LAYER DESCRIPTION x Walls"), HasSubstr(L"Not all layers are described, because"));
    instruments::clearFaults();
}

TEST_F(LayerCommandTest, NewTellsWhenThereIsNothingToMake) {
    run(L"LAYER NEW Old");
    EXPECT_EQ(run(L"LAYER NEW old,base"), L"2 layers are there already.\n");
    EXPECT_EQ(run(L"LAYER NEW old,New"), L"1 layer is made.\n");
    EXPECT_EQ(run(L"LAYER NEW ,"), L"No layer is named: give names with commas between.\n");
}

TEST_F(LayerCommandTest, BlanksAroundANewNameAreLeftOut) {
    EXPECT_EQ(run(L"LAYER NEW \" Attic \",\"  Upper floor\""), L"2 layers are made.\n");
    EXPECT_TRUE(flags(L"Attic") & zdr::kLayerOn);
    EXPECT_TRUE(flags(L"Upper floor") & zdr::kLayerOn);
    EXPECT_EQ(run(L"LAYER NEW \"Attic \""), L"1 layer is there already.\n");
    EXPECT_EQ(run(L"LAYER MAKE \" Attic\""), L"\"Attic\" is the current layer.\n");
    EXPECT_EQ(run(L"LAYER MAKE \"Cellar \""), L"\"Cellar\" is made and is the current layer.\n");
    EXPECT_EQ(run(L"LAYER RENAME Cellar \" Vault \""), L"\"Cellar\" is called \"Vault\" now.\n");
    EXPECT_TRUE(flags(L"Vault") & zdr::kLayerOn);
}

TEST_F(LayerCommandTest, BlanksAloneAreNoNewName) {
    const std::size_t count = drawing().layers.size();
    const std::wstring reason = L"that can't be a name: give 1 to 255 characters without < > / \\ \" : ? * | !.\n";
    EXPECT_EQ(run(L"LAYER NEW \" \""), L"\"\" isn't made, because " + reason);
    EXPECT_EQ(run(L"LAYER MAKE \"  \""), L"\"\" isn't made, because " + reason);
    EXPECT_EQ(run(L"LAYER RENAME Walls \" \""), L"\"Walls\" isn't renamed, because " + reason);
    EXPECT_EQ(drawing().layers.size(), count);
}

TEST_F(LayerCommandTest, ALayerOfAFileThatHasBlanksAroundItsNameIsFoundByThem) {
    session.change([](KelDbDatabase& database) {
        EXPECT_EQ(engine::addLayer(database, L" "), Vorn::eOk);
        EXPECT_EQ(engine::addLayer(database, L" Walls"), Vorn::eOk);
    });
    EXPECT_EQ(run(L"LAYER SET \" Walls\""), L"\" Walls\" is the current layer.\n");
    EXPECT_EQ(run(L"LAYER RENAME \" \" Blank"), L"\" \" is called \"Blank\" now.\n");
}

TEST_F(LayerCommandTest, TellsWhatANameMustBe) {
    EXPECT_EQ(run(L"LAYER MAKE \"\""), L"\"\" isn't made, because that can't be a name: give 1 to 255 characters "
                                       L"without < > / \\ \" : ? * | !.\n");
    EXPECT_EQ(run(L"LAYER MAKE a;b=c"), L"\"a;b=c\" is made and is the current layer.\n");
    EXPECT_THAT(run(L"LAYER MAKE " + std::wstring(256, L'a')),
                HasSubstr(L"because the name is too long: give 1 to 255 characters"));
}

TEST_F(LayerCommandTest, ListEndsWithTheNumberOfSeveral) {
    run(L"LAYER NEW a1,a2,b");
    EXPECT_THAT(run(L"LAYER LIST a*"), EndsWith(L"2 layers are listed.\n"));
    EXPECT_THAT(run(L"LAYER LIST b"), StartsWith(L"b: on"));
    EXPECT_THAT(run(L"LAYER LIST b"), Not(HasSubstr(L"listed")));
}
