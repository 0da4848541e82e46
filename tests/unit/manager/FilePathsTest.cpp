// Paths and addresses as the user gives them.

#include "FilePaths.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::wstring normalized(const wchar_t* path) {
    wchar_t out[kPathLength];
    normalizePath(out, path);
    return out;
}

std::wstring stripped(const wchar_t* path) {
    wchar_t out[kPathLength];
    stripFileUrl(path, out);
    return out;
}

std::wstring folder(const wchar_t* path) {
    wchar_t out[kPathLength];
    const int length = getDirectoryPart(path, out);
    EXPECT_EQ(length, static_cast<int>(std::wcslen(out))) << path;
    return out;
}

std::wstring extension(const wchar_t* path) {
    return extensionOf(path).GetString();
}

TEST(NormalPath, HasBackslashesAndNoneAtItsEnd) {
    EXPECT_EQ(normalized(L"C:/plans/house.las"), L"C:\\plans\\house.las");
    EXPECT_EQ(normalized(L"C:\\plans\\"), L"C:\\plans");
    EXPECT_EQ(normalized(L"C:/plans//"), L"C:\\plans\\") << "one goes";
    EXPECT_EQ(normalized(L""), L"");
    EXPECT_EQ(normalized(nullptr), L"");
    EXPECT_EQ(normalized(L"\\"), L"");
}

TEST(NormalPath, KeepsTheBackslashOfADrivesRoot) {
    EXPECT_EQ(normalized(L"C:\\"), L"C:\\");
    EXPECT_EQ(normalized(L"C:/"), L"C:\\");
    EXPECT_EQ(normalized(L"ab\\"), L"ab") << "three characters, but no drive";
    EXPECT_EQ(normalized(L"AC:\\"), L"AC:") << "no drive's root has four";
}

TEST(NormalPath, KeepsTheSlashesOfAnAddress) {
    EXPECT_EQ(normalized(L"http://plans.example/house.las"), L"http://plans.example/house.las");
    EXPECT_EQ(normalized(L"HTTP://plans.example/a/"), L"HTTP://plans.example/a/");
    EXPECT_EQ(normalized(L"https://plans.example/a"), L"https:\\\\plans.example\\a") << "this one isn't known as one";
}

TEST(NormalPath, TurnsAFileAddressIntoAPath) {
    EXPECT_EQ(normalized(L"file:///C:/plans/house.las"), L"C:\\plans\\house.las");
    EXPECT_EQ(normalized(L"FILE:///C:/plans"), L"FILE:///C:/plans") << "in capitals it stays as it is";
}

TEST(NormalPath, HasAtMost1023Characters) {
    const std::wstring longest(1023, L'x');
    EXPECT_EQ(normalized(longest.c_str()), longest);
    EXPECT_EQ(normalized((longest + L"yz").c_str()), longest);
}

TEST(FileUrl, IsCutOutWhereverItIs) {
    EXPECT_EQ(stripped(L"file:///C:/a"), L"C:\\a");
    EXPECT_EQ(stripped(L"x/file:///y/z"), L"x\\y\\z");
    EXPECT_EQ(stripped(L"file:///"), L"");
    EXPECT_EQ(stripped(L"C:/a"), L"C:/a") << "a text without it stays as it is";
}

TEST(FileUrl, MayBeCutOutInPlace) {
    wchar_t text[kPathLength] = L"ab/file:///cd/ef";
    stripFileUrl(text, text);
    EXPECT_EQ(text, std::wstring(L"ab\\cd\\ef"));
}

TEST(FileUrl, LeavesAtMost1023Characters) {
    const std::wstring longest(1100, L'x');
    EXPECT_EQ(stripped(longest.c_str()).size(), 1023u);
    EXPECT_EQ(stripped((L"file:///" + longest).c_str()).size(), 1023u);
}

TEST(DirectoryPart, IsTheWholeOfWhatNamesAFolder) {
    for (const wchar_t* whole : {L".", L"..", L"a\\", L"a\\.", L"a\\..", L"C:", L"C:.", L"C:.."})
        EXPECT_EQ(folder(whole), whole);
}

TEST(DirectoryPart, IsWhatIsBeforeTheLastSeparator) {
    EXPECT_EQ(folder(L"C:\\plans\\house.las"), L"C:\\plans");
    EXPECT_EQ(folder(L"plans/a/house.las"), L"plans/a");
    EXPECT_EQ(folder(L"plans\\a/house.las"), L"plans\\a");
    EXPECT_EQ(folder(L"plans/a\\house.las"), L"plans/a");
    EXPECT_EQ(folder(L"\\house.las"), L"");
}

TEST(DirectoryPart, OfADriveEndsWithABackslash) {
    EXPECT_EQ(folder(L"C:\\house.las"), L"C:\\");
    EXPECT_EQ(folder(L"C:house.las"), L"C:\\");
    EXPECT_EQ(folder(L"a\\b:c"), L"a\\b:\\") << "the last colon is behind the last separator";
    EXPECT_EQ(folder(L"a:b\\c"), L"a:b");
}

TEST(DirectoryPart, IsEmptyForANameAlone) {
    EXPECT_EQ(folder(L"house.las"), L"");
    EXPECT_EQ(folder(L""), L"");
    EXPECT_EQ(folder(L"..."), L"");
    EXPECT_EQ(folder(L"a.."), L"");
}

TEST(DirectoryPart, HasAtMost1023Characters) {
    const std::wstring name(1200, L'x');
    EXPECT_EQ(folder((name + L"\\").c_str()).size(), 1023u);
    EXPECT_EQ(folder((name + L"\\y").c_str()).size(), 1023u);
    EXPECT_EQ(folder((name + L":y").c_str()).size(), 1023u);
}

TEST(Extension, IsBehindTheLastDotOfTheName) {
    EXPECT_EQ(extension(L"C:\\plans\\house.las"), L"las");
    EXPECT_EQ(extension(L"house.old.LAS"), L"LAS");
    EXPECT_EQ(extension(L"C:\\plans.las\\house"), L"");
    EXPECT_EQ(extension(L"plans.las/house"), L"") << "also with slashes";
    EXPECT_EQ(extension(L"C:\\plans\\\\.las"), L"las");
    EXPECT_EQ(extension(L"house."), L"");
    EXPECT_EQ(extension(L"house"), L"");
    EXPECT_EQ(extension(L""), L"");
    EXPECT_EQ(extension(L"C:\\plans\\"), L"");
}

TEST(End, IsComparedWithCase) {
    EXPECT_TRUE(endsWith(L"house.las", L".las"));
    EXPECT_TRUE(endsWith(L".las", L".las"));
    EXPECT_FALSE(endsWith(L"house.LAS", L".las"));
    EXPECT_FALSE(endsWith(L"las", L".las"));
    EXPECT_FALSE(endsWith(L"house.las ", L".las"));
}

TEST(End, IsNeverAnEmptyOrAMissingOne) {
    EXPECT_FALSE(endsWith(L"house", L""));
    EXPECT_FALSE(endsWith(L"", L""));
    EXPECT_FALSE(endsWith(nullptr, L"a"));
    EXPECT_FALSE(endsWith(L"a", nullptr));
}

} // namespace
