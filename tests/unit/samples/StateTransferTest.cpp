// A state that goes to another drawing, by a file or straight, is the same there, property by property: each one of the
// samples, those of layer states files of every version, and random ones.
#include "SampleHouse.h"

#include "TemporaryFolder.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"
#include "values/LineWeights.h"

#include <gmock/gmock.h>

#include <random>
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

/// A state of any values that a state can have.
class RandomState {
  public:
    RandomState(std::uint32_t seed, zdr::Drawing& drawing) : m_random(seed), m_drawing(drawing) {}

    zdr::LayerState make() {
        zdr::LayerState state;
        state.handle = m_drawing.nextHandle++;
        state.name = L"State";
        state.description = text() + (chance(3) ? L"\n\t\x1F \"quoted\" \\" : L"");
        state.mask = below(1024) | (chance(2) ? below(1 << 22) << 10 : 0);
        state.hasViewportData = chance(2);
        auto set = std::make_shared<zdr::LayerSet>();
        for (std::uint32_t left = below(20); left > 0; --left) {
            const std::wstring name = text() + std::to_wstring(left);
            set->names.push_back(m_drawing.names.intern(chance(5) ? L"site!" + name : name));
            engine::appendValues(state.columns, values(state.hasViewportData));
        }
        if (!set->names.empty() && chance(2))
            state.currentLayer = set->names[below(set->names.size())];
        state.layers = std::move(set);
        return state;
    }

  private:
    std::uint32_t below(std::size_t bound) { return static_cast<std::uint32_t>(m_random() % bound); }
    bool chance(std::uint32_t oneOf) { return below(oneOf) == 0; }
    /// A short text, mostly of letters, with some characters that files spell otherwise than programs do.
    std::wstring text() {
        static constexpr const char* kPieces[] = {"a",
                                                  "B",
                                                  "z",
                                                  "_",
                                                  " ",
                                                  "\"",
                                                  "\\",
                                                  "/",
                                                  "'",
                                                  "{",
                                                  "\xC3\x84",
                                                  "\xE2\x82\xAC",
                                                  "\xEF\xBF\xBD",
                                                  "\x7F",
                                                  "\xC2\x80",
                                                  "\xF0\x9F\x98\x80"};
        std::string bytes;
        for (std::uint32_t left = below(12); left > 0; --left)
            bytes += kPieces[below(std::size(kPieces))];
        return zdr::fromUtf8(bytes).value();
    }
    zdr::ColorId color() {
        if (chance(2))
            return below(257);
        KelCmColor color;
        const auto channel = [this] { return static_cast<std::uint8_t>(below(256)); };
        const std::uint8_t red = channel(), green = channel(), blue = channel();
        color.setRGB(red, green, blue);
        if (chance(2)) // without control characters, which no colour's name has
            color.setNames(chance(2) ? L"Signal \"Blue\"" : L"", chance(2) ? L"House \x00DC" : L"");
        return m_drawing.namedColors.intern(color);
    }
    engine::LayerValues values(bool withViewport) {
        engine::LayerValues values;
        values.flags = static_cast<std::uint8_t>(below(64) & (withViewport ? zdr::kStateFlags : zdr::kDrawingFlags));
        values.color = color();
        values.linetype = m_drawing.names.intern(text());
        values.lineWeight = chance(3) ? static_cast<std::int16_t>(-1 - static_cast<int>(below(3)))
                                      : engine::kLineWidths[below(std::size(engine::kLineWidths))];
        values.plotStyle = m_drawing.names.intern(text());
        return values;
    }

    std::mt19937 m_random;
    zdr::Drawing& m_drawing;
};

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

    /// Exports the last state of a drawing, imports it into an empty one, and expects it to be the same there. Answers
    /// the bytes of the file.
    std::vector<std::byte> expectSameInAnEmptyDrawing(KelDbDatabase& database) const {
        const zdr::Drawing& from = engine::drawingOf(database);
        const zdr::LayerState& state = from.states.back();
        const std::wstring path = m_folder.file(L"state.las");
        EXPECT_EQ(database.getLayerStateManager()->exportLayerState(state.name.c_str(), path.c_str()), Vorn::eOk)
            << zdr::toUtf8(engine::lastFileProblem(database));
        KelDbDatabase empty(true, false);
        KelString found;
        EXPECT_EQ(empty.getLayerStateManager()->importLayerState(path.c_str(), found), Vorn::eOk)
            << zdr::toUtf8(engine::lastFileProblem(empty));
        const zdr::Drawing& to = engine::drawingOf(empty);
        if (to.states.size() == 1)
            EXPECT_EQ(contentOf(to.states[0], to), contentOf(state, from));
        else
            ADD_FAILURE() << to.states.size() << " states";
        return bytesOf(path);
    }

    const TemporaryFolder m_folder;
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

TEST_F(StateTransfer, ByAFileEachStateOfEachSampleIsTheSame) {
    int count = 0;
    for (const wchar_t* sample : {L"house", L"site", L"annex"}) {
        KelDbDatabase database(false, true);
        const std::wstring path = L"samples/" + std::wstring(sample) + L".zdr";
        ASSERT_EQ(database.readZdrFile(path.c_str(), 64, false, nullptr), Vorn::eOk);
        for (zdr::Drawing drawing = engine::drawingOf(database); !drawing.states.empty(); drawing.states.pop_back()) {
            if (drawing.states.back().reference != zdr::kNone)
                continue;
            SCOPED_TRACE(zdr::toUtf8(drawing.states.back().name));
            KelDbDatabase one(false, true);
            engine::replaceDrawing(one, drawing);
            expectSameInAnEmptyDrawing(one);
            ++count;
        }
    }
    EXPECT_EQ(count, 12 + 3 + 5);
}

TEST_F(StateTransfer, AFileOfEachVersionIsTheSameWhenItIsWrittenAgain) {
    const std::wstring data = zdr::widePath(TEST_DATA);
    for (const std::wstring& path : {data + L"/state_version1.las", data + L"/state_version2.las"}) {
        SCOPED_TRACE(zdr::toUtf8(path));
        KelDbDatabase database(true, false);
        KelString name;
        ASSERT_EQ(database.getLayerStateManager()->importLayerState(path.c_str(), name), Vorn::eOk);
        EXPECT_EQ(expectSameInAnEmptyDrawing(database), bytesOf(path));
    }
}

TEST_F(StateTransfer, AFileWrittenByHandIsTheSameStateWhenItIsWrittenAgain) {
    KelDbDatabase database(true, false);
    KelString name;
    ASSERT_EQ(database.getLayerStateManager()->importLayerState(L"samples/winter.las", name), Vorn::eOk);
    expectSameInAnEmptyDrawing(database);
}

TEST_F(StateTransfer, ByAFileRandomStatesAreTheSame) {
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        zdr::Drawing drawing = engine::drawingOf(m_other);
        drawing.states.push_back(RandomState(seed, drawing).make());
        KelDbDatabase database(false, true);
        engine::replaceDrawing(database, std::move(drawing));
        expectSameInAnEmptyDrawing(database);
    }
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
