// How a reference's layers and styles meet those that the drawing has. A layer that the drawing has from an earlier
// attachment keeps the drawing's values; one that the reference no longer has goes, unless the drawing needs it. A
// linetype or plot style that the drawing has under the same name is used for the reference's; the others come in under
// "name!style".

#include "ReferenceAttachment.h"

#include "LayerEditing.h"
#include "LayerStates.h"
#include "NewDrawing.h"
#include "values/NameRules.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

namespace engine {
namespace {

/// Columns of the reference and what became of them here, so that states which shared a column still share it.
template <class T> class ColumnTranslation {
  public:
    /// `make` makes the drawing's column of one that wasn't met before.
    template <class Make> const zdr::Column<T>& of(const zdr::Column<T>& column, Make make) {
        const auto [entry, isNew] = m_known.try_emplace({column.values().data(), column.size()});
        if (isNew)
            entry->second = make();
        return entry->second;
    }

  private:
    std::map<std::pair<const T*, std::size_t>, zdr::Column<T>> m_known;
};

class Attachment {
  public:
    Attachment(DatabaseImp& database, std::size_t reference, const zdr::Drawing& from)
        : m_database(database), m_reference(reference), m_from(from),
          m_prefix(database.drawing().references[reference].name + kReferenceSeparator),
          m_styles(from.names.size(), zdr::kNoName) {}

    void run() {
        for (const zdr::Linetype& linetype : m_from.linetypes)
            enterLinetype(linetype);
        m_database.appendLinetypes(std::move(m_freshLinetypes));
        for (const zdr::PlotStyle& style : m_from.plotStyles)
            enterPlotStyle(style);
        m_database.appendPlotStyles(std::move(m_freshPlotStyles));
        for (std::size_t layer = 0; layer < m_from.layers.size(); ++layer)
            enterLayer(layer);
        dropLayersThatAreGone();
        m_database.appendLayers(std::move(m_fresh));
        enterMissingStyles();
        m_freshStates.reserve(m_from.states.size());
        for (const zdr::LayerState& state : m_from.states)
            enterState(state);
        m_database.appendStates(std::move(m_freshStates));
        enterMendedNames();
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
        m_freshLinetypes.push_back(std::move(linetype));
    }

    void enterPlotStyle(zdr::PlotStyle style) {
        const zdr::NameId own = m_database.drawing().names.find(m_from.names.text(style.name));
        const bool has = own != zdr::kNoName && m_database.hasPlotStyle(own);
        const zdr::NameId name = m_styles[style.name] = has ? own : prefixed(style.name);
        if (m_database.hasPlotStyle(name))
            return;
        style.name = name;
        m_freshPlotStyles.push_back(style);
    }

    // The drawing's name for a style of the reference. Made here for a style that no drawing has: a state may name one.
    zdr::NameId styleName(zdr::NameId name) {
        if (m_styles[name] == zdr::kNoName)
            m_styles[name] = prefixed(name);
        return m_styles[name];
    }

    // Styles that the reference's layers name and its drawing lacks.
    void enterMissingStyles() {
        const zdr::Drawing& drawing = m_database.drawing();
        const std::size_t names = drawing.names.size();
        m_database.appendLinetypes(missingStyles(drawing.linetypes, drawing.columns.linetypes, names));
        m_database.appendPlotStyles(missingStyles(drawing.plotStyles, drawing.columns.plotStyles, names));
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
        std::vector<bool> gone(drawing.layers.size());
        for (std::size_t index = 0; index < gone.size(); ++index)
            gone[index] =
                drawing.layers[index].reference == m_reference && !m_names.contains(drawing.layers[index].name);
        if (std::ranges::find(gone, true) == gone.end())
            return;
        const std::vector<bool> used = usedLayers(drawing);
        for (std::size_t index = 0; index < gone.size(); ++index)
            if (gone[index] && used[index]) {
                gone[index] = false;
                m_database.followLayer(index, drawing.layers[index].description, true);
            }
        m_database.removeLayers(gone);
    }

    std::shared_ptr<const zdr::LayerSet> layerSet(const std::shared_ptr<const zdr::LayerSet>& set) {
        std::shared_ptr<const zdr::LayerSet>& known = m_sets[set.get()];
        if (!known && set) {
            auto entered = std::make_shared<zdr::LayerSet>();
            entered->names.reserve(set->names.size());
            for (const zdr::NameId name : set->names)
                entered->names.push_back(prefixed(name));
            known = std::move(entered);
        }
        return known;
    }

    zdr::Column<zdr::NameId> styles(const zdr::Column<zdr::NameId>& column) {
        return m_styleColumns.of(column, [&] {
            std::vector<zdr::NameId> names;
            names.reserve(column.size());
            for (const zdr::NameId name : column.values())
                names.push_back(styleName(name));
            return zdr::Column<zdr::NameId>(std::move(names));
        });
    }
    zdr::Column<zdr::ColorId> colors(const zdr::Column<zdr::ColorId>& column) {
        return m_colorColumns.of(column, [&] { return m_database.take(column, m_from.namedColors); });
    }

    void enterState(zdr::LayerState state) {
        state.name = m_prefix + state.name;
        state.layers = layerSet(state.layers);
        state.columns.colors = colors(state.columns.colors);
        state.columns.linetypes = styles(state.columns.linetypes);
        state.columns.plotStyles = styles(state.columns.plotStyles);
        state.currentLayer = prefixed(state.currentLayer);
        state.reference = m_reference;
        m_freshStates.push_back(std::move(state));
    }

    // The drawing may have kept as its last restored state one that its reference's file calls otherwise.
    void enterMendedNames() {
        for (const zdr::MendedName& theirs : m_from.mendedNames) {
            zdr::MendedName name{m_prefix + theirs.was, m_prefix + theirs.now, theirs.bearer};
            const std::optional<std::wstring>& last = m_database.drawing().lastRestored;
            if (name.bearer == zdr::Bearer::LayerState && last && zdr::equalFolded(*last, name.was))
                m_database.setLastRestored(name.now);
            m_database.appendMendedName(std::move(name));
        }
    }

    DatabaseImp& m_database;
    const std::size_t m_reference;
    const zdr::Drawing& m_from;
    const std::wstring m_prefix;
    std::vector<zdr::NameId> m_styles;       // the drawing's names by the reference's
    std::unordered_set<zdr::NameId> m_names; // of all layers that the reference has
    std::vector<WholeLayer> m_fresh;         // layers that the drawing doesn't know yet
    std::vector<zdr::Linetype> m_freshLinetypes;
    std::vector<zdr::PlotStyle> m_freshPlotStyles;
    std::vector<zdr::LayerState> m_freshStates;
    std::unordered_map<const zdr::LayerSet*, std::shared_ptr<const zdr::LayerSet>> m_sets; // the drawing's
    ColumnTranslation<zdr::NameId> m_styleColumns;
    ColumnTranslation<zdr::ColorId> m_colorColumns;
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

template <class Goes> void dropStates(DatabaseImp& database, Goes goes) {
    std::vector<bool> gone;
    gone.reserve(database.drawing().states.size());
    for (const zdr::LayerState& state : database.drawing().states)
        gone.push_back(goes(state));
    database.removeStates(gone);
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

// The drawing holds none of the reference's states.
void enterReference(DatabaseImp& database, std::size_t reference, std::shared_ptr<const zdr::Drawing> drawing) {
    drawing = withItsReferences(database, std::move(drawing));
    database.setReferenceDrawing(reference, drawing);
    if (drawing)
        Attachment(database, reference, *drawing).run();
}

} // namespace

void attachReference(DatabaseImp& database, std::size_t reference, std::shared_ptr<const zdr::Drawing> drawing) {
    const ForgottenHistory forgotten(database);
    dropStates(database, [reference](const zdr::LayerState& state) { return state.reference == reference; });
    const std::wstring prefix = database.drawing().references[reference].name + kReferenceSeparator;
    database.dropMendedNames([&prefix](const zdr::MendedName& name) { return name.now.starts_with(prefix); });
    enterReference(database, reference, std::move(drawing));
}

void attachReferences(DatabaseImp& database) {
    const auto& references = database.drawing().references;
    if (std::ranges::all_of(references, [](const zdr::Reference& reference) { return reference.drawing == nullptr; }))
        return;
    const ForgottenHistory forgotten(database);
    const auto isShown = [&references](const zdr::LayerState& state) {
        return state.reference != zdr::kNone && references[state.reference].drawing;
    };
    dropStates(database, isShown);
    database.dropMendedNames([&references](const zdr::MendedName& name) {
        return std::ranges::any_of(references, [&name](const zdr::Reference& reference) {
            return reference.drawing && name.now.starts_with(reference.name + kReferenceSeparator);
        });
    });
    for (std::size_t index = 0; index < references.size(); ++index)
        if (references[index].drawing)
            enterReference(database, index, references[index].drawing);
}

} // namespace engine
