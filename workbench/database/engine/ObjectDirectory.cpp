#include "ObjectDirectory.h"

#include "KelDbObject.h"

#include <algorithm>
#include <utility>

namespace engine {
namespace {

template <class Entries> auto placeOf(Entries& byHandle, zdr::Handle handle) {
    return std::ranges::lower_bound(byHandle, handle, {}, &Entries::value_type::first);
}

} // namespace

// Makes a stub, which counts as erased until its object is in the drawing.
KelDbStub* ObjectDirectory::make(zdr::Handle handle, ObjectKind kind, std::size_t index) {
    KelDbStub& stub = m_stubs.emplace_back();
    stub.database = &m_database;
    stub.handle = handle;
    stub.kind = kind;
    stub.index = index;
    stub.erased = true;
    return &stub;
}

// A new object's handle is higher than all but the fixed ones, so that hardly anything moves.
KelDbStub* ObjectDirectory::enter(zdr::Handle handle, ObjectKind kind, std::size_t index) {
    KelDbStub* stub = make(handle, kind, index);
    m_content.byHandle.insert(placeOf(m_content.byHandle, handle), {handle, stub});
    return stub;
}

void ObjectDirectory::fill(const zdr::Drawing& drawing) {
    Content fresh;
    std::size_t count =
        drawing.layers.size() + drawing.linetypes.size() + drawing.plotStyles.size() + drawing.states.size();
    for (const zdr::Layout& layout : drawing.layouts)
        count += layout.viewports.size();
    constexpr ObjectKind kFixed[] = {ObjectKind::StateDictionary, ObjectKind::PlotStyleDictionary,
                                     ObjectKind::LinetypeTable, ObjectKind::LayerTable};
    fresh.byHandle.reserve(count + std::size(kFixed));
    const auto add = [&](zdr::Handle handle, ObjectKind kind, std::size_t index) {
        return fresh.byHandle.emplace_back(handle, make(handle, kind, index)).second;
    };
    const auto addAll = [&](List& list, const auto& objects, ObjectKind kind) {
        list.reserve(objects.size());
        for (const auto& object : objects)
            list.push_back(add(object.handle, kind, list.size()));
    };
    addAll(fresh.linetypes, drawing.linetypes, ObjectKind::Linetype);
    addAll(fresh.plotStyles, drawing.plotStyles, ObjectKind::PlotStyle);
    addAll(fresh.layers, drawing.layers, ObjectKind::Layer);
    addAll(fresh.states, drawing.states, ObjectKind::State);
    for (std::size_t layout = 0; layout < drawing.layouts.size(); ++layout)
        for (std::size_t i = 0; i < drawing.layouts[layout].viewports.size(); ++i)
            add(drawing.layouts[layout].viewports[i].handle, ObjectKind::Viewport, i)->layout = layout;
    for (const ObjectKind kind : kFixed)
        add(fixedHandle(kind), kind, 0);
    if (!std::ranges::is_sorted(fresh.byHandle))
        std::ranges::sort(fresh.byHandle);
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
    const auto found = placeOf(m_content.byHandle, handle);
    return found == m_content.byHandle.end() || found->first != handle ? nullptr : found->second;
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
    zdr::makeRoom(m_content.byHandle, count);
    for (zdr::Handle handle = first; handle < first + count; ++handle)
        enter(handle, kind, 0);
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
        stub = enter(handle, kind, index);
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
