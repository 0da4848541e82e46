// A drawing whose parts contradict each other is never written: what could not be read again isn't a file.
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

using namespace zdr;
using testing::HasSubstr;

namespace {

struct Fault {
    const char* name;
    std::function<void(Drawing&)> apply;
    const char* reason;
};

std::vector<Fault> faults() {
    return {
        {"noLayers",
         [](Drawing& d) {
             d = plainDrawing();
             d.layers.clear();
             d.columns = {};
         },
         "the current layer refers to the layer with the index 0, but there are only 0"},
        {"aColumnTooShort", [](Drawing& d) { d.columns.colors = Column(std::vector<std::uint32_t>{1}); },
         "the table of layers has 1 colours for 4 layers"},
        {"aFlagOfStatesInTheDrawing", [](Drawing& d) { d.columns.flags.set(0, kLayerViewportFrozen); },
         "has 32 among its layer flags"},
        {"aLinetypeWithoutName", [](Drawing& d) { d.states[0].columns.linetypes.set(2, 1000); },
         "layer state 1 (\"As drawn\") has 1000 among its linetypes, for its layer 3"},
        {"aStateWithoutLayers", [](Drawing& d) { d.states[1].layers = nullptr; }, "has no layers"},
        {"twoStatesOfOneName", [](Drawing& d) { d.states[1].name = L"AS DRAWN"; },
         "layer state 2 (\"AS DRAWN\") has the name of layer state 1"},
        {"aStateWithoutName", [](Drawing& d) { d.states[1].name.clear(); }, "layer state 2 has no name"},
        {"aNameThatIsTooLong", [](Drawing& d) { d.states[1].name.assign(256, L'x'); },
         "has a name of 256 characters; names have at most 255"},
        {"aStateNameThatIsNotAllowed", [](Drawing& d) { d.states[1].name = L"a/b"; },
         "layer state 2 (\"a/b\") has a character in its name that isn't allowed there"},
        {"aHandleTwice", [](Drawing& d) { d.linetypes[1].handle = 5; },
         "has the handle 5, which is the handle of linetype 2"},
        {"noHandle", [](Drawing& d) { d.layers[1].handle = 0; }, "layer 2 (\"A-WALL\") has no handle"},
        {"aHandleStillToBeGiven", [](Drawing& d) { d.nextHandle = 9; }, "the next handle to give is 9"},
        {"aHandleThatIsTooHigh", [](Drawing& d) { d.nextHandle = (Handle{1} << 62) + 1; },
         "the next handle to give is 4611686018427387905, and there are none so high"},
        {"aLayerWithoutName", [](Drawing& d) { d.layers[1].name = 1000; },
         "layer 2 refers to the name with the index 1000"},
        {"aCurrentLayerOfAStateWithoutName", [](Drawing& d) { d.states[1].currentLayer = 1000; },
         "layer state 2 (\"Gro\xC3\x9F\") refers to the name with the index 1000"},
        {"anEntityWithALinetypeWithoutName", [](Drawing& d) { d.entities[1].linetype = 1000; },
         "entity 2 refers to the style name with the index 1000"},
        {"anEntityWithALineweightThatIsNone", [](Drawing& d) { d.entities[1].lineWeight = -7; },
         "entity 2 has the lineweight -7, which isn't one"},
        {"aViewportThatFreezesALayerTooMany", [](Drawing& d) { d.layouts[0].viewports[0].frozen.resize(5); },
         "viewport 1 of layout 1 (\"A3\") refers to the layer with the index 4, but there are only 4"},
        {"aNumberBelowItsSixteenBits",
         [](Drawing& d) {
             d.extendedData[0].values = {{1070, -32769}};
         },
         "value 1 of extended data 1 (\"KELLAYERS\") has the number -32769, which needs more than its 16 bits"},
        {"aNumberAboveItsSixteenBits",
         [](Drawing& d) {
             d.extendedData[0].values = {{1070, 32768}};
         },
         "value 1 of extended data 1 (\"KELLAYERS\") has the number 32768, which needs more than its 16 bits"},
        {"aLayerOfNoReference", [](Drawing& d) { d.layers[1].reference = 7; },
         "layer 2 (\"A-WALL\") refers to the reference with the index 7, but there are only 2"},
        {"anOwnLayerNamedAsOneOfAReference", [](Drawing& d) { d.layers[1].name = d.names.intern(L"grid!x"); },
         "layer 2 (\"grid!x\") has a character in its name that isn't allowed there"},
        {"aLayerNamedAsOneOfAnotherReference", [](Drawing& d) { d.layers[3].name = d.names.intern(L"grid!x"); },
         "layer 4 (\"grid!x\") doesn't bear the name of its reference, \"plan!\""},
        {"aLayerOfAReferenceWithASlash", [](Drawing& d) { d.layers[3].name = d.names.intern(L"plan!a/b"); },
         "layer 4 (\"plan!a/b\") has a character in its name that isn't allowed there"},
        {"aLayerOfAReferenceThatIsTooLong",
         [](Drawing& d) { d.layers[3].name = d.names.intern(L"plan!" + std::wstring(8188, L'x')); },
         "has a name of 8193 characters; names have at most 8192"},
        {"twoLinetypesOfOneName", [](Drawing& d) { d.linetypes[1].name = d.linetypes[0].name; },
         "linetype 2 (\"Continuous\") has the name of linetype 1"},
        {"twoPlotStylesOfOneName", [](Drawing& d) { d.plotStyles[1].name = d.plotStyles[0].name; },
         "has the name of plot style 1"},
        {"aViewportAtNoPlace", [](Drawing& d) { d.layouts[0].viewports[0].corner.y = std::nan(""); },
         "viewport 1 of layout 1 (\"A3\") has a coordinate or size that isn't a number"},
        {"aViewportThatShowsNoPlace", [](Drawing& d) { d.layouts[0].viewports[0].viewCenter.x = std::nan(""); },
         "viewport 1 of layout 1 (\"A3\") has a coordinate or size that isn't a number"},
        {"dataOfAnApplicationWithoutName", [](Drawing& d) { d.extendedData[0].application.clear(); },
         "extended data 1 has no name"},
        {"aLinetypeWithASlash", [](Drawing& d) { d.linetypes[1].name = d.names.intern(L"a/b"); },
         "linetype 2 has a character in its name that isn't allowed there"},
        {"aLinetypeThatIsTooLong", [](Drawing& d) { d.linetypes[1].name = d.names.intern(std::wstring(256, L'x')); },
         "linetype 2 has a part of its name with more than 255 characters"},
        {"aPlotStyleWithASlash", [](Drawing& d) { d.plotStyles[1].name = d.names.intern(L"a/b"); },
         "plot style 2 has a character in its name that isn't allowed there"},
        {"aReferenceWithASlash", [](Drawing& d) { d.references[1].name = L"a/b"; },
         "reference 2 (\"a/b\") has a character in its name that isn't allowed there"},
        {"anEntityOnNoLayer", [](Drawing& d) { d.layouts[0].entities[0].layer = 4; },
         "entity 1 of layout 1 (\"A3\") refers to the layer with the index 4"},
        {"aLayoutThatIsNotThere", [](Drawing& d) { d.activeLayout = 2; }, "the active tab refers to the layout"},
        {"aReferenceWithoutPath", [](Drawing& d) { d.references[1].path.clear(); },
         "reference 2 (\"grid\") has no path"},
        {"anApplicationTwice", [](Drawing& d) { d.applications[1] = L"Kellayers"; },
         "has the name of registered application 1"},
        {"dataOfAnApplicationTwiceForAnObject",
         [](Drawing& d) {
             d.extendedData.push_back({6, L"Kellayers", {{1070, 1}}});
         },
         "extended data 3 (\"Kellayers\") is the second of its application for the object 6"},
    };
}

class UnwritableDrawing : public testing::TestWithParam<Fault> {};

TEST_P(UnwritableDrawing, leavesTheFileAsItIs) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"drawing.zdr");
    std::wstring reason;
    FileStamp stamp;
    ASSERT_EQ(writeDrawingFile(path, plainDrawing(), reason, stamp), Vorn::eOk);
    const std::vector<std::byte> old = bytesOf(path);
    Drawing drawing = sampleDrawing();
    GetParam().apply(drawing);
    EXPECT_EQ(writeDrawingFile(path, drawing, reason, stamp), Vorn::eInvalidInput);
    EXPECT_THAT(toUtf8(reason), HasSubstr(GetParam().reason));
    EXPECT_THAT(toUtf8(reason), HasSubstr("drawing.zdr\" can't be written, because the drawing is damaged: "));
    EXPECT_EQ(bytesOf(path), old);
    EXPECT_EQ(folder.entries(), 1u);
}

std::string nameOf(const testing::TestParamInfo<Fault>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Faults, UnwritableDrawing, testing::ValuesIn(faults()), nameOf);

} // namespace
