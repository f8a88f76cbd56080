// The editor's life: its own loading after the engine's start-up, the layout
// when its size changes, and what it keeps and closes when it is closed.
#include <string>

#include "careful_io.h"
#include "debug_log.h"
#include "editor_form.h"
#include "editor_layout.h"
#include "engine.h"
#include "form_placement.h"
#include "numeric.h"
#include "reg_settings.h"
#include "trap.h"
#include "velmora_version.h"

namespace velmora {

namespace {

constexpr const char* kSection = "Editor";

}  // namespace

EditorForm::EditorForm(Engine& engine, FormControls& controls, FormWindow& window, FileDialogs& dialogs,
                       CRegSettings& settings)
    : engine_(engine),
      controls_(controls),
      window_(window),
      dialogs_(dialogs),
      settings_(settings),
      traceExtent_(engine.TraceWindow, [&engine](const std::string& text) {
        return engine.surface ? engine.surface->MeasureTraceText(text) : 0L;
      }) {
  engine.TraceWindow.AddObserver(&breakpointCaption_);
}

EditorForm::~EditorForm() { engine_.TraceWindow.RemoveObserver(&breakpointCaption_); }

void EditorForm::Form_Load_Interactive() {
  controls_.SetCaption(ControlId::VersionLabel, "Version:  " + std::to_string(VELMORA_VERSION_MAJOR) + "." +
                                                    std::to_string(VELMORA_VERSION_MINOR) + "." +
                                                    std::to_string(VELMORA_VERSION_PATCH));
  const std::string program = engine_.host.ProgramPath();
  const auto slash = program.find_last_of('\\');
  HelpFile = (slash == std::string::npos ? std::string() : program.substr(0, slash)) + "\\Velmora.chm";
  engine_.host.DoEvents();

  ScriptChanged = false;
  DebugFileOpen = false;
  controls_.SetEnabled(ControlId::SaveScriptButton, false);
  Set_Control_State("DisableCommands");
  Set_Control_State("TraceControls", false);
  for (ControlId id : {ControlId::TraceFrame, ControlId::TraceWindow, ControlId::DebugFrame, ControlId::DebugWindow})
    controls_.SetEnabled(id, false);
  Load_Commands(1);
  Restore_Placement();
  Restore_File_Names();
  Show_File_Labels();
  if (!engine_.editor.ScriptFileName.empty()) {
    StartupLoad = true;
    Open_Script_File();
    StartupLoad = false;
  }
}

void EditorForm::Restore_Placement() { Restore_Form_Placement(settings_, kSection, window_); }

// A script named on the command line wins over the remembered one.
void EditorForm::Restore_File_Names() {
  const std::string script = Stored_File_Name(settings_, engine_.host, kSection, "Script File");
  const std::string debug = Stored_File_Name(settings_, engine_.host, kSection, "Debug File");
  if (engine_.editor.ScriptFileName.empty()) engine_.editor.ScriptFileName = script;
  engine_.editor.DebugFileName = debug;
  DebugPromptPending = !debug.empty();
}

void EditorForm::Form_Resize() {
  if (window_.State() == WindowState::Minimized) return;
  TwipsRect form = window_.Placement();
  const bool maximized = window_.State() == WindowState::Maximized;
  bool snapped = false;
  if (form.Width < kMinimumFormWidth && (!maximized || window_.ScreenWidth() > kMinimumFormWidth - 1)) {
    form.Width = kMinimumFormWidth;
    snapped = true;
  }
  if (form.Height < kMinimumFormHeight && (!maximized || window_.ScreenHeight() > kMinimumFormHeight - 1)) {
    form.Height = kMinimumFormHeight;
    snapped = true;
  }
  if (snapped) window_.SetPlacement(form);

  const auto width_of = [&](ControlId id, long width) {
    TwipsRect rect = controls_[id].Rect;
    rect.Width = width;
    controls_.SetRect(id, rect);
  };
  width_of(ControlId::ScriptFileLabel, form.Width - 4065);
  width_of(ControlId::ScriptCover, controls_[ControlId::ScriptFileLabel].Rect.Width);
  width_of(ControlId::TraceFrame, form.Width - 4210);
  width_of(ControlId::TraceWindow, controls_[ControlId::TraceFrame].Rect.Width - 80);
  width_of(ControlId::DebugFrame, form.Width - 175);
  width_of(ControlId::DebugWindow, controls_[ControlId::DebugFrame].Rect.Width - 80);
  Share_Height(form.Height);

  Set_Trace_HScroll_Bar();
  Set_Debug_HScroll_Bar();
}

// Down the right-hand side: the script list and its buttons over the debug
// output. Extra height beyond the designed one is shared between the two
// lists; below it only the debug output gives way.
void EditorForm::Share_Height(long formHeight) {
  const long more = Script_Share_Of_Height(formHeight);
  const auto place = [&](ControlId id, long top, long height) {
    TwipsRect rect = controls_[id].Rect;
    rect.Top = top;
    rect.Height = height;
    controls_.SetRect(id, rect);
  };
  const auto designed = [](ControlId id) { return Find_Declaration(id)->Rect; };
  for (const ControlId list : {ControlId::TraceFrame, ControlId::TraceWindow})
    place(list, designed(list).Top, designed(list).Height + more);
  for (const ControlId below : {ControlId::TraceControlsFrame, ControlId::DebugFrame})
    place(below, designed(below).Top + more, designed(below).Height);
  place(ControlId::DebugFrame, controls_[ControlId::DebugFrame].Rect.Top, formHeight - 6995 - more);
  place(ControlId::DebugWindow, designed(ControlId::DebugWindow).Top,
        controls_[ControlId::DebugFrame].Rect.Height - 280);
}

// The trace list scrolls sideways exactly to the end of its widest line.
void EditorForm::Set_Trace_HScroll_Bar() {
  EditorSurface* surface = engine_.surface;
  if (!surface) return;
  const long extent = surface->TraceWindowWidth() < traceExtent_.Widest() ? traceExtent_.Widest() + 5 : 0;
  if (extent != traceExtentSent_) surface->SetTraceHorizontalExtent(extent);
  traceExtentSent_ = extent;
}

void EditorForm::Set_Debug_HScroll_Bar() {
  EditorSurface* surface = engine_.surface;
  const long widest = engine_.editor.WidestDebugLine;
  if (surface && surface->DebugWindowWidth() < widest) surface->SetDebugHorizontalExtent(widest + 5);
}

// A changed script is settled first: the question's Cancel, or a cancelled
// save, keeps the editor open with the script as it is.
bool EditorForm::Form_QueryUnload() {
  if (!Script_Changes_May_Go()) return false;
  engine_.host.Beep();
  Save_Placement();
  Log_Always(engine_, true, "Info: Editor shut down!" + Date_Time_Stamp(engine_));
  if (DebugFileOpen) Close_Debug_File();
  settings_.SaveSetting(kSection, "Script File", engine_.editor.ScriptFileName);
  settings_.SaveSetting(kSection, "Debug File", engine_.editor.DebugFileName);
  return true;
}

void EditorForm::Save_Placement() { Save_Form_Placement(settings_, kSection, window_); }

}  // namespace velmora
