#include "OldStates.h"

#include "CQSETList.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Names = std::vector<std::wstring>;

CQSETList statesOfOlderTool() {
    return CQSETList(keldbHostApplicationServices()->workingDatabase());
}

template <class Function> Function exported(FindAddOnFunction find, const char* name) {
    return reinterpret_cast<Function>(find(name));
}

Looks looksOf(const zdr::LayerColumns& columns, const std::wstring& current) {
    Looks looks{{}, current};
    for (std::size_t index = 0; index < columns.flags.size(); ++index)
        looks.first.push_back(engine::valuesAt(columns, index));
    return looks;
}

/// Whether a state holds each part's values for its layer.
template <class Parts> bool holds(const zdr::LayerState& state, const Parts& parts) {
    return std::ranges::all_of(
        parts, [&state](const auto& part) { return engine::valuesAt(state.columns, part.layer) == part.values; });
}

template <class Parts> bool isInNewStore(const zdr::Drawing& drawing, const Parts& parts) {
    return std::ranges::any_of(drawing.states, [&parts](const zdr::LayerState& state) { return holds(state, parts); });
}

} // namespace

OldStore olderTool() {
    return {L"ZVH", [](const std::wstring& state) { return L"{" + state; }, 8,
            [] {
                CQSETList list = statesOfOlderTool();
                Names names;
                while (list.takeNextName())
                    names.emplace_back(list.currentName().GetString());
                return names;
            },
            [](const wchar_t* state) { EXPECT_TRUE(statesOfOlderTool().applyToLayers(CQSETList::OpRestore, state)); }};
}

OldStore snapshotsOfAddOn(FindAddOnFunction find) {
    return {L"TREL_SNAPSHOTS", [](const std::wstring& state) { return state; }, 6,
            [find] {
                KelArray<KelString> names;
                EXPECT_EQ(exported<int (*)(KelArray<KelString>&)>(find, "getLayerSnapshotNames")(names), 0);
                Names found;
                for (const KelString& name : names)
                    found.emplace_back(name.kwszPtr());
                return found;
            },
            [find](const wchar_t* state) {
                EXPECT_EQ(exported<int (*)(const wchar_t*)>(find, "restoreLayerSnapshot")(state), 0);
            }};
}

OldStates::OldStates(KelDbDatabase& database, const OldStore& store) : m_application(store.application) {
    const zdr::Drawing whole = engine::drawingOf(database);
    for (const std::wstring& state : store.names()) {
        store.putOn(state.c_str());
        m_parts[state] = partsOf(state, store, database);
        EXPECT_FALSE(m_parts[state].empty());
        engine::replaceDrawing(database, whole);
    }
}

std::vector<OldStates::Part> OldStates::partsOf(const std::wstring& state, const OldStore& store,
                                                const KelDbDatabase& database) const {
    const zdr::Drawing& drawing = engine::drawingOf(database);
    const plain::Node opening = {kExtendedString, store.firstText(state)};
    std::vector<Part> parts;
    for (std::size_t index = 0; index < drawing.layers.size(); ++index) {
        const zdr::Handle object = drawing.layers[index].handle;
        const plain::Nodes nodes = nodesOn(drawing, object);
        const auto first = std::ranges::find(nodes, opening);
        if (first != nodes.end())
            parts.push_back({index, object, {first, first + store.nodes}, engine::layerValues(database, index)});
    }
    return parts;
}

plain::Nodes OldStates::nodesOn(const zdr::Drawing& drawing, zdr::Handle object) const {
    for (const zdr::ExtendedData& data : drawing.extendedData)
        if (data.object == object && data.application == m_application)
            return plain::nodesOf(data.values);
    return {};
}

bool OldStates::isInOldStore(const zdr::Drawing& drawing, const std::vector<Part>& parts) const {
    return std::ranges::all_of(parts, [&](const Part& part) {
        const plain::Nodes nodes = nodesOn(drawing, part.object);
        return std::search(nodes.begin(), nodes.end(), part.nodes.begin(), part.nodes.end()) != nodes.end();
    });
}

std::vector<std::wstring> OldStates::lostIn(const zdr::Drawing& drawing) const {
    Names lost;
    for (const auto& [state, parts] : m_parts)
        if (!isInOldStore(drawing, parts) && !isInNewStore(drawing, parts))
            lost.push_back(state);
    return lost;
}

std::vector<std::wstring> OldStates::notBroughtTo(const zdr::Drawing& drawing) const {
    Names missing;
    for (const auto& [state, parts] : m_parts)
        if (!isInNewStore(drawing, parts))
            missing.push_back(state);
    return missing;
}

Looks looksOf(const zdr::Drawing& drawing) {
    return looksOf(drawing.columns, drawing.names.text(drawing.layers[drawing.currentLayer].name));
}

bool keepsLooks(const zdr::Drawing& drawing, const Looks& looks) {
    return looksOf(drawing) == looks || std::ranges::any_of(drawing.states, [&](const zdr::LayerState& state) {
               return looksOf(state.columns, drawing.names.text(state.currentLayer)) == looks;
           });
}

void renameThrowAwayState(zdr::Drawing& stopped) {
    for (zdr::LayerState& state : stopped.states)
        if (state.name.starts_with(L"TempState_"))
            state.name = L"Left over";
}
