// Which C++ object stands for a handle. A permanent object is one that somebody attached; a temporary one is made by
// FromHandle, owns nothing and is gone at the next idle of the message loop it was made in: a handler that runs a modal
// dialog finds its own temporary objects alive afterwards. The maps are of the one user-interface thread and are never
// destroyed, because objects in static memory still detach themselves at the end of the program.
#pragma once

#include "ThreadState.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace kelmfc {

template <class Object, class Handle, Handle Object::*handleOf> class HandleMap {
  public:
    Object* permanent(Handle handle) const { return find(m_permanent, handle); }
    Object* temporary(Handle handle) const { return find(m_temporary, handle); }

    void attach(Handle handle, Object* object) {
        m_permanent[handle] = object;
        object->*handleOf = handle;
    }
    /// Takes the handle from the object and answers it. Objects may share a handle (stock objects): only the object's
    /// own entry goes.
    Handle detach(Object* object) {
        const Handle handle = object->*handleOf;
        const auto at = m_permanent.find(handle);
        if (at != m_permanent.end() && at->second == object)
            m_permanent.erase(at);
        forgetTemporary(handle, object);
        object->*handleOf = nullptr;
        return handle;
    }
    /// The new object becomes the handle's temporary one. One that was there before lives on until deleteTemporary.
    Object* addTemporary(Handle handle, Object* object) {
        object->*handleOf = handle;
        m_temporary[handle] = object;
        m_owned.push_back({std::unique_ptr<Object>(object), handle, theState().modalLoops});
        return object;
    }
    /// Deletes the temporary objects of the loop that runs now.
    void deleteTemporary() {
        // The objects of outer loops are at the front of the list.
        while (!m_owned.empty() && m_owned.back().modalLoops >= theState().modalLoops) {
            Owned& last = m_owned.back();
            forgetTemporary(last.handle, last.object.get());
            (*last.object).*handleOf = nullptr;
            m_owned.pop_back();
        }
    }

  private:
    struct Owned {
        std::unique_ptr<Object> object;
        Handle handle; // as it was made for; the object may have been detached since
        int modalLoops;
    };
    using Objects = std::unordered_map<Handle, Object*>;

    static Object* find(const Objects& objects, Handle handle) {
        const auto at = objects.find(handle);
        return at == objects.end() ? nullptr : at->second;
    }
    void forgetTemporary(Handle handle, Object* object) {
        const auto at = m_temporary.find(handle);
        if (at != m_temporary.end() && at->second == object)
            m_temporary.erase(at);
    }

    Objects m_permanent;
    Objects m_temporary;
    std::vector<Owned> m_owned;
};

} // namespace kelmfc
