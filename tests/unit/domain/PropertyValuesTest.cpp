// Lineweights, values of system variables and plot styles as texts and back.

#include "PropertyValues.h"

#include "Documents.h"
#include "DomainTest.h"
#include "Runtime.h"

#include <cstdlib>
#include <cwchar>
#include <limits>
#include <map>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::wstring weightText(int weight) {
    CString text = L"before";
    const wchar_t* characters = lineWeightText(weight, text);
    EXPECT_EQ(characters, text.GetString());
    return characters;
}

ResultBuffer nodeOf(int type) {
    ResultBuffer node{};
    node.type = static_cast<std::int16_t>(type);
    return node;
}

ResultBuffer realNode(int type, double value) {
    ResultBuffer node = nodeOf(type);
    node.value.real = value;
    return node;
}

ResultBuffer stringNode(const std::wstring& text) {
    ResultBuffer node = nodeOf(kVariableString);
    node.value.string = static_cast<wchar_t*>(std::malloc((text.size() + 1) * sizeof(wchar_t)));
    std::wcscpy(node.value.string, text.c_str());
    return node;
}

} // namespace

class LineWeights : public DomainTest {};

TEST_F(LineWeights, TheTwentyFourWidthsHaveFixedTexts) {
    const std::map<int, std::wstring> widths = {
        {0, L"0.00 mm"},   {5, L"0.05 mm"},   {9, L"0.09 mm"},   {13, L"0.13 mm"},  {15, L"0.15 mm"},
        {18, L"0.18 mm"},  {20, L"0.20 mm"},  {25, L"0.25 mm"},  {30, L"0.30 mm"},  {35, L"0.35 mm"},
        {40, L"0.40 mm"},  {50, L"0.50 mm"},  {53, L"0.53 mm"},  {60, L"0.60 mm"},  {70, L"0.70 mm"},
        {80, L"0.80 mm"},  {90, L"0.90 mm"},  {100, L"1.00 mm"}, {106, L"1.06 mm"}, {120, L"1.20 mm"},
        {140, L"1.40 mm"}, {158, L"1.58 mm"}, {200, L"2.00 mm"}, {211, L"2.11 mm"}};
    ASSERT_EQ(widths.size(), 24u);
    for (int weight = 0; weight <= 300; ++weight) {
        const auto known = widths.find(weight);
        EXPECT_EQ(weightText(weight), known == widths.end() ? L"*Unknown*" : known->second) << weight;
    }
    EXPECT_THAT(instruments::trace(), IsEmpty()) << "widths don't ask the host";
}

TEST_F(LineWeights, TheThreeReferencesAreTheHostsWords) {
    EXPECT_EQ(weightText(-1), L"ByLayer");
    EXPECT_EQ(weightText(-2), L"ByBlock");
    EXPECT_EQ(weightText(-3), L"Default");
    EXPECT_THAT(instruments::trace(), ElementsAre("keldbGetReservedString(0, true) = \"ByLayer\"",
                                                  "keldbGetReservedString(1, true) = \"ByBlock\"",
                                                  "keldbGetReservedString(7, true) = \"Default\""));
}

TEST_F(LineWeights, AnythingElseIsUnknown) {
    for (const int weight : {-4, -100, 1, 12, 212, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        EXPECT_EQ(weightText(weight), L"*Unknown*") << weight;
    EXPECT_THAT(instruments::trace(), IsEmpty());
}

TEST_F(LineWeights, AWordThatTheHostRefusesIsEmpty) {
    instruments::failCall("keldbGetReservedString", 1);
    EXPECT_EQ(weightText(-1), L"");
}

class DefaultLineWeight : public DomainTest {
  protected:
    ~DefaultLineWeight() override { runtime::reset(); }
    void openDrawing(std::int16_t weight) {
        zdr::Drawing drawing = makeDrawing();
        drawing.defaultLineWeight = weight;
        auto database = std::make_unique<KelDbDatabase>(false, false);
        engine::replaceDrawing(*database, std::move(drawing));
        runtime::openDocument(std::move(database), L"");
        instruments::clearTrace();
    }
};

TEST_F(DefaultLineWeight, IsTheDrawings) {
    openDrawing(35);
    EXPECT_EQ(defaultLineWeight(), 35);
    EXPECT_THAT(instruments::trace(), ElementsAre("keledGetVar(\"LWDEFAULT\") = 5100"));
    openDrawing(-3);
    EXPECT_EQ(defaultLineWeight(), -3) << "sign extended";
}

TEST_F(DefaultLineWeight, IsMinusOneWhenItCannotBeRead) {
    EXPECT_EQ(defaultLineWeight(), -1) << "no drawing";
    openDrawing(35);
    instruments::failCall("keledGetVar", 1);
    EXPECT_EQ(defaultLineWeight(), -1);
}

TEST(LineWeightOfAVariable, TakesAllThreeNumericKinds) {
    EXPECT_EQ(lineWeightOf(realNode(kVariableReal, 25.9)), 25);
    EXPECT_EQ(lineWeightOf(realNode(kVariableReal, -2.9)), -2);
    EXPECT_EQ(lineWeightOf(realNode(kVariableReal, 2147483647.5)), 2147483647);
    EXPECT_EQ(lineWeightOf(realNode(kVariableReal, -2147483648.5)), -2147483647 - 1);
    ResultBuffer shortNode = nodeOf(kVariableInt16);
    shortNode.value.int16 = -3;
    EXPECT_EQ(lineWeightOf(shortNode), -3);
    ResultBuffer longNode = nodeOf(kVariableInt32);
    longNode.value.int32 = 70000;
    EXPECT_EQ(lineWeightOf(longNode), 70000);
}

TEST(LineWeightOfAVariable, IsMinusOneForOtherKinds) {
    EXPECT_EQ(lineWeightOf(realNode(kVariableAngle, 25)), -1);
    EXPECT_EQ(lineWeightOf(nodeOf(kVariableString)), -1);
    EXPECT_EQ(lineWeightOf(nodeOf(0)), -1);
    EXPECT_EQ(lineWeightOf(realNode(kVariableReal, 1e300)), -1) << "no int holds it";
    EXPECT_EQ(lineWeightOf(realNode(kVariableReal, 2147483648.0)), -1) << "nor this";
    EXPECT_EQ(lineWeightOf(realNode(kVariableReal, -2147483649.0)), -1) << "nor this";
    EXPECT_EQ(lineWeightOf(realNode(kVariableReal, std::numeric_limits<double>::quiet_NaN())), -1);
}

class SysvarText : public DomainTest {};

TEST_F(SysvarText, NumbersAreWrittenByTheirKind) {
    EXPECT_STREQ(sysvarValueText(realNode(kVariableReal, 1.5)), L"1.5000");
    EXPECT_STREQ(sysvarValueText(realNode(kVariableAngle, 3.14159265358979)), L"180");
    ResultBuffer shortNode = nodeOf(kVariableInt16);
    shortNode.value.int16 = -12;
    EXPECT_STREQ(sysvarValueText(shortNode), L"-12");
    ResultBuffer longNode = nodeOf(kVariableInt32);
    longNode.value.int32 = -70000;
    EXPECT_STREQ(sysvarValueText(longNode), L"-70000");
    EXPECT_THAT(instruments::trace(),
                ElementsAre("keldbRToS(1.5, -1, -1), text=\"1.5000\"", "keldbAngToS(3.14159, -1, -1), text=\"180\""));
}

TEST_F(SysvarText, AnyOtherKindIsAnError) {
    EXPECT_STREQ(sysvarValueText(nodeOf(kExtendedString)), L"Sysvar error");
    EXPECT_STREQ(sysvarValueText(nodeOf(0)), L"Sysvar error");
    EXPECT_THAT(instruments::trace(), IsEmpty());
}

// The sanitizers of the native build check that the string is freed once.
TEST_F(SysvarText, AStringIsCopiedAndFreed) {
    EXPECT_STREQ(sysvarValueText(stringNode(L"My profile %s 100%")), L"My profile %s 100%");
    EXPECT_THAT(instruments::trace(), ElementsAre("vorn_free(\"My profile %s 100%\")"));
}

TEST_F(SysvarText, AVariablesStringIsGivenBackToTheHost) {
    ResultBuffer value{};
    ASSERT_EQ(keledGetVar(L"CPROFILE", &value), kResultNormal);
    EXPECT_THAT(instruments::ledger(), ElementsAre("string of a system variable \"Default\""));
    EXPECT_STREQ(sysvarValueText(value), L"Default");
    EXPECT_THAT(instruments::ledger(), IsEmpty());
}

TEST_F(SysvarText, IsOneBufferThatTheNextUseWritesOver) {
    const wchar_t* first = sysvarValueText(stringNode(L"first"));
    EXPECT_EQ(first, g_sysvarText);
    EXPECT_EQ(sysvarValueText(stringNode(L"second")), first);
    EXPECT_STREQ(first, L"second");
}

TEST_F(SysvarText, ALongStringIsCutOffAtWhatTheSystemWrites) {
    sysvarValueText(stringNode(std::wstring(5000, L'x')));
    const std::size_t length = std::wcslen(g_sysvarText);
    EXPECT_GE(length, 1023u);
    EXPECT_LE(length, 1024u);
    EXPECT_EQ(std::wstring(g_sysvarText), std::wstring(length, L'x'));
}

class PlotStyleLookup : public DomainTest {
  protected:
    KelDbObjectId m_id = layerId(L"Walls"); // something, to see that a failure leaves it
    const KelDbObjectId m_before = m_id;
};

TEST_F(PlotStyleLookup, FindsAStyleByName) {
    EXPECT_EQ(lookupPlotStyleId(L"FINE", m_id), Vorn::eOk);
    EXPECT_EQ(m_id, engine::objectId(m_database, drawing().plotStyles[1].handle));
    const std::string fine = instruments::describe(m_id);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object", "plotStyleMode() = false",
                            "getPlotStyleNameDictionary(0) = 0",
                            "dictionary.getAt(#plotStyles, \"FINE\") = 0, id=" + fine, "close(#plotStyles) = 0"));
    EXPECT_THAT(instruments::ledger(), IsEmpty());
}

TEST_F(PlotStyleLookup, AnswersTheDictionarysStatusForAnUnknownName) {
    EXPECT_EQ(lookupPlotStyleId(L"Coarse", m_id), Vorn::eKeyNotFound);
    EXPECT_EQ(m_id, m_before);
    EXPECT_EQ(instruments::trace().back(), "close(#plotStyles) = 0");
}

TEST_F(PlotStyleLookup, NeedsACurrentDrawing) {
    makeCurrent(nullptr);
    EXPECT_EQ(lookupPlotStyleId(L"Fine", m_id), static_cast<Vorn::ErrorStatus>(374));
    EXPECT_EQ(m_id, m_before);
    EXPECT_THAT(instruments::trace(), ElementsAre("keldbHostApplicationServices()", "workingDatabase() = null"));
}

TEST_F(PlotStyleLookup, NeedsNamedPlotStyles) {
    zdr::Drawing byColor = makeDrawing();
    byColor.colorDependentPlotStyles = true;
    use(std::move(byColor));
    instruments::clearTrace();
    EXPECT_EQ(lookupPlotStyleId(L"Fine", m_id), static_cast<Vorn::ErrorStatus>(407));
    EXPECT_EQ(m_id, m_before);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object", "plotStyleMode() = true"));
}

TEST_F(PlotStyleLookup, AnEntryWithoutAnIdIsAFailure) {
    m_id = {};
    instruments::failCall("dictionary.getAt", 1, Vorn::eOk); // success, but with the id left as it was
    EXPECT_EQ(lookupPlotStyleId(L"Fine", m_id), static_cast<Vorn::ErrorStatus>(16));
    EXPECT_EQ(instruments::trace().back(), "close(#plotStyles) = 0");
}

TEST_F(PlotStyleLookup, AnyFailureOfTheHostIsAnsweredAndLeavesNothingOpen) {
    constexpr auto refused = static_cast<Vorn::ErrorStatus>(4711);
    // The working database, the dictionary, the entry; a close that fails is too late to matter.
    const Vorn::ErrorStatus expected[] = {Vorn::eNoWorkingDatabase, refused, refused, Vorn::eOk};
    int nth = 1;
    for (const Vorn::ErrorStatus answer : expected) {
        instruments::failAnyCall(nth++, refused);
        KelDbObjectId id;
        EXPECT_EQ(lookupPlotStyleId(L"Fine", id), answer);
        EXPECT_TRUE(instruments::faultStruck());
        EXPECT_EQ(id.isNull(), answer != Vorn::eOk);
        EXPECT_THAT(instruments::ledger(), IsEmpty());
        instruments::clearFaults();
    }
    instruments::failAnyCall(nth, refused);
    EXPECT_EQ(lookupPlotStyleId(L"Fine", m_id), Vorn::eOk);
    EXPECT_FALSE(instruments::faultStruck());
}
