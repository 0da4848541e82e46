// What reading a state for the edit dialog costs by the number of its layers: restoring it onto the drawing's layers,
// walking them, and putting them back. Each figure is the best of several.
//   reading_bench
#include "CLayerRcd.h"
#include "DrawingCopies.h"
#include "GrowthTable.h"
#include "LayerRecords.h"
#include "StateReading.h"
#include "engine/DatabaseAccess.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

namespace {

constexpr std::size_t kSizes[] = {1250, 2500, 5000, 10000};
constexpr int kTurns = 20;

double readingMs(std::size_t layers) {
    KelDbDatabase database(false, false);
    engine::replaceDrawing(database, drawingWithOwnColumns(layers, 2, false));
    keldbHostApplicationServices()->setWorkingDatabase(&database);
    double least = 0;
    for (int turn = 0; turn < kTurns; ++turn) {
        CObList records;
        const auto start = std::chrono::steady_clock::now();
        const bool read = readStateLayers(&database, L"State 1", records);
        const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
        if (!read || static_cast<std::size_t>(records.GetCount()) != layers) {
            std::fprintf(stderr, "the state can't be read\n");
            std::exit(1);
        }
        deleteRecords(records);
        least = turn == 0 ? time.count() : std::min(least, time.count());
    }
    keldbHostApplicationServices()->setWorkingDatabase(nullptr);
    return least;
}

} // namespace

int main() {
    printGrowthHeading("milliseconds, by the number of layers", kSizes);
    printGrowth({"read a state", 100}, kSizes, readingMs);
    return 0;
}
