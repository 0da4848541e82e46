// The stubs of a database: which object an id or a handle names.
#pragma once

#include "Stub.h"

#include <deque>
#include <vector>

namespace engine {

class ObjectDirectory {
  public:
    explicit ObjectDirectory(DatabaseImp& database) : m_database(database) {}
    ObjectDirectory(const ObjectDirectory&) = delete;
    ObjectDirectory& operator=(const ObjectDirectory&) = delete;

    /// Makes the directory that of this drawing. Older ids stay safe to ask but name erased objects. When it throws,
    /// everything is as before.
    void fill(const zdr::Drawing& drawing);
    /// The stub of a handle, also of an erased object; null when there never was one.
    KelDbStub* find(zdr::Handle handle) const;
    KelDbStub* fixed(ObjectKind kind) const { return find(fixedHandle(kind)); }
    KelDbStub* layer(std::size_t index) const { return m_content.layers[index]; }
    KelDbStub* linetype(std::size_t index) const { return m_content.linetypes[index]; }
    KelDbStub* plotStyle(std::size_t index) const { return m_content.plotStyles[index]; }
    KelDbStub* state(std::size_t index) const { return m_content.states[index]; }

    /// Deletes the objects that callers forgot to close; for the database's end.
    void deleteOpenObjects();

    /// Gets ready for objects with handles from `first` on; appending them can't fail then.
    void expect(ObjectKind kind, zdr::Handle first, std::size_t count);
    void append(ObjectKind kind, zdr::Handle handle) { insert(list(kind), list(kind).size(), handle, kind); }
    /// Takes the objects at all marked places out. Never fails.
    void removeMarked(ObjectKind kind, const std::vector<bool>& gone);
    /// Follow the drawing's list in which an object is put in or taken out at an index. A handle that was in the
    /// drawing before gets its stub back. When putting in throws, everything is as before.
    void insertLayer(std::size_t index, zdr::Handle handle) {
        insert(m_content.layers, index, handle, ObjectKind::Layer);
    }
    void removeLayer(std::size_t index) { remove(m_content.layers, index); }
    void insertState(std::size_t index, zdr::Handle handle) {
        insert(m_content.states, index, handle, ObjectKind::State);
    }
    void removeState(std::size_t index) { remove(m_content.states, index); }
    void insertPlotStyle(std::size_t index, zdr::Handle handle) {
        insert(m_content.plotStyles, index, handle, ObjectKind::PlotStyle);
    }
    void removePlotStyle(std::size_t index) { remove(m_content.plotStyles, index); }

  private:
    using List = std::vector<KelDbStub*>;
    /// The stubs that are in the drawing, or were in it and may come back by undo.
    struct Content {
        std::vector<std::pair<zdr::Handle, KelDbStub*>> byHandle; ///< in the order of handles
        List layers, linetypes, plotStyles, states;
    };
    List& list(ObjectKind kind);
    KelDbStub* make(zdr::Handle handle, ObjectKind kind, std::size_t index);
    KelDbStub* enter(zdr::Handle handle, ObjectKind kind, std::size_t index);
    void insert(List& list, std::size_t index, zdr::Handle handle, ObjectKind kind);
    static void remove(List& list, std::size_t index);

    DatabaseImp& m_database;
    std::deque<KelDbStub> m_stubs; // never shrinks, so that an old id is never a dangling one
    Content m_content;
};

} // namespace engine
