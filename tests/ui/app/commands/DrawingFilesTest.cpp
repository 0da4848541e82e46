// Opening and saving through the main window: titles, questions, and drawings that can't be read.

#include "KelEditor.h"
#include "SystemRegistry.h"
#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include "files/DrawingFile.h"

#include <atomic>
#include <fstream>
#include <thread>

#include <shlobj.h>

namespace fs = std::filesystem;
using ui::Script;
using ui::View;

namespace {

void turnBaseLayerOff() {
    KelDbLayerTable* table = nullptr;
    if (keldbHostApplicationServices()->workingDatabase()->getSymbolTable(table, KelDb::kForRead) != Vorn::eOk)
        return;
    KelDbLayerTableRecord* record = nullptr;
    if (table->getAt(L"Base", record, KelDb::kForWrite) == Vorn::eOk) {
        record->setIsOff(true);
        record->close();
    }
    table->close();
}

/// The other program that has a drawing open.
class Holder {
  public:
    explicit Holder(const std::wstring& drawing) {
        wchar_t program[1024];
        GetModuleFileNameW(nullptr, program, 1024);
        std::wstring line =
            L'"' + (fs::path(program).parent_path() / "drawing_holder.exe").wstring() + L"\" \"" + drawing + L'"';
        STARTUPINFOW info{};
        info.cb = sizeof info;
        EXPECT_TRUE(
            CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &info, &m_process));
    }
    ~Holder() {
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    void kill() {
        TerminateProcess(m_process.hProcess, 1);
        WaitForSingleObject(m_process.hProcess, INFINITE);
    }

  private:
    PROCESS_INFORMATION m_process{};
};

/// Sends the message that the system sends when a file is dropped on the window.
void drop(HWND target, const std::wstring& path) {
    const SIZE_T size = sizeof(DROPFILES) + (path.size() + 2) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size);
    auto* files = static_cast<DROPFILES*>(GlobalLock(memory));
    files->pFiles = sizeof(DROPFILES);
    files->fWide = TRUE;
    std::copy(path.begin(), path.end(), reinterpret_cast<wchar_t*>(files + 1));
    GlobalUnlock(memory);
    PostMessageW(target, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
}

class DrawingFilesTest : public WorkbenchTest {
  protected:
    DrawingFilesTest() { runtime::commandStack().addCommand(L"TEST", L"TURNOFF", L"TURNOFF", 0, turnBaseLayerOff); }
    void writeText(const char* name) { std::ofstream(folder / name) << "This is no drawing."; }
    void writeCutOff(const char* name) {
        writeSample(name);
        fs::resize_file(folder / name, fs::file_size(folder / name) / 2);
    }
};

} // namespace

TEST_F(DrawingFilesTest, ShowsTheDrawingsNameInTheTitle) {
    writeSample("plan.zdr");
    Script script;
    script.then(titleIs(L"Drawing1"))
        .then(command(L"OPEN " + path("plan.zdr")))
        .then(titleIs(L"plan.zdr"))
        .then(command(L"TURNOFF"))
        .then(titleIs(L"plan.zdr*"))
        .then(command(L"SAVEAS " + path("other.zdr")))
        .then(titleIs(L"other.zdr"))
        .then(command(L"QUIT"));
    runWith(script);
    EXPECT_TRUE(fs::exists(folder / "other.zdr"));
}

TEST_F(DrawingFilesTest, ADrawingThatCantBeReadIsToldWithPathAndReason) {
    writeSample("plan.zdr");
    writeText("text.zdr");
    writeCutOff("cut.zdr");
    Script script;
    script.then(command(L"OPEN " + path("plan.zdr"))).then(titleIs(L"plan.zdr"));
    for (const char* name : {"missing.zdr", "text.zdr", "cut.zdr"})
        script.then(command(L"OPEN " + path(name))).then(answerBox(path(name), IDOK)).then(titleIs(L"plan.zdr"));
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingFilesTest, AShortTextIsToldToBeNoDrawing) {
    std::ofstream(folder / "short.zdr") << "Hello.";
    Script script;
    script.then(command(L"OPEN " + path("short.zdr")))
        .then(answerBox(L"isn't a drawing: it doesn't begin with the mark of one", IDOK))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingFilesTest, ANameThatNoFileCanHaveIsRefusedBeforeAnythingIsWritten) {
    writeSample("plan.zdr");
    Script script;
    script.then(command(L"OPEN " + path("plan.zdr")))
        .then(command(L"SAVEAS a|b.zdr"))
        .then(answerBox(L"\"a|b.zdr\" can't be the name of a file: give one without < > : \" / \\ | ? *.", IDOK))
        .then(titleIs(L"plan.zdr"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingFilesTest, AsksAboutUnsavedChangesAtTheEnd) {
    Script script;
    script.then(command(L"TURNOFF"))
        .then(command(L"QUIT"))
        .then(answerBox(L"Save the changes to Drawing1?", IDCANCEL))
        .press(VK_F4, ui::holdAlt)
        .then(answerBox(L"Save the changes to Drawing1?", IDNO));
    runWith(script);
    EXPECT_EQ(window->m_hWnd, nullptr);
}

TEST_F(DrawingFilesTest, SavesAtTheEndWhenAskedTo) {
    writeSample("plan.zdr");
    Script script;
    script.then(command(L"OPEN " + path("plan.zdr")))
        .then(command(L"TURNOFF"))
        .then(command(L"QUIT"))
        .then(answerBox(L"Save the changes to plan.zdr?", IDYES));
    runWith(script);
    zdr::Drawing saved;
    std::wstring reason;
    ASSERT_EQ(zdr::readDrawingFile(path("plan.zdr"), saved, reason), Vorn::eOk) << ui::narrow(reason);
    EXPECT_FALSE(saved.columns.flags[0] & zdr::kLayerOn);
}

TEST_F(DrawingFilesTest, AsksBeforeItWritesOverAFileChangedByAnother) {
    writeSample("plan.zdr");
    Script script;
    script.then(command(L"OPEN " + path("plan.zdr")))
        .then(titleIs(L"plan.zdr"))
        .look("someone else writes the file", [this](const View&) { writeText("plan.zdr"); })
        .then(command(L"TURNOFF"))
        .then(command(L"SAVE"))
        .then(answerBox(L"Write over it?", IDNO))
        .then(titleIs(L"plan.zdr*"))
        .look("the file is left alone", [this](const View&) { EXPECT_EQ(fs::file_size(folder / "plan.zdr"), 19u); })
        .then(command(L"SAVE"))
        .then(answerBox(L"Write over it?", IDYES))
        .then(titleIs(L"plan.zdr"))
        .then(command(L"QUIT"));
    runWith(script);
    EXPECT_GT(fs::file_size(folder / "plan.zdr"), 19u);
}

TEST_F(DrawingFilesTest, AsksTheSystemsDialogForAFile) {
    writeSample("plan.zdr");
    Script script;
    script.then(command(L"OPEN"))
        .waitUntil("the file dialog", [](const View& view) { return view.title() == L"Open"; })
        .type(path("plan.zdr"))
        .press(VK_RETURN)
        .then(titleIs(L"plan.zdr"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingFilesTest, AFileDroppedOnTheWindowIsOpened) {
    writeSample("a plan.zdr");
    Script script;
    script
        .look("the window takes files",
              [](const View& view) { EXPECT_TRUE(GetWindowLongPtrW(view.window(), GWL_EXSTYLE) & WS_EX_ACCEPTFILES); })
        .look("drop a file", [this](const View& view) { drop(view.window(), path("a plan.zdr")); })
        .then(titleIs(L"a plan.zdr"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(DrawingFilesTest, TheEndOfTheSystemsSessionAsksAboutUnsavedChanges) {
    constexpr LRESULT none = -1;
    std::atomic<LRESULT> answer = none;
    // Plays the system, which asks from another thread and waits for the answer.
    std::jthread system;
    const auto ends = [&] {
        Script script;
        script.look("the session ends", [&](const View& view) {
            answer = none;
            system = std::jthread(
                [&answer, shown = view.window()] { answer = SendMessageW(shown, WM_QUERYENDSESSION, 0, 0); });
        });
        return script;
    };
    const auto answers = [&](LRESULT expected) {
        Script script;
        script.waitUntil("the answer is " + std::to_string(expected),
                         [&answer, expected](const View&) { return answer == expected; });
        return script;
    };
    Script script;
    script.then(ends()).then(answers(TRUE));
    script.then(command(L"TURNOFF")).then(ends());
    script.then(answerBox(L"Save the changes to Drawing1?", IDCANCEL)).then(answers(FALSE));
    script.then(ends()).then(answerBox(L"Save the changes to Drawing1?", IDNO)).then(answers(TRUE));
    script.then(command(L"QUIT")).then(answerBox(L"Save the changes to Drawing1?", IDNO));
    runWith(script);
}

TEST_F(DrawingFilesTest, ADrawingThatAnotherProgramHasOpenIsToldUntilThatIsKilled) {
    writeSample("plan.zdr");
    Holder holder(path("plan.zdr"));
    const std::wstring told = L"Another program has \"plan.zdr\" open too";
    Script script;
    script
        .waitUntil("the other program has it open",
                   [this](const View&) { return fs::exists(path("plan.zdr") + L".lock"); })
        .then(command(L"OPEN " + path("plan.zdr")))
        .then(said(L"Opened " + path("plan.zdr") + L".\r\n" + told))
        .look("the status line tells it too",
              [told](const View& view) { EXPECT_NE(view.text(IDC_STATUS_LINE).find(told), std::wstring::npos); })
        .look("the other program is killed", [&holder](const View&) { holder.kill(); })
        .then(command(L"NEW"))
        .then(command(L"OPEN " + path("plan.zdr")))
        .then(said(L"Command: NEW\r\nA new drawing is open.\r\nCommand: OPEN " + path("plan.zdr") + L"\r\nOpened " +
                   path("plan.zdr")))
        .look("nothing more is told",
              [this](const View& view) {
                  EXPECT_TRUE(view.text(IDC_STATUS_LINE).ends_with(L"Opened " + path("plan.zdr") + L"."));
              })
        .then(command(L"QUIT"));
    runWith(script);
    window.reset();
    EXPECT_FALSE(fs::exists(path("plan.zdr") + L".lock")) << "nothing is left beside the drawing";
}
