#include "interpreter.h"

#include <cstdlib>

#include "debug_log.h"
#include "engine.h"
#include "environment.h"
#include "error_report.h"
#include "flow_control.h"
#include "parser.h"
#include "preprocessor.h"
#include "simple_commands.h"
#include "trap.h"
#include "window_automation.h"

namespace velmora {

namespace {

// The window commands need the automation library; a build without it says so.
WindowAutomation* Automation_Or_Report(Engine& engine, bool interactive) {
  if (!engine.automation)
    Report_Error(engine, interactive, -1, "Window and input commands are not available in this program",
                 "No Window Automation Error!", "Velmora.(General).Process_Command.TrappableErrors.1", kGoOn);
  return engine.automation;
}

[[noreturn]] void Quit_Automatic_Session(Engine& engine) {
  engine.host.EndProcess(0);
  std::abort();  // EndProcess never returns
}

// The second before a command that sends input, in the default pace; the
// fast pace waits for the target's readiness instead.
void Pause_Before_Input(Engine& engine, bool interactive) {
  if (engine.state.RunPace == Pace::Default) Wait_Command(engine, interactive, 1);
}

// Calls the handler of the line's command.
void Dispatch(Engine& engine, bool interactive, bool& debugOn, const ParsedCommand& command, bool& lastSucceeded) {
  switch (command.CommandCode) {
    case kRunCommand:
      return RunProgram_Command(engine, interactive, command.Parameters, lastSucceeded);
    case kFindWindowCommand:
      if (auto* automation = Automation_Or_Report(engine, interactive))
        automation->FindWindow_Command(engine, interactive, command, lastSucceeded);
      return;
    case kSendKeysCommand:
      Pause_Before_Input(engine, interactive);
      if (auto* automation = Automation_Or_Report(engine, interactive))
        automation->SendKeys_Command(engine, interactive, command, lastSucceeded);
      return;
    case kIfCommand:
      return If_Command(engine, interactive, lastSucceeded, command.Parameters);
    case kWhileCommand:
      return While_Command(engine, interactive, lastSucceeded, command.Parameters);
    case kUntilCommand:
      return Until_Command(engine, interactive, lastSucceeded, command.Parameters);
    case kUseMouseCommand:
      Pause_Before_Input(engine, interactive);
      if (auto* automation = Automation_Or_Report(engine, interactive))
        automation->UseMouse_Command(engine, interactive, command);
      return;
    case kWaitCommand:
      return Wait_Command(engine, interactive, command.TimeOut);
    case kDebugCommand:
      return Debug_Command(engine, interactive, debugOn, command.Parameters);
    case kQuitCommand:
      Log_Trace(engine, interactive, "!! Quit Encountered! I am outa here! Have a nice day :)");
      if (!interactive) Quit_Automatic_Session(engine);
      engine.editor.QuitRun = true;
      return;
    case kElseCommand:
      return Else_Command(engine, interactive);
    case kEndWhileCommand:
      return EndWhile_Command(engine, interactive);
    case kTestCommand:
      return TestEnvironmentVariables_Command(engine, interactive, command.Parameters, lastSucceeded);
    case kSendButtonsCommand:
      Pause_Before_Input(engine, interactive);
      if (auto* automation = Automation_Or_Report(engine, interactive))
        automation->SendButtons_Command(engine, interactive, command, lastSucceeded);
      return;
    default:
      return;  // blank lines, comments, endif and repeat do nothing
  }
}

void Select_Next_Line(Engine& engine) {
  ListModel& trace = engine.TraceWindow;
  const long next = Next_Executeable_Statement(engine, trace.Selected());
  if (next != -1) {
    trace.Select(next);
    return;
  }
  engine.state.StopRunning = true;
  trace.Select(static_cast<long>(trace.Count()) - 1);
}

}  // namespace

void Process_Command(Engine& engine, bool Interactive, bool& DebugOn, FileNumber /*ScriptFileNumber*/,
                     FileNumber /*DebugFileNumber*/, bool& LastCommandSucceeded) {
  Trap(engine, Interactive, "Velmora.(General).Process_Command.TrappableErrors.1", kFatal, [&] {
    Pause_Between_Lines(engine);
    const long current = engine.TraceWindow.Selected();
    const std::string line = engine.TraceWindow.Item(current);
    ParsedCommand command;
    if (Parse_Command(engine, Interactive, line, engine.state.SpeedFactor, command, current)) {
      Log_Trace(engine, Interactive, "");
      if (!line.empty()) {
        Log_Trace(engine, Interactive, "==> " + line);
      } else if (Interactive) {
        Log_Trace(engine, Interactive, "Info:  No Command found.");
        engine.host.Beep();
      }
      Dispatch(engine, Interactive, DebugOn, command, LastCommandSucceeded);
    } else {
      Report_Error(engine, Interactive, -1, "Unknown Command:  " + line, "Unknown Command Found Error!",
                   "Velmora.(General).Process_Command.UnknownCommandError.1", kGoOn);
    }
    Pause_Between_Lines(engine);
    Select_Next_Line(engine);
  });
}

void ScriptInterpreter::Preprocess(Engine& engine) {
  RunState& state = engine.state;
  Preprocess_Commands(engine, state.InteractiveSession, state.DebugOn, true, state.LastCommandSucceeded);
}

void ScriptInterpreter::Process_Line(Engine& engine) {
  RunState& state = engine.state;
  Process_Command(engine, state.InteractiveSession, state.DebugOn, state.ScriptFileNumber, state.DebugFileNumber,
                  state.LastCommandSucceeded);
}

}  // namespace velmora
