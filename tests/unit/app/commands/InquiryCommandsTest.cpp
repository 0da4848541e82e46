// UNITS and REFERENCES.

#include "CommandFixture.h"

using testing::EndsWith;
using testing::StartsWith;

namespace {

class InquiryCommandsTest : public CommandFixture {
  protected:
    InquiryCommandsTest() {
        writeDrawing("site.zdr", drawing());
        run(L"SAVEAS " + path("house.zdr"));
    }
};

} // namespace

TEST_F(InquiryCommandsTest, UnitsTellsWhatLengthsAndAnglesCountIn) {
    EXPECT_EQ(run(L"UNITS"),
              L"A unit of model space is a millimeter, and a length is written as 1.0000.\n"
              L"A sheet counts in millimeters of its paper, and model space in its current viewport.\n"
              L"Angles are in degrees, counter-clockwise from the x axis, and a right one is written as 90.\n");
    EXPECT_FALSE(session.isModified());
}

TEST_F(InquiryCommandsTest, ReferencesTellsThatThereAreNone) {
    EXPECT_EQ(run(L"REFERENCES"), L"No drawing is attached: ATTACH attaches one.\n");
    EXPECT_TRUE(done);
}

TEST_F(InquiryCommandsTest, ReferencesTellsNamePathAndStateOfEach) {
    run(L"ATTACH site.zdr");
    run(L"ATTACH site.zdr east");
    EXPECT_EQ(run(L"REFERENCES"), L"site: loaded, site.zdr\neast: loaded, site.zdr\n2 references.\n");
    run(L"UNLOAD east");
    EXPECT_EQ(run(L"REFERENCES"), L"site: loaded, site.zdr\neast: unloaded, site.zdr\n2 references.\n");
    run(L"RELOAD east");
    EXPECT_EQ(run(L"REFERENCES"), L"site: loaded, site.zdr\neast: loaded, site.zdr\n2 references.\n");
}

TEST_F(InquiryCommandsTest, ReferencesTellsOfAFileThatIsGoneAndOfTheOneThatIsBack) {
    run(L"ATTACH site.zdr");
    run(L"SAVE");
    std::filesystem::rename(folder / "site.zdr", folder / "elsewhere.zdr");
    run(L"OPEN " + path("house.zdr"));
    EXPECT_EQ(run(L"REFERENCES"), L"site: missing, site.zdr\n1 reference, 1 missing: RELOAD looks again.\n");
    std::filesystem::rename(folder / "elsewhere.zdr", folder / "site.zdr");
    run(L"RELOAD site");
    EXPECT_THAT(run(L"REFERENCES"), StartsWith(L"site: loaded"));
    run(L"UNLOAD site");
    EXPECT_THAT(run(L"REFERENCES"), EndsWith(L"1 reference.\n"));
}

// Who wrote a drawing chose the paths in it.
TEST_F(InquiryCommandsTest, ReferencesShowsAPathInOneLine) {
    zdr::Drawing plan = drawing();
    plan.references.push_back({L"site", L"a\nb: loaded.zdr", {}, 1, 0, nullptr});
    session.rebuild(plan);
    EXPECT_THAT(run(L"REFERENCES"), StartsWith(L"site: missing, a\xFFFD"
                                               L"b: loaded.zdr\n1 reference, "));
}
