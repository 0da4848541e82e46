#include "StyleNumbers.h"

namespace zdr {

StyleNumbers::StyleNumbers(const Drawing& drawing) : m_numbers(drawing.names.size(), 0) {
    use(kNoName);
    collect(drawing);
    for (std::size_t name = 0; name < m_numbers.size(); ++name) {
        if (!m_numbers[name])
            continue;
        m_numbers[name] = static_cast<std::uint32_t>(m_names.size());
        m_identity = m_identity && m_names.size() == name;
        m_names.push_back(static_cast<NameId>(name));
    }
}

void StyleNumbers::collect(const Drawing& drawing) {
    for (const Linetype& linetype : drawing.linetypes)
        use(linetype.name);
    for (const PlotStyle& style : drawing.plotStyles)
        use(style.name);
    use(drawing.columns);
    for (const LayerState& state : drawing.states)
        if (state.reference == kNone)
            use(state.columns);
    use(drawing.entities);
    for (const Layout& layout : drawing.layouts) {
        use(layout.entities);
        for (const Viewport& viewport : layout.viewports)
            for (const ViewportOverride& values : viewport.overrides) {
                use(values.linetype);
                use(values.plotStyle);
            }
    }
}

void StyleNumbers::use(const LayerColumns& columns) {
    for (const NameId name : columns.linetypes.values())
        use(name);
    for (const NameId name : columns.plotStyles.values())
        use(name);
}

void StyleNumbers::use(const std::vector<Entity>& entities) {
    for (const Entity& entity : entities)
        use(entity.linetype);
}

} // namespace zdr
