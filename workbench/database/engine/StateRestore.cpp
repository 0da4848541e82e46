// Writing a state back to the layers. See LayerStates.h.

#include "ColumnRuns.h"
#include "LayerStateMask.h"
#include "LayerStates.h"

#include <algorithm>

namespace engine {
namespace {

constexpr std::uint32_t kOwnFlags = MaskOn | MaskFrozen | MaskLocked | MaskPlot | MaskNewViewportFrozen;

/// One restore under way.
class Restore {
  public:
    Restore(DatabaseImp& database, std::size_t index, const RestoreRequest& request)
        : m_database(database), m_state(database.drawing().states[index]),
          m_mapping(database.lookups().mapping(m_state)), m_request(request), m_before(database.drawing().columns) {
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
        if (m_request.remember && m_database.drawing().lastRestored != m_state.name)
            m_database.setLastRestored(m_state.name);
        return m_currentThawed    ? Vorn::eCannotFreezeCurrentLayer
               : m_styleMissing   ? Vorn::eStyleMissing
               : m_unresolvedKept ? Vorn::eLayerUnresolved
                                  : Vorn::eOk;
    }

  private:
    void writeLayers() {
        zdr::LayerColumns columns = m_before;
        const auto flagBits = static_cast<std::uint8_t>(m_direct & kOwnFlags);
        if (flagBits)
            copyBits(columns.flags, m_state.columns.flags, m_mapping, flagBits);
        if (m_direct & MaskColor)
            copyRuns(columns.colors, m_state.columns.colors, m_mapping);
        if (m_direct & MaskLineWeight)
            copyRuns(columns.lineWeights, m_state.columns.lineWeights, m_mapping);
        if (m_direct & MaskLinetype)
            copyStyles(columns.linetypes, m_state.columns.linetypes, m_before.linetypes, true);
        if (m_direct & MaskPlotStyle)
            copyStyles(columns.plotStyles, m_state.columns.plotStyles, m_before.plotStyles, false);
        keepUnresolved(columns);
        *m_database.editColumns() = std::move(columns);
    }

    bool hasStyle(zdr::NameId name, bool linetype) const {
        return name == zdr::kNoName || (linetype ? m_database.hasLinetype(name) : m_database.hasPlotStyle(name));
    }

    // A style that the drawing lacks leaves its layer's as it was.
    void copyStyles(zdr::Column<zdr::NameId>& to, const zdr::Column<zdr::NameId>& from,
                    const zdr::Column<zdr::NameId>& before, bool linetype) {
        copyRuns(to, from, m_mapping);
        if ((linetype ? m_database.linetypes() : m_database.plotStyles()).hasAll(from.values()))
            return;
        for (const LayerMapping::Run& run : m_mapping.runs)
            for (std::size_t i = 0; i < run.count; ++i) {
                if (hasStyle(from[run.state + i], linetype))
                    continue;
                m_styleMissing = true;
                to.set(run.drawing + i, before[run.drawing + i]);
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

    void keepUnresolved(zdr::LayerColumns& columns) {
        for (const std::size_t layer : m_unresolved) {
            const LayerValues before = valuesAt(m_before, layer);
            if (valuesAt(columns, layer) == before)
                continue;
            m_unresolvedKept = true;
            setValuesAt(columns, layer, before);
        }
    }

    void turnOffTheRest() {
        const std::size_t count = m_before.flags.size();
        if (m_mapping.held == count)
            return;
        std::vector<bool> held(count);
        for (const LayerMapping::Run& run : m_mapping.runs)
            std::fill_n(held.begin() + static_cast<std::ptrdiff_t>(run.drawing), run.count, true);
        const Editor<zdr::LayerColumns> columns = m_database.editColumns();
        const std::span<std::uint8_t> values = columns->flags.write();
        for (std::size_t layer = 0; layer < count; ++layer)
            if (!held[layer])
                values[layer] = static_cast<std::uint8_t>(values[layer] & ~zdr::kLayerOn);
    }

    bool isFrozen(std::size_t layer) const { return m_database.drawing().columns.flags[layer] & zdr::kLayerFrozen; }
    bool wasFrozen(std::size_t layer) const { return m_before.flags[layer] & zdr::kLayerFrozen; }

    void chooseCurrentLayer() {
        const zdr::Drawing& drawing = m_database.drawing();
        const std::size_t layer = m_database.findLayer(m_state.currentLayer);
        if ((m_direct | m_asOverrides) == 0 || layer == zdr::kNone || layer == drawing.currentLayer)
            return;
        const bool staysFrozen = wasFrozen(layer) && isFrozen(layer);
        if (drawing.layers[layer].reference == zdr::kNone && !staysFrozen)
            m_database.setCurrentLayer(layer);
    }

    void thawCurrentLayer() {
        const std::size_t layer = m_database.drawing().currentLayer;
        if (layer >= m_before.flags.size() || !isFrozen(layer) || wasFrozen(layer))
            return;
        m_currentThawed = true;
        const Editor<zdr::LayerColumns> columns = m_database.editColumns();
        columns->flags.set(layer, static_cast<std::uint8_t>(columns->flags[layer] & ~zdr::kLayerFrozen));
    }

    // Rows of the state by the layers of the drawing; kNone where it holds none or the layer is to be kept.
    std::vector<std::size_t> rowsByLayer() const {
        std::vector<std::size_t> rows(m_before.flags.size(), zdr::kNone);
        for (const LayerMapping::Run& run : m_mapping.runs)
            for (std::size_t i = 0; i < run.count; ++i)
                rows[run.drawing + i] = run.state + i;
        return rows;
    }

    // The override of one layer after the restore, made from the one before.
    zdr::ViewportOverride overridden(zdr::ViewportOverride layer, std::size_t row) {
        const LayerValues values = valuesAt(m_state.columns, row);
        std::uint32_t bits = m_asOverrides;
        if ((bits & MaskLinetype) && !hasStyle(values.linetype, true))
            bits &= ~MaskLinetype, m_styleMissing = true;
        if ((bits & MaskPlotStyle) && !hasStyle(values.plotStyle, false))
            bits &= ~MaskPlotStyle, m_styleMissing = true;
        layer.mask |= bits;
        layer.color = bits & MaskColor ? values.color : layer.color;
        layer.linetype = bits & MaskLinetype ? values.linetype : layer.linetype;
        layer.lineWeight = bits & MaskLineWeight ? values.lineWeight : layer.lineWeight;
        layer.plotStyle = bits & MaskPlotStyle ? values.plotStyle : layer.plotStyle;
        return layer;
    }

    void writeOverrides() {
        const std::vector<zdr::ViewportOverride>& before = m_request.viewport->overrides;
        const std::vector<std::size_t> rows = rowsByLayer();
        std::vector<zdr::ViewportOverride> after;
        auto old = before.begin();
        for (std::size_t layer = 0; layer < rows.size(); ++layer) {
            const bool hadOne = old != before.end() && old->layer == layer;
            zdr::ViewportOverride item = hadOne ? *old++ : zdr::ViewportOverride{.layer = layer};
            if (rows[layer] != zdr::kNone)
                put(layer, item, overridden(item, rows[layer]));
            if (item.mask)
                after.push_back(item);
        }
        m_database.editViewport(*m_request.viewport)->overrides = std::move(after);
    }

    void writeViewportFreezing() {
        const std::vector<std::size_t> rows = rowsByLayer();
        std::vector<bool> frozen = m_request.viewport->frozen;
        frozen.resize(rows.size());
        for (std::size_t layer = 0; layer < rows.size(); ++layer)
            if (rows[layer] != zdr::kNone)
                put(layer, frozen[layer], (m_state.columns.flags[rows[layer]] & zdr::kLayerViewportFrozen) != 0);
        m_database.editViewport(*m_request.viewport)->frozen = std::move(frozen);
    }

    // Layers of a reference that isn't there keep what the viewport shows of them, too.
    template <class Target, class Value> void put(std::size_t layer, Target&& target, const Value& value) {
        if (target == value)
            return;
        if (std::ranges::binary_search(m_unresolved, layer))
            m_unresolvedKept = true;
        else
            target = value;
    }

    DatabaseImp& m_database;
    const zdr::LayerState m_state; // a copy that shares its columns: the list may move
    const LayerMapping& m_mapping; // stays, because no layer comes or goes
    const RestoreRequest m_request;
    const zdr::LayerColumns m_before;
    std::uint32_t m_direct = 0, m_asOverrides = 0;
    std::vector<std::size_t> m_unresolved;
    bool m_currentThawed = false, m_styleMissing = false, m_unresolvedKept = false;
};

} // namespace

Vorn::ErrorStatus restoreState(DatabaseImp& database, std::size_t index, const RestoreRequest& request) {
    return Restore(database, index, request).run();
}

} // namespace engine
