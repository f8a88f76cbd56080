#include "recorder.h"

#include <cstdlib>
#include <vector>

#include "command_panel.h"
#include "debug_log.h"
#include "editor_activity.h"
#include "engine.h"
#include "key_writing.h"
#include "line_composer.h"
#include "window_description.h"
#include "window_search.h"

namespace velmora {

namespace {

using C = ControlId;

constexpr char kFormTitle[] = "Velmora - IDE";
constexpr char kRecordingTitle[] = "Velmora - IDE  ** RECORDING ACTIONS! **";
constexpr char kOfferedTimeOut[] = ".30";  // what the panel offers a findwindow line: 30 seconds
constexpr char kMenuClass[] = "#32768";
constexpr char kEditorClass[] = "VelmoraEditor";
// Two presses a double click apart in time and within this many pixels of
// each other are one double click, as the system's own default counts them.
constexpr long kDoubleClickReach = 2;

char Button_Letter(PressedButton button) { return button == PressedButton::Right ? 'r' : 'l'; }

// The levels' titles, classes and identifiers: which window, not where in it.
std::string Identity_Of(const std::vector<WindowLevel>& levels) {
  std::string identity;
  for (const WindowLevel& level : levels)
    identity += level.title + '\n' + level.className + '\n' + std::to_string(level.childId) + '\n';
  return identity;
}

}  // namespace

void Recorder::Toggle() { recording_ ? Stop() : Start(); }

void Recorder::Start() {
  if (!engine_.desktop || activity_.Running() || activity_.Picking()) return;
  if (engine_.editor.ScriptFileName.empty()) {
    return Log_Trace(engine_, true, "Info: Nothing can be recorded before a script is open or created.");
  }
  if (!engine_.desktop->ObserveInput(this)) {
    return Log_Trace(engine_, true, "Info: Nothing can be recorded: the system does not report the mouse and keys.");
  }
  recording_ = true;
  linesWritten_ = 0;
  target_ = {};
  lastClick_.reset();
  typing_ = {};
  panel_.Set_Control_State("DisableCommands");
  controls_.SetCaption(C::Form, kRecordingTitle);
  Log_Trace(engine_, true, "Info: Recording Actions! Clicks and keys in other programs become script lines.");
  Log_Trace(engine_, true, "  To end recording, click into the editor or choose Record Actions again!");
}

void Recorder::Stop() { End(""); }

void Recorder::Observing_Lost(const std::string& reason) { End(reason); }

void Recorder::End(const std::string& why) {
  if (!recording_) return;
  recording_ = false;
  engine_.desktop->ObserveInput(nullptr);
  controls_.SetCaption(C::Form, kFormTitle);
  panel_.Set_Control_State("EnableCommands");
  std::string line = "Info: Recording Ended! " + std::to_string(linesWritten_) + " lines recorded";
  Log_Trace(engine_, true, why.empty() ? line + "." : line + "; " + why + ".");
}

// A click into the editor ends the recording, but not one that opens the
// Velmora menu or chooses in it: its entry ends the recording itself.
bool Recorder::Own_Window_Clicked(WindowHandle window) {
  Desktop& desktop = *engine_.desktop;
  if (desktop.ProgramOf(window) != desktop.OwnProgram()) return false;
  const bool menu = desktop.ClassName(window, kTextBufferSize) == kMenuClass;
  const bool menuButton = desktop.ControlId(window) == static_cast<long>(C::VelmoraMenu) &&
                          desktop.ClassName(desktop.RootWindow(window), kTextBufferSize) == kEditorClass;
  if (!menu && !menuButton) Stop();
  return true;
}

void Recorder::Button_Down(const ObservedClick& click) {
  if (!recording_ || activity_.Running()) return;
  const WindowHandle window = engine_.desktop->WindowFromPoint(click.point);
  if (window == 0 || Own_Window_Clicked(window)) return;
  typing_ = {};
  if (Completes_Double_Click(click, window)) {
    Replace(lastClick_->line, std::string("SendButtons: d") + Button_Letter(click.button));
    lastClick_.reset();  // a third press is a single click again
    return;
  }
  Aim_At(window, click.point, true);
  lastClick_ = Click{window, click, Place(std::string("SendButtons: s") + Button_Letter(click.button))};
}

bool Recorder::Completes_Double_Click(const ObservedClick& click, WindowHandle window) const {
  if (!lastClick_ || lastClick_->window != window || lastClick_->press.button != click.button) return false;
  const ObservedClick& first = lastClick_->press;
  return click.milliseconds - first.milliseconds <= static_cast<std::uint32_t>(engine_.desktop->DoubleClickTime()) &&
         std::labs(click.point.x - first.point.x) <= kDoubleClickReach &&
         std::labs(click.point.y - first.point.y) <= kDoubleClickReach;
}

void Recorder::Key_Down(const ObservedKey& key) {
  if (!recording_ || activity_.Running()) return;
  Desktop& desktop = *engine_.desktop;
  const WindowHandle focus = desktop.FocusWindow();
  if (focus == 0 || desktop.ProgramOf(focus) == desktop.OwnProgram()) return;
  lastClick_.reset();
  const std::string press = Key_Notation_Of(key);
  if (press.empty()) return Report_Left_Out(key);
  if (typing_.window != focus) {
    WindowRect rect;
    desktop.GetWindowRect(focus, rect);
    Aim_At(focus, {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2}, false);
    typing_ = {focus, -1, ""};
  }
  Append_Key(typing_.keys, press);
  const std::string line = "SendKeys:  \"" + typing_.keys + "\"";
  if (typing_.line < 0) {
    typing_.line = Place(line);
  } else {
    Replace(typing_.line, line);
  }
}

// Lock keys are left out without a word: what was typed under them is
// written as it came.
void Recorder::Report_Left_Out(const ObservedKey& key) {
  if (key.character != 0) return Log_Trace(engine_, true, "Info: A typed character that a script cannot hold was left out.");
  if (Is_Lock_Key(key.virtualKey)) return;
  Log_Trace(engine_, true, "Info: A key that the key notation has no name for was left out.");
}

void Recorder::Aim_At(WindowHandle window, ScreenPoint point, bool forClick) {
  std::vector<WindowLevel> levels;
  const std::string description = Describe_Window(*engine_.desktop, window, point, levels);
  const std::string identity = Identity_Of(levels);
  const bool same = window == target_.window &&
                    (forClick ? description == target_.description : identity == target_.identity);
  if (same) return;
  Place("FindWindow:  " + description + ", " + kOfferedTimeOut);
  target_ = {window, description, identity};
  Report_Matches(engine_, levels, window);
}

long Recorder::Place(const std::string& line) {
  ++linesWritten_;
  activity_.Set_Script_Changed(true);
  controls_.SetEnabled(C::SaveScriptButton, true);
  return Insert_Before_Highlighted(engine_.TraceWindow, line);
}

void Recorder::Replace(long line, const std::string& text) {
  if (line >= 0 && line < static_cast<long>(engine_.TraceWindow.Count()))
    engine_.TraceWindow.Set(static_cast<std::size_t>(line), text);
}

}  // namespace velmora
