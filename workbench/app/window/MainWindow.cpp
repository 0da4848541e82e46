// Lays out the panes, and routes menu items and keys. How the lines are run that wait is in MainWindowLines.cpp, what
// the commands and the host ask of the window in MainWindowAnswers.cpp.

#include "MainWindow.h"

#include "CommandLineOutput.h"
#include "Completion.h"
#include "SavedPlacement.h"
#include "WorkbenchIds.h"

#include <shellapi.h>

#include <clocale>

namespace workbench {

namespace {

/// A menu item, the line that it runs, and a key that runs the same line.
struct MenuCommand {
    UINT id;
    const wchar_t* line;
    UINT key; ///< virtual key, 0 for none
    bool control, shift;
};

// UNDO has Ctrl+Shift+Z, because Ctrl+Z undoes in the line being typed; see lineOfEmptyKey.
constexpr MenuCommand kMenuCommands[] = {
    {ID_MENU_NEW, L"NEW", 'N', true, false},
    {ID_MENU_OPEN, L"OPEN", 'O', true, false},
    {ID_MENU_SAVE, L"SAVE", 'S', true, false},
    {ID_MENU_SAVEAS, L"SAVEAS", 'S', true, true},
    {ID_MENU_ATTACH, L"ATTACH", 0, false, false},
    {ID_MENU_SCRIPT, L"SCRIPT", 0, false, false},
    {ID_MENU_QUIT, L"QUIT", 0, false, false},
    {ID_MENU_UNDO, L"UNDO", 'Z', true, true},
    {ID_MENU_REDO, L"REDO", 'Y', true, true},
    {ID_MENU_ZOOM_EXTENTS, L"ZOOM EXTENTS", 'E', true, false},
    {ID_MENU_ZOOM_IN, L"ZOOM IN", VK_OEM_PLUS, true, false},
    {ID_MENU_ZOOM_IN, L"ZOOM IN", VK_OEM_PLUS, true, true}, // many keyboards have + above another character
    {ID_MENU_ZOOM_IN, L"ZOOM IN", VK_ADD, true, false},
    {ID_MENU_ZOOM_OUT, L"ZOOM OUT", VK_OEM_MINUS, true, false},
    {ID_MENU_ZOOM_OUT, L"ZOOM OUT", VK_SUBTRACT, true, false},
    {ID_MENU_ZOOM_WINDOW, L"ZOOM WINDOW", 0, false, false},
    {ID_MENU_ZOOM_PREVIOUS, L"ZOOM PREVIOUS", 0, false, false},
    {ID_MENU_PAN, L"PAN", 0, false, false},
    {ID_MENU_REGEN, L"REGEN", VK_F5, false, false},
    {ID_MENU_LAYERS, L"LAYER LIST", 0, false, false},
    {ID_MENU_REFERENCES, L"REFERENCES", 0, false, false},
    {ID_MENU_LAYER_STATES, L"LAYERSTATE", 'L', true, false},
    {ID_MENU_HELP, L"HELP", VK_F1, false, false},
    {ID_MENU_ABOUT, L"ABOUT", 0, false, false},
};

/// A key that pans the view when Alt is held, and how far, as a part of the view's size.
struct PanKey {
    WPARAM key;
    double right, down;
};
constexpr double kPanStep = 0.1;
constexpr PanKey kPanKeys[] = {
    {VK_LEFT, kPanStep, 0},
    {VK_RIGHT, -kPanStep, 0},
    {VK_UP, 0, kPanStep},
    {VK_DOWN, 0, -kPanStep},
};

std::wstring listOf(const std::vector<std::wstring>& candidates) {
    constexpr std::size_t kMost = 100;
    std::wstring names;
    for (std::size_t i = 0; i < std::min(candidates.size(), kMost); ++i)
        names += (i == 0 ? L"" : L"  ") + candidates[i];
    return candidates.size() > kMost ? names + L"  and more" : names;
}

bool isDown(int key) {
    return ::GetKeyState(key) < 0;
}

const MenuCommand* commandOfKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || isDown(VK_MENU))
        return nullptr;
    const auto* found = std::find_if(std::begin(kMenuCommands), std::end(kMenuCommands), [&](const MenuCommand& row) {
        return row.key && row.key == message.wParam && row.control == isDown(VK_CONTROL) &&
               row.shift == isDown(VK_SHIFT);
    });
    return found == std::end(kMenuCommands) ? nullptr : found;
}

/// The line that a key runs while nothing is typed, when there is nothing in the line to undo; none for other keys.
const wchar_t* lineOfEmptyKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || !isDown(VK_CONTROL) || isDown(VK_SHIFT) || isDown(VK_MENU))
        return nullptr;
    return message.wParam == 'Z' ? L"UNDO" : message.wParam == 'Y' ? L"REDO" : nullptr;
}

} // namespace

BEGIN_MESSAGE_MAP(MainWindow, CWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_GETMINMAXINFO()
ON_WM_SETFOCUS()
ON_WM_MOUSEWHEEL()
ON_WM_CLOSE()
ON_WM_QUERYENDSESSION()
ON_WM_DESTROY()
ON_WM_DROPFILES()
ON_MESSAGE(WM_DPICHANGED, OnDpiChanged)
ON_WM_TIMER()
ON_WM_ENABLE()
ON_WM_INITMENUPOPUP()
END_MESSAGE_MAP()

MainWindow::MainWindow()
    : m_view(m_look, [this] { return m_session ? &m_session->drawing() : nullptr; }), m_tabs(m_look), m_command(m_look),
      m_status(m_look) {}

MainWindow::~MainWindow() {
    // Modules may still print or repaint while they are unloaded, and this window is gone by then.
    runtime::setDisplayObserver(nullptr);
    runtime::setOutputSink({});
}

BOOL MainWindow::createWindow() {
    // MFC's strings take their alphabet from the C runtime, which all modules of the process share. Numbers are left as
    // the commands and files write them.
    std::setlocale(LC_COLLATE, "");
    std::setlocale(LC_CTYPE, "");

    WNDCLASS windowClass{};
    windowClass.lpfnWndProc = ::DefWindowProc;
    windowClass.hInstance = AfxGetInstanceHandle();
    windowClass.hIcon = AfxGetApp()->LoadIcon(IDI_WORKBENCH);
    windowClass.hCursor = ::LoadCursor(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kMainWindowClass;
    if (!AfxRegisterClass(&windowClass))
        return FALSE;
    // LoadMenu makes a copy, which the window destroys at its own end.
    const HMENU menu = ::LoadMenu(AfxGetInstanceHandle(), MAKEINTRESOURCE(IDR_MENU));
    if (!CreateEx(WS_EX_ACCEPTFILES, kMainWindowClass, kProgramName, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                  CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, menu))
        return FALSE;
    // Only now the display is known on which the window is, and so its scaling.
    SetWindowPos(nullptr, 0, 0, m_look.px(1100), m_look.px(760), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    m_session = std::make_unique<Session>(static_cast<SessionWindow&>(*this));
    runtime::setDisplayObserver(this);
    runtime::setOutputSink([this](const std::wstring& text) { print(text); });
    drawingReplaced();
    return TRUE;
}

void MainWindow::showAtSavedPlace(int show) {
    ShowWindow(restorePlacement(*this, show));
    UpdateWindow();
    SetForegroundWindow();
    SetFocus();
}

int MainWindow::OnCreate(LPCREATESTRUCT create) {
    if (CWnd::OnCreate(create) == -1)
        return -1;
    m_look.update(static_cast<int>(::GetDpiForWindow(m_hWnd)));
    if (!m_view.createIn(*this, IDC_DRAWING_VIEW) || !m_tabs.createIn(*this, IDC_SPACE_TABS) ||
        !m_command.createIn(*this, IDC_COMMAND_PANE) || !m_status.createIn(*this, IDC_STATUS_LINE))
        return -1;
    m_view.onViewportChosen([this](int number) { run(number ? L"VPORT " + std::to_wstring(number) : L"VPORT none"); });
    m_view.onPicked([this](PickedFor purpose, Point first, Point second) { runPicked(purpose, first, second); });
    m_view.onViewportZoomed([this](zdr::Handle viewport, const ViewportView& shown) {
        // A script must find what its own lines have made.
        if (!m_running && !m_waiting.isInScript())
            m_session->showInViewport(viewport, shown.center, shown.scale);
    });
    m_view.onPointerMoved([this] {
        if (!m_session || m_gathers)
            return;
        movePointer(m_facts, m_session->drawing(), m_view.pointer());
        m_status.show(m_facts);
    });
    m_status.onReferencesChosen([this] { run(L"REFERENCES"); });
    m_tabs.onChosen([this](std::size_t tab) { chooseTab(tab); });
    m_command.edit().onRun([this](const std::wstring& line) { run(line); });
    m_command.edit().onComplete([this](const std::wstring& typed) { return completed(typed); });
    m_command.edit().onStop([this] { stopWaiting(); });
    return 0;
}

void MainWindow::arrange() {
    CRect client;
    GetClientRect(client);
    int bottom = client.bottom;
    const auto place = [&](CWnd& window, int height) {
        window.MoveWindow(0, std::max(0, bottom - height), client.Width(), height);
        bottom -= height;
    };
    place(m_status, m_status.height());
    place(m_command, m_command.height(bottom));
    place(m_tabs, m_tabs.height());
    m_view.MoveWindow(0, 0, client.Width(), std::max(0, bottom));
}

void MainWindow::OnSize(UINT type, int width, int height) {
    CWnd::OnSize(type, width, height);
    if (type != SIZE_MINIMIZED && m_status.m_hWnd)
        arrange();
}

void MainWindow::OnGetMinMaxInfo(MINMAXINFO* info) {
    info->ptMinTrackSize = {m_look.px(480), m_look.px(400)};
}

void MainWindow::OnSetFocus(CWnd*) {
    m_command.edit().SetFocus();
}

BOOL MainWindow::OnMouseWheel(UINT flags, short delta, CPoint screen) {
    // The wheel's messages go to the window with the focus, which is the command line, but the user means the window
    // below the pointer.
    const auto isOver = [screen](CWnd& window) {
        CRect rect;
        window.GetWindowRect(rect);
        return rect.PtInRect(screen) != FALSE;
    };
    for (CWnd* window : {static_cast<CWnd*>(&m_view), static_cast<CWnd*>(&m_tabs)})
        if (isOver(*window)) {
            window->SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(flags, delta), MAKELPARAM(screen.x, screen.y));
            return TRUE;
        }
    if (!isOver(m_command))
        return CWnd::OnMouseWheel(flags, delta, screen);
    m_command.turnWheel(delta);
    return TRUE;
}

LRESULT MainWindow::OnDpiChanged(WPARAM dpi, LPARAM rect) {
    m_look.update(HIWORD(dpi));
    m_command.applyLook();
    m_tabs.applyLook();
    const auto* proposed = reinterpret_cast<const RECT*>(rect);
    MoveWindow(proposed);
    arrange();
    m_view.regenerate();
    return 0;
}

BOOL MainWindow::PreTranslateMessage(MSG* message) {
    // The keys of a command's dialog come past here too.
    if (!m_running && runKey(*message))
        return TRUE;
    return CWnd::PreTranslateMessage(message);
}

bool MainWindow::runKey(const MSG& message) {
    if (const MenuCommand* command = commandOfKey(message)) {
        run(command->line);
        return true;
    }
    if (const wchar_t* line = lineOfEmptyKey(message); line && m_command.edit().GetWindowTextLength() == 0) {
        run(line);
        return true;
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_F6) {
        m_command.switchFocus();
        return true;
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_F2) {
        m_command.toggleLarge();
        arrange();
        return true;
    }
    if (message.message == WM_SYSKEYDOWN)
        for (const PanKey& pan : kPanKeys)
            if (pan.key == message.wParam) {
                m_view.panBy(pan.right, pan.down);
                return true;
            }
    const bool turnsPage = message.message == WM_KEYDOWN && isDown(VK_CONTROL) &&
                           (message.wParam == VK_NEXT || message.wParam == VK_PRIOR);
    if (turnsPage)
        showNextTab(message.wParam == VK_NEXT ? 1 : -1);
    return turnsPage;
}

void MainWindow::showNextTab(int step) {
    const zdr::Drawing& drawing = m_session->drawing();
    const auto tabs = static_cast<int>(drawing.layouts.size()) + 1;
    const int tab = drawing.activeLayout ? static_cast<int>(*drawing.activeLayout) + 1 : 0;
    chooseTab(static_cast<std::size_t>((tab + step + tabs) % tabs));
}

void MainWindow::chooseTab(std::size_t tab) {
    // A script must find what its own lines have shown.
    if (m_waiting.isInScript())
        run(tab == 0 ? L"MODEL" : L"LAYOUT \"" + m_session->drawing().layouts[tab - 1].name + L"\"");
    else if (!m_running) {
        m_view.endPick();
        m_session->showTab(tab);
    }
}

void MainWindow::OnInitMenuPopup(CMenu* menu, UINT index, BOOL isSystemMenu) {
    CWnd::OnInitMenuPopup(menu, index, isSystemMenu);
    const auto enable = [menu](UINT item, bool enabled) {
        menu->EnableMenuItem(item, MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
    };
    enable(ID_MENU_UNDO, m_session->canUndo());
    enable(ID_MENU_REDO, m_session->canRedo());
    m_recentFiles.fill(menu->m_hMenu);
}

BOOL MainWindow::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (lParam == 0)
        for (const MenuCommand& command : kMenuCommands)
            if (command.id == LOWORD(wParam)) {
                run(command.line);
                return TRUE;
            }
    if (const auto path = lParam == 0 ? m_recentFiles.pathOf(LOWORD(wParam)) : std::nullopt) {
        run(L"OPEN \"" + *path + L"\"");
        return TRUE;
    }
    return CWnd::OnCommand(wParam, lParam);
}

std::wstring MainWindow::completed(const std::wstring& typed) {
    const Completion completion = complete(*m_session, typed);
    if (!completion.candidates.empty() && completion.line == typed) {
        m_command.print(listOf(completion.candidates) + L"\n");
    }
    return completion.line;
}

void MainWindow::OnDropFiles(HDROP drop) {
    wchar_t path[4096];
    const bool named = ::DragQueryFile(drop, 0, path, static_cast<UINT>(std::size(path))) != 0;
    ::DragFinish(drop);
    if (named)
        run(L"OPEN \"" + std::wstring(path) + L"\"");
}

void MainWindow::OnClose() {
    if (!m_running && m_session->mayClose())
        DestroyWindow();
}

BOOL MainWindow::OnQueryEndSession() {
    return !m_running && m_session->mayClose();
}

void MainWindow::OnDestroy() {
    savePlacement(*this);
    CWnd::OnDestroy();
    AfxPostQuitMessage(0);
}

void MainWindow::refresh() {
    if (m_gathers || !m_session)
        return;
    refreshTabs();
    refreshTitle();
    refreshStatus();
}

void MainWindow::refreshTitle() {
    const std::wstring mark = m_session->isModified() ? L"*" : L"";
    SetWindowText((m_session->name() + mark + L" - " + kProgramName).c_str());
}

void MainWindow::refreshTabs() {
    const zdr::Drawing& drawing = m_session->drawing();
    std::vector<std::wstring> names{L"Model"};
    for (const zdr::Layout& layout : drawing.layouts)
        names.push_back(layout.name);
    m_tabs.setTabs(std::move(names), drawing.activeLayout ? *drawing.activeLayout + 1 : 0);
}

void MainWindow::refreshStatus() {
    m_facts = statusOf(m_session->drawing(), m_view.pointer(), m_facts.message);
    m_status.show(m_facts);
}

} // namespace workbench
