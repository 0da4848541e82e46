// The guard around work on the real layers: the layers are as before afterwards, or the throw-away state is still
// there.

#include "CTempLayerState.h"

#include "DomainTest.h"

#include <cstdlib>
#include <ctime>
#include <set>
#include <stdexcept>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

constexpr std::uint32_t kBefore = 7, kByTheTask = 3;

/// The name that a guard born at that time gives its state.
std::wstring tempName(std::time_t second) {
    std::srand(static_cast<unsigned int>(second));
    return L"TempState_" + std::to_wstring(std::rand());
}

/// The names that a guard made now may give its state: that of this second, and those of the next two in case this one
/// ends before.
std::vector<std::wstring> tempNames() {
    const std::time_t now = std::time(nullptr);
    return {tempName(now), tempName(now + 1), tempName(now + 2)};
}

} // namespace

class TempLayerState : public DomainTest {
  protected:
    /// Work on the real layers, guarded.
    void work() {
        const CTempLayerState guard;
        task();
    }
    void task() { setColor(L"Walls", kByTheTask); }
    bool layersAreBack() const { return values(L"Walls").color == kBefore; }
    /// The one throw-away state, as a person would see it in a list.
    std::wstring tempState() {
        const std::vector<std::wstring> names = stateNames();
        EXPECT_EQ(names.size(), 1u);
        return names.empty() ? std::wstring() : names.front();
    }
};

TEST_F(TempLayerState, PutsTheLayersBackByTheseCalls) {
    std::string name;
    {
        const CTempLayerState guard;
        task();
        name = instruments::describe(tempState());
        EXPECT_FALSE(layersAreBack());
        instruments::clearTrace();
    }
    EXPECT_TRUE(layersAreBack());
    EXPECT_THAT(stateNames(), IsEmpty());
    std::vector<std::string> calls = instruments::trace();
    calls.resize(8);
    EXPECT_THAT(calls, ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object",
                                   "impDatabase() = object", "getImpLayerStateManager() = object",
                                   "imp.restoreLayerState(" + name + ", null, 0, 1023, false) = 0",
                                   "keldbHostApplicationServices()", "workingDatabase() = object",
                                   "getLayerStateManager() = object"));
    EXPECT_EQ(instruments::trace()[8], "deleteLayerState(" + name + ") = 0");
}

TEST_F(TempLayerState, IsBornByTheseCalls) {
    const CTempLayerState guard;
    const std::vector<std::string> calls = instruments::trace();
    const std::string name = instruments::describe(tempState());
    EXPECT_THAT(calls, ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object",
                                   "getLayerStateManager() = object", "saveLayerState(" + name + ", 1023) = 0"));
}

TEST_F(TempLayerState, TakesItsNameFromTheSecond) {
    const std::vector<std::wstring> expected = tempNames();
    const CTempLayerState guard;
    EXPECT_THAT(expected, testing::Contains(tempState()));
}

TEST_F(TempLayerState, PutsBackEveryPropertyAndTheCurrentLayer) {
    engine::setCurrentLayer(m_database, layer(L"Doors"));
    change(L"Walls", [this](engine::LayerValues& wall) {
        wall = {zdr::kLayerLocked, 4, nameId(L"Dashed"), 50, nameId(L"Fine")};
    });
    const engine::LayerValues walls = values(L"Walls");
    {
        const CTempLayerState guard;
        engine::setCurrentLayer(m_database, layer(L"Furniture"));
        change(L"Walls", [this](engine::LayerValues& wall) {
            wall = {zdr::kLayerOn | zdr::kLayerFrozen | zdr::kLayerPlot | zdr::kLayerNewViewportFrozen, 1,
                    nameId(L"Dotted"), -2, nameId(L"Normal")};
        });
    }
    EXPECT_EQ(values(L"Walls"), walls);
    EXPECT_EQ(drawing().currentLayer, layer(L"Doors"));
}

TEST_F(TempLayerState, IsGoneAfterwardsWhereLayersNameStylesThatTheDrawingDoesNotList) {
    zdr::Drawing source = drawing();
    source.columns.linetypes.set(1, source.names.intern(L"site!Wavy"));
    source.columns.plotStyles.set(2, source.names.intern(L"site!Bold"));
    use(std::move(source));
    {
        const CTempLayerState guard;
        task();
        change(L"Walls", [this](engine::LayerValues& walls) { walls.linetype = nameId(L"Dotted"); });
        change(L"Doors", [this](engine::LayerValues& doors) { doors.plotStyle = nameId(L"Normal"); });
    }
    EXPECT_TRUE(layersAreBack());
    EXPECT_EQ(values(L"Walls").linetype, nameId(L"site!Wavy"));
    EXPECT_EQ(values(L"Doors").plotStyle, nameId(L"site!Bold"));
    EXPECT_THAT(stateNames(), IsEmpty());
}

TEST_F(TempLayerState, IsNotTheLastRestoredState) {
    states().saveLayerState(L"Plan", MaskAllProperties);
    restore(L"Plan");
    work();
    EXPECT_EQ(drawing().lastRestored, L"Plan");
    EXPECT_THAT(stateNames(), ElementsAre(L"Plan"));
}

TEST_F(TempLayerState, AnExceptionEndsItAsAReturnDoes) {
    const auto fail = [this] {
        const CTempLayerState guard;
        task();
        throw std::runtime_error("the task gave up");
    };
    EXPECT_THROW(fail(), std::runtime_error);
    EXPECT_TRUE(layersAreBack());
    EXPECT_THAT(stateNames(), IsEmpty());
}

TEST_F(TempLayerState, TwoInARowMayShareTheirName) {
    std::set<std::wstring> names;
    for (int i = 0; i < 3; ++i) {
        const CTempLayerState guard;
        names.insert(tempState());
        task();
    }
    EXPECT_LT(names.size(), 3u) << "three guards take less than two seconds";
    EXPECT_TRUE(layersAreBack());
    EXPECT_THAT(stateNames(), IsEmpty());
}

TEST_F(TempLayerState, AUsersStateOfThatNameIsGoneAfterwards) {
    const std::vector<std::wstring> names = tempNames();
    for (const std::wstring& name : names)
        states().saveLayerState(name.c_str(), MaskColor);
    work();
    EXPECT_TRUE(layersAreBack());
    EXPECT_EQ(stateNames().size(), names.size() - 1);
}

TEST_F(TempLayerState, WithoutAStateManagerTheTaskRunsUnprotected) {
    instruments::failCall("getLayerStateManager", 1);
    work();
    EXPECT_FALSE(layersAreBack());
    EXPECT_THAT(instruments::trace(), ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object",
                                                  "getLayerStateManager() = null"));
}

TEST_F(TempLayerState, WithoutADrawingItDoesNothing) {
    makeCurrent(nullptr);
    work();
    EXPECT_FALSE(layersAreBack());
    EXPECT_THAT(instruments::trace(), ElementsAre("keldbHostApplicationServices()", "workingDatabase() = null"));
}

TEST_F(TempLayerState, ARefusedSaveLeavesTheTaskUnprotected) {
    instruments::failCall("saveLayerState", 1);
    work();
    EXPECT_FALSE(layersAreBack());
    EXPECT_EQ(instruments::trace().size(), 4u) << "nothing is asked at its end";
    EXPECT_THAT(stateNames(), IsEmpty());
}

// Also with the statuses that callers elsewhere take for a success.
TEST_F(TempLayerState, ARestoreThatIsNotAFullOneKeepsTheState) {
    for (const int status : {162, 173, 384, 3}) {
        instruments::failCall("imp.restoreLayerState", 1, static_cast<Vorn::ErrorStatus>(status));
        work();
        EXPECT_THAT(instruments::trace().back(), StartsWith("imp.restoreLayerState("));
        EXPECT_FALSE(layersAreBack());
        const std::wstring name = tempState();
        EXPECT_THAT(name, StartsWith(L"TempState_"));
        EXPECT_EQ(restore(name.c_str()), Vorn::eOk) << "it is the copy of the user's layers";
        EXPECT_TRUE(layersAreBack());
        states().deleteLayerState(name.c_str());
        instruments::clearTrace();
    }
}

TEST_F(TempLayerState, WorksOnTheDrawingThatIsCurrentAtItsEnd) {
    KelDbDatabase other(true, false);
    {
        const CTempLayerState guard;
        task();
        makeCurrent(&other);
    }
    EXPECT_THAT(instruments::trace().back(), testing::EndsWith(" = 8")) << "no such state there";
    EXPECT_FALSE(layersAreBack());
    EXPECT_THAT(tempState(), StartsWith(L"TempState_"));
    makeCurrent(&m_database);
}

TEST_F(TempLayerState, EachCallFailingOnceHasItsOwnEnd) {
    struct End {
        bool layersBack, stateStays;
    };
    // In the order of the calls: the constructor asks for the drawing and its service, and saves; the destructor asks
    // for the drawing and its internal service, restores, asks for the drawing and its service again, and deletes.
    const End ends[] = {{false, false}, {false, false}, {false, false}, {false, true}, {false, true},
                        {false, true},  {true, true},   {true, true},   {true, true},  {true, false}};
    int nth = 1;
    for (const End& end : ends) {
        const bool last = nth == static_cast<int>(std::size(ends));
        instruments::failAnyCall(nth);
        work();
        EXPECT_EQ(instruments::faultStruck(), !last) << nth;
        instruments::clearFaults();
        EXPECT_EQ(layersAreBack(), end.layersBack) << nth;
        EXPECT_EQ(stateNames().size(), end.stateStays ? 1u : 0u) << nth;
        EXPECT_THAT(instruments::ledger(), IsEmpty()) << nth;
        for (const std::wstring& name : stateNames())
            states().deleteLayerState(name.c_str());
        setColor(L"Walls", kBefore);
        ++nth;
    }
}
