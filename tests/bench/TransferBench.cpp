// What it costs to bring layer states in and out, without a window: states of another drawing, layer states files, and
// the states of the older layer tool. Native.
//   transfer_bench
#include "DrawingCopies.h"
#include "Exponent.h"
#include "KelEditor.h"
#include "LegacyStates.h"
#include "PlainFile.h"
#include "SideDrawing.h"
#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <random>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

double millisecondsOf(const std::function<void()>& action) {
    const auto start = Clock::now();
    action();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void check(bool good, const char* what) {
    if (good)
        return;
    std::fprintf(stderr, "transfer_bench: %s failed\n", what);
    std::exit(1);
}

/// A file of the temporary folder, gone at the end. Its name differs from run to run, since two may go on at once.
class TemporaryFile {
  public:
    explicit TemporaryFile(const char* ending)
        : path(std::filesystem::temp_directory_path() /
               ("transfer_bench_" + std::to_string(std::random_device()()) + ending)) {}
    ~TemporaryFile() {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    std::wstring wide() const { return zdr::widePath(path); }
    const std::filesystem::path path;
};

KelDbLayerStateManager& statesOf(KelDbDatabase& database) {
    return *database.getLayerStateManager();
}

/// A drawing of copies as a database has it, where each layer has a handle.
zdr::Drawing drawingInUse(std::size_t layers, std::size_t states) {
    KelDbDatabase database(false, false);
    engine::replaceDrawing(database, drawingWithOwnColumns(layers, states, false));
    return engine::drawingOf(database);
}

/// All states of another drawing, beside reading its file twice.
void importDrawing(std::size_t layers, std::size_t states) {
    const TemporaryFile file(".zdr");
    {
        zdr::FileStamp stamp;
        std::wstring reason;
        check(zdr::writeDrawingFile(file.wide(), drawingInUse(layers, states), reason, stamp, zdr::Overwrite::Always) ==
                  Vorn::eOk,
              "writing a drawing");
    }
    const double reading = millisecondsOf([&] {
        for (int times = 0; times < 2; ++times)
            check(readSideDrawing(file.wide().c_str()).database != nullptr, "reading a drawing");
    });
    KelDbDatabase target(false, false);
    engine::replaceDrawing(target, drawingWithOwnColumns(layers, 0, false));
    const double importing = millisecondsOf([&] {
        const SideDrawing source = readSideDrawing(file.wide().c_str());
        KelArray<KelString> names;
        check(source.database && statesOf(*source.database).getLayerStateNames(names, true, true) == Vorn::eOk,
              "reading a drawing");
        for (const KelString& name : names)
            check(statesOf(target).importLayerStateFromDb(name.kwszPtr(), source.database.get()) == Vorn::eOk,
                  "importing a state");
    });
    std::printf("  import %zu states of %zu layers from a drawing  %8.1f ms, %.1f of reading it twice\n", states,
                layers, importing, importing / reading);
}

/// The best of some times, which what else goes on in the computer disturbs least. What is prepared isn't timed.
double bestMillisecondsOf(
    const std::function<void()>& action, const std::function<void()>& prepare = [] {}) {
    constexpr int kTimes = 10;
    double best = 0;
    for (int times = 0; times < kTimes; ++times) {
        prepare();
        const double time = millisecondsOf(action);
        best = times == 0 ? time : std::min(best, time);
    }
    return best;
}

/// A layer states file, beside writing and reading its bytes, and beside what a JSON library takes for looking through
/// them in memory, with nothing made of them.
void stateFile(std::size_t layers) {
    const TemporaryFile file(".las");
    const TemporaryFile copy(".copy");
    KelDbDatabase database(false, false);
    engine::replaceDrawing(database, drawingWithOwnColumns(layers, 1, false));
    constexpr const wchar_t* kState = L"State 0";
    const double exporting = bestMillisecondsOf(
        [&] { check(statesOf(database).exportLayerState(kState, file.wide().c_str()) == Vorn::eOk, "an export"); });
    const PlainBytes bytes = readPlainFile(file.path.string());
    const double writing = bestMillisecondsOf([&] { writePlainFile(copy.path.string(), bytes.span()); });
    const double reading = bestMillisecondsOf([&] { readPlainFile(copy.path.string()); });
    const auto* const text = reinterpret_cast<const char*>(bytes.bytes.get());
    const double library =
        bestMillisecondsOf([&] { check(nlohmann::json::accept(text, text + bytes.size), "a library's parse"); });
    KelString name;
    const double importing = bestMillisecondsOf(
        [&] { check(statesOf(database).importLayerState(file.wide().c_str(), name) == Vorn::eOk, "an import"); },
        [&] { check(statesOf(database).deleteLayerState(kState) == Vorn::eOk, "deleting a state"); });
    std::printf("  export a .las of %zu layers (%zu bytes)  %8.2f ms, %.1f of writing and flushing those bytes\n",
                layers, bytes.size, exporting, exporting / writing);
    std::printf("  import it                                %8.2f ms, %.1f of reading them\n", importing,
                importing / reading);
    std::printf("  a JSON library looks through them        %8.2f ms, %.1f of reading them\n", library,
                library / reading);
}

/// A drawing whose layers have blocks of the older tool: each layer of `blocks` states, all states on as many layers.
zdr::Drawing legacyDrawing(std::size_t layers, std::size_t states, std::size_t blocks) {
    zdr::Drawing drawing = drawingInUse(layers, 0);
    for (std::size_t layer = 0; layer < layers; ++layer) {
        zdr::ExtendedData data{drawing.layers[layer].handle, L"ZVH", {}};
        for (std::size_t block = 0; block < blocks; ++block) {
            const std::wstring name = L"S" + std::to_wstring((layer * blocks + block) % states);
            const auto number = [](int code, int value) {
                return zdr::ExtendedValue{static_cast<std::int16_t>(code), std::int32_t{value}};
            };
            data.values.add({kExtendedString, L"{" + name});
            data.values.add(number(kExtendedInt16, 4));
            data.values.add(number(kExtendedInt16, 3));
            data.values.add({kExtendedString, L"Continuous"});
            data.values.add(number(kExtendedInt32, 25));
            data.values.add(number(kExtendedInt32, 1));
            data.values.add({kExtendedHandle, L"0"});
            data.values.add({kExtendedString, name + L"}"});
        }
        drawing.extendedData.push_back(std::move(data));
    }
    return drawing;
}

double migrate(std::size_t layers, std::size_t states) {
    constexpr std::size_t kBlocks = 10;
    KelDbDatabase database(false, false);
    engine::replaceDrawing(database, legacyDrawing(layers, states, kBlocks));
    keldbHostApplicationServices()->setWorkingDatabase(&database);
    int count = 0;
    const double time = millisecondsOf([&] { check(convertLegacyStates(count), "a migration"); });
    check(count == static_cast<int>(states), "counting states");
    keldbHostApplicationServices()->setWorkingDatabase(nullptr);
    return time;
}

void migrations() {
    const std::vector<double> layers = {250, 500, 1000, 2000}, states = {25, 50, 100, 200};
    std::vector<double> byLayers, byStates;
    for (const double each : layers)
        byLayers.push_back(migrate(static_cast<std::size_t>(each), 100));
    for (const double each : states)
        byStates.push_back(migrate(1000, static_cast<std::size_t>(each)));
    std::printf("  migrate 100 older states over 1,000 layers, 10 on each  %8.1f ms\n", byLayers[2]);
    std::printf("  growth exponent %.2f in layers, %.2f in states\n", exponent(layers, byLayers),
                exponent(states, byStates));
    KelDbDatabase database(false, false);
    engine::replaceDrawing(database, drawingWithOwnColumns(10000, 0, false));
    keldbHostApplicationServices()->setWorkingDatabase(&database);
    int count = 0;
    const double nothing = millisecondsOf([&] { check(!convertLegacyStates(count), "finding nothing"); });
    keldbHostApplicationServices()->setWorkingDatabase(nullptr);
    std::printf("  find nothing to migrate in 10,000 layers  %8.1f ms\n", nothing);
}

} // namespace

int main() {
    // First, while no memory has been given back: what the import leaves would spare the small migrations alone the
    // wait for new pages.
    migrations();
    importDrawing(10000, 1000);
    stateFile(10000);
}
