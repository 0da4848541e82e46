// How a reference's layers and styles meet those that the drawing has. A layer that the drawing has from an earlier
// attachment keeps the drawing's values; one that the reference no longer has goes, unless the drawing needs it. A
// linetype or plot style that the drawing has under the same name is used for the reference's; the others come in under
// "name!style".

#include "ReferenceAttachment.h"

#include "LayerEditing.h"
#include "LayerStates.h"
#include "values/NameRules.h"

#include <algorithm>
#include <unordered_set>

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
        dropLayersThatAreGone();
        m_database.appendLayers(std::move(m_fresh));
        for (const zdr::LayerState& state : m_from.states)
            enterState(state);
        enterMendedStates();
    }

  private:
    zdr::NameId prefixed(zdr::NameId name) {
        return name == zdr::kNoName ? name : m_database.intern(m_prefix + m_from.names.text(name));
    }

    void enterLinetype(zdr::Linetype linetype) {
        const zdr::NameId own = m_database.drawing().names.find(m_from.names.text(linetype.name));
        const bool has = own != zdr::kNoName && m_database.hasLinetype(own);
        if (has) {
            m_styles[linetype.name] = own;
            return;
        }
        linetype.name = m_styles[linetype.name] = prefixed(linetype.name);
        if (const std::size_t known = m_database.findLinetype(linetype.name); known != zdr::kNone) {
            m_database.followLinetype(known, std::move(linetype));
            return;
        }
        m_database.appendLinetype(std::move(linetype));
    }

    void enterPlotStyle(zdr::PlotStyle style) {
        const zdr::NameId own = m_database.drawing().names.find(m_from.names.text(style.name));
        const bool has = own != zdr::kNoName && m_database.hasPlotStyle(own);
        const zdr::NameId name = m_styles[style.name] = has ? own : prefixed(style.name);
        if (m_database.hasPlotStyle(name))
            return;
        style.name = name;
        m_database.insertPlotStyle(m_database.drawing().plotStyles.size(), style);
    }

    // The drawing's name for a style of the reference. Made here for a style that no drawing has: a state may name one.
    zdr::NameId styleName(zdr::NameId name) {
        if (m_styles[name] == zdr::kNoName)
            m_styles[name] = prefixed(name);
        return m_styles[name];
    }

    void enterLayer(std::size_t index) {
        const zdr::Layer& theirs = m_from.layers[index];
        const zdr::NameId name = prefixed(theirs.name);
        const bool unresolved = !isResolved(m_from, theirs);
        m_names.insert(name);
        if (const std::size_t known = m_database.findLayer(name); known != zdr::kNone) {
            m_database.followLayer(known, theirs.description, unresolved);
            return;
        }
        LayerValues values = valuesAt(m_from.columns, index);
        values.color = m_database.take(values.color, m_from.namedColors);
        values.linetype = styleName(values.linetype);
        values.plotStyle = styleName(values.plotStyle);
        m_fresh.push_back({{name, 0, theirs.description, m_reference, unresolved}, values, {}, {}});
    }

    void dropLayersThatAreGone() {
        const zdr::Drawing& drawing = m_database.drawing();
        for (std::size_t index = drawing.layers.size(); index-- > 0;) {
            const zdr::Layer& layer = drawing.layers[index];
            if (layer.reference != m_reference || m_names.contains(layer.name))
                continue;
            if (index == drawing.currentLayer || isLayerUsed(drawing, index))
                m_database.followLayer(index, layer.description, true);
            else
                m_database.removeLayer(index);
        }
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
        state.columns.colors = m_database.take(state.columns.colors, m_from.namedColors);
        state.columns.linetypes = styles(state.columns.linetypes);
        state.columns.plotStyles = styles(state.columns.plotStyles);
        state.currentLayer = prefixed(state.currentLayer);
        state.reference = m_reference;
        m_database.insertState(std::move(state), m_database.drawing().states.size());
    }

    // The drawing may have kept as its last restored state one that its reference's file calls otherwise.
    void enterMendedStates() {
        for (const zdr::MendedName& theirs : m_from.mendedStates) {
            zdr::MendedName name{m_prefix + theirs.was, m_prefix + theirs.now};
            const std::optional<std::wstring>& last = m_database.drawing().lastRestored;
            if (last && zdr::equalFolded(*last, name.was))
                m_database.setLastRestored(name.now);
            m_database.appendMendedState(std::move(name));
        }
    }

    DatabaseImp& m_database;
    const std::size_t m_reference;
    const zdr::Drawing& m_from;
    const std::wstring m_prefix;
    std::vector<zdr::NameId> m_styles;       // the drawing's names by the reference's
    std::unordered_set<zdr::NameId> m_names; // of all layers that the reference has
    std::vector<WholeLayer> m_fresh;         // layers that the drawing doesn't know yet
    std::shared_ptr<const zdr::LayerSet> m_lastSet, m_lastEntered;
};

/// Clears the undo history when a change that can't be undone ends, also when an exception ends it half done.
class ForgottenHistory {
  public:
    explicit ForgottenHistory(DatabaseImp& database) : m_database(database) {}
    ~ForgottenHistory() { m_database.history().clear(); }
    ForgottenHistory(const ForgottenHistory&) = delete;
    ForgottenHistory& operator=(const ForgottenHistory&) = delete;

  private:
    DatabaseImp& m_database;
};

void dropStates(DatabaseImp& database, std::size_t reference) {
    for (std::size_t index = database.drawing().states.size(); index-- > 0;)
        if (database.drawing().states[index].reference == reference)
            database.removeState(index);
    database.dropMendedStates(database.drawing().references[reference].name + kReferenceSeparator);
}

// A copy of a referenced drawing with its own references attached, so that their layers come along with its own as
// "a!b!layer".
std::shared_ptr<const zdr::Drawing> withItsReferences(const DatabaseImp& database,
                                                      std::shared_ptr<const zdr::Drawing> drawing) {
    const auto isThere = [](const zdr::Reference& reference) { return reference.drawing != nullptr; };
    if (!drawing || std::ranges::none_of(drawing->references, isThere))
        return drawing;
    const auto inner = std::make_unique<DatabaseImp>(database.owner()); // not on the stack: this may nest deeply
    inner->adopt(*drawing);
    attachReferences(*inner);
    return std::make_shared<const zdr::Drawing>(inner->release());
}

} // namespace

void attachReference(DatabaseImp& database, std::size_t reference, std::shared_ptr<const zdr::Drawing> drawing) {
    const ForgottenHistory forgotten(database);
    dropStates(database, reference);
    drawing = withItsReferences(database, std::move(drawing));
    database.setReferenceDrawing(reference, drawing);
    if (drawing)
        Attachment(database, reference, *drawing).run();
}

void attachReferences(DatabaseImp& database) {
    for (std::size_t index = 0; index < database.drawing().references.size(); ++index)
        if (const auto drawing = database.drawing().references[index].drawing)
            attachReference(database, index, drawing);
}

} // namespace engine
