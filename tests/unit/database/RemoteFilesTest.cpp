// Files on servers: what of the reading of drawings and layer states goes to whoever fetches them.

#include "EngineTest.h"
#include "files/DrawingFile.h"
#include "files/RemoteFiles.h"

#include <filesystem>
#include <fstream>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

namespace fs = std::filesystem;

/// What the fetcher below does and has done; one for the process, since it has no object.
struct Server {
    fs::path file; ///< what each address leads to; empty for nothing
    std::vector<std::wstring> fetched;
    std::vector<fs::path> discarded;
    bool wasThere = false; ///< the file, when it was discarded
} server;

std::wstring fetchFromServer(const std::wstring& address, std::wstring& reason) {
    server.fetched.push_back(address);
    if (server.file.empty())
        reason = L"The server is gone.";
    return server.file.wstring();
}

void discardFetched(const std::wstring& path) {
    server.wasThere = fs::exists(path);
    server.discarded.emplace_back(path);
}

constexpr zdr::RemoteFetcher kFetcher{fetchFromServer, discardFetched};

class RemoteFiles : public EngineTest {
  protected:
    RemoteFiles() {
        server = {};
        fs::create_directories(m_folder);
        EXPECT_EQ(states().saveLayerState(L"Plan", MaskOn), Vorn::eOk);
        EXPECT_EQ(states().exportLayerState(L"Plan", (m_folder / "plan.las").wstring().c_str()), Vorn::eOk);
        EXPECT_EQ(states().deleteLayerState(L"Plan"), Vorn::eOk);
        zdr::FileStamp stamp;
        std::wstring reason;
        EXPECT_EQ(zdr::writeDrawingFile((m_folder / "house.zdr").wstring(), drawing(), reason, stamp), Vorn::eOk);
        zdr::setRemoteFetcher(&kFetcher);
    }
    ~RemoteFiles() override {
        zdr::setRemoteFetcher(nullptr);
        fs::remove_all(m_folder);
    }
    Vorn::ErrorStatus import(const std::wstring& path) {
        m_found.assign(L"?");
        return states().importLayerState(path.c_str(), m_found);
    }
    static Vorn::ErrorStatus read(const std::wstring& path) {
        KelDbDatabase side(false, true);
        return side.readZdrFile(path.c_str(), 64, false, nullptr);
    }
    const fs::path m_folder = fs::temp_directory_path() / "kel-remote-files-test";
    KelString m_found;
};

TEST_F(RemoteFiles, AStateOnAServerIsReadFromItsCopyWhichIsThenDiscarded) {
    server.file = m_folder / "plan.las";
    EXPECT_EQ(import(L"https://server/plan.las"), Vorn::eOk);
    EXPECT_STREQ(m_found.kwszPtr(), L"Plan");
    EXPECT_THAT(stateNames(), ElementsAre(L"Plan"));
    EXPECT_THAT(server.fetched, ElementsAre(L"https://server/plan.las"));
    EXPECT_THAT(server.discarded, ElementsAre(server.file));
}

TEST_F(RemoteFiles, ADrawingOnAServerIsReadFromItsCopyWhichIsThenDiscarded) {
    server.file = m_folder / "house.zdr";
    EXPECT_EQ(read(L"HTTP://server/house.zdr"), Vorn::eOk);
    EXPECT_THAT(server.fetched, ElementsAre(L"HTTP://server/house.zdr"));
    EXPECT_THAT(server.discarded, ElementsAre(server.file));
}

TEST_F(RemoteFiles, APathIsReadWithoutAskingForIt) {
    EXPECT_EQ(import((m_folder / "plan.las").wstring()), Vorn::eOk);
    EXPECT_EQ(read((m_folder / "house.zdr").wstring()), Vorn::eOk);
    for (const wchar_t* path : {L"", L"http", L"http:/server/a.zdr", L"https:\\\\server\\a.zdr", L"ftp://server/a.zdr",
                                L"file:///c:/a.zdr", L"\\\\server\\a.zdr", L"xhttp://server/a.zdr", L"http:/"}) {
        EXPECT_NE(import(path), Vorn::eOk) << path;
        EXPECT_NE(read(path), Vorn::eOk) << path;
    }
    EXPECT_THAT(server.fetched, IsEmpty());
    EXPECT_THAT(server.discarded, IsEmpty());
}

TEST_F(RemoteFiles, WhatCantBeFetchedIsAFileThatCantBeOpened) {
    EXPECT_EQ(import(L"http://server/plan.las"), Vorn::eFileUnreadable);
    EXPECT_TRUE(m_found.isEmpty());
    EXPECT_EQ(engine::lastFileProblem(m_database), L"The server is gone.");
    EXPECT_EQ(read(L"http://server/house.zdr"), Vorn::eFileUnreadable);
    EXPECT_THAT(server.discarded, IsEmpty());
    EXPECT_THAT(stateNames(), IsEmpty());
}

TEST_F(RemoteFiles, TheCopyOfADamagedFileIsDiscardedToo) {
    server.file = m_folder / "text.txt";
    std::ofstream(server.file) << "This is neither.";
    EXPECT_EQ(import(L"http://server/plan.las"), Vorn::eInvalidInput);
    EXPECT_EQ(read(L"http://server/house.zdr"), Vorn::eNotADrawing);
    EXPECT_THAT(server.discarded, ElementsAre(server.file, server.file));
    EXPECT_TRUE(server.wasThere) << "nobody else has deleted it";
}

TEST_F(RemoteFiles, WithoutAnybodyToFetchThemTheyArentThere) {
    zdr::setRemoteFetcher(nullptr);
    EXPECT_EQ(import(L"http://server/plan.las"), Vorn::eFileNotFound);
    EXPECT_EQ(read(L"http://server/house.zdr"), Vorn::eFileNotFound);
    EXPECT_THAT(server.fetched, IsEmpty());
}

TEST_F(RemoteFiles, AnOperationThatIsToFailFetchesNothing) {
    instruments::failCall("importLayerState", 1);
    instruments::failCall("readZdrFile", 1);
    EXPECT_EQ(import(L"http://server/plan.las"), Vorn::eInvalidInput);
    EXPECT_EQ(read(L"http://server/house.zdr"), Vorn::eInvalidInput);
    EXPECT_THAT(server.fetched, IsEmpty());
}

} // namespace
