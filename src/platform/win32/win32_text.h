// Small helpers shared by the Win32 implementations.
#pragma once

#include <windows.h>

#include <string>

#include "host.h"

namespace velmora {

// The system's description of an error code, without its line end and final full stop.
std::string System_Text(DWORD code);

// The last error of the calling thread as a SystemError.
SystemError Last_Error();

// Handles every message waiting for this thread. A quit request is put back
// for the main loop to see; returns false when one was met.
bool Dispatch_Pending_Messages();

}  // namespace velmora
