// The statuses that importing and exporting tell apart, each caused by a real file or a real drawing.
#include "../database/EngineTest.h"
#include "../files/TemporaryFolder.h"

#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <fstream>

#if defined(_WIN32)
#include <windows.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

/// A file that nobody may read while it lives: locked on Windows, without permissions elsewhere.
class UnreadableFile {
  public:
    explicit UnreadableFile(const std::wstring& path) : m_path(zdr::systemPath(path)) {
#if defined(_WIN32)
        m_handle = CreateFileW(m_path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
#else
        chmod(m_path.c_str(), 0);
#endif
    }
    ~UnreadableFile() {
#if defined(_WIN32)
        CloseHandle(m_handle);
#else
        chmod(m_path.c_str(), 0600);
#endif
    }
    UnreadableFile(const UnreadableFile&) = delete;
    UnreadableFile& operator=(const UnreadableFile&) = delete;
    /// The system's administrator on Linux may read everything.
    static bool isPossible() {
#if defined(_WIN32)
        return true;
#else
        return geteuid() != 0;
#endif
    }

  private:
    std::filesystem::path m_path;
#if defined(_WIN32)
    HANDLE m_handle;
#endif
};

class ExchangeStatus : public EngineTest {
  protected:
    ExchangeStatus() {
        states().saveLayerState(L"Plan", MaskAllProperties);
        std::wstring reason;
        zdr::FileStamp stamp;
        EXPECT_EQ(zdr::writeDrawingFile(m_drawing, drawing(), reason, stamp), Vorn::eOk);
        EXPECT_EQ(states().exportLayerState(L"Plan", m_state.c_str()), Vorn::eOk);
    }
    Vorn::ErrorStatus read(const std::wstring& path) {
        KelDbDatabase scratch(false, true);
        const Vorn::ErrorStatus status = scratch.readZdrFile(path.c_str(), 64, false, nullptr);
        m_problem = zdr::toUtf8(engine::lastFileProblem(scratch));
        return status;
    }
    Vorn::ErrorStatus import(const std::wstring& path) {
        KelString name(L"?");
        const Vorn::ErrorStatus status = states().importLayerState(path.c_str(), name);
        m_found = name.kwszPtr();
        m_problem = zdr::toUtf8(engine::lastFileProblem(m_database));
        return status;
    }
    /// Takes some bytes off the end of a file.
    static void shorten(const std::wstring& path, std::uintmax_t bytes) {
        std::filesystem::resize_file(zdr::systemPath(path), std::filesystem::file_size(zdr::systemPath(path)) - bytes);
    }
    static void overwrite(const std::wstring& path, std::string_view text) {
        writeBytes(path, std::as_bytes(std::span(text)));
    }

    const TemporaryFolder m_folder;
    const std::wstring m_drawing = m_folder.file(L"plan.zdr"), m_state = m_folder.file(L"plan.las");
    std::wstring m_found;
    std::string m_problem;
};

} // namespace

TEST_F(ExchangeStatus, ADrawingIsReadWhateverItsExtensionIs) {
    for (const wchar_t* name : {L"plan.zds", L"plan.zdt", L"copy.ZDR", L"copy"}) {
        std::filesystem::copy_file(zdr::systemPath(m_drawing), zdr::systemPath(m_folder.file(name)));
        EXPECT_EQ(read(m_folder.file(name)), Vorn::eOk) << m_problem;
    }
}

TEST_F(ExchangeStatus, AFolderIsUnreadable) {
    EXPECT_EQ(static_cast<int>(read(zdr::widePath(m_folder.path()))), 190);
    EXPECT_EQ(static_cast<int>(import(zdr::widePath(m_folder.path()))), 190);
    EXPECT_EQ(m_found, L"");
}

TEST_F(ExchangeStatus, AFileThatMayNotBeReadIsUnreadable) {
    if (!UnreadableFile::isPossible())
        GTEST_SKIP() << "this user may read everything";
    const UnreadableFile drawing(m_drawing), state(m_state);
    EXPECT_EQ(static_cast<int>(read(m_drawing)), 190);
    EXPECT_EQ(static_cast<int>(import(m_state)), 190);
}

TEST_F(ExchangeStatus, EveryOtherReasonHasAStatusOfItsOwn) {
    EXPECT_EQ(read(m_folder.file(L"gone.zdr")), Vorn::eFileNotFound);
    EXPECT_EQ(import(m_folder.file(L"gone.las")), Vorn::eFileNotFound);
    EXPECT_EQ(read(m_state), Vorn::eNotADrawing);
    EXPECT_EQ(import(m_drawing), Vorn::eInvalidInput);
    shorten(m_drawing, 1);
    EXPECT_EQ(read(m_drawing), Vorn::eFileCutOff);
    overwrite(m_state, "{\"layerStateFile\": 3}");
    EXPECT_EQ(import(m_state), Vorn::eNewerVersion);
}

TEST_F(ExchangeStatus, AFailedReadLeavesTheScratchDatabaseWithoutStates) {
    shorten(m_drawing, 1);
    KelDbDatabase scratch(false, true);
    EXPECT_EQ(scratch.readZdrFile(m_drawing.c_str(), 64, false, nullptr), Vorn::eFileCutOff);
    KelArray<KelString> names;
    EXPECT_EQ(scratch.getLayerStateManager()->getLayerStateNames(names, true, true), Vorn::eOk);
    EXPECT_EQ(names.length(), 0);
}

TEST_F(ExchangeStatus, AnImportedNameThatStandsIs23AndIsTold) {
    EXPECT_EQ(static_cast<int>(import(m_state)), 23);
    EXPECT_EQ(m_found, L"Plan");
    // Replacing: the state is deleted and the same file read once more.
    EXPECT_EQ(states().deleteLayerState(m_found.c_str()), Vorn::eOk);
    EXPECT_EQ(import(m_state), Vorn::eOk);
    EXPECT_EQ(m_found, L"Plan");
    EXPECT_EQ(stateNames(), std::vector<std::wstring>{L"Plan"});
}

TEST_F(ExchangeStatus, AClashWithADatabaseIs23) {
    KelDbDatabase source(false, true);
    ASSERT_EQ(source.readZdrFile(m_drawing.c_str(), 64, false, nullptr), Vorn::eOk);
    EXPECT_EQ(static_cast<int>(states().importLayerStateFromDb(L"PLAN", &source)), 23);
    EXPECT_EQ(states().deleteLayerState(L"Plan"), Vorn::eOk);
    EXPECT_EQ(states().importLayerStateFromDb(L"PLAN", &source), Vorn::eOk);
    EXPECT_EQ(stateNames(), std::vector<std::wstring>{L"Plan"});
}

TEST_F(ExchangeStatus, AStateOfAReferenceIsNotImportedFromItsHost) {
    zdr::Drawing withReference = makeDrawing();
    withReference.references.push_back({L"site", L"plan.zdr", {}, 1, 0, nullptr});
    auto site = std::make_shared<zdr::Drawing>();
    std::wstring reason;
    ASSERT_EQ(zdr::readDrawingFile(m_drawing, *site, reason), Vorn::eOk);
    withReference.references[0].drawing = site;
    KelDbDatabase source(false, false);
    engine::replaceDrawing(source, std::move(withReference));
    EXPECT_EQ(states().importLayerStateFromDb(L"site!Plan", &source), Vorn::eDependentRecord);
}

TEST_F(ExchangeStatus, AnExportReplacesOnlyWhatMayBeReplaced) {
    EXPECT_EQ(states().exportLayerState(L"Plan", m_state.c_str()), Vorn::eOk);
    EXPECT_EQ(states().exportLayerState(L"Plan", m_folder.file(L"none\\plan.las").c_str()), Vorn::eFileWriteFailed);
    EXPECT_EQ(states().exportLayerState(L"Plan", zdr::widePath(m_folder.path()).c_str()), Vorn::eFileWriteFailed);
    EXPECT_EQ(m_folder.entries(), 2u) << "something was left beside the files";
}

TEST_F(ExchangeStatus, ANameThatNoTextHoldsIsNotExported) {
    const wchar_t half[] = {L'a', static_cast<wchar_t>(0xD800), 0};
    ASSERT_EQ(states().saveLayerState(half, MaskAllProperties), Vorn::eOk);
    const std::vector<std::byte> before = bytesOf(m_state);
    EXPECT_EQ(states().exportLayerState(half, m_state.c_str()), Vorn::eInvalidInput);
    EXPECT_EQ(bytesOf(m_state), before);
    EXPECT_THAT(zdr::toUtf8(engine::lastFileProblem(m_database)), testing::HasSubstr("half a character"));
}

TEST_F(ExchangeStatus, AByteOrderMarkInFrontIsPassedOver) {
    const std::vector<std::byte> bytes = bytesOf(m_state);
    const std::string text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    states().deleteLayerState(L"Plan");
    overwrite(m_state, "\xEF\xBB\xBF" + text);
    EXPECT_EQ(import(m_state), Vorn::eOk) << m_problem;
}
