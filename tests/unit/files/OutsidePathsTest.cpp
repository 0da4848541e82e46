// Which spellings of a path lead out of this computer.
#include "files/OutsidePaths.h"
#include "files/TextCoding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using zdr::PathPlace;
using Kind = zdr::PathPlace::Kind;

namespace {

/// Drives as a Windows may have them.
std::wstring targetOf(wchar_t letter) {
    static const std::map<wchar_t, std::wstring> targets = {
        {L'C', L"\\Device\\HarddiskVolume3"},
        {L'D', L"\\Device\\CdRom0"},
        {L'E', L"\\??\\C:\\plans"},
        {L'F', L"\\??\\E:"},
        {L'L', L"\\??\\M:\\"},
        {L'M', L"\\??\\L:\\"},
        {L'N', L"\\Device\\LanmanRedirector\\;N:00000000000a1b2c\\server\\share"},
        {L'O', L"\\device\\mup\\server\\share"},
        {L'P', L"\\Device\\VBoxMiniRdr\\;P:\\VBoxSvr\\share"},
        {L'Q', L"\\??\\UNC\\server\\share"},
        {L'R', L"\\??\\N:\\plans"},
        {L'S', L"\\??\\GLOBALROOT\\Device\\Mup\\server\\share"},
        {L'T', L"\\Device\\LanmanRedirector"},
    };
    const auto found = targets.find(letter);
    return found == targets.end() ? std::wstring() : found->second;
}

PathPlace placeOf(std::wstring_view path) {
    return zdr::placeOf(path, targetOf);
}

struct Row {
    std::wstring path;
    std::wstring computer, folder;
};

void expectOutside(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        const PathPlace place = placeOf(row.path);
        EXPECT_EQ(place.kind, Kind::Outside) << zdr::toUtf8(row.path);
        EXPECT_EQ(place.computer, row.computer) << zdr::toUtf8(row.path);
        EXPECT_EQ(place.folder, row.folder) << zdr::toUtf8(row.path);
    }
}

/// The path of a reference, with `\` on every system.
std::wstring referencePath(const std::wstring& drawing, const std::wstring& path) {
    std::wstring joined = zdr::referencePath(drawing, path);
    std::ranges::replace(joined, L'/', L'\\');
    return joined;
}

bool areOnOneComputer(std::wstring_view one, std::wstring_view other) {
    return zdr::areOnOneComputer(placeOf(one), placeOf(other));
}

} // namespace

TEST(OutsidePaths, AServerIsOutsideHoweverItIsSpelled) {
    expectOutside({
        {L"\\\\server\\share\\plans\\x.zdr", L"server", L"\\\\server\\share\\plans"},
        {L"//server/share/plans/x.zdr", L"server", L"\\\\server\\share\\plans"},
        {L"/\\server/share\\x.zdr", L"server", L"\\\\server\\share"},
        {L"\\/server\\share/x.zdr", L"server", L"\\\\server\\share"},
        {L"\\\\\\server\\\\share\\\\x.zdr", L"server", L"\\\\server\\share"},
        {L"\\\\192.168.0.7\\c$\\x.zdr", L"192.168.0.7", L"\\\\192.168.0.7\\c$"},
        {L"\\\\server@SSL@443\\DavWWWRoot\\x.zdr", L"server@SSL@443", L"\\\\server@SSL@443\\DavWWWRoot"},
        {L"\\\\localhost\\c$\\x.zdr", L"localhost", L"\\\\localhost\\c$"},
        {L"\\\\server", L"server", L"\\\\"},
        {L"\\\\server\\x.zdr", L"server", L"\\\\server"},
        {L"\\\\", L"", L"\\\\"},
        {L"\\\\?server\\share\\x.zdr", L"?server", L"\\\\?server\\share"},
        {L"\\\\..\\evil\\share\\x.zdr", L"..", L"\\\\..\\evil\\share"},
        {std::wstring(L"\\\\server\\share\0\\x.zdr", 21), L"server", std::wstring(L"\\\\server\\share\0", 15)},
    });
}

TEST(OutsidePaths, DotsInAPathDontLeaveTheFolderOfTheServer) {
    expectOutside({
        {L"\\\\server\\share\\a\\.\\b\\..\\x.zdr", L"server", L"\\\\server\\share\\a"},
        {L"\\\\server\\share\\..\\..\\..\\evil\\share\\x.zdr", L"server", L"\\\\server\\share\\evil\\share"},
        {L"\\\\server\\..\\evil\\x.zdr", L"server", L"\\\\server\\..\\evil"},
    });
}

TEST(OutsidePaths, TheSystemsOwnSpellingOfAServerIsThatServer) {
    expectOutside({
        {L"\\\\?\\UNC\\server\\share\\plans\\x.zdr", L"server", L"\\\\server\\share\\plans"},
        {L"\\\\?\\unc\\server\\share\\x.zdr", L"server", L"\\\\server\\share"},
        {L"\\\\?\\UNC\\?\\C:\\x.zdr", L"?", L"\\\\?\\C:"},
    });
}

// Behind these prefixes a path may lead through any name that the system knows, and `..` may take one of them away.
TEST(OutsidePaths, WhatOnlyTheSystemCanTellIsOutside) {
    const std::pair<const wchar_t*, const wchar_t*> rows[] = {
        {L"\\\\.\\C:\\plans\\x.zdr", L"\\\\.\\C:\\plans"},
        {L"\\\\.\\UNC\\server\\share\\x.zdr", L"\\\\.\\UNC\\server\\share"},
        {L"\\\\.\\pipe\\x.zdr", L"\\\\.\\pipe"},
        {L"\\\\.\\C:\\a\\..\\..\\UNC\\b\\x.zdr", L"\\\\.\\C:\\a\\..\\..\\UNC\\b"},
        {L"//./C:/x.zdr", L"\\\\.\\C:"},
        {L"//?/C:/x.zdr", L"\\\\?\\C:"},
        {L"//?/C:/../UNC/server/share/x.zdr", L"\\\\?\\C:\\..\\UNC\\server\\share"},
        {L"\\\\?\\C:/x.zdr", L"\\\\?\\C:"},
        {L"\\\\?\\C:\\..\\UNC\\server\\share\\x.zdr", L"\\\\?\\C:\\..\\UNC\\server\\share"},
        {L"\\\\?\\C:\\.\\x.zdr", L"\\\\?\\C:\\."},
        {L"\\\\?\\C:", L"\\\\?"},
        {L"\\\\?\\C:x.zdr", L"\\\\?"},
        {L"\\\\?\\GLOBALROOT\\Device\\Mup\\server\\share\\x.zdr", L"\\\\?\\GLOBALROOT\\Device\\Mup\\server\\share"},
        {L"\\\\?\\Volume{01234567-0123-0123-0123-0123456789ab}\\x.zdr",
         L"\\\\?\\Volume{01234567-0123-0123-0123-0123456789ab}"},
        {L"\\\\?\\x.zdr", L"\\\\?"},
        {L"\\\\\\?\\C:\\x.zdr", L"\\\\\\?\\C:"},
        {L"\\\\?", L"\\"},
        {L"\\??\\UNC\\server\\share\\x.zdr", L"\\??\\UNC\\server\\share"},
        {L"\\??\\C:\\x.zdr", L"\\??\\C:"},
        {L"/?\?/UNC/server/share/x.zdr", L"\\??\\UNC\\server\\share"},
    };
    for (const auto& [path, folder] : rows)
        expectOutside({{path, folder, folder}});
}

TEST(OutsidePaths, WhatIsOnADiskHereIsNotOutside) {
    for (const wchar_t* path : {
             L"x.zdr",
             L"..\\..\\..\\x.zdr",
             L"plans/x.zdr",
             L"\\plans\\x.zdr",
             L"/plans//server/x.zdr",
             L"C:\\x.zdr",
             L"c:/plans/x.zdr",
             L"C:x.zdr",
             L"C:\\\\server\\share\\x.zdr",
             L"C:\\plans\\..\\..\\\\server\\share\\x.zdr",
             L"C://server/share/x.zdr",
             L"D:\\x.zdr",
             L"E:\\x.zdr",
             L"F:\\x.zdr",
             L"Z:\\x.zdr",
             L"\\\\?\\C:\\plans\\x.zdr",
             L"site.zdr:stream",
             L"\uFF3C\uFF3Cserver\uFF3Cshare\\x.zdr",
             L" \\\\server\\share\\x.zdr",
             L"?\\x.zdr",
             L"UNC\\server\\share\\x.zdr",
             L"",
             L"\\",
         })
        EXPECT_EQ(placeOf(path).kind, Kind::ThisComputer) << zdr::toUtf8(path);
}

TEST(OutsidePaths, ADriveThatStandsForAServerIsOutside) {
    expectOutside({
        {L"N:\\plans\\x.zdr", L"N:", L"N:\\plans"},
        {L"n:/plans/../x.zdr", L"n:", L"n:\\"},
        {L"N:x.zdr", L"N:", L"N:"},
        {L"N:plans\\x.zdr", L"N:", L"N:\\plans"},
        {L"N:\\..\\..\\x.zdr", L"N:", L"N:\\"},
        {L"\\\\?\\N:\\plans\\x.zdr", L"N:", L"N:\\plans"},
        {L"O:\\x.zdr", L"O:", L"O:\\"},
        {L"P:\\x.zdr", L"P:", L"P:\\"},
        {L"Q:\\x.zdr", L"Q:", L"Q:\\"},
        {L"R:\\x.zdr", L"R:", L"R:\\"},
        {L"S:\\x.zdr", L"S:", L"S:\\"},
        {L"T:\\x.zdr", L"T:", L"T:\\"},
        {L"L:\\x.zdr", L"L:", L"L:\\"}, // in a circle
    });
}

TEST(OutsidePaths, AnAddressIsNoPath) {
    for (const wchar_t* path : {L"http://server/x.zdr", L"HTTPS://server/x.zdr", L"https:\\\\server\\x.zdr",
                                L"file://server/share/x.zdr", L"file:///C:/x.zdr", L"file:\\\\server\\share\\x.zdr",
                                L"http:/server/x.zdr", L"ab://server/x.zdr", L"svn+ssh://server/x.zdr"})
        EXPECT_EQ(placeOf(path).kind, Kind::Address) << zdr::toUtf8(path);
    for (const wchar_t* path : {L"h:/server/x.zdr", L"1a://server/x.zdr", L"a b://server/x.zdr", L"://server", L"http:",
                                L"http:x.zdr", L"plans\\http://x.zdr"})
        EXPECT_EQ(placeOf(path).kind, Kind::ThisComputer) << zdr::toUtf8(path);
}

TEST(OutsidePaths, OneComputerIsOneNameOfAServerOrOneDrive) {
    EXPECT_TRUE(areOnOneComputer(L"\\\\server\\plans\\x.zdr", L"//SERVER/other/y.zdr"));
    EXPECT_TRUE(areOnOneComputer(L"\\\\?\\UNC\\server\\plans\\x.zdr", L"\\\\server\\plans\\y.zdr"));
    EXPECT_TRUE(areOnOneComputer(L"N:\\x.zdr", L"n:\\plans\\y.zdr"));
    EXPECT_TRUE(areOnOneComputer(L"\\\\.\\C:\\plans\\x.zdr", L"\\\\.\\C:\\plans\\y.zdr"));
    EXPECT_FALSE(areOnOneComputer(L"\\\\server\\plans\\x.zdr", L"\\\\server2\\plans\\x.zdr"));
    EXPECT_FALSE(areOnOneComputer(L"\\\\server\\plans\\x.zdr", L"\\\\server@8080\\plans\\x.zdr"));
    EXPECT_FALSE(areOnOneComputer(L"\\\\.\\C:\\plans\\x.zdr", L"\\\\.\\C:\\plans\\..\\..\\UNC\\server\\share\\y.zdr"));
    EXPECT_FALSE(areOnOneComputer(L"C:\\x.zdr", L"C:\\x.zdr")) << "outside none of them is";
    EXPECT_FALSE(areOnOneComputer(L"\\\\", L"\\\\")) << "there is no name";
    EXPECT_FALSE(areOnOneComputer(L"http://server/x.zdr", L"http://server/x.zdr"));
}

TEST(OutsidePaths, APathOfAReferenceCountsFromItsDrawing) {
    const struct {
        const wchar_t *drawing, *path, *expected;
    } rows[] = {
        {L"C:\\plans\\a.zdr", L"b.zdr", L"C:\\plans\\b.zdr"},
        {L"C:\\plans\\a.zdr", L"..\\b.zdr", L"C:\\plans\\..\\b.zdr"},
        {L"C:/plans/a.zdr", L"sub/b.zdr", L"C:\\plans\\sub\\b.zdr"},
        {L"C:\\plans\\a.zdr", L"\\b.zdr", L"C:\\b.zdr"},
        {L"C:\\plans\\a.zdr", L"D:\\b.zdr", L"D:\\b.zdr"},
        {L"C:\\plans\\a.zdr", L"C:\\b.zdr", L"C:\\b.zdr"},
        {L"C:\\plans\\a.zdr", L"c:b.zdr", L"C:\\plans\\b.zdr"},
        {L"C:\\plans\\a.zdr", L"D:b.zdr", L"D:b.zdr"},
        {L"C:a.zdr", L"b.zdr", L"C:b.zdr"},
        {L"a.zdr", L"b.zdr", L"b.zdr"},
        {L"a.zdr", L"C:b.zdr", L"C:b.zdr"},
        {L"", L"b.zdr", L"b.zdr"},
        {L"a.zdr", L"\\b.zdr", L"\\b.zdr"},
        {L"C:\\plans\\a.zdr", L"\\\\server\\share\\b.zdr", L"\\\\server\\share\\b.zdr"},
        {L"C:\\plans\\a.zdr", L"/\\server/share/b.zdr", L"\\\\server\\share\\b.zdr"},
        {L"C:\\plans\\a.zdr", L"\\??\\UNC\\server\\b.zdr", L"\\??\\UNC\\server\\b.zdr"},
        {L"C:\\plans\\a.zdr", L"http://server/b.zdr", L"http:\\\\server\\b.zdr"},
        {L"\\\\server\\share\\plans\\a.zdr", L"b.zdr", L"\\\\server\\share\\plans\\b.zdr"},
        {L"\\\\server\\share\\plans\\a.zdr", L"..\\..\\..\\b.zdr", L"\\\\server\\share\\plans\\..\\..\\..\\b.zdr"},
        {L"\\\\server\\share\\plans\\a.zdr", L"\\b.zdr", L"\\\\server\\share\\b.zdr"},
        {L"\\\\server\\share\\plans\\a.zdr", L"C:\\b.zdr", L"C:\\b.zdr"},
        {L"\\\\?\\C:\\plans\\a.zdr", L"\\b.zdr", L"\\\\?\\C:\\b.zdr"},
        {L"\\\\?\\UNC\\server\\share\\plans\\a.zdr", L"\\b.zdr", L"\\\\?\\UNC\\server\\share\\b.zdr"},
        {L"\\\\server", L"\\b.zdr", L"\\b.zdr"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(referencePath(row.drawing, row.path), row.expected)
            << zdr::toUtf8(row.drawing) << ", " << zdr::toUtf8(row.path);
}

TEST(OutsidePaths, ATypedPathOfAServerIsFullAndHasOneSpelling) {
    for (const wchar_t* path :
         {L"\\\\server\\share\\x.zdr", L"//server/share/x.zdr", L"/\\server\\share/x.zdr", L"//server//share/./x.zdr",
          L"\\\\server\\share\\plans\\..\\x.zdr", L"//server/share/../../x.zdr"})
        EXPECT_EQ(zdr::fullPath(path), L"\\\\server\\share\\x.zdr") << zdr::toUtf8(path);
    EXPECT_EQ(zdr::fullPath(L"//server/share/plans/"), L"\\\\server\\share\\plans\\");
    EXPECT_EQ(zdr::fullPath(L"//server/share/plans/.."), L"\\\\server\\share");
    EXPECT_EQ(zdr::fullPath(L"//"), L"\\\\");
    const std::filesystem::path here = std::filesystem::current_path();
    EXPECT_EQ(zdr::fullPath(L"plans/../x.zdr"), zdr::widePath(here / "x.zdr"));
}

TEST(OutsidePaths, WhatOnlyTheSystemCanResolveStaysAsItWasTyped) {
    for (const wchar_t* path :
         {L"\\\\?\\C:\\x.zdr", L"//?/C:/plans/../x.zdr", L"\\\\.\\pipe\\x", L"\\??\\UNC\\server\\x.zdr"})
        EXPECT_EQ(zdr::fullPath(path), path);
}

TEST(OutsidePaths, ArePathsOfOneFileInAnySpelling) {
    using zdr::isSamePath;
    EXPECT_TRUE(isSamePath(L"C:\\plans\\a.zdr", L"c:/PLANS/A.zdr"));
    EXPECT_TRUE(isSamePath(L"\\\\server\\b\u00FCro\\a.zdr", L"//SERVER/B\u00DCRO/a.zdr"));
    EXPECT_FALSE(isSamePath(L"C:\\a.zdr", L"C:\\a.zd"));
    EXPECT_FALSE(isSamePath(L"C:\\a.zdr", L"D:\\a.zdr"));
    EXPECT_FALSE(isSamePath(L"", L"a.zdr"));
}
