// What goes into a drawing file comes out of it.
#include "DrawingDifference.h"
#include "FilePatch.h"
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gtest/gtest.h>

using namespace zdr;

namespace {

Drawing throughBytes(const Drawing& drawing) {
    Drawing read;
    std::vector<std::byte> bytes;
    std::wstring reason;
    EXPECT_EQ(drawingBytes(drawing, bytes, reason), Vorn::eOk) << toUtf8(reason);
    EXPECT_EQ(readDrawingBytes(bytes, L"test", read, reason), Vorn::eOk) << toUtf8(reason);
    return read;
}

std::vector<std::byte> bytesOfDrawing(const Drawing& drawing) {
    std::vector<std::byte> bytes;
    std::wstring reason;
    EXPECT_EQ(drawingBytes(drawing, bytes, reason), Vorn::eOk) << toUtf8(reason);
    return bytes;
}

} // namespace

TEST(RoundTrip, everythingADrawingHoldsSurvives) {
    const Drawing drawing = sampleDrawing();
    EXPECT_EQ(difference(throughBytes(drawing), drawing), "");
}

TEST(RoundTrip, aLayerOfANestedReferenceMayHaveThirtyTwoFullPartsInItsName) {
    Drawing drawing = sampleDrawing();
    const std::wstring part(255, L'p');
    drawing.references[0].name = part;
    std::wstring name = part;
    for (int i = 1; i < 32; ++i)
        name += L"!" + part;
    drawing.layers[3].name = drawing.names.intern(name);
    const Drawing read = throughBytes(drawing);
    ASSERT_EQ(read.layers.size(), 4u);
    EXPECT_EQ(read.names.text(read.layers[3].name), name);
}

TEST(RoundTrip, theHighestHandleToGiveSurvives) {
    Drawing drawing = sampleDrawing();
    drawing.nextHandle = Handle{1} << 62;
    EXPECT_EQ(throughBytes(drawing).nextHandle, drawing.nextHandle);
}

TEST(RoundTrip, aFileHoldsTheSameAsMemory) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"Wohnh\x00E4user.zdr");
    std::wstring reason;
    FileStamp stamp;
    ASSERT_EQ(writeDrawingFile(path, sampleDrawing(), reason, stamp), Vorn::eOk) << toUtf8(reason);
    EXPECT_EQ(bytesOf(path), bytesOfDrawing(sampleDrawing()));
    Drawing read;
    ASSERT_EQ(readDrawingFile(path, read, reason), Vorn::eOk) << toUtf8(reason);
    EXPECT_EQ(difference(read, sampleDrawing()), "");
}

TEST(RoundTrip, theSecondFileIsTheFirstByteForByte) {
    const std::vector<std::byte> first = bytesOfDrawing(throughBytes(sampleDrawing()));
    const std::vector<std::byte> second = bytesOfDrawing(throughBytes(throughBytes(sampleDrawing())));
    EXPECT_EQ(first, second);
}

TEST(RoundTrip, theFileTellsItsOwnLength) {
    const FilePatch file(sampleDrawing());
    const std::vector<std::byte> bytes = bytesOfDrawing(sampleDrawing());
    EXPECT_EQ(file.root().length(), bytes.size());
    EXPECT_EQ(bytes.size() % 4, 0u);
}

TEST(RoundTrip, namesThatAreNotWellFormedSurvive) {
    Drawing drawing = plainDrawing();
    const std::wstring name = std::wstring(L"half ") + static_cast<wchar_t>(0xD83D);
    drawing.layers[0].name = drawing.names.intern(name);
    drawing.layerSet = std::make_shared<LayerSet>(LayerSet{{drawing.layers[0].name}});
    const Drawing read = throughBytes(drawing);
    EXPECT_EQ(read.names.text(read.layers[0].name), name);
}

TEST(RoundTrip, statesOfReferencesStayInTheirOwnFile) {
    Drawing drawing = sampleDrawing();
    drawing.states.push_back(drawing.states[0]);
    drawing.states.back().name = L"plan!As drawn";
    drawing.states.back().reference = 0;
    EXPECT_EQ(difference(throughBytes(drawing), sampleDrawing()), "");
}

TEST(RoundTrip, whatComesFromAReferenceMayHaveALongerName) {
    const std::wstring name = L"plan!" + std::wstring(255, L'r') + L"!" + std::wstring(255, L's');
    Drawing drawing = sampleDrawing();
    drawing.layers[3].name = drawing.names.intern(name);
    drawing.linetypes.push_back({drawing.layers[3].name, drawing.nextHandle++, L"", {}});
    drawing.plotStyles.push_back({drawing.layers[3].name, drawing.nextHandle++});
    const Drawing read = throughBytes(drawing);
    EXPECT_EQ(read.names.text(read.layers[3].name), name);
    EXPECT_EQ(read.names.text(read.linetypes.back().name), name);
}

TEST(RoundTrip, statesThatShareColumnsShareThemInTheFileAndAfterwards) {
    Drawing drawing = sampleDrawing();
    const std::size_t before = bytesOfDrawing(drawing).size();
    for (int i = 0; i < 100; ++i) {
        drawing.states.push_back(drawing.states[0]);
        drawing.states.back().name = L"copy " + std::to_wstring(i);
        drawing.states.back().handle = drawing.nextHandle++;
    }
    // Three further tables and a name each, but no columns of their own.
    EXPECT_LT(bytesOfDrawing(drawing).size(), before + 100 * 120);
    const Drawing read = throughBytes(drawing);
    EXPECT_EQ(read.states[0].columns.colors.values().data(), read.states.back().columns.colors.values().data());
    EXPECT_EQ(read.states[0].columns.colors.values().data(), read.columns.colors.values().data());
}

TEST(RoundTrip, columnsOfAReadDrawingLookAtTheBytesOfItsFile) {
    const Drawing read = throughBytes(sampleDrawing());
    // All columns lie within one block of memory, in the order of the file.
    const auto* first = reinterpret_cast<const std::byte*>(read.columns.flags.values().data());
    const auto* last = reinterpret_cast<const std::byte*>(read.states[2].columns.plotStyles.values().data());
    EXPECT_GT(last, first);
    EXPECT_LT(last, first + bytesOfDrawing(sampleDrawing()).size());
    const auto* style = reinterpret_cast<const std::byte*>(read.states[2].columns.linetypes.values().data());
    EXPECT_GT(style, first);
    EXPECT_LT(style, last);
}

TEST(RoundTrip, aReadDrawingOutlivesItsFileAndCanBeChanged) {
    Drawing copy;
    {
        const Drawing read = throughBytes(sampleDrawing());
        copy = read;
    }
    copy.states[0].columns.colors.set(1, 200);
    EXPECT_EQ(copy.states[0].columns.colors[1], 200u);
    EXPECT_EQ(copy.columns.colors[1], 1u);
    EXPECT_EQ(throughBytes(copy).states[0].columns.colors[1], 200u);
}

TEST(RoundTrip, statesOverTheDrawingsOwnLayersShareItsLayerSet) {
    Drawing drawing = sampleDrawing();
    drawing.states[0].layers = std::make_shared<LayerSet>(*drawing.layerSet);
    const Drawing read = throughBytes(drawing);
    EXPECT_EQ(read.states[0].layers, read.layerSet);
    EXPECT_NE(read.states[2].layers, read.layerSet);
}

TEST(RoundTrip, onlyStyleNamesInUseAreWritten) {
    Drawing drawing = plainDrawing();
    drawing.names.intern(L"never used");
    const FilePatch file(drawing);
    ASSERT_EQ(file.root().style_names()->size(), 2u);
    EXPECT_EQ(file.root().style_names()->Get(1)->str(), "Continuous");
}

TEST(RoundTrip, aCurrentViewportThatIsGoneIsNotWritten) {
    Drawing drawing = sampleDrawing();
    drawing.currentViewport = 39;
    EXPECT_EQ(throughBytes(drawing).currentViewport, std::nullopt);
}
