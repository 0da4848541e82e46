// Where an iterator of the layer table stands.
#pragma once

#include "KelDbTables.h"
#include "engine/DatabaseImp.h"

struct KelDbSymbolTableIterator::Position {
    const engine::DatabaseImp* database = nullptr;
    std::ptrdiff_t index = 0; ///< outside the table: done

    bool inTable() const {
        return index >= 0 && index < static_cast<std::ptrdiff_t>(database->drawing().layers.size());
    }
    KelDbStub* stub() const { return inTable() ? database->objects().layer(static_cast<std::size_t>(index)) : nullptr; }
};

struct KelDbIteratorAccess {
    /// A new iterator, which the caller deletes.
    static KelDbLayerTableIterator* make(const engine::DatabaseImp& database, bool atBeginning);
};
