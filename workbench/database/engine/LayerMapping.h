// Where the layers of a state stand among the drawing's layers. States mostly hold the drawing's layers in the
// drawing's order, so the answer is kept as runs that stand together on both sides, and whole runs of memory can be
// compared and copied.
#pragma once

#include "NameIndexes.h"

#include <unordered_map>

namespace engine {

struct LayerMapping {
    struct Run {
        std::size_t state = 0;
        std::size_t drawing = 0;
        std::size_t count = 0;
    };
    std::vector<Run> runs;
    std::size_t missing = 0; ///< layers of the state that the drawing lacks
    bool whole = false;      ///< the state holds just the drawing's layers, in its order
    std::size_t held = 0;    ///< layers of the drawing that the state holds
    /// For each layer of the state its index in the drawing, and for each of the drawing its row in the state; kAbsent
    /// for one that the other lacks. Filled only when the two orders have so little in common that runs don't pay.
    std::vector<std::uint32_t> rows, sources;
    static constexpr std::uint32_t kAbsent = ~std::uint32_t{0};
    bool isScattered() const { return !rows.empty(); }
};

LayerMapping mapLayers(const zdr::LayerSet& stateLayers, const NameIdIndex& drawingLayers, std::size_t drawingCount);

/// Keeps the mapping of each set of layers until the drawing's layers change, or only the cache holds the set.
class MappingCache {
  public:
    const LayerMapping& mapping(const std::shared_ptr<const zdr::LayerSet>& stateLayers,
                                const NameIdIndex& drawingLayers, std::size_t drawingCount);
    /// To be called after the drawing's layers changed.
    void clear() { m_entries.clear(); }

  private:
    struct Entry {
        std::shared_ptr<const zdr::LayerSet> layers; // held, so that no other set gets the address, which is the key
        LayerMapping mapping;
    };
    void dropUnused();

    std::unordered_map<const zdr::LayerSet*, Entry> m_entries;
    std::size_t m_limit = 64;
};

} // namespace engine
