// Waits on other programs that keep this thread answering what is sent to
// its own windows: a program that sends to us while we wait for it (as the
// activation of its window does) must not hold both of us up.
#pragma once

#include <windows.h>

namespace velmora {

// Handles the messages sent to this thread's windows, none of those posted.
void Answer_Sent_Messages();

// True when the window's thread took a message within the time.
bool Round_Trip(HWND window, int timeoutMilliseconds);

// Waits for the object to be signalled, at most the time; true when it was.
bool Wait_For_Object(HANDLE object, DWORD milliseconds);

// Waits until the process waits for input with none pending, at most the
// time; true when it did (or cannot be waited for).
bool Wait_For_Input_Idle(HANDLE process, DWORD milliseconds);

}  // namespace velmora
