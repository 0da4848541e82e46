// A drawing database and the host's services around the one that is current.
#pragma once

#include "KelDbLayerStateManager.h"
#include "KelDbObject.h"
#include "KelDbTables.h"

/// The internal side of a database, which belongs to it.
class KELDB_API KelDbImpDatabase {
  public:
    virtual ~KelDbImpDatabase();
    /// The internal layer state service, which stays the database's; null when there can be none.
    virtual KelDbImpLayerStateManager* getImpLayerStateManager() = 0;
};

/// A drawing in memory.
class KELDB_API KelDbDatabase : public KelRtObject {
    KELRT_DECLARE_CLASS
  public:
    /// @param buildDefaultDrawing a new drawing with what every drawing has, and not an empty one fit for readZdrFile
    /// @param noDocument the database belongs to no document; the caller owns it
    explicit KelDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~KelDbDatabase() override;
    KelDbDatabase(const KelDbDatabase&) = delete;
    KelDbDatabase& operator=(const KelDbDatabase&) = delete;

    /// Reads a drawing file. `shareMode` 64 denies nothing to others. On a failure the database is as it was. Without
    /// memory for the file the answer is eFileUnreadable.
    Vorn::ErrorStatus readZdrFile(const wchar_t* fileName, int shareMode, bool allowConversion,
                                  const wchar_t* password);
    /// The service for the database's layer states, which stays the database's; null when there can be none.
    KelDbLayerStateManager* getLayerStateManager();
    /// The internal side; never null.
    KelDbImpDatabase* impDatabase();

    KelDbObjectId clayer() const;
    /// Needs the layer's record not to be open for write (eWasOpenForWrite).
    Vorn::ErrorStatus setClayer(KelDbObjectId layer);
    /// True if the drawing uses colour-dependent plot styles, false if it uses named ones.
    bool plotStyleMode() const;
    /// True while the model tab is the active space.
    bool tilemode() const;
    Vorn::ErrorStatus getPlotStyleNameDictionary(KelDbDictionaryWithDefault*& dictionary, int mode);
    Vorn::ErrorStatus getSymbolTable(KelDbLayerTable*& table, int mode);
    Vorn::ErrorStatus getSymbolTable(KelDbLinetypeTable*& table, int mode);
    KelDbObjectId layerTableId() const;
    KelDbObjectId linetypeTableId() const;
    /// Finds the object of a handle. `createIfNotFound` is always false; eKeyNotFound when there is none.
    Vorn::ErrorStatus getKelDbObjectId(KelDbObjectId& id, bool createIfNotFound, const KelDbHandle& handle,
                                       unsigned long reserved = 0);

  private:
    KelDbImpDatabase* m_imp;
    friend struct KelDbDatabaseAccess;
};

/// What the host offers every module.
class KELDB_API KelDbHostApplicationServices {
  public:
    virtual ~KelDbHostApplicationServices();
    /// The database of the current drawing; may be null. Read at each use and never cached.
    virtual KelDbDatabase* workingDatabase() const = 0;
    virtual void setWorkingDatabase(KelDbDatabase* database) = 0;
    /// The product's display name.
    virtual const wchar_t* productName() const = 0;
    /// The registry path of the product's root key below the current user's hive.
    virtual const wchar_t* userRegistryProductRootKey() const = 0;
};

/// The one services object; never null.
KELDB_API KelDbHostApplicationServices* keldbHostApplicationServices();
