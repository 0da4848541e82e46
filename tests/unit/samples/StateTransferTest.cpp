// Each state of the sample house that goes to another drawing, by a file or straight, is the same there, property by
// property.
#include "SampleHouse.h"

#include "TemporaryFolder.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"

#include <gmock/gmock.h>

#include <sstream>

namespace {

/// All that a state holds, a line for each layer. Names are texts and colours are values here, since their numbers
/// differ from drawing to drawing.
std::vector<std::string> contentOf(const zdr::LayerState& state, const zdr::Drawing& drawing) {
    const auto text = [&drawing](zdr::NameId name) {
        return name == zdr::kNoName ? std::string("-") : zdr::toUtf8(drawing.names.text(name));
    };
    std::vector<std::string> lines = {zdr::toUtf8(state.name) + ", mask " + std::to_string(state.mask) + ", current " +
                                          text(state.currentLayer) + (state.hasViewportData ? ", viewport" : ""),
                                      zdr::toUtf8(state.description)};
    for (std::size_t row = 0; row < state.layers->names.size(); ++row) {
        const KelCmColor color = drawing.namedColors.color(state.columns.colors[row]);
        std::ostringstream line;
        line << text(state.layers->names[row]) << ": " << static_cast<int>(state.columns.flags[row]) << ' '
             << instruments::describe(color) << ' ' << text(state.columns.linetypes[row]) << ' '
             << state.columns.lineWeights[row] << ' ' << text(state.columns.plotStyles[row]);
        lines.push_back(line.str());
    }
    return lines;
}

class StateTransfer : public SampleHouse {
  protected:
    StateTransfer() {
        engine::replaceDrawing(m_house, s_house);
        // A drawing whose names have other numbers than the house's.
        const zdr::LayerState& first = s_house.states.front();
        zdr::Drawing other = engine::drawingOf(m_other);
        for (auto layer = first.layers->names.rbegin(); layer != first.layers->names.rend(); ++layer)
            other.names.intern(name(*layer));
        engine::replaceDrawing(m_other, std::move(other));
    }
    KelDbLayerStateManager& states() { return *m_other.getLayerStateManager(); }
    /// Expects the other drawing's last state to be that one of the house.
    void expectSame(const zdr::LayerState& state) const {
        const zdr::Drawing& other = engine::drawingOf(m_other);
        ASSERT_FALSE(other.states.empty());
        EXPECT_EQ(contentOf(other.states.back(), other), contentOf(state, s_house));
    }

    KelDbDatabase m_house{false, true};
    KelDbDatabase m_other{true, false};
};

TEST_F(StateTransfer, ByAFileEachStateIsTheSame) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"state.las");
    int count = 0;
    for (const zdr::LayerState& state : s_house.states) {
        if (state.reference != zdr::kNone)
            continue;
        SCOPED_TRACE(zdr::toUtf8(state.name));
        ASSERT_EQ(m_house.getLayerStateManager()->exportLayerState(state.name.c_str(), path.c_str()), Vorn::eOk);
        KelString found;
        ASSERT_EQ(states().importLayerState(path.c_str(), found), Vorn::eOk);
        EXPECT_STREQ(found.kwszPtr(), state.name.c_str());
        expectSame(state);
        ++count;
    }
    EXPECT_EQ(count, 12);
}

TEST_F(StateTransfer, FromTheDrawingEachStateIsTheSame) {
    for (const zdr::LayerState& state : s_house.states) {
        if (state.reference != zdr::kNone)
            continue;
        SCOPED_TRACE(zdr::toUtf8(state.name));
        ASSERT_EQ(states().importLayerStateFromDb(state.name.c_str(), &m_house), Vorn::eOk);
        expectSame(state);
    }
    EXPECT_EQ(engine::drawingOf(m_other).states.size(), 12u);
}

} // namespace
