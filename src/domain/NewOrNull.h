// Making an object where a lack of memory isn't to end what is under way.
#pragma once

#include <afx.h>

#include <memory>
#include <new>
#include <utility>

/// Null when there is no memory for it.
template <class T, class... Arguments> std::unique_ptr<T> newOrNull(Arguments&&... arguments) {
    try {
        return std::make_unique<T>(std::forward<Arguments>(arguments)...);
    } catch (CMemoryException* exception) {
        exception->Delete();
    } catch (const std::bad_alloc&) {
        // The framework and the language each have their own exception for lack of memory.
    }
    return nullptr;
}
