// Files of every version that was ever written stay readable. When the version grows, a file of the new one joins these
// and none is written anew.
#include "DrawingDifference.h"
#include "LayerStateMask.h"
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gtest/gtest.h>

using namespace zdr;

namespace {

Drawing oldDrawing(const wchar_t* name) {
    Drawing drawing;
    std::wstring reason;
    EXPECT_EQ(readDrawingFile(widePath(TEST_DATA) + name, drawing, reason), Vorn::eOk) << toUtf8(reason);
    return drawing;
}

} // namespace

TEST(OldVersions, theFirstIsReadAsItWasWritten) {
    EXPECT_EQ(difference(oldDrawing(L"/version1.zdr"), sampleDrawing()), "");
}

TEST(OldVersions, theSecondIsReadAsItWasWritten) {
    const Drawing drawing = oldDrawing(L"/version2.zdr");
    EXPECT_EQ(difference(drawing, namedColorsDrawing()), "");
    EXPECT_NE(difference(drawing, sampleDrawing()), "");
}

TEST(OldVersions, theThirdIsReadAsItWasWritten) {
    const Drawing drawing = oldDrawing(L"/version3.zdr");
    EXPECT_EQ(difference(drawing, linetypeScaleDrawing()), "");
    EXPECT_NE(difference(drawing, sampleDrawing()), "");
}

TEST(OldVersions, theFourthIsReadAsItWasWritten) {
    const Drawing drawing = oldDrawing(L"/version4.zdr");
    EXPECT_EQ(difference(drawing, unloadedDrawing()), "");
    EXPECT_NE(difference(drawing, sampleDrawing()), "");
}

TEST(OldVersions, standardsAndTemplatesAreDrawingsUnderOtherNames) {
    for (const wchar_t* name : {L"/version1.zds", L"/version1.zdt"}) {
        KelDbDatabase database(false, true);
        ASSERT_EQ(database.readZdrFile((widePath(TEST_DATA) + name).c_str(), 64, false, nullptr), Vorn::eOk)
            << toUtf8(engine::lastFileProblem(database));
        EXPECT_EQ(difference(engine::drawingOf(database), sampleDrawing()), "");
    }
}

TEST(OldVersions, theFirstLayerStatesFileIsReadAsItWasWritten) {
    KelDbDatabase database(true, true);
    KelString name;
    const std::wstring path = widePath(TEST_DATA) + L"/state_version1.las";
    ASSERT_EQ(database.getLayerStateManager()->importLayerState(path.c_str(), name), Vorn::eOk)
        << toUtf8(engine::lastFileProblem(database));
    const Drawing& drawing = engine::drawingOf(database);
    const LayerState& state = drawing.states.at(0);
    EXPECT_EQ(state.name, L"Gro\x00DF");
    EXPECT_EQ(state.description, L"line one\nline \"two\"");
    EXPECT_EQ(state.mask, MaskOn | MaskColor | MaskPlotStyle | 0x10000u);
    EXPECT_TRUE(state.hasViewportData);
    EXPECT_EQ(drawing.names.text(state.currentLayer), L"A-WALL");
    const wchar_t* layers[] = {L"Base", L"A-WALL", L"plan!A-WALL"};
    const wchar_t* linetypes[] = {L"Continuous", L"Dashed", L"Lost linetype"};
    const wchar_t* plotStyles[] = {L"Normal", L"", L"Grey"};
    const int flags[] = {9, 6, 57}, colors[] = {1, static_cast<int>(0xC2FF8000), 256}, weights[] = {-3, 25, 211};
    ASSERT_EQ(state.layers->names.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(drawing.names.text(state.layers->names[i]), layers[i]);
        EXPECT_EQ(drawing.names.text(state.columns.linetypes[i]), linetypes[i]);
        EXPECT_EQ(drawing.names.text(state.columns.plotStyles[i]), plotStyles[i]);
        EXPECT_EQ(state.columns.flags[i], flags[i]);
        EXPECT_EQ(static_cast<int>(state.columns.colors[i]), colors[i]);
        EXPECT_EQ(state.columns.lineWeights[i], weights[i]);
    }
}

TEST(OldVersions, theSecondLayerStatesFileIsReadAsItWasWritten) {
    KelDbDatabase database(true, true);
    KelString name;
    const std::wstring path = widePath(TEST_DATA) + L"/state_version2.las";
    ASSERT_EQ(database.getLayerStateManager()->importLayerState(path.c_str(), name), Vorn::eOk)
        << toUtf8(engine::lastFileProblem(database));
    const Drawing& drawing = engine::drawingOf(database);
    const LayerState& state = drawing.states.at(0);
    EXPECT_EQ(state.name, L"Facade");
    ASSERT_EQ(state.columns.colors.size(), 4u);
    const wchar_t* names[] = {L"Signal Blue", L"S\x00FC\x00DFholz", L"", L""};
    const wchar_t* books[] = {L"House Paints", L"", L"House Paints", L""};
    const std::uint32_t packed[] = {0xC2003C8C, 0xC2804020, 0xC2003C8C, 5};
    for (std::size_t i = 0; i < 4; ++i) {
        const KelCmColor color = drawing.namedColors.color(state.columns.colors[i]);
        EXPECT_STREQ(color.colorName(), names[i]);
        EXPECT_STREQ(color.bookName(), books[i]);
        EXPECT_EQ(color.packed(), packed[i]);
    }
}

TEST(OldVersions, layerStatesFilesGoOutAsTheyCameIn) {
    const TemporaryFolder folder;
    const std::wstring out = folder.file(L"out.las");
    for (const wchar_t* version : {L"/state_version1.las", L"/state_version2.las"}) {
        KelDbDatabase database(true, true);
        KelString name;
        const std::wstring path = widePath(TEST_DATA) + version;
        KelDbLayerStateManager& states = *database.getLayerStateManager();
        ASSERT_EQ(states.importLayerState(path.c_str(), name), Vorn::eOk) << toUtf8(engine::lastFileProblem(database));
        ASSERT_EQ(states.exportLayerState(name.kwszPtr(), out.c_str()), Vorn::eOk)
            << toUtf8(engine::lastFileProblem(database));
        EXPECT_EQ(bytesOf(out), bytesOf(path)) << toUtf8(version);
    }
}
