#include "session.h"

#include <cstdlib>

#include "about.h"
#include "careful_io.h"
#include "command_line.h"
#include "debug_log.h"
#include "engine.h"
#include "file_type.h"
#include "numeric.h"
#include "text.h"
#include "trap.h"

namespace velmora {

double Read_Speed_Factor(Host& host) {
  const auto text = host.GetEnv("SPEED_FACTOR");
  if (!text) return 1.0;
  const auto value = Numeric_Value(*text);
  return value && *value > 0 ? *value : 1.0;
}

PaceSetting Read_Pace(Host& host) {
  const auto text = host.GetEnv("VELMORA_PACE");
  if (!text || Trim(*text).empty()) return {};
  const std::string value = Lower(Trim(*text));
  if (value == "fast") return {Pace::Fast, "VELMORA_PACE IN USE:  fast"};
  if (value == "default") return {Pace::Default, "VELMORA_PACE IN USE:  default"};
  return {Pace::Default,
          "VELMORA_PACE IGNORED:  \"" + *text + "\" is neither \"fast\" nor \"default\"; the default pace is used."};
}

void Form_Load(Engine& engine, ScriptRunner& runner) {
  RunState& state = engine.state;
  EditorState& editor = engine.editor;
  state.SpeedFactor = Read_Speed_Factor(engine.host);
  Register_FileType(engine.registry, engine.host.ProgramPath());
  state.DebugFileOpen = false;
  state.ReportingFatalError = false;

  const std::string commandLine = engine.host.CommandLine();
  if (!commandLine.empty()) Parse_CommandLine(engine, commandLine, editor.ScriptFileName, editor.DebugFileName);
  if (!editor.ScriptFileName.empty() && !editor.DebugFileName.empty()) Run_Automatic_Session(engine, runner);
  if (!editor.ScriptFileName.empty()) editor.ScriptFileName = '"' + editor.ScriptFileName + '"';
  state.SpeedFactor = 1.0;
}

void Run_Automatic_Session(Engine& engine, ScriptRunner& runner) {
  RunState& state = engine.state;
  state.InteractiveSession = false;
  Initial_Setup(engine, false, state.DebugOn, state.StopRunning, state.ScriptFileNumber, state.DebugFileNumber);
  runner.Preprocess(engine);
  engine.editor.ScriptRunning = true;
  if (engine.TraceWindow.Count() > 0) engine.TraceWindow.Select(0);
  while (!state.StopRunning) runner.Process_Line(engine);
  Shut_Down(engine, false, state.ScriptFileNumber, state.DebugFileNumber);
  engine.host.Beep();
  engine.host.EndProcess(0);
  std::abort();  // EndProcess never returns
}

namespace {

// A debug file that cannot be made ends an automatic session; the editor
// reports it and goes on without one, so the script is still read.
void Open_Debug_File(Engine& engine, bool interactive, const std::string& debugName, FileNumber& debugFileNumber) {
  std::string name = debugName;
  Careful_IO(engine, interactive, kOpenOutput, debugFileNumber, name, "", "Velmora.(General).Initial_Setup.OpenOuput.1",
             interactive ? kGoOn : kFatal);
  // Only a file that really opened takes the log's lines.
  engine.state.DebugFileOpen = engine.files.Find(debugFileNumber) != nullptr;
}

// The editor opens the script if there is one. A name with no file behind it
// starts an empty script, and nothing is created before the first save.
void Open_Script(Engine& engine, const std::string& scriptName, FileNumber& scriptFileNumber) {
  if (!engine.host.FileExists(scriptName)) {
    Log_Always(engine, true, "Info: New Script File:  " + scriptName + " (it is created when it is saved)");
    return;
  }
  std::string name = scriptName;
  Careful_IO(engine, true, kOpenInput, scriptFileNumber, name, "", "Velmora.(General).Initial_Setup.OpenInput.2",
             kGoOn);
  Log_Always(engine, true, "Info: Script File Open:  " + scriptName);
}

void Write_Interactive_Header(Engine& engine, const std::string& debugName) {
  RunState& state = engine.state;
  if (engine.editor.NewSection) {
    engine.editor.NewSection = false;
    engine.editor.DebugLogHasOutput = false;
    engine.host.Beep();
    const bool fileOpen = state.DebugFileOpen;
    state.DebugFileOpen = false;  // the separator is for the window only
    Log_Always(engine, true, std::string(63, '^'));
    state.DebugFileOpen = fileOpen;
  }
  Log_Always(engine, true, "Interactive Session Started." + Date_Time_Stamp(engine));
  if (state.DebugFileOpen)
    Log_Always(engine, true, "Info: Debug File Open:  " + debugName);
  else
    Log_Always(engine, true,
               "Info: No debug file: " + debugName + " could not be opened; this log is kept in the window only.");
}

void Set_Trace_Font(Engine& engine) {
  if (engine.surface) Choose_List_Font([&](const std::string& name) { return engine.surface->SetTraceFont(name); });
}

void Read_Script(Engine& engine, bool interactive, FileNumber& scriptFileNumber) {
  if (scriptFileNumber == kNoFile) return;  // a new script
  while (!engine.state.StopRunning && !At_End_Of_File(engine, scriptFileNumber)) {
    std::string line;
    Careful_IO(engine, interactive, kLineInput, scriptFileNumber, line, "", "Velmora.(General).Initial_Setup.Input.1",
               kFatal);
    if (!engine.state.StopRunning) engine.TraceWindow.Add(std::move(line));
  }
  std::string unused;
  Careful_IO(engine, interactive, kClose, scriptFileNumber, unused, "", "Velmora.(General).Initial_Setup.Close.1",
             kGoOn);
}

void Write_Automatic_Header(Engine& engine) {
  Log_Always(engine, false, Identification_Line());
  Log_Always(engine, false, "Automatic Session Started.");
  if (engine.state.SpeedFactor != 1.0)
    Log_Always(engine, false,
               "SPEED_FACTOR IN USE:  " + Shortest_Decimal(engine.state.SpeedFactor, engine.host.DecimalSeparator()));
  const PaceSetting pace = Read_Pace(engine.host);
  engine.state.RunPace = pace.pace;
  if (!pace.headerLine.empty()) Log_Always(engine, false, pace.headerLine);
  if (engine.desktop && engine.desktop->InServiceSession())
    Log_Always(engine, false,
               "Info: Velmora is running in session 0, the services' session, which has no interactive desktop: "
               "no findwindow can see the user's windows. Start Velmora in the user's session.");
}

}  // namespace

void Initial_Setup(Engine& engine, bool interactive, bool& debugOn, bool& stopRunning, FileNumber& scriptFileNumber,
                   FileNumber& debugFileNumber) {
  Trap(engine, interactive, "Velmora.(General).Initial_Setup.TrappableErrors.1", kFatal, [&] {
    const std::string commandLine = interactive ? engine.editor.ScriptFileName + " " + engine.editor.DebugFileName
                                                : Trim(engine.host.CommandLine());
    std::string scriptName, debugName;
    Parse_CommandLine(engine, commandLine, scriptName, debugName);

    const bool debugWanted = interactive || Lower(debugName) != "nofile";
    debugOn = true;
    stopRunning = false;
    if (debugWanted && !engine.editor.DebugLogHasOutput)
      Open_Debug_File(engine, interactive, debugName, debugFileNumber);

    if (interactive) {
      Write_Interactive_Header(engine, debugName);
      engine.host.Beep();
      Open_Script(engine, scriptName, scriptFileNumber);
    } else {
      Careful_IO(engine, false, kOpenInput, scriptFileNumber, scriptName, "",
                 "Velmora.(General).Initial_Setup.OpenInput.5", kFatal);
    }

    engine.TraceWindow.Clear();
    if (interactive) {
      Set_Trace_Font(engine);
      engine.TraceWindow.Add(Trace_Header_Line());
    }
    Read_Script(engine, interactive, scriptFileNumber);
    // The heading the editor wrote at the last save gives way to today's.
    if (interactive && engine.TraceWindow.Count() > 1 && Is_Trace_Heading(engine.TraceWindow.Item(1)))
      engine.TraceWindow.Remove(1);
    if (!interactive) Write_Automatic_Header(engine);
  });
}

void Shut_Down(Engine& engine, bool interactive, FileNumber /*scriptFileNumber*/, FileNumber debugFileNumber) {
  // No later line may go to the closed file, not even the report of a failed close.
  engine.state.DebugFileOpen = false;
  std::string unused;
  Careful_IO(engine, interactive, kClose, debugFileNumber, unused, "", "Velmora.(General).Shut_Down.Close.2", kGoOn);
}

long Next_Executeable_Statement(Engine& engine, long index) {
  const long count = static_cast<long>(engine.TraceWindow.Count());
  for (long i = index; i < count;) {
    ++i;
    const std::string text = Trim(engine.TraceWindow.Item(i));
    if (!text.empty() && text.front() != '#') return i;
  }
  return -1;
}

void Pause_Tenths(Engine& engine, int tenths) {
  for (int i = 0; i < tenths; ++i) {
    engine.host.Sleep(95);
    engine.host.DoEvents();
  }
}

void Pause_Between_Lines(Engine& engine) {
  if (engine.state.RunPace == Pace::Fast)
    engine.host.DoEvents();
  else
    Pause_Tenths(engine, 1);
}

std::string Choose_List_Font(const std::function<std::string(const std::string&)>& setFont) {
  for (const char* name : {"Lucida Console", "Courier New"})
    if (setFont(name) == name) return name;
  return setFont(kAnyFixedPitchFont);
}

}  // namespace velmora
