#include "ObjectDirectory.h"

#include "KelDbObject.h"

#include <utility>

namespace engine {

// Makes a stub, which counts as erased until its object is in the drawing.
KelDbStub* ObjectDirectory::make(Content& content, zdr::Handle handle, ObjectKind kind, std::size_t index) {
    KelDbStub& stub = m_stubs.emplace_back();
    stub.database = &m_database;
    stub.handle = handle;
    stub.kind = kind;
    stub.index = index;
    stub.erased = true;
    content.byHandle[handle] = &stub;
    return &stub;
}

void ObjectDirectory::fill(const zdr::Drawing& drawing) {
    Content fresh;
    std::size_t count =
        drawing.layers.size() + drawing.linetypes.size() + drawing.plotStyles.size() + drawing.states.size();
    for (const zdr::Layout& layout : drawing.layouts)
        count += layout.viewports.size();
    fresh.byHandle.reserve(count);
    for (const ObjectKind kind : {ObjectKind::LayerTable, ObjectKind::LinetypeTable, ObjectKind::PlotStyleDictionary,
                                  ObjectKind::StateDictionary})
        make(fresh, fixedHandle(kind), kind, 0);
    const auto enter = [&](List& list, const auto& objects, ObjectKind kind) {
        for (const auto& object : objects)
            list.push_back(make(fresh, object.handle, kind, list.size()));
    };
    enter(fresh.layers, drawing.layers, ObjectKind::Layer);
    enter(fresh.linetypes, drawing.linetypes, ObjectKind::Linetype);
    enter(fresh.plotStyles, drawing.plotStyles, ObjectKind::PlotStyle);
    enter(fresh.states, drawing.states, ObjectKind::State);
    for (std::size_t layout = 0; layout < drawing.layouts.size(); ++layout)
        for (std::size_t i = 0; i < drawing.layouts[layout].viewports.size(); ++i)
            make(fresh, drawing.layouts[layout].viewports[i].handle, ObjectKind::Viewport, i)->layout = layout;
    for (KelDbStub& stub : m_stubs)
        stub.erased = true;
    for (const auto& [handle, stub] : fresh.byHandle)
        stub->erased = false;
    m_content = std::move(fresh);
}

void ObjectDirectory::deleteOpenObjects() {
    for (KelDbStub& stub : m_stubs)
        delete std::exchange(stub.object, nullptr);
}

KelDbStub* ObjectDirectory::find(zdr::Handle handle) const {
    const auto found = m_content.byHandle.find(handle);
    return found == m_content.byHandle.end() ? nullptr : found->second;
}

ObjectDirectory::List& ObjectDirectory::list(ObjectKind kind) {
    switch (kind) {
    case ObjectKind::Layer:
        return m_content.layers;
    case ObjectKind::Linetype:
        return m_content.linetypes;
    case ObjectKind::PlotStyle:
        return m_content.plotStyles;
    default:
        return m_content.states;
    }
}

void ObjectDirectory::expect(ObjectKind kind, zdr::Handle first, std::size_t count) {
    zdr::makeRoom(list(kind), count);
    for (zdr::Handle handle = first; handle < first + count; ++handle)
        make(m_content, handle, kind, 0);
}

void ObjectDirectory::removeMarked(ObjectKind kind, const std::vector<bool>& gone) {
    List& objects = list(kind);
    for (std::size_t i = 0; i < objects.size(); ++i)
        objects[i]->erased = objects[i]->erased || gone[i];
    zdr::eraseMarked(objects, gone);
    for (std::size_t i = 0; i < objects.size(); ++i)
        objects[i]->index = i;
}

void ObjectDirectory::insert(List& list, std::size_t index, zdr::Handle handle, ObjectKind kind) {
    KelDbStub* stub = find(handle);
    if (!stub)
        stub = make(m_content, handle, kind, index);
    list.insert(list.begin() + static_cast<std::ptrdiff_t>(index), stub);
    stub->erased = false;
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
