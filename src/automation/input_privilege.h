// Input that the system drops without a word: keys and clicks for a window of
// an elevated program, sent by a Velmora that is not elevated.
#pragma once

#include "desktop.h"

namespace velmora {

struct Engine;

// Logs one Info line when the window's program runs at a higher integrity
// level than Velmora. Written whatever the debug state: without it, the
// script fails later with nothing in the log to say why.
void Note_Input_Barrier(Engine& engine, Desktop& desktop, bool interactive, WindowHandle window);

// The window under a usemouse position (0 to 65535 across the screen).
WindowHandle Window_At_Mouse_Position(Desktop& desktop, long x, long y);

}  // namespace velmora
