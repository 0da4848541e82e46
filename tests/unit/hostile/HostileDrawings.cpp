// Drawing files that lie, read by the host's call into a database whose drawing must stay as it is. The many ways to
// lie about a single value are in DamagedFileTest.cpp.
#include "Attack.h"

#include "../files/FilePatch.h"
#include "../files/SampleDrawing.h"

#include <limits>
#include <set>

namespace file = zdr::file;

namespace {

constexpr std::uint32_t kBillion = 1'000'000'000;

Outcome readInto(const Target& target, const std::wstring& path) {
    return {target.database.readZdrFile(path.c_str(), 64, false, nullptr), path,
            engine::lastFileProblem(target.database)};
}

Attack bytes(std::string name, std::string content, Vorn::ErrorStatus status, std::string reason) {
    return {std::move(name),
            [content](const Target& target) { return readInto(target, target.write(L"hostile.zdr", content)); }, status,
            std::move(reason)};
}

/// The sample drawing's file with one thing changed.
Attack patched(std::string name, std::function<void(FilePatch&)> change, std::string reason,
               Vorn::ErrorStatus status = Vorn::eFileCutOff) {
    return {std::move(name),
            [change](const Target& target) {
                FilePatch patch(sampleDrawing());
                change(patch);
                return readInto(target, target.write(L"hostile.zdr", patch.bytes()));
            },
            status, std::move(reason)};
}

const file::ExtendedValue* extendedValue(const FilePatch& patch, unsigned index) {
    return patch.root().extended_data()->Get(0)->values()->Get(index);
}

void append(std::vector<Attack>& all, std::vector<Attack> more) {
    all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

std::vector<Attack> strangers() {
    return {
        bytes("nothing", "", Vorn::eFileCutOff, "is empty"),
        bytes("threeBytes", "KZD", Vorn::eFileCutOff, "isn't a drawing, or only the first 3 bytes of one"),
        bytes("shortText", "Hello.", Vorn::eNotADrawing, "it doesn't begin with the mark of one"),
        bytes("text", "This is no drawing at all.", Vorn::eNotADrawing, "it doesn't begin with the mark of one"),
        bytes("layerStatesFile", "{\n  \"layerStateFile\": 1\n}", Vorn::eNotADrawing, "isn't a drawing"),
        bytes("byteOrderMark", "\xEF\xBB\xBF{\"version\": 1}", Vorn::eNotADrawing, "isn't a drawing"),
        bytes("archive", "PK\x03\x04 and so on", Vorn::eNotADrawing, "isn't a drawing"),
        bytes("markAndRubbish", std::string("\xFF\xFF\xFF\x7FKZDR") + std::string(100, '\xFF'), Vorn::eFileCutOff,
              "its first table isn't within its 108 bytes"),
        bytes("markAndZeros", std::string("\0\0\0\0KZDR", 8) + std::string(100, '\0'), Vorn::eFileCutOff,
              "its first table isn't within its 108 bytes"),
    };
}

std::vector<Attack> falseCounts() {
    return {
        patched(
            "aBillionLayers", [](FilePatch& f) { f.setCount(f.root().layers(), kBillion); },
            "some of its tables aren't within its"),
        patched(
            "aBillionStates", [](FilePatch& f) { f.setCount(f.root().states(), kBillion); },
            "some of its tables aren't within its"),
        patched(
            "aBillionNamesInALayerSet",
            [](FilePatch& f) { f.setCount(f.root().layer_sets()->Get(0)->names(), kBillion); },
            "some of its tables aren't within its"),
        patched(
            "aBillionColors", [](FilePatch& f) { f.setCount(f.root().columns()->colors(), kBillion); },
            "some of its tables aren't within its"),
        patched(
            "fewerLayersThanValues", [](FilePatch& f) { f.setCount(f.root().layers(), 3); },
            "but there are only 3, counted from 0"),
        patched(
            "aNameLongerThanTheFile", [](FilePatch& f) { f.setCount(f.root().layers()->Get(0)->name(), 0x7FFFFFFF); },
            "some of its tables aren't within its"),
        patched(
            "oneByteMoreThanItSays", [](FilePatch& f) { f.bytes().push_back({}); }, "instead of"),
    };
}

std::vector<Attack> falseNames() {
    return {
        patched(
            "aLineBreakInALayersName", [](FilePatch& f) { f.setText(f.root().layers()->Get(2)->name(), "A\nDOOR"); },
            "layer 3 (\"A\nDOOR\") has a control character in its name"),
        patched(
            "aZeroInALayersName",
            [](FilePatch& f) { f.setText(f.root().layers()->Get(2)->name(), std::string("A\0DOOR", 6)); },
            "has a control character in its name"),
        patched(
            "halfACharacterInTwoSequences",
            [](FilePatch& f) { f.setText(f.root().layers()->Get(2)->name(), "\xED\xA0\xBD\xED\xB8\x80"); },
            "layer 3 has a text that isn't UTF-8"),
        patched(
            "anOverlongSequence", [](FilePatch& f) { f.setText(f.root().layers()->Get(2)->name(), "A-\xC0\x80OR"); },
            "layer 3 has a text that isn't UTF-8"),
        patched(
            "twoLayersOfOneName", [](FilePatch& f) { f.setText(f.root().layers()->Get(2)->name(), "A-wall"); },
            "layer 3 (\"A-WALL\") has the name of layer 2"),
        patched(
            "twoStatesOfOneName", [](FilePatch& f) { f.setText(f.root().states()->Get(2)->name(), "EMPTY"); },
            "has the name of layer state 3"),
        patched(
            "aStateThatNamesALayerTwice",
            [](FilePatch& f) { f.setText(f.root().layer_sets()->Get(0)->names()->Get(2), "A-WALL"); },
            "has the name of layer 2"),
    };
}

std::vector<Attack> falseNumbers() {
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    return {
        patched(
            "aRadiusThatIsNoNumber",
            [](FilePatch& f) {
                f.set(f.root().entities()->Get(3)->geometry_as_Circle(), file::Circle::VT_RADIUS, notANumber);
            },
            "entity 4 has a coordinate or size that isn't a number"),
        patched(
            "aCurrentLayerThatIsNotThere",
            [](FilePatch& f) { f.set(&f.root(), file::Drawing::VT_CURRENT_LAYER, 0x80000000u); },
            "the current layer refers to the layer with the index 2147483648, but there are only 4"),
        patched(
            "aHandleThatIsTheLast",
            [](FilePatch& f) { f.set(f.root().layers()->Get(2), file::Layer::VT_HANDLE, ~std::uint64_t{0}); },
            "layer 3 (\"A-DOOR\") has the handle 18446744073709551615, but the next handle to give is 40"),
        patched(
            "noHandlesLeft", [](FilePatch& f) { f.set(&f.root(), file::Drawing::VT_NEXT_HANDLE, ~std::uint64_t{0}); },
            "the next handle to give is 18446744073709551615, and there are none so high"),
        patched(
            "aLengthOfOneByte", [](FilePatch& f) { f.set(&f.root(), file::Drawing::VT_LENGTH, 1u); }, "instead of 1"),
    };
}

std::vector<Attack> falseExtendedData() {
    return {
        patched(
            "aTextWithTheCodeOfANumber",
            [](FilePatch& f) { f.set(extendedValue(f, 1), file::ExtendedValue::VT_CODE, std::int16_t{1070}); },
            "value 2 of extended data 1 (\"KELLAYERS\") has the code 1070, but a text"),
        patched(
            "aNumberWithTheCodeOfAText",
            [](FilePatch& f) { f.set(extendedValue(f, 0), file::ExtendedValue::VT_CODE, std::int16_t{1000}); },
            "value 1 of extended data 1 (\"KELLAYERS\") has the code 1000, but no text"),
        patched(
            "aCodeThatIsNone",
            [](FilePatch& f) { f.set(extendedValue(f, 0), file::ExtendedValue::VT_CODE, std::int16_t{1004}); },
            "has the code 1004, which isn't one of extended data"),
        patched(
            "aNumberOfMoreThan16Bits",
            [](FilePatch& f) { f.set(extendedValue(f, 0), file::ExtendedValue::VT_NUMBER, 70000); },
            "has the number 70000, which needs more than its 16 bits"),
        patched(
            "aTextWithAZeroInIt", [](FilePatch& f) { f.setText(extendedValue(f, 1)->text(), std::string("te\0t", 4)); },
            "has a text with the character 0 in it"),
        patched(
            "anApplicationWithAControlCharacter",
            [](FilePatch& f) { f.setText(f.root().extended_data()->Get(1)->application(), "O\x1Fher"); },
            "has a control character in its name"),
    };
}

/// A file of the next version, as a newer program might write it: with tables that this one can't know.
Attack newerVersion() {
    flatbuffers::FlatBufferBuilder builder;
    const auto start = builder.StartTable();
    builder.AddElement<std::uint32_t>(file::Drawing::VT_VERSION, 4'000'000'000u, 0);
    builder.AddElement<std::uint64_t>(file::Drawing::VT_LAYERS, 77, 0); // no longer an offset
    builder.Finish(flatbuffers::Offset<file::Drawing>(builder.EndTable(start)), file::DrawingIdentifier());
    const std::string content(reinterpret_cast<const char*>(builder.GetBufferPointer()), builder.GetSize());
    return bytes("aVersionFarAhead", content, Vorn::eNewerVersion, "its format is 4000000000");
}

/// Where the tables of a file begin.
class TableStarts {
  public:
    explicit TableStarts(FilePatch& patch) : m_bytes(patch.bytes()) {
        const file::Drawing& root = patch.root();
        add(&root), add(root.columns());
        addAll(root.linetypes()), addAll(root.plot_styles()), addAll(root.layers()), addAll(root.layer_sets());
        addAll(root.references()), addAll(root.extended_data());
        for (const file::LayerState* state : *root.states())
            add(state), add(state->columns());
        addEntities(root.entities());
        for (const file::Layout* layout : *root.layouts()) {
            add(layout), addEntities(layout->entities());
            for (const file::Viewport* viewport : *layout->viewports()) {
                add(viewport);
                addAll(viewport->overrides());
            }
        }
    }
    const std::set<std::size_t>& offsets() const { return m_offsets; }

  private:
    void add(const void* table) {
        m_offsets.insert(static_cast<std::size_t>(static_cast<const std::byte*>(table) - m_bytes.data()));
    }
    template <class Tables> void addAll(const Tables* tables) {
        if (tables)
            for (const auto* table : *tables)
                add(table);
    }
    void addEntities(const flatbuffers::Vector<flatbuffers::Offset<file::Entity>>* entities) {
        addAll(entities);
        if (entities)
            for (const file::Entity* entity : *entities)
                add(entity->geometry());
    }

    const std::vector<std::byte>& m_bytes;
    std::set<std::size_t> m_offsets;
};

} // namespace

std::vector<Attack> drawingAttacks() {
    std::vector<Attack> all = strangers();
    append(all, falseCounts());
    append(all, falseNames());
    append(all, falseNumbers());
    append(all, falseExtendedData());
    all.push_back(newerVersion());
    return all;
}

std::vector<Attack> cutDrawingAttacks() {
    FilePatch patch(sampleDrawing());
    std::vector<Attack> cuts;
    const TableStarts starts(patch);
    for (const std::size_t offset : starts.offsets()) {
        const std::string content(reinterpret_cast<const char*>(patch.bytes().data()), offset);
        cuts.push_back(bytes("at" + std::to_string(offset), content, Vorn::eFileCutOff, "is cut off"));
    }
    return cuts;
}
