// The tables of a drawing file as a drawing.
#include "DrawingReader.h"

#include "DrawingCheck.h"
#include "EntityCoding.h"
#include "FileFormat.h"
#include "NameMending.h"
#include "ReadContext.h"

#include <algorithm>

namespace zdr {
namespace {

class DrawingReader {
  public:
    DrawingReader(const file::Drawing& source, std::span<const std::byte> bytes, std::shared_ptr<const void> owner)
        : m_source(source), m_context(bytes, std::move(owner), m_drawing.names) {}
    Drawing read();

  private:
    void readStyles();
    void readNamedColors();
    void readLayers();
    LayerColumns columns(const file::LayerColumns& source, const Place& place);
    void readLayerSets();
    void readStates();
    LayerState state(const file::LayerState& source, const Place& place);
    void readReferences();
    void readApplications();
    void readLayouts();
    void readCurrent();
    void giveHandles();
    void check();

    const file::Drawing& m_source;
    Drawing m_drawing;
    ReadContext m_context;
    std::vector<std::shared_ptr<const LayerSet>> m_sets;
};

Drawing DrawingReader::read() {
    // Style names come first: then their numbers in the file are their numbers in the drawing, and columns are shared.
    m_context.readStyleNames(*m_source.style_names());
    readStyles();
    readNamedColors();
    readLayers();
    readLayerSets();
    readStates();
    m_drawing.entities = readEntities(*m_source.entities(), nullptr, m_context);
    readLayouts();
    readReferences();
    readApplications();
    readCurrent();
    giveHandles();
    mendNames(m_drawing);
    check();
    return std::move(m_drawing);
}

void DrawingReader::readStyles() {
    const auto& linetypes = *m_source.linetypes();
    m_drawing.linetypes.reserve(linetypes.size());
    for (const file::Linetype* source : linetypes) {
        const Place place{L"linetype", m_drawing.linetypes.size()};
        Linetype& linetype = m_drawing.linetypes.emplace_back();
        linetype.name = m_context.name(source->name(), place);
        linetype.handle = source->handle();
        linetype.description = m_context.text(source->description(), place);
        if (!source->pattern())
            continue;
        m_context.claim(source->pattern()->size() * sizeof(double));
        const std::span<const double> pattern = alignedValues(*source->pattern(), place);
        linetype.pattern.assign(pattern.begin(), pattern.end());
    }
    for (const file::PlotStyle* source : *m_source.plot_styles()) {
        const NameId name = m_context.name(source->name(), {L"plot style", m_drawing.plotStyles.size()});
        m_drawing.plotStyles.push_back({name, source->handle()});
    }
    m_drawing.colorDependentPlotStyles = m_source.color_dependent_plot_styles();
}

// All are different, so that their places in the file are their places in the drawing, and columns are shared.
void DrawingReader::readNamedColors() {
    if (!m_source.named_colors())
        return;
    for (const file::NamedColor* source : *m_source.named_colors()) {
        const Place place{L"named colour", m_drawing.namedColors.size()};
        KelCmColor color = KelCmColor::fromPacked(source->value());
        if (color.isByPCI())
            refuse(place, L"has the value " + std::to_wstring(source->value()) + L", which isn't a true colour");
        const std::wstring name = m_context.text(source->name(), place), book = m_context.text(source->book(), place);
        for (const std::wstring& text : {name, book})
            if (engine::checkColorName(text) != Vorn::eOk)
                refuse(place, L"has a name that is too long or holds a control character");
        if (name.empty() && book.empty())
            refuse(place, L"has neither a name nor a book");
        if (color.setNames(name.c_str(), book.c_str()) != Vorn::eOk)
            throw std::bad_alloc();
        if (const ColorId known = m_drawing.namedColors.intern(color); namedColorIndex(known) != place.index)
            refuse(place, L"is the same as named colour " + std::to_wstring(namedColorIndex(known) + 1));
    }
}

void DrawingReader::readLayers() {
    const auto& layers = *m_source.layers();
    m_drawing.layers.reserve(layers.size());
    auto set = std::make_shared<LayerSet>();
    set->names.reserve(layers.size());
    for (const file::Layer* source : layers) {
        const Place place{L"layer", m_drawing.layers.size()};
        Layer& layer = m_drawing.layers.emplace_back();
        layer.name = m_context.name(source->name(), place);
        layer.handle = source->handle();
        layer.description = m_context.text(source->description(), place);
        if (source->reference() < -1)
            refuseIndex(place, L"reference", static_cast<std::uint32_t>(source->reference()),
                        m_source.references()->size());
        if (source->reference() >= 0)
            layer.reference = static_cast<std::size_t>(source->reference());
        set->names.push_back(layer.name);
    }
    m_drawing.layerSet = std::move(set);
    m_drawing.columns = columns(*m_source.columns(), {L"the table of layers"});
    m_drawing.currentLayer = m_source.current_layer();
}

LayerColumns DrawingReader::columns(const file::LayerColumns& source, const Place& place) {
    return {m_context.view(*source.flags()), m_context.view(*source.colors()),
            m_context.styles(*source.linetypes(), place), m_context.view(*source.line_weights()),
            m_context.styles(*source.plot_styles(), place)};
}

void DrawingReader::readLayerSets() {
    for (const file::LayerSet* source : *m_source.layer_sets()) {
        const Place place{L"layer set", m_sets.size()};
        auto set = std::make_shared<LayerSet>();
        set->names.reserve(source->names()->size());
        for (const flatbuffers::String* name : *source->names())
            set->names.push_back(m_context.name(name, place));
        // States over just the drawing's layers share its set, and so are compared and restored by position.
        if (set->names == m_drawing.layerSet->names)
            m_sets.push_back(m_drawing.layerSet);
        else
            m_sets.push_back(std::move(set));
    }
}

void DrawingReader::readStates() {
    m_drawing.states.reserve(m_source.states()->size());
    for (const file::LayerState* source : *m_source.states())
        m_drawing.states.push_back(state(*source, {L"layer state", m_drawing.states.size()}));
}

LayerState DrawingReader::state(const file::LayerState& source, const Place& place) {
    if (source.layer_set() >= m_sets.size())
        refuseIndex(place, L"layer set", source.layer_set(), m_sets.size());
    LayerState state;
    state.name = m_context.text(source.name(), place);
    state.description = m_context.text(source.description(), place);
    state.handle = source.handle();
    state.mask = source.mask();
    state.layers = m_sets[source.layer_set()];
    state.columns = columns(*source.columns(), place);
    state.hasViewportData = source.has_viewport_data();
    const std::vector<NameId>& layers = state.layers->names;
    if (source.current_layer() < -1 || source.current_layer() >= static_cast<std::int64_t>(layers.size()))
        refuseIndex(place, L"layer", static_cast<std::uint32_t>(source.current_layer()), layers.size());
    if (source.current_layer_name())
        state.currentLayer = m_context.name(source.current_layer_name(), place);
    else if (source.current_layer() >= 0)
        state.currentLayer = layers[static_cast<std::size_t>(source.current_layer())];
    return state;
}

void DrawingReader::readLayouts() {
    const std::size_t layerCount = m_drawing.layers.size();
    for (const file::Layout* source : *m_source.layouts())
        m_drawing.layouts.push_back(readLayout(*source, {L"layout", m_drawing.layouts.size()}, layerCount, m_context));
}

void DrawingReader::readReferences() {
    for (const file::Reference* source : *m_source.references()) {
        const Place place{L"reference", m_drawing.references.size()};
        Reference& reference = m_drawing.references.emplace_back();
        reference.name = m_context.text(source->name(), place);
        reference.path = m_context.text(source->path(), place);
        reference.insertion = {source->insertion()->x(), source->insertion()->y()};
        reference.scale = source->scale();
        reference.rotation = source->rotation();
        reference.unloaded = source->unloaded();
    }
}

void DrawingReader::readApplications() {
    if (m_source.applications())
        for (const flatbuffers::String* name : *m_source.applications())
            m_drawing.applications.push_back(
                m_context.text(name, {L"registered application", m_drawing.applications.size()}));
    if (!m_source.extended_data())
        return;
    for (const file::ExtendedData* source : *m_source.extended_data()) {
        const Place place{L"extended data", m_drawing.extendedData.size()};
        ExtendedData& data = m_drawing.extendedData.emplace_back();
        data.object = source->object();
        data.application = m_context.text(source->application(), place);
        if (!source->values())
            continue;
        for (const file::ExtendedValue* value : *source->values()) {
            if (value->text())
                data.values.add({value->code(), m_context.text(value->text(), place)});
            else
                data.values.add({value->code(), value->number()});
        }
    }
}

void DrawingReader::readCurrent() {
    if (m_source.last_restored())
        m_drawing.lastRestored = m_context.text(m_source.last_restored(), {L"the last restored state"});
    m_drawing.defaultLineWeight = m_source.default_line_weight();
    m_drawing.linetypeScale = m_source.linetype_scale();
    if (m_source.active_layout() < -1)
        refuseIndex({L"the active tab"}, L"layout", static_cast<std::uint32_t>(m_source.active_layout()),
                    m_drawing.layouts.size());
    if (m_source.active_layout() >= 0)
        m_drawing.activeLayout = static_cast<std::size_t>(m_source.active_layout());
    if (m_source.current_viewport() == 0)
        return;
    m_drawing.currentViewport = m_source.current_viewport();
    if (!hasCurrentViewport(m_drawing))
        refuse({L"the current viewport"}, L"isn't one of the active layout");
}

/// Calls `action` with every handle of the drawing.
template <class Action> void forEachHandle(Drawing& drawing, Action action) {
    for (Linetype& linetype : drawing.linetypes)
        action(linetype.handle);
    for (PlotStyle& style : drawing.plotStyles)
        action(style.handle);
    for (Layer& layer : drawing.layers)
        action(layer.handle);
    for (LayerState& state : drawing.states)
        action(state.handle);
    for (Layout& layout : drawing.layouts)
        for (Viewport& viewport : layout.viewports)
            action(viewport.handle);
}

void DrawingReader::giveHandles() {
    Handle greatest = 0;
    bool complete = true;
    forEachHandle(m_drawing, [&](const Handle& handle) {
        greatest = std::max(greatest, handle);
        complete = complete && handle != 0;
    });
    m_drawing.nextHandle = m_source.next_handle();
    if (m_drawing.nextHandle == 0)
        m_drawing.nextHandle = greatest + 1; // made from text; the check finds a sum that is 0
    if (!complete)
        m_drawing.nextHandle = std::max(m_drawing.nextHandle, greatest + 1);
    forEachHandle(m_drawing, [&](Handle& handle) {
        if (handle == 0)
            handle = m_drawing.nextHandle++;
    });
}

void DrawingReader::check() {
    checkDrawing(m_drawing);
    // Translating a column has checked it against the file's style names; its ids are of the whole name table now.
    ColumnCheck check(m_context.stylesAreNames() ? m_context.styleCount() : m_drawing.names.size(),
                      m_drawing.namedColors.size());
    check.check(m_drawing.columns, m_drawing.layers.size(), ColumnsOf::Drawing, {L"the table of layers"});
    for (std::size_t i = 0; i < m_drawing.states.size(); ++i) {
        const LayerState& state = m_drawing.states[i];
        check.check(state.columns, state.layers->names.size(), ColumnsOf::State, {L"layer state", i, state.name});
    }
}

} // namespace

Drawing drawingFromBytes(std::span<const std::byte> bytes, std::shared_ptr<const void> owner) {
    return DrawingReader(verifiedDrawing(bytes), bytes, std::move(owner)).read();
}

} // namespace zdr
