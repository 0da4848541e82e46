// A drawing for the engine's tests, with all three instruments on. A test that leaves something open or not given back
// fails and says what.
#pragma once

#include "KelEditor.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// The values of a layer that a test chooses; the others are a new layer's.
struct TestLayer {
    const wchar_t* name;
    std::uint8_t flags = zdr::kLayerOn | zdr::kLayerPlot;
    std::uint32_t color = 7;
    const wchar_t* linetype = L"Continuous";
    std::int16_t lineWeight = -3;
    const wchar_t* plotStyle = L"Normal";
};

/// Base (current), and the layers given, over the linetypes Continuous, Dashed, Dotted and the plot styles Normal and
/// Fine; one layout with the viewports 2 (on) and -1 (not on).
zdr::Drawing makeDrawing(const std::vector<TestLayer>& layers = {});

class EngineTest : public testing::Test {
  protected:
    EngineTest();
    ~EngineTest() override;

    /// Replaces the fixture's drawing, which has Walls, Doors and Furniture.
    void use(zdr::Drawing drawing) { engine::replaceDrawing(m_database, std::move(drawing)); }
    const zdr::Drawing& drawing() const { return engine::drawingOf(m_database); }
    KelDbLayerStateManager& states() { return *m_database.getLayerStateManager(); }
    KelDbImpLayerStateManager& impStates() { return *m_database.impDatabase()->getImpLayerStateManager(); }

    std::size_t layer(const wchar_t* name) const { return engine::layerIndex(m_database, name); }
    KelDbObjectId layerId(const wchar_t* name) const { return engine::layerId(m_database, layer(name)); }
    engine::LayerValues values(const wchar_t* name) const { return engine::layerValues(m_database, layer(name)); }
    /// Changes the values of a layer of the drawing.
    template <class Change> void change(const wchar_t* name, Change edit) {
        engine::LayerValues changed = values(name);
        edit(changed);
        EXPECT_EQ(engine::setLayerValues(m_database, layer(name), changed), Vorn::eOk);
    }
    void setColor(const wchar_t* name, std::uint32_t color) {
        change(name, [color](engine::LayerValues& layerValues) { layerValues.color = color; });
    }
    void setFlag(const wchar_t* name, std::uint8_t flag, bool on) {
        change(name, [=](engine::LayerValues& layerValues) {
            layerValues.flags = static_cast<std::uint8_t>(on ? layerValues.flags | flag : layerValues.flags & ~flag);
        });
    }
    bool hasFlag(const wchar_t* name, std::uint8_t flag) const { return values(name).flags & flag; }
    zdr::NameId nameId(const wchar_t* name) const { return drawing().names.find(name); }
    /// The first viewport of the drawing and its id.
    const zdr::Viewport& viewport() const { return drawing().layouts.at(0).viewports.at(0); }
    KelDbObjectId viewportId() const { return engine::objectId(m_database, viewport().handle); }

    std::vector<std::wstring> stateNames(bool includeDependent = true);
    std::vector<std::wstring> layersOf(const wchar_t* state, bool invert = false);
    bool matches(const wchar_t* state, KelDbObjectId viewport = {}) {
        return states().compareLayerStateToDb(state, viewport);
    }
    Vorn::ErrorStatus restore(const wchar_t* state, int flags = 0, KelDbObjectId viewport = {}) {
        return states().restoreLayerState(state, viewport, flags, nullptr);
    }
    Vorn::ErrorStatus restore(const wchar_t* state, LayerStateMask mask, int flags = 0, KelDbObjectId viewport = {}) {
        return states().restoreLayerState(state, viewport, flags, &mask);
    }

    KelDbDatabase m_database;
};

/// The names in an array, as a vector.
std::vector<std::wstring> toVector(const KelArray<KelString>& names);
