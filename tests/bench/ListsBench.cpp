// How long it takes to open drawings that somebody made to take long: with each list of the drawing file ten and a
// hundred times as long, and files of 100 MB in which one thing is there as often as it can be.
//   lists_bench [MB of each file [list, to open the large file of this one alone]]
#include "Exponent.h"
#include "LongLists.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string_view>

namespace {

/// Of the processor: what it costs, whatever else the computer does.
template <class Action> double milliseconds(Action action) {
    const std::clock_t start = std::clock();
    action();
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double leastOf(int turns, const FilesOfDrawing& files) {
    double least = milliseconds([&] { files.open(); });
    for (int turn = 1; turn < turns; ++turn)
        least = std::min(least, milliseconds([&] { files.open(); }));
    return least;
}

void printLists() {
    constexpr std::size_t kCounts[] = {300, 3000, 30000};
    std::printf("milliseconds of the processor to open, the least of several turns\n%-40s", "");
    for (const std::size_t count : kCounts)
        std::printf(" %9zu", count);
    std::printf(" %9s  %s\n", "exponent", "at most 1.2?");
    for (const LongList& list : longLists()) {
        std::printf("%-40s", list.name);
        std::vector<double> counts, times;
        for (const std::size_t count : kCounts) {
            const FilesOfDrawing files(list.make(count));
            counts.push_back(static_cast<double>(count));
            times.push_back(leastOf(7, files));
            std::printf(" %9.2f", times.back());
            std::fflush(stdout);
        }
        const double slope = exponent(counts, times);
        std::printf(" %9.2f  %s\n", slope, slope <= 1.2 ? "yes" : "no");
    }
}

void printLargeFiles(std::size_t bytes, std::string_view only) {
    std::printf("\nopening files of %zu MB\n%-40s %9s %9s  %s\n", bytes >> 20, "", "MB", "ms", "at most 3,000?");
    for (const LongList& list : longLists()) {
        if (!only.empty() && only != list.name)
            continue;
        constexpr std::size_t kTried = 10000;
        const std::size_t each = std::max<std::size_t>(FilesOfDrawing(list.make(kTried)).size() / kTried, 1);
        const std::size_t count = bytes / each;
        // Names with higher numbers are longer, so a file may have become too large.
        const std::size_t size = FilesOfDrawing(list.make(count)).size();
        const FilesOfDrawing files(list.make(size > bytes ? count * bytes / size : count));
        const double time = milliseconds([&] { files.open(); });
        std::printf("%-40s %9zu %9.0f  %s\n", list.name, files.size() >> 20, time, time <= 3000 ? "yes" : "no");
        std::fflush(stdout);
    }
}

} // namespace

int main(int argc, char** argv) {
    const std::size_t megabytes = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 100;
    const std::string_view only = argc > 2 ? argv[2] : "";
    if (only.empty())
        printLists();
    printLargeFiles(megabytes << 20, only);
    return 0;
}
