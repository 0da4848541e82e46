#include "Tour.h"

#include "Input.h"
#include "ManagerVisit.h"

#include "resource.h"
#include "window/WorkbenchIds.h"

#include <cstdio>
#include <utility>

namespace tour {

namespace {

constexpr const wchar_t* mainWindowClass = L"KelWorkbench";

} // namespace

Tour::Tour(Options options)
    : m_options(std::move(options)), m_pictures(m_options.shots), m_program(m_options.workbench) {}

void Tour::run() {
    try {
        waitForWorkbench();
        openDrawing(m_options.drawing);
        workWithStates();
        save();
        takeAlong();
        convertOldStates();
        quit();
    } catch (const Disappointment&) {
        m_pictures.take(L"failed");
        throw;
    }
}

void Tour::waitForWorkbench() {
    m_main = m_program.waitForWindow("the Workbench's main window", [](HWND window) {
        wchar_t name[64] = L"";
        GetClassNameW(window, name, 64);
        return mainWindowClass == std::wstring(name);
    });
}

void Tour::openDrawing(const std::wstring& path) {
    command(L"OPEN " + path);
    seeDrawing(path);
}

void Tour::seeDrawing(const std::wstring& path) {
    m_program.waitUntil("the title shows the opened drawing", [&] { return titleIs(path); });
    m_pictures.take(L"drawing");
}

ManagerVisit Tour::seeManager() {
    const HWND manager = m_program.waitForWindow("the layer states manager", [](HWND window) {
        return GetDlgItem(window, IDC_LSTATE_RES_LIST) && GetDlgItem(window, IDC_LSTATE_RES_RESTORE);
    });
    m_pictures.take(L"manager");
    return ManagerVisit(m_program, manager, m_pictures);
}

void Tour::workWithStates() {
    command(L"LAYERSTATE");
    ManagerVisit visit = seeManager();
    visit.makeState(L"As I found it", L"Before anything was changed");
    visit.rename(L"Before the pipes");
    visit.describe(L"To come back to");
    visit.sortByName();
    visit.deleteSelected();
    editState(visit);
    visit.exportTo(m_options.exportAs);
    visit.importFromDrawing(m_options.other, m_options.replaced);
    visit.pick(m_options.state);
    visit.restore();
    seeRestored();
}

void Tour::seeRestored() {
    m_program.waitUntil("the main window takes input again", [this] { return IsWindowEnabled(m_main); });
    m_pictures.take(L"restored");
}

void Tour::editState(ManagerVisit& manager) {
    manager.pick(m_options.edit);
    EditVisit visit = manager.edit();
    visit.turnOff({L"S-BEAM", L"S-COLS", L"S-JOIS"});
    visit.colorFromPalette(L"S-SLAB");
    visit.makeCurrent(L"S-FNDN");
    visit.addLayer(L"E-COMM-DATA");
    visit.pressOk();
}

void Tour::save() {
    DeleteFileW(m_options.saveAs.c_str());
    command(L"SAVEAS " + m_options.saveAs);
    m_program.waitUntil("the title shows the new name", [this] { return titleIs(m_options.saveAs); });
    m_program.waitUntil("the saved file is there",
                        [this] { return GetFileAttributesW(m_options.saveAs.c_str()) != INVALID_FILE_ATTRIBUTES; });
}

void Tour::takeAlong() {
    openDrawing(m_options.other);
    command(L"LAYERSTATE");
    seeManager().importAndRestore(m_options.exportAs);
    seeRestored();
}

void Tour::convertOldStates() {
    command(L"OPEN " + m_options.legacy);
    discardChanges();
    seeDrawing(m_options.legacy);
    command(L"LAYERSTATE");
    const HWND message = m_program.waitForTitle(L"Layer States Converted");
    m_pictures.take(L"converted");
    clickControl(m_program, message, IDOK);
    ManagerVisit visit = seeManager();
    for (const std::wstring& name : visit.names())
        say(L"Converted: " + name);
    visit.close();
}

void Tour::discardChanges() {
    const HWND question = m_program.waitForWindow("the question about unsaved changes",
                                                  [](HWND window) { return GetDlgItem(window, IDNO) != nullptr; });
    clickControl(m_program, question, IDNO);
}

void Tour::quit() {
    command(L"QUIT");
    discardChanges();
    if (const DWORD code = m_program.waitForEnd())
        throw Disappointment("the Workbench ended with code " + std::to_string(code));
}

void Tour::command(const std::wstring& line) {
    const HWND edit = GetDlgItem(GetDlgItem(m_main, IDC_COMMAND_PANE), IDC_COMMAND_EDIT);
    m_program.waitUntil("the command line is there", [edit] { return IsWindowVisible(edit); });
    RECT rect{};
    GetWindowRect(edit, &rect);
    clickMiddle(rect);
    typeInto(m_program, edit, line);
    ui::pressKey(VK_RETURN);
    std::printf("  %s\n", narrow(line).c_str());
}

bool Tour::titleIs(const std::wstring& path) const {
    return windowText(m_main).starts_with(fileNameOf(path) + L" - ");
}

} // namespace tour
