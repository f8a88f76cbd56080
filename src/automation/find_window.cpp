#include "find_window.h"

#include <algorithm>
#include <cmath>

#include "debug_log.h"
#include "engine.h"
#include "environment.h"
#include "near_windows.h"
#include "numeric.h"
#include "parsed_command.h"
#include "screen_point.h"
#include "session.h"
#include "text.h"
#include "trap.h"
#include "wait_budget.h"

namespace velmora {

namespace {

// Reads the text up to the next delimiter and moves past the delimiter.
std::string Take_Until(const std::string& text, std::size_t& at, const std::string& delimiter) {
  const auto end = text.find(delimiter, at);
  if (end == std::string::npos) throw SubscriptError();
  std::string part = text.substr(at, end - at);
  at = end + delimiter.size();
  return part;
}

double Number(const std::string& text) {
  const auto value = Numeric_Value(text);
  if (!value) throw TypeMismatchError();
  return *value;
}

std::string Seconds_Text(std::int32_t seconds) {
  return std::to_string(seconds) + (seconds == 1 ? " second." : " seconds.");
}

// A fraction of a rectangle's width and height, as a point on the screen.
struct Point {
  double x, y;
};

// Window changes are watched, and the classes read are remembered, while it lives.
class ChangeWatch {
 public:
  ChangeWatch(Desktop& desktop, WindowSearch& search) : desktop_(desktop), search_(search) {
    desktop_.WatchWindowChanges(true);
    search_.Remember_Classes(true);
  }
  ~ChangeWatch() {
    desktop_.WatchWindowChanges(false);
    search_.Remember_Classes(false);
  }
  ChangeWatch(const ChangeWatch&) = delete;
  ChangeWatch& operator=(const ChangeWatch&) = delete;

 private:
  Desktop& desktop_;
  WindowSearch& search_;
};

Point At_Fraction(const WindowRect& r, double fx, double fy) {
  return {static_cast<double>(r.left) + static_cast<double>(r.right - r.left) * fx,
          static_cast<double>(r.top) + static_cast<double>(r.bottom - r.top) * fy};
}

}  // namespace

std::vector<WindowLevel> Read_Window_Levels(const std::string& parameters) {
  std::size_t at = 0;
  const double count = Number(Take_Until(parameters, at, ", "));
  if (count < 1 || count > 255 || count != std::floor(count)) throw InvalidCallError();
  std::vector<WindowLevel> levels(static_cast<std::size_t>(count));
  for (WindowLevel& level : levels) {
    Take_Until(parameters, at, "\"");
    level.title = Take_Until(parameters, at, "\", \"");
    level.className = Take_Until(parameters, at, "\", ");
    level.childId = Rounded_To<std::int32_t>(Number(Take_Until(parameters, at, ", ")));
    level.relativeX = Number(Take_Until(parameters, at, ", "));
    level.relativeY = Number(Take_Until(parameters, at, ", "));
  }
  return levels;
}

std::string Window_Path_Of_Levels(const std::vector<WindowLevel>& levels) {
  std::string path;
  for (auto level = levels.rbegin(); level != levels.rend(); ++level)
    path += std::to_string(level->childId) + ", \"" + level->className + "\", \"" + level->title + "\", ";
  return path + std::to_string(levels.size());
}

void FindWindow::Log(const std::string& text) { Log_Trace(engine_, engine_.state.InteractiveSession, text); }

// The fast pace: a search at once, and again as soon as a window appears, is
// shown or is renamed, or at the latest after a tenth; the elapsed time is
// logged in whole seconds as the default pace logs it.
std::int32_t FindWindow::Find_As_Soon_As_There(const std::string& WindowText, const std::string& ClassName,
                                               std::int32_t ChildID, const std::string& WindowPath,
                                               std::int32_t WaitSeconds, std::vector<WindowHandle>& FoundList) {
  constexpr long long kLookAgainMilliseconds = 100;
  Host& host = engine_.host;
  Log("Maximum Wait Time:  " + Seconds_Text(WaitSeconds));
  const long long start = host.ClockMilliseconds(), limit = 1000LL * std::max(WaitSeconds, 0);
  const ChangeWatch watch(desktop_, search_);
  std::int32_t count = 0;
  long long elapsed = 0;
  for (;;) {
    count =
        search_.Find_Window_Like(FoundList, desktop_.DesktopWindow(), 0, WindowText, ClassName, ChildID, WindowPath);
    elapsed = host.ClockMilliseconds() - start;
    if (count > 0 || elapsed >= limit || engine_.state.HaltRequested) break;
    Wait_For_Change(start + std::min(elapsed + kLookAgainMilliseconds, limit));
  }
  Log("Total Elapsed Time:  " +
      Seconds_Text(static_cast<std::int32_t>(std::min<long long>(elapsed / 1000, WaitSeconds))));
  return count;
}

// Until a window changes or the clock reaches the time, while the user
// interface runs (a halt ends it too).
void FindWindow::Wait_For_Change(long long until) {
  Host& host = engine_.host;
  for (long long now = host.ClockMilliseconds(); now < until && !engine_.state.HaltRequested;
       now = host.ClockMilliseconds()) {
    const bool changed = desktop_.WaitForWindowChange(static_cast<int>(until - now));
    host.DoEvents();
    if (changed) return;
  }
}

std::int32_t FindWindow::Find_The_Window(const std::string& WindowText, const std::string& ClassName,
                                         std::int32_t ChildID, const std::string& WindowPath, std::int32_t WaitSeconds,
                                         std::vector<WindowHandle>& FoundList) {
  Log("Maximum Wait Time:  " + Seconds_Text(WaitSeconds));
  std::int64_t remaining = WaitSeconds;
  std::int32_t count = 0;
  do {
    Pause_Tenths(engine_, 10);
    count =
        search_.Find_Window_Like(FoundList, desktop_.DesktopWindow(), 0, WindowText, ClassName, ChildID, WindowPath);
    --remaining;
  } while (!(remaining < 1 || count > 0 || engine_.state.HaltRequested));
  Log("Total Elapsed Time:  " + Seconds_Text(static_cast<std::int32_t>(WaitSeconds - remaining)));
  return count;
}

std::int32_t FindWindow::FindWindow_Command(bool Interactive, const ParsedCommand& command,
                                            bool& LastCommandSucceeded) {
  Trap(engine_, Interactive, "Velmora.(General).FindWindow_Command.TrappableErrors.1", kFatal, [&] {
    target_.levels = Read_Window_Levels(Convert_EnvVars(engine_, Interactive, command.Parameters));
    const WindowLevel& innermost = target_.levels.back();
    target_.WindowText = innermost.title;
    target_.ClassName = innermost.className;
    search_.TargetChildID = innermost.childId;
    auto& list = target_.TargetList;
    const auto find =
        engine_.state.RunPace == Pace::Fast ? &FindWindow::Find_As_Soon_As_There : &FindWindow::Find_The_Window;
    target_.FoundCount = (this->*find)(target_.WindowText, target_.ClassName, innermost.childId,
                                       Window_Path_Of_Levels(target_.levels), command.TimeOut, list);
    if (target_.FoundCount < 1) {
      LastCommandSucceeded = false;
      Log("The window was NOT found.");
      Explain_Not_Found();
      return;
    }
    LastCommandSucceeded = true;
    if (target_.FoundCount > 1) Log("Found:  " + std::to_string(target_.FoundCount) + " Windows!");
    for (std::int32_t i = 1; i <= target_.FoundCount; ++i) Log("Found Window:  " + std::to_string(list[i]));
    if (target_.FoundCount > 1)
      target_.FoundCount = Narrow_By_Distance(desktop_, target_.levels, list, target_.FoundCount);
    if (target_.FoundCount > 1) {
      Warn_Several();
      Choose_Under_Pointer();
    }
    Log("==>  Using Window:  " + std::to_string(list[1]));
  });
  return target_.FoundCount;
}

std::int32_t Narrow_By_Distance(Desktop& desktop, const std::vector<WindowLevel>& levels,
                                std::vector<WindowHandle>& list, std::int32_t count) {
  for (const WindowLevel& level : levels) {
    double best = 100.0;
    std::vector<WindowHandle> nearest;
    for (std::int32_t i = 1; i <= count; ++i) {
      WindowRect parentRect, ownRect;
      if (!desktop.GetWindowRect(desktop.GetParent(list[i]), parentRect)) continue;
      desktop.GetWindowRect(list[i], ownRect);
      const Point a = At_Fraction(parentRect, level.relativeX, level.relativeY);
      const Point b = At_Fraction(ownRect, level.relativeX, level.relativeY);
      const double distance = std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y));
      if (distance < best) {
        best = distance;
        nearest.assign(1, list[i]);
      } else if (distance == best) {
        nearest.push_back(list[i]);
      }
    }
    if (nearest.size() > 1) {
      std::copy(nearest.begin(), nearest.end(), list.begin() + 1);
      count = static_cast<std::int32_t>(nearest.size());
    } else if (nearest.size() == 1) {
      // To the front, by exchange, so that no candidate is lost or listed twice.
      std::iter_swap(list.begin() + 1, std::find(list.begin() + 1, list.end(), nearest.front()));
    }
  }
  return count;
}

bool Lies_At_Picked_Point(Desktop& desktop, const std::vector<WindowLevel>& levels, WindowHandle candidate) {
  const WindowLevel& picked = levels.size() >= 2 ? levels[levels.size() - 2] : levels.back();
  WindowRect r;
  desktop.GetWindowRect(desktop.GetParent(candidate), r);
  return desktop.WindowFromPoint(Pixel_At(r, picked.relativeX, picked.relativeY)) == candidate;
}

FindForecast Forecast_Find(Engine& engine, Desktop& desktop, const std::vector<WindowLevel>& levels) {
  const WindowLevel& innermost = levels.back();
  WindowSearch search(engine, desktop);
  search.TargetChildID = innermost.childId;
  std::vector<WindowHandle> list{0};
  FindForecast forecast;
  forecast.matches = search.Find_Window_Like(list, desktop.DesktopWindow(), 0, innermost.title, innermost.className,
                                             innermost.childId, Window_Path_Of_Levels(levels));
  if (forecast.matches < 1) return forecast;
  const std::int32_t left = Narrow_By_Distance(desktop, levels, list, forecast.matches);
  forecast.chosen = list[1];
  for (std::int32_t i = 1; left > 1 && i <= left; ++i) {
    if (Lies_At_Picked_Point(desktop, levels, list[i])) {
      forecast.chosen = list[i];
      break;
    }
  }
  return forecast;
}

// Only on request: the established log has no such lines, and the walk
// for them reads windows that the search itself passed by.
void FindWindow::Explain_Not_Found() {
  const auto wanted = engine_.host.GetEnv("VELMORA_EXPLAIN");
  if (!wanted || Trim(*wanted) != "1") return;
  for (const std::string& line : Near_Window_Lines(Nearest_Windows(desktop_, target_.levels), target_.levels.size()))
    Log(line);
}

void FindWindow::Warn_Several() {
  Log("");
  Log("N.B.:  More than one possilbe Target Window/Control was found!");
  Log("       You should probably find SOME OTHER way of accessing this Window/Control.");
  Log("       Consider using your application's Menu or if necessary the UseMouse command.");
  Log("This FindWindow command will ARBITRARILY chosen the FIRST Target Window/Control under the Mouse Pointer that it "
      "identifies!");
  Log("If NONE of the Possible Targets are found under the Mouse Pointer, the first Possible Target in the list WILL "
      "BE USED!");
  Log("");
  Log("Found:  " + std::to_string(target_.FoundCount) + " Possible Target Windows/Controls!");
  for (std::int32_t i = 1; i <= target_.FoundCount; ++i)
    Log("Possible Target:  " + std::to_string(target_.TargetList[i]));
}

// The first candidate that is the window at the point where the target was
// picked (its parent's level fractions within the parent) becomes the target.
// Once a candidate's program does not respond, none is brought forward any
// more: the choice then goes by what lies at each point as it is.
void FindWindow::Choose_Under_Pointer() {
  auto& list = target_.TargetList;
  WaitBudget budget(engine_.host);
  bool responding = true;
  for (std::int32_t i = 1; i <= target_.FoundCount; ++i) {
    const WindowHandle parent = desktop_.GetParent(list[i]);
    if (responding && !(budget.Bring_Forward(desktop_, parent) && budget.Bring_Forward(desktop_, list[i]))) {
      responding = false;
      Log(Not_Responding_Line());
    }
    const bool under = Lies_At_Picked_Point(desktop_, target_.levels, list[i]);
    engine_.host.DoEvents();
    if (under) {
      std::swap(list[1], list[i]);
      return;
    }
  }
}

}  // namespace velmora
