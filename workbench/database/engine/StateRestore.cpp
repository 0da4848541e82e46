// Writing a state back to the layers.

#include "ColumnRuns.h"
#include "LayerProperties.h"
#include "LayerStates.h"

#include <algorithm>

namespace engine {
namespace {

/// One restore under way.
class Restore {
  public:
    Restore(DatabaseImp& database, std::size_t index, const RestoreRequest& request)
        : m_database(database), m_state(database.drawing().states[index]),
          m_mapping(database.lookups().mapping(m_state)), m_linetypes(database.linetypes()),
          m_plotStyles(database.plotStyles()), m_request(request), m_before(database.drawing().columns) {
        const std::uint32_t mask = effectiveMask(database.drawing(), request.mask);
        m_asOverrides = request.viewport && (request.flags & RestoreFlagAsOverrides) ? mask & MaskOverridable : 0;
        m_direct = mask & ~m_asOverrides;
        m_unresolved = unresolvedRows();
    }

    Vorn::ErrorStatus run() {
        writeLayers();
        if (m_request.flags & RestoreFlagLayerNotFound)
            turnOffTheRest();
        chooseCurrentLayer();
        thawCurrentLayer();
        if (m_asOverrides)
            writeOverrides();
        if (m_request.viewport && m_state.hasViewportData && (m_direct & MaskViewportFrozen))
            writeViewportFreezing();
        commit();
        return m_currentThawed    ? Vorn::eCannotFreezeCurrentLayer
               : m_styleMissing   ? Vorn::eStyleMissing
               : m_unresolvedKept ? Vorn::eLayerUnresolved
                                  : Vorn::eOk;
    }

  private:
    // What the restore makes of the drawing is put together beside it, so that it is done whole or not at all.
    void commit() {
        const zdr::Drawing& drawing = m_database.drawing();
        std::optional<std::wstring> lastRestored;
        if (m_request.remember && drawing.lastRestored != m_state.name)
            lastRestored = m_state.name;
        m_database.recordColumns();
        if (lastRestored || m_current != drawing.currentLayer)
            m_database.recordSettings();
        if (m_overrides || m_frozen)
            commitViewport(*m_request.viewport);
        // Nothing fails from here on.
        *m_database.editColumns() = std::move(m_after);
        if (m_current != drawing.currentLayer)
            m_database.setCurrentLayer(m_current);
        if (lastRestored)
            m_database.setLastRestored(std::move(lastRestored));
    }

    void commitViewport(const zdr::Viewport& viewport) {
        if (!m_overrides)
            m_overrides = viewport.overrides;
        if (!m_frozen)
            m_frozen = viewport.frozen;
        m_database.setViewportLayers(viewport, std::move(*m_frozen), std::move(*m_overrides));
    }

    void writeLayers() {
        const auto flagBits = static_cast<std::uint8_t>(m_direct & kFlagBits);
        if (flagBits)
            copyBits(m_after.flags, m_state.columns.flags, m_mapping, flagBits);
        forEachColumnProperty([&](auto property) {
            if (m_direct & property.bit)
                copyColumn(property);
        });
        keepUnresolved();
    }

    template <class Property> bool hasStyle(Property, zdr::NameId name) const {
        return name == zdr::kNoName || stylesOf(Property{}).has(name);
    }
    template <class Property> const NameIdIndex& stylesOf(Property property) const {
        static_assert(property.isStyle);
        return property.bit == MaskLinetype ? m_linetypes : m_plotStyles;
    }

    // Where the drawing lacks the state's style, the layer keeps the one it had. Nothing is missing to a layer that has
    // the state's already, as one can whose reference isn't there.
    template <class Property> void copyColumn(Property property) {
        const auto& from = m_state.columns.*property.column;
        auto& to = m_after.*property.column;
        copyRuns(to, from, m_mapping);
        if constexpr (property.isStyle) {
            if (stylesOf(property).hasAll(from.values()))
                return;
            for (const LayerMapping::Run& run : m_mapping.runs)
                for (std::size_t i = 0; i < run.count; ++i) {
                    if (hasStyle(property, from[run.state + i]))
                        continue;
                    const zdr::NameId own = (m_before.*property.column)[run.drawing + i];
                    m_styleMissing |= own != from[run.state + i];
                    to.set(run.drawing + i, own);
                }
        }
    }

    // Layers of the drawing that the state holds and whose reference is not there.
    std::vector<std::size_t> unresolvedRows() const {
        std::vector<std::size_t> rows;
        if (!m_database.hasUnresolvedLayers())
            return rows;
        for (const LayerMapping::Run& run : m_mapping.runs)
            for (std::size_t layer = run.drawing; layer < run.drawing + run.count; ++layer)
                if (!m_database.isLayerResolved(layer))
                    rows.push_back(layer);
        std::ranges::sort(rows);
        return rows;
    }

    void keepUnresolved() {
        for (const std::size_t layer : m_unresolved) {
            const LayerValues before = valuesAt(m_before, layer);
            if (valuesAt(m_after, layer) == before)
                continue;
            m_unresolvedKept = true;
            setValuesAt(m_after, layer, before);
        }
    }

    void turnOffTheRest() {
        const std::size_t count = m_before.flags.size();
        if (m_mapping.held == count)
            return;
        std::vector<bool> held(count);
        for (const LayerMapping::Run& run : m_mapping.runs)
            std::fill_n(held.begin() + static_cast<std::ptrdiff_t>(run.drawing), run.count, true);
        const std::span<std::uint8_t> values = m_after.flags.write();
        for (std::size_t layer = 0; layer < count; ++layer)
            if (!held[layer])
                values[layer] = static_cast<std::uint8_t>(values[layer] & ~zdr::kLayerOn);
    }

    bool isFrozen(std::size_t layer) const { return m_after.flags[layer] & zdr::kLayerFrozen; }
    bool wasFrozen(std::size_t layer) const { return m_before.flags[layer] & zdr::kLayerFrozen; }

    void chooseCurrentLayer() {
        const zdr::Drawing& drawing = m_database.drawing();
        const std::size_t layer = m_database.findLayer(m_state.currentLayer);
        if ((m_direct | m_asOverrides) == 0 || layer == zdr::kNone || layer == drawing.currentLayer)
            return;
        const bool staysFrozen = wasFrozen(layer) && isFrozen(layer);
        if (drawing.layers[layer].reference == zdr::kNone && !staysFrozen)
            m_current = layer;
    }

    void thawCurrentLayer() {
        if (m_current >= m_before.flags.size() || !isFrozen(m_current) || wasFrozen(m_current))
            return;
        m_currentThawed = true;
        m_after.flags.set(m_current, static_cast<std::uint8_t>(m_after.flags[m_current] & ~zdr::kLayerFrozen));
    }

    // For each layer of the drawing its row in the state; kNone for one that the state doesn't hold.
    std::vector<std::size_t> rowsByLayer() const {
        std::vector<std::size_t> rows(m_before.flags.size(), zdr::kNone);
        for (const LayerMapping::Run& run : m_mapping.runs)
            for (std::size_t i = 0; i < run.count; ++i)
                rows[run.drawing + i] = run.state + i;
        return rows;
    }

    void overrideBy(std::size_t row, zdr::ViewportOverride& layer) {
        forEachColumnProperty([&](auto property) {
            if (!(m_asOverrides & property.bit))
                return;
            const auto value = (m_state.columns.*property.column)[row];
            if constexpr (property.isStyle)
                if (!m_stylesKnown && !hasStyle(property, value)) {
                    const bool isOverridden = layer.mask & property.bit;
                    const zdr::NameId shown =
                        isOverridden ? layer.*property.overriding : (m_before.*property.column)[layer.layer];
                    m_styleMissing |= shown != value;
                    return;
                }
            layer.mask |= property.bit;
            layer.*property.overriding = value;
        });
    }

    /// Whether the drawing has all styles that are to become overrides.
    bool knowsStyles() const {
        bool known = true;
        forEachColumnProperty([&](auto property) {
            if constexpr (property.isStyle)
                if (m_asOverrides & property.bit)
                    known = known && stylesOf(property).hasAll((m_state.columns.*property.column).values());
        });
        return known;
    }

    // Layers of a reference that isn't there keep what the viewport shows of them, too.
    bool isKept(std::size_t layer) const { return std::ranges::binary_search(m_unresolved, layer); }

    void writeOverrides() {
        const std::vector<zdr::ViewportOverride>& before = m_request.viewport->overrides;
        const std::vector<std::size_t> rows = rowsByLayer();
        m_stylesKnown = knowsStyles();
        std::vector<zdr::ViewportOverride>& after = m_overrides.emplace();
        after.reserve(std::min(rows.size(), m_mapping.held + before.size()));
        auto old = before.begin();
        for (std::size_t layer = 0; layer < rows.size(); ++layer) {
            // Written in its place: copying an override right after its members were written makes the processor wait.
            const bool hadOne = old != before.end() && old->layer == layer;
            if (hadOne)
                after.push_back(*old++);
            else
                after.emplace_back().layer = layer;
            if (rows[layer] != zdr::kNone)
                writeOverride(rows[layer], after.back());
            if (after.back().mask == 0)
                after.pop_back();
        }
    }

    void writeOverride(std::size_t row, zdr::ViewportOverride& layer) {
        if (!isKept(layer.layer)) {
            overrideBy(row, layer);
            return;
        }
        zdr::ViewportOverride wanted = layer;
        overrideBy(row, wanted);
        m_unresolvedKept |= wanted != layer;
    }

    void writeViewportFreezing() {
        const std::vector<std::size_t> rows = rowsByLayer();
        std::vector<bool>& frozen = m_frozen.emplace(m_request.viewport->frozen);
        frozen.resize(rows.size());
        for (std::size_t layer = 0; layer < rows.size(); ++layer) {
            if (rows[layer] == zdr::kNone)
                continue;
            const bool freeze = m_state.columns.flags[rows[layer]] & zdr::kLayerViewportFrozen;
            if (frozen[layer] != freeze && isKept(layer))
                m_unresolvedKept = true;
            else
                frozen[layer] = freeze;
        }
    }

    DatabaseImp& m_database;
    const zdr::LayerState m_state; // a copy that shares its columns: the list may move
    const LayerMapping& m_mapping; // stays good, as the styles' indexes do: a restore adds and removes neither
    const NameIdIndex &m_linetypes, &m_plotStyles;
    const RestoreRequest m_request;
    const zdr::LayerColumns m_before;
    zdr::LayerColumns m_after = m_before;
    std::size_t m_current = m_database.drawing().currentLayer;
    std::optional<std::vector<zdr::ViewportOverride>> m_overrides;
    std::optional<std::vector<bool>> m_frozen;
    std::uint32_t m_direct = 0, m_asOverrides = 0;
    std::vector<std::size_t> m_unresolved;
    bool m_stylesKnown = false;
    bool m_currentThawed = false, m_styleMissing = false, m_unresolvedKept = false;
};

} // namespace

Vorn::ErrorStatus restoreState(DatabaseImp& database, std::size_t index, const RestoreRequest& request) {
    return Restore(database, index, request).run();
}

} // namespace engine
