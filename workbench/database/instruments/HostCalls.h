// The three instruments at the host's boundary: the trace of calls, the faults that a test plans, and the ledger of
// what is open or handed out. All of them are off until a test turns them on; a call then costs one branch.
#pragma once

#include "KelArray.h"
#include "KelCmColor.h"
#include "KelDbObjectId.h"
#include "KelExport.h"
#include "KelString.h"
#include "VornStatus.h"

#include <cstdint>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace instruments {

KELDB_API extern bool g_watching;

/// Turns all three on, with an empty trace, no faults and an empty ledger; off again drops everything.
KELDB_API void watch(bool on);

/// A value as a line of the trace shows it: texts quoted, ids as #handle in hexadecimal, null as null.
KELDB_API std::string describe(const wchar_t* text);
KELDB_API std::string describe(const std::wstring& text);
KELDB_API std::string describe(const KelString& text);
KELDB_API std::string describe(KelDbObjectId id);
KELDB_API std::string describe(const KelCmColor& color);
KELDB_API std::string describe(double value);
/// A mask or a number given by pointer.
KELDB_API std::string describe(const std::uint32_t* value);
inline std::string describe(bool value) {
    return value ? "true" : "false";
}
template <class T>
requires(std::is_integral_v<T> || std::is_enum_v<T>) std::string describe(T value) {
    return std::to_string(static_cast<std::int64_t>(value));
}
/// Pointers to objects are told apart only by whether they are null; their addresses differ from run to run.
inline std::string describe(const void* pointer) {
    return pointer ? "object" : "null";
}

template <class T> std::string describe(const KelArray<T>& items) {
    std::string text = "[";
    for (const T& item : items)
        text += (text.size() == 1 ? "" : ", ") + describe(item);
    return text + "]";
}

/// The trace: one line a call, in the order in which the calls began, as `operation(arguments) = answer, name=value`.
KELDB_API std::vector<std::string> trace();
KELDB_API void clearTrace();

/// Makes the `nth` call (from 1) of `operation`, counted from now, fail with `status`; null and false where the
/// operation answers a pointer or a bool.
KELDB_API void failCall(std::string_view operation, int nth, Vorn::ErrorStatus status = Vorn::eInvalidInput);
/// Makes the `nth` call (from 1) of any operation that can fail, counted from now, fail.
KELDB_API void failAnyCall(int nth, Vorn::ErrorStatus status = Vorn::eInvalidInput);
/// The status with which a call of an operation is to fail.
using StatusOfOperation = Vorn::ErrorStatus (*)(std::string_view operation);
/// The same with a status that fits the operation.
KELDB_API void failAnyCall(int nth, StatusOfOperation statusOf);
/// Makes the `nth` allocation (from 1) of what the host hands out, counted from now, find no memory.
KELDB_API void failAllocation(int nth);
/// Whether a planned fault has struck since it was planned.
KELDB_API bool faultStruck();
/// The operation that the last planned fault has struck; empty when none has.
KELDB_API std::string struckOperation();
KELDB_API void clearFaults();
/// Memory on the runtime library's heap, zeroed, for something that is handed out; null when there is none, or when a
/// failure is planned. Ended by free().
KELDB_API void* allocate(std::size_t size);

/// The ledger: `what` was opened or handed out under `key`, an address; it may be entered more than once.
KELDB_API void entrust(const void* key, std::string_view what);
/// Takes one entry of `key` back; false when there is none, which is an error of the caller's.
KELDB_API bool giveBack(const void* key);
/// What is still open or not given back, a line each.
KELDB_API std::vector<std::string> ledger();
/// The keys of the entries of that kind, for a test that gives back what the code under test keeps on purpose.
KELDB_API std::vector<const void*> keysOf(std::string_view what);

/// One call across the boundary. A host operation makes one at its start, and gives its answer through status(),
/// valueOr() or valueUnlessNoMemory(), which keep a lack of memory from leaving it as an exception; an operation that
/// takes no memory may ask fault() and use answer() itself.
class KELDB_API HostCall {
  public:
    template <class... Args> explicit HostCall(const char* operation, const Args&... args) {
        if (!g_watching) [[likely]]
            return;
        std::string line = operation;
        line += '(';
        [[maybe_unused]] const char* separator = "";
        ((line += separator, line += describe(args), separator = ", "), ...);
        line += ')';
        begin(operation, std::move(line));
    }
    ~HostCall() {
        if (m_index >= 0)
            end();
    }
    HostCall(const HostCall&) = delete;
    HostCall& operator=(const HostCall&) = delete;

    /// The planned failure of this call, if any. Operations that can't fail don't ask and aren't counted by
    /// failAnyCall.
    std::optional<Vorn::ErrorStatus> fault() { return g_watching && m_index >= 0 ? plannedFault() : std::nullopt; }
    /// Writes the answer into the trace and hands it on.
    template <class T> T answer(T value) {
        if (g_watching && m_index >= 0)
            m_answer = " = " + describe(value);
        return value;
    }
    /// The answer of an operation that answers a status: `work` answers it, unless a failure is planned.
    template <class Work> Vorn::ErrorStatus status(const Work& work) {
        if (const auto planned = fault())
            return answer(*planned);
        return valueUnlessNoMemory(Vorn::eOutOfMemory, work);
    }
    /// What `work` answers; `failure` when one is planned, and when memory runs out.
    template <class T, class Work> T valueOr(const T& failure, const Work& work) {
        return fault() ? answer(failure) : valueUnlessNoMemory(failure, work);
    }
    /// The same for an operation that can't be made to fail.
    template <class T, class Work> T valueUnlessNoMemory(const T& failure, const Work& work) {
        try {
            return answer<T>(work());
        } catch (const std::bad_alloc&) {
            return answer(failure);
        }
    }
    /// Does the work of an operation that answers nothing. Without memory for it, it isn't done.
    template <class Work> void perform(const Work& work) {
        try {
            work();
        } catch (const std::bad_alloc&) {
            return;
        }
    }
    /// Writes an out argument into the trace, after the answer even when answer() is called later.
    template <class T> void out(const char* name, const T& value) {
        if (g_watching && m_index >= 0)
            m_outs += std::string(", ") + name + "=" + describe(value);
    }

  private:
    void begin(const char* operation, std::string line);
    std::optional<Vorn::ErrorStatus> plannedFault();
    void end();

    std::string m_operation;
    std::string m_answer;
    std::string m_outs;
    std::ptrdiff_t m_index = -1;
    std::uint64_t m_generation = 0;
};

} // namespace instruments
