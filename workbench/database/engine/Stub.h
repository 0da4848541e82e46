// What an object id points at: one for each object of a database, at the same address for the database's life.
#pragma once

#include "model/Drawing.h"

class KelDbObject;

namespace engine {

class DatabaseImp;

enum class ObjectKind : std::uint8_t {
    LayerTable,
    LinetypeTable,
    PlotStyleDictionary,
    StateDictionary,
    Layer,
    Linetype,
    PlotStyle,
    State,
    Viewport,
};

/// Handles of the objects that every drawing has and no file names: the top of the range, where counting never comes.
inline constexpr zdr::Handle fixedHandle(ObjectKind kind) {
    return ~zdr::Handle{0} - static_cast<zdr::Handle>(kind);
}

} // namespace engine

struct KelDbStub {
    engine::DatabaseImp* database = nullptr;
    zdr::Handle handle = 0;
    engine::ObjectKind kind = engine::ObjectKind::Layer;
    bool erased = false;
    bool openForWrite = false;
    int readers = 0;
    /// Where the object stands in the drawing's list of its kind; kept up to date, so that an id resolves at once. A
    /// viewport's counts within the layout at `layout`.
    std::size_t index = 0;
    std::size_t layout = 0;
    KelDbObject* object = nullptr; ///< while open
};
