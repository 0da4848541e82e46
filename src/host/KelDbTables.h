// The layer table and the linetype table, their records and iterators.
#pragma once

#include "KelCmColor.h"
#include "KelDbObject.h"

/// A record of a symbol table: a name, and whether it comes from an attached reference.
class KELDB_API KelDbSymbolTableRecord : public KelDbObject {
    KELRT_DECLARE_CLASS
  public:
    KelDbSymbolTableRecord() = default;
    explicit KelDbSymbolTableRecord(KelDbObjectState* state) : KelDbObject(state) {}
    /// A pointer that stays the record's.
    Vorn::ErrorStatus getName(const wchar_t*& name) const;
    /// A copy that the caller frees with kelutDelBuffer. eOutOfMemory leaves `name` as it was.
    Vorn::ErrorStatus getName(wchar_t*& name) const;
    Vorn::ErrorStatus setName(const wchar_t* name);
    /// Whether the record comes from an attached reference.
    bool isDependent() const;
    /// Whether that reference is resolved; true for a record that isn't dependent.
    bool isResolved() const;
};

/// A linetype.
class KELDB_API KelDbLinetypeTableRecord : public KelDbSymbolTableRecord {
    KELRT_DECLARE_CLASS
  public:
    explicit KelDbLinetypeTableRecord(KelDbObjectState* state) : KelDbSymbolTableRecord(state) {}
    /// A new string that the caller frees with kelutDelBuffer; null when memory runs out.
    wchar_t* description() const;
    /// Parts of the pattern; 0 for a continuous line.
    int numDashes() const;
    /// Length of a part in millimetres on paper: positive a dash, negative a gap, 0 a dot; 0 outside the pattern.
    double dashLengthAt(int index) const;
};

/// A layer, open in the table or held in memory. The writers need it open for write, or in memory.
class KELDB_API KelDbLayerTableRecord : public KelDbSymbolTableRecord {
    KELRT_DECLARE_CLASS
  public:
    /// A record in memory with no id and the values of a new layer; the caller deletes it.
    KelDbLayerTableRecord();
    explicit KelDbLayerTableRecord(KelDbObjectState* state) : KelDbSymbolTableRecord(state) {}
    KelDbObject* clone() const override;

    bool isFrozen() const;
    bool isOff() const;
    bool isLocked() const;
    /// Frozen in new viewports.
    bool VPDFLT() const;
    bool isPlottable() const;
    KelCmColor color() const;
    KelDbObjectId linetypeObjectId() const;
    /// Hundredths of a millimetre; -1 by layer, -2 by block, -3 the drawing's default.
    int lineWeight() const;
    /// A new string that the caller frees with the runtime library's free; null when the record has no plot style, or
    /// when memory runs out.
    wchar_t* plotStyleName() const;
    KelDbObjectId plotStyleNameId() const;
    /// A new string that the caller frees with kelutDelBuffer; null when memory runs out.
    wchar_t* description() const;

    /// eCannotFreezeCurrentLayer for the current layer.
    Vorn::ErrorStatus setIsFrozen(bool frozen);
    void setIsOff(bool off);
    void setIsLocked(bool locked);
    void setVPDFLT(bool frozen);
    Vorn::ErrorStatus setIsPlottable(bool plot);
    void setColor(const KelCmColor& color);
    void setLinetypeObjectId(KelDbObjectId linetype);
    /// eInvalidInput for a value that isn't one of the 24 widths or -1 to -3.
    Vorn::ErrorStatus setLineWeight(int weight);
    /// eNotNamedPlotStyles in a drawing with colour-dependent plot styles.
    Vorn::ErrorStatus setPlotStyleName(const KelDbObjectId& style);
    Vorn::ErrorStatus setPlotStyleName(const wchar_t* name);
    Vorn::ErrorStatus setDescription(const wchar_t* description);
};

/// Walks a symbol table. The caller deletes it.
class KELDB_API KelDbSymbolTableIterator {
  public:
    virtual ~KelDbSymbolTableIterator();
    bool done() const;
    /// To the next record, or the one before; `skipDeleted` passes over erased ones.
    void step(bool forward = true, bool skipDeleted = true);
    Vorn::ErrorStatus getRecordId(KelDbObjectId& id) const;
    KelDbSymbolTableIterator(const KelDbSymbolTableIterator&) = delete;
    KelDbSymbolTableIterator& operator=(const KelDbSymbolTableIterator&) = delete;

  protected:
    KelDbSymbolTableIterator();
    struct Position;
    Position* m_position;
    friend struct KelDbIteratorAccess;
};

class KELDB_API KelDbLayerTableIterator : public KelDbSymbolTableIterator {
  public:
    /// Opens the record at the iterator.
    Vorn::ErrorStatus getRecord(KelDbLayerTableRecord*& record, int mode, bool openErased = false) const;
    friend struct KelDbIteratorAccess;

  private:
    KelDbLayerTableIterator() = default;
};

class KELDB_API KelDbLinetypeTableIterator : public KelDbSymbolTableIterator {
  public:
    /// Opens the record at the iterator.
    Vorn::ErrorStatus getRecord(KelDbLinetypeTableRecord*& record, int mode, bool openErased = false) const;
    friend struct KelDbIteratorAccess;

  private:
    KelDbLinetypeTableIterator() = default;
};

class KELDB_API KelDbSymbolTable : public KelDbObject {
    KELRT_DECLARE_CLASS
  public:
    explicit KelDbSymbolTable(KelDbObjectState* state) : KelDbObject(state) {}
    /// Finds a record without regard to case; eKeyNotFound leaves `id` as it was.
    Vorn::ErrorStatus getAt(const wchar_t* name, KelDbObjectId& id, bool getErased = false) const;
    bool has(const wchar_t* name) const;
};

class KELDB_API KelDbLinetypeTable : public KelDbSymbolTable {
    KELRT_DECLARE_CLASS
  public:
    explicit KelDbLinetypeTable(KelDbObjectState* state) : KelDbSymbolTable(state) {}
    /// An iterator in table order, which the caller deletes.
    Vorn::ErrorStatus newIterator(KelDbLinetypeTableIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;
};

class KELDB_API KelDbLayerTable : public KelDbSymbolTable {
    KELRT_DECLARE_CLASS
  public:
    explicit KelDbLayerTable(KelDbObjectState* state) : KelDbSymbolTable(state) {}
    using KelDbSymbolTable::getAt;
    /// Finds and opens a layer by name.
    Vorn::ErrorStatus getAt(const wchar_t* name, KelDbLayerTableRecord*& record, int mode,
                            bool openErased = false) const;
    /// An iterator in table order, which the caller deletes.
    Vorn::ErrorStatus newIterator(KelDbLayerTableIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;
    /// Enters a layer held in memory and takes it over: it has an id from then on and is open for write. Table open for
    /// write needed. eDuplicateRecordName or eInvalidInput leave the record the caller's.
    Vorn::ErrorStatus add(KelDbObjectId& id, KelDbLayerTableRecord* record);
};
