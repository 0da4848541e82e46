// Smart pointers over opened objects: they close what is in a database and delete what isn't. open() answers the
// outcome of that open, openStatus() whether the pointer holds anything.
#pragma once

#include "KelDbDatabase.h"

/// What the pointers share: the object and a status that stands at eNoDatabase until an open has succeeded. The status
/// of the close isn't looked at.
template <class T> class KelDbObjectPointerBase {
  public:
    KelDbObjectPointerBase() = default;
    ~KelDbObjectPointerBase() { release(); }
    KelDbObjectPointerBase(const KelDbObjectPointerBase&) = delete;
    KelDbObjectPointerBase& operator=(const KelDbObjectPointerBase&) = delete;

    Vorn::ErrorStatus openStatus() const { return m_status; }
    T* object() const { return m_object; }
    T* operator->() const { return m_object; }
    operator T*() const { return m_object; }

  protected:
    /// Ends what is held, before a new open and at the end of the pointer's life.
    void release() {
        if (!m_object)
            return;
        if (m_object->objectId().isNull())
            delete m_object;
        else
            static_cast<void>(m_object->close());
        m_object = nullptr;
        m_status = Vorn::eNoDatabase;
    }
    /// Takes the outcome of an open; a failed one leaves the pointer as one that has opened nothing.
    void take(T* object, Vorn::ErrorStatus status) {
        if (status != Vorn::eOk)
            return;
        m_status = status;
        m_object = object;
    }

  private:
    T* m_object = nullptr;
    Vorn::ErrorStatus m_status = Vorn::eNoDatabase;
};

/// Any object, opened by id, or created in memory.
template <class T> class KelDbObjectPointer : public KelDbObjectPointerBase<T> {
  public:
    KelDbObjectPointer() = default;
    KelDbObjectPointer(KelDbObjectId id, int mode) { open(id, mode); }
    Vorn::ErrorStatus open(KelDbObjectId id, int mode) {
        this->release();
        T* object = nullptr;
        const Vorn::ErrorStatus status = keldbOpenObject(object, id, mode);
        this->take(object, status);
        return status;
    }
    /// Takes over an object in memory, in the place of what is held.
    void acquire(T* object) {
        this->release();
        this->take(object, object ? Vorn::eOk : Vorn::eNullObjectId);
    }
    void create() { acquire(new T); }
};

/// The layer table or the linetype table of a database.
template <class T> class KelDbSymbolTablePointer : public KelDbObjectPointerBase<T> {
  public:
    KelDbSymbolTablePointer() = default;
    KelDbSymbolTablePointer(KelDbDatabase* database, int mode) { open(database, mode); }
    /// eNoDatabase for a null database.
    Vorn::ErrorStatus open(KelDbDatabase* database, int mode) {
        this->release();
        if (!database)
            return Vorn::eNoDatabase;
        T* table = nullptr;
        const Vorn::ErrorStatus status = database->getSymbolTable(table, mode);
        this->take(table, status);
        return status;
    }
};

/// A record of a symbol table, opened by id.
template <class T> class KelDbSymbolTableRecordPointer : public KelDbObjectPointer<T> {
  public:
    using KelDbObjectPointer<T>::KelDbObjectPointer;
};
