// The time that one command may spend waiting for another program, shared by
// all its waits: a program that has stopped taking messages holds the script
// up for this long at most, whatever the command does.
#pragma once

#include <algorithm>
#include <string>

#include "desktop.h"
#include "host.h"

namespace velmora {

constexpr int kWaitBoundMilliseconds = 10000;

// "Info: The window did not respond within 10 seconds." and what follows it.
inline std::string Not_Responding_Line(const std::string& consequence = "") {
  return "Info: The window did not respond within " + std::to_string(kWaitBoundMilliseconds / 1000) + " seconds" +
         (consequence.empty() ? "." : "; " + consequence + ".");
}

class WaitBudget {
 public:
  explicit WaitBudget(Host& host) : host_(host) {}

  int Left() const { return static_cast<int>(left_); }

  // Runs one wait with what is left and takes off the time it took.
  template <typename Wait>
  bool Spend(Wait&& wait) {
    const long long start = host_.ClockMilliseconds();
    const bool done = wait(Left());
    left_ = std::max(0LL, left_ - (host_.ClockMilliseconds() - start));
    return done;
  }

  // Waits, within what is left, until the window's program takes its messages.
  bool Responds(Desktop& desktop, WindowHandle window) {
    return Spend([&](int milliseconds) { return desktop.WaitUntilResponsive(window, milliseconds); });
  }

  // Waits, within what is left, until the foreground program has taken its input.
  bool Idle(Desktop& desktop) {
    return Spend([&](int milliseconds) { return desktop.WaitForInputIdle(milliseconds); });
  }

  // Brings the window forward once its program takes messages (the time that
  // takes counts too) and lets it react; false, with nothing done, when it
  // did not respond in time.
  bool Bring_Forward(Desktop& desktop, WindowHandle window) {
    if (!Responds(desktop, window)) return false;
    Spend([&](int) { return desktop.SetForegroundWindow(window); });
    host_.DoEvents();
    return true;
  }

 private:
  Host& host_;
  long long left_ = kWaitBoundMilliseconds;
};

}  // namespace velmora
