// Picking with the mouse: the window under the pointer for a findwindow line,
// or a screen position for a usemouse line, taken once the pointer has stood
// still for 3 seconds.
#include <algorithm>
#include <cmath>
#include <optional>

#include "command_codes.h"
#include "command_panel.h"
#include "debug_log.h"
#include "editor_activity.h"
#include "engine.h"
#include "find_window.h"
#include "form_placement.h"
#include "screen_picker.h"
#include "screen_point.h"
#include "session.h"
#include "text.h"
#include "trap.h"
#include "window_description.h"

namespace velmora {

namespace {

using C = ControlId;

constexpr char kFormTitle[] = "Velmora - IDE";
constexpr int kStillSamples = 30;  // tenths of a second without a move
constexpr long kMouseMost = 65535;

// A pixel as usemouse takes it: a share of 65536 across the screen.
long Mouse_Range(long pixel, int screenPixels) {
  if (screenPixels <= 0) return 0;
  const double share = Mouse_Share(pixel, screenPixels);
  return Rounded_Within(std::clamp(share, 0.0, static_cast<double>(kMouseMost)), 0,
                        kMouseMost);  // other screens: the edge
}

}  // namespace

void ScreenPicker::Disable_For_Pick(const char* title, const char* logLine, const char* hint) {
  activity_.Set_Picking(true);
  controls_.SetEnabled(C::Form, false);
  controls_.SetCaption(C::Form, title);
  Log_Trace(engine_, true, logLine);
  Log_Trace(engine_, true, hint);
  engine_.host.Beep();
}

void ScreenPicker::Enable_After_Pick() {
  controls_.SetCaption(C::Form, kFormTitle);
  controls_.SetEnabled(C::Form, true);
  Log_Trace(engine_, true, "Info: Editor Re-Enabled!");
  activity_.Set_Picking(false);
}

// The old frame goes by having the screen under the window repainted.
void ScreenPicker::Erase_Frame(WindowHandle framed) {
  WindowRect rect;
  if (framed != 0 && engine_.desktop->GetWindowRect(framed, rect)) engine_.desktop->RepaintScreenArea(rect);
}

// Samples the pointer every tenth of a second until it has not moved, not by
// one pixel, for 30 samples over another program's window (the editor's own
// are never picked); framing the window under it on the way, when asked.
// A close of the form or Escape ends the wait early, with nothing picked.
std::optional<ScreenPoint> ScreenPicker::Wait_For_Still_Pointer(bool frameWindows) {
  Desktop& desktop = *engine_.desktop;
  WindowHandle framed = 0;
  std::optional<ScreenPoint> previous;
  ScreenPoint point;
  desktop.EscapePressed();  // a press from before the pick does not end it
  bool escaped = false;
  for (int still = 0; still < kStillSamples && !activity_.Close_Requested() && !escaped;) {
    point = desktop.GetCursorPos();
    Pause_Tenths(engine_, 1);
    escaped = desktop.EscapePressed();
    const WindowHandle under = desktop.WindowFromPoint(point);
    const bool ours = under != 0 && desktop.ProgramOf(under) == desktop.OwnProgram();
    if (frameWindows && under != framed) {
      Erase_Frame(framed);
      engine_.host.DoEvents();
      framed = ours ? 0 : under;
      if (framed != 0) desktop.DrawWindowFrame(framed);
    }
    still = previous && previous->x == point.x && previous->y == point.y && !ours ? still + 1 : 0;
    previous = point;
  }
  Erase_Frame(framed);
  if (escaped) Log_Trace(engine_, true, "Info: Pick ended with Escape; nothing was picked.");
  if (escaped || activity_.Close_Requested()) return std::nullopt;
  return point;
}

void ScreenPicker::CommandLine_GotFocus(bool byKeyboard) {
  if (panel_.Overwriting() || activity_.Picking()) return;
  if (byKeyboard && !Trim(controls_[C::CommandLine].Caption).empty()) return;
  if (panel_.Current_Code() == kRunCommand) return browseForProgram_();
  if (panel_.Current_Code() != kFindWindowCommand || !engine_.desktop) return;
  Disable_For_Pick("Velmora Script Editor  ** DISABLED PENDING WINDOW LOCATION INPUT! **",
                   "Info: Editor Disabled Pending Window Location Input!",
                   "  To pick window, leave mouse stationary for 3 seconds!");
  Trap(engine_, true, "Editor.CommandLine.GotFocus.TrappableErrors.1", kGoOn, [&] {
    const auto still = Wait_For_Still_Pointer(true);
    if (!still) return;
    const ScreenPoint point = *still;
    const WindowHandle picked = engine_.desktop->WindowFromPoint(point);
    controls_.SetCaption(C::CommandLine, "");
    std::vector<WindowLevel> levels;
    controls_.SetCaption(C::CommandLine,
                         Describe_Window(*engine_.desktop, picked, point, levels, [&] { engine_.host.DoEvents(); }));
    panel_.Field_Changed(C::CommandLine);
    if (!levels.empty()) Report_Matches(engine_, levels, picked);
  });
  Enable_After_Pick();
  controls_.SetFocus(C::Minutes);
  activity_.Close_If_Requested();
}

// The position goes into X and Y in usemouse's range, 0 to 65535 across the
// screen.
void ScreenPicker::Minutes_GotFocus(bool byKeyboard) {
  if (panel_.Overwriting() || activity_.Picking()) return;
  if (panel_.Current_Code() != kUseMouseCommand || !engine_.desktop) return;
  if (byKeyboard && !Trim(controls_[C::Minutes].Caption).empty()) return;
  Disable_For_Pick("Velmora Script Editor  ** DISABLED PENDING MOUSE LOCATION INPUT! **",
                   "Info: Editor Disabled Pending Mouse Location Input!",
                   "  To pick location, leave mouse stationary for 3 seconds!");
  const std::string label = controls_[C::TimeOutLabel].Caption;
  controls_.SetCaption(C::TimeOutLabel, "Mouse Location*");
  Trap(engine_, true, "Editor.Minutes.GotFocus.TrappableErrors.1", kGoOn, [&] {
    const auto point = Wait_For_Still_Pointer(false);
    if (!point) return;
    Desktop& desktop = *engine_.desktop;
    controls_.SetCaption(C::Minutes, std::to_string(Mouse_Range(point->x, desktop.ScreenWidth())));
    controls_.SetCaption(C::Seconds, std::to_string(Mouse_Range(point->y, desktop.ScreenHeight())));
  });
  controls_.SetCaption(C::TimeOutLabel, label);
  Enable_After_Pick();
  controls_.SetFocus(C::InsertCommandButton);
  activity_.Close_If_Requested();
}

}  // namespace velmora
