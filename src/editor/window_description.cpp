#include "window_description.h"

#include <charconv>
#include <cmath>

#include "debug_log.h"
#include "engine.h"
#include "find_window.h"
#include "near_windows.h"
#include "text.h"
#include "form_placement.h"
#include "window_search.h"

namespace velmora {

namespace {

constexpr double kFractionSteps = 10000.0;

// A level's relative point, to four places: within a pixel for any window
// narrower than 10000 pixels. A point before the window's edge (in an owner
// that a pop-up stands beside) counts as the edge: findwindow takes no
// negative fraction. A window without width or height gives 0.
double Fraction(long at, long low, long high) {
  if (high <= low) return 0.0;
  const double fraction = static_cast<double>(at - low) / static_cast<double>(high - low);
  return fraction < 0 ? 0.0 : std::round(fraction * kFractionSteps) / kFractionSteps;
}

// The shortest decimal with a full stop, whatever the user's locale.
std::string Decimal_Text(double value) {
  char buffer[32];
  const auto written = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 4);
  std::string text(buffer, written.ptr);
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text;
}

// As a findwindow that found nothing: the nearest windows, on request.
void Explain_No_Match(Engine& engine, const std::vector<WindowLevel>& levels) {
  const auto wanted = engine.host.GetEnv("VELMORA_EXPLAIN");
  if (!wanted || Trim(*wanted) != "1") return;
  for (const std::string& line : Near_Window_Lines(Nearest_Windows(*engine.desktop, levels), levels.size()))
    Log_Trace(engine, true, line);
}

}  // namespace

std::string Describe_Window(Desktop& desktop, WindowHandle window, ScreenPoint point, std::vector<WindowLevel>& levels,
                            const std::function<void()>& betweenLevels) {
  std::string groups;
  while (window != 0 && levels.size() < 255) {
    WindowLevel level;
    level.className = desktop.ClassName(window, kTextBufferSize);
    level.title = desktop.WindowText(window, kTextBufferSize);
    const WindowHandle parent = desktop.GetParent(window);
    level.childId = Child_Id_Of(desktop, window, parent);
    WindowRect r;
    desktop.GetWindowRect(window, r);
    if (betweenLevels) betweenLevels();
    level.relativeX = Fraction(point.x, r.left, r.right);
    level.relativeY = Fraction(point.y, r.top, r.bottom);
    groups = ", " + Quoted(level.title) + ", " + Quoted(level.className) + ", " + std::to_string(level.childId) + ", " +
             Decimal_Text(level.relativeX) + ", " + Decimal_Text(level.relativeY) + groups;
    levels.insert(levels.begin(), std::move(level));
    window = parent;
  }
  return std::to_string(levels.size()) + groups;
}

void Report_Matches(Engine& engine, const std::vector<WindowLevel>& levels, WindowHandle described) {
  for (const WindowLevel& level : levels) {
    if (level.title.find('"') != std::string::npos || level.className.find('"') != std::string::npos)
      return Log_Trace(engine, true, "Info: The picked window cannot be found again: a title holds a double quote.");
  }
  // A second look before "no window": the walk reads the tree one window at a
  // time, and a program that reorders its windows meanwhile can hide one from
  // it (findwindow, when it plays, looks again and again).
  FindForecast forecast = Forecast_Find(engine, *engine.desktop, levels);
  if (forecast.matches == 0) forecast = Forecast_Find(engine, *engine.desktop, levels);
  std::string line;
  if (forecast.matches == 0) {
    line = "Info: No window matches the picked description now.";
    Log_Trace(engine, true, line);
    return Explain_No_Match(engine, levels);
  } else if (forecast.matches == 1) {
    line = "Info: 1 window matches the picked description now.";
  } else {
    line = "Info: " + std::to_string(forecast.matches) +
           " windows match the picked description now; the choice by the picked point lands on " +
           (forecast.chosen == described ? "the picked window." : "another window.");
  }
  Log_Trace(engine, true, line);
}

}  // namespace velmora
