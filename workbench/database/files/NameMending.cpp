#include "NameMending.h"

#include "DrawingCheck.h"
#include "TextCoding.h"
#include "values/NameRules.h"

#include <unordered_map>

namespace zdr {
namespace {

using engine::kReferenceSeparator;

/// The names that things of one kind have, and others that are free beside them.
class TakenNames {
  public:
    /// Answers whether nothing had the name.
    bool take(const std::wstring& name) {
        const std::size_t taken = m_taken.size();
        m_taken.intern(name);
        return m_taken.size() > taken;
    }
    /// The name itself, or else one with a number behind it. It is taken from then on.
    std::wstring free(const std::wstring& name) {
        if (take(name))
            return name;
        const std::size_t separator = name.rfind(kReferenceSeparator); // behind it stands the thing's own name
        const std::size_t own = separator == std::wstring::npos ? 0 : separator + 1;
        const std::wstring_view ending = std::wstring_view(name).substr(own);
        const std::wstring stem =
            name.substr(0, own) + std::wstring(cutToUnits(ending, engine::kMaxNameLength - kRoomForNumber));
        std::uint32_t& last = lastNumber(stem);
        std::wstring candidate;
        do
            candidate = stem + L' ' + std::to_wstring(++last);
        while (!take(candidate));
        return candidate;
    }

  private:
    static constexpr std::size_t kRoomForNumber = 11; // a blank and ten digits

    /// A number for each name would be sought from the beginning again, and a file can hold very many.
    std::uint32_t& lastNumber(const std::wstring& stem) {
        const NameId id = m_stems.intern(stem);
        m_lastNumbers.resize(m_stems.size(), 1);
        return m_lastNumbers[id];
    }

    // Tables of names, because a map's nodes would lie all over the memory.
    NameTable m_taken, m_stems;
    std::vector<std::uint32_t> m_lastNumbers; ///< by the number of the stem
};

// Such a name of anything but a layer state is damage, and the drawing is refused.
bool isDamaged(std::wstring_view name, std::size_t longest) {
    return nameFault(name, longest).has_value();
}

/// Things that bear a text of their own.
template <class Thing, class NeedsMending, class Mended>
std::vector<MendedName> mendTexts(std::vector<Thing>& things, Bearer bearer, NeedsMending needsMending, Mended mended) {
    std::vector<MendedName> changes;
    if (std::ranges::none_of(things, needsMending))
        return changes;
    TakenNames names;
    for (const Thing& thing : things)
        if (!needsMending(thing))
            names.take(thing.name);
    for (Thing& thing : things) {
        if (!needsMending(thing))
            continue;
        const std::wstring now = names.free(mended(thing.name));
        changes.push_back({std::exchange(thing.name, now), now, bearer});
    }
    return changes;
}

/// Names of the drawing's table. One that is mended keeps its number there, so that whatever names it follows; and what
/// else bears it, of another kind, gets the new name with it.
class TableMending {
  public:
    TableMending(Drawing& drawing, const std::vector<std::wstring>& formerReferences)
        : m_drawing(drawing), m_formerReferences(formerReferences) {}

    void run() {
        for (const Layer& layer : m_drawing.layers)
            look(layer.name, layer.reference, Bearer::Layer);
        for (const Linetype& linetype : m_drawing.linetypes)
            look(linetype.name, kNone, Bearer::Linetype);
        for (const PlotStyle& style : m_drawing.plotStyles)
            look(style.name, kNone, Bearer::PlotStyle);
        if (!m_wanted.empty())
            rename();
    }

  private:
    /// What a name should be, but for others that may have it already.
    std::wstring wanted(std::wstring_view name, std::size_t reference, Bearer bearer) const {
        if (reference < m_drawing.references.size()) {
            const std::size_t own = m_formerReferences[reference].size() + 1;
            const bool isPrefixed = name.size() >= own && name[own - 1] == kReferenceSeparator &&
                                    equalFolded(name.substr(0, own - 1), m_formerReferences[reference]);
            return m_drawing.references[reference].name + kReferenceSeparator +
                   engine::mendedQualifiedName(isPrefixed ? name.substr(own) : name);
        }
        return bearer == Bearer::Layer ? engine::mendedName(name) : engine::mendedQualifiedName(name);
    }
    bool isLeft(const std::wstring& name, std::size_t reference, Bearer bearer) const {
        if (bearer == Bearer::Layer && reference == kNone)
            return engine::checkName(name) == Vorn::eOk || isDamaged(name, engine::kMaxNameLength);
        if (engine::checkQualifiedName(name) != Vorn::eOk)
            return isDamaged(name, kLongestReferenceName);
        return reference >= m_drawing.references.size() || equalFolded(wanted(name, reference, bearer), name);
    }
    void look(NameId name, std::size_t reference, Bearer bearer) {
        const std::wstring& text = m_drawing.names.text(name);
        if (isLeft(text, reference, bearer))
            return;
        m_wanted.try_emplace(name, wanted(text, reference, bearer));
        m_bearers.push_back({name, bearer});
    }
    void rename() {
        TakenNames taken;
        const NameTable before = m_drawing.names;
        for (NameId name = 1; name < before.size(); ++name)
            if (!m_wanted.contains(name))
                taken.take(before.text(name));
        NameTable after;
        for (NameId name = 1; name < before.size(); ++name) {
            const auto mended = m_wanted.find(name);
            after.intern(mended == m_wanted.end() ? before.text(name) : taken.free(mended->second));
        }
        m_drawing.names = std::move(after);
        for (const auto& [name, bearer] : m_bearers)
            m_drawing.mendedNames.push_back({before.text(name), m_drawing.names.text(name), bearer});
    }

    Drawing& m_drawing;
    const std::vector<std::wstring>& m_formerReferences; // the names of references before they were mended
    std::unordered_map<NameId, std::wstring> m_wanted;
    std::vector<std::pair<NameId, Bearer>> m_bearers; // as they are told
};

void append(std::vector<MendedName>& all, std::vector<MendedName> more) {
    all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

} // namespace

void mendNames(Drawing& drawing) {
    std::vector<std::wstring> formerReferences;
    for (const Reference& reference : drawing.references)
        formerReferences.push_back(reference.name);
    append(drawing.mendedNames, mendTexts(
                                    drawing.references, Bearer::Reference,
                                    [](const Reference& reference) {
                                        return engine::checkName(reference.name) != Vorn::eOk &&
                                               !isDamaged(reference.name, engine::kMaxNameLength);
                                    },
                                    [](std::wstring_view name) { return engine::mendedName(name); }));
    TableMending(drawing, formerReferences).run();
    const auto ownAndRefused = [](const LayerState& state) {
        return state.reference == kNone && engine::checkStateName(state.name) != Vorn::eOk;
    };
    std::vector<MendedName> states = mendTexts(drawing.states, Bearer::LayerState, ownAndRefused,
                                               [](std::wstring_view name) { return engine::mendedStateName(name); });
    const auto isLastRestored = [&drawing](const MendedName& name) {
        return drawing.lastRestored && equalFolded(*drawing.lastRestored, name.was);
    };
    if (const auto last = std::ranges::find_if(states, isLastRestored); last != states.end())
        drawing.lastRestored = last->now;
    append(drawing.mendedNames, std::move(states));
}

} // namespace zdr
