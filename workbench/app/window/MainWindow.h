// The Workbench's main window: the drawing, its tabs, the command line and the status line.
#pragma once

#include "CommandPane.h"
#include "Display.h"
#include "DrawingView.h"
#include "ModuleLoader.h"
#include "RecentFilesMenu.h"
#include "ScriptLines.h"
#include "Session.h"
#include "SpaceTabs.h"
#include "StatusLine.h"

#include <memory>

namespace workbench {

/// The window class of the main window, by which other programs find it.
inline constexpr const wchar_t* kMainWindowClass = L"KelWorkbench";
/// The program's name in titles.
inline constexpr const wchar_t* kProgramName = L"Kel Workbench";

class MainWindow : public CWnd, private SessionWindow, private runtime::DisplayObserver {
  public:
    MainWindow();
    ~MainWindow() override;

    /// Makes the window with a new drawing in it.
    BOOL createWindow();
    /// Shows it where it stood last.
    void showAtSavedPlace(int show);
    Session& session() { return *m_session; }
    /// Runs these lines one after the other as soon as the window is idle, up to the first that can't be done unless it
    /// is to keep going.
    void runLater(std::vector<std::wstring> lines, bool keepsGoing);
    /// The same for one line, as if a person had typed it.
    void typeLater(const std::wstring& line);
    /// The program's modules.
    runtime::ModuleLoader& modules() { return m_modules; }
    /// Prints a line into the history.
    void tell(const std::wstring& text) { print(text + L"\n"); }

    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg int OnCreate(LPCREATESTRUCT create);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* info);
    afx_msg void OnSetFocus(CWnd* former);
    afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint screen);
    afx_msg void OnClose();
    afx_msg BOOL OnQueryEndSession();
    afx_msg void OnDestroy();
    afx_msg void OnDropFiles(HDROP drop);
    afx_msg LRESULT OnDpiChanged(WPARAM dpi, LPARAM rect);
    afx_msg void OnTimer(UINT_PTR timer);
    afx_msg void OnEnable(BOOL enable);
    afx_msg void OnInitMenuPopup(CMenu* menu, UINT index, BOOL isSystemMenu);
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

  private:
    // SessionWindow.
    void print(const std::wstring& text) override;
    void echo(const std::wstring& text) override;
    void showFailure(const std::wstring& text) override;
    SaveAnswer askToSave(const std::wstring& name) override;
    bool askToOverwrite(const std::wstring& reason) override;
    bool isAttended() const override { return !m_waiting.isInScript(); }
    LookAnswer askToLookOutside(const std::wstring& question) override;
    std::vector<FolderAnswer> keptAnswers() const override;
    void keepAnswer(const FolderAnswer& answer) override;
    void forgetAnswer(const std::wstring& folder) override;
    std::optional<std::wstring> chooseFileToOpen() override;
    std::optional<std::wstring> chooseFileToSave(const std::wstring& proposal) override;
    std::optional<std::wstring> chooseScript() override;
    void drawingReplaced() override;
    void drawingChanged() override;
    void zoomExtents() override;
    bool zoomBy(double factor) override { return m_view.zoomBy(factor); }
    bool zoomTo(zdr::Point corner, zdr::Point opposite) override;
    bool zoomPrevious() override { return m_view.zoomPrevious(); }
    void moveBy(zdr::Point displacement) override { m_view.moveBy(displacement); }
    bool pickPoints(PickedFor purpose) override;
    void showAbout(const std::wstring& text) override;
    void fileOpened(const std::wstring& path) override;
    void fileMissing(const std::wstring& path) override;
    bool runScript(Script script) override { return m_waiting.enter(std::move(script)); }
    std::wstring loadModule(const std::wstring& path) override;
    bool unloadModule(const std::wstring& path) override { return m_modules.unload(path); }
    std::vector<std::wstring> loadedModules() const override { return m_modules.paths(); }
    void quit() override;

    // runtime::DisplayObserver.
    void regenerateLayers(const KelArray<KelDbObjectId>& layers) override;
    void layersPublished() override;
    void updateDisplay() override;

    /// Runs a line that a person gave, now or after the script that is running.
    void run(const std::wstring& line);
    void runNextLine();
    void startTimer();
    void stopWaiting();
    void runPicked(PickedFor purpose, Point first, Point second);
    bool takeTypedPoint(const std::wstring& line);
    void chooseTab(std::size_t tab);
    std::wstring completed(const std::wstring& typed);
    void showNextTab(int step);
    bool runKey(const MSG& message);
    void arrange();
    void say();
    void showGathered();
    void refresh();
    void refreshTitle();
    void refreshTabs();
    void refreshStatus();

    WindowLook m_look;
    std::unique_ptr<Session> m_session;
    DrawingView m_view;
    SpaceTabs m_tabs;
    CommandPane m_command;
    StatusLine m_status;
    StatusFacts m_facts; // as the drawing was told to be last; the message is the last line printed
    LineQueue m_waiting;
    RecentFilesMenu m_recentFiles;
    runtime::ModuleLoader m_modules; // behind the session, since modules may use its drawing to their end
    bool m_running = false;          // a command is under way, perhaps with a dialog
    bool m_gathers = false;          // lines are run: what they say and change is shown behind them
    std::wstring m_unsaid;           // what they have said
};

} // namespace workbench
