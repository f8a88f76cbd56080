// Keyboard focus for a window of another thread, given without letting that
// thread hold the caller up.
#pragma once

#include <windows.h>

namespace velmora {

enum class FocusOutcome { Focused, Refused, TimedOut };

// Focus can be set only from a thread that shares the window's input state.
// A short-lived thread of ours joins it and sets the focus, which waits for
// the window's thread; the caller waits for that at most the bound. On
// TimedOut the helper thread is left to finish whenever the window's program
// wakes up, and the focus may change then.
FocusOutcome Give_Focus_Within(HWND window, DWORD milliseconds);

}  // namespace velmora
