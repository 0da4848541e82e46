// See ObjectDirectory.h.

#include "ObjectDirectory.h"

#include "KelDbObject.h"

#include <utility>

namespace engine {

KelDbStub* ObjectDirectory::make(zdr::Handle handle, ObjectKind kind, std::size_t index) {
    KelDbStub& stub = m_stubs.emplace_back();
    stub.database = &m_database;
    stub.handle = handle;
    stub.kind = kind;
    stub.index = index;
    m_byHandle[handle] = &stub;
    return &stub;
}

void ObjectDirectory::fill(const zdr::Drawing& drawing) {
    for (KelDbStub& stub : m_stubs)
        stub.erased = true;
    m_byHandle.clear();
    m_layers.clear(), m_linetypes.clear(), m_plotStyles.clear(), m_states.clear();
    for (const ObjectKind kind : {ObjectKind::LayerTable, ObjectKind::LinetypeTable, ObjectKind::PlotStyleDictionary,
                                  ObjectKind::StateDictionary})
        make(fixedHandle(kind), kind, 0);
    const auto enter = [this](List& list, const auto& objects, ObjectKind kind) {
        for (const auto& object : objects)
            list.push_back(make(object.handle, kind, list.size()));
    };
    enter(m_layers, drawing.layers, ObjectKind::Layer);
    enter(m_linetypes, drawing.linetypes, ObjectKind::Linetype);
    enter(m_plotStyles, drawing.plotStyles, ObjectKind::PlotStyle);
    enter(m_states, drawing.states, ObjectKind::State);
    for (std::size_t layout = 0; layout < drawing.layouts.size(); ++layout)
        for (std::size_t i = 0; i < drawing.layouts[layout].viewports.size(); ++i)
            make(drawing.layouts[layout].viewports[i].handle, ObjectKind::Viewport, i)->layout = layout;
}

void ObjectDirectory::deleteOpenObjects() {
    for (KelDbStub& stub : m_stubs)
        delete std::exchange(stub.object, nullptr);
}

KelDbStub* ObjectDirectory::find(zdr::Handle handle) const {
    const auto found = m_byHandle.find(handle);
    return found == m_byHandle.end() ? nullptr : found->second;
}

void ObjectDirectory::insert(List& list, std::size_t index, zdr::Handle handle, ObjectKind kind) {
    KelDbStub* stub = find(handle);
    if (!stub)
        stub = make(handle, kind, index);
    stub->erased = false;
    list.insert(list.begin() + static_cast<std::ptrdiff_t>(index), stub);
    for (std::size_t i = index; i < list.size(); ++i)
        list[i]->index = i;
}

void ObjectDirectory::remove(List& list, std::size_t index) {
    list[index]->erased = true;
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
    for (std::size_t i = index; i < list.size(); ++i)
        list[i]->index = i;
}

} // namespace engine
