// The target of the window and input commands: what the last findwindow
// looked for and what it found. Shared by findwindow, sendkeys and sendbuttons.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desktop.h"

namespace velmora {

// One level of a findwindow line: a window and where it was picked, as
// fractions of its width and height.
struct WindowLevel {
  std::string title;
  std::string className;
  std::int32_t childId = 0;
  double relativeX = 0;
  double relativeY = 0;
};

struct TargetState {
  std::string WindowText;
  std::string ClassName;
  // Found windows from index 1 on; index 0 is never used.
  std::vector<WindowHandle> TargetList{0};
  std::int32_t FoundCount = 0;
  std::vector<WindowLevel> levels;  // outermost window first, the target last
};

}  // namespace velmora
