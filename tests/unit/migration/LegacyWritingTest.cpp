// Writing and renaming blocks, the other side of the format.

#include "LegacyTest.h"

#include "Documents.h"
#include "engine/DatabaseAccess.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class LegacyWriting : public LegacyTest {
  protected:
    bool write(const wchar_t* name) { return CQSETList(&m_database).applyToLayers(CQSETList::OpWrite, name); }
    bool rename(const wchar_t* name) { return CQSETList(&m_database).applyToLayers(CQSETList::OpRename, name); }
    /// Writes with a viewport of the layout as the current one, which is the business of an open document.
    bool writeInViewport(std::size_t index) {
        zdr::Drawing opened = drawing();
        opened.activeLayout = 0;
        opened.currentViewport = opened.layouts[0].viewports[index].handle;
        auto database = std::make_unique<KelDbDatabase>(false, false);
        engine::replaceDrawing(*database, std::move(opened));
        runtime::Document& document = runtime::openDocument(std::move(database), L"");
        const bool written = CQSETList(&document.data()).applyToLayers(CQSETList::OpWrite, L"PLAN");
        use(engine::drawingOf(document.data()));
        runtime::closeDocument(document);
        return written;
    }
    static std::string narrow(const std::wstring& wide) { return {wide.begin(), wide.end()}; }
};

TEST_F(LegacyWriting, PutsABlockOnEachLayer) {
    change(L"Walls", [this](engine::LayerValues& each) {
        each.flags = zdr::kLayerFrozen | zdr::kLayerNewViewportFrozen | zdr::kLayerLocked;
        each.color = 5;
        each.linetype = nameId(L"Dashed");
        each.lineWeight = 211;
    });
    EXPECT_TRUE(write(L"Plan"));
    const std::string style = "1005 " + narrow(styleHandle(L"Walls"));
    EXPECT_THAT(data(L"Walls"), ElementsAre("1000 {PLAN", "1070 23", "1070 -5", "1000 Dashed", "1071 211", "1071 0",
                                            style, "1000 PLAN}"));
    EXPECT_THAT(data(L"Base"), ElementsAre("1000 {PLAN", "1070 16", "1070 7", "1000 Continuous", "1070 1", "1071 -3",
                                           "1071 1", style, "1000 PLAN}"))
        << "the current layer has its mark";
}

TEST_F(LegacyWriting, TellsWhetherALayerIsAReferencesAndWhetherThatIsThere) {
    zdr::Drawing withReference = makeDrawing();
    withReference.references.push_back({.name = L"site", .path = L"site.zdr", .insertion = {}, .drawing = nullptr});
    use(std::move(withReference));
    const auto flags = [this] {
        setData(L"site!Base", {});
        EXPECT_TRUE(write(L"PLAN"));
        return data(L"site!Base").at(1);
    };
    engine::attachReference(m_database, 0, std::make_shared<const zdr::Drawing>(makeDrawing()));
    EXPECT_EQ(flags(), "1070 48");
    engine::attachReference(m_database, 0, nullptr);
    EXPECT_EQ(flags(), "1070 32");
}

TEST_F(LegacyWriting, MarksALayerThatTheCurrentViewportFreezes) {
    engine::setFrozenInViewport(m_database, viewport().handle, layer(L"Walls"), true);
    EXPECT_TRUE(writeInViewport(0));
    const std::string style = "1005 " + narrow(styleHandle(L"Walls"));
    EXPECT_THAT(data(L"Walls"), ElementsAre("1000 {PLAN", "1070 16", "1070 7", "1000 Continuous", "1000 Walls",
                                            "1071 -3", "1071 1", style, "1000 PLAN}"));
    EXPECT_THAT(data(L"Doors"), ElementsAre("1000 {PLAN", "1070 16", "1070 7", "1000 Continuous", "1071 -3", "1071 1",
                                            style, "1000 PLAN}"));
}

TEST_F(LegacyWriting, MarksNothingForAViewportThatIsNotOnOrNotCurrent) {
    const std::size_t without = 8;
    engine::setFrozenInViewport(m_database, viewport().handle, layer(L"Walls"), true);
    EXPECT_TRUE(write(L"PLAN"));
    EXPECT_EQ(data(L"Walls").size(), without) << "no viewport is current";
    setData(L"Walls", {});
    engine::setFrozenInViewport(m_database, drawing().layouts[0].viewports[1].handle, layer(L"Walls"), true);
    EXPECT_TRUE(writeInViewport(1));
    EXPECT_EQ(data(L"Walls").size(), without) << "the current one isn't on";
}

TEST_F(LegacyWriting, MarksNothingForAViewportThatCannotBeOpened) {
    engine::setFrozenInViewport(m_database, viewport().handle, layer(L"Walls"), true);
    engine::setFrozenInViewport(m_database, viewport().handle, layer(L"Doors"), true);
    // The names are read from three layers; then the linetype of each layer is opened, and after it the viewport.
    instruments::failCall("openObject", 7);
    EXPECT_TRUE(writeInViewport(0));
    EXPECT_EQ(data(L"Walls").size(), 8u);
    EXPECT_EQ(data(L"Doors").size(), 9u);
}

TEST_F(LegacyWriting, TellsThatTheMarkOfAViewportCannotBeWritten) {
    engine::setFrozenInViewport(m_database, viewport().handle, layer(L"Base"), true);
    instruments::failCall("kelutNewRb", 7);
    EXPECT_FALSE(writeInViewport(0));
    EXPECT_THAT(instruments::trace(),
                testing::Contains(testing::HasSubstr("Unable to save opening layer frozen in viewport.")));
}

TEST_F(LegacyWriting, TellsThatALinetypeCannotBeOpened) {
    CQSETList list(&m_database);
    instruments::failCall("openObject", 1);
    instruments::clearTrace();
    EXPECT_FALSE(list.applyToLayers(CQSETList::OpWrite, L"PLAN"));
    EXPECT_THAT(instruments::trace(), testing::Contains(testing::HasSubstr("Unable to retrieve linetype.")));
}

TEST_F(LegacyWriting, WritesAnEmptyNameForALinetypeThatTellsNone) {
    instruments::failCall("record.getName", 1);
    EXPECT_TRUE(write(L"PLAN"));
    EXPECT_EQ(data(L"Base").at(3), "1000 ");
    EXPECT_EQ(data(L"Walls").at(3), "1000 Continuous");
}

TEST_F(LegacyWriting, AppendsToWhatIsThere) {
    setData(L"Walls", nodesOf(L"SITE"));
    EXPECT_TRUE(write(L"PLAN"));
    const std::vector<std::string> found = data(L"Walls");
    const std::vector<std::string> before = lines(nodesOf(L"SITE"));
    ASSERT_GT(found.size(), before.size());
    EXPECT_TRUE(std::equal(before.begin(), before.end(), found.begin()));
    EXPECT_EQ(found[before.size()], "1000 {PLAN");
}

TEST_F(LegacyWriting, GivesBackWhatItWrote) {
    change(L"Walls", [this](engine::LayerValues& each) {
        each.flags = zdr::kLayerLocked | zdr::kLayerOn | zdr::kLayerPlot;
        each.color = 5;
        each.linetype = nameId(L"Dotted");
        each.lineWeight = 30;
        each.plotStyle = nameId(L"Fine");
    });
    const engine::LayerValues before = values(L"Walls");
    EXPECT_TRUE(write(L"PLAN"));
    change(L"Walls", [](engine::LayerValues& each) { each = engine::LayerValues(); });
    EXPECT_TRUE(CQSETList(&m_database).applyToLayers(CQSETList::OpRestore, L"PLAN"));
    const engine::LayerValues after = values(L"Walls");
    EXPECT_EQ(after.flags, before.flags);
    EXPECT_EQ(after.color, before.color);
    EXPECT_EQ(after.linetype, before.linetype);
    EXPECT_EQ(after.lineWeight, before.lineWeight);
    EXPECT_EQ(after.plotStyle, before.plotStyle);
}

TEST_F(LegacyWriting, ReadsTheFlagsInTheFormatsOrder) {
    instruments::clearTrace();
    EXPECT_TRUE(write(L"PLAN"));
    std::vector<std::string> flags;
    for (const std::string& line : instruments::trace())
        for (const char* each :
             {"record.isDependent", "record.isResolved", "record.isFrozen", "record.VPDFLT", "record.isLocked"})
            if (line.starts_with(each) && flags.size() < 5)
                flags.emplace_back(each);
    EXPECT_THAT(flags, ElementsAre("record.isDependent", "record.isResolved", "record.isFrozen", "record.VPDFLT",
                                   "record.isLocked"));
}

TEST_F(LegacyWriting, DeletesItsIteratorBeforeItReleasesTheLastChain) {
    setData(L"Doors", nodesOf(L"SITE"));
    instruments::clearTrace();
    EXPECT_TRUE(write(L"PLAN"));
    const std::vector<std::string> calls = instruments::trace();
    ASSERT_GE(calls.size(), 3u);
    EXPECT_THAT(std::vector<std::string>(calls.end() - 3, calls.end()),
                ElementsAre(StartsWith("iterator.delete"), StartsWith("kelutRelRb"), StartsWith("close")));
}

TEST_F(LegacyWriting, StopsWhenThereIsNoNode) {
    CQSETList list(&m_database);
    instruments::failCall("kelutNewRb", 1);
    EXPECT_FALSE(list.applyToLayers(CQSETList::OpWrite, L"PLAN"));
    EXPECT_THAT(drawing().extendedData, IsEmpty());
}

TEST_F(LegacyWriting, RenamesTheMarkersOfThatNameToNone) {
    setData(L"Walls", nodesOf(L"PLAN") + nodesOf(L"SITE") + LegacyNodes{text(L"{plan")});
    EXPECT_TRUE(rename(L"plan"));
    LegacyNodes expected = nodesOf(L"");
    EXPECT_EQ(data(L"Walls"), lines(expected + nodesOf(L"SITE") + LegacyNodes{text(L"{plan")}));
}

TEST_F(LegacyWriting, StopsARenameAtTheFirstLayerThatDoesNotTakeItsData) {
    for (const wchar_t* each : {L"Base", L"Walls", L"Doors"})
        setData(each, nodesOf(L"PLAN"));
    CQSETList list(&m_database);
    instruments::failCall("setExtendedData", 2);
    EXPECT_FALSE(list.applyToLayers(CQSETList::OpRename, L"PLAN"));
    EXPECT_EQ(data(L"Base"), lines(nodesOf(L"")));
    EXPECT_EQ(data(L"Walls"), lines(nodesOf(L"PLAN")));
    EXPECT_EQ(data(L"Doors"), lines(nodesOf(L"PLAN")));
}

struct WritingFailure {
    int node; ///< which of a new chain's nodes can't be had, the application's being 1
    const char* message;
};

class LegacyWritingFailure : public LegacyWriting, public testing::WithParamInterface<WritingFailure> {};

TEST_P(LegacyWritingFailure, IsToldOnTheCommandLineAndStopsTheWalk) {
    CQSETList list(&m_database);
    instruments::failCall("kelutNewRb", GetParam().node);
    instruments::clearTrace();
    EXPECT_FALSE(list.applyToLayers(CQSETList::OpWrite, L"PLAN"));
    EXPECT_THAT(instruments::trace(), testing::Contains(testing::HasSubstr(GetParam().message)));
    EXPECT_THAT(drawing().extendedData, IsEmpty()) << "what was appended isn't stored";
}

// Base is the current layer, so that its block has the mark.
INSTANTIATE_TEST_SUITE_P(EachNode, LegacyWritingFailure,
                         testing::Values(WritingFailure{2, "Unable to save opening layer state name."},
                                         WritingFailure{3, "Unable to save group code 70."},
                                         WritingFailure{4, "Unable to save layer color."},
                                         WritingFailure{5, "Unable to save opening layer linetype."},
                                         WritingFailure{6, "Unable to save layer color."},
                                         WritingFailure{7, "Unable to save layer lineweight."},
                                         WritingFailure{8, "Unable to save layer lineweight."},
                                         WritingFailure{9, "Unable to save plotstyle handle."},
                                         WritingFailure{10, "Unable to save closing layer state name."}));

} // namespace
