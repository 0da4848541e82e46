// What the user is told when a file holds layer states under names that the rules refuse.

#include "CommandFixture.h"
#include "MendedNames.h"

#include "KelDbDatabase.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>
#include <fstream>
#include <iterator>

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class MendedNamesTest : public CommandFixture {
  protected:
    MendedNamesTest() {
        KelDbDatabase database(true, true);
        for (const wchar_t* name : {L"Ground_floor", L"Roof"})
            EXPECT_EQ(database.getLayerStateManager()->saveLayerState(name, MaskAllProperties), Vorn::eOk);
        writeDrawing("house.zdr", engine::drawingOf(database));
        respell("house.zdr", "Ground_floor", "Ground/floor");
    }
    /// Puts a text into the place of one of the same length in a file.
    void respell(const char* file, const std::string& from, const std::string& to) const {
        std::ifstream in(folder / file, std::ios::binary);
        std::string bytes{std::istreambuf_iterator<char>(in), {}};
        in.close();
        const std::size_t place = bytes.find(from);
        ASSERT_NE(place, std::string::npos);
        writeBytes(file, bytes.replace(place, from.size(), to));
    }
    KelDbLayerStateManager& states() const { return *session.database().getLayerStateManager(); }
};

const std::wstring kAdvice = L"The file keeps the old names until the drawing is saved. To choose others, rename the "
                             L"states: give 1 to 255 characters without < > / \\ \" : ? * | !.\n";

} // namespace

TEST_F(MendedNamesTest, OpenTellsWhichNamesBecameWhich) {
    EXPECT_EQ(run(L"OPEN " + path("house.zdr")),
              L"The name of layer state \"Ground/floor\" can't be used: it is called \"Ground_floor\" now.\n" +
                  kAdvice + L"Opened " + path("house.zdr") + L".\n");
    EXPECT_TRUE(states().hasLayerState(L"Ground_floor"));
    EXPECT_FALSE(session.isModified());
}

TEST_F(MendedNamesTest, TheFileHoldsTheNewNamesOnceTheDrawingIsSaved) {
    run(L"OPEN " + path("house.zdr"));
    run(L"SAVEAS " + path("saved.zdr"));
    EXPECT_EQ(run(L"OPEN " + path("house.zdr")).find(L"The name of layer state"), 0u) << "the old one is as it was";
    EXPECT_EQ(run(L"OPEN " + path("saved.zdr")), L"Opened " + path("saved.zdr") + L".\n");
    EXPECT_TRUE(states().hasLayerState(L"Ground_floor"));
}

TEST_F(MendedNamesTest, AStateOfSuchANameCanBeDeletedAndSavedAgain) {
    run(L"OPEN " + path("house.zdr"));
    EXPECT_EQ(states().deleteLayerState(L"Ground_floor"), Vorn::eOk);
    EXPECT_EQ(states().saveLayerState(L"Ground_floor", MaskAllProperties), Vorn::eOk);
}

TEST_F(MendedNamesTest, OpenTellsThoseOfReferencesWithoutAdviceThatDoesNotApplyToThem) {
    run(L"ATTACH " + path("house.zdr") + L" site");
    run(L"SAVEAS " + path("plan.zdr"));
    EXPECT_EQ(run(L"OPEN " + path("plan.zdr")),
              L"The name of layer state \"site!Ground/floor\" can't be used: it is called \"site!Ground_floor\" now.\n"
              L"Opened " +
                  path("plan.zdr") + L".\n");
}

TEST_F(MendedNamesTest, AttachAndReloadTellThoseOfTheirReference) {
    EXPECT_THAT(run(L"ATTACH " + path("house.zdr") + L" site"),
                StartsWith(L"The name of layer state \"site!Ground/floor\" can't be used: it is called "
                           L"\"site!Ground_floor\" now.\n\"site\" is attached."));
    const std::wstring second = run(L"ATTACH " + path("house.zdr") + L" plot");
    EXPECT_THAT(second, HasSubstr(L"plot!Ground_floor"));
    EXPECT_THAT(second, Not(HasSubstr(L"site!Ground_floor")));
    respell("house.zdr", "Roof", "Ro:f");
    const std::wstring again = run(L"RELOAD site");
    EXPECT_THAT(again, StartsWith(L"The name of layer state \"site!Ground/floor\""));
    EXPECT_THAT(again, HasSubstr(L"\"site!Ro:f\" can't be used: it is called \"site!Ro_f\" now.\n"));
    EXPECT_THAT(again, Not(HasSubstr(L"plot!")));
    EXPECT_TRUE(states().hasLayerState(L"site!Ro_f"));
    EXPECT_TRUE(states().hasLayerState(L"plot!Roof"));
}

TEST(MendedNamesText, IsEmptyWhereThereAreNone) {
    EXPECT_EQ(workbench::mendedNamesText(zdr::Drawing()), L"");
}

TEST(MendedNamesText, TellsWhatBearsEachName) {
    zdr::Drawing drawing;
    drawing.mendedNames = {{L"a/b", L"a_b", zdr::Bearer::Layer},
                           {L"a/b", L"a_b", zdr::Bearer::Linetype},
                           {L"a/b", L"a_b", zdr::Bearer::PlotStyle},
                           {L"a/b", L"a_b", zdr::Bearer::Reference},
                           {L"a/b", L"a_b"}};
    const std::wstring text = workbench::mendedNamesText(drawing);
    for (const wchar_t* word : {L"layer", L"linetype", L"plot style", L"reference", L"layer state"})
        EXPECT_THAT(text, HasSubstr(L"The name of " + std::wstring(word) +
                                    L" \"a/b\" can't be used: it is called \"a_b\" now.\n"));
}

TEST(MendedNamesText, OfVeryManyTellsTheFirstHundredAndTheNumberOfTheRest) {
    zdr::Drawing drawing;
    drawing.mendedNames.assign(100, {L"a/b", L"a_b"});
    EXPECT_THAT(workbench::mendedNamesText(drawing), Not(HasSubstr(L" more.")));
    drawing.mendedNames.assign(350, {L"a/b", L"a_b"});
    const std::wstring text = workbench::mendedNamesText(drawing);
    EXPECT_EQ(std::ranges::count(text, L'\n'), 102);
    EXPECT_THAT(text, EndsWith(L" now.\nSo it is with 250 more.\n" + kAdvice));
}
