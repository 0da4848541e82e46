// What the program tells about itself: the licenses are those that the installed packages tell of.

#include "AboutText.h"

#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <sstream>

using testing::HasSubstr;

TEST(AboutText, TellsTheNameAndTheVersionFirst) {
    EXPECT_TRUE(workbench::aboutText().starts_with(L"Kel Workbench " PROJECT_VERSION L"\n"));
}

TEST(AboutText, TellsEveryLibraryWithItsLicense) {
    for (const workbench::Library& library : workbench::libraries())
        EXPECT_THAT(workbench::aboutText(), HasSubstr(std::wstring(library.name) + L": " + library.license + L"\n"));
}

#ifndef _WIN32 // the packages are installed where it is built
namespace {

/// Where a library comes from, and what the package's own file says of its license.
struct Source {
    const char* package;
    const char* copyright;
    const wchar_t* license; ///< that, as About says it
};
const std::map<std::wstring, Source> kSources{
    {L"FlatBuffers", {"libflatbuffers-dev", "License: Apache-2.0\n", L"Apache License 2.0"}},
    {L"libstdc++ and libgcc",
     {"gcc-mingw-w64-x86-64-posix-runtime",
      "GNU General Public License (v3 or later) with version 3.1 of the GCC\n"
      "Runtime Library Exception",
      L"GNU General Public License 3 or later with the GCC Runtime Library Exception 3.1"}},
    {L"mingw-w64 runtime",
     {"mingw-w64-x86-64-dev", "Files: *\nCopyright: 2009-2016 the mingw-w64 project\nLicense: ZPL-2.1\n",
      L"Zope Public License 2.1, parts under others"}},
    {L"winpthreads",
     {"mingw-w64-x86-64-dev",
      "Files: mingw-w64-libraries/winpthreads/*\nCopyright: 2011-2016 mingw-w64 project\nLicense: expat\n",
      L"MIT License, parts under the BSD License"}},
};

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace

TEST(AboutText, TheLicensesAreTheOnesThatThePackagesTellOf) {
    EXPECT_EQ(workbench::libraries().size(), kSources.size());
    for (const workbench::Library& library : workbench::libraries()) {
        const auto source = kSources.find(library.name);
        ASSERT_NE(source, kSources.end()) << testing::PrintToString(std::wstring(library.name));
        EXPECT_STREQ(library.license, source->second.license);
        const std::string path = std::string("/usr/share/doc/") + source->second.package + "/copyright";
        EXPECT_THAT(contentOf(path), HasSubstr(source->second.copyright)) << path;
    }
}
#endif
