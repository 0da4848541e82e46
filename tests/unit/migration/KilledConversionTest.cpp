// A conversion that ends anywhere: the program is killed between two host calls, or a call fails. Whatever somebody
// saves of the drawing at that moment has every state of the older store, there, among the layer states, or in both.

#include "LayerSnapshotStore.h"
#include "LayerSnapshots.h"
#include "LegacyStates.h"
#include "LegacyTest.h"
#include "files/DrawingFile.h"
#include "instruments/CallObserver.h"

#include "TemporaryFolder.h"

#include <algorithm>
#include <cstring>
#include <map>

extern "C" int getLayerSnapshotNames(KelArray<KelString>& names);
extern "C" int restoreLayerSnapshot(const wchar_t* name);
extern "C" int deleteLayerSnapshot(const wchar_t* name);

namespace {

using Names = std::vector<std::wstring>;

/// An older store: how it gets into a drawing of Base, Walls and Doors, and what is done with it.
struct OldStore {
    const char* title;
    const wchar_t* application; ///< of its extended data
    /// How many nodes a state takes in the data of a layer, from the node of this text on.
    std::wstring (*firstText)(const std::wstring& state);
    std::ptrdiff_t nodes;
    Names (*names)();
    void (*putOn)(const wchar_t* state); ///< puts a state on its layers
    void (*convert)(int& count);
};

AddOnFunction exported(const char* name) {
    if (std::strcmp(name, "getLayerSnapshotNames") == 0)
        return reinterpret_cast<AddOnFunction>(getLayerSnapshotNames);
    if (std::strcmp(name, "restoreLayerSnapshot") == 0)
        return reinterpret_cast<AddOnFunction>(restoreLayerSnapshot);
    return reinterpret_cast<AddOnFunction>(deleteLayerSnapshot);
}

const OldStore kOlderTool = {"older tool",
                             L"ZVH",
                             [](const std::wstring& state) { return L"{" + state; },
                             8,
                             [] {
                                 CQSETList list(keldbHostApplicationServices()->workingDatabase());
                                 Names names;
                                 while (list.takeNextName())
                                     names.emplace_back(list.currentName().GetString());
                                 return names;
                             },
                             [](const wchar_t* state) {
                                 CQSETList list(keldbHostApplicationServices()->workingDatabase());
                                 EXPECT_TRUE(list.applyToLayers(CQSETList::OpRestore, state));
                             },
                             [](int& count) { static_cast<void>(convertLegacyStates(count)); }};

const OldStore kAddOn = {"add-on",
                         L"TREL_SNAPSHOTS",
                         [](const std::wstring& state) { return state; },
                         6,
                         [] {
                             KelArray<KelString> names;
                             EXPECT_EQ(getSnapshotNames(names), Vorn::eOk);
                             return toVector(names);
                         },
                         [](const wchar_t* state) { EXPECT_EQ(restoreSnapshot(state), Vorn::eOk); },
                         [](int& count) { static_cast<void>(convertSnapshots(exported, count)); }};
void PrintTo(const OldStore& store, std::ostream* out) {
    *out << store.title;
}

/// The layers of a drawing and which of them is current.
using Looks = std::pair<std::vector<engine::LayerValues>, std::wstring>;
Looks looksOf(const zdr::LayerColumns& columns, const std::wstring& current) {
    Looks looks{{}, current};
    for (std::size_t index = 0; index < columns.flags.size(); ++index)
        looks.first.push_back(engine::valuesAt(columns, index));
    return looks;
}
Looks looksOf(const zdr::Drawing& drawing) {
    return looksOf(drawing.columns, drawing.names.text(drawing.layers[drawing.currentLayer].name));
}
Looks looksOf(const zdr::Drawing& drawing, const zdr::LayerState& state) {
    return looksOf(state.columns, drawing.names.text(state.currentLayer));
}

bool isTemporary(const zdr::LayerState& state) {
    return state.name.starts_with(L"TempState_");
}

/// Whether a layer goes on as before where this fails, so that the state misses what failed: a property that a layer
/// refuses stays as it is, as does one whose linetype or plot style isn't found, and data that can't be read looks like
/// none.
bool isPassedOver(const std::string& operation) {
    constexpr const char* kFinding[] = {"workingDatabase", "getLinetypeTable", "table.getAt", "getKelDbObjectId"};
    return operation.starts_with("record.set") || operation == "getExtendedData" ||
           std::ranges::find(kFinding, operation) != std::end(kFinding);
}

/// What a state of the older store is on one layer.
struct Part {
    std::size_t layer;
    zdr::Handle object;
    LegacyNodes nodes;
    engine::LayerValues values;
};

class KilledConversion : public LegacyTest, public testing::WithParamInterface<OldStore> {
  protected:
    KilledConversion() {
        setData(L"Walls", nodesOf(L"PLAN", {.flags = 4, .color = -3, .linetype = L"Dashed"}) +
                              nodesOf(L"SITE", {.flags = 2, .color = 4}));
        setData(L"Doors", nodesOf(L"PLAN", {.flags = 1, .color = 5, .lineWeight = 50}));
        setData(L"Base", nodesOf(L"SITE", {.color = 6, .plottable = 0}) + nodesOf(L"ROOF", {.color = 8}));
        if (GetParam().application != std::wstring(L"ZVH"))
            becomeSnapshots();
        m_before = looksOf(drawing());
        const zdr::Drawing whole = drawing();
        for (const std::wstring& state : GetParam().names()) {
            GetParam().putOn(state.c_str());
            m_parts[state] = partsOf(state);
            EXPECT_FALSE(m_parts[state].empty());
            use(whole);
        }
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
        GetParam().convert(count);
        releaseKeptChains();
        return count;
    }

    /// That the drawing has each state in one store or both, and the layers as they were, be it in the throw-away
    /// state.
    void checkNothingIsLost() const {
        for (const auto& [state, parts] : m_parts)
            EXPECT_TRUE(isInOldStore(parts) || isInNewStore(parts)) << std::string(state.begin(), state.end());
    }
    void checkLayersAreKept() const {
        const auto hasThem = [this](const zdr::LayerState& state) { return looksOf(drawing(), state) == m_before; };
        EXPECT_TRUE(looksOf(drawing()) == m_before || std::ranges::any_of(drawing().states, hasThem));
    }
    /// That converting the rest brings each state that the older store has once, and leaves nothing to bring.
    void checkTheNextConversionBringsTheRest() {
        const std::size_t states = drawing().states.size(), left = GetParam().names().size();
        const Looks before = looksOf(drawing());
        EXPECT_EQ(static_cast<std::size_t>(convert()), left);
        EXPECT_EQ(drawing().states.size(), states + left);
        for (const auto& [state, parts] : m_parts)
            EXPECT_TRUE(isInNewStore(parts)) << std::string(state.begin(), state.end());
        EXPECT_EQ(looksOf(drawing()), before);
        EXPECT_EQ(convert(), 0) << "the second time";
        EXPECT_EQ(drawing().states.size(), states + left);
    }

    bool isInOldStore(const std::vector<Part>& parts) const {
        return std::ranges::all_of(parts, [this](const Part& part) {
            const LegacyNodes* nodes = nodesOn(part.object);
            return nodes &&
                   std::search(nodes->begin(), nodes->end(), part.nodes.begin(), part.nodes.end()) != nodes->end();
        });
    }
    bool isInNewStore(const std::vector<Part>& parts) const {
        return std::ranges::any_of(drawing().states, [&parts](const zdr::LayerState& state) {
            return std::ranges::all_of(parts, [&state](const Part& part) {
                return engine::valuesAt(state.columns, part.layer) == part.values;
            });
        });
    }

    std::map<std::wstring, std::vector<Part>> m_parts;
    Looks m_before;

  private:
    /// Takes a snapshot of each state of the older tool in its place.
    void becomeSnapshots() {
        const zdr::Drawing whole = drawing();
        for (const std::wstring& state : kOlderTool.names()) {
            kOlderTool.putOn(state.c_str());
            EXPECT_EQ(saveSnapshot(state.c_str()), Vorn::eOk);
        }
        zdr::Drawing changed = drawing();
        changed.columns = whole.columns;
        std::erase_if(changed.extendedData, [](const zdr::ExtendedData& data) { return data.application == L"ZVH"; });
        use(std::move(changed));
        releaseKeptChains();
    }
    const LegacyNodes* nodesOn(zdr::Handle object) const {
        for (const zdr::ExtendedData& data : drawing().extendedData)
            if (data.object == object && data.application == GetParam().application)
                return &data.values;
        return nullptr;
    }
    /// With the values that the layers have now.
    std::vector<Part> partsOf(const std::wstring& state) const {
        std::vector<Part> parts;
        for (std::size_t index = 0; index < drawing().layers.size(); ++index) {
            const zdr::Handle object = drawing().layers[index].handle;
            const LegacyNodes* nodes = nodesOn(object);
            if (!nodes)
                continue;
            const auto first = std::ranges::find(*nodes, text(GetParam().firstText(state)));
            if (first != nodes->end())
                parts.push_back(
                    {index, object, {first, first + GetParam().nodes}, engine::layerValues(m_database, index)});
        }
        return parts;
    }
};

TEST_P(KilledConversion, LosesNoStateAndCanBeDoneAgainFromBetweenAnyTwoCalls) {
    ASSERT_EQ(m_parts.size(), 3u);
    for (auto& [call, stopped] : momentsOfConversion()) {
        SCOPED_TRACE(call);
        // The next conversion comes in another second, so its throw-away state has another name.
        for (zdr::LayerState& state : stopped.states)
            if (isTemporary(state))
                state.name = L"Left over";
        use(stopped);
        checkNothingIsLost();
        checkLayersAreKept();
        checkTheNextConversionBringsTheRest();
        checkLayersAreKept();
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
    ASSERT_EQ(GetParam().names().size(), 3u);
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
        SCOPED_TRACE("call " + std::to_string(nth) + ", " + instruments::struckOperation());
        instruments::clearFaults();
        const bool kept = std::ranges::any_of(instruments::trace(), [](const std::string& call) {
            return call.starts_with("saveLayerState(\"TempState_") && call.ends_with(" = 0");
        });
        if (!isPassedOver(instruments::struckOperation()))
            checkNothingIsLost();
        if (kept || looksOf(drawing()) == m_before)
            checkLayersAreKept();
        else
            ++unguarded;
    }
    EXPECT_EQ(unguarded, 3) << "the guard's two steps to the states, and its save";
}

INSTANTIATE_TEST_SUITE_P(, KilledConversion, testing::Values(kOlderTool, kAddOn),
                         [](const auto& test) { return test.index == 0 ? "OfTheOlderTool" : "OfTheAddOn"; });

} // namespace
