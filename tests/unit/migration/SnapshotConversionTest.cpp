// Snapshots of the add-on, with functions in the place of its exports.

#include "LayerSnapshots.h"

#include "DomainTest.h"

#include <cstring>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What the functions below do and have done; one for the process, since exports have no object.
struct AddOn {
    std::vector<std::wstring> snapshots;
    std::vector<std::string> calls;
    std::string missing; ///< the export that isn't there
    std::string failing; ///< the export that fails,
    int atCall = 0;      ///< at which of its calls, counted from 1
    std::function<void(const std::wstring& name)> onRestore;
} addOn;

int record(const std::string& call, const wchar_t* name) {
    addOn.calls.push_back(name ? call + " " + std::string(name, name + std::wcslen(name)) : call);
    return addOn.failing == call && --addOn.atCall == 0 ? 1 : 0;
}

int listNames(KelArray<KelString>& names) {
    for (const std::wstring& each : addOn.snapshots)
        names.append(each.c_str());
    return record("getLayerSnapshotNames", nullptr);
}
int restoreSnapshot(const wchar_t* name) {
    if (addOn.onRestore)
        addOn.onRestore(name);
    return record("restoreLayerSnapshot", name);
}
int deleteSnapshot(const wchar_t* name) {
    return record("deleteLayerSnapshot", name);
}

AddOnFunction find(const char* name) {
    if (addOn.missing == name)
        return nullptr;
    if (std::strcmp(name, "getLayerSnapshotNames") == 0)
        return reinterpret_cast<AddOnFunction>(listNames);
    if (std::strcmp(name, "restoreLayerSnapshot") == 0)
        return reinterpret_cast<AddOnFunction>(restoreSnapshot);
    if (std::strcmp(name, "deleteLayerSnapshot") == 0)
        return reinterpret_cast<AddOnFunction>(deleteSnapshot);
    return nullptr;
}

class SnapshotConversion : public DomainTest {
  protected:
    SnapshotConversion() {
        addOn = {};
        addOn.snapshots = {L"S1", L"S2"};
        addOn.onRestore = [this](const std::wstring& name) { setColor(L"Walls", name == L"S1" ? 3 : 4); };
    }
    ~SnapshotConversion() override { addOn = {}; }
    SnapshotResult convert() { return convertSnapshots(find, m_count); }
    int m_count = 0;
};

TEST_F(SnapshotConversion, MakesAStateOfEachAndHasItDeleted) {
    EXPECT_EQ(convert(), kSnapshotsConverted);
    EXPECT_EQ(m_count, 2);
    EXPECT_THAT(stateNames(), ElementsAre(L"S1", L"S2"));
    EXPECT_THAT(addOn.calls, ElementsAre("getLayerSnapshotNames", "restoreLayerSnapshot S1", "deleteLayerSnapshot S1",
                                         "restoreLayerSnapshot S2", "deleteLayerSnapshot S2"));
}

TEST_F(SnapshotConversion, KeepsTheLayersOfEachAndPutsTheDrawingsBack) {
    convert();
    EXPECT_EQ(values(L"Walls").color, 7u);
    EXPECT_EQ(restore(L"S1"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").color, 3u);
    EXPECT_EQ(restore(L"S2"), Vorn::eOk);
    EXPECT_EQ(values(L"Walls").color, 4u);
    LayerStateMask mask = 0;
    EXPECT_EQ(states().getLayerStateMask(L"S1", mask), Vorn::eOk);
    EXPECT_EQ(mask, 1023u);
}

TEST_F(SnapshotConversion, PrefixesItsNamesInADrawingThatHasStates) {
    EXPECT_EQ(states().saveLayerState(L"Own", MaskOn), Vorn::eOk);
    EXPECT_EQ(convert(), kSnapshotsConverted);
    EXPECT_THAT(stateNames(), ElementsAre(L"Own", L"SNAPSHOT_S1", L"SNAPSHOT_S2"));
}

TEST_F(SnapshotConversion, NumbersNamesThatTheRulesRefuse) {
    addOn.snapshots = {L"A|B", L"C|D"};
    EXPECT_EQ(convert(), kSnapshotsConverted);
    EXPECT_THAT(stateNames(), ElementsAre(L"SNAPSHOT_INVALIDNAME", L"SNAPSHOT_INVALIDNAME (1)"));
}

TEST_F(SnapshotConversion, TouchesNothingWhenAnExportIsMissing) {
    for (const char* name : {"getLayerSnapshotNames", "restoreLayerSnapshot", "deleteLayerSnapshot"}) {
        addOn.missing = name;
        EXPECT_EQ(convert(), kSnapshotsNotConverted) << name;
        EXPECT_THAT(stateNames(), IsEmpty()) << name;
    }
    EXPECT_THAT(addOn.calls, ElementsAre("getLayerSnapshotNames", "getLayerSnapshotNames"));
    EXPECT_EQ(m_count, 0);
}

TEST_F(SnapshotConversion, DoesNothingWhenTheyCannotBeListedOrThereAreNone) {
    addOn.failing = "getLayerSnapshotNames";
    addOn.atCall = 1;
    EXPECT_EQ(convert(), kSnapshotsNotConverted);
    addOn.snapshots.clear();
    EXPECT_EQ(convert(), kSnapshotsNotConverted);
    EXPECT_THAT(addOn.calls, ElementsAre("getLayerSnapshotNames", "getLayerSnapshotNames"));
}

TEST_F(SnapshotConversion, DoesNothingWithoutTheDrawingsStates) {
    makeCurrent(nullptr);
    EXPECT_EQ(convert(), kSnapshotsNotConverted);
    makeCurrent(&m_database);
    EXPECT_THAT(addOn.calls, ElementsAre("getLayerSnapshotNames"));
}

TEST_F(SnapshotConversion, StopsAtASnapshotThatCannotBeRestored) {
    addOn.failing = "restoreLayerSnapshot";
    addOn.atCall = 2;
    EXPECT_EQ(convert(), kSnapshotsNotConverted);
    EXPECT_EQ(m_count, 1);
    EXPECT_THAT(stateNames(), ElementsAre(L"S1"));
    EXPECT_EQ(values(L"Walls").color, 7u) << "the layers are put back";
}

TEST_F(SnapshotConversion, StopsAtASnapshotThatCannotBeSaved) {
    instruments::failCall("saveLayerState", 3); // the first is the guard's
    EXPECT_EQ(convert(), kSnapshotsNotConverted);
    EXPECT_EQ(m_count, 1);
    EXPECT_THAT(stateNames(), ElementsAre(L"S1"));
    EXPECT_EQ(values(L"Walls").color, 7u);
    EXPECT_EQ(addOn.calls.back(), "restoreLayerSnapshot S2");
}

TEST_F(SnapshotConversion, StopsAtASnapshotThatCannotBeDeletedButCountsIt) {
    addOn.failing = "deleteLayerSnapshot";
    addOn.atCall = 1;
    EXPECT_EQ(convert(), kSnapshotsNotConverted);
    EXPECT_EQ(m_count, 1);
    EXPECT_THAT(stateNames(), ElementsAre(L"S1"));
    EXPECT_EQ(addOn.calls.back(), "deleteLayerSnapshot S1");
    EXPECT_EQ(values(L"Walls").color, 7u);
}

} // namespace
