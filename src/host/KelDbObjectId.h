// The names of database objects: the id, good for as long as its database is in memory, and the handle, good for the
// life of its drawing.
#pragma once

#include "KelExport.h"

#include <compare>
#include <cstdint>

class KelDbDatabase;
struct KelDbStub;

/// The persistent form of an id: a number that is unique in its drawing and survives saving. 0 names nothing.
class KELDB_API KelDbHandle {
  public:
    KelDbHandle() = default;
    explicit KelDbHandle(std::uint64_t value) : m_value(value) {}
    /// From a wide hexadecimal string; anything else in it makes the handle 0.
    KelDbHandle& operator=(const wchar_t* hexadecimal);

    /// Writes upper-case hexadecimal digits and a terminating null, 17 characters at the most.
    /// @return whether the handle names something
    bool getIntoAsciiBuffer(wchar_t* buffer) const;
    std::uint64_t value() const { return m_value; }
    bool isNull() const { return m_value == 0; }
    friend auto operator<=>(const KelDbHandle&, const KelDbHandle&) = default;

  private:
    std::uint64_t m_value = 0;
};

/// Names an object of a database in memory. Copied freely; it owns nothing. Using it after its database was deleted is
/// an error of the caller's.
class KELDB_API KelDbObjectId {
  public:
    KelDbObjectId() = default;
    explicit KelDbObjectId(KelDbStub* stub) : m_stub(stub) {}

    bool isNull() const { return m_stub == nullptr; }
    /// Whether the id names an object that its database knows.
    bool isValid() const;
    /// Whether the object was erased; true also for an id that isn't valid.
    bool isErased() const;
    KelDbHandle handle() const;
    /// The database that the object belongs to, or null for the null id.
    KelDbDatabase* database() const;
    KelDbStub* stub() const { return m_stub; }
    friend auto operator<=>(const KelDbObjectId&, const KelDbObjectId&) = default;

  private:
    KelDbStub* m_stub = nullptr;
};
