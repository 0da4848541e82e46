// Saving keeps what belongs to a file on POSIX systems, and refuses where it can't.
#include "FailingCalls.h"
#include "SampleDrawing.h"
#include "TemporaryFolder.h"
#include "files/DrawingFile.h"
#include "files/SystemFile.h"
#include "files/TextCoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace zdr;
using testing::HasSubstr;

namespace {

constexpr uid_t kSomebody = 54321, kSomebodyElse = 54322;
constexpr gid_t kSomeGroup = 54323;

/// The program runs as somebody with no rights of its own while this lives.
class As {
  public:
    explicit As(uid_t user) {
        EXPECT_EQ(setegid(user), 0);
        EXPECT_EQ(seteuid(user), 0);
    }
    ~As() {
        EXPECT_EQ(seteuid(0), 0);
        EXPECT_EQ(setegid(0), 0);
    }
    As(const As&) = delete;
    As& operator=(const As&) = delete;
};

class Umask {
  public:
    explicit Umask(mode_t mask) : m_before(umask(mask)) {}
    ~Umask() { umask(m_before); }
    Umask(const Umask&) = delete;
    Umask& operator=(const Umask&) = delete;

  private:
    mode_t m_before;
};

/// An access list as the kernel takes it: the owner may read and write, `user` read, nobody else anything.
std::string accessListFor(uid_t user) {
    struct Entry {
        std::uint16_t tag, rights;
        std::uint32_t id;
    };
    constexpr std::uint32_t kVersion = 2, kNobody = 0xFFFFFFFF;
    const Entry entries[] = {{1, 6, kNobody}, {2, 4, user}, {4, 0, kNobody}, {16, 4, kNobody}, {32, 0, kNobody}};
    std::string list(reinterpret_cast<const char*>(&kVersion), sizeof(kVersion));
    return list.append(reinterpret_cast<const char*>(entries), sizeof(entries));
}

class SavingKeeps : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(save(), Vorn::eOk) << m_reason;
        m_old = bytesOf(m_path);
    }
    Vorn::ErrorStatus save(const Drawing& drawing = plainDrawing()) {
        std::wstring reason;
        const Vorn::ErrorStatus status = writeDrawingFile(m_path, drawing, reason, m_stamp, Overwrite::Always);
        m_reason = toUtf8(reason);
        return status;
    }
    void expectRefusal(const std::string& reason) {
        EXPECT_EQ(save(sampleDrawing()), Vorn::eFileWriteFailed);
        EXPECT_THAT(m_reason, HasSubstr("can't be written: " + reason));
        EXPECT_EQ(bytesOf(m_path), m_old);
        EXPECT_EQ(m_folder.entries(), 1u) << "something was left beside the file";
    }
    struct stat facts() const {
        return factsOf(m_file);
    }
    static struct stat factsOf(const std::filesystem::path& path) {
        struct stat facts {};
        EXPECT_EQ(stat(path.c_str(), &facts), 0) << path;
        return facts;
    }
    bool setAttribute(const char* name, const std::string& value) const {
        return setxattr(m_file.c_str(), name, value.data(), value.size(), 0) == 0;
    }
    std::string attribute(const char* name) const {
        char room[256];
        const ssize_t length = getxattr(m_file.c_str(), name, room, sizeof(room));
        return length < 0 ? "none" : std::string(room, static_cast<std::size_t>(length));
    }
    /// The rights of the new content beside the file.
    mode_t rightsBeside() const {
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.path()))
            if (entry.path().extension() == ".tmp")
                return factsOf(entry.path()).st_mode & 07777;
        ADD_FAILURE() << "there is nothing beside the file";
        return 0;
    }

    TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.file(L"drawing.zdr");
    const std::filesystem::path m_file = systemPath(m_path);
    FileStamp m_stamp;
    std::string m_reason;
    std::vector<std::byte> m_old;
};

/// The same where it takes an administrator to set the scene.
class SavingKeepsForOthers : public SavingKeeps {
  protected:
    void SetUp() override {
        if (geteuid() != 0)
            GTEST_SKIP() << "only root may give files to others";
        SavingKeeps::SetUp();
        ASSERT_EQ(chmod(m_folder.path().c_str(), 0777), 0);
    }
    void giveTo(uid_t owner, gid_t group, mode_t rights) const {
        ASSERT_EQ(chown(m_file.c_str(), owner, group), 0);
        ASSERT_EQ(chmod(m_file.c_str(), rights), 0);
    }
};

} // namespace

TEST_F(SavingKeeps, theNewContentToItsWriterAloneUntilItHasTheRightsOfTheOld) {
    ASSERT_EQ(chmod(m_file.c_str(), 0644), 0);
    ReplacementFile file(m_path);
    EXPECT_EQ(rightsBeside(), 0600u);
    file.write(m_old);
    EXPECT_EQ(rightsBeside(), 0600u);
    file.flush();
    EXPECT_EQ(rightsBeside(), 0644u);
    file.replace();
    EXPECT_EQ(facts().st_mode & 07777, 0644u);
}

TEST_F(SavingKeeps, forANewFileTheRightsThatAllNewFilesGet) {
    const Umask mask(027);
    std::filesystem::remove(m_file);
    ASSERT_EQ(save(), Vorn::eOk) << m_reason;
    EXPECT_EQ(facts().st_mode & 07777, 0640u);
}

TEST_F(SavingKeeps, theAccessListAndNotTheOneOfTheFolder) {
    if (!setAttribute("system.posix_acl_access", accessListFor(kSomebody)))
        GTEST_SKIP() << "no access lists here";
    const std::string list = attribute("system.posix_acl_access");
    const std::string ofFolder = accessListFor(kSomebodyElse);
    ASSERT_EQ(setxattr(m_folder.path().c_str(), "system.posix_acl_default", ofFolder.data(), ofFolder.size(), 0), 0);
    const mode_t rights = facts().st_mode;
    ASSERT_EQ(save(), Vorn::eOk) << m_reason;
    EXPECT_EQ(attribute("system.posix_acl_access"), list);
    EXPECT_EQ(facts().st_mode, rights);
    {
        const FailingCalls failing("fsetxattr", ENOSPC);
        expectRefusal("keeping its access list failed, because of \"No space left on device\"");
        EXPECT_EQ(failing.count(), 1);
    }
    ASSERT_EQ(removexattr(m_file.c_str(), "system.posix_acl_access"), 0);
    ASSERT_EQ(save(), Vorn::eOk) << m_reason;
    EXPECT_EQ(attribute("system.posix_acl_access"), "none");
}

TEST_F(SavingKeeps, attributesWhateverTheyHold) {
    if (!setAttribute("user.empty", ""))
        GTEST_SKIP() << "no attributes here";
    ASSERT_TRUE(setAttribute("user.note", std::string("two\0parts", 9)));
    ASSERT_EQ(save(), Vorn::eOk) << m_reason;
    EXPECT_EQ(attribute("user.empty"), "");
    EXPECT_EQ(attribute("user.note"), std::string("two\0parts", 9));
    m_old = bytesOf(m_path);
    const FailingCalls failing("fsetxattr", EDQUOT);
    expectRefusal("keeping its attribute \"user.");
}

TEST_F(SavingKeepsForOthers, noAttributeThatTheSystemComputesFromTheContent) {
    constexpr std::uint32_t capability[5] = {0x02000000, 1, 0, 0, 0};
    if (setxattr(m_file.c_str(), "security.capability", capability, sizeof(capability), 0) != 0)
        GTEST_SKIP() << "no capabilities of files here";
    ASSERT_EQ(save(), Vorn::eOk) << m_reason;
    EXPECT_EQ(attribute("security.capability"), "none");
}

TEST_F(SavingKeeps, nothingWhereTheFileSystemKnowsNoAttributes) {
    const FailingCalls failing("listxattr", ENOTSUP), removing("fremovexattr", ENOTSUP);
    EXPECT_EQ(save(), Vorn::eOk) << m_reason;
    EXPECT_EQ(removing.count(), 1);
}

TEST_F(SavingKeeps, attributesThatBecomeMoreWhileTheyAreAskedFor) {
    if (!setAttribute("user.note", "kept"))
        GTEST_SKIP() << "no attributes here";
    // Each time their length is asked for first, and then they are.
    const FailingCalls failing("listxattr", failingAt(2, ERANGE));
    ASSERT_EQ(save(), Vorn::eOk) << m_reason;
    EXPECT_EQ(attribute("user.note"), "kept");
    EXPECT_EQ(failing.count(), 4);
}

TEST_F(SavingKeeps, orRefusesWhatCantBeAsked) {
    for (const int nth : {1, 2}) {
        const FailingCalls failing("listxattr", failingAt(nth, EIO));
        expectRefusal("asking for its attributes failed, because of \"Input/output error\"");
        EXPECT_EQ(failing.count(), nth);
    }
}

TEST_F(SavingKeeps, orRefusesAFileThatCantBeAskedForWhatItHas) {
    const FailingCalls failing("fstat", EIO);
    expectRefusal("asking for its rights failed, because of \"Input/output error\"");
}

TEST_F(SavingKeeps, theOldFileWhereTheNewOneDoesntReachTheDisk) {
    const FailingCalls failing("fsync", EIO);
    expectRefusal("writing to the disk failed, because of \"Input/output error\"");
}

TEST_F(SavingKeeps, itsHandsOffTheNameOfTheNewContentOnceThatHasAnotherOne) {
    const FailingCalls watched("unlink", 0);
    EXPECT_EQ(save(), Vorn::eOk) << m_reason;
    EXPECT_EQ(watched.count(), 0) << "a file of this name would be somebody else's";
}

TEST_F(SavingKeeps, waitingForTheFileAndThenForItsFolder) {
    const FailingCalls watched("fsync", 0);
    EXPECT_EQ(save(), Vorn::eOk) << m_reason;
    EXPECT_EQ(watched.count(), 2);
}

TEST_F(SavingKeeps, orRefusesAListThatTheFolderGaveAndThatCantBeTakenAway) {
    const FailingCalls failing("fremovexattr", EPERM);
    expectRefusal("keeping its access list failed, because of \"Operation not permitted\"");
}

TEST_F(SavingKeeps, orRefusesRightsThatCantBeGiven) {
    const FailingCalls failing("fchmod", EPERM);
    expectRefusal("keeping its rights failed, because of \"Operation not permitted\"");
}

TEST_F(SavingKeeps, orRefusesRightsThatDontLast) {
    const FailingCalls failing("fchmod", 0);
    expectRefusal("its folder can't keep its owner and its rights");
}

TEST_F(SavingKeepsForOthers, ownerAndGroupAndAllRights) {
    giveTo(kSomebody, kSomeGroup, 06751);
    ASSERT_EQ(save(), Vorn::eOk) << m_reason;
    EXPECT_EQ(facts().st_uid, kSomebody);
    EXPECT_EQ(facts().st_gid, kSomeGroup);
    EXPECT_EQ(facts().st_mode & 07777, 06751u);
}

TEST_F(SavingKeepsForOthers, orRefusesAnOwnerThatDoesntLast) {
    giveTo(kSomebody, 0, 0666);
    {
        const FailingCalls failing("fchown", 0);
        expectRefusal("its folder can't keep its owner and its rights");
    }
    giveTo(0, kSomeGroup, 0666);
    const FailingCalls failing("fchown", 0);
    expectRefusal("its folder can't keep its owner and its rights");
}

TEST_F(SavingKeepsForOthers, theOwnerWhereThatIsTheOneWhoSaves) {
    giveTo(kSomebody, kSomebody, 0600);
    const As somebody(kSomebody);
    const FailingCalls none("fchown", EPERM);
    EXPECT_EQ(save(), Vorn::eOk) << m_reason;
    EXPECT_EQ(none.count(), 0);
}

TEST_F(SavingKeepsForOthers, orRefusesTheFileOfAnotherThatItMayWrite) {
    giveTo(kSomebodyElse, kSomebody, 0666);
    const As somebody(kSomebody);
    expectRefusal("keeping its owner failed, because of \"Operation not permitted\"");
}

TEST_F(SavingKeepsForOthers, orRefusesTheFileOfAGroupThatItIsntIn) {
    giveTo(kSomebody, kSomeGroup, 0666);
    const As somebody(kSomebody);
    expectRefusal("keeping its group failed, because of \"Operation not permitted\"");
}

TEST_F(SavingKeepsForOthers, aFileThatItMayNotWriteAsItIs) {
    giveTo(kSomebody, kSomebody, 0444);
    const As somebody(kSomebody);
    expectRefusal("opening the file failed, because of \"Permission denied\"");
}

TEST_F(SavingKeepsForOthers, aFileThatMayNotBeReadApartFromOneThatIsntThere) {
    giveTo(kSomebodyElse, kSomebodyElse, 0600);
    const As somebody(kSomebody);
    Drawing drawing;
    std::wstring reason;
    EXPECT_EQ(readDrawingFile(m_path, drawing, reason), Vorn::eFileUnreadable);
    EXPECT_THAT(toUtf8(reason), HasSubstr("can't be opened for reading: \"Permission denied\""));
    EXPECT_EQ(readDrawingFile(m_path + L"\\drawing.zdr", drawing, reason), Vorn::eFileNotFound);
}

TEST_F(SavingKeepsForOthers, aFileInAFolderThatItMayNotWriteToAsItIs) {
    giveTo(kSomebody, kSomebody, 0644);
    ASSERT_EQ(chmod(m_folder.path().c_str(), 0755), 0);
    const As somebody(kSomebody);
    expectRefusal("making a file in its folder failed, because of \"Permission denied\"");
}
