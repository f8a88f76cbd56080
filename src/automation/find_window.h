// The findwindow command: waits up to a time-out for the described window,
// chooses one when several match, and makes it the target.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "target_state.h"
#include "window_search.h"

namespace velmora {

struct Engine;
struct ParsedCommand;

// The levels of a findwindow line's parameters as the parser writes them:
// `N, "title", "class", id, x, y, ` once for each level. Throws a trappable
// error when the text does not have that shape.
std::vector<WindowLevel> Read_Window_Levels(const std::string& parameters);

// The window path that the innermost level must have.
std::string Window_Path_Of_Levels(const std::vector<WindowLevel>& levels);

// For each level in turn, keeps the candidates (list[1..count]) whose place
// at the level's fractions within their parent lies nearest (under 100
// pixels) to the same fractions within themselves; returns how many are left.
std::int32_t Narrow_By_Distance(Desktop& desktop, const std::vector<WindowLevel>& levels,
                                std::vector<WindowHandle>& list, std::int32_t count);

// Whether the candidate is the window at the point where the target was
// picked: its parent's level fractions within the candidate's parent.
bool Lies_At_Picked_Point(Desktop& desktop, const std::vector<WindowLevel>& levels, WindowHandle candidate);

// What findwindow would find for the levels now, searching once, and the
// window its choice would take; no window is brought forward.
struct FindForecast {
  std::int32_t matches = 0;
  WindowHandle chosen = 0;
};
FindForecast Forecast_Find(Engine& engine, Desktop& desktop, const std::vector<WindowLevel>& levels);

class FindWindow {
 public:
  FindWindow(Engine& engine, Desktop& desktop, WindowSearch& search, TargetState& target)
      : engine_(engine), desktop_(desktop), search_(search), target_(target) {}

  // Searches once a second, after a second's pause, until found or out of time.
  std::int32_t Find_The_Window(const std::string& WindowText, const std::string& ClassName, std::int32_t ChildID,
                               const std::string& WindowPath, std::int32_t WaitSeconds,
                               std::vector<WindowHandle>& FoundList);

  // Searches at once and whenever a window changes, until found or out of time.
  std::int32_t Find_As_Soon_As_There(const std::string& WindowText, const std::string& ClassName, std::int32_t ChildID,
                                     const std::string& WindowPath, std::int32_t WaitSeconds,
                                     std::vector<WindowHandle>& FoundList);

  std::int32_t FindWindow_Command(bool Interactive, const ParsedCommand& command, bool& LastCommandSucceeded);

 private:
  void Log(const std::string& text);
  void Wait_For_Change(long long until);
  void Explain_Not_Found();
  void Warn_Several();
  void Choose_Under_Pointer();

  Engine& engine_;
  Desktop& desktop_;
  WindowSearch& search_;
  TargetState& target_;
};

}  // namespace velmora
