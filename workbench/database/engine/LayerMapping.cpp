#include "LayerMapping.h"

#include <algorithm>

namespace engine {

namespace {

constexpr std::size_t kLayersPerRun = 32;

void listRows(LayerMapping& mapping, std::size_t stateCount, std::size_t drawingCount) {
    mapping.rows.assign(stateCount, LayerMapping::kAbsent);
    mapping.sources.assign(drawingCount, LayerMapping::kAbsent);
    for (const LayerMapping::Run& run : mapping.runs)
        for (std::size_t i = 0; i < run.count; ++i) {
            mapping.rows[run.state + i] = static_cast<std::uint32_t>(run.drawing + i);
            mapping.sources[run.drawing + i] = static_cast<std::uint32_t>(run.state + i);
        }
}

} // namespace

LayerMapping mapLayers(const zdr::LayerSet& stateLayers, const NameIdIndex& drawingLayers, std::size_t drawingCount) {
    LayerMapping mapping;
    for (std::size_t i = 0; i < stateLayers.names.size(); ++i) {
        const std::size_t place = drawingLayers.find(stateLayers.names[i]);
        if (place == zdr::kNone) {
            ++mapping.missing;
            continue;
        }
        ++mapping.held;
        auto& runs = mapping.runs;
        if (!runs.empty() && runs.back().state + runs.back().count == i &&
            runs.back().drawing + runs.back().count == place)
            ++runs.back().count;
        else
            runs.push_back({i, place, 1});
    }
    mapping.whole = mapping.missing == 0 && mapping.held == drawingCount && mapping.runs.size() <= 1;
    if (mapping.runs.size() > 1 && mapping.runs.size() * kLayersPerRun > mapping.held)
        listRows(mapping, stateLayers.names.size(), drawingCount);
    return mapping;
}

const LayerMapping& MappingCache::mapping(const std::shared_ptr<const zdr::LayerSet>& stateLayers,
                                          const NameIdIndex& drawingLayers, std::size_t drawingCount) {
    if (const auto found = m_entries.find(stateLayers.get()); found != m_entries.end())
        return found->second.mapping;
    if (m_entries.size() >= m_limit)
        dropUnused();
    Entry entry{stateLayers, mapLayers(*stateLayers, drawingLayers, drawingCount)};
    return m_entries.emplace(stateLayers.get(), std::move(entry)).first->second.mapping;
}

void MappingCache::dropUnused() {
    std::erase_if(m_entries, [](const auto& item) { return item.second.layers.use_count() == 1; });
    m_limit = std::max<std::size_t>(64, 2 * m_entries.size());
}

} // namespace engine
