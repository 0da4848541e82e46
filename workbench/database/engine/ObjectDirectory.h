// The stubs of a database: which object an id or a handle names.
#pragma once

#include "Stub.h"

#include <deque>
#include <unordered_map>
#include <vector>

namespace engine {

class ObjectDirectory {
  public:
    explicit ObjectDirectory(DatabaseImp& database) : m_database(database) {}
    ObjectDirectory(const ObjectDirectory&) = delete;
    ObjectDirectory& operator=(const ObjectDirectory&) = delete;

    /// Makes the directory that of this drawing. Ids of before stay safe to ask but name erased objects.
    void fill(const zdr::Drawing& drawing);
    /// The stub of a handle, also of an erased object; null when there never was one.
    KelDbStub* find(zdr::Handle handle) const;
    KelDbStub* fixed(ObjectKind kind) const { return find(fixedHandle(kind)); }
    KelDbStub* layer(std::size_t index) const { return m_layers[index]; }
    KelDbStub* linetype(std::size_t index) const { return m_linetypes[index]; }
    KelDbStub* plotStyle(std::size_t index) const { return m_plotStyles[index]; }
    KelDbStub* state(std::size_t index) const { return m_states[index]; }

    /// Objects that a caller forgot to close, at the database's end.
    void deleteOpenObjects();

    /// An object of that list was put in or taken out at an index; a handle that stood there before gets its stub back.
    void insertLayer(std::size_t index, zdr::Handle handle) { insert(m_layers, index, handle, ObjectKind::Layer); }
    void removeLayer(std::size_t index) { remove(m_layers, index); }
    void insertState(std::size_t index, zdr::Handle handle) { insert(m_states, index, handle, ObjectKind::State); }
    void removeState(std::size_t index) { remove(m_states, index); }
    void appendLinetype(zdr::Handle handle) { insert(m_linetypes, m_linetypes.size(), handle, ObjectKind::Linetype); }
    void appendPlotStyle(zdr::Handle handle) { insertPlotStyle(m_plotStyles.size(), handle); }
    void insertPlotStyle(std::size_t index, zdr::Handle handle) {
        insert(m_plotStyles, index, handle, ObjectKind::PlotStyle);
    }
    void removePlotStyle(std::size_t index) { remove(m_plotStyles, index); }

  private:
    using List = std::vector<KelDbStub*>;
    KelDbStub* make(zdr::Handle handle, ObjectKind kind, std::size_t index);
    void insert(List& list, std::size_t index, zdr::Handle handle, ObjectKind kind);
    static void remove(List& list, std::size_t index);

    DatabaseImp& m_database;
    std::deque<KelDbStub> m_stubs; // never shrinks, so that an old id is never a dangling one
    std::unordered_map<zdr::Handle, KelDbStub*> m_byHandle;
    List m_layers, m_linetypes, m_plotStyles, m_states;
};

} // namespace engine
