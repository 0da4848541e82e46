// Database objects: what is common to layers, records, dictionaries and viewports, and the discipline of opening them.
#pragma once

#include "KelDbObjectId.h"
#include "KelRtObject.h"
#include "ResultBuffer.h"
#include "VornStatus.h"

/// How an object is opened.
namespace KelDb {
enum OpenMode : int { kForRead = 0, kForWrite = 1 };
}

struct KelDbObjectState;

/// An object of a drawing, or one in memory that isn't in a drawing yet. An object with an id is closed, one without is
/// deleted; the smart pointers of KelDbPointers.h do the one or the other.
///
/// An object may be open for read many times at once, or for write once. Opening for write what is open already answers
/// eWasOpenForRead or eWasOpenForWrite; opening for read what is open for write answers eWasOpenForWrite.
class KELDB_API KelDbObject : public KelRtObject {
    KELRT_DECLARE_CLASS
  public:
    KelDbObject();
    ~KelDbObject() override;
    KelDbObject(const KelDbObject&) = delete;
    KelDbObject& operator=(const KelDbObject&) = delete;

    /// Ends one open; needs no memory. The pointer isn't to be used afterwards.
    Vorn::ErrorStatus close();
    /// The id, null for an object that isn't in a database.
    KelDbObjectId objectId() const;
    /// Changes an open for read into one for write; eWasOpenForRead when others read it as well.
    Vorn::ErrorStatus upgradeOpen();
    /// Changes an open for write into one for read.
    Vorn::ErrorStatus downgradeOpen();
    /// A new chain of the object's extended data of that registered application, 1001 node first; null if it has none,
    /// and when memory runs out. The caller releases it with kelutRelRb.
    ResultBuffer* getExtendedData(const wchar_t* appName) const;
    /// Replaces the extended data of the application named by the chain's 1001 node; a chain of that node alone removes
    /// it. The object must be open for write. The chain stays the caller's.
    Vorn::ErrorStatus setExtendedData(const ResultBuffer* chain);
    /// A new object in memory, a copy without an id, that the caller deletes or gives to a dictionary. Null for what
    /// can't be outside of its drawing: tables, linetypes, dictionaries, viewports.
    virtual KelDbObject* clone() const;

    /// The engine's side of the object; for the engine's use alone.
    KelDbObjectState* state() const { return m_state; }

  protected:
    explicit KelDbObject(KelDbObjectState* state) : m_state(state) {}

  private:
    KelDbObjectState* m_state;
};

/// Opens any object. `mode` is an OpenMode; `openErased` finds an erased object too.
KELDB_API Vorn::ErrorStatus keldbOpenKelDbObject(KelDbObject*& object, KelDbObjectId id, int mode,
                                                 bool openErased = false);
/// The same, but answers eNotThatKindOfClass when the object isn't of `kind`.
KELDB_API Vorn::ErrorStatus keldbOpenKelDbObject(KelDbObject*& object, KelDbObjectId id, int mode,
                                                 const KelRtClass* kind, bool openErased);
/// The same, for the class of the pointer.
template <class T> Vorn::ErrorStatus keldbOpenObject(T*& object, KelDbObjectId id, int mode, bool openErased = false) {
    KelDbObject* opened = nullptr;
    const Vorn::ErrorStatus status = keldbOpenKelDbObject(opened, id, mode, T::desc(), openErased);
    object = status == Vorn::eOk ? static_cast<T*>(opened) : nullptr;
    return status;
}

/// A record of data without a meaning to the engine's tables; the form in which a layer state stands in its dictionary.
class KELDB_API KelDbXrecord : public KelDbObject {
    KELRT_DECLARE_CLASS
  public:
    KelDbXrecord();
    explicit KelDbXrecord(KelDbObjectState* state) : KelDbObject(state) {}
    KelDbObject* clone() const override;
};

/// Walks a dictionary in the order in which its entries stand in the drawing. The caller deletes it.
class KELDB_API KelDbDictionaryIterator {
  public:
    ~KelDbDictionaryIterator();
    bool done() const;
    /// To the next entry.
    void next();
    /// The name of the entry, a text that stays the dictionary's; null when done.
    const wchar_t* name() const;
    /// The id of the entry's object; null when done.
    KelDbObjectId objectId() const;
    KelDbDictionaryIterator(const KelDbDictionaryIterator&) = delete;
    KelDbDictionaryIterator& operator=(const KelDbDictionaryIterator&) = delete;

  private:
    explicit KelDbDictionaryIterator(const KelDbStub& dictionary) : m_dictionary(dictionary) {}
    KelDbStub* entry() const;
    const KelDbStub& m_dictionary;
    int m_index = 0;
    friend class KelDbDictionary;
};

/// Names to objects of the drawing. Names are compared without regard to case.
class KELDB_API KelDbDictionary : public KelDbObject {
    KELRT_DECLARE_CLASS
  public:
    explicit KelDbDictionary(KelDbObjectState* state) : KelDbObject(state) {}
    /// eKeyNotFound, with `id` as it was, when there is no such entry.
    virtual Vorn::ErrorStatus getAt(const wchar_t* name, KelDbObjectId& id) const;
    /// Enters an object in memory under a name, in the place of one that stood there, and takes it over; `id` receives
    /// its new id. Open for write needed. On a failure the object stays the caller's.
    Vorn::ErrorStatus setAt(const wchar_t* name, KelDbObject* object, KelDbObjectId& id);
    /// An iterator over the entries, which the caller deletes.
    Vorn::ErrorStatus newIterator(KelDbDictionaryIterator*& iterator) const;
};

/// An object without data of its own, there for its name and its id: what stands for a plot style.
class KELDB_API KelDbPlaceHolder : public KelDbObject {
    KELRT_DECLARE_CLASS
  public:
    /// In memory, to be given to a dictionary.
    KelDbPlaceHolder();
    explicit KelDbPlaceHolder(KelDbObjectState* state) : KelDbObject(state) {}
    KelDbObject* clone() const override;
};

/// A dictionary that knows which entry stands for a name that isn't given; the plot style names stand in one, each with
/// a KelDbPlaceHolder. A name that it doesn't hold is answered as by any dictionary.
class KELDB_API KelDbDictionaryWithDefault : public KelDbDictionary {
    KELRT_DECLARE_CLASS
  public:
    explicit KelDbDictionaryWithDefault(KelDbObjectState* state) : KelDbDictionary(state) {}
    /// The id of the entry used where a style isn't given; may be null.
    KelDbObjectId defaultId() const;
};

/// A viewport of a paper-space layout.
class KELDB_API KelDbViewport : public KelDbObject {
    KELRT_DECLARE_CLASS
  public:
    explicit KelDbViewport(KelDbObjectState* state) : KelDbObject(state) {}
    /// Its number in the layout, -1 for one that isn't on.
    short number() const;
    bool isLayerFrozenInViewport(const KelDbObjectId& layer) const;
};

/// Enters a registered application name in the working database. False when it stood there already or isn't valid.
KELDB_API bool keldbRegApp(const wchar_t* name);
