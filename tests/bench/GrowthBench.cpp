// How the engine's figures grow with the number of layers and of layer states, what a layer and a state's layer take in
// memory, and the size that an office meets: 1,000 layers with 100 states. Native.
//   growth_bench
#include "DrawingCopies.h"
#include "Exponent.h"
#include "LayerStateMask.h"
#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <malloc.h>

namespace {

using Clock = std::chrono::steady_clock;

struct Size {
    std::size_t layers;
    std::size_t states;
};

double millisecondsOf(const std::function<void()>& action) {
    const auto start = Clock::now();
    action();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// The median of at least 7 runs and of what fits into a fifth of a second; `prepare` isn't measured.
double median(const std::function<void()>& action, const std::function<void()>& prepare) {
    std::vector<double> times;
    const auto start = Clock::now();
    while (times.size() < 7 || (Clock::now() - start < std::chrono::milliseconds(200) && times.size() < 10000)) {
        prepare();
        times.push_back(millisecondsOf(action));
    }
    std::ranges::nth_element(times, times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2));
    return times[times.size() / 2];
}

void check(bool good, const char* what) {
    if (good)
        return;
    std::fprintf(stderr, "growth_bench: %s failed\n", what);
    std::exit(1);
}

/// A database and its file, at one size.
class Subject {
  public:
    explicit Subject(Size size)
        : m_size(size), m_path(zdr::widePath(std::filesystem::temp_directory_path() / "growth_bench.zdr")) {
        engine::replaceDrawing(m_database, drawingWithOwnColumns(size.layers, size.states, false));
        for (std::size_t i = 0; i < size.states; ++i)
            m_names.push_back(L"State " + std::to_wstring(i));
        write();
    }
    ~Subject() { std::filesystem::remove(m_path); }
    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;

    Size size() const { return m_size; }
    // Changes a layer and changes it back: every state matches again, but no answer to that is kept any more.
    void forgetComparisons() {
        engine::LayerValues values = engine::layerValues(m_database, 0);
        for (int times = 0; times < 2; ++times) {
            values.flags = static_cast<std::uint8_t>(values.flags ^ zdr::kLayerPlot);
            check(engine::setLayerValues(m_database, 0, values) == Vorn::eOk, "changing a layer");
        }
    }
    void record() { check(states().saveLayerState(L"Recorded", MaskAllProperties) == Vorn::eOk, "recording a state"); }
    void forgetRecord() { states().deleteLayerState(L"Recorded"); }
    // Restores one of two states in turn, as one step.
    void restore() {
        engine::beginUndoGroup(m_database);
        check(states().restoreLayerState(m_names[m_turn++ % 2].c_str(), {}, 0, nullptr) == Vorn::eOk, "a restore");
        engine::endUndoGroup(m_database);
    }
    void undo() { check(engine::undo(m_database), "undoing a restore"); }
    void compareAll() {
        for (const std::wstring& name : m_names)
            check(states().compareLayerStateToDb(name.c_str(), {}), "comparing a state");
    }
    void rename() {
        const std::wstring to = m_names[0] == L"State 0" ? L"Renamed" : L"State 0";
        check(states().renameLayerState(m_names[0].c_str(), to.c_str()) == Vorn::eOk, "renaming a state");
        m_names[0] = to;
    }
    void read() {
        KelDbDatabase database(false, true);
        check(database.readZdrFile(m_path.c_str(), 64, false, nullptr) == Vorn::eOk, "reading");
    }
    void openToFirstName() {
        KelDbDatabase database(false, true);
        check(database.readZdrFile(m_path.c_str(), 64, false, nullptr) == Vorn::eOk, "reading");
        KelArray<KelString> names;
        check(database.getLayerStateManager()->getLayerStateNames(names, true, true) == Vorn::eOk, "listing");
    }
    void write() {
        std::wstring reason;
        check(zdr::writeDrawingFile(m_path, engine::drawingOf(m_database), reason, m_stamp, zdr::Overwrite::Always) ==
                  Vorn::eOk,
              "writing");
    }

  private:
    KelDbLayerStateManager& states() { return *m_database.getLayerStateManager(); }

    Size m_size;
    std::wstring m_path;
    KelDbDatabase m_database{false, false};
    std::vector<std::wstring> m_names;
    std::size_t m_turn = 0;
    zdr::FileStamp m_stamp;
};

struct Figure {
    const char* name;
    double aim; ///< milliseconds at 1,000 layers and 100 states; 0: none
    void (*action)(Subject&);
    void (*prepare)(Subject&);
};

void nothing(Subject&) {}

const Figure figures[] = {
    {"record", 0.009, [](Subject& s) { s.record(); }, [](Subject& s) { s.forgetRecord(); }},
    {"restore", 0.022, [](Subject& s) { s.restore(); }, nothing},
    {"undo of a restore", 0, [](Subject& s) { s.undo(); }, [](Subject& s) { s.restore(); }},
    {"compare all states", 0.1, [](Subject& s) { s.compareAll(); }, [](Subject& s) { s.forgetComparisons(); }},
    {"compare all again", 0, [](Subject& s) { s.compareAll(); }, nothing},
    {"rename", 0.025, [](Subject& s) { s.rename(); }, nothing},
    {"read", 10, [](Subject& s) { s.read(); }, nothing},
    {"open to first state name", 0, [](Subject& s) { s.openToFirstName(); }, nothing},
    {"write", 10, [](Subject& s) { s.write(); }, nothing},
};

double measure(const Figure& figure, Subject& subject) {
    return median([&] { figure.action(subject); }, [&] { figure.prepare(subject); });
}

void printGrowth(const char* of, const std::vector<Size>& sizes, double (*count)(Size)) {
    std::vector<double> counts;
    std::vector<std::vector<double>> times(std::size(figures));
    for (const Size size : sizes) {
        Subject subject(size);
        counts.push_back(count(size));
        for (std::size_t i = 0; i < std::size(figures); ++i)
            times[i].push_back(measure(figures[i], subject));
    }
    std::printf("\n%-28s", of);
    for (const double number : counts)
        std::printf(" %11.0f", number);
    std::printf("  exponent  of the last step\n");
    for (std::size_t i = 0; i < std::size(figures); ++i) {
        std::printf("%-28s", figures[i].name);
        for (const double time : times[i])
            std::printf(" %11.4f", time);
        const std::vector<double> lastCounts(counts.end() - 2, counts.end());
        const std::vector<double> lastTimes(times[i].end() - 2, times[i].end());
        std::printf(" %9.2f %17.2f\n", exponent(counts, times[i]), exponent(lastCounts, lastTimes));
    }
}

void printOfficeSize() {
    Subject subject({1000, 100});
    std::printf("\n1,000 layers, 100 states\n%-28s %9s %9s  %s\n", "name", "ms", "aim, ms", "met?");
    for (const Figure& figure : figures) {
        const double time = measure(figure, subject);
        std::printf("%-28s %9.4f", figure.name, time);
        if (figure.aim > 0)
            std::printf(" %9.4f  %s", figure.aim, time <= figure.aim ? "yes" : "no");
        std::printf("\n");
    }
}

double bytesInUse() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

double bytesOfDatabase(Size size) {
    const double before = bytesInUse();
    KelDbDatabase database(false, false);
    engine::replaceDrawing(database, drawingWithOwnColumns(size.layers, size.states, false));
    return bytesInUse() - before;
}

void printMemory() {
    constexpr double layers = 100000, states = 100;
    const double bare = bytesOfDatabase({std::size_t{100000}, 0});
    const double filled = bytesOfDatabase({std::size_t{100000}, 100});
    std::printf("\nmemory\n%-28s %9.1f bytes\n%-28s %9.1f bytes\n", "a layer", bare / layers, "a layer of a state",
                (filled - bare) / (layers * states));
}

} // namespace

int main() {
    std::printf("milliseconds, medians\n");
    printOfficeSize();
    printGrowth("layers, with 10 states", {{100, 10}, {1000, 10}, {10000, 10}, {100000, 10}},
                [](Size size) { return static_cast<double>(size.layers); });
    printGrowth("states, of 100 layers", {{100, 10}, {100, 100}, {100, 1000}, {100, 10000}},
                [](Size size) { return static_cast<double>(size.states); });
    printMemory();
    return 0;
}
