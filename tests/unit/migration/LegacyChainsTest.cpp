// Random chains, legal ones and rubbish, against a plain second reading of the format.

#include "LegacyTest.h"
#include "PlainReading.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <random>

namespace {

constexpr int kRuns = 500;
constexpr std::array kLineWeights = {0, 25, 50, 211, -3};

class LegacyChains : public LegacyTest {
  protected:
    LegacyChains() : m_seed(std::random_device()()), m_random(m_seed) {
        if (const char* seed = std::getenv("KEL_CHAINS_SEED"))
            m_random.seed(m_seed = static_cast<unsigned>(std::strtoul(seed, nullptr, 10)));
        RecordProperty("seed", std::to_string(m_seed));
    }

    int below(int range) { return std::uniform_int_distribution(0, range - 1)(m_random); }
    template <class T, std::size_t N> T oneOf(const std::array<T, N>& choices) {
        return choices[static_cast<std::size_t>(below(static_cast<int>(N)))];
    }
    std::wstring name() { return oneOf(std::array<const wchar_t*, 5>{L"PLAN", L"plan", L"SITE", L"P", L""}); }

    LegacyNodes legalBlock() {
        return nodesOf(name(), {.flags = below(64),
                                .color = below(513) - 256,
                                .linetype = oneOf(std::array<const wchar_t*, 3>{L"Dashed", L"DOTTED", L"Missing"}),
                                .current = below(4) == 0,
                                .frozenInViewport = below(4) == 0 ? L"Walls" : L"",
                                .lineWeight = oneOf(kLineWeights),
                                .plottable = below(3),
                                .plotStyle = oneOf(std::array<const wchar_t*, 3>{L"0", L"FFFF", L"rubbish"})});
    }
    LegacyNode rubbish() {
        switch (below(5)) {
        case 0:
            return text(L"{" + name());
        case 1:
            return text(name() + L"}");
        case 2:
            return int16(below(9) - 4);
        case 3:
            return int32(oneOf(kLineWeights));
        default:
            return below(2) ? text(L"Dashed") : handle(L"0");
        }
    }
    LegacyNodes chain() {
        LegacyNodes nodes;
        for (int parts = below(4); parts > 0; --parts) {
            if (below(2))
                nodes = std::move(nodes) + legalBlock();
            for (int count = below(6); count > 0; --count)
                nodes.push_back(rubbish());
        }
        return nodes;
    }
    /// Cuts a node out of a chain, or doubles one.
    void damage(LegacyNodes& nodes) {
        if (nodes.empty())
            return;
        const auto at = nodes.begin() + below(static_cast<int>(nodes.size()));
        if (below(2))
            nodes.erase(at);
        else
            nodes.insert(at, LegacyNode(*at));
    }
    static std::string shown(const LegacyNodes& nodes) {
        std::string all;
        for (const std::string& line : lines(nodes))
            all += line + "\n";
        return all;
    }

    /// Walls as it has to be after a block was put on it. What the host refuses stays as it was.
    engine::LayerValues expected(engine::LayerValues walls, const plain::Block& block) const {
        if (block.flags) {
            const auto put = [&walls](std::uint8_t flag, bool on) {
                walls.flags = static_cast<std::uint8_t>(on ? walls.flags | flag : walls.flags & ~flag);
            };
            put(zdr::kLayerFrozen, *block.flags & 1);
            put(zdr::kLayerNewViewportFrozen, *block.flags & 2);
            put(zdr::kLayerLocked, *block.flags & 4);
        }
        if (block.color) {
            walls.flags = static_cast<std::uint8_t>(*block.color < 0 ? walls.flags & ~zdr::kLayerOn
                                                                     : walls.flags | zdr::kLayerOn);
            walls.color = static_cast<std::uint32_t>(std::abs(*block.color));
        }
        for (const wchar_t* linetype : {L"Dashed", L"Dotted"})
            if (block.linetype && plain::same(*block.linetype, linetype))
                walls.linetype = nameId(linetype);
        // A number that gets here from another place of a damaged block is no lineweight.
        if (block.lineWeight && std::count(kLineWeights.begin(), kLineWeights.end(), *block.lineWeight))
            walls.lineWeight = static_cast<std::int16_t>(*block.lineWeight);
        if (block.plottable)
            walls.flags = static_cast<std::uint8_t>(*block.plottable == 1 ? walls.flags | zdr::kLayerPlot
                                                                          : walls.flags & ~zdr::kLayerPlot);
        return walls;
    }
    /// Gives Walls one random chain after the other, and calls `check` with it.
    template <class Check> void forEachChain(Check check) {
        for (int run = 0; run < kRuns && !HasFailure(); ++run) {
            LegacyNodes nodes = chain();
            if (below(3) == 0)
                damage(nodes);
            SCOPED_TRACE("KEL_CHAINS_SEED=" + std::to_string(m_seed) + ", run " + std::to_string(run) + "\n" +
                         shown(nodes));
            setData(L"Walls", nodes);
            check(nodes);
        }
    }
    void checkRestore(const LegacyNodes& nodes, const std::wstring& state) {
        const engine::LayerValues before = values(L"Walls");
        const std::optional<plain::Block> block = plain::block(nodes, state);
        EXPECT_TRUE(CQSETList(&m_database).applyToLayers(CQSETList::OpRestore, state.c_str()));
        const engine::LayerValues wanted = block ? expected(before, *block) : before;
        const engine::LayerValues found = values(L"Walls");
        EXPECT_EQ(found.flags, wanted.flags);
        EXPECT_EQ(found.color, wanted.color);
        EXPECT_EQ(found.linetype, wanted.linetype);
        EXPECT_EQ(found.lineWeight, wanted.lineWeight);
        const bool current = block && block->hasCurrentMark && !(found.flags & zdr::kLayerFrozen);
        EXPECT_EQ(m_database.clayer() == layerId(L"Walls"), current);
        EXPECT_EQ(m_database.setClayer(layerId(L"Base")), Vorn::eOk);
        EXPECT_EQ(data(L"Walls"), lines(nodes));
    }
    void checkDelete(const LegacyNodes& nodes, const std::wstring& state) {
        EXPECT_TRUE(CQSETList(&m_database).applyToLayers(CQSETList::OpDelete, state.c_str()));
        EXPECT_EQ(data(L"Walls"), lines(plain::without(nodes, state)));
    }

    unsigned m_seed;
    std::mt19937 m_random;
};

TEST_F(LegacyChains, AreReadAsTheFormatSays) {
    forEachChain([this](const LegacyNodes& nodes) {
        CQSETList list(&m_database);
        std::vector<std::wstring> names;
        while (list.takeNextName())
            names.emplace_back(list.currentName().GetString());
        EXPECT_EQ(names, plain::names(nodes));
        for (const std::wstring& state : names)
            checkRestore(nodes, state);
    });
}

TEST_F(LegacyChains, LoseTheBlocksOfTheDeletedStateAndNothingElse) {
    forEachChain([this](const LegacyNodes& nodes) { checkDelete(nodes, name()); });
}

} // namespace
