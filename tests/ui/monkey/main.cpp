// workbench_monkey: random input on the Workbench with the sample drawing open. It lives several lives, each with a
// window of its own; after each one nothing may be open or handed out, and no window may be left. A crash, an
// assertion, or a window that stops answering ends the program with a failure.
//
// Lives by a fixed script come before the random lives and after them. The first ones let the system keep what it keeps
// of windows that are shown for the first time. The GDI objects, menus, icons and cursors after the later ones are
// compared exactly: a single one that a life leaves behind is seen. For what only the random lives reach
// there is a bound on what all of them together may leave. What can't be counted fails the run.

#include "GuiObjects.h"
#include "Monkey.h"

#include "MainWindow.h"
#include "ModuleLoader.h"
#include "Runtime.h"
#include "SavedRecentFiles.h"
#include "View.h"
#include "Watchdog.h"
#include "instruments/HostCalls.h"
#include "persistence/DialogStore.h"

#include <afxwin.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

class TestApp : public CWinApp {};
TestApp g_app;

constexpr const wchar_t* kDialogRoot = L"Software\\KelTests\\MonkeyDialogs";
constexpr UINT kTick = 10;

struct Counts {
    int gdi = 0, user = 0;
};
// How many GDI objects, and how many menus, icons and cursors, the system may keep for things that only a random life
// shows. Measured under Wine in runs of 5 seconds to a minute: 19 to 27; 3 to 6.
constexpr Counts kKeptOfRandomLives{48, 12};

struct Options {
    unsigned seed = std::random_device{}();
    int seconds = 60;
    fs::path samples;
};

/// One life: a window with the module, from its opening to its end.
class Life {
  public:
    /// @param length none: no random input; what the lines open is closed, and the dialogs that the manager opens too
    Life(Monkey& monkey, ui::Watchdog& watchdog, std::optional<std::chrono::milliseconds> length)
        : m_monkey(monkey), m_watchdog(watchdog), m_end(Clock::now() + length.value_or(0ms)), m_isRandom(length) {}

    void live(const std::vector<std::wstring>& firstLines) {
        workbench::MainWindow window;
        runtime::ModuleLoader modules;
        if (!window.createWindow() || !modules.load(modulePath()).empty()) {
            std::puts("The Workbench can't be started.");
            std::exit(1);
        }
        AfxGetApp()->m_pMainWnd = &window;
        m_window = window.m_hWnd;
        window.showAtSavedPlace(SW_SHOWNORMAL);
        window.runLater(firstLines, true);
        s_current = this;
        const UINT_PTR timer = SetTimer(nullptr, 0, kTick, [](HWND, UINT, UINT_PTR, DWORD) { s_current->tick(); });
        AfxGetApp()->Run();
        KillTimer(nullptr, timer);
        modules.unloadAll();
        AfxGetApp()->m_pMainWnd = nullptr;
    }

  private:
    static std::wstring modulePath() {
        wchar_t path[1024];
        const fs::path program(std::wstring(path, GetModuleFileNameW(nullptr, path, 1024)));
        return (program.parent_path() / "KelLayerApps.xmod").wstring();
    }

    // A dialog's loop hands out the timer's messages too, so the monkey goes on in there.
    void tick() {
        if (m_inTick)
            return;
        m_inTick = true;
        m_watchdog.progress();
        takeInputFromOthers();
        instruments::clearTrace();
        if (m_isRandom && Clock::now() < m_end)
            m_monkey.act(m_window);
        else if (m_isRandom)
            m_monkey.leave(m_window);
        else
            followScript();
        m_inTick = false;
    }

    /// Everything in the window is painted before it goes, as the system keeps objects of what it paints for the first
    /// time. On a busy machine a window would otherwise go half painted in one life, and whole in the next.
    void followScript() {
        const HWND front = GetActiveWindow();
        if (!front || front == m_window)
            return;
        RedrawWindow(front, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        if (!m_monkey.openNextDialog())
            m_monkey.leave(m_window);
    }

    /// The desktop of a fresh session may start after the first windows of the first program and take their input away.
    /// A life would then wait without end.
    void takeInputFromOthers() const {
        DWORD owner = 0;
        GetWindowThreadProcessId(GetForegroundWindow(), &owner);
        if (owner != GetCurrentProcessId())
            SetForegroundWindow(GetLastActivePopup(m_window));
    }

    static Life* s_current;

    Monkey& m_monkey;
    ui::Watchdog& m_watchdog;
    Clock::time_point m_end;
    bool m_isRandom;
    HWND m_window = nullptr;
    bool m_inTick = false;
};

Life* Life::s_current = nullptr;

void prepareFolder(const fs::path& folder, const fs::path& samples) {
    fs::remove_all(folder);
    fs::create_directories(folder);
    for (const char* name : {"house.zdr", "site.zdr"})
        fs::copy_file(samples / name, folder / name);
    std::ofstream(folder / "text.zdr") << "This is no drawing.";
    std::ofstream(folder / "lines.scr")
        << "LAYER OFF *\nLAYOUT A1 sheet\nVPORT 2\nVPLAYER FREEZE *\nLAYER ON *\nREGEN\n";
    std::ofstream(folder / "self.scr") << "REGEN\nSCRIPT \"" << folder.string() << "\\self.scr\"\n";
    // Paths that are typed without a folder lead into this one.
    fs::current_path(folder);
}

std::vector<std::wstring> scriptedLines(const std::wstring& open) {
    return {open,
            L"LAYOUT A1 sheet",
            L"VPORT 2",
            L"ZOOM IN",
            L"LAYER MAKE Monkey",
            L"UNDO",
            L"HELP",
            L"OPEN missing",
            L"OPEN",
            L"SAVEAS",
            L"LAYERSTATE",
            L"MODEL",
            L"ZOOM WINDOW 0,0 9000,6000",
            L"ZOOM LAYER *",
            L"PAN 100,100",
            L"ZOOM PREVIOUS",
            L"ABOUT",
            L"LAYER ON *",
            L"QUIT"};
}

/// What is left after a life.
struct Rest {
    std::vector<std::string> ledger;
    int windows = 0;
    std::optional<int> gdiObjects, userObjects;
};

Rest liveOnce(Life life, const std::vector<std::wstring>& lines) {
    runtime::reset();
    instruments::watch(true);
    life.live(lines);
    Rest rest{instruments::ledger(), countWindows(), countGdiObjects(), countUserObjects()};
    instruments::watch(false);
    runtime::reset();
    return rest;
}

std::string textOf(const std::optional<int>& count) {
    return count ? std::to_string(*count) : "uncounted";
}

/// Prints what is left, and answers whether everything could be counted and nothing is left that each life has to give
/// back.
bool isClean(const std::string& life, const Rest& rest) {
    std::printf("%s: %d windows, %s GDI objects, %s menus, icons and cursors\n", life.c_str(), rest.windows,
                textOf(rest.gdiObjects).c_str(), textOf(rest.userObjects).c_str());
    for (const std::string& entry : rest.ledger)
        std::printf("still open, or not given back: %s\n", entry.c_str());
    std::fflush(stdout);
    return rest.ledger.empty() && rest.windows == 0 && rest.gdiObjects && rest.userObjects;
}

/// Whether there is no more left than after an earlier life, apart from what the system may keep.
bool isAsBefore(const Rest& rest, const Rest& before, Counts kept = {}) {
    const int gdi = rest.gdiObjects.value_or(0) - before.gdiObjects.value_or(0);
    const int user = rest.userObjects.value_or(0) - before.userObjects.value_or(0);
    std::printf("left over: %d GDI objects and %d menus, icons and cursors; allowed are %d and %d\n", gdi, user,
                kept.gdi, kept.user);
    return gdi <= kept.gdi && user <= kept.user;
}

std::string valueOf(const char* variable) {
    const char* value = std::getenv(variable);
    return value ? value : "";
}

bool parse(int argc, char** argv, Options& options) {
    if (valueOf("KEL_TEST_QUICK") == "1")
        options.seconds = 3;
    if (const std::string seconds = valueOf("KEL_MONKEY_SECONDS"); !seconds.empty())
        options.seconds = std::atoi(seconds.c_str());
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        if (name == "--seed")
            options.seed = static_cast<unsigned>(std::stoul(argv[i + 1]));
        else if (name == "--seconds")
            options.seconds = std::stoi(argv[i + 1]);
        else if (name == "--samples")
            options.samples = argv[i + 1];
        else
            return false;
    }
    return argc % 2 == 1 && !options.samples.empty() && options.seconds > 0;
}

/// Lives until the time is over. Answers whether nothing was left behind.
bool liveAll(Monkey& monkey, const Options& options, const std::wstring& folder, std::FILE* log) {
    ui::Watchdog watchdog([] { std::puts("The Workbench doesn't answer any more."); }, 30s);
    const std::wstring open = L"OPEN \"" + folder + L"house.zdr\"";
    const auto scripted = [&] {
        Monkey closer(1, folder, log);
        return liveOnce({closer, watchdog, std::nullopt}, scriptedLines(open));
    };
    bool clean = true;
    // Lives until the last ones leave the same. Which of them shows a window first depends on the machine's other work,
    // so a window's first time can come in any; what a life leaves behind comes in each, and then they never agree.
    const auto settled = [&] {
        constexpr int kAgreeing = 3, kMost = 9;
        Rest before = scripted();
        clean = isClean("scripted life", before) && clean;
        for (int lives = 1, agreeing = 1; agreeing < kAgreeing; ++lives) {
            Rest next = scripted();
            clean = isClean("scripted life", next) && lives < kMost && clean;
            if (lives == kMost)
                break;
            agreeing = isAsBefore(next, before) ? agreeing + 1 : 1;
            before = std::move(next);
        }
        return before;
    };
    const Rest first = settled();

    const auto length = std::chrono::milliseconds(options.seconds * 1000 / std::max(2, options.seconds / 15));
    const auto end = Clock::now() + std::chrono::seconds(options.seconds);
    for (int life = 1; Clock::now() < end; ++life) {
        const Rest rest = liveOnce({monkey, watchdog, length}, {open});
        clean = isClean("life " + std::to_string(life) + ", " + std::to_string(monkey.actions()) + " actions", rest) &&
                clean;
    }

    return isAsBefore(settled(), first, kKeptOfRandomLives) && clean;
}

int run(const Options& options) {
    const fs::path folder = fs::temp_directory_path() / "kel-workbench-monkey";
    const fs::path logPath = fs::temp_directory_path() / "kel-workbench-monkey.log";
    prepareFolder(folder, fs::absolute(options.samples));
    framework::DialogStore::setRoot(kDialogRoot);
    // A file that another program has used is none of the monkey's.
    RegDeleteTreeW(HKEY_CURRENT_USER, workbench::kRecentFilesKey);
    std::printf("workbench_monkey: seed %u, %d s; what it does stands in %s\n", options.seed, options.seconds,
                logPath.string().c_str());
    std::fflush(stdout);
    std::FILE* log = std::fopen(logPath.string().c_str(), "w");
    if (!log)
        return 1;
    const std::wstring inFolder = folder.wstring() + L"\\";
    Monkey monkey(options.seed, inFolder, log);
    const bool clean = liveAll(monkey, options, inFolder, log);
    std::fclose(log);
    RegDeleteTreeW(HKEY_CURRENT_USER, kDialogRoot);
    RegDeleteTreeW(HKEY_CURRENT_USER, workbench::kRecentFilesKey);
    std::printf("%s\n", clean ? "nothing was left behind" : "something was left behind");
    return clean ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    Options options;
    if (!parse(argc, argv, options)) {
        std::puts("workbench_monkey --samples folder [--seed n] [--seconds n]");
        return 2;
    }
    if (!AfxWinInit(GetModuleHandle(nullptr), nullptr, GetCommandLine(), SW_SHOWNORMAL))
        return 1;
    return run(options);
}
