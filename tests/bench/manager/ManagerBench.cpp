// Opens the layer states manager on a large drawing through its command, as a person would, and measures from the call
// to the moment at which the shown dialog has nothing left to do. Next to it: the bytes of all states through memcmp,
// which is the least that filling the column "same as the drawing" could cost.
//   manager_bench [layers states]
#include <afxwin.h>
#include <afxcmn.h>

#include "BenchHost.h"
#include "Documents.h"
#include "DrawingGenerator.h"
#include "resource.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

using bench::Clock;
using bench::fail;
using bench::milliseconds;
constexpr int kTurns = 5;
constexpr double kAimMs = 1000;

/// Notes when the manager is idle for the first time, and presses its Close.
class BenchApp : public CWinApp {
  public:
    BOOL OnIdle(LONG count) override {
        const HWND dialog = GetActiveWindow();
        const HWND list = dialog ? GetDlgItem(dialog, IDC_LSTATE_RES_LIST) : nullptr;
        if (!m_seen && list && IsWindowVisible(dialog)) {
            m_seen = true;
            idleAt = Clock::now();
            rows = ListView_GetItemCount(list);
            PostMessage(dialog, WM_COMMAND, IDC_LSTATE_RES_CLOSE, 0);
        }
        return CWinApp::OnIdle(count);
    }
    void await() { m_seen = false; }
    bool seen() const { return m_seen; }

    Clock::time_point idleAt;
    int rows = 0;

  private:
    bool m_seen = true;
};

BenchApp theApp;

std::size_t stateBytes(const zdr::Drawing& drawing) {
    std::size_t bytes = 0;
    for (const zdr::LayerState& state : drawing.states) {
        const zdr::LayerColumns& columns = state.columns;
        bytes += columns.flags.values().size_bytes() + columns.colors.values().size_bytes() +
                 columns.linetypes.values().size_bytes() + columns.lineWeights.values().size_bytes() +
                 columns.plotStyles.values().size_bytes();
    }
    return bytes;
}

double compareMs(std::size_t bytes) {
    const std::vector<char> left(bytes, 1);
    const std::vector<char> right(bytes, 1);
    double best = 0;
    for (int turn = 0; turn < kTurns; ++turn) {
        const Clock::time_point start = Clock::now();
        if (std::memcmp(left.data(), right.data(), bytes) != 0)
            fail("equal bytes differ");
        const double ms = milliseconds(Clock::now() - start);
        best = turn == 0 ? ms : std::min(best, ms);
    }
    return best;
}

/// One opening, in milliseconds.
double openManager(const KelEdCommand& command, std::size_t states) {
    theApp.await();
    const Clock::time_point start = Clock::now();
    command.function()();
    if (!theApp.seen())
        fail("the manager was never idle");
    if (theApp.rows != static_cast<int>(states))
        fail("the manager doesn't list all states");
    return milliseconds(theApp.idleAt - start);
}

void row(const char* name, double ms, std::size_t bytes, double plain) {
    std::printf("%-28s %9.1f %12zu %7.2f\n", name, ms, bytes, ms / plain);
}

void row(const char* name, double ms, std::size_t bytes, double plain, double aim) {
    std::printf("%-28s %9.1f %12zu %7.2f %6.0f  %s\n", name, ms, bytes, ms / plain, aim, ms <= aim ? "yes" : "no");
}

} // namespace

int main(int argc, char** argv) {
    zdr::GeneratorOptions options;
    options.layers = argc > 2 ? std::strtoull(argv[1], nullptr, 10) : 10000;
    options.states = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1000;
    if (!AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), SW_SHOWNORMAL))
        fail("the framework doesn't start");

    std::size_t bytes = 0;
    {
        const zdr::Drawing drawing = zdr::generateDrawing(options);
        bytes = stateBytes(drawing);
        bench::openDrawing(drawing);
    }
    const double plain = compareMs(bytes);

    runtime::ModuleLoader modules;
    const KelEdCommand& command = bench::loadLayerStateCommand(modules);
    std::vector<double> openings;
    for (int turn = 0; turn < kTurns; ++turn)
        openings.push_back(openManager(command, options.states));

    std::printf("%zu layer states over %zu layers; aim in ms\n", options.states, options.layers);
    std::printf("%-28s %9s %12s %7s %6s  %s\n", "name", "ms", "bytes", "ratio", "aim", "met?");
    row("memcmp of all states", plain, bytes, plain);
    row("open manager, first time", openings.front(), bytes, plain, kAimMs);
    std::sort(openings.begin(), openings.end());
    row("open manager, median", openings[openings.size() / 2], bytes, plain, kAimMs);

    modules.unloadAll();
    runtime::closeDocument(*runtime::currentDocument());
    return 0;
}
