// The numbers of the manager's controls and texts. Resource modules in other languages are made and shipped on their
// own, and wouldn't fit the module any more if a number changed.
#include "resource.h"

#include <gtest/gtest.h>

#include <utility>

TEST(ResourceIds, OfTheManagersControlsStandForGood) {
    constexpr std::pair<int, int> rows[] = {
        {IDD_LSTATE_RES, 201},
        {IDC_LSTATE_RES_LIST, 1002},
        {IDC_LSTATE_RES_NEW, 1003},
        {IDC_LSTATE_RES_DELETE, 1004},
        {IDC_LSTATE_RES_IMPORT, 1005},
        {IDC_LSTATE_RES_EXPORT, 1006},
        {IDC_LSTATE_RES_PANEL, 1007},
        {IDC_LSTATE_RES_SELECTALL, 1018},
        {IDC_LSTATE_RES_CLEARALL, 1019},
        {IDC_LSTATE_RES_LAYERNOTFOUND, 1020},
        {IDC_LSTATE_RES_RESTORE, 1021},
        {IDC_LSTATE_RES_CLOSE, 1022},
        {IDC_LSTATE_RES_UPDATE, 1023},
        {IDC_LSTATE_RES_HIDEXREFS, 1024},
        {IDC_LSTATE_RES_RENAME, 1026},
        {IDC_LSTATE_RES_EDIT, 1027},
        {IDC_LSTATE_RES_OVERRIDES, 1028},
        {IDC_LSTATE_RES_CURRENT, 1039},
        {IDC_LSTATE_RES_EXPAND, 1325},
        {IDC_LSTATE_INPLACE_EDIT, 1973},
        {ID_HELP, 57670},
    };
    for (const auto& [id, number] : rows)
        EXPECT_EQ(id, number);
}

TEST(ResourceIds, OfTheManagersTextsStandForGood) {
    constexpr std::pair<int, int> rows[] = {
        {IDS_LSTATE_COMMAND, 120},
        {IDS_LSTATE_COLUMN_NAME, 114},
        {IDS_LSTATE_COLUMN_SPACE, 115},
        {IDS_LSTATE_COLUMN_SAME, 132},
        {IDS_LSTATE_COLUMN_DESCRIPTION, 116},
        {IDS_LSTATE_CONTRACT, 131},
        {IDS_LSTATE_EXPAND, 119},
        {IDS_LSTATE_CURRENT_STATE, 165},
        {IDS_LSTATE_NONE, 186},
        {IDS_LSTATE_YES, 162},
        {IDS_LSTATE_NO, 163},
        {IDS_LSTATE_SPACE_VIEWPORT, 188},
        {IDS_LSTATE_SPACE_REFERENCE, 189},
        {IDS_LSTATE_STYLE_MISSING, 110},
        {IDS_LSTATE_REFERENCE_UNRESOLVED, 111},
        {IDS_LSTATE_CURRENT_LAYER_NO_FREEZE, 125},
    };
    for (const auto& [id, number] : rows)
        EXPECT_EQ(id, number);
}
