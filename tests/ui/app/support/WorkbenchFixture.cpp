#include "WorkbenchFixture.h"

#include "HandmadeDrawing.h"
#include "Runtime.h"
#include "WorkbenchIds.h"

#include "files/DrawingFile.h"

namespace fs = std::filesystem;

namespace {

HWND commandEdit(const ui::View& view) {
    return ui::View(view.control(IDC_COMMAND_PANE)).control(IDC_COMMAND_EDIT);
}

std::wstring history(const ui::View& view) {
    return ui::View(view.control(IDC_COMMAND_PANE)).text(IDC_COMMAND_HISTORY);
}

} // namespace

WorkbenchTest::WorkbenchTest() : folder(fs::temp_directory_path() / "kel-workbench-test") {
    runtime::reset();
    fs::remove_all(folder);
    fs::create_directories(folder);
    window = std::make_unique<workbench::MainWindow>();
    if (!window->createWindow())
        ADD_FAILURE() << "the main window can't be made";
    AfxGetApp()->m_pMainWnd = window.get();
}

WorkbenchTest::~WorkbenchTest() {
    AfxGetApp()->m_pMainWnd = nullptr;
    window.reset();
    runtime::reset();
    fs::remove_all(folder);
}

void WorkbenchTest::runWith(ui::Script script) {
    ui::perform(std::move(script), [this] {
        window->showAtSavedPlace(SW_SHOWNORMAL);
        AfxGetApp()->Run();
    });
}

void WorkbenchTest::runAndThrowAway(ui::Script script) {
    script.then(command(L"QUIT")).then(answerBox(L"Save the changes", IDNO));
    runWith(std::move(script));
    EXPECT_EQ(window->m_hWnd, nullptr);
}

ui::Script WorkbenchTest::command(const std::wstring& line) {
    ui::Script script;
    script.waitUntil("the command line takes typing",
                     [](const ui::View& view) { return commandEdit(view) && GetFocus() == commandEdit(view); });
    script.type(line);
    script.waitUntil("the command line shows what was typed",
                     [line](const ui::View& view) { return ui::textOf(commandEdit(view)) == line; });
    script.press(VK_RETURN);
    return script;
}

ui::Script WorkbenchTest::said(const std::wstring& text) {
    ui::Script script;
    script.waitUntil("the history shows: " + ui::narrow(text),
                     [text](const ui::View& view) { return history(view).find(text) != std::wstring::npos; });
    return script;
}

ui::Script WorkbenchTest::titleIs(const std::wstring& drawing) {
    ui::Script script;
    script.waitUntil("the title names " + ui::narrow(drawing),
                     [drawing](const ui::View& view) { return view.title() == drawing + L" - Kel Workbench"; });
    return script;
}

ui::Script WorkbenchTest::answerBox(const std::wstring& text, int button) {
    ui::Script script;
    script.waitUntil("a message box with \"" + ui::narrow(text) + "\"", [text](const ui::View& view) {
        for (const std::wstring& shown : view.texts())
            if (shown.find(text) != std::wstring::npos && !view.has(IDC_COMMAND_PANE))
                return true;
        return false;
    });
    script.click(button);
    return script;
}

workbench::DrawingView& WorkbenchTest::shown() const {
    return *static_cast<workbench::DrawingView*>(
        CWnd::FromHandlePermanent(GetDlgItem(window->m_hWnd, IDC_DRAWING_VIEW)));
}

void WorkbenchTest::writeSample(const char* name) {
    zdr::Drawing drawing = session().drawing();
    handmade::addLine(drawing, 0, 5000);
    writeDrawing(name, drawing);
}

void WorkbenchTest::writeDrawing(const char* name, const zdr::Drawing& drawing) const {
    zdr::FileStamp stamp;
    std::wstring reason;
    EXPECT_EQ(zdr::writeDrawingFile(path(name), drawing, reason, stamp), Vorn::eOk) << ui::narrow(reason);
}
