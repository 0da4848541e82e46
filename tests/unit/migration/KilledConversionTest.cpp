// A conversion that ends anywhere: the program is killed between two host calls, or a call fails. Whatever somebody
// saves of the drawing at that moment has every state of the older store, there, among the layer states, or in both.

#include "../sweep/Tally.h"
#include "LayerSnapshotStore.h"
#include "LayerSnapshots.h"
#include "LegacyStates.h"
#include "LegacyTest.h"
#include "OldStates.h"
#include "files/DrawingFile.h"
#include "instruments/CallObserver.h"

#include "TemporaryFolder.h"

#include <algorithm>
#include <cstring>
#include <memory>

extern "C" int getLayerSnapshotNames(KelArray<KelString>& names);
extern "C" int restoreLayerSnapshot(const wchar_t* name);
extern "C" int deleteLayerSnapshot(const wchar_t* name);

using testing::IsEmpty;

namespace {

Tally g_stopped("conversions stopped between two calls");
Tally g_failed("host calls failed, each in a conversion of its own");

/// A conversion, and the store that it converts.
struct Conversion {
    const char* title;
    OldStore store;
    void (*run)(int& count);
};
void PrintTo(const Conversion& conversion, std::ostream* out) {
    *out << conversion.title;
}

AddOnFunction exported(const char* name) {
    if (std::strcmp(name, "getLayerSnapshotNames") == 0)
        return reinterpret_cast<AddOnFunction>(getLayerSnapshotNames);
    if (std::strcmp(name, "restoreLayerSnapshot") == 0)
        return reinterpret_cast<AddOnFunction>(restoreLayerSnapshot);
    return reinterpret_cast<AddOnFunction>(deleteLayerSnapshot);
}

const Conversion kOfTheOlderTool = {"OfTheOlderTool", olderTool(),
                                    [](int& count) { static_cast<void>(convertLegacyStates(count)); }};
const Conversion kOfTheAddOn = {"OfTheAddOn", snapshotsOfAddOn(exported),
                                [](int& count) { static_cast<void>(convertSnapshots(exported, count)); }};

/// Whether a layer goes on as before where this fails, so that the state misses what failed: a property that a layer
/// refuses stays as it is, as does one whose linetype or plot style isn't found, and data that can't be read looks like
/// none.
bool isPassedOver(const std::string& operation) {
    constexpr const char* kFinding[] = {"workingDatabase", "getLinetypeTable", "table.getAt", "getKelDbObjectId"};
    return operation.starts_with("record.set") || operation == "getExtendedData" ||
           std::ranges::find(kFinding, operation) != std::end(kFinding);
}

class KilledConversion : public LegacyTest, public testing::WithParamInterface<Conversion> {
  protected:
    KilledConversion() {
        setData(L"Walls", nodesOf(L"PLAN", {.flags = 4, .color = -3, .linetype = L"Dashed"}) +
                              nodesOf(L"SITE", {.flags = 2, .color = 4}));
        setData(L"Doors", nodesOf(L"PLAN", {.flags = 1, .color = 5, .lineWeight = 50}));
        setData(L"Base", nodesOf(L"SITE", {.color = 6, .plottable = 0}) + nodesOf(L"ROOF", {.color = 8}));
        if (GetParam().store.application != std::wstring(L"ZVH"))
            becomeSnapshots();
        m_before = looksOf(drawing());
        m_states = std::make_unique<OldStates>(m_database, GetParam().store);
    }

    /// The drawing as it stood when each call of the conversion began, and at the end.
    std::vector<std::pair<std::string, zdr::Drawing>> momentsOfConversion() {
        std::vector<std::pair<std::string, zdr::Drawing>> moments;
        instruments::clearTrace();
        instruments::observeCalls([&](const std::string& call) { moments.emplace_back(call, drawing()); });
        convert();
        instruments::observeCalls({});
        EXPECT_EQ(moments.size(), instruments::trace().size());
        EXPECT_GT(moments.size(), 10u);
        moments.emplace_back("the end", drawing());
        return moments;
    }
    int convert() {
        int count = 0;
        GetParam().run(count);
        releaseKeptChains();
        return count;
    }

    /// That converting the rest brings each state that the older store has once, and leaves nothing to bring.
    void checkTheNextConversionBringsTheRest() {
        const std::size_t states = drawing().states.size(), left = GetParam().store.names().size();
        const Looks before = looksOf(drawing());
        EXPECT_EQ(static_cast<std::size_t>(convert()), left);
        EXPECT_EQ(drawing().states.size(), states + left);
        EXPECT_THAT(m_states->notBroughtTo(drawing()), IsEmpty());
        EXPECT_EQ(looksOf(drawing()), before);
        EXPECT_EQ(convert(), 0) << "the second time";
        EXPECT_EQ(drawing().states.size(), states + left);
    }

    std::unique_ptr<OldStates> m_states;
    Looks m_before;

  private:
    /// Takes a snapshot of each state of the older tool in its place.
    void becomeSnapshots() {
        const zdr::Drawing whole = drawing();
        for (const std::wstring& state : kOfTheOlderTool.store.names()) {
            kOfTheOlderTool.store.putOn(state.c_str());
            EXPECT_EQ(saveSnapshot(state.c_str()), Vorn::eOk);
        }
        zdr::Drawing changed = drawing();
        changed.columns = whole.columns;
        std::erase_if(changed.extendedData, [](const zdr::ExtendedData& data) { return data.application == L"ZVH"; });
        use(std::move(changed));
        releaseKeptChains();
    }
};

TEST_P(KilledConversion, LosesNoStateAndCanBeDoneAgainFromBetweenAnyTwoCalls) {
    ASSERT_EQ(m_states->count(), 3u);
    for (auto& [call, stopped] : momentsOfConversion()) {
        SCOPED_TRACE(call);
        renameThrowAwayState(stopped);
        use(stopped);
        EXPECT_THAT(m_states->lostIn(drawing()), IsEmpty());
        EXPECT_TRUE(keepsLooks(drawing(), m_before));
        checkTheNextConversionBringsTheRest();
        EXPECT_TRUE(keepsLooks(drawing(), m_before));
        g_stopped.add(1);
        if (HasFailure())
            break;
    }
}

TEST_P(KilledConversion, LeavesTheFileAsItWas) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"old.zdr");
    zdr::FileStamp stamp;
    std::wstring reason;
    ASSERT_EQ(zdr::writeDrawingFile(path, drawing(), reason, stamp, zdr::Overwrite::Always), Vorn::eOk);
    const auto bytes = bytesOf(path);
    KelDbDatabase read(false, false);
    ASSERT_EQ(read.readZdrFile(path.c_str(), 64, false, nullptr), Vorn::eOk);
    makeCurrent(&read);
    ASSERT_EQ(GetParam().store.names().size(), 3u);
    instruments::observeCalls([&](const std::string& call) { EXPECT_EQ(bytesOf(path), bytes) << call; });
    EXPECT_EQ(convert(), 3);
    instruments::observeCalls({});
    EXPECT_EQ(bytesOf(path), bytes);
    EXPECT_EQ(folder.entries(), 1u);
    makeCurrent(&m_database);
}

// But where the layers couldn't be kept beforehand, they stay as the last state left them.
TEST_P(KilledConversion, KeepsTheLayersWhicheverCallFails) {
    const zdr::Drawing whole = drawing();
    bool struck = true;
    int unguarded = 0;
    for (int nth = 1; struck; ++nth) {
        use(whole);
        instruments::clearTrace();
        instruments::failAnyCall(nth, [](std::string_view operation) {
            return operation == "close" ? Vorn::eOk : Vorn::eInvalidInput; // a layer that can't be closed is the end
        });
        convert();
        struck = instruments::faultStruck();
        g_failed.add(struck);
        SCOPED_TRACE("call " + std::to_string(nth) + ", " + instruments::struckOperation());
        instruments::clearFaults();
        const bool kept = std::ranges::any_of(instruments::trace(), [](const std::string& call) {
            return call.starts_with("saveLayerState(\"TempState_") && call.ends_with(" = 0");
        });
        if (!isPassedOver(instruments::struckOperation())) {
            EXPECT_THAT(m_states->lostIn(drawing()), IsEmpty());
        }
        const bool asBefore = keepsLooks(drawing(), m_before);
        EXPECT_TRUE(asBefore || !kept);
        unguarded += !asBefore;
    }
    EXPECT_EQ(unguarded, 3) << "the guard's two steps to the states, and its save";
}

INSTANTIATE_TEST_SUITE_P(, KilledConversion, testing::Values(kOfTheOlderTool, kOfTheAddOn),
                         [](const auto& test) { return test.param.title; });

} // namespace
