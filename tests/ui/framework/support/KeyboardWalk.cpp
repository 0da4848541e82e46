#include "KeyboardWalk.h"

#include "Accessibility.h"
#include "Pixels.h"

#include <commctrl.h>

#include <algorithm>
#include <cwctype>
#include <map>

namespace keyboard {
namespace {

std::wstring classOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

bool isOfClass(HWND window, std::wstring_view name) {
    return lstrcmpiW(classOf(window).c_str(), std::wstring(name).c_str()) == 0;
}

bool hasStyle(HWND window, LONG_PTR style) {
    return (GetWindowLongPtrW(window, GWL_STYLE) & style) == style;
}

bool isPage(HWND window) {
    return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0;
}

bool isInUse(HWND control, bool hidden) {
    return hidden || (hasStyle(control, WS_VISIBLE) && IsWindowEnabled(control));
}

/// The controls of a window in their order, those of pages within it in their page's place.
std::vector<HWND> controlsOf(HWND dialog, bool hidden) {
    std::vector<HWND> controls;
    for (HWND control = GetWindow(dialog, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT)) {
        if (!isInUse(control, hidden))
            continue;
        const std::vector<HWND> inside = isPage(control) ? controlsOf(control, hidden) : std::vector<HWND>{control};
        controls.insert(controls.end(), inside.begin(), inside.end());
    }
    return controls;
}

/// The character after a single & in a control's text; 0 when there is none.
wchar_t accessKey(HWND control) {
    const bool isStatic = isOfClass(control, WC_STATICW);
    const bool marks = isStatic ? !hasStyle(control, SS_NOPREFIX) : isOfClass(control, WC_BUTTONW);
    const std::wstring text = marks ? ui::textOf(control) : std::wstring();
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != L'&')
            continue;
        if (text[i + 1] != L'&')
            return static_cast<wchar_t>(std::towupper(text[i + 1]));
        ++i;
    }
    return L'\0';
}

/// The label in front of a control, from which it takes its name and its access key.
std::wstring labelOf(HWND control) {
    const HWND before = GetWindow(control, GW_HWNDPREV);
    return before && isOfClass(before, WC_STATICW) ? ui::textOf(before) : std::wstring();
}

/// Whether a screen reader has a name for a control. The content of an edit box or a list is no name.
bool hasName(HWND control) {
    for (const wchar_t* holder : {WC_EDITW, WC_LISTVIEWW, WC_COMBOBOXW, WC_LISTBOXW})
        if (isOfClass(control, holder))
            return !labelOf(control).empty();
    return !ui::toldAbout(control).name.empty() || !labelOf(control).empty();
}

/// Whether the user does something with a control of this class, so that Tab has to stop there. Radio buttons are left
/// out, because Tab stops at only one of a group.
bool isWorked(HWND control) {
    const LONG_PTR kind = GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK;
    if (isOfClass(control, WC_BUTTONW))
        return kind != BS_GROUPBOX && kind != BS_RADIOBUTTON && kind != BS_AUTORADIOBUTTON;
    for (const wchar_t* worked : {WC_EDITW, WC_LISTVIEWW, WC_COMBOBOXW, WC_LISTBOXW, WC_TABCONTROLW, WC_TREEVIEWW})
        if (isOfClass(control, worked))
            return true;
    return false;
}

bool isPicture(HWND control) {
    const LONG_PTR kind = GetWindowLongPtrW(control, GWL_STYLE) & SS_TYPEMASK;
    return isOfClass(control, WC_STATICW) && (kind == SS_OWNERDRAW || kind == SS_BITMAP || kind == SS_ICON);
}

/// The place of a control on the screen. For tabs only their own row: the controls of a page are in the rest.
RECT placeOf(HWND control) {
    RECT place = {};
    GetWindowRect(control, &place);
    RECT tab = {};
    if (isOfClass(control, WC_TABCONTROLW) && TabCtrl_GetItemRect(control, 0, &tab))
        place.bottom = place.top + tab.bottom;
    return place;
}

/// Whether a reader comes to `control` after `before`: it is to the right of it or below it.
bool isReadAfter(HWND control, HWND before) {
    const RECT place = placeOf(control);
    const RECT former = placeOf(before);
    return place.left >= former.right || place.top >= former.bottom;
}

void addKeySlips(const std::vector<HWND>& controls, std::vector<std::string>& found) {
    std::map<wchar_t, HWND> owners;
    for (const HWND control : controls) {
        const wchar_t key = accessKey(control);
        if (key && !owners.emplace(key, control).second)
            found.push_back(describe(control) + " has the access key of " + describe(owners[key]));
    }
}

/// The stops form a circle, so one step back is right: the one from the last stop to the first.
void addOrderSlips(const std::vector<HWND>& stops, std::vector<std::string>& found) {
    std::vector<std::string> back;
    for (std::size_t i = 0; i < stops.size(); ++i) {
        const HWND next = stops[(i + 1) % stops.size()];
        if (stops.size() > 1 && !isReadAfter(next, stops[i]))
            back.push_back(describe(stops[i]) + " leads back to " + describe(next));
    }
    if (back.size() > 1)
        found.insert(found.end(), back.begin(), back.end());
}

/// Where the focus is; in the edit field of a combo box, that is the box.
HWND controlWithFocus() {
    const HWND focus = GetFocus();
    const HWND parent = GetParent(focus);
    return isOfClass(parent, WC_COMBOBOXW) ? parent : focus;
}

/// The state of a walk while it goes on.
class Walker {
  public:
    explicit Walker(Walk& walk) : m_walk(walk) {}

    ui::Obstacle step(const ui::View& view) {
        const HWND focus = controlWithFocus();
        if (m_presses == 0)
            begin(view);
        else if (focus == m_last)
            return "the focus stays at " + describe(focus);
        else
            arrive(focus);
        if (m_presses > 2 * static_cast<int>(m_walk.stops.size()))
            return finish();
        ++m_presses;
        m_last = focus;
        ui::pressKey(VK_TAB);
        return "the walk goes on";
    }

  private:
    void begin(const ui::View& view) { m_walk = {tabStops(view.window()), {}, {}, slips(view.window())}; }
    // In the first round the frames of the focus appear, which the system hides until a key is used.
    void arrive(HWND focus) {
        if (m_presses <= static_cast<int>(m_walk.stops.size()))
            return;
        m_walk.visited.push_back(focus);
        m_focused[focus] = pixelsWithFrameOf(focus);
        m_unfocused[m_last] = pixelsWithFrameOf(m_last);
    }
    ui::Obstacle finish() {
        if (m_walk.visited.size() > m_walk.stops.size())
            m_walk.visited.resize(m_walk.stops.size());
        for (const auto& [control, pixels] : m_focused)
            if (m_unfocused.count(control) && m_unfocused[control] == pixels)
                m_walk.unshown.push_back(control);
        return std::nullopt;
    }

    Walk& m_walk;
    int m_presses = 0;
    HWND m_last = nullptr;
    std::map<HWND, Pixels> m_focused;
    std::map<HWND, Pixels> m_unfocused;
};

} // namespace

std::vector<HWND> tabStops(HWND dialog, bool hidden) {
    std::vector<HWND> stops = controlsOf(dialog, hidden);
    std::erase_if(stops, [](HWND control) { return !hasStyle(control, WS_TABSTOP); });
    return stops;
}

std::vector<std::string> slips(HWND dialog, bool hidden) {
    std::vector<std::string> found;
    const std::vector<HWND> controls = controlsOf(dialog, hidden);
    addKeySlips(controls, found);
    for (const HWND control : controls)
        if (isWorked(control) && !hasStyle(control, WS_TABSTOP))
            found.push_back(describe(control) + " can't be reached by the Tab key");
    for (const HWND control : controls)
        if ((hasStyle(control, WS_TABSTOP) || isPicture(control)) && !hasName(control))
            found.push_back(describe(control) + " has no name");
    addOrderSlips(tabStops(dialog, hidden), found);
    return found;
}

ui::Script walk(Walk& walk) {
    const auto walker = std::make_shared<Walker>(walk);
    ui::Script script;
    script.step(
        "walk through the dialog by the Tab key", [walker](const ui::View& view) { return walker->step(view); },
        std::chrono::seconds(15));
    return script;
}

std::string describe(HWND control) {
    return "control " + std::to_string(GetDlgCtrlID(control)) + " of class " + ui::narrow(classOf(control)) + " \"" +
           ui::narrow(ui::textOf(control)) + "\"";
}

} // namespace keyboard
