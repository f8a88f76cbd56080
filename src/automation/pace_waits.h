// The waits of the input commands that differ between the two paces. The
// default pace pauses for fixed times; the fast pace waits only for what the
// input needs: the window enabled, standing still, and its program idle.
#pragma once

#include "desktop.h"
#include "wait_budget.h"

namespace velmora {

struct Engine;

bool Fast_Pace(const Engine& engine);

// Default: up to ten half-second pauses. Fast: a look every few
// milliseconds, within the command's wait budget. True when enabled.
bool Wait_Until_Enabled(Engine& engine, Desktop& desktop, WindowHandle window, WaitBudget& budget);

// The pause before the keys or the click go. Default: three tenths. Fast:
// until a rectangle taken at `sampledAt` (on the host's clock; none when
// negative) is old enough to be compared with a second sample.
void Pause_Before_Input(Engine& engine, long long sampledAt = -1);

// Fast pace only: waits, within the budget, until the program that has the
// foreground is idle, every input given to it taken; true when it is, and
// always in the default pace.
bool Wait_Until_Idle(Engine& engine, Desktop& desktop, WaitBudget& budget);

}  // namespace velmora
