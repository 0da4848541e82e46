#include "LayoutProblems.h"

#include "View.h"

#include <algorithm>
#include <cstdlib>

namespace gallery {

namespace {

constexpr int designDpi = 96;
// Points of the font in the dialogs' templates.
constexpr int fontPoints = 8;

struct Control {
    HWND window;
    std::wstring kind;
    std::wstring text;
    RECT rect; // of the dialog's client area
    LONG style;
};

std::wstring classOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

LONG buttonType(const Control& control) {
    return control.style & BS_TYPEMASK;
}

bool isButton(const Control& control) {
    return control.kind == L"Button" && buttonType(control) != BS_OWNERDRAW;
}

/// Whether a button shows an icon; its text is its name for screen readers and its mnemonic then.
bool showsIcon(const Control& control) {
    return isButton(control) && (control.style & BS_ICON) != 0;
}

bool isFrame(const Control& control) {
    return control.kind == L"Button" && buttonType(control) == BS_GROUPBOX;
}

bool isTick(const Control& control) {
    const LONG type = buttonType(control);
    return isButton(control) && (type == BS_CHECKBOX || type == BS_AUTOCHECKBOX || type == BS_RADIOBUTTON ||
                                 type == BS_AUTORADIOBUTTON || type == BS_AUTO3STATE);
}

bool isLabel(const Control& control) {
    return control.kind == L"Static" && (control.style & SS_TYPEMASK) <= SS_RIGHT;
}

/// Whether a label shortens its text by an ellipsis itself.
bool shortensItself(const Control& control) {
    return isLabel(control) && (control.style & SS_ELLIPSISMASK) != 0;
}

std::string nameOf(const Control& control) {
    return "control " + std::to_string(GetDlgCtrlID(control.window)) + " \"" + ui::narrow(control.text) + "\"";
}

std::vector<Control> controlsOf(HWND dialog) {
    std::vector<Control> controls;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsWindowVisible(child))
            continue;
        Control control{child, classOf(child), ui::textOf(child), {}, GetWindowLongW(child, GWL_STYLE)};
        GetWindowRect(child, &control.rect);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&control.rect), 2);
        controls.push_back(std::move(control));
    }
    return controls;
}

HFONT fontOf(HWND window) {
    return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
}

/// The size of the text in pixels when it is broken at that width.
SIZE textSize(const Control& control, int width) {
    const HDC dc = GetDC(control.window);
    const HGDIOBJ former = SelectObject(dc, fontOf(control.window));
    RECT room{0, 0, width, 0};
    const UINT marks = isLabel(control) && (control.style & SS_NOPREFIX) ? DT_NOPREFIX : 0;
    const UINT lines = isLabel(control) && (control.style & SS_TYPEMASK) != SS_LEFTNOWORDWRAP ? DT_WORDBREAK : 0;
    // Breaks a word that is wider than the label.
    const UINT words = isLabel(control) && (control.style & SS_EDITCONTROL) ? DT_EDITCONTROL : 0;
    DrawTextW(dc, control.text.c_str(), -1, &room, DT_CALCRECT | marks | lines | words);
    SelectObject(dc, former);
    ReleaseDC(control.window, dc);
    return {room.right - room.left, room.bottom - room.top};
}

/// What a button or a frame needs beside its text: its edges, or the box of a tick.
int roomBesideText(const Control& control) {
    const int dpi = static_cast<int>(GetDpiForWindow(control.window));
    if (isTick(control))
        return MulDiv(13 + 3, dpi, designDpi);
    return isButton(control) ? MulDiv(2 * 4, dpi, designDpi) : 0;
}

bool isCut(const Control& control) {
    if (control.text.empty() || !(isLabel(control) || isButton(control)) || shortensItself(control) ||
        showsIcon(control))
        return false;
    const int width = control.rect.right - control.rect.left;
    const int height = control.rect.bottom - control.rect.top;
    const SIZE text = textSize(control, width);
    return text.cx + roomBesideText(control) > width || text.cy > height;
}

/// The size of an icon's picture; zero for none.
SIZE iconSize(HICON icon) {
    ICONINFO info{};
    if (!icon || !GetIconInfo(icon, &info))
        return {};
    BITMAP mask{};
    GetObjectW(info.hbmMask, sizeof mask, &mask);
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    return {mask.bmWidth, info.hbmColor ? mask.bmHeight : mask.bmHeight / 2}; // black and white have one bitmap
}

bool isIconCut(const Control& control) {
    if (!showsIcon(control))
        return false;
    const SIZE icon = iconSize(reinterpret_cast<HICON>(SendMessageW(control.window, BM_GETIMAGE, IMAGE_ICON, 0)));
    const int edges = MulDiv(2 * 3, static_cast<int>(GetDpiForWindow(control.window)), designDpi);
    return icon.cx + edges > control.rect.right - control.rect.left ||
           icon.cy + edges > control.rect.bottom - control.rect.top;
}

bool isInside(const Control& control, const RECT& client) {
    return control.rect.left >= client.left && control.rect.top >= client.top && control.rect.right <= client.right &&
           control.rect.bottom <= client.bottom;
}

/// A spin control lies over the edit that it belongs to, and a page over the tabs.
bool mayLieOver(const Control& control) {
    return isFrame(control) || control.kind == L"msctls_updown32" || control.kind == L"#32770";
}

bool overlap(const Control& a, const Control& b) {
    RECT shared{};
    return !mayLieOver(a) && !mayLieOver(b) && IntersectRect(&shared, &a.rect, &b.rect);
}

bool hasFontOfScaling(const Control& control) {
    LOGFONTW font{};
    if (!GetObjectW(fontOf(control.window), sizeof font, &font))
        return true; // it draws without one
    const int wanted = MulDiv(fontPoints, static_cast<int>(GetDpiForWindow(control.window)), 72);
    return std::abs(std::abs(font.lfHeight) - wanted) <= 1;
}

} // namespace

std::vector<std::string> layoutProblems(HWND dialog) {
    std::vector<std::string> problems;
    RECT client{};
    GetClientRect(dialog, &client);
    const std::vector<Control> controls = controlsOf(dialog);
    for (const Control& control : controls) {
        if (isCut(control))
            problems.push_back("the text is cut off: " + nameOf(control));
        if (isIconCut(control))
            problems.push_back("the icon is cut off: " + nameOf(control));
        if (!isInside(control, client))
            problems.push_back("it lies out of the dialog: " + nameOf(control));
        if (!hasFontOfScaling(control))
            problems.push_back("its font isn't of the display's scaling: " + nameOf(control));
        for (const Control* other = &control + 1; other != controls.data() + controls.size(); ++other)
            if (overlap(control, *other))
                problems.push_back("one lies over the other: " + nameOf(control) + " and " + nameOf(*other));
        if (control.kind == L"#32770")
            for (const std::string& problem : layoutProblems(control.window))
                problems.push_back(problem);
    }
    return problems;
}

} // namespace gallery
