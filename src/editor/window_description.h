// A window described as findwindow wants it: every level from the window out
// to its top-level window, each with a point as fractions of its rectangle.
// A pick and a recorded click write the same description; both then say how
// many windows it finds now.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop.h"
#include "target_state.h"

namespace velmora {

struct Engine;

// The description's text without the time-out: the level count, then each
// level outermost first. levels receives the levels, outermost first.
// betweenLevels runs after each level is read (a pick keeps the editor
// answering; a recorder, inside an input hook, must not).
std::string Describe_Window(Desktop& desktop, WindowHandle window, ScreenPoint point, std::vector<WindowLevel>& levels,
                            const std::function<void()>& betweenLevels = {});

// Searches the description as findwindow will when it plays it, and logs how
// many windows it finds and whether its choice among them is the described one.
void Report_Matches(Engine& engine, const std::vector<WindowLevel>& levels, WindowHandle described);

}  // namespace velmora
