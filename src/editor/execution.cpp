// Running the script from the editor: the whole script from the highlighted
// line on, or one line; the halt button; breakpoints.
#include "command_panel.h"
#include "debug_log.h"
#include "editor_activity.h"
#include "editor_run.h"
#include "engine.h"
#include "form_window.h"
#include "interpreter.h"
#include "preprocessor.h"
#include "script_text.h"
#include "text.h"
#include "trap.h"

namespace velmora {

namespace {

using C = ControlId;

const std::string kRunStart(49, '*');
const std::string kRunEnd(49, '+');
constexpr char kIdleCaption[] = " Execute Currently Selected Command";
constexpr char kHaltCaption[] = "HALT!";
constexpr char kHaltingCaption[] = "Halt in Progress...";
constexpr int kIdleSize = 12, kHaltSize = 18, kHaltingSize = 14;

bool Is_Marked(const std::string& line) { return Starts_With(Trim(line), kBreakpointMark); }

}  // namespace

EditorRun::EditorRun(Engine& engine, FormControls& controls, FormWindow& window, CommandPanel& panel,
                     EditorActivity& activity)
    : engine_(engine), controls_(controls), window_(window), panel_(panel), activity_(activity) {
  engine.TraceWindow.AddObserver(&breakpointCaption_);
}

EditorRun::~EditorRun() { engine_.TraceWindow.RemoveObserver(&breakpointCaption_); }

void EditorRun::Show_Halt_Button(int fontSize, const char* caption) {
  FontSpec font = controls_[C::ExecuteNextButton].Font;
  font.Size = fontSize;
  controls_.SetFont(C::ExecuteNextButton, font);
  controls_.SetCaption(C::ExecuteNextButton, caption);
}

// Everything but the halt button is locked while lines run.
// A run or step starts afresh: logging on (a `debug: off` of an earlier run
// does not carry over) and no overwrite left from a double click.
void EditorRun::Lock_For_Run() {
  activity_.Set_Running(true);
  engine_.state.DebugOn = true;
  panel_.Set_Overwrite_Mode(false);
  panel_.Set_Control_State("Files", false);
  panel_.Set_Control_State("DisableCommands");
  panel_.Set_Control_State("TraceControls", false);
  Show_Halt_Button(kHaltSize, kHaltCaption);
  controls_.SetEnabled(C::ExecuteNextButton, true);
  controls_.SetEnabled(C::TraceControlsFrame, true);
}

// The commands run will have activated other programs: the editor comes back.
void EditorRun::Unlock_After_Run() {
  Show_Halt_Button(kIdleSize, kIdleCaption);
  panel_.Set_Control_State("Files", true);
  panel_.Set_Control_State("EnableCommands");
  panel_.Set_Control_State("TraceControls", true);
  controls_.SetEnabled(C::TraceFrame, true);
  controls_.SetEnabled(C::TraceWindow, true);
  controls_.SetFocus(C::ExecuteNextButton);
  window_.BringFocusToForeground();
  engine_.state.DebugOn = true;  // picks after the run are logged
  activity_.Set_Running(false);
  activity_.Close_If_Requested();
}

// The button becomes the execute button again; a halt asked for is told.
void EditorRun::Report_Halt() {
  Show_Halt_Button(kIdleSize, kIdleCaption);
  RunState& state = engine_.state;
  if (!state.HaltRequested) return;
  engine_.host.Beep();
  Log_Always(engine_, true, "Info: Execution Halted at your request.");
  state.HaltRequested = false;
}

// The opening lines of a run or step and the block check before it; false
// after a block error, which leaves nothing to run.
bool EditorRun::Preprocess_For_Run() {
  RunState& state = engine_.state;
  state.HaltRequested = false;
  Log_Trace(engine_, true, kRunStart);
  Log_Trace(engine_, true, "Info: PreProcessing...");
  Preprocess_Commands(engine_, true, state.DebugOn, true, state.LastCommandSucceeded);
  if (!state.StopRunning) return true;
  state.StopRunning = false;
  return false;
}

// Runs the highlighted line; true when the run must not go on after it (a
// quit line ran).
bool EditorRun::Run_Highlighted_Line() {
  RunState& state = engine_.state;
  engine_.editor.QuitRun = false;
  Process_Command(engine_, true, state.DebugOn, state.ScriptFileNumber, state.DebugFileNumber,
                  state.LastCommandSucceeded);
  return engine_.editor.QuitRun;
}

void EditorRun::ExecuteButton_Click() {
  RunState& state = engine_.state;
  Lock_For_Run();
  controls_.SetEnabled(C::TraceFrame, false);
  controls_.SetEnabled(C::TraceWindow, true);
  Trap(engine_, true, "Editor.ExecuteButton.Click.TrappableErrors.1", kGoOn, [&] {
    // A step that ran the last line left the end of the script flagged; that
    // end is not this run's, which starts at the highlighted line.
    state.StopRunning = false;
    bool stop = !Preprocess_For_Run();
    for (const std::string& line : {std::string(), kRunStart, kRunStart, std::string("Info: Execution BEGINS!!")})
      Log_Trace(engine_, true, line);
    // The first line always runs, marked or not; the run stops before the
    // next marked line, so a second click runs on past it.
    while (!stop && !state.HaltRequested) {
      if (state.StopRunning) {
        state.StopRunning = false, stop = true;
      } else {
        stop = Run_Highlighted_Line() || Is_Marked(engine_.TraceWindow.Item(engine_.TraceWindow.Selected()));
      }
    }
    Report_Halt();
    for (const std::string& line : {std::string(), std::string("Info: Execution ends."), kRunEnd, kRunEnd})
      Log_Trace(engine_, true, line);
  });
  Unlock_After_Run();  // also after an unexpected error: the editor never stays locked
}

void EditorRun::ExecuteNextButton_Click() {
  engine_.state.StopRunning = false;
  if (controls_[C::ExecuteNextButton].Caption == kHaltCaption) return Request_Halt();
  Lock_For_Run();
  Trap(engine_, true, "Editor.ExecuteNextButton.Click.TrappableErrors.1", kGoOn, [&] {
    if (Preprocess_For_Run()) Run_Highlighted_Line();
    Report_Halt();
  });
  Unlock_After_Run();
}

void EditorRun::Request_Halt() {
  engine_.state.HaltRequested = true;
  Show_Halt_Button(kHaltingSize, kHaltingCaption);
  controls_.SetEnabled(C::TraceControlsFrame, false);
}

void EditorRun::BreakPointButton_Click() {
  Trap(engine_, true, "Editor.BreakPointButton.Click.TrappableErrors.1", kGoOn, [&] {
    ListModel& trace = engine_.TraceWindow;
    const long highlighted = trace.Selected();
    if (highlighted < 0 || highlighted >= static_cast<long>(trace.Count())) return;
    const std::string text = Trim(trace.Item(highlighted));
    // Clearing takes the mark and the blanks after it, as the interpreter
    // reads past it, so a line marked by hand without a blank keeps its text.
    trace.Set(static_cast<std::size_t>(highlighted),
              Is_Marked(text) ? std::string(Without_Breakpoint_Mark(text)) : std::string(kBreakpointMark) + " " + text);
    trace.Select(highlighted);
  });
}

void EditorRun::Show_Breakpoint_State() {
  const bool marked = Is_Marked(engine_.TraceWindow.Item(engine_.TraceWindow.Selected()));
  controls_.SetCaption(C::BreakPointButton, marked ? "Clear Break" : "Set Break");
  controls_.SetToolTip(C::BreakPointButton,
                       marked ? "Clear this break point" : "Set a break point at the hitlited location");
}

}  // namespace velmora
