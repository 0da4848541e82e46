// What commands do that stand in scripts of tests so that a person can act while the script runs.
#pragma once

#include <windows.h>

inline constexpr ULONGLONG kLongEnough = 25; // milliseconds; the window runs lines for less before it looks at input

/// Takes so much time, for as long as `goesOn`, that the window looks at input afterwards.
template <class GoesOn> void takeTimeWhile(GoesOn goesOn) {
    const ULONGLONG start = GetTickCount64();
    while (goesOn() && GetTickCount64() - start < kLongEnough) {
    }
}

/// Lets input in, so that it is dealt with before a script of many such lines ends.
inline void letInputIn() {
    takeTimeWhile([] { return HIWORD(GetQueueStatus(QS_INPUT)) != 0; });
}
