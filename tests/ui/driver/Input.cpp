#include "Input.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace ui {

namespace {

struct HeldKey {
    Held flag;
    WORD key;
};
constexpr HeldKey heldKeys[] = {{holdShift, VK_SHIFT}, {holdControl, VK_CONTROL}, {holdAlt, VK_MENU}};

// Where the pointer is to be, and since when it is there.
POINT g_target;
DWORD g_arrival;
constexpr DWORD restTime = 30;

// The last click, so that the next one isn't taken for its second half.
POINT g_lastClick;
DWORD g_lastClickTime;
bool g_clicked = false;

class Batch {
  public:
    void key(WORD code, bool down) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = code;
        input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
        input.ki.dwFlags = (down ? 0 : KEYEVENTF_KEYUP) | (isExtended(code) ? KEYEVENTF_EXTENDEDKEY : 0);
        m_inputs.push_back(input);
    }
    void unicode(wchar_t character, bool down) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wScan = character;
        input.ki.dwFlags = KEYEVENTF_UNICODE | (down ? 0 : KEYEVENTF_KEYUP);
        m_inputs.push_back(input);
    }
    void holdAll(unsigned held, bool down) {
        for (const HeldKey& each : heldKeys)
            if (held & each.flag)
                key(each.key, down);
    }
    void mouse(DWORD flags, POINT point = {}) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dx = normalised(point.x, GetSystemMetrics(SM_CXSCREEN));
        input.mi.dy = normalised(point.y, GetSystemMetrics(SM_CYSCREEN));
        input.mi.dwFlags = flags;
        input.mi.time = m_time;
        m_inputs.push_back(input);
    }
    void wheel(int delta) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = MOUSEEVENTF_WHEEL;
        input.mi.mouseData = static_cast<DWORD>(delta);
        m_inputs.push_back(input);
    }
    void move(POINT point) { mouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, point); }
    // Gives the place with each press and release, because on a busy system the X server may report an older place of
    // the pointer after the move to the new one.
    void button(DWORD flags) {
        move(g_target);
        mouse(flags);
    }
    void send() {
        SendInput(static_cast<UINT>(m_inputs.size()), m_inputs.data(), sizeof(INPUT));
        m_inputs.clear();
    }

  private:
    // Absolute moves count 65536 steps across the screen; rounded up, so that the way back gives the same pixel.
    static LONG normalised(LONG pixel, int extent) {
        return static_cast<LONG>((pixel * 65536LL + extent - 1) / extent);
    }
    static bool isExtended(WORD code) {
        constexpr WORD extended[] = {VK_LEFT, VK_RIGHT, VK_UP,   VK_DOWN,   VK_HOME,
                                     VK_END,  VK_PRIOR, VK_NEXT, VK_INSERT, VK_DELETE};
        return std::find(std::begin(extended), std::end(extended), code) != std::end(extended);
    }
    std::vector<INPUT> m_inputs;
    // All clicks of one batch get the same time stamp, however long a busy system takes to pass them on.
    DWORD m_time = GetTickCount();
};

void waitOutDoubleClick(POINT point) {
    const bool sameSpot = std::abs(point.x - g_lastClick.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
                          std::abs(point.y - g_lastClick.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
    if (!g_clicked || !sameSpot)
        return;
    // The tick count is updated in steps, and late ones, so one sleep of the right length may not be enough.
    while (GetTickCount() - g_lastClickTime <= GetDoubleClickTime())
        Sleep(5);
}

void noteClick() {
    g_clicked = true;
    g_lastClick = g_target;
    g_lastClickTime = GetTickCount();
}

} // namespace

bool pointerRestsAt(POINT point) {
    POINT now{};
    GetCursorPos(&now);
    const bool there = now.x == point.x && now.y == point.y;
    if (!there) {
        Batch batch;
        batch.move(point);
        batch.send();
    }
    const bool resting = there && g_target.x == point.x && g_target.y == point.y;
    if (!resting)
        g_arrival = GetTickCount();
    g_target = point;
    return resting && GetTickCount() - g_arrival >= restTime;
}

void bringPointerAway() {
    while (!pointerRestsAt(emptyCorner))
        Sleep(5);
}

void holdPointer() {
    Batch batch;
    batch.move(g_target);
    batch.send();
}

void click(int times, unsigned held) {
    waitOutDoubleClick(g_target);
    Batch batch;
    batch.holdAll(held, true);
    for (int i = 0; i < times; ++i) {
        batch.button(MOUSEEVENTF_LEFTDOWN);
        batch.button(MOUSEEVENTF_LEFTUP);
    }
    batch.holdAll(held, false);
    batch.send();
    noteClick();
}

void click(OtherButton button) {
    const bool right = button == OtherButton::right;
    Batch batch;
    batch.button(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_MIDDLEDOWN);
    batch.button(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_MIDDLEUP);
    batch.send();
}

void pressButton(unsigned held) {
    waitOutDoubleClick(g_target);
    Batch batch;
    batch.holdAll(held, true);
    batch.button(MOUSEEVENTF_LEFTDOWN);
    batch.holdAll(held, false);
    batch.send();
    noteClick();
}

void releaseButton() {
    Batch batch;
    batch.button(MOUSEEVENTF_LEFTUP);
    batch.send();
}

void turnWheel(int delta) {
    Batch batch;
    batch.wheel(delta);
    batch.send();
}

void pressKey(WORD key, unsigned held) {
    Batch batch;
    batch.holdAll(held, true);
    batch.key(key, true);
    batch.key(key, false);
    batch.holdAll(held, false);
    batch.send();
}

bool pressCharacter(wchar_t character, unsigned held) {
    const SHORT found = VkKeyScanW(character);
    if (found == -1)
        return false;
    const unsigned state = HIBYTE(found);
    const unsigned needed =
        ((state & 1) ? holdShift : 0u) | ((state & 2) ? holdControl : 0u) | ((state & 4) ? holdAlt : 0u);
    pressKey(LOBYTE(found), held | needed);
    return true;
}

void typeText(std::wstring_view text) {
    for (const wchar_t character : text) {
        const SHORT found = VkKeyScanW(character);
        if (found != -1 && HIBYTE(found) == 0) {
            pressKey(LOBYTE(found));
            continue;
        }
        // Not with Shift: when a window comes up under the pointer, the X server tells which keys are down; it knows
        // nothing of ours, and so Wine lets go of Shift before the letter (one capital in 200 on a busy system).
        Batch batch;
        batch.unicode(character, true);
        batch.unicode(character, false);
        batch.send();
    }
}

POINT middleOf(const RECT& rect) {
    return {rect.left + (rect.right - rect.left) / 2, rect.top + (rect.bottom - rect.top) / 2};
}

} // namespace ui
