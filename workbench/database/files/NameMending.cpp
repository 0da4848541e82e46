#include "NameMending.h"

#include "TextCoding.h"
#include "values/NameRules.h"

#include <unordered_map>
#include <unordered_set>

namespace zdr {
namespace {

bool isOwn(const LayerState& state) {
    return state.reference == kNone;
}

bool needsMending(const LayerState& state) {
    return isOwn(state) && engine::checkStateName(state.name) != Vorn::eOk;
}

/// The names that states have, and others that are free beside them.
class StateNames {
  public:
    void take(const std::wstring& name) { m_taken.insert(name); }
    /// The name itself, or else a numbered one. It is taken from then on.
    std::wstring free(const std::wstring& name) {
        std::wstring candidate = name;
        const std::wstring stem(cutToUnits(name, engine::kMaxNameLength - kRoomForNumber));
        while (!m_taken.insert(candidate).second)
            candidate = stem + L' ' + std::to_wstring(nextNumber(stem));
        return candidate;
    }

  private:
    static constexpr std::size_t kRoomForNumber = 11; // a blank and ten digits

    /// A number for each name would be sought from the beginning again, and a file can hold very many.
    std::uint32_t nextNumber(const std::wstring& stem) {
        std::uint32_t& last = m_lastNumbers.try_emplace(stem, 1).first->second;
        return ++last;
    }

    std::unordered_set<std::wstring, FoldedHash, FoldedEqual> m_taken;
    std::unordered_map<std::wstring, std::uint32_t, FoldedHash, FoldedEqual> m_lastNumbers;
};

} // namespace

void mendStateNames(Drawing& drawing) {
    if (std::ranges::none_of(drawing.states, needsMending))
        return;
    StateNames names;
    for (const LayerState& state : drawing.states)
        if (!needsMending(state))
            names.take(state.name);
    for (LayerState& state : drawing.states) {
        if (!needsMending(state))
            continue;
        const std::wstring now = names.free(engine::mendedStateName(state.name));
        if (drawing.lastRestored && equalFolded(*drawing.lastRestored, state.name))
            drawing.lastRestored = now;
        drawing.mendedStates.push_back({std::exchange(state.name, now), now});
    }
}

} // namespace zdr
