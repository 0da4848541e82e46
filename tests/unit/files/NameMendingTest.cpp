// Names in a file that the rules for names refuse are mended when it is read.
#include "DrawingDifference.h"
#include "FilePatch.h"
#include "SampleDrawing.h"
#include "files/DrawingFile.h"
#include "files/NameMending.h"
#include "files/TextCoding.h"
#include "values/NameRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <set>

using namespace zdr;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

using Names = std::vector<std::wstring>;

/// A drawing whose own states have these names.
Drawing drawingWith(const Names& names) {
    Drawing drawing = plainDrawing();
    for (const std::wstring& name : names) {
        LayerState& state = drawing.states.emplace_back();
        state.name = name;
        state.handle = drawing.nextHandle++;
        state.layers = drawing.layerSet;
        state.columns = drawing.columns;
    }
    return drawing;
}

Names namesOf(const Drawing& drawing) {
    Names names;
    for (const LayerState& state : drawing.states)
        names.push_back(state.name);
    return names;
}

Names mended(const Names& names) {
    Drawing drawing = drawingWith(names);
    mendNames(drawing);
    return namesOf(drawing);
}

std::vector<std::pair<std::wstring, std::wstring>> changesOf(const Drawing& drawing) {
    std::vector<std::pair<std::wstring, std::wstring>> changes;
    for (const MendedName& name : drawing.mendedNames)
        changes.emplace_back(name.was, name.now);
    return changes;
}

std::wstring xs(std::size_t count) {
    return std::wstring(count, L'x');
}

const std::wstring kHouse = *fromUtf8("\xF0\x9F\x8F\xA0"); // one character of two units

Drawing readFile() {
    Drawing drawing;
    std::wstring reason;
    EXPECT_EQ(readDrawingFile(widePath(BUILT_DRAWINGS) + L"/test_state_names.zdr", drawing, reason), Vorn::eOk)
        << toUtf8(reason);
    return drawing;
}

} // namespace

TEST(NameMending, leavesAllowedNamesAlone) {
    const Names allowed = {L"Plan", L" ", L"Gro\x00DF", xs(255), L"*auto", L"*" + xs(254), L"a_b", L"a'b;c,d=e`f"};
    EXPECT_EQ(mended(allowed), allowed);
    Drawing drawing = drawingWith(allowed);
    drawing.lastRestored = L"Plan";
    mendNames(drawing);
    EXPECT_THAT(drawing.mendedNames, IsEmpty());
    EXPECT_EQ(drawing.lastRestored, L"Plan");
}

TEST(NameMending, putsAnUnderscoreInThePlaceOfWhatIsNotAllowed) {
    EXPECT_THAT(mended({L"a<b>c:d\"e/f\\g|h?i*j!k"}), ElementsAre(L"a_b_c_d_e_f_g_h_i_j_k"));
    EXPECT_THAT(mended({std::wstring(L"\0\x1F\x7F\x80\x9F\xA0z", 7)}), ElementsAre(L"_____\xA0z"));
    EXPECT_THAT(mended({L"site!Trees"}), ElementsAre(L"site_Trees"));
}

TEST(NameMending, namesWhatHasNoName) {
    EXPECT_THAT(mended({L"", L"", L"*"}), ElementsAre(L"Unnamed", L"Unnamed 2", L"*Unnamed"));
}

TEST(NameMending, cutsWhatIsTooLong) {
    EXPECT_THAT(mended({xs(256)}), ElementsAre(xs(255)));
    EXPECT_THAT(mended({L"*" + xs(255)}), ElementsAre(L"*" + xs(254)));
    EXPECT_THAT(mended({xs(300) + L"?"}), ElementsAre(xs(255)));
    EXPECT_THAT(mended({xs(254) + kHouse}), ElementsAre(xs(254))) << "not half a character";
    EXPECT_THAT(mended({xs(253) + kHouse + L"?"}), ElementsAre(xs(253) + kHouse));
}

TEST(NameMending, keepsTheStarThatHidesAName) {
    EXPECT_THAT(mended({L"*a*b", L"**", L"a*"}), ElementsAre(L"*a_b", L"*_", L"a_"));
}

TEST(NameMending, takesNoNameThatAnotherStateHasInAnyCase) {
    EXPECT_THAT(mended({L"a/b", L"A_B", L"a:b", L"a_b 3"}), ElementsAre(L"a_b 2", L"A_B", L"a_b 4", L"a_b 3"));
    EXPECT_THAT(mended({xs(300), xs(256), xs(255)}), ElementsAre(xs(244) + L" 2", xs(244) + L" 3", xs(255)));
    EXPECT_THAT(mended({L"*a?", L"a_", L"*a_"}), ElementsAre(L"*a_ 2", L"a_", L"*a_"));
}

TEST(NameMending, tellsWhichNamesBecameWhich) {
    Drawing drawing = drawingWith({L"Plan", L"a/b", L""});
    mendNames(drawing);
    EXPECT_THAT(changesOf(drawing), ElementsAre(Pair(L"a/b", L"a_b"), Pair(L"", L"Unnamed")));
    mendNames(drawing);
    EXPECT_EQ(drawing.mendedNames.size(), 2u) << "nothing is left to mend";
}

TEST(NameMending, isFollowedByTheLastRestoredState) {
    Drawing drawing = drawingWith({L"x", L"a/b", L"A/B"});
    drawing.lastRestored = L"A/b";
    mendNames(drawing);
    EXPECT_EQ(drawing.lastRestored, L"a_b") << "the first of two of the name";
}

TEST(NameMending, leavesTheStatesOfReferencesToTheirOwnFile) {
    Drawing drawing = drawingWith({L"site!Trees", L"a?"});
    drawing.states[0].reference = 0;
    mendNames(drawing);
    EXPECT_THAT(namesOf(drawing), ElementsAre(L"site!Trees", L"a_"));
}

TEST(NameMending, ofAnyNamesGivesNamesThatAreAllowedAndDiffer) {
    std::mt19937 random(11);
    const std::wstring characters = L"aA_ 2*!?/\x01\x9F" + kHouse;
    for (int round = 0; round < 300; ++round) {
        Names names;
        for (int i = 0; i < 12; ++i) {
            std::wstring& name = names.emplace_back(round % 3 == 0 ? xs(240 + random() % 20) : L"");
            for (std::size_t length = random() % 5; length > 0; --length)
                name += characters[random() % characters.size()];
        }
        std::set<std::wstring> taken;
        for (const std::wstring& name : names)
            if (engine::checkStateName(name) == Vorn::eOk)
                taken.insert(foldCase(name));
        Drawing drawing = drawingWith(names);
        mendNames(drawing);
        for (const MendedName& name : drawing.mendedNames)
            EXPECT_TRUE(taken.insert(foldCase(name.now)).second) << toUtf8(name.now) << " of " << toUtf8(name.was);
        for (const LayerState& state : drawing.states)
            EXPECT_EQ(engine::checkStateName(state.name), Vorn::eOk) << toUtf8(state.name);
    }
}

TEST(NameMending, ofVeryManyEqualNamesTakesNoLongerForEachThanOfFew) {
    Names names(30'000, L"?");
    for (int i = 0; i < 30'000; ++i)
        names.push_back(L"_ " + std::to_wstring(i));
    const auto start = std::chrono::steady_clock::now();
    const Names after = mended(names);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10)) << "900 million comparisons";
    EXPECT_EQ(after[0], L"_");
    EXPECT_EQ(after[29'999], L"_ 59998");
}

TEST(NameMending, isDoneToAFileThatIsRead) {
    const Drawing drawing = readFile();
    EXPECT_THAT(namesOf(drawing), ElementsAre(L"Ground_floor 3", L"ground_floor 2", L"GROUND_FLOOR", L"Unnamed",
                                              L"tab_here", L"*auto_", L"*auto"));
    EXPECT_THAT(changesOf(drawing), ElementsAre(Pair(L"Ground/floor", L"Ground_floor 3"), Pair(L"", L"Unnamed"),
                                                Pair(L"tab\there", L"tab_here"), Pair(L"*auto!", L"*auto_")));
    EXPECT_EQ(drawing.lastRestored, L"Ground_floor 3");
    EXPECT_EQ(drawing.states[0].columns.colors[1], 3u) << "the state is otherwise as it was";
}

TEST(NameMending, isOverOnceTheDrawingIsSaved) {
    const Drawing drawing = readFile();
    std::vector<std::byte> bytes;
    std::wstring reason;
    ASSERT_EQ(drawingBytes(drawing, bytes, reason), Vorn::eOk) << toUtf8(reason);
    Drawing again;
    ASSERT_EQ(readDrawingBytes(bytes, L"again", again, reason), Vorn::eOk) << toUtf8(reason);
    EXPECT_EQ(difference(again, drawing), "");
    EXPECT_THAT(again.mendedNames, IsEmpty());
}

namespace {

/// A drawing with a reference, and own layers, a linetype and a plot style of these names beside the plain ones.
Drawing drawingWithTable(const Names& layers, const Names& ofReference, const Names& linetypes, const Names& plotStyles,
                         const wchar_t* reference = L"site") {
    Drawing drawing = plainDrawing();
    drawing.references.push_back({reference, L"site.zdr", {}, 1, 0, nullptr});
    auto set = std::make_shared<LayerSet>(*drawing.layerSet);
    const auto add = [&](const std::wstring& name, std::size_t of) {
        drawing.layers.push_back({drawing.names.intern(name), drawing.nextHandle++, L"", of});
        set->names.push_back(drawing.layers.back().name);
    };
    for (const std::wstring& name : layers)
        add(name, kNone);
    for (const std::wstring& name : ofReference)
        add(name, 0);
    for (const std::wstring& name : linetypes)
        drawing.linetypes.push_back({drawing.names.intern(name), drawing.nextHandle++, L"", {}});
    for (const std::wstring& name : plotStyles)
        drawing.plotStyles.push_back({drawing.names.intern(name), drawing.nextHandle++});
    drawing.layerSet = std::move(set);
    return drawing;
}

template <class Things> Names tableNames(const Drawing& drawing, const Things& things) {
    Names names;
    for (const auto& thing : things)
        names.push_back(drawing.names.text(thing.name));
    return names;
}

Names layerNames(Drawing drawing) {
    mendNames(drawing);
    return tableNames(drawing, drawing.layers);
}

} // namespace

TEST(NameMending, ofTheTableLeavesAllowedNamesAlone) {
    Drawing drawing =
        drawingWithTable({L"Walls"}, {L"site!Trees", L"SITE!garden!Lawn"}, {L"site!Dashed", L"gone!Dotted"}, {L"Bold"});
    const Names layers = tableNames(drawing, drawing.layers), linetypes = tableNames(drawing, drawing.linetypes);
    mendNames(drawing);
    EXPECT_EQ(tableNames(drawing, drawing.layers), layers);
    EXPECT_EQ(tableNames(drawing, drawing.linetypes), linetypes) << "also of a reference that is gone";
    EXPECT_THAT(drawing.mendedNames, IsEmpty());
}

TEST(NameMending, givesOwnLayersNamesThatTheDrawingCouldGiveThem) {
    EXPECT_THAT(layerNames(drawingWithTable({L"a/b", L"A_B", L"*x", xs(254) + L"?"}, {}, {}, {})),
                ElementsAre(L"Base", L"a_b 2", L"A_B", L"_x", xs(254) + L"_"));
}

TEST(NameMending, leavesNoOwnLayerInThePlaceOfAReferences) {
    EXPECT_THAT(layerNames(drawingWithTable({L"site!Trees"}, {}, {}, {})), ElementsAre(L"Base", L"site_Trees"));
}

TEST(NameMending, putsTheReferenceInFrontOfItsLayers) {
    EXPECT_THAT(layerNames(drawingWithTable({}, {L"Trees", L"other!Lawn", L"site!a/b", L"site!"}, {}, {})),
                ElementsAre(L"Base", L"site!Trees", L"site!other!Lawn", L"site!a_b", L"site!Unnamed"));
}

TEST(NameMending, ofAReferenceIsFollowedByItsLayers) {
    Drawing drawing = drawingWithTable({}, {L"a/b!Trees", L"a/b!c:d"}, {}, {}, L"a/b");
    mendNames(drawing);
    EXPECT_EQ(drawing.references[0].name, L"a_b");
    EXPECT_THAT(tableNames(drawing, drawing.layers), ElementsAre(L"Base", L"a_b!Trees", L"a_b!c_d"));
    EXPECT_EQ(drawing.mendedNames[0].bearer, Bearer::Reference);
}

TEST(NameMending, ofStylesHoldsForEachPartOfTheirNames) {
    Drawing drawing = drawingWithTable({}, {}, {L"a?b!c<d", L"!"}, {L"x|y"});
    mendNames(drawing);
    EXPECT_THAT(tableNames(drawing, drawing.linetypes), ElementsAre(L"Continuous", L"a_b!c_d", L"Unnamed!Unnamed"));
    EXPECT_THAT(tableNames(drawing, drawing.plotStyles), ElementsAre(L"x_y"));
}

TEST(NameMending, isFollowedByStatesAndColumnsWhichNameWhatWasMended) {
    Drawing drawing = drawingWithTable({L"a/b"}, {}, {L"c/d"}, {});
    const NameId layer = drawing.layers[1].name, linetype = drawing.linetypes[1].name;
    mendNames(drawing);
    EXPECT_EQ(drawing.layers[1].name, layer);
    EXPECT_EQ(drawing.layerSet->names[1], layer) << "numbers of names stay, and with them sets and columns";
    EXPECT_EQ(drawing.names.find(L"A_b"), layer);
    EXPECT_EQ(drawing.names.find(L"c_d"), linetype);
    EXPECT_EQ(drawing.names.find(L"a/b"), kNoName);
}

TEST(NameMending, leavesWhatIsDamagedToWhoeverRefusesIt) {
    const Names damaged = {L"a\nb", xs(256), L""};
    Drawing drawing = drawingWithTable(damaged, {L"site!a\tb"}, {L"c\x1F?"}, {}, L"si\nte");
    mendNames(drawing);
    EXPECT_THAT(tableNames(drawing, drawing.layers),
                ElementsAre(L"Base", damaged[0], damaged[1], damaged[2], L"site!a\tb"));
    EXPECT_THAT(tableNames(drawing, drawing.linetypes), ElementsAre(L"Continuous", L"c\x1F?"));
    EXPECT_EQ(drawing.references[0].name, L"si\nte");
    EXPECT_THAT(drawing.mendedNames, IsEmpty());
}

TEST(NameMending, tellsWhatBoreTheName) {
    Drawing drawing = drawingWithTable({L"a/b"}, {}, {L"A/B"}, {L"p?"});
    mendNames(drawing);
    std::vector<std::pair<std::wstring, Bearer>> told;
    for (const MendedName& name : drawing.mendedNames)
        told.emplace_back(name.now, name.bearer);
    EXPECT_THAT(
        told, ElementsAre(Pair(L"a_b", Bearer::Layer), Pair(L"a_b", Bearer::Linetype), Pair(L"p_", Bearer::PlotStyle)));
}

TEST(NameMending, isDoneToLayersOfAFileThatIsRead) {
    Drawing source = drawingWithTable({L"site-A"}, {L"site!A"}, {}, {});
    const auto three = [](auto& column) {
        const auto value = column[0];
        column = std::remove_reference_t<decltype(column)>({value, value, value});
    };
    forEachColumn(three, source.columns);
    FilePatch file(source);
    file.setText(file.root().layers()->Get(1)->name(), "site?A");
    Drawing drawing;
    std::wstring reason;
    ASSERT_EQ(readDrawingBytes(file.bytes(), L"x", drawing, reason), Vorn::eOk) << toUtf8(reason);
    EXPECT_THAT(tableNames(drawing, drawing.layers), ElementsAre(L"Base", L"site_A", L"site!A"));
}
