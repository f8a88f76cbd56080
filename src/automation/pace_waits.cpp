#include "pace_waits.h"

#include <algorithm>

#include "engine.h"
#include "session.h"

namespace velmora {

namespace {

constexpr int kLookMilliseconds = 10;         // between two looks at a window that is not ready
constexpr int kStillSampleMilliseconds = 30;  // between the two samples of a rectangle that must stand still

}  // namespace

bool Fast_Pace(const Engine& engine) { return engine.state.RunPace == Pace::Fast; }

bool Wait_Until_Enabled(Engine& engine, Desktop& desktop, WindowHandle window, WaitBudget& budget) {
  if (!Fast_Pace(engine)) {
    for (int counter = 0; !desktop.IsWindowEnabled(window) && counter < 10; ++counter) Pause_Tenths(engine, 5);
    return desktop.IsWindowEnabled(window);
  }
  Host& host = engine.host;
  while (!desktop.IsWindowEnabled(window)) {
    // A window that is gone will not be enabled any more.
    if (budget.Left() <= 0 || desktop.RootWindow(window) == 0) return false;
    budget.Spend([&](int left) {
      host.Sleep(std::min(left, kLookMilliseconds));
      host.DoEvents();
      return true;
    });
  }
  return true;
}

void Pause_Before_Input(Engine& engine, long long sampledAt) {
  if (!Fast_Pace(engine)) return Pause_Tenths(engine, 3);
  if (sampledAt < 0) return;
  const long long age = engine.host.ClockMilliseconds() - sampledAt;
  if (age < kStillSampleMilliseconds) engine.host.Sleep(static_cast<int>(kStillSampleMilliseconds - age));
}

bool Wait_Until_Idle(Engine& engine, Desktop& desktop, WaitBudget& budget) {
  if (!Fast_Pace(engine)) return true;
  return budget.Idle(desktop);
}

}  // namespace velmora
