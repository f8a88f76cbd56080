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

class FindWindow {
 public:
  FindWindow(Engine& engine, Desktop& desktop, WindowSearch& search, TargetState& target)
      : engine_(engine), desktop_(desktop), search_(search), target_(target) {}

  // Searches once a second, after a second's pause, until found or out of time.
  std::int32_t Find_The_Window(const std::string& WindowText, const std::string& ClassName, std::int32_t ChildID,
                               const std::string& WindowPath, std::int32_t WaitSeconds,
                               std::vector<WindowHandle>& FoundList);

  std::int32_t FindWindow_Command(bool Interactive, const ParsedCommand& command, bool& LastCommandSucceeded);

 private:
  void Log(const std::string& text);
  void Narrow_By_Distance();
  void Warn_Several();
  void Choose_Under_Pointer();

  Engine& engine_;
  Desktop& desktop_;
  WindowSearch& search_;
  TargetState& target_;
};

}  // namespace velmora
