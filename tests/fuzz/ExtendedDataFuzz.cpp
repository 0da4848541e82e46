// Fuzzer of extended data on its way from a file to the chains that modules walk: whatever a file holds, a chain can be
// walked by its codes alone, stored again as it is, and given back; and nothing stays in the ledger.
//
// The input is the extended data alone: blocks of the object's handle (a byte), the application (a byte for the length,
// then UTF-8), the number of values (a byte), and the values: code (two bytes, the low one first), what it has (a byte:
// 1 a number, 2 a text, 3 both), the number (four bytes) and the text (as the application).
#include "FuzzInput.h"
#include "FuzzRules.h"
#include "KelDbPointers.h"
#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "instruments/HostCalls.h"

#include <drawing_generated.h>

#include <cwchar>

namespace file = zdr::file;
using flatbuffers::Offset;

namespace {

Offset<file::ExtendedData> block(flatbuffers::FlatBufferBuilder& builder, Input& input) {
    const std::uint64_t object = input.number(1);
    const auto application = builder.CreateString(input.text());
    std::vector<Offset<file::ExtendedValue>> values;
    for (std::uint32_t left = input.number(1); left > 0 && !input.isEmpty(); --left) {
        const auto code = static_cast<std::int16_t>(input.number(2));
        const std::uint32_t has = input.number(1);
        const auto number = has & 1 ? static_cast<std::int32_t>(input.number(4)) : 0;
        const auto text = has & 2 ? builder.CreateString(input.text()) : Offset<flatbuffers::String>();
        values.push_back(file::CreateExtendedValue(builder, code, number, text));
    }
    return file::CreateExtendedData(builder, object, application, builder.CreateVector(values));
}

/// A file of a drawing with the layers Base (handle 1) and Walls (handle 2) and the extended data of the input.
flatbuffers::DetachedBuffer fileOf(Input input) {
    flatbuffers::FlatBufferBuilder builder;
    std::vector<Offset<file::ExtendedData>> blocks;
    while (!input.isEmpty())
        blocks.push_back(block(builder, input));
    const auto none = [&]<class T>(T*) { return builder.CreateVector(std::vector<Offset<T>>()); };
    const auto two = [&]<class T>(T value) { return builder.CreateVector(std::vector<T>(2, value)); };
    const auto columns =
        file::CreateLayerColumns(builder, two(std::uint8_t{9}), two(7u), two(0u), two(std::int16_t{-3}), two(0u));
    const std::vector<Offset<file::Layer>> layers = {file::CreateLayer(builder, builder.CreateString("Base"), 1),
                                                     file::CreateLayer(builder, builder.CreateString("Walls"), 2)};
    const auto layerVector = builder.CreateVector(layers);
    const auto styles = builder.CreateVectorOfStrings(std::vector<std::string>{""});
    const auto linetypes = none(static_cast<file::Linetype*>(nullptr));
    const auto plotStyles = none(static_cast<file::PlotStyle*>(nullptr));
    const auto sets = none(static_cast<file::LayerSet*>(nullptr));
    const auto states = none(static_cast<file::LayerState*>(nullptr));
    const auto entities = none(static_cast<file::Entity*>(nullptr));
    const auto layouts = none(static_cast<file::Layout*>(nullptr));
    const auto references = none(static_cast<file::Reference*>(nullptr));
    const auto applications = builder.CreateVectorOfStrings(std::vector<std::string>{"ONE", "Two"});
    const auto data = builder.CreateVector(blocks);
    file::DrawingBuilder drawing(builder);
    drawing.add_style_names(styles);
    drawing.add_linetypes(linetypes);
    drawing.add_plot_styles(plotStyles);
    drawing.add_layers(layerVector);
    drawing.add_columns(columns);
    drawing.add_layer_sets(sets);
    drawing.add_states(states);
    drawing.add_entities(entities);
    drawing.add_layouts(layouts);
    drawing.add_references(references);
    drawing.add_applications(applications);
    drawing.add_extended_data(data);
    file::FinishDrawingBuffer(builder, drawing.Finish());
    return builder.Release();
}

/// The nodes of a chain after the first, read as a module reads them.
zdr::ExtendedValues walk(const ResultBuffer* chain) {
    zdr::ExtendedValues values;
    for (const ResultBuffer* node = chain->next; node; node = node->next) {
        if (node->type == kExtendedInt16)
            values.add({node->type, std::int32_t{node->value.int16}});
        else if (node->type == kExtendedInt32)
            values.add({node->type, node->value.int32});
        else
            values.add({node->type, node->value.string});
    }
    return values;
}

void checkChain(KelDbObjectId layer, const zdr::ExtendedData& data) {
    KelDbObjectPointer<KelDbLayerTableRecord> record(layer, KelDb::kForWrite);
    ResultBuffer* chain = record->getExtendedData(data.application.c_str());
    stopUnless(chain && chain->type == kExtendedAppName, "a block of the file isn't handed out");
    stopUnless(zdr::equalFolded(chain->value.string, data.application), "a chain names another application");
    const zdr::ExtendedValues values = walk(chain);
    stopUnless(values == data.values, "a chain differs from the file");
    stopUnless(record->setExtendedData(chain) == Vorn::eOk, "a chain can't be stored again");
    kelutRelRb(chain);
    chain = record->getExtendedData(data.application.c_str());
    stopUnless(chain ? walk(chain) == values : values.empty(), "storing a chain changes it");
    kelutRelRb(chain);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const flatbuffers::DetachedBuffer bytes = fileOf(Input(data, size));
    zdr::Drawing drawing;
    std::wstring reason;
    if (zdr::readDrawingBytes(std::as_bytes(std::span(bytes.data(), bytes.size())), L"input", drawing, reason) !=
        Vorn::eOk) {
        stopUnless(!reason.empty(), "a refusal without a reason");
        return 0;
    }
    const std::vector<zdr::ExtendedData> blocks = drawing.extendedData;
    instruments::watch(true);
    {
        KelDbDatabase database(false, false);
        engine::replaceDrawing(database, std::move(drawing));
        for (const zdr::ExtendedData& block : blocks)
            if (const KelDbObjectId layer = engine::objectId(database, block.object); !layer.isNull())
                checkChain(layer, block);
        savedAndRead(engine::drawingOf(database));
    }
    stopUnless(instruments::ledger().empty(), "something wasn't given back");
    instruments::watch(false);
    return 0;
}
