// What a database keeps beside its drawing to answer quickly: where names stand, where the layers of states stand among
// the drawing's, what comparisons answered, and what the viewport that was asked for last shows. Whoever changes the
// drawing doesn't bring these up to date, but makes a Writing for the time of the change, whose end does it.
#pragma once

#include "ComparisonCache.h"
#include "LayerMapping.h"
#include "ShownColumns.h"

namespace engine {

/// The parts of a drawing that a change writes: what was looked up in them is out of date afterwards.
struct Parts {
    bool looks = false;  ///< the properties of layers, or what viewports show of them
    bool layers = false; ///< which layers there are, their names and their properties
    bool states = false; ///< which states there are
    bool linetypes = false;
    bool plotStyles = false;
    const zdr::LayerState* state = nullptr; ///< one state, which must not move in the list
    static Parts all() { return {true, true, true, true, true}; }
};

/// An index of the names of a list. After a change of the list it is filled again when it is next asked for.
template <class Index> class FilledIndex {
  public:
    template <class List> const Index& of(const List& objects) {
        if (m_outdated) {
            m_index.fill(objects);
            m_outdated = false;
        }
        return m_index;
    }
    void outdate() noexcept { m_outdated = true; }
    /// Null while it is out of date.
    const Index* filled() const noexcept { return m_outdated ? nullptr : &m_index; }
    /// Changes the index as the list was changed, instead of filling it again; without memory for that, it is out of
    /// date.
    template <class Change> void follow(Change change) noexcept {
        if (m_outdated)
            return;
        try {
            change(m_index);
        } catch (const std::bad_alloc&) {
            m_outdated = true;
        }
    }

  private:
    Index m_index;
    bool m_outdated = true;
};

class Lookups {
  public:
    explicit Lookups(const zdr::Drawing& drawing) : m_drawing(drawing) {}

    /// Grows with every change.
    std::uint64_t changes() const { return m_changes; }
    const NameIdIndex& layers() { return m_layers.of(m_drawing.layers); }
    const NameIdIndex& linetypes() { return m_linetypes.of(m_drawing.linetypes); }
    const NameIdIndex& plotStyles() { return m_plotStyles.of(m_drawing.plotStyles); }
    const StateIndex& states() { return m_states.of(m_drawing.states); }
    /// Good until the drawing's layers change.
    const LayerMapping& mapping(const zdr::LayerState& state) {
        return m_mappings.mapping(state.layers, layers(), m_drawing.layers.size());
    }
    /// What a comparison of a state answered, if that still holds. The viewport is 0 for the model tab.
    std::optional<bool> comparison(zdr::Handle state, zdr::Handle viewport) const;
    void keepComparison(zdr::Handle state, zdr::Handle viewport, bool matches);
    /// What a viewport shows; null for the drawing's own columns. Good until the next change.
    const zdr::LayerColumns& shown(const zdr::Viewport* viewport);

    // A state has come, gone or got another name: the index of states follows instead of being filled again.
    void stateInserted(std::size_t index) noexcept;
    void stateRemoved(const std::wstring& name, std::size_t index) noexcept;
    void stateRenamed(const std::wstring& from, std::size_t index) noexcept;

  private:
    friend class Writing;
    void outdate(const Parts& parts) noexcept;
    void stateWritten(const zdr::LayerState& state) noexcept;

    const zdr::Drawing& m_drawing;
    FilledIndex<NameIdIndex> m_layers, m_linetypes, m_plotStyles;
    FilledIndex<StateIndex> m_states;
    MappingCache m_mappings;
    ComparisonCache m_comparisons;
    ShownColumnsCache m_shown;
    std::uint64_t m_changes = 1;
    int m_writings = 0; // that live
};

/// Lives for as long as something of the drawing is written. During its life no answer is kept, and none that was kept
/// is given. Its end, also by an exception, puts out of date what rests on the parts, and counts the change.
class Writing {
  public:
    Writing(Lookups& lookups, const Parts& parts) : m_lookups(lookups), m_parts(parts) { ++m_lookups.m_writings; }
    ~Writing() {
        --m_lookups.m_writings;
        m_lookups.outdate(m_parts);
    }
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;

  private:
    Lookups& m_lookups;
    const Parts m_parts;
};

/// Gives access to a part of the drawing that is being written. Whoever makes one must have recorded it for undo.
template <class Part> class Editor {
  public:
    Editor(Part& part, Lookups& lookups, const Parts& parts) : m_writing(lookups, parts), m_part(part) {}
    Part& operator*() const { return m_part; }
    Part* operator->() const { return &m_part; }

  private:
    Writing m_writing;
    Part& m_part;
};

} // namespace engine
