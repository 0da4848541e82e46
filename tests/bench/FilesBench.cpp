// What reading and writing a drawing cost, next to reading and writing the same bytes as a plain file. The two take
// turns, so that both have the same caches and the same disk; each figure is the median of its turns.
//   files_bench [layers states [folder]]
#include "DrawingGenerator.h"
#include "PlainFile.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kTurns = 7;

template <class Action> double milliseconds(Action action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void stopUnless(Vorn::ErrorStatus status, const std::wstring& reason) {
    if (status == Vorn::eOk)
        return;
    std::fprintf(stderr, "%s\n", zdr::toUtf8(reason).c_str());
    std::exit(1);
}

void row(const char* name, double ms, std::uintmax_t bytes) {
    std::printf("%-28s %9.1f %12ju\n", name, ms, bytes);
}

void row(const char* name, double ms, std::uintmax_t bytes, double plain, double aim) {
    const double ratio = ms / plain;
    std::printf("%-28s %9.1f %12ju %7.2f %6.1f  %s\n", name, ms, bytes, ratio, aim, ratio <= aim ? "yes" : "no");
}

/// Two actions that take turns; the first turn of each only warms up.
struct Turns {
    std::vector<double> plain, drawing;
    template <class Plain, class Ours> void run(Plain plainAction, Ours drawingAction) {
        for (int turn = 0; turn <= kTurns; ++turn) {
            const double plainTime = plainAction();
            const double drawingTime = drawingAction();
            if (turn == 0)
                continue;
            plain.push_back(plainTime);
            drawing.push_back(drawingTime);
        }
    }
};

} // namespace

int main(int argc, char** argv) {
    zdr::GeneratorOptions options;
    options.layers = argc > 2 ? std::strtoull(argv[1], nullptr, 10) : 10000;
    options.states = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1000;
    const std::filesystem::path folder =
        argc > 3 ? std::filesystem::path(argv[3]) : std::filesystem::temp_directory_path();
    const std::filesystem::path path = folder / "files_bench.zdr";
    const std::filesystem::path plainPath = folder / "files_bench.plain";
    const std::wstring widePath = zdr::widePath(path);

    const zdr::Drawing drawing = zdr::generateDrawing(options);
    std::wstring reason;
    zdr::FileStamp stamp;
    stopUnless(zdr::writeDrawingFile(widePath, drawing, reason, stamp, zdr::Overwrite::Always), reason);
    const PlainBytes bytes = readPlainFile(path.string());

    Turns reading, writing;
    reading.run(
        [&] {
            PlainBytes read;
            return milliseconds([&] { read = readPlainFile(path.string()); });
        },
        [&] {
            zdr::Drawing read;
            return milliseconds([&] { stopUnless(zdr::readDrawingFile(widePath, read, reason), reason); });
        });
    writing.run([&] { return milliseconds([&] { writePlainFile(plainPath.string(), bytes.span()); }); },
                [&] {
                    return milliseconds(
                        [&] { stopUnless(zdr::writeDrawingFile(widePath, drawing, reason, stamp), reason); });
                });

    std::printf("%zu layer states over %zu layers; median of %d turns\n", options.states, options.layers, kTurns);
    std::printf("%-28s %9s %12s %7s %6s  %s\n", "name", "ms", "bytes", "ratio", "aim", "met?");
    row("read plain file", median(reading.plain), bytes.size);
    row("read drawing", median(reading.drawing), bytes.size, median(reading.plain), 3);
    row("write and flush plain file", median(writing.plain), bytes.size);
    row("write and flush drawing", median(writing.drawing), bytes.size, median(writing.plain), 5);
    std::filesystem::remove(path);
    std::filesystem::remove(plainPath);
    return 0;
}
