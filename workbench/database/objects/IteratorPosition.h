// Where an iterator of a symbol table stands.
#pragma once

#include "KelDbTables.h"
#include "engine/DatabaseImp.h"

struct KelDbSymbolTableIterator::Position {
    const engine::DatabaseImp* database = nullptr;
    bool layers = true;       ///< of the layer table; otherwise of the linetype table
    std::ptrdiff_t index = 0; ///< outside the table: done

    std::ptrdiff_t count() const {
        const zdr::Drawing& drawing = database->drawing();
        return static_cast<std::ptrdiff_t>(layers ? drawing.layers.size() : drawing.linetypes.size());
    }
    bool inTable() const { return index >= 0 && index < count(); }
    KelDbStub* stub() const {
        if (!inTable())
            return nullptr;
        const auto at = static_cast<std::size_t>(index);
        return layers ? database->objects().layer(at) : database->objects().linetype(at);
    }
};

struct KelDbIteratorAccess {
    /// A new iterator of the layer table, which the caller deletes.
    static KelDbLayerTableIterator* layers(const engine::DatabaseImp& database, bool atBeginning);
    static KelDbLinetypeTableIterator* linetypes(const engine::DatabaseImp& database, bool atBeginning);

  private:
    template <class Iterator>
    static Iterator* make(const engine::DatabaseImp& database, bool layers, bool atBeginning, const char* what);
};
