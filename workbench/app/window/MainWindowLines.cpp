// The lines that wait, those of scripts among them: they are run one after the other, by runLine(), and now and then
// input is looked at.

#include "MainWindow.h"

#include "CommandDispatch.h"
#include "CommandText.h"
#include "PointText.h"

namespace workbench {

namespace {

// A timer runs the lines that wait, because its messages come after all input and painting. Posted messages would come
// before those, and a long script could be neither watched nor stopped.
constexpr UINT_PTR kLineTimer = 1;
constexpr ULONGLONG kLineTime = 20; // milliseconds for which lines are run before input is looked at again

} // namespace

void MainWindow::run(const std::wstring& line) {
    // A command's dialog disables this window, but posted messages and dropped files would still come through.
    if (m_running || takeTypedPoint(line))
        return;
    const bool waits = !m_waiting.isEmpty();
    const std::wstring first = m_waiting.whatGoesFirst();
    m_waiting.append(line);
    if (waits) {
        tell(first + L", then " + quotation(line) + L".");
        return;
    }
    m_gathers = true;
    runNextLine();
    showGathered();
    startTimer();
}

void MainWindow::runNextLine() {
    const auto line = m_waiting.next();
    m_view.endPick();
    m_running = true;
    const bool done = !line || runLine(*m_session, *line);
    m_running = false;
    if (!m_hWnd)
        return;
    if (const std::wstring told = m_waiting.end(done); !told.empty())
        print(told);
}

void MainWindow::runLater(std::vector<std::wstring> lines, bool keepsGoing) {
    if (!lines.empty() && m_waiting.enter({{}, std::move(lines), keepsGoing}))
        startTimer();
}

void MainWindow::typeLater(const std::wstring& line) {
    m_waiting.append(line);
    startTimer();
}

void MainWindow::startTimer() {
    if (!m_waiting.isEmpty())
        SetTimer(kLineTimer, 0, nullptr);
}

void MainWindow::stopWaiting() {
    if (m_view.endPick())
        print(L"No points are chosen, and what is on view stays.\n");
    if (const std::wstring told = m_waiting.stop(); !told.empty())
        print(told);
}

/// While points are awaited, a typed one is as good as a click.
bool MainWindow::takeTypedPoint(const std::wstring& line) {
    const CommandText typed = parseCommand(line);
    const auto point = m_view.isPicking() && typed.words.empty() ? parsePoint(typed.name) : std::nullopt;
    if (!point)
        return false;
    echo(L"Command: " + line + L"\n");
    m_view.takePoint(*point);
    return true;
}

/// Runs the line that the two points make, so that it stands in the history.
void MainWindow::runPicked(PickedFor purpose, Point first, Point second) {
    run((purpose == PickedFor::Window ? L"ZOOM WINDOW " : L"PAN ") + pointText(first) + L' ' + pointText(second));
}

void MainWindow::OnTimer(UINT_PTR timer) {
    if (timer != kLineTimer) {
        CWnd::OnTimer(timer);
        return;
    }
    if (m_running)
        return;
    const ULONGLONG start = ::GetTickCount64();
    m_gathers = true;
    while (m_hWnd && !m_waiting.isEmpty() && ::GetTickCount64() - start < kLineTime)
        runNextLine();
    showGathered();
    if (m_hWnd && m_waiting.isEmpty())
        KillTimer(kLineTimer);
}

void MainWindow::OnEnable(BOOL enable) {
    CWnd::OnEnable(enable);
    // A dialog opens over this window, which has to show how things stand.
    showGathered();
}

void MainWindow::showGathered() {
    m_gathers = false;
    if (!m_hWnd)
        return;
    say();
    refresh();
}

/// Shows in the history what has been gathered.
void MainWindow::say() {
    m_command.print(m_unsaid);
    m_unsaid.clear();
}

} // namespace workbench
