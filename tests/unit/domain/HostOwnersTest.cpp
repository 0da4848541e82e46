// The owners give back what the host has handed out: each thing once, and by the call that the host wants. What the
// runtime library frees isn't in the ledger; the leak sanitizer of the native build watches it.

#include "HostOwners.h"

#include "DomainTest.h"
#include "KelDbPointers.h"

#include <type_traits>
#include <utility>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

static_assert(!std::is_copy_constructible_v<HostDescription> && !std::is_copy_constructible_v<HostText> &&
              !std::is_copy_constructible_v<RuntimeText> && !std::is_copy_constructible_v<HostChain>);

class HostOwners : public DomainTest {
  protected:
    /// Hands the layer Walls to `use`, open for read.
    template <class Use> void readWalls(Use use) {
        const KelDbObjectPointer<KelDbLayerTableRecord> walls(layerId(L"Walls"), KelDb::kForRead);
        ASSERT_EQ(walls.openStatus(), Vorn::eOk);
        m_heldBefore = instruments::ledger().size();
        instruments::clearTrace();
        use(*walls.object());
        EXPECT_THAT(instruments::ledger(), SizeIs(m_heldBefore));
    }
    bool holdsOneMore() const { return instruments::ledger().size() == m_heldBefore + 1; }

    std::size_t m_heldBefore = 0;
};

TEST_F(HostOwners, GiveADescriptionOfAStateBack) {
    ASSERT_EQ(states().saveLayerState(L"Plan", MaskAllProperties), Vorn::eOk);
    ASSERT_EQ(states().setLayerStateDescription(L"Plan", L"for the site"), Vorn::eOk);
    instruments::clearTrace();
    {
        wchar_t* text = nullptr;
        ASSERT_EQ(states().getLayerStateDescription(L"Plan", text), Vorn::eOk);
        const HostDescription owner(text);
        EXPECT_STREQ(owner.get(), L"for the site");
        EXPECT_THAT(instruments::ledger(), SizeIs(1));
    }
    EXPECT_EQ(instruments::trace().back(), "keldbFree(\"for the site\")");
    EXPECT_THAT(instruments::ledger(), IsEmpty());
}

TEST_F(HostOwners, GiveACopyOfANameBack) {
    readWalls([this](const KelDbLayerTableRecord& walls) {
        wchar_t* name = nullptr;
        ASSERT_EQ(walls.getName(name), Vorn::eOk);
        HostText owner(name);
        EXPECT_STREQ(owner.get(), L"Walls");
        EXPECT_TRUE(holdsOneMore());
        const HostText next = std::move(owner);
        EXPECT_TRUE(holdsOneMore()) << "a move gives nothing back";
    });
    EXPECT_THAT(instruments::trace(), Contains("kelutDelBuffer(\"Walls\")").Times(1));
}

TEST_F(HostOwners, LeaveTheNameOfAPlotStyleToTheRuntimeLibrary) {
    readWalls([](const KelDbLayerTableRecord& walls) {
        const RuntimeText owner(walls.plotStyleName());
        EXPECT_STREQ(owner.get(), L"Normal");
    });
    EXPECT_THAT(instruments::trace(), SizeIs(2)) << "the reading and the close; no call frees the text";
}

TEST_F(HostOwners, ReleaseAChainWithItsStrings) {
    zdr::Drawing withData = makeDrawing({{L"Walls"}});
    withData.extendedData.push_back(
        {withData.layers[1].handle, L"OLD", {{kExtendedString, std::wstring(L"{PLAN")}, {kExtendedInt16, -5}}});
    use(std::move(withData));
    readWalls([this](const KelDbLayerTableRecord& walls) {
        const HostChain owner(walls.getExtendedData(L"OLD"));
        ASSERT_NE(owner, nullptr);
        EXPECT_STREQ(owner->value.string, L"OLD");
        EXPECT_GT(instruments::ledger().size(), m_heldBefore);
    });
    EXPECT_THAT(instruments::trace(), Contains("kelutRelRb(object)").Times(1));
}

TEST_F(HostOwners, GiveNothingBackWhereTheHostHasHandedOutNothing) {
    {
        const HostDescription description;
        const HostText text;
        const RuntimeText runtimeText;
        const HostChain chain;
    }
    EXPECT_THAT(instruments::trace(), IsEmpty());
}
