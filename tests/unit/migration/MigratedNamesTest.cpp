// The names of states that come from older stores.

#include "MigratedNames.h"

#include "DomainTest.h"

namespace {

using testing::ElementsAre;

class MigratedNames : public DomainTest {
  protected:
    std::wstring name(const wchar_t* oldName, bool usePrefix) {
        return migratedStateName(states(), oldName, L"OLD_", usePrefix).GetString();
    }
    void save(const wchar_t* state) { EXPECT_EQ(states().saveLayerState(state, MaskAllProperties), Vorn::eOk); }
};

TEST_F(MigratedNames, AreTheOldOnesInADrawingWithoutStates) {
    EXPECT_EQ(name(L"PLAN", false), L"PLAN");
}

TEST_F(MigratedNames, HaveThePrefixInADrawingWithStates) {
    EXPECT_EQ(name(L"PLAN", true), L"OLD_PLAN");
}

TEST_F(MigratedNames, ThatTheRulesRefuseGiveWayToThePrefixEitherWay) {
    EXPECT_EQ(name(L"A|B", true), L"OLD_INVALIDNAME");
    EXPECT_EQ(name(L"A|B", false), L"OLD_INVALIDNAME");
    EXPECT_EQ(name(L"", false), L"OLD_INVALIDNAME");
}

TEST_F(MigratedNames, ThatAreTakenGetTheFirstFreeNumber) {
    save(L"PLAN");
    EXPECT_EQ(name(L"plan", false), L"plan (1)");
    save(L"Plan (1)");
    save(L"PLAN (3)");
    EXPECT_EQ(name(L"PLAN", false), L"PLAN (2)");
    save(L"OLD_INVALIDNAME");
    EXPECT_EQ(name(L"A|B", false), L"OLD_INVALIDNAME (1)");
}

TEST_F(MigratedNames, AreJudgedByTheOldNameAndThenAskedFor) {
    instruments::clearTrace();
    name(L"PLAN", true);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("getLayerStateManager() = object", "validateSymbolName(\"PLAN\", false) = 0",
                            "hasLayerState(\"OLD_PLAN\") = false"));
}

TEST_F(MigratedNames, AskWhetherTheDrawingHoldsAState) {
    EXPECT_FALSE(holdsStates(states()));
    save(L"Own");
    EXPECT_TRUE(holdsStates(states()));
    instruments::failCall("getLayerStateNames", 1);
    EXPECT_FALSE(holdsStates(states())) << "names that can't be asked for count as none";
}

TEST_F(MigratedNames, CountAHiddenStateAndThatOfAReference) {
    save(L"Own");
    zdr::Drawing withHidden = drawing();
    withHidden.states[0].name = L"*Own";
    use(withHidden);
    EXPECT_TRUE(holdsStates(states()));
    zdr::Drawing withReference = makeDrawing();
    withReference.references.push_back({.name = L"site", .path = L"site.zdr", .insertion = {}, .drawing = nullptr});
    zdr::Drawing site = withHidden;
    site.states[0].name = L"Summer";
    use(std::move(withReference));
    EXPECT_FALSE(holdsStates(states()));
    engine::attachReference(m_database, 0, std::make_shared<const zdr::Drawing>(std::move(site)));
    ASSERT_THAT(stateNames(), ElementsAre(L"site!Summer"));
    EXPECT_TRUE(holdsStates(states()));
}

} // namespace
