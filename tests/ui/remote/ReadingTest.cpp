// Drawings and layer states that the engine reads from a real server.

#include "KelDbDatabase.h"
#include "Nginx.h"
#include "RemoteFixture.h"
#include "TestServer.h"

#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "instruments/HostCalls.h"

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

namespace {

class Reading : public RemoteTest {
  protected:
    Reading() {
        EXPECT_EQ(states().saveLayerState(L"Plan", MaskOn), Vorn::eOk);
        EXPECT_EQ(states().exportLayerState(L"Plan", nginx::file(L"ground floor.las").c_str()), Vorn::eOk);
        std::wstring reason;
        zdr::FileStamp stamp;
        EXPECT_EQ(
            zdr::writeDrawingFile(nginx::file(L"house.zdr").wstring(), engine::drawingOf(m_database), reason, stamp),
            Vorn::eOk);
        EXPECT_EQ(states().deleteLayerState(L"Plan"), Vorn::eOk);
        m_before = temporaryFiles();
    }
    KelDbLayerStateManager& states() { return *m_database.getLayerStateManager(); }
    Vorn::ErrorStatus import(const std::wstring& url) {
        instruments::clearTrace();
        m_name.assign(L"?");
        return states().importLayerState(url.c_str(), m_name);
    }
    static Vorn::ErrorStatus read(const std::wstring& url) {
        KelDbDatabase side(false, true);
        const Vorn::ErrorStatus status = side.readZdrFile(url.c_str(), 64, false, nullptr);
        EXPECT_TRUE(status != Vorn::eOk || side.getLayerStateManager()->hasLayerState(L"Plan"));
        return status;
    }
    /// How many temporary files the service has in the user's folder.
    static std::size_t temporaryFiles() {
        std::size_t count = 0;
        for (const fs::directory_entry& entry : fs::directory_iterator(fs::temp_directory_path()))
            count += entry.path().filename().wstring().starts_with(L"kel-" + std::to_wstring(GetCurrentProcessId()));
        return count;
    }
    /// Nothing was left, and the user has been told by exactly these lines.
    void expectTold(const std::wstring& lines) {
        EXPECT_EQ(printedLines, lines);
        EXPECT_EQ(temporaryFiles(), m_before);
        printedLines.clear();
    }

    KelDbDatabase m_database{true, true};
    KelString m_name;
    std::size_t m_before = 0;
};

TEST_F(Reading, aLayerStateComesFromAServer) {
    EXPECT_EQ(import(nginx::address(L"ground floor.las")), Vorn::eOk) << printed(problem());
    const std::string url = printed(nginx::address(L"ground floor.las"));
    const std::vector<std::string> calls = instruments::trace();
    const std::string made = "CProxyInet.CreateInternetTempFile(\"" + url + "\") = 20000, localName=";
    ASSERT_THAT(calls, SizeIs(5));
    const std::string local = calls[3].substr(made.size());
    EXPECT_THAT(
        calls,
        ElementsAre("getLayerStateManager() = object", "importLayerState(\"" + url + "\") = 0, name=\"Plan\"",
                    "CProxyInet.GetProxyInet() = object", made + local,
                    "CProxyInet.TransferFile(\"" + url + "\", " + local + ", 1, 1) = 20000, localName=" + local));
    EXPECT_STREQ(m_name.kwszPtr(), L"Plan");
    EXPECT_TRUE(states().hasLayerState(L"Plan"));
    expectTold(L"");
}

TEST_F(Reading, aDrawingComesFromAServer) {
    EXPECT_EQ(read(nginx::address(L"house.zdr")), Vorn::eOk) << printed(problem());
    expectTold(L"");
}

TEST_F(Reading, theyComeOverASecureLineFromAServerThatIsTrusted) {
    const nginx::Trust trust;
    EXPECT_EQ(import(nginx::address(L"ground floor.las", nginx::Door::Good)), Vorn::eOk) << printed(problem());
    EXPECT_EQ(read(nginx::address(L"house.zdr", nginx::Door::Good)), Vorn::eOk) << printed(problem());
    expectTold(L"");
    EXPECT_EQ(import(nginx::address(L"ground floor.las", nginx::Door::Expired)), Vorn::eFileUnreadable);
    expectTold(problem() + L"\n");
}

TEST_F(Reading, aStateThatIsThereAlreadyIsNamedAsFromAFile) {
    EXPECT_EQ(states().saveLayerState(L"plan", MaskOn), Vorn::eOk);
    EXPECT_EQ(import(nginx::address(L"ground floor.las")), Vorn::eDuplicateRecordName);
    EXPECT_STREQ(m_name.kwszPtr(), L"Plan");
    expectTold(L"");
}

TEST_F(Reading, aFileThatIsntThereIsToldHereWhereItIsWanted) {
    EXPECT_EQ(import(nginx::address(L"none.las")), Vorn::eFileUnreadable);
    EXPECT_TRUE(m_name.isEmpty());
    EXPECT_THAT(problem(), HasSubstr(L"none.las"));
    expectTold(problem() + L"\n");
    EXPECT_EQ(read(nginx::address(L"none.zdr")), Vorn::eFileUnreadable);
    EXPECT_THAT(problem(), HasSubstr(L"none.zdr"));
    expectTold(problem() + L"\n");
}

TEST_F(Reading, aTransferThatFailsIsToldOnce) {
    for (const std::wstring& url : {nginx::address(L"forbidden/a.las"), nginx::address(L"secret/a.las"),
                                    std::wstring(L"http://h:0/a.las"), std::wstring(L"http://user:word@h/a.las")}) {
        EXPECT_EQ(import(url), Vorn::eFileUnreadable);
        EXPECT_THAT(problem(), testing::Not(IsEmpty()));
        expectTold(problem() + L"\n");
        EXPECT_EQ(read(url), Vorn::eFileUnreadable);
        expectTold(problem() + L"\n");
    }
}

TEST_F(Reading, aLineThatIsCutLeavesNothing) {
    const TestServer server(answers("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{\"name\""));
    EXPECT_EQ(import(server.address()), Vorn::eFileUnreadable);
    EXPECT_FALSE(states().hasLayerState(L"Plan"));
    expectTold(problem() + L"\n");
}

TEST_F(Reading, aFileThatIsDamagedIsRefusedAsOnThisComputer) {
    writeBytes(nginx::file(L"damaged.las"), "{\"name\"");
    writeBytes(nginx::file(L"damaged.zdr"), "This is no drawing.");
    const std::wstring state = nginx::address(L"damaged.las"), drawing = nginx::address(L"damaged.zdr");
    EXPECT_EQ(import(state), Vorn::eInvalidInput);
    EXPECT_THAT(printedLines, StartsWith(L"The file \"" + state + L"\" "));
    expectTold(engine::lastFileProblem(m_database) + L"\n");
    EXPECT_EQ(read(drawing), Vorn::eNotADrawing);
    EXPECT_THAT(printedLines, StartsWith(L"The file \"" + drawing + L"\" "));
    expectTold(printedLines);
}

TEST_F(Reading, aServiceThatFailsIsAFileThatCantBeOpened) {
    instruments::failCall("CProxyInet.GetProxyInet", 1);
    EXPECT_EQ(read(nginx::address(L"house.zdr")), Vorn::eFileUnreadable);
    instruments::failCall("CProxyInet.CreateInternetTempFile", 1);
    EXPECT_EQ(read(nginx::address(L"house.zdr")), Vorn::eFileUnreadable);
    instruments::failCall("CProxyInet.TransferFile", 1);
    EXPECT_EQ(read(nginx::address(L"house.zdr")), Vorn::eFileUnreadable);
    EXPECT_EQ(temporaryFiles(), m_before);
}

} // namespace
