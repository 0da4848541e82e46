#include "Pictures.h"

#include "DrivenProgram.h"
#include "Screenshot.h"

#include <cstdio>
#include <utility>

namespace tour {

namespace {

// How long, and how often at the most, the tour waits for the last paint to reach the screen before it takes a picture.
constexpr DWORD paintTime = 200;
constexpr int mostLooks = 10;

} // namespace

Pictures::Pictures(std::wstring folder) : m_folder(std::move(folder)) {}

void Pictures::take(const std::wstring& name) {
    // A tip would lie over what is to be seen.
    movePointer({GetSystemMetrics(SM_CXSCREEN) - 4, GetSystemMetrics(SM_CYSCREEN) - 4});
    // Painting counts as done when the screen looks the same twice in a row. A blinking caret never lets it, so the
    // number of looks is limited.
    std::vector<char> before, now = ui::screenBytes();
    for (int looks = 0; now != before && looks < mostLooks; ++looks) {
        Sleep(paintTime);
        before = std::exchange(now, ui::screenBytes());
    }
    ++m_taken;
    const std::wstring number = (m_taken < 10 ? L"0" : L"") + std::to_wstring(m_taken);
    const std::wstring path = m_folder + L"\\" + number + L"-" + name + L".bmp";
    if (!ui::saveScreenshot(path))
        std::fprintf(stderr, "tour: %s can't be written\n", narrow(path).c_str());
}

} // namespace tour
