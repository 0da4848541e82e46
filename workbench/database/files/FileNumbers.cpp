#include "FileNumbers.h"

namespace zdr {

void UsedNumbers::count() {
    for (std::size_t entry = 0; entry < m_numbers.size(); ++entry) {
        if (!m_numbers[entry])
            continue;
        m_numbers[entry] = static_cast<std::uint32_t>(m_used.size());
        m_arePlaces = m_arePlaces && m_used.size() == entry;
        m_used.push_back(static_cast<std::uint32_t>(entry));
    }
}

FileNumbers::FileNumbers(const Drawing& drawing)
    : m_styles(drawing.names.size()), m_colors(drawing.namedColors.size()) {
    useStyles(drawing);
    m_styles.count();
    if (drawing.namedColors.size() > 0)
        useColors(drawing);
    m_colors.count();
}

void FileNumbers::useStyles(const Drawing& drawing) {
    m_styles.use(kNoName);
    for (const Linetype& linetype : drawing.linetypes)
        m_styles.use(linetype.name);
    for (const PlotStyle& style : drawing.plotStyles)
        m_styles.use(style.name);
    std::set<const NameId*> seen;
    useStyles(drawing.columns, seen);
    for (const LayerState& state : drawing.states)
        if (state.reference == kNone)
            useStyles(state.columns, seen);
    useStyles(drawing.entities);
    for (const Layout& layout : drawing.layouts) {
        useStyles(layout.entities);
        for (const Viewport& viewport : layout.viewports)
            for (const ViewportOverride& values : viewport.overrides) {
                m_styles.use(values.linetype);
                m_styles.use(values.plotStyle);
            }
    }
}

// Many states may share a column: it is looked at once.
void FileNumbers::useStyles(const LayerColumns& columns, std::set<const NameId*>& seen) {
    for (const Column<NameId>* column : {&columns.linetypes, &columns.plotStyles}) {
        if (!seen.insert(column->values().data()).second)
            continue;
        for (const NameId name : column->values())
            m_styles.use(name);
    }
}

void FileNumbers::useStyles(const std::vector<Entity>& entities) {
    for (const Entity& entity : entities)
        m_styles.use(entity.linetype);
}

void FileNumbers::useColors(const Drawing& drawing) {
    std::set<const ColorId*> seen;
    useColors(drawing.columns.colors, seen);
    for (const LayerState& state : drawing.states)
        if (state.reference == kNone)
            useColors(state.columns.colors, seen);
    useColors(drawing.entities);
    for (const Layout& layout : drawing.layouts) {
        useColors(layout.entities);
        for (const Viewport& viewport : layout.viewports)
            for (const ViewportOverride& values : viewport.overrides)
                useColor(values.color);
    }
}

void FileNumbers::useColors(const Column<ColorId>& colors, std::set<const ColorId*>& seen) {
    if (!seen.insert(colors.values().data()).second)
        return;
    for (const ColorId color : colors.values())
        useColor(color);
}

void FileNumbers::useColors(const std::vector<Entity>& entities) {
    for (const Entity& entity : entities)
        if (entity.color)
            useColor(*entity.color);
}

} // namespace zdr
