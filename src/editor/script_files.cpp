// The editor's script and debug files: choosing them through the common
// dialogs, saving the script, and loading a chosen pair.
#include "script_files.h"
#include "careful_io.h"
#include "command_panel.h"
#include "debug_log.h"
#include "editor_activity.h"
#include "editor_layout.h"
#include "engine.h"
#include "file_dialogs.h"
#include "form_placement.h"
#include "form_window.h"
#include "preprocessor.h"
#include "reg_settings.h"
#include "script_text.h"
#include "session.h"
#include "text.h"
#include "trap.h"

namespace velmora {

namespace {

constexpr const char* kSection = "Editor";
constexpr const char* kScriptFilter = "Velmora Script (*.vls)|*.vls|All Files (*.*)|*.*";
constexpr const char* kDebugFilter = "Velmora Debug (*.vld)|*.vld|All Files (*.*)|*.*";
constexpr const char* kProgramFilter =
    "Executables (*.exe;*.pif;*.cmd;*.com;*.bat)|*.exe;*.pif;*.cmd;*.com;*.bat|All Files (*.*)|*.*";

// The line as the file keeps it: a marked line from the fifth character of
// its trimmed text on (the mark and the blank the editor puts after it).
std::string Line_To_Save(const std::string& line) {
  const std::string trimmed = Trim(line);
  return Starts_With(trimmed, kBreakpointMark) ? trimmed.substr(std::min<std::size_t>(4, trimmed.size())) : line;
}

}  // namespace

void ScriptFiles::Change_Folder_For(const std::string& quotedName) { Change_To_Folder_Of(engine_.host, quotedName); }

bool ScriptFiles::Both_Names_Set() const {
  return !engine_.editor.ScriptFileName.empty() && !engine_.editor.DebugFileName.empty();
}

void ScriptFiles::Show_File_Labels() {
  controls_.SetCaption(ControlId::ScriptFileLabel, "Script: " + Unquoted(engine_.editor.ScriptFileName));
  controls_.SetCaption(ControlId::DebugFileLabel, "Debug: " + Unquoted(engine_.editor.DebugFileName));
}

bool ScriptFiles::Script_Changes_May_Go() {
  const std::string name = Unquoted(engine_.editor.ScriptFileName);
  return Changes_May_Go(dialogs_, name.empty() ? "the new script" : name, activity_.Script_Changed(), [this] {
    Save_Script_File();
    return !activity_.Script_Changed();
  });
}

void ScriptFiles::Open_Script_File() {
  EditorState& names = engine_.editor;
  Change_Folder_For(names.ScriptFileName);
  // At start-up the restored names are loaded without asking.
  if (!startupLoad_) {
    const auto chosen = dialogs_.Show({false, "New Script File", ".VLS", kScriptFilter, engine_.host.CurrentDirectory(),
                                       Unquoted(names.ScriptFileName)});
    if (!chosen || !Script_Changes_May_Go()) return;
    const std::string name = Trim(*chosen);
    if (!name.empty()) names.ScriptFileName = Quoted(name);
  }
  activity_.Set_Script_Changed(false);  // saved, or let go
  Show_File_Labels();
  if (Both_Names_Set()) Load_Script_And_Debug();
  if (!debugPromptPending_) Save_Debug_File();
}

void ScriptFiles::Save_Script_File() {
  EditorState& names = engine_.editor;
  Change_Folder_For(names.ScriptFileName);
  const auto chosen = dialogs_.Show({true, "Save Script File", ".VLS", kScriptFilter, engine_.host.CurrentDirectory(),
                                     Unquoted(names.ScriptFileName)});
  std::string name = chosen ? Trim(*chosen) : std::string();
  if (name.empty()) return;
  controls_.SetCaption(ControlId::ScriptFileLabel, "Script: " + name);

  // A step that fails has reported itself; the script then stays unsaved.
  const long reportsBefore = engine_.reports.made;
  const auto failed = [&] { return engine_.reports.made != reportsBefore; };
  FileNumber file = kNoFile;
  Careful_IO(engine_, true, kOpenOutput, file, name, "", "Velmora.(General).Save_Script_File.OpenOutput.1", kGoOn);
  for (const std::string& item : engine_.TraceWindow.Items()) {
    if (failed()) break;
    std::string line = Line_To_Save(item);
    Careful_IO(engine_, true, kPrintLine, file, line, "", "Editor.(General).Save_Script_File.Print.2", kGoOn);
  }
  std::string unused;
  Careful_IO(engine_, true, kClose, file, unused, "", "Editor.(General).Save_Script_File.Close.1", kGoOn);
  if (failed()) return;

  names.ScriptFileName = Quoted(name);
  engine_.host.Beep();
  Log_Trace(engine_, true, "Info: Script File " + names.ScriptFileName + " saved.");
  activity_.Set_Script_Changed(false);
  controls_.SetEnabled(ControlId::SaveScriptButton, false);
}

void ScriptFiles::Save_Debug_File() {
  debugPromptPending_ = false;
  EditorState& names = engine_.editor;
  Change_Folder_For(names.DebugFileName);
  const auto chosen = dialogs_.Show({false, "Open New Debug File", ".VLD", kDebugFilter,
                                     engine_.host.CurrentDirectory(), Unquoted(names.DebugFileName)});
  if (!chosen) return;
  const std::string name = Trim(*chosen);
  // The script is read again with the new debug file: its edits are settled first.
  const bool reload = !names.ScriptFileName.empty() && (!name.empty() || !names.DebugFileName.empty());
  if (reload && !Script_Changes_May_Go()) return;
  if (debugFileOpen_) {
    Log_Trace(engine_, true, "Info: Closing Debug File.  NEW Debug File " + name + " opened.");
    Close_Debug_File();
  }
  if (!name.empty()) {
    names.DebugFileName = Quoted(name);
    debugPromptPending_ = true;
    Show_File_Labels();
  }
  if (Both_Names_Set()) {
    // The new file starts a new section of the log, and opens afresh.
    names.DebugLogHasOutput = false;
    names.NewSection = true;
    Load_Script_And_Debug();
  }
}

void ScriptFiles::Close_Debug_File() {
  engine_.state.DebugFileOpen = false;  // nothing more may go to the closed file
  std::string unused;
  Careful_IO(engine_, true, kClose, engine_.state.DebugFileNumber, unused, "",
             "Editor.(General).Save_Debug_File.Close.1", kGoOn);
  debugFileOpen_ = false;
}

void ScriptFiles::Browse_For_Program() {
  const auto chosen =
      dialogs_.Show({false, "Browse for Program", ".exe", kProgramFilter, engine_.host.CurrentDirectory(), ""});
  if (!chosen) return;
  controls_.SetCaption(ControlId::CommandLine, Trim(*chosen));
  panel_.Field_Changed(ControlId::CommandLine);
}

void ScriptFiles::Load_Script_And_Debug() {
  RunState& state = engine_.state;
  Initial_Setup(engine_, true, state.DebugOn, state.StopRunning, state.ScriptFileNumber, state.DebugFileNumber);
  Preprocess_Commands(engine_, true, state.DebugOn, true, state.LastCommandSucceeded);
  const long stoppedAt = state.StopRunning ? engine_.TraceWindow.Selected() : -1;
  debugFileOpen_ = state.DebugFileOpen;
  if (!debugFileOpen_)
    controls_.SetCaption(ControlId::DebugFileLabel, "Debug: (none; " + Unquoted(engine_.editor.DebugFileName) +
                                                        " could not be opened)");
  activity_.Set_Script_Changed(false);
  controls_.SetEnabled(ControlId::SaveScriptButton, false);
  panel_.Set_Control_State("EnableCommands");
  panel_.Set_Control_State("TraceControls", true);
  Highlight_After_Load(stoppedAt);
  for (ControlId id : {ControlId::DebugFrame, ControlId::DebugWindow, ControlId::TraceFrame, ControlId::TraceWindow})
    controls_.SetEnabled(id, true);
}

// The line where preprocessing stopped, else the first line to run. A script
// with nothing to run gets an empty last line to insert before, so that new
// lines go below the heading.
void ScriptFiles::Highlight_After_Load(long stoppedAt) {
  ListModel& trace = engine_.TraceWindow;
  if (stoppedAt >= 0 && stoppedAt < static_cast<long>(trace.Count())) return trace.Select(stoppedAt);
  const long first = Next_Executeable_Statement(engine_, 0);
  if (first >= 0) return trace.Select(first);
  if (trace.Count() == 0 || !Trim(trace.Item(static_cast<long>(trace.Count()) - 1)).empty()) trace.Add("");
  trace.Select(static_cast<long>(trace.Count()) - 1);
}

// Holding the right button on a file label shows the whole name over the file strip.
void ScriptFiles::Stretch_Label(ControlId label, bool held) {
  const bool script = label == ControlId::ScriptFileLabel;
  for (ControlId id :
       {ControlId::DebugFileLabel, ControlId::DebugCover, ControlId::CreateDebugButton, ControlId::VelmoraMenu,
        ControlId::OpenScriptButton, ControlId::SaveScriptButton, ControlId::ScriptCover, ControlId::ScriptFileLabel})
    if (id != label) controls_.SetVisible(id, !held);
  const TwipsRect designed = Find_Declaration(label)->Rect;
  const long formWidth = window_.Placement().Width;
  TwipsRect rect = designed;
  if (held) {
    rect = {0, 0, formWidth - 25, 720};
  } else if (script) {
    rect = {4040, designed.Top, formWidth - 4065, 200};
  } else {
    rect = {designed.Left, designed.Top, 4040, 200};
  }
  controls_.SetRect(label, rect);
}

void ScriptFiles::Label_Mouse(ControlId label, int button, bool down) {
  if (button == 2) Stretch_Label(label, down);
}

// A script named on the command line wins over the remembered one.
void ScriptFiles::Restore_File_Names() {
  const std::string script = Stored_File_Name(settings_, engine_.host, kSection, "Script File");
  const std::string debug = Stored_File_Name(settings_, engine_.host, kSection, "Debug File");
  if (engine_.editor.ScriptFileName.empty()) engine_.editor.ScriptFileName = script;
  engine_.editor.DebugFileName = debug;
  debugPromptPending_ = !debug.empty();
}

void ScriptFiles::Load_At_Start() {
  Restore_File_Names();
  Show_File_Labels();
  if (engine_.editor.ScriptFileName.empty()) return;
  startupLoad_ = true;
  Open_Script_File();
  startupLoad_ = false;
}

void ScriptFiles::Close_Files() {
  if (debugFileOpen_) Close_Debug_File();
  settings_.SaveSetting(kSection, "Script File", engine_.editor.ScriptFileName);
  settings_.SaveSetting(kSection, "Debug File", engine_.editor.DebugFileName);
}

}  // namespace velmora
