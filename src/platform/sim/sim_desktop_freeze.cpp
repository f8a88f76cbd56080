#include <algorithm>

#include "sim_desktop.h"

namespace velmora {

WindowHandle SimDesktop::Top_Level_Of(WindowHandle window) const {
  while (window > 1 && static_cast<std::size_t>(window) < windows_.size()) {
    const WindowHandle parent = windows_[static_cast<std::size_t>(window)].parent;
    if (parent <= 1) break;
    window = parent;
  }
  return window;
}

void SimDesktop::Freeze(WindowHandle window, long long untilMs) { frozenUntil_[Top_Level_Of(window)] = untilMs; }

// Takes the time the program stays frozen, at most the time-out.
bool SimDesktop::WaitUntilResponsive(WindowHandle window, int timeoutMilliseconds) {
  const auto frozen = frozenUntil_.find(Top_Level_Of(window));
  if (frozen == frozenUntil_.end() || host_.clockMs >= frozen->second) return true;
  const long long left = frozen->second - host_.clockMs;
  const long long waited = std::min<long long>(left, std::max(timeoutMilliseconds, 0));
  host_.clockMs += waited;
  return waited == left;
}

}  // namespace velmora
