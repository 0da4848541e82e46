// See ReferenceAttachment.h. A layer that the drawing knows from before keeps the values that the drawing has for it.
// Linetypes and plot styles that the drawing has under the same name are taken for the reference's; the others come in
// under "name!style".

#include "ReferenceAttachment.h"

#include "LayerStates.h"
#include "values/NameRules.h"

namespace engine {
namespace {

class Attachment {
  public:
    Attachment(DatabaseImp& database, std::size_t reference, const zdr::Drawing& from)
        : m_database(database), m_reference(reference), m_from(from),
          m_prefix(database.drawing().references[reference].name + kReferenceSeparator),
          m_styles(from.names.size(), zdr::kNoName) {}

    void run() {
        for (const zdr::Linetype& linetype : m_from.linetypes)
            enterLinetype(linetype);
        for (const zdr::PlotStyle& style : m_from.plotStyles)
            enterPlotStyle(style);
        for (std::size_t layer = 0; layer < m_from.layers.size(); ++layer)
            enterLayer(layer);
        for (const zdr::LayerState& state : m_from.states)
            if (state.reference == zdr::kNone)
                enterState(state);
    }

  private:
    zdr::NameId prefixed(zdr::NameId name) {
        return name == zdr::kNoName ? name : m_database.intern(m_prefix + m_from.names.text(name));
    }

    void enterLinetype(zdr::Linetype linetype) {
        const zdr::NameId own = m_database.drawing().names.find(m_from.names.text(linetype.name));
        const bool has = own != zdr::kNoName && m_database.hasLinetype(own);
        const zdr::NameId name = m_styles[linetype.name] = has ? own : prefixed(linetype.name);
        if (m_database.hasLinetype(name))
            return;
        linetype.name = name;
        m_database.appendLinetype(std::move(linetype));
    }

    void enterPlotStyle(zdr::PlotStyle style) {
        const zdr::NameId own = m_database.drawing().names.find(m_from.names.text(style.name));
        const bool has = own != zdr::kNoName && m_database.hasPlotStyle(own);
        const zdr::NameId name = m_styles[style.name] = has ? own : prefixed(style.name);
        if (m_database.hasPlotStyle(name))
            return;
        style.name = name;
        m_database.appendPlotStyle(style);
    }

    // The drawing's name of a style; a state may name one that no drawing has.
    zdr::NameId styleName(zdr::NameId name) {
        if (m_styles[name] == zdr::kNoName)
            m_styles[name] = prefixed(name);
        return m_styles[name];
    }

    void enterLayer(std::size_t index) {
        const zdr::NameId name = prefixed(m_from.layers[index].name);
        if (m_database.findLayer(name) != zdr::kNone)
            return;
        LayerValues values = valuesAt(m_from.columns, index);
        values.linetype = styleName(values.linetype);
        values.plotStyle = styleName(values.plotStyle);
        m_database.appendLayer({name, 0, m_from.layers[index].description, m_reference}, values);
    }

    std::shared_ptr<const zdr::LayerSet> layerSet(const std::shared_ptr<const zdr::LayerSet>& set) {
        if (set == m_lastSet)
            return m_lastEntered;
        auto entered = std::make_shared<zdr::LayerSet>();
        for (const zdr::NameId name : set->names)
            entered->names.push_back(prefixed(name));
        m_lastSet = set;
        m_lastEntered = std::move(entered);
        return m_lastEntered;
    }

    zdr::Column<zdr::NameId> styles(const zdr::Column<zdr::NameId>& column) {
        std::vector<zdr::NameId> names;
        names.reserve(column.size());
        for (const zdr::NameId name : column.values())
            names.push_back(styleName(name));
        return zdr::Column<zdr::NameId>(std::move(names));
    }

    void enterState(zdr::LayerState state) {
        state.name = m_prefix + state.name;
        state.layers = layerSet(state.layers);
        state.columns.linetypes = styles(state.columns.linetypes);
        state.columns.plotStyles = styles(state.columns.plotStyles);
        state.currentLayer = prefixed(state.currentLayer);
        state.reference = m_reference;
        m_database.insertState(std::move(state), m_database.drawing().states.size());
    }

    DatabaseImp& m_database;
    const std::size_t m_reference;
    const zdr::Drawing& m_from;
    const std::wstring m_prefix;
    std::vector<zdr::NameId> m_styles; // the drawing's names by the reference's
    std::shared_ptr<const zdr::LayerSet> m_lastSet, m_lastEntered;
};

void dropStates(DatabaseImp& database, std::size_t reference) {
    for (std::size_t index = database.drawing().states.size(); index-- > 0;)
        if (database.drawing().states[index].reference == reference)
            database.removeState(index);
}

} // namespace

void attachReference(DatabaseImp& database, std::size_t reference, std::shared_ptr<const zdr::Drawing> drawing) {
    dropStates(database, reference);
    database.setReferenceDrawing(reference, drawing);
    if (drawing)
        Attachment(database, reference, *drawing).run();
    database.history().clear();
}

void attachReferences(DatabaseImp& database) {
    for (std::size_t index = 0; index < database.drawing().references.size(); ++index)
        if (const auto drawing = database.drawing().references[index].drawing)
            attachReference(database, index, drawing);
}

} // namespace engine
