#include "ProgressText.h"

#include <algorithm>
#include <cmath>

namespace progress {
namespace {

using std::chrono::milliseconds;

// A guess from less than this jumps about too much to be of use.
constexpr milliseconds kLeastToGuessFrom{2'000};

std::wstring counted(std::uint64_t number, const wchar_t* one, const wchar_t* several) {
    return std::to_wstring(number) + L" " + (number == 1 ? one : several);
}

/// The number with one digit behind the point below ten, and without it from there on.
std::wstring shortNumber(double number) {
    const auto tenths = static_cast<std::uint64_t>(std::llround(number * 10));
    if (tenths >= 100)
        return std::to_wstring(std::llround(number));
    return std::to_wstring(tenths / 10) + L"." + std::to_wstring(tenths % 10);
}

std::uint64_t rounded(double number, std::uint64_t step) {
    return std::max<std::uint64_t>(1, static_cast<std::uint64_t>(std::llround(number / static_cast<double>(step)))) *
           step;
}

std::wstring durationText(double seconds) {
    if (seconds < 10)
        return L"A few seconds";
    if (seconds < 55)
        return L"About " + counted(rounded(seconds, 5), L"second", L"seconds");
    if (seconds < 55 * 60)
        return L"About " + counted(rounded(seconds / 60, 1), L"minute", L"minutes");
    return L"About " + counted(rounded(seconds / 3600, 1), L"hour", L"hours");
}

} // namespace

std::wstring sizeText(std::uint64_t bytes) {
    constexpr const wchar_t* kUnits[] = {L" KB", L" MB", L" GB"};
    if (bytes < 1024)
        return counted(bytes, L"byte", L"bytes");
    double number = static_cast<double>(bytes) / 1024;
    const wchar_t* const* unit = std::begin(kUnits);
    // What would be shown as 1000 or more goes into the next unit.
    while (number >= 999.5 && unit + 1 != std::end(kUnits)) {
        number /= 1024;
        ++unit;
    }
    return shortNumber(number) + *unit;
}

std::wstring amountText(std::uint64_t done, std::uint64_t total) {
    return sizeText(done) + L" of " + sizeText(total);
}

std::wstring timeLeftText(std::uint64_t done, std::uint64_t total, milliseconds elapsed) {
    if (done == 0 || done >= total || elapsed < kLeastToGuessFrom)
        return {};
    const double each = static_cast<double>(elapsed.count()) / static_cast<double>(done);
    return durationText(each * static_cast<double>(total - done) / 1000) + L" left";
}

int barPosition(std::uint64_t done, std::uint64_t total, int length) {
    if (total == 0)
        return 0;
    return static_cast<int>(static_cast<double>(std::min(done, total)) / static_cast<double>(total) * length);
}

} // namespace progress
