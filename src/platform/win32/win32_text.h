// Small helpers shared by the Win32 implementations.
#pragma once

#include <windows.h>

#include <string>

#include "desktop.h"
#include "host.h"

namespace velmora {

// The platform's window handle as the portable code carries it, and back.
inline HWND Window_Of(WindowHandle window) { return reinterpret_cast<HWND>(static_cast<INT_PTR>(window)); }
inline WindowHandle Handle_Of(HWND window) { return static_cast<WindowHandle>(reinterpret_cast<INT_PTR>(window)); }

// The system's description of an error code, without its line end and final full stop.
std::string System_Text(DWORD code);

// The last error of the calling thread as a SystemError.
SystemError Last_Error();

// Handles every message waiting for this thread. A quit request is put back
// for the main loop to see; returns false when one was met.
bool Dispatch_Pending_Messages();

}  // namespace velmora
