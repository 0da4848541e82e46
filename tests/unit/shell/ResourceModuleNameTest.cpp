// The name of the resource module, from paths of all shapes.
#include "ResourceModuleName.h"

#include <gtest/gtest.h>

TEST(ResourceModuleName, ReplacesTheExtensionAndThrowsTheFolderAway) {
    EXPECT_EQ(resourceModuleName(L"C:\\Programs\\Workbench\\KelLayerApps.xmod"), L"KelLayerAppsRes.dll");
}

TEST(ResourceModuleName, KeepsAPathWithoutBackslashWhole) {
    EXPECT_EQ(resourceModuleName(L"KelLayerApps.xmod"), L"KelLayerAppsRes.dll");
    EXPECT_EQ(resourceModuleName(L"C:/Programs/KelLayerApps.xmod"), L"C:/Programs/KelLayerAppsRes.dll");
}

TEST(ResourceModuleName, CutsTheFixedLengthOfTheExtensionWithoutLookingForADot) {
    // Five characters are cut off, wherever the dot is.
    EXPECT_EQ(resourceModuleName(L"C:\\a\\Layers.module"), L"Layers.mRes.dll");
    EXPECT_EQ(resourceModuleName(L"C:\\a\\Layers.db"), L"LayeRes.dll");
}

TEST(ResourceModuleName, FollowsTheModulesOwnFileName) {
    EXPECT_EQ(resourceModuleName(L"D:\\x\\Other.v2.xmod"), L"Other.v2Res.dll");
}

TEST(ResourceModuleName, TakesThePathUpToTheLastBackslashAsTheFolder) {
    EXPECT_EQ(resourceModuleName(L"\\\\server\\share\\KelLayerApps.xmod"), L"KelLayerAppsRes.dll");
    EXPECT_EQ(resourceModuleName(L"C:\\dots.in.folder\\KelLayerApps.xmod"), L"KelLayerAppsRes.dll");
}

TEST(ResourceModuleName, OfAPathShorterThanTheExtensionIsTheSuffixAlone) {
    EXPECT_EQ(resourceModuleName(L"x"), L"Res.dll");
    EXPECT_EQ(resourceModuleName(L""), L"Res.dll");
}
