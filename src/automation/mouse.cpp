#include "mouse.h"

#include <algorithm>
#include <cstdlib>

#include "debug_log.h"
#include "engine.h"
#include "error_report.h"
#include "input_guard.h"
#include "numeric.h"
#include "pace_waits.h"
#include "screen_point.h"
#include "send_keys.h"
#include "session.h"
#include "trap.h"
#include "wait_budget.h"

namespace velmora {

namespace {

struct ButtonFlags {
  std::uint32_t down, up;
};
constexpr ButtonFlags kButtons[] = {{2, 4}, {32, 64}, {8, 16}, {0, 0}};  // l, m, r, c

}  // namespace

Click Click_Of(const std::string& clickCode, int doubleClickTime, bool fast) {
  const auto place = clickCode.empty() ? std::string::npos : std::string("lmrc").find(clickCode.back());
  if (place == std::string::npos) throw SubscriptError();
  Click click;
  click.down = kButtons[place].down;
  click.up = kButtons[place].up;
  click.isDouble = !clickCode.empty() && clickCode.front() == 'd';
  click.unitMs = Rounded_To<std::int32_t>(static_cast<double>(doubleClickTime) / (fast ? 50.0 : 1.5));
  if (fast) click.unitMs = std::max(click.unitMs, 1);
  return click;
}

void Mouse::Keep_Apart_From_Last_Click(long x, long y, int doubleClickTime) {
  Host& host = engine_.host;
  // Within two pixels: the system's double-click rectangle is four wide.
  const auto near = [](long a, long b, int pixels) {
    return std::llabs(static_cast<long long>(a) - b) * pixels <= 2 * 65536LL;
  };
  if (lastClick_.endedAt >= 0 && near(x, lastClick_.x, desktop_.ScreenWidth()) &&
      near(y, lastClick_.y, desktop_.ScreenHeight())) {
    const long long since = host.ClockMilliseconds() - lastClick_.endedAt;
    if (since <= doubleClickTime) host.Sleep(static_cast<int>(doubleClickTime - since + 1));
  }
}

// Down, three units, up; a double click adds a unit, down, three units, up
// and five units. Each event is sent only when mayGoOn (given whether it is
// a button release) allows it; false when one was held back.
bool Mouse::Click_At(const Click& click, std::uint32_t down, std::uint32_t up, long x, long y, bool yieldAfterEach,
                     const MayGoOn& mayGoOn) {
  Host& host = engine_.host;
  const auto send = [&](std::uint32_t flags, bool release) {
    if (mayGoOn && !mayGoOn(release)) return false;
    desktop_.MouseEvent(flags, x, y);
    return true;
  };
  if (Fast_Pace(engine_)) Keep_Apart_From_Last_Click(x, y, desktop_.DoubleClickTime());
  lastClick_ = {x, y, -1};
  if (!send(down, false)) return false;
  host.Sleep(3 * click.unitMs);
  host.DoEvents();
  if (!send(up, true)) return false;
  lastClick_.endedAt = host.ClockMilliseconds();
  if (!click.isDouble) return true;
  host.Sleep(click.unitMs);
  host.DoEvents();
  if (!send(down, false)) return false;
  host.Sleep(3 * click.unitMs);
  if (yieldAfterEach) host.DoEvents();
  if (!send(up, true)) return false;
  lastClick_.endedAt = host.ClockMilliseconds();
  host.Sleep(5 * click.unitMs);
  if (yieldAfterEach) host.DoEvents();
  return true;
}

void Mouse::UseMouse_Command(bool Interactive, const std::string& clickCode, std::int32_t X, std::int32_t Y) {
  Trap(engine_, Interactive, "Velmora.(General).UseMouse_Command.TrappableErrors.1", kFatal, [&] {
    const Click click = Click_Of(clickCode, desktop_.DoubleClickTime(), Fast_Pace(engine_));
    desktop_.MouseEvent(kMoveFlags, X, Y);
    engine_.host.DoEvents();
    Click_At(click, click.down, click.up, X, Y, false, nullptr);
    WaitBudget budget(engine_.host);
    Wait_Until_Idle(engine_, desktop_, budget);
  });
}

// The pixel as a position in the 0 to 65536 range across the screen.
ScreenPoint Mouse::Normalised(ScreenPoint pixel) {
  const double width = desktop_.ScreenWidth(), height = desktop_.ScreenHeight();
  return {Rounded_Within(Mouse_Share(pixel.x, width), INT32_MIN, INT32_MAX),
          Rounded_Within(Mouse_Share(pixel.y, height), INT32_MIN, INT32_MAX)};
}

// Brought forward when something else lies at the point, enabled, and (in
// the fast pace) its program idle; false, with the reason logged, when not.
bool Mouse::Target_Ready(bool Interactive, WindowHandle window, const std::string& text, ScreenPoint pixel,
                         long long sampledAt, WaitBudget& budget) {
  // A click for a program that does not respond could land on whatever lies
  // at the point: none is sent.
  const auto not_responding = [&] {
    Log_Trace(engine_, Interactive, Not_Responding_Line("no click was sent"));
    return false;
  };
  if (desktop_.WindowFromPoint(pixel) != window && !budget.Bring_Forward(desktop_, window)) return not_responding();
  if (!Wait_Until_Enabled(engine_, desktop_, window, budget)) {
    Report_Error(engine_, Interactive, -1, "This window is not able to receive input:  " + text,
                 "Is Window Enabled Error!", "Velmora.(General).SendButtons_Command.IsWindowEnabledError.1", kGoOn);
    return false;
  }
  Pause_Before_Input(engine_, sampledAt);
  return Wait_Until_Idle(engine_, desktop_, budget) || not_responding();
}

void Mouse::SendButtons_Command(bool Interactive, std::int32_t foundCount, const std::string& clickCode,
                                double relativeX, double relativeY, bool& LastCommandSucceeded) {
  Trap(engine_, Interactive, "Velmora.(General).SendButtons_Command.TrappableErrors.1", kFatal, [&] {
    if (foundCount <= 0) {
      Report_Error(engine_, Interactive, -1, "No Window found to SendButtons_To", "No SendButtons Window Found Error!",
                   "Velmora.(General).SendButtons_Command.Send_Buttons_ToError.1", kFatal);
      return;
    }
    Host& host = engine_.host;
    const WindowHandle window = target_.TargetList.at(1);
    LastCommandSucceeded = true;
    const std::string text = desktop_.WindowText(window, kTextBufferSize);
    Log_Window_Identity(engine_, Interactive, text, desktop_.ClassName(window, kTextBufferSize),
                        Child_Id_Of(desktop_, window), window);
    if (!Fast_Pace(engine_)) {
      host.Sleep(10);
      host.DoEvents();
    }
    WindowRect r;
    desktop_.GetWindowRect(window, r);
    const long long sampledAt = host.ClockMilliseconds();
    host.DoEvents();
    const Click click = Click_Of(clickCode, desktop_.DoubleClickTime(), Fast_Pace(engine_));
    ScreenPoint pixel = Pixel_At(r, relativeX, relativeY);
    ScreenPoint point = Normalised(pixel);
    desktop_.MouseEvent(kMoveFlags, point.x, point.y);
    host.DoEvents();
    WaitBudget budget(host);
    if (!Target_Ready(Interactive, window, text, pixel, sampledAt, budget)) {
      LastCommandSucceeded = false;
      return;
    }
    // Taken again: the window may have moved meanwhile, and it must stand still.
    InputGuard guard(engine_, desktop_, budget, window);
    if (!guard.Ready_For_Click(relativeX, relativeY, r, pixel)) {
      Log_Always(engine_, Interactive, guard.Problem());
      LastCommandSucceeded = false;
      return;
    }
    point = Normalised(pixel);
    desktop_.MouseEvent(kMoveFlags, point.x, point.y);
    host.DoEvents();
    Log_Trace(engine_, Interactive, "Mouse X, Y:  " + std::to_string(point.x) + ", " + std::to_string(point.y));
    const bool whole = Click_At(click, kMoveFlags | click.down, kMoveFlags | click.up, point.x, point.y, true,
                                [&](bool release) { return guard.May_Go_On_Clicking(pixel, release); });
    if (!whole || guard.Click_Interrupted()) {
      Log_Always(engine_, Interactive, guard.Problem());
      LastCommandSucceeded = false;
    }
    Wait_Until_Idle(engine_, desktop_, budget);
  });
}

}  // namespace velmora
