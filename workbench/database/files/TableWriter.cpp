#include "TableWriter.h"

#include "EntityCoding.h"
#include "TextCoding.h"

#include <algorithm>

namespace zdr {

using flatbuffers::Offset;

namespace {

/// The index of a reference as the file keeps it, -1 for none.
std::int32_t fileIndex(std::size_t index) {
    return index == kNone ? -1 : static_cast<std::int32_t>(index);
}

/// The place of a state's current layer in its layer set, or -1.
std::int32_t currentLayerIndex(const LayerState& state) {
    const std::vector<NameId>& names = state.layers->names;
    const auto found = std::find(names.begin(), names.end(), state.currentLayer);
    return found == names.end() ? -1 : static_cast<std::int32_t>(found - names.begin());
}

} // namespace

std::vector<const LayerState*> ownStates(const Drawing& drawing) {
    std::vector<const LayerState*> states;
    for (const LayerState& state : drawing.states)
        if (state.reference == kNone)
            states.push_back(&state);
    return states;
}

TableWriter::TableWriter(const Drawing& drawing, const FileNumbers& numbers, flatbuffers::FlatBufferBuilder& builder)
    : m_drawing(drawing), m_numbers(numbers), m_builder(builder),
      m_emptyVector(builder.CreateVector(std::vector<std::uint32_t>()).o) {}

TableWriter::Text TableWriter::text(std::wstring_view text) {
    checkSize(m_builder.GetSize());
    return m_builder.CreateString(toUtf8(text));
}

TableWriter::Text TableWriter::optionalText(std::wstring_view text) {
    return text.empty() ? Text(0) : this->text(text);
}

TableWriter::Vector<flatbuffers::String> TableWriter::names(const std::vector<NameId>& names) {
    std::vector<Text> texts;
    texts.reserve(names.size());
    for (const NameId name : names)
        texts.push_back(text(m_drawing.names.text(name)));
    return m_builder.CreateVector(texts);
}

TableWriter::Vector<file::Linetype> TableWriter::linetypes() {
    std::vector<Offset<file::Linetype>> tables;
    for (const Linetype& linetype : m_drawing.linetypes) {
        const Text name = text(m_drawing.names.text(linetype.name));
        const Text description = optionalText(linetype.description);
        const auto pattern = m_builder.CreateVector(linetype.pattern);
        tables.push_back(file::CreateLinetype(m_builder, name, linetype.handle, description, pattern));
    }
    return m_builder.CreateVector(tables);
}

TableWriter::Vector<file::PlotStyle> TableWriter::plotStyles() {
    std::vector<Offset<file::PlotStyle>> tables;
    for (const PlotStyle& style : m_drawing.plotStyles)
        tables.push_back(file::CreatePlotStyle(m_builder, text(m_drawing.names.text(style.name)), style.handle));
    return m_builder.CreateVector(tables);
}

TableWriter::Vector<file::NamedColor> TableWriter::namedColors() {
    if (m_numbers.namedColors().empty())
        return {};
    std::vector<Offset<file::NamedColor>> tables;
    for (const std::uint32_t place : m_numbers.namedColors()) {
        const KelCmColor color = m_drawing.namedColors.color(kFirstNamedColor + place);
        const Text name = optionalText(color.colorName());
        const Text book = optionalText(color.bookName());
        tables.push_back(file::CreateNamedColor(m_builder, color.packed(), name, book));
    }
    return m_builder.CreateVector(tables);
}

TableWriter::Vector<file::Layer> TableWriter::layers() {
    std::vector<Offset<file::Layer>> tables;
    tables.reserve(m_drawing.layers.size());
    for (const Layer& layer : m_drawing.layers) {
        const Text name = text(m_drawing.names.text(layer.name));
        const Text description = optionalText(layer.description);
        tables.push_back(file::CreateLayer(m_builder, name, layer.handle, description, fileIndex(layer.reference)));
    }
    return m_builder.CreateVector(tables);
}

TableWriter::Vector<file::LayerSet> TableWriter::layerSets() {
    std::vector<const LayerSet*> sets;
    const std::vector<const LayerState*> states = ownStates(m_drawing);
    const auto use = [&](const LayerSet* set) {
        if (m_setNumbers.try_emplace(set, static_cast<std::uint32_t>(sets.size())).second)
            sets.push_back(set);
    };
    const LayerSet* own = m_drawing.layerSet.get();
    if (std::any_of(states.begin(), states.end(), [&](const LayerState* state) { return state->layers.get() == own; }))
        use(own);
    for (const LayerState* state : states)
        use(state->layers.get());
    std::vector<Offset<file::LayerSet>> tables;
    tables.reserve(sets.size());
    for (const LayerSet* set : sets)
        tables.push_back(file::CreateLayerSet(m_builder, names(set->names)));
    return m_builder.CreateVector(tables);
}

TableWriter::Vector<file::LayerState> TableWriter::states() {
    std::vector<Offset<file::LayerState>> tables;
    for (const LayerState* state : ownStates(m_drawing))
        tables.push_back(this->state(*state));
    return m_builder.CreateVector(tables);
}

Offset<file::LayerState> TableWriter::state(const LayerState& state) {
    const Text name = text(state.name);
    const Text description = optionalText(state.description);
    const std::int32_t current = state.currentLayer == kNoName ? -1 : currentLayerIndex(state);
    const Text currentName = current < 0 ? optionalText(m_drawing.names.text(state.currentLayer)) : Text(0);
    return file::CreateLayerState(m_builder, name, description, state.handle, state.mask,
                                  m_setNumbers.at(state.layers.get()), columns(), current, state.hasViewportData,
                                  currentName);
}

TableWriter::Vector<file::Layout> TableWriter::layouts() {
    std::vector<Offset<file::Layout>> tables;
    for (const Layout& layout : m_drawing.layouts)
        tables.push_back(writeLayout(m_builder, layout, m_numbers));
    return m_builder.CreateVector(tables);
}

TableWriter::Vector<file::Reference> TableWriter::references() {
    std::vector<Offset<file::Reference>> tables;
    for (const Reference& reference : m_drawing.references) {
        const Text name = text(reference.name);
        const Text path = text(reference.path);
        const file::Point insertion(reference.insertion.x, reference.insertion.y);
        tables.push_back(file::CreateReference(m_builder, name, path, &insertion, reference.scale, reference.rotation,
                                               reference.unloaded));
    }
    return m_builder.CreateVector(tables);
}

TableWriter::Vector<flatbuffers::String> TableWriter::applications() {
    std::vector<Text> names;
    for (const std::wstring& name : m_drawing.applications)
        names.push_back(text(name));
    return m_builder.CreateVector(names);
}

TableWriter::Vector<file::ExtendedData> TableWriter::extendedData() {
    std::vector<Offset<file::ExtendedData>> tables;
    for (const ExtendedData& data : m_drawing.extendedData) {
        std::vector<Offset<file::ExtendedValue>> values;
        for (const ExtendedValue& value : data.values) {
            const auto* number = std::get_if<std::int32_t>(&value.value);
            const Text string = number ? Text(0) : text(std::get<std::wstring_view>(value.value));
            values.push_back(file::CreateExtendedValue(m_builder, value.code, number ? *number : 0, string));
        }
        const Text application = text(data.application);
        const auto vector = m_builder.CreateVector(values);
        tables.push_back(file::CreateExtendedData(m_builder, data.object, application, vector));
    }
    return m_builder.CreateVector(tables);
}

Offset<file::LayerColumns> TableWriter::columns() {
    return file::CreateLayerColumns(m_builder, m_emptyVector, m_emptyVector, m_emptyVector, m_emptyVector,
                                    m_emptyVector);
}

std::uint32_t TableWriter::version() const {
    if (std::ranges::any_of(m_drawing.references, &Reference::unloaded))
        return kUnloadedVersion;
    if (m_drawing.linetypeScale != 1)
        return kLinetypeScaleVersion;
    return m_numbers.namedColors().empty() ? kFirstVersion : kNamedColorsVersion;
}

void TableWriter::write() {
    constexpr std::uint32_t kUnknownLength = 1; // anything but 0, which the builder would leave out
    const auto styleNames = names(m_numbers.styleNames());
    const auto linetypeTables = linetypes();
    const auto plotStyleTables = plotStyles();
    const auto layerTables = layers();
    const auto ownColumns = columns();
    const auto setTables = layerSets();
    const auto stateTables = states();
    // No state has an empty name, but the file still tells an empty last restored name from none.
    const Text lastRestored = m_drawing.lastRestored ? text(*m_drawing.lastRestored) : Text(0);
    const auto entities = writeEntities(m_builder, m_drawing.entities, m_numbers);
    const auto layoutTables = layouts();
    const auto referenceTables = references();
    const auto applicationNames = applications();
    const auto dataTables = extendedData();
    const auto colorTables = namedColors();
    const std::int32_t activeLayout = fileIndex(m_drawing.activeLayout.value_or(kNone));
    const Handle currentViewport = hasCurrentViewport(m_drawing) ? *m_drawing.currentViewport : 0;
    const auto root = file::CreateDrawing(m_builder, version(), m_drawing.nextHandle, styleNames, linetypeTables,
                                          plotStyleTables, m_drawing.colorDependentPlotStyles, layerTables, ownColumns,
                                          static_cast<std::uint32_t>(m_drawing.currentLayer), setTables, stateTables,
                                          lastRestored, entities, layoutTables, activeLayout, currentViewport,
                                          referenceTables, applicationNames, dataTables, m_drawing.defaultLineWeight,
                                          kUnknownLength, colorTables, m_drawing.linetypeScale);
    file::FinishDrawingBuffer(m_builder, root);
}

} // namespace zdr
