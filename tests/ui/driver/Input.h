// The hands of a scripted person: mouse and keyboard through SendInput, so that windows get the messages, the focus
// changes and the key states that a person's input brings. Serves tests in process and programs that drive another one.
#pragma once

#include <windows.h>

#include <string_view>

namespace ui {

/// Keys held down during a press or a click; combined with |.
enum Held : unsigned { holdNothing = 0, holdShift = 1, holdControl = 2, holdAlt = 4 };

/// Moves the pointer towards a point of the screen. Answers whether it has come to rest there; until then it is to be
/// called again a little later. (A window system reports pointer movements late, and a late report of an earlier one
/// moves the pointer away again; a click sent along with the movement would land there.)
bool pointerRestsAt(POINT point);
/// A corner of the screen where no window is.
constexpr POINT emptyCorner = {1270, 1014};
/// Moves the pointer there, and answers once it is there.
void bringPointerAway();
/// Says again that the pointer is where it was last brought. On a busy system the X server may report the place before
/// once more, a quarter of a second late, and nothing after it; where the system knows the right place, nothing
/// happens.
void holdPointer();
/// Presses and releases the left button `times` times where the pointer rests; two make a double click. Waits first,
/// where needed, so that a click isn't taken for the second half of an earlier double click.
void click(int times = 1, unsigned held = holdNothing);
/// The buttons that don't take part in double clicks here.
enum class OtherButton { right, middle };
/// Presses and releases another button than the left one where the pointer rests.
void click(OtherButton button);
/// Presses the left button where the pointer rests and leaves it down; a release is to follow. The keys are only held
/// for the press.
void pressButton(unsigned held = holdNothing);
void releaseButton();
/// Turns the wheel where the pointer rests; WHEEL_DELTA is one step away from the user.
void turnWheel(int delta);
/// Presses and releases a key given by its virtual key code.
void pressKey(WORD key, unsigned held = holdNothing);
/// Presses the keys that make a character on the keyboard in use, with more keys held: Alt and '<', for example.
/// False when that keyboard has no such character.
bool pressCharacter(wchar_t character, unsigned held = holdNothing);
/// Types a text. What takes more than one key, or none of this keyboard, comes as an input method would bring it.
void typeText(std::wstring_view text);

/// The middle of a rectangle.
POINT middleOf(const RECT& rect);

} // namespace ui
