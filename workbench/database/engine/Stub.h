// What an object id points at: one stub for each object of a database, at the same address for the database's life.
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

/// Handles of the objects that every drawing has and no file names: from the top of the range, which counting never
/// reaches.
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
    /// The object's place in the drawing's list of its kind, kept up to date so that an id resolves at once; a
    /// viewport's is its place in the layout at `layout`.
    std::size_t index = 0;
    std::size_t layout = 0;
    KelDbObject* object = nullptr; ///< while open
};
