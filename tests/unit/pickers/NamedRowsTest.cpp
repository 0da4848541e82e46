// The order of linetypes and plot styles, and the row to begin with.

#include "NamedRows.h"

#include "KelDbDatabase.h"

#include <gmock/gmock.h>

using pickers::LinetypeRow;
using pickers::putInOrder;
using pickers::rowOfLinetype;
using pickers::rowOfName;
using testing::ElementsAre;

namespace {

std::vector<std::wstring> namesOf(const std::vector<LinetypeRow>& rows) {
    std::vector<std::wstring> names;
    for (const LinetypeRow& row : rows)
        names.push_back(row.name);
    return names;
}

LinetypeRow dashed(const wchar_t* name) {
    return {name, {}, {}, {1, -1}};
}

} // namespace

TEST(LinetypeRows, standByGroupAndThenByNameWithoutRegardToCase) {
    std::vector<LinetypeRow> rows = {dashed(L"hidden"),
                                     dashed(L"Dashed"),
                                     {L"Plain"},
                                     {L"Continuous"},
                                     dashed(L"CENTER"),
                                     {L"ByLayer", {}, {}, {}, true},
                                     {L"ByBlock", {}, {}, {}, true}};
    putInOrder(rows);
    EXPECT_THAT(namesOf(rows),
                ElementsAre(L"ByLayer", L"ByBlock", L"Continuous", L"Plain", L"CENTER", L"Dashed", L"hidden"));
}

TEST(LinetypeRows, theCurrentOneIsFoundByItsId) {
    KelDbDatabase database;
    std::vector<LinetypeRow> rows = {
        {L"ByLayer", {}, {}, {}, true}, {L"One", database.layerTableId()}, {L"Two", database.linetypeTableId()}};
    EXPECT_EQ(rowOfLinetype(rows, database.linetypeTableId()), 2u);
    EXPECT_EQ(rowOfLinetype(rows, database.clayer()), std::nullopt);
    EXPECT_EQ(rowOfLinetype(rows, {}), std::nullopt) << "no id is the id of by layer";
}

TEST(PlotStyleNames, standByNameWithoutRegardToCase) {
    std::vector<std::wstring> names = {L"screening", L"Normal", L"FINE", L"fine"};
    putInOrder(names);
    EXPECT_THAT(names, ElementsAre(L"FINE", L"fine", L"Normal", L"screening"));
}

TEST(PlotStyleNames, theCurrentOneIsFoundWithoutRegardToCase) {
    const std::vector<std::wstring> names = {L"Fine", L"Normal"};
    EXPECT_EQ(rowOfName(names, L"NORMAL"), 1u);
    EXPECT_EQ(rowOfName(names, L"Norma"), std::nullopt);
    EXPECT_EQ(rowOfName(names, L""), std::nullopt);
}
