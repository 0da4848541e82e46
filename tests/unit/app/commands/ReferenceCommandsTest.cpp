// ATTACH, RELOAD, UNLOAD and DETACH.

#include "CommandFixture.h"
#include "HandmadeDrawing.h"

#include "KelDbDatabase.h"

#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class ReferenceCommandsTest : public CommandFixture {
  protected:
    ReferenceCommandsTest() { writeSite({L"Trees"}); }
    void writeSite(const std::vector<const wchar_t*>& layers) {
        KelDbDatabase database(true, true);
        for (const wchar_t* name : layers)
            EXPECT_EQ(engine::addLayer(database, name), Vorn::eOk);
        EXPECT_EQ(database.getLayerStateManager()->saveLayerState(L"All", MaskAllProperties), Vorn::eOk);
        std::filesystem::remove(folder / "site.zdr");
        writeDrawing("site.zdr", engine::drawingOf(database));
    }
    bool hasLayer(const wchar_t* name) const { return engine::layerIndex(session.database(), name) != zdr::kNone; }
    bool hasState(const wchar_t* name) const { return session.database().getLayerStateManager()->hasLayerState(name); }
};

} // namespace

TEST_F(ReferenceCommandsTest, AttachBringsTheLayersAndStatesIn) {
    EXPECT_THAT(run(L"ATTACH " + path("site")), StartsWith(L"\"site\" is attached."));
    EXPECT_TRUE(hasLayer(L"site!Trees"));
    EXPECT_TRUE(hasState(L"site!All"));
    EXPECT_TRUE(session.isModified());
    EXPECT_GT(window.changed, 0);
    EXPECT_EQ(drawing().references.at(0).path, path("site.zdr"));
}

TEST_F(ReferenceCommandsTest, AttachTakesANameAndAPlace) {
    run(L"ATTACH " + path("site.zdr") + L" \"North side\" 10 -20.5 2 90");
    const zdr::Reference& reference = drawing().references.at(0);
    EXPECT_EQ(reference.name, L"North side");
    EXPECT_EQ(reference.insertion.x, 10);
    EXPECT_EQ(reference.insertion.y, -20.5);
    EXPECT_EQ(reference.scale, 2);
    EXPECT_NEAR(reference.rotation, 1.5707963, 1e-6);
    EXPECT_TRUE(hasLayer(L"North side!Trees"));
}

TEST_F(ReferenceCommandsTest, AttachRefusesPlacesThatAreNone) {
    for (const wchar_t* place : {L"10", L"a b", L"1 2 0", L"1 2 -1", L"1 2 1 x", L"1e99 0", L"1 2 1e-300"})
        EXPECT_EQ(run(L"ATTACH " + path("site.zdr") + L" site " + place),
                  L"The place needs numbers: give x and y, a scale above 0 and an angle in degrees behind the name.\n");
    EXPECT_TRUE(drawing().references.empty());
}

TEST_F(ReferenceCommandsTest, AttachKeepsAPathBesideTheDrawingShort) {
    run(L"SAVEAS " + path("house.zdr"));
    run(L"ATTACH site.zdr");
    EXPECT_EQ(drawing().references.at(0).path, L"site.zdr");
    run(L"SAVE");
    run(L"OPEN " + path("house.zdr"));
    EXPECT_TRUE(hasLayer(L"site!Trees"));
    EXPECT_NE(drawing().references.at(0).drawing, nullptr);
}

TEST_F(ReferenceCommandsTest, AttachAsksForAPathThatWasntGiven) {
    run(L"ATTACH");
    EXPECT_TRUE(drawing().references.empty());
    window.chosenFile = path("site.zdr");
    run(L"ATTACH");
    EXPECT_EQ(drawing().references.size(), 1u);
}

TEST_F(ReferenceCommandsTest, AttachRefusesWhatCantBeShown) {
    writeBytes("text.zdr", "This is no drawing.");
    for (const char* name : {"missing.zdr", "text.zdr"}) {
        EXPECT_THAT(run(L"ATTACH " + path(name)), HasSubstr(path(name)));
        EXPECT_TRUE(drawing().references.empty());
    }
    run(L"SAVEAS " + path("house.zdr"));
    EXPECT_THAT(run(L"ATTACH house.zdr"), HasSubstr(L"refers to itself"));
    EXPECT_FALSE(session.isModified());
}

TEST_F(ReferenceCommandsTest, AttachRefusesNamesThatAreTakenOrNotAllowed) {
    run(L"ATTACH " + path("site.zdr"));
    EXPECT_EQ(run(L"ATTACH " + path("site.zdr")),
              L"A reference is called \"site\" already: give another name behind the path.\n");
    EXPECT_THAT(run(L"ATTACH " + path("site.zdr") + L" a!b"), StartsWith(L"\"a!b\" can't be the name of a reference"));
    EXPECT_EQ(drawing().references.size(), 1u);
}

TEST_F(ReferenceCommandsTest, AttachForbidsInANameJustWhatItSays) {
    for (wchar_t letter = L'!'; letter <= L'~'; ++letter) {
        const std::wstring name = std::wstring(L"a") + letter + L'b';
        const std::wstring said = run(L"ATTACH " + path("site.zdr") + L' ' + name);
        const bool forbidden = said.find(L"can't be the name of a reference") != std::wstring::npos;
        const bool named = std::wstring(L"< > / \\ \" : ? * | !").find(letter) != std::wstring::npos;
        // A quote is taken off the typed text before the name is checked.
        EXPECT_EQ(forbidden, named && letter != L'"') << static_cast<char>(letter);
        EXPECT_EQ(forbidden, !hasLayer((name + L"!Trees").c_str()) && letter != L'"') << static_cast<char>(letter);
        if (forbidden) {
            EXPECT_EQ(said, L"\"" + name +
                                L"\" can't be the name of a reference: give 1 to 255 characters without "
                                L"< > / \\ \" : ? * | !; a path with blanks goes in quotes.\n");
        }
    }
}

TEST_F(ReferenceCommandsTest, ReloadReadsTheFileAgain) {
    run(L"ATTACH " + path("site.zdr"));
    run(L"LAYER COLOUR red site!Trees");
    writeSite({L"Trees", L"Paths"});
    EXPECT_THAT(run(L"RELOAD s*"), StartsWith(L"1 reference is read again."));
    EXPECT_TRUE(hasLayer(L"site!Paths"));
    EXPECT_EQ(drawing().columns.colors[layer(L"site!Trees")], 1u) << "this drawing's own value stays";
}

TEST_F(ReferenceCommandsTest, ReloadKeepsWhatIsShownWhenTheFileIsGone) {
    run(L"ATTACH " + path("site.zdr"));
    std::filesystem::remove(folder / "site.zdr");
    EXPECT_THAT(run(L"RELOAD site"), StartsWith(L"\"site\" stays as it is: "));
    EXPECT_NE(drawing().references.at(0).drawing, nullptr);
}

TEST_F(ReferenceCommandsTest, UnloadLeavesTheLayersUnresolved) {
    run(L"ATTACH " + path("site.zdr"));
    const int told = window.changed;
    EXPECT_THAT(run(L"UNLOAD site"), StartsWith(L"\"site\" is left out until RELOAD."));
    EXPECT_EQ(window.changed, told + 1);
    EXPECT_EQ(drawing().references.at(0).drawing, nullptr);
    EXPECT_TRUE(hasLayer(L"site!Trees"));
    EXPECT_FALSE(hasState(L"site!All"));
    run(L"RELOAD site");
    EXPECT_TRUE(hasState(L"site!All"));
}

TEST_F(ReferenceCommandsTest, UnloadIsKeptInTheFileAndToldWhenItIsOpened) {
    run(L"SAVEAS " + path("house.zdr"));
    run(L"ATTACH site.zdr");
    run(L"SAVE");
    EXPECT_FALSE(session.isModified());
    run(L"UNLOAD site");
    EXPECT_TRUE(session.isModified());
    std::filesystem::create_directory(folder / "other");
    run(L"SAVEAS " + path("other/copy.zdr"));
    const std::wstring said = run(L"OPEN " + path("other/copy.zdr"));
    EXPECT_THAT(said, StartsWith(L"Reference \"site\" is unloaded: RELOAD shows it.\nOpened "));
    EXPECT_TRUE(drawing().references.at(0).unloaded);
    EXPECT_TRUE(hasLayer(L"site!Trees"));
    run(L"SAVEAS " + path("copy.zdr"));
    run(L"OPEN " + path("copy.zdr"));
    EXPECT_EQ(drawing().references.at(0).drawing, nullptr) << "the file is there, but isn't wanted";
    EXPECT_THAT(run(L"RELOAD site"), StartsWith(L"1 reference is read again."));
    run(L"SAVE");
    EXPECT_THAT(run(L"OPEN " + path("copy.zdr")), StartsWith(L"Opened "));
    EXPECT_TRUE(hasState(L"site!All"));
}

TEST_F(ReferenceCommandsTest, UnloadStaysOverAnotherAttach) {
    run(L"ATTACH " + path("site.zdr") + L" one");
    run(L"UNLOAD one");
    run(L"ATTACH " + path("site.zdr") + L" two");
    EXPECT_TRUE(drawing().references.at(0).unloaded);
    EXPECT_EQ(drawing().references.at(0).drawing, nullptr);
    EXPECT_FALSE(drawing().references.at(1).unloaded);
}

TEST_F(ReferenceCommandsTest, BlanksAroundTheNameAreLeftOut) {
    run(L"ATTACH " + path("site.zdr") + L" \" North side \"");
    EXPECT_EQ(drawing().references.at(0).name, L"North side");
    EXPECT_THAT(run(L"ATTACH " + path("site.zdr") + L" \" \""), StartsWith(L"\"\" can't be the name of a reference"));
    EXPECT_EQ(drawing().references.size(), 1u);
}

TEST_F(ReferenceCommandsTest, DetachTakesLayersAndStatesOut) {
    run(L"ATTACH " + path("site.zdr") + L" one");
    run(L"ATTACH " + path("site.zdr") + L" two");
    run(L"LAYER NEW Walls");
    EXPECT_THAT(run(L"DETACH one"), StartsWith(L"\"one\" is detached."));
    EXPECT_FALSE(hasLayer(L"one!Trees"));
    EXPECT_FALSE(hasState(L"one!All"));
    EXPECT_TRUE(hasLayer(L"two!Trees"));
    EXPECT_TRUE(hasState(L"two!All"));
    EXPECT_TRUE(hasLayer(L"Walls"));
    EXPECT_THAT(run(L"DETACH *"), StartsWith(L"\"two\" is detached."));
    EXPECT_EQ(drawing().references.size(), 0u);
    run(L"SAVEAS " + path("house.zdr"));
    run(L"OPEN " + path("house.zdr"));
    EXPECT_TRUE(window.failures.empty()) << "the file holds together";
    EXPECT_EQ(drawing().layers.size(), 2u);
}

TEST_F(ReferenceCommandsTest, NamesThatNoReferenceBearsAreToldWithThoseThatThereAre) {
    EXPECT_EQ(run(L"DETACH site"), L"No drawing is attached: ATTACH attaches one.\n");
    run(L"ATTACH " + path("site.zdr"));
    EXPECT_EQ(run(L"RELOAD plan"), L"No reference is called \"plan\": give site, or * for all.\n");
}
