// The host's runtime class mechanism: every object that the host keeps by name can be asked for its class.
#pragma once

#include "KelExport.h"

class KelRtClass;

/// Base of everything that stands in a dictionary of the host.
class KELDB_API KelRtObject {
  public:
    virtual ~KelRtObject();
    /// The class record of the object's own class.
    virtual KelRtClass* isA() const;
    /// Whether the object is of that class or of one derived from it; false for null.
    bool isKindOf(const KelRtClass* other) const;
    static KelRtClass* desc();
};

/// The record of a class: its name and its base.
class KELDB_API KelRtClass : public KelRtObject {
  public:
    /// `name` must outlive the record. `base` is null for the root only.
    KelRtClass(const wchar_t* name, const KelRtClass* base) : m_name(name), m_base(base) {}
    const wchar_t* name() const { return m_name; }
    const KelRtClass* base() const { return m_base; }
    KelRtClass* isA() const override;
    static KelRtClass* desc();

  private:
    const wchar_t* m_name;
    const KelRtClass* m_base;
};

/// Declares what every class of the mechanism has: its record and the answer of isA().
#define KELRT_DECLARE_CLASS                                                                                            \
  public:                                                                                                              \
    KelRtClass* isA() const override;                                                                                  \
    static KelRtClass* desc();                                                                                         \
                                                                                                                       \
  private:

/// `object` as a `T`, or null when it isn't one.
template <class T> T* kelrtCast(KelRtObject* object) {
    return object && object->isKindOf(T::desc()) ? static_cast<T*>(object) : nullptr;
}
