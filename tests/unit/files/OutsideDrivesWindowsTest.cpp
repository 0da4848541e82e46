// Drives as the system lists them. The tests give a free letter to something else for a while.
#include "files/OutsidePaths.h"
#include "files/References.h"
#include "files/SystemFile.h"

#include <gtest/gtest.h>

#include <windows.h>

using Kind = zdr::PathPlace::Kind;

namespace {

/// A letter of a drive that stands for `target` while this lives.
class Drive {
  public:
    Drive(const wchar_t* target, DWORD flags) {
        while (!zdr::driveTarget(m_name[0]).empty())
            --m_name[0];
        EXPECT_TRUE(DefineDosDeviceW(flags, m_name, target)) << GetLastError();
    }
    ~Drive() { DefineDosDeviceW(DDD_REMOVE_DEFINITION, m_name, nullptr); }
    Drive(const Drive&) = delete;
    Drive& operator=(const Drive&) = delete;

    std::wstring name() const { return m_name; }
    std::wstring path() const { return name() + L"\\x.zdr"; }

  private:
    wchar_t m_name[3] = L"Y:";
};

Kind kindOf(const std::wstring& path) {
    return zdr::placeOf(path, zdr::driveTarget).kind;
}

} // namespace

TEST(OutsideDrives, TheDiskOfTheSystemIsHere) {
    EXPECT_NE(zdr::driveTarget(L'C'), L"");
    EXPECT_EQ(kindOf(L"C:\\x.zdr"), Kind::ThisComputer);
}

TEST(OutsideDrives, ALetterThatIsConnectedWithAServerIsOutside) {
    const Drive drive(L"\\Device\\LanmanRedirector\\;Y:0\\server\\share", DDD_RAW_TARGET_PATH);
    EXPECT_EQ(kindOf(drive.path()), Kind::Outside);
}

TEST(OutsideDrives, ALetterForAFolderIsWhereTheFolderIs) {
    {
        const Drive drive(L"C:\\windows", 0);
        EXPECT_EQ(kindOf(drive.path()), Kind::ThisComputer);
    }
    const Drive drive(L"\\\\server\\share", 0);
    EXPECT_EQ(kindOf(drive.path()), Kind::Outside);
}

TEST(OutsideDrives, AFreeLetterIsHere) {
    std::wstring path;
    {
        const Drive drive(L"\\\\server\\share", 0);
        path = drive.path();
    }
    EXPECT_EQ(zdr::driveTarget(path[0]), L"");
    EXPECT_EQ(kindOf(path), Kind::ThisComputer);
}

TEST(OutsideDrives, ADrawingInTheOwnFolderOfADriveIsFoundToReferToItself) {
    const Drive drive(L"\\\\server\\share", 0);
    zdr::Drawing drawing;
    drawing.references.push_back({.name = L"again", .path = drive.name() + L".\\x.zdr"});
    std::vector<zdr::ReferenceProblem> problems;
    zdr::resolveReferences(drawing, drive.name() + L"x.zdr", problems);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems[0].reason,
              L"The file \"" + drive.name() + L".\\x.zdr\" isn't shown here, because it refers to itself.");
}
