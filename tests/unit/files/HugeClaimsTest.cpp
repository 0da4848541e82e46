// Small files that claim to hold very much, because many of their tables lead to the same bytes.
#include "FilePatch.h"
#include "SampleDrawing.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <drawing_generated.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zdr;
using flatbuffers::Offset;
using testing::HasSubstr;

namespace {

/// The file of a plain drawing in which some vectors are replaced.
class ClaimingFile {
  public:
    flatbuffers::FlatBufferBuilder builder;
    Offset<flatbuffers::Vector<Offset<file::LayerSet>>> layerSets;
    Offset<flatbuffers::Vector<Offset<file::Entity>>> entities;
    Offset<flatbuffers::Vector<Offset<file::Layout>>> layouts;
    std::uint32_t layerCount = 1;

    Offset<flatbuffers::Vector<Offset<flatbuffers::String>>> names(const std::vector<std::string>& names) {
        return builder.CreateVectorOfStrings(names);
    }

    std::string readingFails() {
        if (layerSets.IsNull())
            layerSets = builder.CreateVector(std::vector<Offset<file::LayerSet>>());
        if (entities.IsNull())
            entities = builder.CreateVector(std::vector<Offset<file::Entity>>());
        if (layouts.IsNull())
            layouts = builder.CreateVector(std::vector<Offset<file::Layout>>());
        const auto styles = names({""});
        std::vector<Offset<file::Layer>> layers;
        for (std::uint32_t i = 0; i < layerCount; ++i)
            layers.push_back(file::CreateLayer(builder, builder.CreateString("L" + std::to_string(i))));
        const auto values = [&]<class T>(T value) { return builder.CreateVector(std::vector<T>(layerCount, value)); };
        const auto columns = file::CreateLayerColumns(builder, values(std::uint8_t{9}), values(7u), values(0u),
                                                      values(std::int16_t{-3}), values(0u));
        const auto none = [&]<class T>(T*) { return builder.CreateVector(std::vector<Offset<T>>()); };
        const auto root = file::CreateDrawing(builder, 1, 0, styles, none((file::Linetype*)nullptr),
                                              none((file::PlotStyle*)nullptr), false, builder.CreateVector(layers),
                                              columns, 0, layerSets, none((file::LayerState*)nullptr), 0, entities,
                                              layouts, -1, 0, none((file::Reference*)nullptr));
        file::FinishDrawingBuffer(builder, root);
        Drawing drawing;
        std::wstring reason;
        const auto bytes = std::as_bytes(std::span(builder.GetBufferPointer(), builder.GetSize()));
        status = readDrawingBytes(bytes, L"claims.zdr", drawing, reason);
        return toUtf8(reason);
    }
    Vorn::ErrorStatus status = Vorn::eOk;
};

} // namespace

TEST(HugeClaims, theFileAroundTheClaimsIsGood) {
    ClaimingFile file;
    EXPECT_EQ(file.readingFails(), "");
    EXPECT_EQ(file.status, Vorn::eOk);
}

TEST(HugeClaims, layerSetsThatAllLeadToOneLongListAreRefusedAtOnce) {
    ClaimingFile file;
    const auto names = file.names(std::vector<std::string>(20000, ""));
    std::vector<Offset<file::LayerSet>> sets;
    for (int i = 0; i < 20000; ++i)
        sets.push_back(file::CreateLayerSet(file.builder, names));
    file.layerSets = file.builder.CreateVector(sets);
    EXPECT_THAT(file.readingFails(), HasSubstr("its layer sets overlap"));
    EXPECT_EQ(file.status, Vorn::eFileCutOff);
}

TEST(HugeClaims, textsThatAllLeadToOneLongTextAreRefused) {
    ClaimingFile file;
    const auto text = file.builder.CreateString(std::string(100000, 'x'));
    const file::Point origin(0, 0);
    std::vector<Offset<file::Entity>> entities;
    for (int i = 0; i < 10000; ++i) {
        const auto geometry = file::CreateText(file.builder, &origin, 1, 0, text).Union();
        entities.push_back(file::CreateEntity(file.builder, 0, 256, -1, -1, file::Geometry::Text, geometry));
    }
    file.entities = file.builder.CreateVector(entities);
    EXPECT_THAT(file.readingFails(), HasSubstr("its parts overlap, and claim more bytes than the file holds"));
    EXPECT_EQ(file.status, Vorn::eFileCutOff);
}

TEST(HugeClaims, polylinesThatAllLeadToTheSamePointsAreRefused) {
    ClaimingFile file;
    const auto points = file.builder.CreateVectorOfStructs(std::vector<file::Point>(10000));
    std::vector<Offset<file::Entity>> entities;
    for (int i = 0; i < 10000; ++i) {
        const auto geometry = file::CreatePolyline(file.builder, points).Union();
        entities.push_back(file::CreateEntity(file.builder, 0, 256, -1, -1, file::Geometry::Polyline, geometry));
    }
    file.entities = file.builder.CreateVector(entities);
    EXPECT_THAT(file.readingFails(), HasSubstr("its parts overlap"));
    EXPECT_EQ(file.status, Vorn::eFileCutOff);
}

TEST(HugeClaims, oneEntityInAMillionPlacesIsRefused) {
    ClaimingFile file;
    const file::Point origin(0, 0);
    const auto geometry = file::CreateLine(file.builder, &origin, &origin).Union();
    const auto entity = file::CreateEntity(file.builder, 0, 256, -1, -1, file::Geometry::Line, geometry);
    file.entities = file.builder.CreateVector(std::vector<Offset<file::Entity>>(1000000, entity));
    EXPECT_THAT(file.readingFails(), HasSubstr("is cut off or damaged"));
    EXPECT_EQ(file.status, Vorn::eFileCutOff);
}

TEST(HugeClaims, viewportsThatEachFreezeTheLastOfManyLayersAreRefused) {
    ClaimingFile file;
    file.layerCount = 40000;
    const file::Point origin(0, 0);
    std::vector<Offset<file::Viewport>> viewports;
    const auto last = file.builder.CreateVector(std::vector<std::uint32_t>{file.layerCount - 1});
    for (int i = 0; i < 30000; ++i)
        viewports.push_back(file::CreateViewport(file.builder, 0, -1, &origin, 1, 1, &origin, 1, last));
    const auto layout =
        file::CreateLayout(file.builder, file.builder.CreateString("A3"), 0, 0, file.builder.CreateVector(viewports));
    file.layouts = file.builder.CreateVector(std::vector<Offset<file::Layout>>{layout});
    EXPECT_THAT(file.readingFails(), HasSubstr("its viewports have more layers than a drawing can hold"));
    EXPECT_EQ(file.status, Vorn::eFileCutOff);
}

namespace {

/// A drawing of so many layers whose states all share its columns. Its flags, read as the length of a column, are the
/// number of layers again, so that a column may begin at any of them.
constexpr std::uint32_t kLayersLikeFlags = 0x0404;

Drawing drawingOfSharedColumns(std::size_t states) {
    Drawing drawing = plainDrawing();
    auto set = std::make_shared<LayerSet>(*drawing.layerSet);
    for (std::uint32_t i = 1; i < kLayersLikeFlags; ++i) {
        drawing.layers.push_back({drawing.names.intern(L"L" + std::to_wstring(i)), drawing.nextHandle++, L"", kNone});
        set->names.push_back(drawing.layers.back().name);
    }
    drawing.layerSet = std::move(set);
    forEachColumn(
        [](auto& column) {
            const auto value = column[0];
            while (column.size() < kLayersLikeFlags)
                column.insert(column.size(), value);
        },
        drawing.columns);
    for (std::size_t layer = 0; layer < kLayersLikeFlags; ++layer)
        drawing.columns.flags.set(layer, layer % 4 < 2 ? 4 : 0);
    for (std::size_t i = 0; i < states; ++i) {
        LayerState& state = drawing.states.emplace_back();
        state.name = L"State " + std::to_wstring(i);
        state.handle = drawing.nextHandle++;
        state.layers = drawing.layerSet;
        state.columns = drawing.columns;
    }
    return drawing;
}

} // namespace

TEST(HugeClaims, statesMayShareColumnsAsOftenAsTheyLike) {
    FilePatch file(drawingOfSharedColumns(200));
    Drawing drawing;
    std::wstring reason;
    EXPECT_EQ(readDrawingBytes(file.bytes(), L"shared.zdr", drawing, reason), Vorn::eOk) << toUtf8(reason);
}

TEST(HugeClaims, columnsThatEachBeginAFewBytesBehindTheOneBeforeAreRefused) {
    FilePatch file(drawingOfSharedColumns(200));
    const auto* flags = reinterpret_cast<const std::uint8_t*>(file.root().columns()->flags());
    for (unsigned i = 0; i < 200; ++i)
        file.lead(file.root().states()->Get(i)->columns(), file::LayerColumns::VT_FLAGS, flags + 4 * i);
    Drawing drawing;
    std::wstring reason;
    EXPECT_EQ(readDrawingBytes(file.bytes(), L"claims.zdr", drawing, reason), Vorn::eFileCutOff);
    EXPECT_THAT(toUtf8(reason), HasSubstr("its parts overlap"));
}
