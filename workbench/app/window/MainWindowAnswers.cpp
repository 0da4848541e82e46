// What the commands and the host ask of the main window: to print, to ask, and to show what has changed.

#include "CommandText.h"
#include "FilePrompt.h"
#include "KeptAnswers.h"
#include "MainWindow.h"
#include "ModulePath.h"
#include "SavedRecentFiles.h"
#include "WorkbenchIds.h"

namespace workbench {

void MainWindow::print(const std::wstring& text) {
    if (const std::wstring line = lastLine(text); !line.empty())
        m_facts.message = line;
    echo(text);
    if (!m_gathers)
        m_status.show(m_facts);
}

void MainWindow::echo(const std::wstring& text) {
    m_unsaid += text;
    if (!m_gathers)
        say();
}

void MainWindow::showFailure(const std::wstring& text) {
    print(text + L"\n");
    MessageBox(text.c_str(), kProgramName, MB_OK | MB_ICONEXCLAMATION);
}

SaveAnswer MainWindow::askToSave(const std::wstring& name) {
    const std::wstring question = L"Save the changes to " + name + L"?";
    switch (MessageBox(question.c_str(), kProgramName, MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return SaveAnswer::Save;
    case IDNO:
        return SaveAnswer::Discard;
    default:
        return SaveAnswer::Cancel;
    }
}

bool MainWindow::askToOverwrite(const std::wstring& reason) {
    const std::wstring question = reason + L"\n\nWrite over it?";
    return MessageBox(question.c_str(), kProgramName, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

LookAnswer MainWindow::askToLookOutside(const std::wstring& question) {
    switch (MessageBox(question.c_str(), kProgramName, MB_YESNOCANCEL | MB_ICONEXCLAMATION | MB_DEFBUTTON2)) {
    case IDYES:
        return LookAnswer::Yes;
    case IDNO:
        return LookAnswer::No;
    default:
        return LookAnswer::Cancel;
    }
}

std::vector<FolderAnswer> MainWindow::keptAnswers() const {
    return workbench::keptAnswers();
}

void MainWindow::keepAnswer(const FolderAnswer& answer) {
    workbench::keepAnswer(answer);
}

void MainWindow::forgetAnswer(const std::wstring& folder) {
    workbench::forgetAnswer(folder);
}

std::optional<std::wstring> MainWindow::chooseFileToOpen() {
    return promptForDrawingToOpen(m_hWnd, m_session->folder());
}

std::optional<std::wstring> MainWindow::chooseFileToSave(const std::wstring& proposal) {
    return promptForDrawingToSave(m_hWnd, proposal);
}

std::optional<std::wstring> MainWindow::chooseScript() {
    return promptForScript(m_hWnd, m_session->folder());
}

void MainWindow::drawingReplaced() {
    m_view.drawingReplaced();
    refresh();
}

void MainWindow::drawingChanged() {
    m_view.regenerate();
    refresh();
}

void MainWindow::zoomExtents() {
    m_view.zoomExtents();
}

bool MainWindow::zoomTo(zdr::Point corner, zdr::Point opposite) {
    Rect rect;
    rect.add(corner);
    rect.add(opposite);
    return m_view.zoomTo(rect);
}

bool MainWindow::pickPoints(PickedFor purpose) {
    if (m_waiting.isInScript())
        return false;
    m_view.beginPick(purpose);
    return true;
}

void MainWindow::showAbout(const std::wstring& text) {
    MSGBOXPARAMSW box{};
    box.cbSize = sizeof box;
    box.hwndOwner = m_hWnd;
    box.hInstance = AfxGetInstanceHandle();
    box.lpszText = text.c_str();
    box.lpszCaption = L"About Kel Workbench";
    box.dwStyle = MB_OK | MB_USERICON;
    box.lpszIcon = MAKEINTRESOURCEW(IDI_WORKBENCH);
    ::MessageBoxIndirectW(&box);
}

void MainWindow::fileOpened(const std::wstring& path) {
    RecentFiles files = savedRecentFiles();
    files.add(path);
    saveRecentFiles(files);
}

void MainWindow::fileMissing(const std::wstring& path) {
    RecentFiles files = savedRecentFiles();
    if (!files.remove(path))
        return;
    saveRecentFiles(files);
    print(quotation(path) + L" is taken off the recent files.\n");
}

std::wstring MainWindow::loadModule(const std::wstring& path) {
    return m_modules.load(modulePath(path));
}

void MainWindow::quit() {
    m_waiting.clear();
    DestroyWindow();
}

void MainWindow::regenerateLayers(const KelArray<KelDbObjectId>&) {
    m_view.regenerate();
}

void MainWindow::layersPublished() {
    m_view.regenerate();
    refresh();
}

void MainWindow::updateDisplay() {
    m_view.UpdateWindow();
}

} // namespace workbench
