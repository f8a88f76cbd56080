// The mouse commands: usemouse moves the pointer to a screen position and
// clicks there; sendbuttons clicks inside the target window.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "target_state.h"
#include "wait_budget.h"
#include "window_search.h"

namespace velmora {

struct Engine;

// The move event's flag word: absolute position and move, upper bits set.
constexpr std::uint32_t kMoveFlags = 0xFFFF8001u;

// The button flags and click unit that a click code selects.
struct Click {
  std::uint32_t down = 0;
  std::uint32_t up = 0;
  bool isDouble = false;
  int unitMs = 0;  // the double-click time divided by 1.5 (by 50 in the fast pace)
};

// Throws a trappable error when the code's last character is not one of "lmrc".
// The fast pace's click is short, and a double click well within the time.
Click Click_Of(const std::string& clickCode, int doubleClickTime, bool fast = false);

class Mouse {
 public:
  Mouse(Engine& engine, Desktop& desktop, TargetState& target) : engine_(engine), desktop_(desktop), target_(target) {}

  void UseMouse_Command(bool Interactive, const std::string& clickCode, std::int32_t X, std::int32_t Y);
  void SendButtons_Command(bool Interactive, std::int32_t foundCount, const std::string& clickCode, double relativeX,
                           double relativeY, bool& LastCommandSucceeded);

 private:
  using MayGoOn = std::function<bool(bool release)>;
  bool Click_At(const Click& click, std::uint32_t down, std::uint32_t up, long x, long y, bool yieldAfterEach,
                const MayGoOn& mayGoOn);
  ScreenPoint Normalised(ScreenPoint pixel);
  bool Target_Ready(bool Interactive, WindowHandle window, const std::string& text, ScreenPoint pixel,
                    long long sampledAt, WaitBudget& budget);
  // Fast pace: a click at the place of the last one waits until the system
  // can no longer take the two for a double click.
  void Keep_Apart_From_Last_Click(long x, long y, int doubleClickTime);

  struct LastClick {
    long x = 0, y = 0;  // where, in the mouse events' 0 to 65536 range
    long long endedAt = -1;
  } lastClick_;

  Engine& engine_;
  Desktop& desktop_;
  TargetState& target_;
};

}  // namespace velmora
