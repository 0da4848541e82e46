#include "FaultSweep.h"

#include "Tally.h"
#include "WholeDrawing.h"
#include "instruments/HostCalls.h"

#include <algorithm>
#include <ostream>

namespace sweep {
namespace {

struct OperationStatus {
    std::string_view operation;
    Vorn::ErrorStatus status;
};
constexpr OperationStatus kStatuses[] = {
    {"openObject", Vorn::eWasOpenForWrite},
    {"getLayerTable", Vorn::eWasOpenForWrite},
    {"getLinetypeTable", Vorn::eWasOpenForWrite},
    {"getPlotStyleNameDictionary", Vorn::eWasOpenForWrite},
    {"iterator.getRecord", Vorn::eWasOpenForWrite},
    {"layerTable.getAt", Vorn::eWasOpenForRead},
    {"upgradeOpen", Vorn::eWasOpenForRead},
    {"downgradeOpen", Vorn::eNotOpenForWrite},
    {"close", Vorn::eWasErased},
    {"setClayer", Vorn::eWasOpenForWrite},
    {"record.setIsFrozen", Vorn::eCannotFreezeCurrentLayer},
    {"record.setPlotStyleName", Vorn::eNotNamedPlotStyles},
    {"setExtendedData", Vorn::eNotOpenForWrite},
    {"table.getAt", Vorn::eKeyNotFound},
    {"dictionary.getAt", Vorn::eKeyNotFound},
    {"layerTable.add", Vorn::eDuplicateRecordName},
    {"renameLayerState", Vorn::eDuplicateRecordName},
    {"importLayerStateFromDb", Vorn::eDuplicateRecordName},
    {"importLayerState", Vorn::eFileUnreadable},
    {"readZdrFile", Vorn::eFileUnreadable},
    {"exportLayerState", Vorn::eFileWriteFailed},
    {"deleteLayerState", Vorn::eDependentRecord},
    {"setLayerStateMask", Vorn::eDependentRecord},
    {"setLayerStateDescription", Vorn::eDependentRecord},
    {"validateNameCharacters", Vorn::eNameTooLong},
    {"getLayerStateDescription", Vorn::eOutOfMemory},
    {"record.getName", Vorn::eOutOfMemory},
};

/// Watches for as long as it lives, with the database as the working one.
class Replay {
  public:
    explicit Replay(KelDbDatabase& database) {
        keldbHostApplicationServices()->setWorkingDatabase(&database);
        instruments::watch(true);
    }
    ~Replay() {
        instruments::watch(false);
        keldbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    Replay(const Replay&) = delete;
    Replay& operator=(const Replay&) = delete;
};

class Sweep {
  public:
    Sweep(const Scenario& scenario, void (*plan)(int nth)) : m_scenario(scenario), m_plan(plan) {}

    Result run() {
        replay(0);
        while (m_result.problems.empty() && replay(m_result.failures + 1))
            ++m_result.failures;
        return m_result;
    }

  private:
    // One run in which the nth call fails, or none for 0; answers whether something was made to fail.
    bool replay(int nth) {
        KelDbDatabase database(true, false);
        const Replay watching(database);
        m_scenario.prepare(database);
        note("before the scenario", instruments::ledger());
        if (nth > 0)
            m_plan(nth);
        m_scenario.run(database);
        instruments::clearFaults();
        const bool struck = nth > 0 && instruments::faultStruck();
        const std::string when =
            struck ? "after the failure of call " + std::to_string(nth) + ", " + instruments::struckOperation()
                   : "after a run without a failure";
        note(when, instruments::ledger());
        note(when, wholenessProblems(database));
        if (!struck && !m_scenario.isDone(database))
            note(when, {"the scenario isn't done"});
        if (m_scenario.isFit && !m_scenario.isFit(database))
            note(when, {"what is left isn't fit to stand"});
        return struck;
    }

    void note(const std::string& when, const std::vector<std::string>& problems) {
        for (const std::string& problem : problems)
            m_result.problems.push_back(when + ": " + problem);
    }

    const Scenario& m_scenario;
    void (*m_plan)(int nth);
    Result m_result;
};

Tally g_calls("host calls failed, each in a run of its own");
Tally g_handedOut("texts and chains handed out found no memory, each in a run of its own");

Result counted(Result result, Tally& tally) {
    tally.add(result.failures);
    return result;
}

} // namespace

Vorn::ErrorStatus statusOf(std::string_view operation) {
    const auto found = std::ranges::find(kStatuses, operation, &OperationStatus::operation);
    return found == std::end(kStatuses) ? Vorn::eInvalidInput : found->status;
}

Result failEachCall(const Scenario& scenario) {
    return counted(Sweep(scenario, [](int nth) { instruments::failAnyCall(nth, statusOf); }).run(), g_calls);
}

Result failEachAllocation(const Scenario& scenario) {
    return counted(Sweep(scenario, [](int nth) { instruments::failAllocation(nth); }).run(), g_handedOut);
}

void PrintTo(const Result& result, std::ostream* out) {
    *out << result.failures << " failures";
    for (const std::string& problem : result.problems)
        *out << "\n  " << problem;
}

} // namespace sweep
