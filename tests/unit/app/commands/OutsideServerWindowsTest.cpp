// Drawings on a server. Wine finds the folders of servers in its own; on a Windows these tests have no server.

#include "CommandFixture.h"

#include <cstdlib>

#include <windows.h>

using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using workbench::LookAnswer;

namespace fs = std::filesystem;

namespace {

constexpr const wchar_t* kShared = L"\\\\zdr-server\\plans\\";

/// A server with a folder, while this lives.
class Server {
  public:
    Server() {
        const char* prefix = std::getenv("WINEPREFIX");
        if (!prefix)
            return;
        m_server = fs::path("Z:" + std::string(prefix)) / "dosdevices" / "unc" / "zdr-server";
        fs::remove_all(m_server);
        fs::create_directories(m_server / "plans" / "sites");
    }
    ~Server() {
        std::error_code error;
        fs::remove_all(m_server, error);
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    bool isThere() const { return !m_server.empty(); }

  private:
    fs::path m_server;
};

/// A folder on it whose files have longer paths than the system takes without its own beginning. The library can't list
/// it, so it goes on its own.
class LongFolder {
  public:
    LongFolder() { EXPECT_TRUE(CreateDirectoryW(m_path.c_str(), nullptr)) << GetLastError(); }
    ~LongFolder() {
        DeleteFileW((m_path + L"\\site.zdr").c_str());
        EXPECT_TRUE(RemoveDirectoryW(m_path.c_str())) << GetLastError();
    }
    LongFolder(const LongFolder&) = delete;
    LongFolder& operator=(const LongFolder&) = delete;

    std::wstring site() const { return kShared + m_name + L"\\site.zdr"; }

  private:
    std::wstring m_name = std::wstring(240, L'l');
    std::wstring m_path = L"\\\\?\\UNC\\zdr-server\\plans\\" + m_name;
};

class OutsideServerTest : public CommandFixture {
  protected:
    void SetUp() override {
        if (!server.isThere())
            GTEST_SKIP() << "no Wine, no server";
        run(L"SAVEAS \"" + std::wstring(kShared) + L"sites\\site.zdr\"");
        EXPECT_TRUE(done);
        run(L"NEW");
    }
    void TearDown() override {
        // So that no file of the server is open when it goes.
        window.saveAnswer = workbench::SaveAnswer::Discard;
        run(L"NEW");
    }
    bool isShown(std::size_t reference = 0) const { return drawing().references.at(reference).drawing != nullptr; }

    Server server;
};

} // namespace

TEST_F(OutsideServerTest, ADrawingOnItIsSavedAndOpened) {
    EXPECT_EQ(session.path(), L"");
    EXPECT_EQ(run(L"OPEN //zdr-server/plans/sites/site"), L"Opened \\\\zdr-server\\plans\\sites\\site.zdr.\n");
    EXPECT_EQ(session.name(), L"site.zdr");
    EXPECT_THAT(window.failures, IsEmpty());
    EXPECT_THAT(window.questions, IsEmpty());
}

TEST_F(OutsideServerTest, ADrawingWithALongPathOnItIsSavedAndOpened) {
    const LongFolder folder;
    run(L"SAVEAS " + folder.site());
    EXPECT_TRUE(done);
    run(L"NEW");
    EXPECT_EQ(run(L"OPEN " + folder.site()), L"Opened " + folder.site() + L".\n");
    EXPECT_THAT(window.failures, IsEmpty());
    run(L"NEW"); // so that the file is open no more
}

TEST_F(OutsideServerTest, ADrawingOnItIsSavedOverInAnotherSpellingWithoutAQuestion) {
    run(L"OPEN //zdr-server/plans/sites/site");
    run(L"SAVEAS " + std::wstring(kShared) + L"sites\\site.zdr");
    EXPECT_TRUE(done);
    run(L"SAVEAS //ZDR-SERVER/plans/SITES/site.zdr");
    EXPECT_TRUE(done);
    EXPECT_THAT(window.questions, IsEmpty());
    run(L"SAVEAS //zdr-server/plans/house");
    run(L"SAVEAS //zdr-server/plans/sites/site");
    EXPECT_FALSE(done);
    EXPECT_THAT(window.questions, SizeIs(1)) << "another file stands there";
}

TEST_F(OutsideServerTest, AReferenceToItIsShownAfterYes) {
    run(L"ATTACH " + std::wstring(kShared) + L"sites\\site");
    EXPECT_EQ(drawing().references.at(0).path, std::wstring(kShared) + L"sites\\site.zdr");
    EXPECT_THAT(window.questions, IsEmpty()) << "the path was typed";
    run(L"SAVEAS " + path("house.zdr"));
    window.lookAnswer = LookAnswer::No;
    run(L"OPEN " + path("house.zdr"));
    EXPECT_FALSE(isShown());
    run(L"OUTSIDE FORGET \\\\ZDR-SERVER\\plans\\sites");
    window.lookAnswer = LookAnswer::Yes;
    run(L"OPEN " + path("house.zdr"));
    EXPECT_TRUE(isShown());
    EXPECT_THAT(window.questions, SizeIs(2));
}

TEST_F(OutsideServerTest, DrawingsOnItShowEachOtherWithoutAQuestion) {
    run(L"SAVEAS " + std::wstring(kShared) + L"house.zdr");
    run(L"ATTACH sites\\site.zdr");
    EXPECT_EQ(drawing().references.at(0).path, L"sites\\site.zdr") << "it counts from the drawing";
    run(L"ATTACH \\sites\\site.zdr other");
    run(L"SAVE");
    run(L"OPEN " + std::wstring(kShared) + L"house.zdr");
    ASSERT_EQ(drawing().references.size(), 2u);
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(isShown(1));
    EXPECT_THAT(window.questions, IsEmpty());
}
