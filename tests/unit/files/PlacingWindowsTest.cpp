// How a new file takes the place of the old one on Windows, told by the calls that are made, also where Wine would do
// otherwise: what belongs to the old file stays, and no failure loses a file.
#include "ReplacementTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zdr;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class PlacingAFile : public ReplacementTest {};

/// An error of ReplaceFile, and whether that may pass.
struct ReplaceFailure {
    DWORD error;
    bool mayPass;
};
constexpr ReplaceFailure kReplaceFailures[] = {
    {ERROR_ACCESS_DENIED, true},
    {ERROR_SHARING_VIOLATION, true},
    {ERROR_UNABLE_TO_REMOVE_REPLACED, true},
    {ERROR_UNABLE_TO_MOVE_REPLACEMENT, true},
    {ERROR_INVALID_PARAMETER, false},
    {ERROR_DISK_FULL, false},
};

} // namespace

TEST_F(PlacingAFile, mergesWhatBelongsToTheFileBesideItAndReplacesItByOneRename) {
    EXPECT_EQ(save(), "");
    expectNew();
    EXPECT_THAT(m_calls.made(),
                ElementsAre("CreateFile(drawing.zdr, rwd)", "CreateFile(#1, new)", "FlushFileBuffers()",
                            "CreateFile(#1, r)", "CreateFile(drawing.zdr, d)", "CreateHardLink(#2, drawing.zdr)",
                            "ReplaceFile(#2, #1, #3, rights are there)", "DeleteFile(#3)",
                            "MoveFileEx(#2, drawing.zdr, replacing, to the disk)"));
}

TEST_F(PlacingAFile, givesANewFileItsNameWithoutReplacingAnything) {
    m_path = m_folder.file(L"other.zdr");
    EXPECT_EQ(save(), "");
    EXPECT_EQ(contentOf(m_path), "new");
    EXPECT_EQ(m_folder.entries(), 2u);
    EXPECT_THAT(m_calls.made(),
                ElementsAre("CreateFile(other.zdr, rwd)", "CreateFile(#1, new)", "FlushFileBuffers()",
                            "CreateFile(#1, r)", "CreateFile(other.zdr, d)", "MoveFileEx(#1, other.zdr, to the disk)"));
    EXPECT_EQ(m_calls.newSecurity, L"none") << "a new file has the rights that its folder gives";
}

TEST_F(PlacingAFile, keepsWhatBelongsToAFileThatCameMeanwhile) {
    DeleteFileW(m_path.c_str());
    m_calls.error = [this](const std::string& call) -> DWORD {
        const bool isFirst = call.starts_with("MoveFileEx(#1,");
        if (isFirst)
            write(m_path, "of another");
        return isFirst ? ERROR_ALREADY_EXISTS : 0;
    };
    EXPECT_EQ(save(), "");
    expectNew();
    EXPECT_EQ(m_calls.count("ReplaceFile"), 1);
}

TEST_F(PlacingAFile, leavesTheOldFileWhateverOfTheMergingFails) {
    for (const ReplaceFailure& failure : kReplaceFailures) {
        SCOPED_TRACE(failure.error);
        const int before = m_calls.count("ReplaceFile");
        failCallsOf("ReplaceFile", failure.error);
        EXPECT_THAT(save(), HasSubstr("can't be written: replacing the old file failed, because of \""));
        expectOld();
        EXPECT_EQ(m_calls.count("ReplaceFile") - before, failure.mayPass ? 50 : 1);
    }
}

TEST_F(PlacingAFile, leavesTheOldFileAlsoWhereItsSecondNameWasMovedAway) {
    m_calls.replace = [](const wchar_t* replaced, const wchar_t*, const wchar_t* backup) -> DWORD {
        EXPECT_TRUE(MoveFileExW(replaced, backup, 0));
        return ERROR_UNABLE_TO_MOVE_REPLACEMENT_2;
    };
    EXPECT_THAT(save(), HasSubstr("replacing the old file failed"));
    expectOld();
    EXPECT_EQ(m_calls.count("ReplaceFile"), 50);
}

TEST_F(PlacingAFile, triesAgainUntilWhatHoldsTheFileIsGone) {
    m_calls.error = [this](const std::string& call) -> DWORD {
        return call.starts_with("ReplaceFile") && m_calls.count("ReplaceFile") < 4 ? ERROR_SHARING_VIOLATION : 0;
    };
    EXPECT_EQ(save(), "");
    expectNew();
    EXPECT_EQ(m_calls.count("ReplaceFile"), 4);
}

TEST_F(PlacingAFile, leavesNoSecondNameBehindThatSomebodyHoldsForAMoment) {
    for (const bool hasOneName : {false, true}) {
        SCOPED_TRACE(hasOneName);
        const int before = m_calls.count("DeleteFile");
        m_calls.error = [this, hasOneName, before](const std::string& call) -> DWORD {
            if (hasOneName && call.starts_with("CreateHardLink"))
                return ERROR_INVALID_FUNCTION;
            return call.starts_with("DeleteFile") && m_calls.count("DeleteFile") - before < 4 ? ERROR_SHARING_VIOLATION
                                                                                              : 0;
        };
        EXPECT_EQ(save(), "");
        expectNew();
    }
}

TEST_F(PlacingAFile, mergesOnceHoweverOftenTheRenameIsTried) {
    m_calls.error = [this](const std::string& call) -> DWORD {
        return call.starts_with("MoveFileEx") && m_calls.count("MoveFileEx") < 4 ? ERROR_ACCESS_DENIED : 0;
    };
    EXPECT_EQ(save(), "");
    expectNew();
    EXPECT_EQ(m_calls.count("ReplaceFile"), 1);
    EXPECT_EQ(m_calls.count("MoveFileEx"), 4);
}

TEST_F(PlacingAFile, leavesTheOldFileWhenTheRenameFails) {
    failCallsOf("MoveFileEx", ERROR_DISK_FULL);
    EXPECT_THAT(save(), HasSubstr("replacing the old file failed"));
    expectOld();
    EXPECT_EQ(m_calls.count("MoveFileEx"), 1);
}

TEST_F(PlacingAFile, takesAnotherSecondNameWhereOneIsTaken) {
    m_calls.error = [](const std::string& call) -> DWORD {
        return call == "CreateHardLink(#2, drawing.zdr)" ? ERROR_ALREADY_EXISTS : 0;
    };
    EXPECT_EQ(save(), "");
    expectNew();
    EXPECT_THAT(m_calls.made(), testing::Contains("ReplaceFile(#3, #1, #4, rights are there)"));
}

TEST_F(PlacingAFile, makesNoSecondNameOfAFileThatWasProtectedMeanwhile) {
    EXPECT_THAT(save([this] { SetFileAttributesW(m_path.c_str(), FILE_ATTRIBUTE_READONLY); }),
                HasSubstr("replacing the old file failed"));
    SetFileAttributesW(m_path.c_str(), FILE_ATTRIBUTE_NORMAL);
    expectOld();
    EXPECT_EQ(m_calls.count("CreateHardLink"), 0);
}

TEST_F(PlacingAFile, worksOnTheFileItselfWhereFilesHaveOneName) {
    failCallsOf("CreateHardLink", ERROR_INVALID_FUNCTION);
    EXPECT_EQ(save(), "");
    expectNew();
    EXPECT_THAT(m_calls.made(),
                ElementsAre("CreateFile(drawing.zdr, rwd)", "CreateFile(#1, new)", "FlushFileBuffers()",
                            "CreateFile(#1, r)", "CreateFile(drawing.zdr, d)", "CreateHardLink(#2, drawing.zdr)",
                            "ReplaceFile(drawing.zdr, #1, #3, rights are there)", "DeleteFile(#3)",
                            "CreateFile(drawing.zdr, w)", "FlushFileBuffers()"));
}

TEST_F(PlacingAFile, leavesTheOnlyNameOfTheOldFileWhateverFails) {
    for (const ReplaceFailure& failure : kReplaceFailures) {
        SCOPED_TRACE(failure.error);
        const int before = m_calls.count("ReplaceFile");
        m_calls.error = [&failure](const std::string& call) -> DWORD {
            if (call.starts_with("CreateHardLink"))
                return ERROR_INVALID_FUNCTION;
            return call.starts_with("ReplaceFile") ? failure.error : 0;
        };
        EXPECT_THAT(save(), HasSubstr("replacing the old file failed"));
        expectOld();
        EXPECT_EQ(m_calls.count("ReplaceFile") - before, failure.mayPass ? 50 : 1);
    }
}

TEST_F(PlacingAFile, movesTheOnlyNameBackWhereItWasMovedAway) {
    failCallsOf("CreateHardLink", ERROR_INVALID_FUNCTION);
    m_calls.replace = [](const wchar_t* replaced, const wchar_t*, const wchar_t* backup) -> DWORD {
        EXPECT_TRUE(MoveFileExW(replaced, backup, 0));
        return ERROR_UNABLE_TO_MOVE_REPLACEMENT_2;
    };
    EXPECT_THAT(save(), HasSubstr("replacing the old file failed"));
    expectOld();
    EXPECT_THAT(m_calls.made(), testing::Contains("MoveFileEx(#3, drawing.zdr, to the disk)"));
    EXPECT_EQ(m_calls.count("ReplaceFile"), 1);
}

TEST_F(PlacingAFile, tellsWhereBothFilesAreWhenTheOldOneCantBeMovedBack) {
    std::wstring oldFile, newFile;
    m_calls.error = [](const std::string& call) -> DWORD {
        if (call.starts_with("CreateHardLink"))
            return ERROR_NOT_SUPPORTED;
        return call.starts_with("MoveFileEx") ? ERROR_DISK_FULL : 0;
    };
    m_calls.replace = [&](const wchar_t* replaced, const wchar_t* replacement, const wchar_t* backup) -> DWORD {
        oldFile = backup;
        newFile = replacement;
        EXPECT_TRUE(MoveFileExW(replaced, backup, 0));
        return ERROR_UNABLE_TO_MOVE_REPLACEMENT_2;
    };
    const std::string reason = save();
    EXPECT_THAT(reason, HasSubstr("lost its name while it was being replaced, because of \""));
    EXPECT_THAT(reason,
                HasSubstr("the old file is now \"" + toUtf8(oldFile) + "\", the new one \"" + toUtf8(newFile) + "\""));
    EXPECT_EQ(contentOf(oldFile), "old");
    EXPECT_EQ(contentOf(newFile), "new");
}
